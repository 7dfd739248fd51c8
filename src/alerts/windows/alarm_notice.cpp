#include "alerts/windows/alarm_notice.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <QIcon>
#include <QSystemTrayIcon>
#include <QVariantMap>
#include <utility>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::size_t kShownAlarms = 5;
constexpr int kServersOwnTime = -1;
constexpr const char* kService = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";
// The name that the service has for a press on the bubble itself.
constexpr const char* kPressed = "default";

QString Latin(const char* text) {
    return QString::fromLatin1(text);
}

// Looking for a bus where none is would start one.
bool HasSessionBus() {
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return true;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFile::exists(folder + QStringLiteral("/bus"));
}

QDBusMessage NotifyCall(const Notice& notice) {
    QDBusMessage call = QDBusMessage::createMethodCall(Latin(kService), Latin(kPath), Latin(kService),
                                                       QStringLiteral("Notify"));
    const QVariantMap hints = {{QStringLiteral("desktop-entry"), QStringLiteral("brantlow")},
                               {QStringLiteral("urgency"), QVariant::fromValue<uchar>(1)}};
    call << QStringLiteral("Brantlow") << uint{0} << QStringLiteral("brantlow") << notice.title << notice.body
         << QStringList{Latin(kPressed), QStringLiteral("Show the fired alarms")} << hints << kServersOwnTime;
    return call;
}

// Servers differ in whether they read marks of a text; without them all show the same.
QString PlainText(const std::string& text) {
    QString plain = QString::fromStdString(DisplayUtf8(text));
    for (const char mark : {'<', '>', '&'}) plain.replace(QLatin1Char(mark), QLatin1Char(' '));
    return plain;
}

}  // namespace

NoticeDoors DesktopNotices::Doors() {
    return {
        [this](const Notice& notice, std::function<void()> failed) { ShowOnBus(notice, std::move(failed)); },
        [this](const Notice& notice) { ShowInTray(notice); }};
}

void DesktopNotices::ShowOnBus(const Notice& notice, std::function<void()> failed) {
    if (!HasSessionBus() || !QDBusConnection::sessionBus().isConnected()) return failed();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!listens_) {
        listens_ = bus.connect({}, Latin(kPath), Latin(kService), QStringLiteral("ActionInvoked"), this,
                               SLOT(ActionInvoked(uint, QString)));
    }
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(NotifyCall(notice)), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, failed = std::move(failed)](QDBusPendingCallWatcher* done) {
                const QDBusPendingReply<uint> reply(*done);
                if (reply.isError()) {
                    failed();
                } else {
                    shown_.insert(reply.value());
                }
                done->deleteLater();
            });
}

void DesktopNotices::ActionInvoked(uint id, const QString& action) {
    if (action == QLatin1String(kPressed) && shown_.contains(id)) Q_EMIT Pressed();
}

void DesktopNotices::ShowInTray(const Notice& notice) {
    if (!QSystemTrayIcon::isSystemTrayAvailable() || !QSystemTrayIcon::supportsMessages()) return;
    if (!symbol_) {
        symbol_ = new QSystemTrayIcon(QApplication::windowIcon(), this);
        symbol_->setToolTip(QStringLiteral("Brantlow"));
        connect(symbol_, &QSystemTrayIcon::messageClicked, this, &DesktopNotices::Pressed);
        connect(symbol_, &QSystemTrayIcon::activated, this, &DesktopNotices::Pressed);
    }
    symbol_->show();
    symbol_->showMessage(notice.title, notice.body);
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
    const Notice notice{title, lines.join(QLatin1Char('\n'))};
    doors.bus(notice, [tray = doors.tray, notice] { tray(notice); });
}

}  // namespace brantlow
