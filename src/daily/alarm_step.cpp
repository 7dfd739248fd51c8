#include "daily/alarm_step.h"

namespace brantlow {

std::vector<std::string> TellAlarms(Session& session, const std::vector<FiredAlarm>& alarms,
                                    AlarmPost* post) {
    std::vector<std::string> failures;
    const auto keep = [&](const Failure& failure) {
        if (failure) failures.push_back(Sentence(failure));
    };
    const bool mails = MailsAlarms(session.settings);
    std::vector<FiredAlarm> noticed = alarms;
    for (FiredAlarm& alarm : noticed) alarm.mailing = mails ? AlarmMailing::Due : AlarmMailing::Unwanted;
    keep(KeepFiredAlarms(session.DataFolder(), noticed));
    if (!mails || post == nullptr || session.run.ProcessCommand == kStopRun) return failures;
    Failure unread;
    std::vector<FiredAlarm> due = AlarmsToMail(session.DataFolder(), unread);
    // The list may be out of reach; the mail goes all the same.
    if (unread || !failures.empty()) due = noticed;
    if (due.empty()) return failures;
    const MailTold told = MailAlarms(session, *post, due);
    if (told.isSent) {
        keep(MarkAlarmsMailed(session.DataFolder(), due));
    } else {
        failures.push_back(told.failure);
    }
    return failures;
}

}  // namespace brantlow
