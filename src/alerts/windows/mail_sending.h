// One mail on its way beside the windows: it is sent on a thread of its own, and the windows stay at work.
// The window of the mail settings and the frame, which tries a mail again, send by it.
#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <thread>

#include "acquire/web/mail_web.h"

namespace brantlow {

class MailSending final : public QObject {
  public:
    using QObject::QObject;
    // Ends what is under way.
    ~MailSending() override;

    bool IsUnderWay() const { return isUnderWay_; }
    // Sends the mail; `done` is called with the reply from the event loop, never from here. One at a time:
    // the caller has asked IsUnderWay.
    void Send(MailRequest request, std::function<void(const MailReply&)> done);
    // Ends the wait soon; `done` is told that it was stopped.
    void Stop() { isStopped_ = true; }

  private:
    bool isUnderWay_ = false;
    std::atomic<bool> isStopped_ = false;
    std::thread thread_;
};

}  // namespace brantlow
