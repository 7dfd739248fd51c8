// The daily run at the window: whatever is open, with dialogs in the way, over several days, and for a copy
// of the program that the system started.
#include <QStatusBar>
#include <atomic>
#include <functional>
#include <memory>
#include <thread>

#include "acquire/version/windows/frmVersionUpdate.h"
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

// A copy that the system started: it hands the run of the day to the window that is open.
class ScheduledCopy final {
  public:
    explicit ScheduledCopy(const Path& appPath)
        : thread_([this, appPath] {
              answer_ = HandOverDailyRun(appPath);
              isOver_ = true;
          }) {}
    ~ScheduledCopy() { thread_.join(); }

    bool IsOver() const { return isOver_; }
    // The window answers while its events are looked at.
    const std::optional<HandoverAnswer>& Answer() const {
        while (!isOver_) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        return answer_;
    }

  private:
    std::optional<HandoverAnswer> answer_;
    std::atomic<bool> isOver_ = false;
    std::thread thread_;
};

// The settings stand open over the minute, a copy comes meanwhile, and the person closes them behind
// `meanwhile`.
std::unique_ptr<ScheduledCopy> CopyOverADialog(UpdateProgram& program,
                                               const std::function<void(ScheduledCopy&)>& meanwhile) {
    program.clock.Set(kTestDay, kHalfPastFour - 120);
    program.StartMine();
    program.frame->Subjects().daily.WaitForDailyRun();
    std::unique_ptr<ScheduledCopy> copy;
    DialogHand hand([&](QDialog& dialog) {
        copy = std::make_unique<ScheduledCopy>(program.session.AppPath);
        while (!program.frame->Subjects().daily.HasWaitingCopies())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        meanwhile(*copy);
        dialog.reject();
    });
    program.frame->Run("mnuSettingsApplication");
    while (QApplication::activeModalWidget()) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return copy;
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

    void aVersionThatTheStartOffersHoldsNothingUp() {
        UpdateProgram program(Daily());
        std::string data = program.Read("VTRDATAset.ini");
        const std::string minute = "\"30\"\r\n\"";
        data.insert(data.find(minute) + minute.size(), "Automatic Updates");
        program.Write("VTRDATAset.ini", data);
        program.web.Answer("https://www.brantlow.example/Updates/brantlow/updateme.htm",
                           MemoryWeb::Page("Version: 99.0.0"));
        program.StartMine();
        auto* offer = program.frame->findChild<frmVersionUpdate*>();
        QVERIFY(offer && offer->isVisible());
        LookAroundTheMinute(program, kTestDay);
        QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{1});
        QVERIFY(program.Read("Mine.ddq").find("T3\t110.000") != std::string::npos);
        QVERIFY(offer->isVisible());
    }

    void aCopyThatTheSystemStartedEndsWithTheStatusOfTheRun() {
        for (const bool fails : {false, true}) {
            UpdateProgram program(Daily());
            program.quotesFail = fails;
            program.clock.Set(kTestDay, kHalfPastFour - 120);
            program.StartMine();
            program.frame->Subjects().daily.WaitForDailyRun();
            const ScheduledCopy copy(program.session.AppPath);
            // The copy is connected once the window has taken it in; its run comes at the minute.
            double second = kHalfPastFour - 120;
            while (!copy.IsOver()) {
                QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
                program.LookAtClock(kTestDay, std::min(second += 1, kHalfPastFour + 300));
            }
            QVERIFY(copy.Answer() == HandoverAnswer{fails ? 1 : 0});
            QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{1});
        }
    }

    void aCopyThatADialogHoldsUpWaitsAnHourAndTheRunIsMadeUpAfterwards() {
        UpdateProgram program(Daily());
        const auto copy = CopyOverADialog(program, [&](ScheduledCopy& waiting) {
            program.LookAtClock(kTestDay, kHalfPastFour - 60, kHalfPastFour + kHeldUpSeconds);
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
            QVERIFY(!waiting.IsOver());
            program.LookAtClock(kTestDay, kHalfPastFour + kHeldUpSeconds);
            QVERIFY((waiting.Answer() == HandoverAnswer{1, std::string(kRunIsHeldUp)}));
            QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{0});
        });
        QVERIFY(copy && copy->IsOver());
        program.LookAtClock(kTestDay, kHalfPastFour + kHeldUpSeconds + 1,
                            kHalfPastFour + kHeldUpSeconds + 90);
        QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{1});
    }

    void aCopyOverADialogThatClosesInTimeEndsWithTheStatusOfTheRun() {
        UpdateProgram program(Daily());
        const auto copy = CopyOverADialog(program, [&](ScheduledCopy&) {
            program.LookAtClock(kTestDay, kHalfPastFour - 60, kHalfPastFour + 1800);
        });
        QVERIFY(copy && !copy->IsOver());
        program.LookAtClock(kTestDay, kHalfPastFour + 1801, kHalfPastFour + 1900);
        QVERIFY(copy->Answer() == HandoverAnswer{0});
        QCOMPARE(program.Asked("/d/quotes.txt"), std::size_t{1});
    }

    void aCopyWithoutAChosenMinuteEndsAtOnce() {
        UpdateProgram program;
        program.StartMine();
        const ScheduledCopy copy(program.session.AppPath);
        QVERIFY(copy.Answer() == HandoverAnswer{0});
        QVERIFY(program.web.Addresses.empty());
    }

    void withoutAWindowACopyLearnsThatNobodyListens() {
        TempFolder folder;
        QVERIFY(!HandOverDailyRun(folder.Get()));
    }
};

WINDOW_TEST(DailyRunWindowTest)
#include "daily_run_window_test.moc"
