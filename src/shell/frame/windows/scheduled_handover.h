// A copy of the program that the system's timer started finds the folder held by the window that is open: it
// hands the daily run over to that window by a local socket and ends with the run's status. The main program
// calls HandOverDailyRun; the frame's update commands serve the socket.
#pragma once

#include <QList>
#include <QLocalServer>
#include <QPointer>
#include <functional>
#include <optional>
#include <string>

#include "base/files.h"

class QLocalSocket;

namespace brantlow {

// What the window answers to a copy: the status of a run that is over, or nothing while it has to be waited
// for.
using DailyRunStatus = std::function<std::optional<int>()>;

// How a copy ends: the exit status, and what is to be said where it was started; empty for nothing.
struct HandoverAnswer {
    int status = 0;
    std::string sentence = {};
    bool operator==(const HandoverAnswer&) const = default;
};

class HandoverServer final : public QObject {
  public:
    // Listens for copies on `appPath`; a socket that a dead window left is taken over. Without a socket,
    // copies find nobody and try to take the folder themselves.
    HandoverServer(const Path& appPath, DailyRunStatus status, QObject* parent);

    // The copies that wait get this answer: the run is over, or cannot begin.
    void Done(const HandoverAnswer& answer);
    bool HasWaiting() const;

  private:
    void TakeCopies();

    QLocalServer server_;
    DailyRunStatus status_;
    QList<QPointer<QLocalSocket>> waiting_;
};

// Waits for the daily run of the window that holds `appPath` and gives its answer; nothing when no window
// listens or it was closed before the run.
std::optional<HandoverAnswer> HandOverDailyRun(const Path& appPath);

}  // namespace brantlow
