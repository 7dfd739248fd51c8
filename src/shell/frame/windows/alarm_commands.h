// Fired alarms reach the person: the desktop's bubble after a run, the count of unread alarms in the status
// bar, their list, and their mail, which is tried again where a server put it off.
#pragma once

#include <QPointer>
#include <string>
#include <vector>

#include "alerts/alarm_mail.h"
#include "alerts/mail_retry.h"
#include "alerts/windows/alarm_notice.h"
#include "alerts/windows/frmFiredAlarms.h"
#include "alerts/windows/mail_sending.h"
#include "shell/frame/windows/frame_hands.h"

class QTimer;
class QToolButton;

namespace brantlow {

class AlarmCommands final {
  public:
    // The hands outlive this.
    explicit AlarmCommands(const FrameHands& frame);

    CommandRows Rows();

    // The frame stands: unread alarms are told in its status bar from now on.
    void Start();
    // A run is over. `mail` is empty where it sent none.
    void TakeRun(const std::vector<FiredAlarm>& fired, const MailTold& mail);
    bool IsMailing() const { return sending_.IsUnderWay(); }
    void OpenMail(QWidget* asking);

  private:
    void ShowList();
    void AlarmMail();
    void ShowUnread();
    void OpenChart(const std::string& ticker);
    // One look at the clock: sends the mail that was put off once its time has come. Called about once a
    // second while one waits.
    void LookAtClock();
    void MailAgain();
    void TakeReply(const std::vector<FiredAlarm>& mailed, const MailTold& told);
    // The mail of a run waits for its next try, or was refused, or neither.
    void Note(const MailTold& told);
    // Begins the waits where alarms are to be mailed still.
    void RetryWhatIsDue();
    // Why the mail has not arrived, and when it is tried again.
    std::string Waiting(const std::string& failure) const;
    void EndRetry(const std::string& trouble);

    const FrameHands& frame_;
    MailSending sending_;
    DesktopNotices notices_{nullptr};
    MailRetry retry_;
    std::string trouble_;  // why the newest mail has not arrived; empty where it has
    // Gone with the window.
    QPointer<QToolButton> unread_;
    QPointer<QTimer> clock_;
    QPointer<frmFiredAlarms> list_;
};

}  // namespace brantlow
