#include "alerts/windows/alarm_notice.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <QIcon>
#include <QPointer>
#include <QSystemTrayIcon>
#include <QVariantMap>
#include <utility>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::size_t kShownAlarms = 5;
constexpr int kServersOwnTime = -1;

// Looking for a bus where none is would start one.
bool HasSessionBus() {
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return true;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFile::exists(folder + QStringLiteral("/bus"));
}

QDBusMessage NotifyCall(const QString& title, const QString& body) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    const QVariantMap hints = {{QStringLiteral("desktop-entry"), QStringLiteral("brantlow")},
                               {QStringLiteral("urgency"), QVariant::fromValue<uchar>(1)}};
    call << QStringLiteral("Brantlow") << uint{0} << QStringLiteral("brantlow") << title << body
         << QStringList() << hints << kServersOwnTime;
    return call;
}

void ShowOnBus(const QString& title, const QString& body, std::function<void()> failed) {
    if (!HasSessionBus() || !QDBusConnection::sessionBus().isConnected()) return failed();
    const QDBusPendingCall sent = QDBusConnection::sessionBus().asyncCall(NotifyCall(title, body));
    auto* const watcher = new QDBusPendingCallWatcher(sent, qApp);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [failed = std::move(failed)](QDBusPendingCallWatcher* done) {
                         if (QDBusPendingReply<uint>(*done).isError()) failed();
                         done->deleteLater();
                     });
}

void ShowInTray(const QString& title, const QString& body) {
    if (!QSystemTrayIcon::isSystemTrayAvailable() || !QSystemTrayIcon::supportsMessages()) return;
    static QPointer<QSystemTrayIcon> symbol;
    if (symbol.isNull()) symbol = new QSystemTrayIcon(QApplication::windowIcon(), qApp);
    symbol->show();
    symbol->showMessage(title, body);
}

// Servers differ in whether they read marks of a text; without them all show the same.
QString PlainText(const std::string& text) {
    QString plain = QString::fromStdString(DisplayUtf8(text));
    for (const char mark : {'<', '>', '&'}) plain.replace(QLatin1Char(mark), QLatin1Char(' '));
    return plain;
}

}  // namespace

NoticeDoors DesktopDoors() {
    return {ShowOnBus, ShowInTray};
}

void ShowAlarms(const std::vector<FiredAlarm>& alarms, const NoticeDoors& doors) {
    if (alarms.empty()) return;
    const QString title = alarms.size() == 1 ? QStringLiteral("A price alarm fired")
                                             : QStringLiteral("%1 price alarms fired").arg(alarms.size());
    QStringList lines;
    for (const FiredAlarm& alarm : alarms) {
        if (static_cast<std::size_t>(lines.size()) == kShownAlarms) break;
        lines.push_back(PlainText(AlarmSentence(alarm)));
    }
    if (alarms.size() > kShownAlarms) {
        lines.push_back(QStringLiteral("and %1 more").arg(alarms.size() - kShownAlarms));
    }
    const QString body = lines.join(QLatin1Char('\n'));
    doors.bus(title, body, [tray = doors.tray, title, body] { tray(title, body); });
}

}  // namespace brantlow
