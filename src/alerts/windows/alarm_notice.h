// The bubble on the desktop that tells of fired alarms, one a run with all of them: by the desktop's own
// service of notifications, else by a symbol in its tray, else not at all; the list of fired alarms has them
// in any case.
#pragma once

#include <QObject>
#include <QSet>
#include <QString>
#include <functional>
#include <vector>

#include "alerts/fired_alarms.h"

class QSystemTrayIcon;

namespace brantlow {

// What a bubble says.
struct Notice {
    QString title;
    QString body;
};

// The two ways, so that a test can watch them.
struct NoticeDoors {
    // Never waits; calls `failed` once nobody has shown it.
    std::function<void(const Notice& notice, std::function<void()> failed)> bus;
    std::function<void(const Notice& notice)> tray;
};

// The desktop's bubbles of this program. Lives as long as they are to be answered.
class DesktopNotices final : public QObject {
    Q_OBJECT
  public:
    explicit DesktopNotices(QObject* parent) : QObject(parent) {}

    NoticeDoors Doors();

  Q_SIGNALS:
    // The person pressed a bubble.
    void Pressed();

  private Q_SLOTS:
    // By the service of notifications, of everybody's bubbles.
    void ActionInvoked(uint id, const QString& action);

  private:
    void ShowOnBus(const Notice& notice, std::function<void()> failed);
    void ShowInTray(const Notice& notice);

    QSet<uint> shown_;
    QSystemTrayIcon* symbol_ = nullptr;
    bool listens_ = false;
};

// Without alarms there is no bubble.
void ShowAlarms(const std::vector<FiredAlarm>& alarms, const NoticeDoors& doors);

}  // namespace brantlow
