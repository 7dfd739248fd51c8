// The daily run at the window: whatever is open, with dialogs in the way, over several days, and for a copy
// of the program that the system started.
#include <QStatusBar>
#include <atomic>
#include <thread>

#include "shell/frame/windows/scheduled_handover.h"
#include "store/windows/frmErrorReport.h"
#include "update_window_fixture.h"

using namespace brantlow;

namespace {

Switches Daily(const std::string& selector = "Manual") {
    Switches switches;
    switches.collection = "EOD";
    switches.selector = selector;
    return switches;
}

void LookAroundTheMinute(UpdateProgram& program, const Date& day) {
    program.LookAtClock(day, kHalfPastFour - 120, kHalfPastFour + 120);
}

}  // namespace

class DailyRunWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theNewestQuoteFileIsUpdatedWhateverIsOpen() {
        UpdateProgram program(Daily());
        program.StartMine();
        program.frame->Run("mnuFileNewEODQuoteFile");
        const std::string open = program.session.CurrentFile;
        LookAroundTheMinute(program, kTestDay);
        QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{1});
        QVERIFY(program.Read("Mine.ddq").find("T3\t110.000") != std::string::npos);
        QCOMPARE(program.session.CurrentFile, open);
        {
            DialogHand hand([](QDialog& dialog) { PressButton(dialog, QMessageBox::No); });
            program.frame->Run("mnuFileClose");
        }
        LookAroundTheMinute(program, AddDays(kTestDay, 1));
        QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{2});
    }

    void threeDaysWithTheSelectorLeaveTheirVerdictsOnTheDisk() {
        UpdateProgram program(Daily("Automatic"));
        program.StartMine();
        for (int day = 0; day < 3; ++day) {
            DeleteOneFile(program.session.DataFile("Evaluations.dbe"));
            LookAroundTheMinute(program, AddDays(kTestDay, day));
            QCOMPARE(program.Asked("/d/quotes.txt"), static_cast<std::size_t>(day) + 1);
            QVERIFY2(program.Read("Evaluations.dbe").find("\r\nT3") != std::string::npos,
                     program.Read("Evaluations.dbe").c_str());
            QCOMPARE(program.session.CurrentFile, std::string("Evaluations.dbe"));
            // The report of short tickers opened by itself and stands there; it holds nothing up.
            QVERIFY(program.frame->findChild<frmErrorReport*>());
            QVERIFY(!QApplication::activeModalWidget());
        }
    }

    void aMinuteThatAQuestionCoveredIsMadeUp() {
        UpdateProgram program(Daily());
        program.StartMine();
        program.LookAtClock(kTestDay, kHalfPastFour - 120, kHalfPastFour - 30);
        DialogHand hand([&](QDialog& dialog) {
            program.LookAtClock(kTestDay, kHalfPastFour - 30, kHalfPastFour + 600);
            PressButton(dialog, QMessageBox::Ok);
        });
        program.person.Say("A question.");
        QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{0});
        program.LookAtClock(kTestDay, kHalfPastFour + 600, kHalfPastFour + 660);
        QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{1});
    }

    void aFailedDailyRunOpensNoBox() {
        UpdateProgram program(Daily());
        program.quotesFail = true;
        program.StartMine();
        LookAroundTheMinute(program, kTestDay);
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(program.Find<QLabel>("Panel1")->text().contains(QStringLiteral("could not connect")));
    }

    void whatTheRunHasToSayOpensNoBoxEither() {
        UpdateProgram program(Daily());
        program.Write("VTRNETset.ini",
                      "\"Yahoo\"\r\n\"\"\r\n\"User Selected String\"\r\n\r\n\r\n15\r\n0\r\n0\r\n");
        program.StartMine();
        int boxes = 0;
        DialogHand hand([&](QDialog& dialog) {
            ++boxes;
            PressButton(dialog, QMessageBox::Ok);
        });
        LookAroundTheMinute(program, kTestDay);
        QCOMPARE(boxes, 0);
        QVERIFY(program.Find<QStatusBar>("sbStatusBar")
                    ->currentMessage()
                    .startsWith(QStringLiteral("Go to Settings")));
    }

    void aCopyThatTheSystemStartedEndsWithTheStatusOfTheRun() {
        for (const bool fails : {false, true}) {
            UpdateProgram program(Daily());
            program.quotesFail = fails;
            program.clock.Set(kTestDay, kHalfPastFour - 120);
            program.StartMine();
            program.frame->Subjects().daily.WaitForDailyRun();
            std::optional<HandoverAnswer> answer;
            std::atomic<bool> isOver = false;
            std::thread copy([&] {
                answer = HandOverDailyRun(program.session.AppPath);
                isOver = true;
            });
            // The copy is connected once the window has taken it in; its run comes at the minute.
            double second = kHalfPastFour - 120;
            while (!isOver) {
                QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
                program.LookAtClock(kTestDay, std::min(second += 1, kHalfPastFour + 300));
            }
            copy.join();
            QVERIFY(answer == HandoverAnswer{fails ? 1 : 0});
            QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{1});
        }
    }

    // The settings stand open over the minute; the copy comes meanwhile.
    void aCopyThatADialogHoldsUpWaitsAnHourAndTheRunIsMadeUpAfterwards() {
        UpdateProgram program(Daily());
        program.clock.Set(kTestDay, kHalfPastFour - 120);
        program.StartMine();
        program.frame->Subjects().daily.WaitForDailyRun();
        std::optional<HandoverAnswer> answer;
        std::atomic<bool> isOver = false;
        std::thread copy;
        DialogHand hand([&](QDialog& dialog) {
            copy = std::thread([&] {
                answer = HandOverDailyRun(program.session.AppPath);
                isOver = true;
            });
            QTRY_VERIFY(program.frame->Subjects().daily.HasWaitingCopies());
            program.LookAtClock(kTestDay, kHalfPastFour - 60, kHalfPastFour + kHeldUpSeconds);
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
            QVERIFY(!isOver);
            program.LookAtClock(kTestDay, kHalfPastFour + kHeldUpSeconds);
            while (!isOver) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{0});
            dialog.reject();
        });
        program.frame->Run("mnuSettingsApplication");
        QTRY_VERIFY(!QApplication::activeModalWidget());
        if (copy.joinable()) copy.join();
        QVERIFY((answer == HandoverAnswer{1, std::string(kRunIsHeldUp)}));
        program.LookAtClock(kTestDay, kHalfPastFour + kHeldUpSeconds + 1,
                            kHalfPastFour + kHeldUpSeconds + 90);
        QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{1});
    }

    void aCopyOverADialogThatClosesInTimeEndsWithTheStatusOfTheRun() {
        UpdateProgram program(Daily());
        program.clock.Set(kTestDay, kHalfPastFour - 120);
        program.StartMine();
        program.frame->Subjects().daily.WaitForDailyRun();
        std::optional<HandoverAnswer> answer;
        std::atomic<bool> isOver = false;
        std::thread copy;
        DialogHand hand([&](QDialog& dialog) {
            copy = std::thread([&] {
                answer = HandOverDailyRun(program.session.AppPath);
                isOver = true;
            });
            QTRY_VERIFY(program.frame->Subjects().daily.HasWaitingCopies());
            program.LookAtClock(kTestDay, kHalfPastFour - 60, kHalfPastFour + 1800);
            dialog.reject();
        });
        program.frame->Run("mnuSettingsApplication");
        QTRY_VERIFY(!QApplication::activeModalWidget());
        QVERIFY(!isOver);
        program.LookAtClock(kTestDay, kHalfPastFour + 1801, kHalfPastFour + 1900);
        while (!isOver) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        copy.join();
        QVERIFY(answer == HandoverAnswer{0});
        QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{1});
    }

    void aCopyWithoutAChosenMinuteEndsAtOnce() {
        UpdateProgram program;
        program.StartMine();
        std::optional<HandoverAnswer> answer;
        std::atomic<bool> isOver = false;
        std::thread copy([&] {
            answer = HandOverDailyRun(program.session.AppPath);
            isOver = true;
        });
        while (!isOver) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        copy.join();
        QVERIFY(answer == HandoverAnswer{0});
        QVERIFY(program.web.Addresses.empty());
    }

    void withoutAWindowACopyLearnsThatNobodyListens() {
        TempFolder folder;
        QVERIFY(!HandOverDailyRun(folder.Get()));
    }
};

WINDOW_TEST(DailyRunWindowTest)
#include "daily_run_window_test.moc"
