// A copy of the program that the system's timer started finds the folder held by the window that is open: it
// hands the daily run over to that window by a local socket and ends with the run's status. The main program
// calls HandOverDailyRun; the frame's update commands serve the socket.
#pragma once

#include <QList>
#include <QLocalServer>
#include <QPointer>
#include <functional>
#include <optional>

#include "base/files.h"

class QLocalSocket;

namespace brantlow {

// What the window answers to a copy: the status of a run that is over, or nothing while it has to be waited
// for.
using DailyRunStatus = std::function<std::optional<int>()>;

class HandoverServer final : public QObject {
  public:
    // Listens for copies on `appPath`; a socket that a dead window left is taken over. Without a socket,
    // copies find nobody and try to take the folder themselves.
    HandoverServer(const Path& appPath, DailyRunStatus status, QObject* parent);

    // The run is over: the copies that wait for it get its status.
    void Done(int status);

  private:
    void TakeCopies();

    QLocalServer server_;
    DailyRunStatus status_;
    QList<QPointer<QLocalSocket>> waiting_;
};

// Waits for the daily run of the window that holds `appPath` and gives its exit status; nothing when no
// window listens or it was closed before the run.
std::optional<int> HandOverDailyRun(const Path& appPath);

}  // namespace brantlow
