// The last step of an update: the alarms that fired go to the list that a person reads, and into one mail
// where the settings say so.
#pragma once

#include <string>
#include <vector>

#include "alerts/alarm_mail.h"
#include "shell/session.h"

namespace brantlow {

// Keeps the alarms in the list and mails them together with those that an earlier mail did not bring; without
// a post nothing is mailed. The sentences of what failed; a mail that failed goes with the next run that
// mails.
std::vector<std::string> TellAlarms(Session& session, const std::vector<FiredAlarm>& alarms, AlarmPost* post);

}  // namespace brantlow
