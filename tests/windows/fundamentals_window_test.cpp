// The collection of extended fundamentals at the windows: the table that fills, its guards, its ends.
#include <QAction>
#include <QPushButton>

#include "shell/frame/windows/frame_subjects.h"
#include "shell/frame/windows/frmEnable.h"
#include "shell/frame/windows/frmLowMemory.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

constexpr int kBetaColumn = 30;
constexpr int kFloatColumn = 32;
constexpr int kMeanTargetColumn = 41;
constexpr const char* kWorkingName = "ExtendedFundamentals.efq";
// The test's day.
constexpr const char* kDaysName = "03-09-26.efq";

std::string MuchMemory() {
    return "MemTotal: 1000 kB\nMemAvailable: 900 kB\n";
}
std::string TooLittleMemory() {
    return "MemTotal: 1000 kB\nMemAvailable: 54 kB\n";
}

// A frame with a table of tickers and a web that has pages for each.
class FundamentalsProgram : public Program {
  public:
    explicit FundamentalsProgram(const std::string& tickers = "T1\r\nT2\r\nT3\r\n") {
        Write("Mine.ddq", "Ticker Symbol\tLast Price\r\n" + tickers);
        web.AnswerWith([this](const WebRequest& request) { return Answer(request); });
        frame->Subjects().runs.WatchMemoryBy(MuchMemory);
        Start("Mine.ddq");
    }

    static std::string Tickers(int count) {
        std::string text;
        for (int i = 1; i <= count; ++i) text += "T" + std::to_string(i) + "\r\n";
        return text;
    }

    void Collect() { frame->Commands().Entry("mnuExtendedFundamentals")->trigger(); }
    QString Text(int row, int column) {
        return frame->QuoteForm()->View()->model()->index(row, column).data().toString();
    }
    frmEnable* Buttons() { return frame->findChild<frmEnable*>(); }
    void Press(const char* button) {
        Buttons()->findChild<QPushButton*>(QString::fromLatin1(button))->click();
    }
    // True once the run stands still in a pause that was asked for in the row `row`.
    bool PausedAt(std::size_t row) {
        if (session.run.CurrentRow >= row && session.run.ProcessCommand == kRunning) Press("Command2");
        return person.Paused() && frame->isEnabled();
    }

    // Called before each page.
    std::function<void()> onPage;
    bool pagesFail = false;

  private:
    WebReply Answer(const WebRequest& request) {
        // As a web that has to wait for its reply.
        person.PumpEvents();
        if (onPage) onPage();
        if (pagesFail) return FailedReply(WebFailure::NoConnection, "No connection.");
        if (request.url.find("/q/ks?s=") != std::string::npos) {
            return MemoryWeb::Page("BETA: 1.05\nFloat: 12.3M\nForward P/E: N/A\n");
        }
        if (request.url.find("/q/ao?s=") != std::string::npos) return MemoryWeb::Page("Mean Target: 33.50\n");
        return MemoryWeb::Page("");
    }
};

}  // namespace

class FundamentalsWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aRunFillsANewTableAndSavesIt() {
        FundamentalsProgram program("T1\r\n^DJI\r\nT3\r\n");
        program.Collect();
        QVERIFY(program.frame->QuoteForm());
        QCOMPARE(program.frame->QuoteForm()->View()->model()->columnCount(), 59);
        for (const int row : {0, 2}) {
            QCOMPARE(program.Text(row, kBetaColumn), QStringLiteral("1.05"));
            QCOMPARE(program.Text(row, kFloatColumn), QStringLiteral("12,300,000"));
            QCOMPARE(program.Text(row, kMeanTargetColumn), QStringLiteral("33.5"));
            QCOMPARE(program.Text(row, 4), QString());
        }
        QCOMPARE(program.Text(1, 0), QStringLiteral("^DJI"));
        QCOMPARE(program.Text(1, kBetaColumn), QString());
        QCOMPARE(program.web.Addresses.size(), std::size_t{6});
        const std::string saved = program.Read(kWorkingName);
        QVERIFY(saved.starts_with("Symbol\tMarket Cap (intraday)\t"));
        QVERIFY(saved.find("\t1.05\t\t12300000\t") != std::string::npos);
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QCOMPARE(program.TickerCount(), QStringLiteral("3"));
        QVERIFY(program.frame->isEnabled());
        QVERIFY(!program.Buttons());
        QVERIFY(!program.Find<QPushButton>("CmdUpdateQuotes")->isVisible());
        QVERIFY(program.Find<QPushButton>("CommandExport")->isVisible());
    }

    void afterwardsTheTableGoesByTheDaysNameAndSaveProposesIt() {
        FundamentalsProgram program;
        program.Collect();
        QCOMPARE(program.session.CurrentFile, std::string(kDaysName));
        QVERIFY(!IsRegularFile(program.session.DataFile(kDaysName)));
        QString proposed;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
                proposed = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
                static_cast<QDialog*>(files)->accept();
            }
        });
        program.frame->Run("mnuFileSave");
        QCOMPARE(proposed, QString::fromLatin1(kDaysName));
        QCOMPARE(program.Read(kDaysName), program.Read(kWorkingName));
    }

    void cellsShowWhileTheRunGoesOn() {
        FundamentalsProgram program(FundamentalsProgram::Tickers(90));
        QString word, done, last;
        int top = -1, rowInWork = 0;
        bool shut = true;
        RunWatcher watcher({[&] {
            if (!program.PausedAt(20)) return false;
            word = program.StatusWord();
            done = program.Text(18, kBetaColumn);
            last = program.Text(89, kBetaColumn);
            rowInWork = static_cast<int>(program.session.run.CurrentRow);
            top = program.frame->QuoteForm()->View()->rowAt(0);
            shut = !program.frame->Commands().Entry("mnuFileOpenQuotesDB")->isEnabled();
            program.Press("Command3");
            return true;
        }});
        program.Collect();
        QCOMPARE(watcher.next, std::size_t{1});
        QCOMPARE(word, QStringLiteral("Updating"));
        QCOMPARE(done, QStringLiteral("1.05"));
        QCOMPARE(last, QString());
        QVERIFY(shut);
        // Row 15 before the one in work; rows of the view count from 0.
        QCOMPARE(top + 1, rowInWork - 15);
        QCOMPARE(program.Text(89, kBetaColumn), QStringLiteral("1.05"));
        QCOMPARE(program.frame->QuoteForm()->View()->rowAt(0), 0);
    }

    void exitIsAShortEnd() {
        FundamentalsProgram program(FundamentalsProgram::Tickers(30));
        RunWatcher watcher({[&] {
            if (program.session.run.CurrentRow < 5) return false;
            program.Press("Command1");
            return true;
        }});
        program.Collect();
        QCOMPARE(program.Text(3, kBetaColumn), QStringLiteral("1.05"));
        QCOMPARE(program.Text(29, kBetaColumn), QString());
        QVERIFY(program.Read(kWorkingName).find("\t1.05\t") != std::string::npos);
        QVERIFY(program.frame->QuoteForm());
        QCOMPARE(program.session.CurrentFile, std::string(kDaysName));
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QVERIFY(program.frame->isEnabled());
    }

    void closingTheTableInMidRunEndsTheRunWhichThenClosesIt() {
        struct Way {
            const char* name;
            std::function<void(FundamentalsProgram&)> close;
        };
        const Way ways[] = {
            {"the entry", [](auto& program) { program.frame->Commands().Entry("mnuFileClose")->trigger(); }},
            {"the button", [](auto& program) { program.Click("Command7"); }},
            {"the window's own button", [](auto& program) { program.frame->QuoteForm()->close(); }},
        };
        for (const Way& way : ways) {
            FundamentalsProgram program(FundamentalsProgram::Tickers(30));
            bool stayed = false;
            RunWatcher watcher({[&] {
                if (!program.PausedAt(5)) return false;
                way.close(program);
                stayed = program.frame->QuoteForm() != nullptr;
                return true;
            }});
            program.Collect();
            QVERIFY2(watcher.next == 1, way.name);
            QVERIFY2(stayed, way.name);
            QVERIFY2(!program.frame->QuoteForm(), way.name);
            QVERIFY2(program.frame->isVisible() && program.frame->isEnabled(), way.name);
            QVERIFY2(program.session.CurrentFile.empty(), way.name);
            QVERIFY2(!program.Find<QLabel>("Panel3")->isVisible(), way.name);
            QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
            const std::string saved = program.Read(kWorkingName);
            QVERIFY2(saved.find("\nT1\t") != std::string::npos && saved.find("\t1.05\t") != std::string::npos,
                     way.name);
        }
    }

    void aFinishedTableClosesAtOnce() {
        FundamentalsProgram program;
        program.Collect();
        program.Click("Command7");
        QVERIFY(!program.frame->QuoteForm());
        // The next run is not closed by the one before.
        program.session.settings.MruSettings.Set(1, Value::OfText("Mine.ddq"));
        program.frame->OpenRecentFile(1);
        program.Collect();
        QVERIFY(program.frame->QuoteForm());
    }

    void closingTheFrameInMidRunSavesAndGoes() {
        FundamentalsProgram program(FundamentalsProgram::Tickers(30));
        RunWatcher watcher({[&] {
            if (program.session.run.CurrentRow < 5) return false;
            program.frame->close();
            return true;
        }});
        program.Collect();
        QVERIFY(program.Read(kWorkingName).find("\t1.05\t") != std::string::npos);
        QTRY_VERIFY_WITH_TIMEOUT(!program.frame->isVisible(), kPatienceMs);
    }

    void lowMemoryEndsTheRun() {
        FundamentalsProgram program;
        program.frame->Subjects().runs.WatchMemoryBy(TooLittleMemory);
        program.Collect();
        QVERIFY(program.frame->findChild<frmLowMemory*>());
        QCOMPARE(program.frame->findChildren<frmLowMemory*>().size(), 1);
        QCOMPARE(program.Text(2, kBetaColumn), QString());
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
    }

    void pagesThatCannotBeReachedGiveEmptyRowsAndNoWord() {
        FundamentalsProgram program;
        program.pagesFail = true;
        QCOMPARE(BoxesOf([&] { program.Collect(); }), QStringList());
        QCOMPARE(program.Text(0, kBetaColumn), QString());
        QVERIFY(program.Read(kWorkingName).find("\r\nT3") != std::string::npos);
    }

    void theButtonWaitsForAQuoteFileThenStaysAndSpeaks() {
        FundamentalsProgram program;
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\r\n");
        auto* button = program.Find<QAbstractButton>("Command23");
        QVERIFY(button->isVisible() && button->isEnabled());
        const QStringList guard = {
            QStringLiteral("To run Extended Fundamentals, you will need to open an End of Day Quote File")};
        program.frame->Run("mnuFileNewEODQuoteFile");
        QVERIFY(button->isVisible() && button->isEnabled());
        QCOMPARE(BoxesOf([&] { program.Click("Command23"); }), guard);
        program.session.settings.MruSettings.Set(1, Value::OfText("Old.dbe"));
        program.frame->OpenRecentFile(1);
        QCOMPARE(BoxesOf([&] { program.Click("Command23"); }), guard);
        program.frame->Run("mnuFileClose");
        QCOMPARE(BoxesOf([&] { program.Click("Command23"); }), guard);
        QVERIFY(program.web.Addresses.empty());
        QVERIFY(!IsRegularFile(program.session.DataFile(kWorkingName)));
        program.session.settings.MruSettings.Set(1, Value::OfText("Mine.ddq"));
        program.frame->OpenRecentFile(1);
        program.Click("Command23");
        QCOMPARE(program.session.CurrentFile, std::string(kDaysName));
    }

    void withoutAQuoteFileTheButtonIsHidden() {
        Program program;
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        program.Start("");
        QVERIFY(!program.Find<QAbstractButton>("Command23")->isVisible());
    }

    void theEntrySpeaksOverTheTemplate() {
        FundamentalsProgram program;
        program.frame->Run("mnuFileNewEODQuoteFile");
        QVERIFY(!program.frame->Commands().Entry("mnuExtendedFundamentals")->isEnabled());
        QCOMPARE(BoxesOf([&] { program.frame->Run("mnuExtendedFundamentals"); }),
                 QStringList({QStringLiteral("To access Extended Fundamental data, you will need to open an "
                                             "End of Day Quote File")}));
    }

    void aWorkingFileThatCannotBeMadeIsTold() {
        FundamentalsProgram program;
        std::filesystem::create_directories(program.session.DataFile(kWorkingName) / "full");
        const QStringList told = BoxesOf([&] { program.Collect(); });
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.first().startsWith(QStringLiteral("Extended Fundamentals failed: ")) &&
                     told.first().contains(
                         QStringLiteral("ExtendedFundamentals.efq: cannot be saved (Is a directory)")),
                 qPrintable(told.first()));
        QCOMPARE(program.session.CurrentFile, std::string("Mine.ddq"));
    }
};

WINDOW_TEST(FundamentalsWindowTest)
#include "fundamentals_window_test.moc"
