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

// How a mail went; `failure` is a sentence for a person, empty once it was sent.
struct MailTold {
    bool isSent = false;
    bool wasStopped = false;
    // The server was out of reach or asked to come back: a later try may bring it.
    bool comesAgain = false;
    std::string failure;
};

// What sending a mail needs of the world.
struct AlarmPost {
    MailWeb& mail;
    WebTime time = SystemWebTime();
    Environment environment = SystemEnvironment();
    // Whether sending waits for a server that asks to come back; a window tries again later instead.
    bool waitsForServer = true;
    // How the newest mail went; all empty where none was sent.
    MailTold told = {};
};

// A mail as the settings make it. Where they make none, `refusal` is the sentence that tells why, and `fault`
// what is wrong with a line of VTRMAILset.ini, in words without the file's name.
struct AlarmLetter {
    MailRequest request;
    std::string fault;
    std::string refusal;
};

// Whether alarms are mailed at all.
bool MailsAlarms(const SettingsTables& settings);

// The mail of these alarms, with all of them in it, and the one that says that mails arrive. Nothing of the
// settings that is missing is guessed: it is told. `settings` may be a draft of those in force.
AlarmLetter LetterOfAlarms(const Session& session, const SettingsTables& settings,
                           const Environment& environment, const std::vector<FiredAlarm>& alarms);
AlarmLetter TestLetter(const Session& session, const SettingsTables& settings,
                       const Environment& environment);

// What a person is told of the reply.
MailTold ToldOf(const MailRequest& request, const MailReply& reply);

// Sends the mail of these alarms. A server that asks to come back, or cannot be reached, is
// asked again twice within half a minute where the post waits for it.
MailTold MailAlarms(Session& session, AlarmPost& post, const std::vector<FiredAlarm>& alarms);

// Sends the mail that says that mails arrive.
MailTold MailTest(Session& session, AlarmPost& post);

}  // namespace brantlow
