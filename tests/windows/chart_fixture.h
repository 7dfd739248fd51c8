// A frame with the table Jan.ddq and a history of T1; the other tickers of the table have none.
#pragma once

#include <QComboBox>
#include <QPushButton>
#include <cstdio>

#include "chart/windows/chart_panel.h"
#include "chart/windows/frmGraph.h"
#include "chart/windows/frmGraphNoData.h"
#include "chart/windows/values_line.h"
#include "shell/user_store.h"
#include "store/history_record.h"
#include "window_fixture.h"

namespace brantlow {

class ChartProgram : public Program {
  public:
    // Of the window.
    static constexpr std::size_t kBars = 279;

    // The chart stands in its own size, or fills its window as in a new installation.
    explicit ChartProgram(std::size_t bars = kBars, bool fits = false) {
        if (!fits && SaveSetting(store, "Chart", "FitToWindow", "0")) qFatal("cannot write the user's store");
        Write("VTRGRAPHset.ini", GraphSettingsText("Default", "None"));
        WriteHistory("T1", bars);
        Start("Jan.ddq");
    }

    static std::string GraphSettingsText(const std::string& style, const std::string& condition) {
        std::string text;
        for (const std::string& line :
             {style, std::string("Price"), std::string("MA 15"), std::string(), std::string(), std::string(),
              std::string(), std::string(), condition, condition}) {
            text += "\"" + line + "\"\r\n";
        }
        return text;
    }

    // Bar `i` from 1 closes at 100 + i, opens half below, and reaches one up and down.
    static HistoryRecord Bar(std::size_t i) {
        HistoryRecord day;
        char date[sizeof "00/00/00"];
        std::snprintf(date, sizeof date, "%02u/%02u/26", static_cast<unsigned>(i / 28 % 12 + 1),
                      static_cast<unsigned>(i % 28 + 1));
        day.HistoryDate = date;
        day.HistoryClose = 100 + static_cast<double>(i);
        day.HistoryLow = day.HistoryClose - 1;
        day.HistoryHigh = day.HistoryClose + 1;
        day.HistoryOpen = day.HistoryClose - 0.5;
        day.HistoryVolume = 1000 + static_cast<double>(i);
        day.HistoryPE = 12.5;
        day.HistoryPEG = 1.25;
        return day;
    }

    // The loader puts the first row of a history before the first bar.
    void WriteHistory(const std::string& ticker, std::size_t bars) {
        std::string text;
        for (std::size_t i = 0; i <= bars; ++i) AppendHistoryLine(Bar(i), text);
        const Path file = session.AppPath / "Quotes" / "EOD" / (ticker + ".26");
        if (WriteWholeFile(file, text)) qFatal("cannot write %s", file.c_str());
    }

    void Choose(const char* entry) {
        frame->Commands().Entry(entry)->trigger();
        QCoreApplication::processEvents();
    }
    void SelectTicker(const char* ticker) { Find<QLineEdit>("Text1")->setText(QString::fromLatin1(ticker)); }
    frmGraph* Graph() const { return frame->GraphForm(); }
    template <class Widget>
    Widget* Part(const char* name) const {
        return Graph()->findChild<Widget*>(QString::fromLatin1(name));
    }
    QString Label(const char* name) const { return Part<QLabel>(name)->text(); }
    void Press(const char* button) { QTest::mouseClick(Part<QPushButton>(button), Qt::LeftButton); }
    // Chooses an item as a person does: in the opened list.
    void Pick(const char* list, const char* item) {
        auto* combo = Part<QComboBox>(list);
        const int index = combo->findText(QString::fromLatin1(item));
        QVERIFY2(index >= 0, item);
        combo->setCurrentIndex(index);
        Q_EMIT combo->activated(index);
    }
    // The picture of a panel on the screen.
    QImage Picture(const char* panel) const { return Part<ChartPanel>(panel)->grab().toImage(); }
    std::size_t Items(Panel panel) const { return Graph()->Chart().Picture(panel).items.size(); }
};

// The line of values at the bar below the pointer.
inline QString ValuesText(const ChartProgram& program) {
    return program.Part<ValuesLine>("lblValues")->Text();
}

}  // namespace brantlow
