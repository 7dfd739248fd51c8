// The desktop program: finds or makes the application folder, shows the splash and then the main frame.
#include <QApplication>
#include <QIcon>
#include <QTimer>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>

#include "acquire/web/curl_web.h"
#include "acquire/web/hosts.h"
#include "base/clock.h"
#include "base/windows/button_keys.h"
#include "base/windows/display_text.h"
#include "base/windows/file_columns.h"
#include "base/windows/program_end.h"
#include "base/windows/program_style.h"
#include "desktop/start_options.h"
#include "indicators/analysis.h"
#include "research/windows/browser.h"
#include "research/windows/web_sandbox.h"
#include "shell/app_folder.h"
#include "shell/folder_lock.h"
#include "shell/frame/frame_choices.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/frmSplash.h"
#include "shell/frame/windows/scheduled_handover.h"
#include "shell/frame/windows/window_person.h"
#include "shell/session.h"
#include "shell/session_change.h"
#include "shell/settings/settings_files.h"
#include "shell/user_store.h"
#include "store/file_names.h"

using namespace brantlow;

namespace {

constexpr int kSplashMilliseconds = 3000;

// Makes the application folder where there is none; the sentence that says why that failed, else empty.
std::string MakeWhereMissing(const Path& executable, const Path& appPath) {
    if (!NeedsMaking(appPath)) return {};
    const std::optional<Path> assets = FindAssets(executable);
    if (!assets)
        return "The files that belong to the program were not found beside it. Please install it again.";
    return Sentence(FailedTo(FailureKind::Make, appPath, MakeAppFolder(*assets, appPath)));
}

// Tells why the program cannot go on, at the window and where it was started.
int Refuse(frmSplash& splash, WindowPerson& person, const std::string& sentence) {
    splash.close();
    std::cerr << sentence << std::endl;
    person.Say(sentence);
    return EXIT_FAILURE;
}

// Takes the folder's lock for as long as the program is open; a command at work is given time to end. A
// folder that cannot be written to takes no lock: there two copies can do each other no harm.
bool TakesFolder(const Path& appPath, FolderLock& lock) {
    constexpr std::chrono::seconds kCommandPatience{10};
    const LockPatience patience{kCommandPatience, [&] {
                                    QApplication::processEvents();
                                    return !lock.Holder().IsWindow();
                                }};
    const LockOutcome outcome = lock.Take(appPath, ThisProcess(kWindowHolder, "it is open"), patience);
    if (outcome != LockOutcome::Failed) return outcome == LockOutcome::Taken;
    const std::error_code& cause = lock.Why().cause;
    return cause == std::errc::permission_denied || cause == std::errc::read_only_file_system;
}

std::string WhyNotTaken(const Path& appPath, const FolderLock& lock) {
    if (lock.Why() || !lock.Holder().IsWindow()) return lock.Refusal();
    return "Brantlow is open already with the folder " + appPath.string() +
           ". Two copies would write over each other's files, so this one ends.";
}

// The exit status of a copy that the system's timer started: that of the daily run of the window which is
// open. Nothing when that window has gone meanwhile and the folder is this copy's now.
std::optional<int> WaitForOpenWindow(const Path& appPath, FolderLock& lock) {
    // It has no windows that a signal could close in order.
    for (const int end : {SIGTERM, SIGINT, SIGHUP}) std::signal(end, SIG_DFL);
    if (lock.Holder().IsWindow()) {
        if (const std::optional<HandoverAnswer> answer = HandOverDailyRun(appPath)) {
            if (!answer->sentence.empty()) std::cerr << answer->sentence << std::endl;
            return answer->status;
        }
        CloseWindowsOnEndSignals();
        if (TakesFolder(appPath, lock)) return std::nullopt;
    }
    std::cerr << WhyNotTaken(appPath, lock) << std::endl;
    return EXIT_FAILURE;
}

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

// What a wrong call ends with, as the batch tool's.
constexpr int kWrongUsage = 2;

// Shows the frame with the table that the command line names, and does what else it asks for.
void StartAsAsked(const StartOptions& options, frmMain& frame, Session& session,
                  const std::function<void()>& tableIsThere) {
    ChosenFile file;
    if (!options.file.empty()) file = CutCurrentFile(session.AppPath, session.DataFile(options.file));
    frame.Load(tableIsThere, file.CurrentFile);
    if (!file.refusal.empty()) session.person.Say(file.refusal);
    if (options.update) frame.Run("mnuFileUpdateQuotes");
    if (options.select) frame.Run("mnuEvaluatePickStocks");
}

// Takes back what a killed program left half done, and tells it where this one was started.
FolderRecovery Recover(Session& session) {
    LoadAllSettings(session.AppPath, session.settings);
    FolderRecovery recovery = RecoverFolder(session);
    for (const std::string& sentence : recovery.sentences) std::cerr << sentence << std::endl;
    return recovery;
}

}  // namespace

