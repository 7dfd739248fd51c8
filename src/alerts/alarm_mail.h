// The mail of an update's fired alarms, by the server that the lines of VTRMAILset.ini name: one mail a run.
// Its password is the key "smtp" (shell/keys.h).
#pragma once

#include <string>
#include <vector>

#include "acquire/web/mail_web.h"
#include "acquire/web/web_time.h"
#include "alerts/fired_alarms.h"
#include "shell/keys.h"
#include "shell/session.h"

namespace brantlow {

inline constexpr std::string_view kMailKeyName = "smtp";

// What sending a mail needs of the world.
struct AlarmPost {
    MailWeb& mail;
    WebTime time = SystemWebTime();
    Environment environment = SystemEnvironment();
};

// How a mail went; `failure` is a sentence for a person, empty once it was sent.
struct MailTold {
    bool isSent = false;
    bool wasStopped = false;
    std::string failure;
};

// Whether alarms are mailed at all.
bool MailsAlarms(const SettingsTables& settings);

// The mail of these alarms, with all of them in it. A server that asks to come back, or cannot be reached, is
// asked again twice within half a minute. Nothing of the settings that is missing is guessed: it is told.
MailTold MailAlarms(Session& session, AlarmPost& post, const std::vector<FiredAlarm>& alarms);

// A mail that says that mails arrive.
MailTold MailTest(Session& session, AlarmPost& post);

}  // namespace brantlow
