// The chart window: how it is opened and closed, its lists, buttons and labels.
#include "chart/windows/frmGraph.h"

#include <QAbstractItemView>
#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScrollArea>

#include "chart_fixture.h"
#include "screens/windows/frmApplicationSettings.h"
#include "selector/windows/frmSelectorSelection.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"

using namespace brantlow;

namespace {

std::vector<std::string> Chosen(const ChartProgram& program) {
    const auto& slots_ = program.Graph()->Chart().Slots;
    return {slots_.begin(), slots_.end()};
}

}  // namespace

class FrmGraphTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void menuButtonAndPopUpOpenTheChart() {
        const std::tuple<const char*, const char*> rows[] = {
            {"mnuGraphicsHLC", "Default"},
            {"mnuGraphicsCandleStick", "CandleStick"},
            {"mnuPopUpGraphicsHLC", "Default"},
            {"mnuPopUpGraphicsCandleStick", "CandleStick"},
        };
        for (const auto& [entry, style] : rows) {
            ChartProgram program;
            program.Choose(entry);
            QVERIFY2(program.Graph(), entry);
            QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T1"));
            QVERIFY(program.Graph()->parentWidget()->isMaximized());
            QCOMPARE(program.session.settings.GraphSettings.Text(1), std::string(style));
        }
        ChartProgram program;
        program.Click("Command1");
        QVERIFY(program.Graph());
        QCOMPARE(program.Graph()->Chart().ChartStyle, std::string());
    }

    void aChartOpensInMenusAndButtonWithTheirWords() {
        ChartProgram program;
        QCOMPARE(program.Find<QMenu>("mnuGraphics")->title(), QStringLiteral("&Graphics"));
        QCOMPARE(program.Find<QMenu>("mnuPopUpGraph")->title(), QStringLiteral("Graph"));
        QCOMPARE(program.Find<QAbstractButton>("Command1")->toolTip(), QStringLiteral("Graphics (F8)"));
        const QMenu* const popUp = program.Find<QMenu>("mnuPopUp");
        QCOMPARE(popUp->actions().constFirst()->menu(), program.Find<QMenu>("mnuPopUpGraph"));
    }

    void withoutASelectedTickerItSaysSo() {
        ChartProgram program;
        program.SelectTicker("T1");
        program.SelectTicker("");
        for (const char* entry : {"mnuGraphicsHLC", "mnuGraphicsCandleStick", "Graphics",
                                  "mnuPopUpGraphicsHLC", "mnuPopUpGraphicsCandleStick"}) {
            QString told;
            DialogHand hand([&](QDialog& dialog) {
                if (auto* box = qobject_cast<QMessageBox*>(&dialog)) told = box->text();
                dialog.accept();
            });
            program.Choose(entry);
            QCOMPARE(told, QStringLiteral("You must select a ticker symbol to obtain a graph."));
            QVERIFY(!program.Graph());
        }
        // A refused choice of style is no choice.
        program.SelectTicker("T1");
        program.Choose("Graphics");
        QCOMPARE(program.session.settings.GraphSettings.Text(1), std::string("Default"));
    }

    void withoutATableItSaysSo() {
        ChartProgram program;
        program.frame->Run("mnuFileClose");
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) told = box->text();
            dialog.accept();
        });
        program.Choose("mnuGraphicsHLC");
        QCOMPARE(told, QStringLiteral("You must select a ticker symbol to obtain a graph."));
    }

    void theButtonFollowsTheLastMenuChoice() {
        ChartProgram program;
        program.Choose("mnuGraphicsCandleStick");
        program.Write("VTRGRAPHset.ini", ChartProgram::GraphSettingsText("Default", "None"));
        program.Click("Command1");
        QCOMPARE(program.session.settings.GraphSettings.Text(1), std::string("CandleStick"));
    }

    void theStylesLookDifferent() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        const QImage bars = program.Picture("Picture1");
        program.Choose("mnuGraphicsCandleStick");
        const QImage candles = program.Picture("Picture1");
        // Bar 100 closes above its open: the left side of its candle, 15 twips left of x = 4550, is green
        // between open and close. The scale runs from 100 to 380.
        const int x = (50 + 45 * 100 - 15) / kTwips;
        const int y = static_cast<int>(50 + 6000.0 * (380 - 199.75) / 280) / kTwips;
        QCOMPARE(candles.pixelColor(x, y), QColor(10, 100, 10));
        QVERIFY(bars.pixelColor(x, y) != QColor(10, 100, 10));
    }

    void oneChartAtATime() {
        ChartProgram program;
        program.WriteHistory("T2", 50);
        program.Choose("mnuGraphicsHLC");
        const QPointer<frmGraph> first = program.Graph();
        program.SelectTicker("T2");
        program.Choose("mnuGraphicsHLC");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!first);
        QCOMPARE(program.frame->findChildren<frmGraph*>().size(), 1);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T2"));
    }

    void headerAndScaleLabelsTellTheChart() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        const std::pair<const char*, const char*> rows[] = {
            {"Label3", "Symbol:"},     {"Label58", "T1"},
            {"Label1", "LastPrice:"},  {"Label59", "379"},
            {"Label2", "Date:"},       {"Label60", "01/02/26"},
            {"Label61", "-"},          {"Label62", "10/28/26"},
            {"Label11", "PEG:"},       {"Label63", "1.25"},
            {"Label12", "P/E:"},       {"Label64", "12.50"},
            {"Label51", "380.00"},     {"Label25", "310.00"},
            {"Label52", "240.00"},     {"Label27", "170.00"},
            {"Label53", "100.00"},     {"Label56", "1279"},
            {"Label57", "1001"},       {"Label20", "    Series       "},
            {"Label13", "Price"},      {"Label14", "MA 15"},
            {"Label15", ""},           {"Label21", "Date:"},
            {"Label22", "Price:"},     {"Label24", "Volume:"},
            {"Label23", "Indicator:"}, {"Label68", ""},
            {"Label69", ""},           {"Label28", ""},
            {"Label26", ""},           {"lblTimeFrame", "Daily"},
        };
        for (const auto& [label, text] : rows) {
            QVERIFY2(program.Part<QLabel>(label), label);
            QVERIFY2(program.Label(label) == QString::fromLatin1(text),
                     qPrintable(QString::fromLatin1(label) + QStringLiteral(": ") + program.Label(label)));
        }
    }

    void theScaleLabelsStandBesideTheirLines() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        const std::tuple<const char*, const char*, int> rows[] = {
            {"Label51", "Picture1", 50},   {"Label25", "Picture1", 1550}, {"Label52", "Picture1", 3050},
            {"Label27", "Picture1", 4550}, {"Label53", "Picture1", 6050}, {"Label54", "Picture2", 50},
            {"Label55", "Picture2", 1120}, {"Label56", "Picture3", 50},   {"Label57", "Picture3", 1120},
        };
        for (const auto& [name, panelName, twips] : rows) {
            const auto* const label = program.Part<QLabel>(name);
            const auto* const panel = program.Part<ChartPanel>(panelName);
            const int line = panel->y() + twips / kTwips;
            QVERIFY2(std::abs(label->geometry().center().y() - line) <= 1, name);
            QVERIFY2(label->geometry().right() < panel->x(), name);
            QVERIFY2(label->width() >= label->sizeHint().width(), name);
        }
    }

    void thePanelsStandOneOverTheOtherWithTheSameLeftEdge() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        const auto* const price = program.Part<ChartPanel>("Picture1");
        const auto* const study = program.Part<ChartPanel>("Picture2");
        const auto* const volume = program.Part<ChartPanel>("Picture3");
        QCOMPARE(study->x(), price->x());
        QCOMPARE(volume->x(), price->x());
        QVERIFY(study->y() >= price->y() + price->height());
        QVERIFY(volume->y() >= study->y() + study->height());
        QVERIFY(price->width() * kTwips > 12650);
    }

    void theListsHoldTheirItems() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        const std::tuple<const char*, int, const char*, const char*> rows[] = {
            {"Combo1", 31, "Price", "LR MINMAX CL"},
            {"Combo2", 27, "MLR Der 15", "Earnings To Sales"},
            {"Combo3", 7, "Volume", "WMA 30"},
        };
        for (const auto& [name, count, first, last] : rows) {
            const auto* const list = program.Part<QComboBox>(name);
            QCOMPARE(list->count(), count);
            QCOMPARE(list->itemText(0), QString::fromLatin1(first));
            QCOMPARE(list->itemText(count - 1), QString::fromLatin1(last));
        }
        QCOMPARE(program.Part<QComboBox>("Combo2")->currentText(), QStringLiteral("MLR Der 30"));
    }

    void aPickFillsTheFirstEmptySlotInTheColourOfItsLine() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        const std::size_t before = program.Items(Panel::Price);
        program.Pick("Combo1", "WMA 30");
        QCOMPARE(Chosen(program), (std::vector<std::string>{"Price", "MA 15", "WMA 30", "", "", "", ""}));
        QCOMPARE(program.Label("Label15"), QStringLiteral("WMA 30"));
        const auto colourOf = [&](const char* name) {
            const auto* const label = program.Part<QLabel>(name);
            return label->palette().color(label->foregroundRole());
        };
        QCOMPARE(colourOf("Label13"), QColor(0, 0, 0));
        QCOMPARE(colourOf("Label14"), QColor(0, 100, 0));
        QCOMPARE(colourOf("Label15"), QColor(10, 10, 150));
        // Segments from bar 31 on.
        QVERIFY(program.Items(Panel::Price) >= before + ChartProgram::kBars - 30);
        QCOMPARE(program.Part<QComboBox>("Combo1")->currentText(), QStringLiteral("WMA 30"));
    }

    void aSeventhPickChangesNothing() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        for (const char* item : {"MA 30", "MA 60", "MLR 15", "MLR 30", "LR T.CL"})
            program.Pick("Combo1", item);
        const std::vector<std::string> full = Chosen(program);
        QCOMPARE(full.back(), std::string("LR T.CL"));
        const QImage before = program.Picture("Picture1");
        program.Pick("Combo1", "WMA 60");
        QCOMPARE(Chosen(program), full);
        QCOMPARE(program.Picture("Picture1"), before);
    }

    void command3LeavesThePriceAlone() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        QCOMPARE(program.Part<QPushButton>("Command3")->text(), QStringLiteral("Clear Series"));
        program.Pick("Combo1", "MLR 15");
        const std::size_t before = program.Items(Panel::Price);
        program.Press("Command3");
        QCOMPARE(Chosen(program), (std::vector<std::string>{"Price", "", "", "", "", "", ""}));
        QCOMPARE(program.Label("Label13"), QStringLiteral("Price"));
        QCOMPARE(program.Label("Label14"), QString());
        QVERIFY(program.Items(Panel::Price) < before);
        QCOMPARE(program.Part<QComboBox>("Combo1")->currentText(), QStringLiteral("Price"));
    }

    void aStudyTakesThePlaceOfTheOneBefore() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        const QImage before = program.Picture("Picture2");
        program.Pick("Combo2", "RSI 30");
        QCOMPARE(program.Label("Label54"), QStringLiteral("100.0000"));
        QCOMPARE(program.Label("Label55"), QStringLiteral("0.0000"));
        QVERIFY(program.Picture("Picture2") != before);
        program.Pick("Combo2", "MLR Der 30");
        QCOMPARE(program.Picture("Picture2"), before);
    }

    void volumeSeriesArePickedAndCleared() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        const auto list = [&] {
            const auto& entries = program.Graph()->Chart().VolumeSeriesList;
            return std::vector<std::string>(entries.begin(), entries.end());
        };
        QCOMPARE(list(), (std::vector<std::string>{"Volume", "Average", "LR", "L. UCL", "", ""}));
        program.Pick("Combo3", "WMA 15");
        QCOMPARE(list(), (std::vector<std::string>{"Volume", "Average", "LR", "L. UCL", "WMA 15", ""}));
        const std::size_t before = program.Items(Panel::Volume);
        QCOMPARE(program.Part<QPushButton>("Command4")->text(), QStringLiteral("Clear Series"));
        program.Press("Command4");
        QCOMPARE(list(), (std::vector<std::string>{"Volume", "", "", "", "", ""}));
        QVERIFY(program.Items(Panel::Volume) < before);
        QCOMPARE(program.Part<QComboBox>("Combo3")->currentText(), QStringLiteral("Volume"));
    }

    void theWheelPicksNothing() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        auto* const list = program.Part<QComboBox>("Combo1");
        QWheelEvent wheel({5, 5}, list->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(list, &wheel);
        QCOMPARE(Chosen(program), (std::vector<std::string>{"Price", "MA 15", "", "", "", "", ""}));
    }

    void keysOpenAListAndOnlyEnterPicks() {
        const auto before = std::vector<std::string>{"Price", "MA 15", "", "", "", "", ""};
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_End, Qt::Key_W}) {
            ChartProgram program;
            program.Choose("mnuGraphicsHLC");
            auto* const list = program.Part<QComboBox>("Combo1");
            list->setFocus();
            QTest::keyClick(list, key);
            QVERIFY2(list->view()->isVisible(), qPrintable(QString::number(key)));
            QTest::keyClick(list->view(), Qt::Key_Down);
            QCOMPARE(Chosen(program), before);
            const std::string item = list->view()->currentIndex().data().toString().toStdString();
            QTest::keyClick(list->view(), Qt::Key_Return);
            QTRY_COMPARE_WITH_TIMEOUT(Chosen(program),
                                      (std::vector<std::string>{"Price", "MA 15", item, "", "", "", ""}),
                                      kPatienceMs);
            QVERIFY(!list->view()->isVisible());
        }
    }

    void theTimeFrameButtonsStopAtTheirEnds() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        QCOMPARE(program.Part<QPushButton>("Command5")->text(), QStringLiteral("<<"));
        QCOMPARE(program.Part<QPushButton>("Command5")->toolTip(),
                 QStringLiteral("Weekly or Monthly Display"));
        QCOMPARE(program.Part<QPushButton>("Command6")->text(), QStringLiteral(">>"));
        QCOMPARE(program.Part<QPushButton>("Command6")->toolTip(), QStringLiteral("Daily or Weekly Display"));
        // A reload would show the shorter history.
        const auto forget = [&] { program.WriteHistory("T1", 100); };
        const auto remember = [&] { program.WriteHistory("T1", ChartProgram::kBars); };
        forget();
        program.Press("Command6");
        QCOMPARE(program.Label("lblTimeFrame"), QStringLiteral("Daily"));
        QCOMPARE(program.Label("Label59"), QStringLiteral("379"));
        remember();
        program.Press("Command5");
        QCOMPARE(program.Label("lblTimeFrame"), QStringLiteral("Weekly"));
        const QString weeklyStart = program.Label("Label60");
        program.Press("Command5");
        QCOMPARE(program.Label("lblTimeFrame"), QStringLiteral("Monthly"));
        QVERIFY(program.Label("Label60") != weeklyStart);
        const QString monthlyClose = program.Label("Label59");
        forget();
        program.Press("Command5");
        QCOMPARE(program.Label("lblTimeFrame"), QStringLiteral("Monthly"));
        QCOMPARE(program.Label("Label59"), monthlyClose);
        remember();
        program.Press("Command6");
        QCOMPARE(program.Label("lblTimeFrame"), QStringLiteral("Weekly"));
        QCOMPARE(program.Label("Label60"), weeklyStart);
        program.Press("Command6");
        QCOMPARE(program.Label("lblTimeFrame"), QStringLiteral("Daily"));
        QCOMPARE(program.Label("Label60"), QStringLiteral("01/02/26"));
    }

    void aChartStartsDaily() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        program.Press("Command5");
        program.Choose("mnuGraphicsHLC");
        QCOMPARE(program.Label("lblTimeFrame"), QStringLiteral("Daily"));
    }

    void theTestButtonAsks() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        QCOMPARE(program.Part<QPushButton>("CommandReturn")->text(),
                 QStringLiteral("Test Buy and Sell Conditions"));
        int asked = 0;
        QObject::connect(program.Graph(), &frmGraph::TestAsked, [&] { ++asked; });
        QObject::disconnect(program.Graph(), &frmGraph::TestAsked, program.frame.get(), nullptr);
        program.Press("CommandReturn");
        QCOMPARE(asked, 1);
    }

    void itClosesByButtonKeyMenuAndItsOwnCross() {
        const std::pair<const char*, std::function<void(ChartProgram&)>> rows[] = {
            {"Exit", [](ChartProgram& program) { program.Press("Command1"); }},
            {"Escape", [](ChartProgram& program) { QTest::keyClick(program.Graph(), Qt::Key_Escape); }},
            {"Close", [](ChartProgram& program) { program.Choose("mnuFileClose"); }},
            {"cross", [](ChartProgram& program) { program.Graph()->parentWidget()->close(); }},
        };
        for (const auto& [name, close] : rows) {
            ChartProgram program;
            program.Choose("mnuGraphicsHLC");
            close(program);
            QVERIFY2(!program.Graph(), name);
            QVERIFY(program.frame->QuoteForm());
            QCOMPARE(program.session.CurrentFile, std::string("Jan.ddq"));
            QCOMPARE(program.Find<QMdiArea>("")->currentSubWindow(),
                     program.frame->QuoteForm()->parentWidget());
        }
    }

    // Whatever had the keys before.
    void aClosedChartGivesTheKeysToTheTablesRow() {
        for (const char* before : {"MSHFlexGrid1", "Text1"}) {
            for (const char* way : {"Escape", "Exit"}) {
                ChartProgram program;
                program.frame->activateWindow();
                program.frame->QuoteForm()->SelectTicker("T1");
                program.frame->QuoteForm()->findChild<QWidget*>(QLatin1String(before))->setFocus();
                program.Choose("mnuGraphicsHLC");
                QVERIFY(program.Graph());
                if (qstrcmp(way, "Exit") == 0) {
                    program.Press("Command1");
                } else {
                    QTest::keyClick(program.Graph(), Qt::Key_Escape);
                }
                QCoreApplication::processEvents();
                QCOMPARE(program.frame->focusWidget(), program.frame->QuoteForm()->View());
                QCOMPARE(program.frame->QuoteForm()->SelectedTicker(), std::string("T1"));
            }
        }
    }

    void theTableTakesTheWholeAreaAgainBehindAClosedChart() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        QVERIFY(program.frame->GraphForm());
        program.Choose("mnuFileClose");
        QVERIFY(!program.frame->GraphForm());
        auto* child = qobject_cast<QMdiSubWindow*>(program.frame->QuoteForm()->parentWidget());
        QVERIFY(child);
        QVERIFY(child->isMaximized());
    }

    void closingTheTableLeavesTheChart() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        program.frame->QuoteForm()->parentWidget()->close();
        QVERIFY(!program.frame->QuoteForm());
        QVERIFY(program.Graph());
        QVERIFY(program.frame->Commands().Entry("mnuFileClose")->isEnabled());
        program.Choose("mnuFileClose");
        QVERIFY(!program.Graph());
        QVERIFY(!program.frame->Commands().Entry("mnuFileClose")->isEnabled());
    }

    void openingATableClosesTheChart() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        program.frame->OpenRecentFile(1);
        QVERIFY(!program.Graph());
        QVERIFY(program.frame->QuoteForm());
    }

    void aSelectorRunClosesTheChart() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        QVERIFY(program.frame->GraphForm());
        program.frame->Run("mnuEvaluatePickStocks");
        auto* const interval = program.frame->findChild<frmSelectorSelection*>();
        QVERIFY(interval);
        interval->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        QVERIFY(!program.frame->GraphForm());
        QCOMPARE(program.session.CurrentFile, std::string("Evaluations.dbe"));
    }

    void openingAndLeavingTheSettingsKeepsTheStyle() {
        ChartProgram program;
        program.Choose("mnuGraphicsCandleStick");
        QCOMPARE(program.Graph()->Chart().ChartStyle, std::string("CandleStick"));
        program.Choose("mnuSettingsApplication");
        auto* const settings = program.frame->findChild<frmApplicationSettings*>();
        QVERIFY(settings && settings->isVisible());
        QTest::keyClick(settings, Qt::Key_Escape);
        QVERIFY(!settings->isVisible());
        QVERIFY(program.Graph());
        QCOMPARE(program.Graph()->Chart().ChartStyle, std::string("CandleStick"));
    }

    void theWindowMenuArrangesBothChildren() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        auto* const table = program.frame->QuoteForm()->parentWidget();
        auto* const chart = program.Graph()->parentWidget();
        program.Choose("mnuWindowTileHorizontal");
        QVERIFY(!table->geometry().intersects(chart->geometry()));
        QCOMPARE(table->width(), chart->width());
        program.Choose("mnuWindowTileVertical");
        QVERIFY(!table->geometry().intersects(chart->geometry()));
        QCOMPARE(table->height(), chart->height());
        program.Choose("mnuWindowCascade");
        QVERIFY(table->pos() != chart->pos());
        QCOMPARE(table->size(), chart->size());
    }

    void aSmallWindowScrollsAndItsPictureHoldsAll() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        program.frame->resize(640, 480);
        QCoreApplication::processEvents();
        const auto* const scroll = program.Graph()->findChild<QScrollArea*>();
        QVERIFY(scroll->viewport()->width() < program.Graph()->ClientArea()->width());
        QVERIFY(program.Graph()->ClientArea()->rect().contains(
            QRect(program.Part<QPushButton>("Command4")->mapTo(program.Graph()->ClientArea(), QPoint()),
                  program.Part<QPushButton>("Command4")->size())));
    }

    void itFitsTheSmallestScreen() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        QVERIFY2(program.Graph()->ClientArea()->width() <= 1024,
                 qPrintable(QString::number(program.Graph()->ClientArea()->width())));
        constexpr int kEdges = 8;
        for (const QPushButton* button : program.Graph()->ClientArea()->findChildren<QPushButton*>()) {
            const int words = button->fontMetrics().horizontalAdvance(button->text());
            QVERIFY2(words + kEdges <= button->width(), qPrintable(button->objectName()));
        }
    }

    void fewerBarsEndShortOfTheRightAxis() {
        ChartProgram program(20);
        program.Choose("mnuGraphicsHLC");
        const QImage picture = program.Picture("Picture3");
        // The last bar stands at x = 50 + 45 x 20; beyond it only frame and regression lines are drawn.
        QVERIFY(picture.pixelColor((50 + 45 * 20) / kTwips, 1095 / kTwips) == QColor(10, 150, 10));
        program.Press("Command4");
        const QImage cleared = program.Picture("Picture3");
        for (int x = (50 + 45 * 21) / kTwips; x < 12640 / kTwips; ++x) {
            QCOMPARE(cleared.pixelColor(x, 1000 / kTwips), QColor(Qt::white));
        }
    }

    void alarmsOfTheRowAreOnTheChart() {
        ChartProgram program;
        QuoteTable& table = program.frame->QuoteForm()->Table();
        const auto high = table.ColumnOf("High Alarm");
        const auto low = table.ColumnOf("Low Alarm");
        QVERIFY(high && low);
        table.SetText(1, *high, "500");
        table.SetText(1, *low, "50");
        program.Choose("mnuGraphicsHLC");
        QCOMPARE(program.Label("Label51"), QStringLiteral("500.00"));
        QCOMPARE(program.Label("Label53"), QStringLiteral("50.00"));
        // A ticker that the table does not hold has none.
        program.WriteHistory("ZZ", 279);
        program.SelectTicker("zz");
        program.Choose("mnuGraphicsHLC");
        QCOMPARE(program.Label("Label58"), QStringLiteral("ZZ"));
        QCOMPARE(program.Label("Label51"), QStringLiteral("380.00"));
    }

    void theAlarmLinesFollowTheSelectedRowAndAnEditOfItsAlarms() {
        ChartProgram program;
        QuoteTable& table = program.frame->QuoteForm()->Table();
        const auto high = table.ColumnOf("High Alarm");
        QVERIFY(high && table.TickerCount() > 1);
        table.SetText(1, *high, "500");
        table.SetText(2, *high, "600");
        program.Choose("mnuGraphicsHLC");
        QCOMPARE(program.Label("Label51"), QStringLiteral("500.00"));
        FrozenTableView* view = program.frame->QuoteForm()->View();
        view->selectRow(1);
        QCOMPARE(program.Label("Label51"), QStringLiteral("600.00"));
        QCOMPARE(program.frame->GraphForm()->Chart().HighAlarm, 600.0);
        view->selectRow(0);
        QCOMPARE(program.Label("Label51"), QStringLiteral("500.00"));
        program.Find<QLineEdit>("Text2")->setText(QStringLiteral("550"));
        QTest::mouseClick(program.Find<QPushButton>("CmdAlarm"), Qt::LeftButton);
        QCOMPARE(program.Label("Label51"), QStringLiteral("550.00"));
    }
};

WINDOW_TEST(FrmGraphTest)
#include "frmGraph_test.moc"