int main(int argc, char** argv) {
    if (const auto answer = AnswerWithoutWindow(argc, argv)) {
        std::cout << answer->text;
        return EXIT_SUCCESS;
    }
    PrepareWebSandbox();
    QApplication application(argc, argv);
    StartAnswer wrong;
    const std::optional<StartOptions> options = ReadStartOptions(argc, argv, wrong);
    if (!options) {
        std::cerr << wrong.text;
        return kWrongUsage;
    }
    // Qt takes over the user's locale; the program's files hold numbers with a point everywhere.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setStyle(new ProgramStyle);
    application.installEventFilter(new ButtonKeys(&application));
    application.installEventFilter(new FileColumns(&application));
    QApplication::setApplicationName(QStringLiteral("Brantlow"));
    QApplication::setApplicationVersion(QStringLiteral(BRANTLOW_VERSION));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/brantlow.svg")));

    const StartPlaces places = CurrentStartPlaces();
    const Path userStore = UserStoreFile(Environment("XDG_CONFIG_HOME"), places.home);
    const bool waits = !LoadFrameChoice(userStore, kOpensWithoutWaiting);
    frmSplash splash(QStringLiteral(BRANTLOW_VERSION));
    if (waits) {
        splash.ShowFor(kSplashMilliseconds);
    } else {
        splash.ShowUntilClosed();
    }
    CloseWindowsOnEndSignals();
    // A file that may grow no further is an error with a sentence, not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);

    const Path appPath = ResolveAppPath(places);
    WindowPerson person;
    const std::string failure = MakeWhereMissing(places.executable, appPath);
    if (!failure.empty()) return Refuse(splash, person, failure);
    FolderLock lock;
    if (!TakesFolder(appPath, lock)) {
        if (!options->scheduled) return Refuse(splash, person, WhyNotTaken(appPath, lock));
        splash.close();
        if (const std::optional<int> status = WaitForOpenWindow(appPath, lock)) return *status;
    }
    std::error_code ignored;
    std::filesystem::current_path(appPath, ignored);

    const SystemClock clock;
    Session session(appPath, clock, person);
    const FolderRecovery recovery = Recover(session);
    const auto analysis = std::make_unique<Analysis>();
    CurlWeb web(person);
    Failure unread;
    const Hosts hosts = LoadHosts(session.DataFolder(), &unread);
    if (unread) return Refuse(splash, person, Sentence(unread));
    Browser browser;
    frmMain frame(session, *analysis, person, web, hosts, userStore, browser.Operations());
    EndWithFrame(frame);
    if (waits) splash.close();
    // Other machines take a lock for forgotten that shows no life for a day.
    QTimer alive;
    QObject::connect(&alive, &QTimer::timeout, [&lock] { lock.Refresh(); });
    alive.start(std::chrono::hours(1));
    StartAsAsked(*options, frame, session, [&splash] { splash.close(); });
    if (!recovery.sentences.empty()) frame.ShowNotice(recovery.sentences.front());
    return frame.isVisible() ? QApplication::exec() : EXIT_SUCCESS;
}
