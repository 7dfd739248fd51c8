#include "shell/frame/windows/scheduled_handover.h"

#include <QCryptographicHash>
#include <QLocalSocket>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

#include "base/windows/display_text.h"

namespace brantlow {

namespace {

constexpr int kConnectMilliseconds = 5000;
constexpr int kHashLetters = 24;

// In the user's own folder for such things; named after the application folder, whose path may be too long.
QString SocketName(const Path& appPath) {
    std::error_code error;
    const Path real = std::filesystem::weakly_canonical(appPath, error);
    const std::string path = (error ? appPath : real).string();
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(path), QCryptographicHash::Sha256).toHex();
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + QStringLiteral("/brantlow-") +
           QString::fromLatin1(hash.left(kHashLetters));
}

// One line: the status, a blank, the sentence.
void Answer(QLocalSocket& copy, const HandoverAnswer& answer) {
    copy.write(QByteArray::number(answer.status) + ' ' + QByteArray::fromStdString(answer.sentence) + '\n');
    copy.flush();
    copy.disconnectFromServer();
}

}  // namespace

HandoverServer::HandoverServer(const Path& appPath, DailyRunStatus status, QObject* parent)
    : QObject(parent), status_(std::move(status)) {
    const QString name = SocketName(appPath);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QLocalServer::removeServer(name);
    connect(&server_, &QLocalServer::newConnection, this, [this] { TakeCopies(); });
    server_.listen(name);
}

void HandoverServer::TakeCopies() {
    while (QLocalSocket* copy = server_.nextPendingConnection()) {
        connect(copy, &QLocalSocket::disconnected, copy, &QObject::deleteLater);
        if (const std::optional<int> status = status_()) {
            Answer(*copy, {*status});
        } else {
            waiting_.append(copy);
        }
    }
}

void HandoverServer::Done(const HandoverAnswer& answer) {
    for (const QPointer<QLocalSocket>& copy : std::exchange(waiting_, {})) {
        if (copy) Answer(*copy, answer);
    }
}

bool HandoverServer::HasWaiting() const {
    return std::any_of(waiting_.begin(), waiting_.end(), [](const auto& copy) { return !copy.isNull(); });
}

std::optional<HandoverAnswer> HandOverDailyRun(const Path& appPath) {
    QLocalSocket window;
    window.connectToServer(SocketName(appPath), QIODevice::ReadOnly);
    if (!window.waitForConnected(kConnectMilliseconds)) return std::nullopt;
    while (!window.canReadLine() && window.waitForReadyRead(-1)) continue;
    bool isNumber = false;
    const QByteArray line = window.readLine().trimmed();
    const qsizetype end = line.indexOf(' ');
    const int status = line.first(end < 0 ? line.size() : end).toInt(&isNumber);
    if (!isNumber) return std::nullopt;
    return HandoverAnswer{status, end < 0 ? std::string() : line.mid(end + 1).toStdString()};
}

}  // namespace brantlow
