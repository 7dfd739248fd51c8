// The end of the program: with its frame, and at a signal, whatever other window is open.
#include <csignal>
#include <functional>

#include "base/windows/program_end.h"
#include "shell/folder_lock.h"
#include "support/temp_folder.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

constexpr int kGoesOn = 99;
constexpr int kLookMs = 300;

// The status with which the event loop ends when `act` is the first that happens in it; kGoesOn where it has
// not ended after `patienceMs`.
int StatusAfter(const std::function<void()>& act, int patienceMs = kPatienceMs) {
    QTimer::singleShot(0, qApp, act);
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(kGoesOn); });
    guard.start(patienceMs);
    return QApplication::exec();
}

// What else may be open when the frame is closed.
using OtherWindow = std::function<std::unique_ptr<QWidget>(QWidget& frame)>;

std::unique_ptr<QWidget> Splash(QWidget&) {
    return std::make_unique<QWidget>(nullptr, Qt::SplashScreen);
}
std::unique_ptr<QWidget> TopLevel(QWidget&) {
    return std::make_unique<QWidget>();
}
std::unique_ptr<QWidget> DialogOfItsOwn(QWidget&) {
    auto dialog = std::make_unique<QDialog>();
    dialog->setModal(true);
    return dialog;
}

}  // namespace

class ProgramEndTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theProgramEndsWithItsFrameWhateverOtherWindowIsOpen() {
        for (const OtherWindow& open :
             {OtherWindow(Splash), OtherWindow(TopLevel), OtherWindow(DialogOfItsOwn)}) {
            QWidget frame;
            frame.show();
            const std::unique_ptr<QWidget> other = open(frame);
            other->show();
            EndWithFrame(frame);
            bool wasOpen = false;
            QCOMPARE(StatusAfter([&] {
                         frame.close();
                         wasOpen = other->isVisible();
                     }),
                     0);
            QVERIFY(wasOpen);
        }
    }

    void theToolkitAloneWaitsForTheOtherWindow() {
        QWidget frame, other;
        frame.show();
        other.show();
        QCOMPARE(StatusAfter([&] { frame.close(); }, kLookMs), kGoesOn);
    }

    void aFrameThatTheSystemHidesDoesNotEndTheProgram() {
        QWidget frame;
        frame.show();
        EndWithFrame(frame);
        const auto hide = [&] {
            QHideEvent event;
            QSpontaneKeyEvent::setSpontaneous(&event);
            qApp->notify(&frame, &event);
        };
        QCOMPARE(StatusAfter(hide, kLookMs), kGoesOn);
    }

    void aSignalWithoutAWindowEndsTheProgramAndTheFolderIsFree() {
        const TempFolder folder;
        CloseWindowsOnEndSignals();
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
            FolderLock lock;
            QVERIFY(lock.Take(folder.Get(), ThisProcess(kWindowHolder, "it is open"), {}) ==
                    LockOutcome::Taken);
            QCOMPARE(StatusAfter([&] { std::raise(signal); }), 0);
            lock.Release();
            QVERIFY(!IsRegularFile(folder / "Brantlow.lock"));
        }
    }

    void aSignalClosesTheFrameFirst() {
        CloseWindowsOnEndSignals();
        QWidget frame;
        frame.show();
        EndWithFrame(frame);
        QCOMPARE(StatusAfter([&] { std::raise(SIGTERM); }), 0);
        QVERIFY(!frame.isVisible());
    }
};

WINDOW_TEST(ProgramEndTest)
#include "program_end_test.moc"
