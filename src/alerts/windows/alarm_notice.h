// The bubble on the desktop that tells of fired alarms, one a run with all of them: by the desktop's own
// service of notifications, else by a symbol in its tray, else not at all; the list of fired alarms has them
// in any case.
#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "alerts/fired_alarms.h"

namespace brantlow {

// The two ways, so that a test can watch them.
struct NoticeDoors {
    // Never waits; calls `failed` once nobody has shown it.
    std::function<void(const QString& title, const QString& body, std::function<void()> failed)> bus;
    std::function<void(const QString& title, const QString& body)> tray;
};
NoticeDoors DesktopDoors();

// Without alarms there is no bubble.
void ShowAlarms(const std::vector<FiredAlarm>& alarms, const NoticeDoors& doors);

}  // namespace brantlow
