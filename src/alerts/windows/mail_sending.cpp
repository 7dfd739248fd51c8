#include "alerts/windows/mail_sending.h"

#include <QMetaObject>
#include <utility>

namespace brantlow {

MailSending::~MailSending() {
    Stop();
    if (thread_.joinable()) thread_.join();
}

void MailSending::Send(MailRequest request, std::function<void(const MailReply&)> done) {
    if (thread_.joinable()) thread_.join();
    isUnderWay_ = true;
    isStopped_ = false;
    request.isStopped = [this] { return isStopped_.load(); };
    thread_ = std::thread([this, request = std::move(request), done = std::move(done)] {
        const MailReply reply = CurlMail().Send(request);
        QMetaObject::invokeMethod(
            this,
            [this, reply, done] {
                isUnderWay_ = false;
                done(reply);
            },
            Qt::QueuedConnection);
    });
}

}  // namespace brantlow
