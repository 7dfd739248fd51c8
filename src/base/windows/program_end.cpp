#include "desktop/end_signals.h"

#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QSocketNotifier>
#include <QWidget>
#include <algorithm>

namespace brantlow {

namespace {

// A handler of signals may do little more than write: the event loop reads at the other end and does the
// rest.
int signalEnds[2] = {-1, -1};

void Tell(int) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(signalEnds[0], &byte, sizeof byte);
}

}  // namespace

void CloseWindowsOnEndSignals() {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, signalEnds) != 0) return;
    auto* const told = new QSocketNotifier(signalEnds[1], QSocketNotifier::Read, qApp);
    QObject::connect(told, &QSocketNotifier::activated, qApp, [] {
        char bytes[16];
        while (::read(signalEnds[1], bytes, sizeof bytes) > 0) continue;
        QApplication::closeAllWindows();
        const QWidgetList windows = QApplication::topLevelWidgets();
        const bool isOpen = std::any_of(windows.begin(), windows.end(),
                                        [](const QWidget* window) { return window->isVisible(); });
        if (!isOpen) QApplication::quit();
    });
    struct sigaction action {};
    action.sa_handler = Tell;
    action.sa_flags = SA_RESTART;
    for (const int end : {SIGTERM, SIGINT, SIGHUP}) ::sigaction(end, &action, nullptr);
}

}  // namespace brantlow
