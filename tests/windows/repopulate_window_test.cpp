// The report after a selector run offers to download the short histories anew.
#include <QProgressBar>
#include <QPushButton>
#include <utility>

#include "acquire/feeds/windows/frmPopulate.h"
#include "shell/frame/windows/frmEnable.h"
#include "store/windows/frmErrorReport.h"
#include "store/windows/frmQuoteGrid.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// A frame after a selector run over T1, T2 and T3, none of which has a history, and a web that has a day of
// each.
class ReportProgram : public Program {
  public:
    ReportProgram() {
        std::string data;
        for (int line = 1; line <= 19; ++line) {
            std::string text = line == 16 ? "Automatic" : "line " + std::to_string(line);
            data += line == 6 ? "5\r\n" : "\"" + text + "\"\r\n";
        }
        Write("VTRDATAset.ini", data);
        web.AnswerWith([this](const WebRequest&) {
            if (onRequest) onRequest();
            return MemoryWeb::Page("Date,Open,High,Low,Close,Volume,Adj\n2026-03-06,10,12,9,11,500,11\n");
        });
        Start("Jan.ddq");
        frame->Run("mnuEvaluatePickStocks");
    }

    frmErrorReport* Report() { return frame->findChild<frmErrorReport*>(); }
    void Press(const char* button) {
        Report()->findChild<QPushButton*>(QString::fromLatin1(button))->click();
    }
    std::string History(const char* name) { return BytesOrEmpty(Path(session.settings.QuoteFolder) / name); }
    void StoreHistory(const char* name) {
        if (WriteWholeFile(Path(session.settings.QuoteFolder) / name, "\"03/05/26\",\"\",9\r\n"))
            qFatal("no");
    }

    std::function<void()> onRequest;
};

}  // namespace

class RepopulateWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theReportedTickersAreDownloadedAnew() {
        ReportProgram program;
        frmErrorReport* report = program.Report();
        QVERIFY(report && report->isVisible());
        QCOMPARE(report->findChild<QPushButton*>(QStringLiteral("Command3"))->text(),
                 QStringLiteral("Re-populate"));
        program.StoreHistory("T1.25");
        program.StoreHistory("T1.26");
        program.StoreHistory("KO.26");
        const std::string other = program.History("KO.26");
        const std::string meant = program.session.CurrentTicker;
        bool frameShut = false, closed = false;
        program.onRequest = [&] {
            frameShut = !program.frame->isEnabled();
            closed = !report->isVisible();
        };
        program.Press("Command3");
        QVERIFY(frameShut && closed);
        QCOMPARE(program.web.Addresses.size(), std::size_t{3});
        for (const char* name : {"T1.26", "T2.26", "T3.26"}) {
            QVERIFY2(program.History(name).starts_with("\"03/06/26\""), name);
        }
        QCOMPARE(program.History("T1.25"), std::string());
        QCOMPARE(program.History("KO.26"), other);
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QCOMPARE(program.session.CurrentTicker, meant);
        QVERIFY(program.frame->isEnabled());
        QVERIFY(!program.frame->findChild<frmEnable*>());
        QVERIFY(!program.Find<QProgressBar>("ProgressBar1")->isVisible());
        QCOMPARE(program.session.CurrentFile, std::string("Evaluations.dbe"));
    }

    void tipsSayThatTheStoredHistoryIsReplaced() {
        ReportProgram program;
        const QString replaces = QStringLiteral("it replaces the stored one");
        QVERIFY(program.Report()
                    ->findChild<QPushButton*>(QStringLiteral("Command3"))
                    ->toolTip()
                    .endsWith(replaces));
        QVERIFY(program.frame->Commands().Entry("mnuFilePopulate")->toolTip().endsWith(replaces));
        program.session.settings.MruSettings.Set(1, Value::OfText("Jan.ddq"));
        program.frame->OpenRecentFile(1);
        program.frame->Run("mnuFilePopulate");
        auto* populate = program.frame->findChild<frmPopulate*>();
        QVERIFY(populate->findChild<QPushButton*>(QStringLiteral("Command1"))->toolTip().endsWith(replaces));
    }

    void exitStopsAfterTheTickerInWork() {
        ReportProgram program;
        program.onRequest = [&] {
            auto* buttons = program.frame->findChild<frmEnable*>();
            QVERIFY(buttons);
            buttons->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        };
        program.Press("Command3");
        QCOMPARE(program.web.Addresses.size(), std::size_t{1});
        QVERIFY(!program.History("T1.26").empty());
        QVERIFY(program.History("T2.26").empty());
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QVERIFY(program.frame->isEnabled());
    }

    void pauseStandsStillUntilResume() {
        ReportProgram program;
        const auto press = [&](const char* name) {
            program.frame->findChild<frmEnable*>()
                ->findChild<QPushButton*>(QString::fromLatin1(name))
                ->click();
        };
        bool paused = false;
        bool frameFree = false;
        program.onRequest = [&] {
            if (std::exchange(paused, true)) return;
            press("Command2");
            QTimer::singleShot(0, program.frame.get(), [&] {
                frameFree = program.frame->isEnabled() && program.person.Paused();
                press("Command3");
            });
        };
        program.Press("Command3");
        QVERIFY(frameFree);
        QCOMPARE(program.web.Addresses.size(), std::size_t{3});
        QVERIFY(!program.History("T3.26").empty());
    }

    void closeLeavesTheHistoriesAsTheyAre() {
        ReportProgram program;
        program.StoreHistory("T1.26");
        const std::string before = program.History("T1.26");
        frmErrorReport* report = program.Report();
        program.Press("Command2");
        QVERIFY(!report->isVisible());
        QVERIFY(program.web.Addresses.empty());
        QCOMPARE(program.History("T1.26"), before);
    }

    void closingTheFrameMeanwhileEndsTheRunAndThenTheProgram() {
        ReportProgram program;
        program.onRequest = [&] {
            program.frame->close();
            QVERIFY(program.frame->isVisible());
        };
        program.Press("Command3");
        QCoreApplication::processEvents();
        QVERIFY(!program.frame->isVisible());
        QCOMPARE(program.web.Addresses.size(), std::size_t{1});
    }
};

WINDOW_TEST(RepopulateWindowTest)
#include "repopulate_window_test.moc"
