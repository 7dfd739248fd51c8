#include "base/windows/program_end.h"

#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <QTimer>
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

class EndsWithFrame final : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject* frame, QEvent* event) override {
        // A frame that is made an icon is hidden by the system.
        if (event->type() == QEvent::Hide && !event->spontaneous())
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        return QObject::eventFilter(frame, event);
    }
};

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

void EndWithFrame(QWidget& frame) {
    frame.installEventFilter(new EndsWithFrame(&frame));
}

}  // namespace brantlow
