#include "alerts/alarm_mail.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <ctime>

#include "base/control_characters.h"
#include "base/dates.h"
#include "base/failure.h"
#include "base/text.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

// Seconds before each further try.
constexpr std::array<double, 2> kRetryWaits = {5, 15};
constexpr double kWaitSlice = 0.1;
constexpr std::size_t kTickersInSubject = 5;

struct Writing {
    std::string subject;
    std::string text;
};

std::string MailFile() {
    return SettingsFileName(SettingsFile::Mail);
}

// An address as it may stand in a header and in the dialogue with the server.
bool IsAddress(std::string_view text) {
    const std::size_t at = text.find('@');
    const bool isPlain = std::none_of(text.begin(), text.end(), [](char c) {
        return static_cast<unsigned char>(c) <= ' ' || c == '\x7f' || c == '<' || c == '>' || c == '"';
    });
    return isPlain && at != std::string_view::npos && at > 0 && at + 1 < text.size();
}

bool IsHost(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' ||
               c == '-' || c == '_' || c == ':' || c == '[' || c == ']';
    });
}

std::vector<std::string> AddressesIn(std::string_view text) {
    std::vector<std::string> addresses;
    for (const std::string_view part : SplitAt(text, ',')) {
        if (!Trim(part).empty()) addresses.emplace_back(Trim(part));
    }
    return addresses;
}

// The request as far as the settings make it, without a password.
AlarmLetter AddressedBy(const SettingsTables& settings) {
    AlarmLetter letter;
    MailRequest& request = letter.request;
    request.host = Get(settings, kMailHost);
    request.port = static_cast<int>(Get(settings, kMailPort));
    request.security = Get(settings, kMailSecurity);
    request.user = Get(settings, kMailUser);
    request.sender = Get(settings, kMailSender);
    request.recipients = AddressesIn(Get(settings, kMailRecipient));
    const auto refuse = [&](const char* why) {
        if (letter.fault.empty()) letter.fault = why;
    };
    if (!IsHost(request.host)) refuse("no mail server is named");
    if (request.recipients.empty()) refuse("no recipient is named");
    for (const std::string& address : request.recipients) {
        if (!IsAddress(address)) refuse("a recipient is no mail address");
    }
    if (request.sender.empty() && !request.recipients.empty()) request.sender = request.recipients.front();
    if (!IsAddress(request.sender)) refuse("the sender is no mail address");
    if (HasControls(request.user)) refuse("the user holds a control character");
    if (!letter.fault.empty()) letter.refusal = MailFile() + ": " + letter.fault;
    return letter;
}

void AddPassword(const Session& session, const Environment& environment, AlarmLetter& letter) {
    if (letter.request.user.empty() || !letter.refusal.empty()) return;
    std::string& password = letter.request.password;
    password = FindKey(session.DataFolder(), kMailKeyName, environment);
    // The password may stand in a file that cannot be read.
    std::string bytes;
    const Failure unread =
        password.empty() ? ReadIfThere(session.DataFolder() / kKeysFileName, bytes) : Failure{};
    if (unread) {
        letter.refusal = Sentence(unread);
    } else if (password.empty()) {
        letter.refusal =
            fmt::format("The password of the mail server is missing: put {}=PASSWORD into Data/{} or set {}",
                        kMailKeyName, kKeysFileName, KeyVariable(kMailKeyName));
    } else if (const std::string why = KeyTextRefusal(password); !why.empty()) {
        letter.refusal = "The password of the mail server cannot be used: " + why;
    }
}

// "Fri, 20 Nov 2026 18:30:00", in the time zone in force.
std::string MailDate(const Clock& clock) {
    constexpr std::array kDays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    constexpr std::array kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    constexpr int kMinute = 60;
    constexpr int kHour = 3600;
    const Date today = clock.Today();
    const int seconds = static_cast<int>(clock.SecondsSinceMidnight());
    const std::chrono::weekday day{std::chrono::sys_days{today}};
    return fmt::format("{}, {:02} {} {} {:02}:{:02}:{:02}", kDays.at(day.c_encoding()),
                       static_cast<unsigned>(today.day()),
                       kMonths.at(static_cast<unsigned>(today.month()) - 1), static_cast<int>(today.year()),
                       seconds / kHour, seconds / kMinute % kMinute, seconds % kMinute);
}

// A header's text: nothing that ends it, and no byte that a header cannot hold.
std::string HeaderText(std::string_view text) {
    std::string plain(text);
    std::replace_if(
        plain.begin(), plain.end(), [](char c) { return c < ' ' || c == '\x7f'; }, '?');
    return plain;
}

// "+0100": the offset of the time zone in force at the clock's moment.
std::string ZoneOffsetText(const Clock& clock) {
    constexpr int kFirstYear = 1900;
    constexpr std::size_t kRoom = 8;
    const Date today = clock.Today();
    std::tm moment{};
    moment.tm_year = static_cast<int>(today.year()) - kFirstYear;
    moment.tm_mon = static_cast<int>(static_cast<unsigned>(today.month())) - 1;
    moment.tm_mday = static_cast<int>(static_cast<unsigned>(today.day()));
    moment.tm_sec = static_cast<int>(clock.SecondsSinceMidnight());
    moment.tm_isdst = -1;
    std::mktime(&moment);
    std::array<char, kRoom> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%z", &moment);
    return {text.data(), length};
}

void AddHeaders(const Session& session, const Writing& letter, MailRequest& request) {
    const std::size_t at = request.sender.find('@');
    request.headers = {
        "Date: " + MailDate(session.clock) + " " + ZoneOffsetText(session.clock),
        "From: Brantlow <" + request.sender + ">",
        fmt::format("To: {}", fmt::join(request.recipients, ", ")),
        "Subject: " + HeaderText(letter.subject),
        fmt::format("Message-ID: <{}.{:.0f}.{}{}>", FormatIsoDate(session.clock.Today()),
                    session.clock.SecondsSinceMidnight(), letter.text.size(), request.sender.substr(at)),
        "Auto-Submitted: auto-generated"};
    request.text = letter.text;
}

// False when the run was stopped meanwhile.
bool Wait(const Session& session, const AlarmPost& post, double seconds) {
    const double end = post.time.now() + seconds;
    while (session.run.ProcessCommand != kStopRun) {
        const double left = end - post.time.now();
        if (left <= 0) return true;
        post.time.sleep(std::min(left, kWaitSlice));
        session.person.PumpEvents();
    }
    return false;
}

MailTold Mail(Session& session, AlarmPost& post, AlarmLetter letter) {
    if (!letter.refusal.empty()) return {.failure = letter.refusal};
    letter.request.isStopped = [&session] { return session.run.ProcessCommand == kStopRun; };
    MailReply reply = post.mail.Send(letter.request);
    for (const double wait : kRetryWaits) {
        if (reply.outcome != MailOutcome::Later || !post.waitsForServer) break;
        if (!Wait(session, post, wait)) reply = {MailOutcome::Stopped, "stopped"};
        if (reply.outcome == MailOutcome::Later) reply = post.mail.Send(letter.request);
    }
    return ToldOf(letter.request, reply);
}

AlarmLetter Written(const Session& session, const SettingsTables& settings, const Environment& environment,
                    const Writing& writing) {
    AlarmLetter letter = AddressedBy(settings);
    AddPassword(session, environment, letter);
    if (letter.refusal.empty()) AddHeaders(session, writing, letter.request);
    return letter;
}

Writing WritingOf(const std::vector<FiredAlarm>& alarms) {
    Writing letter;
    std::vector<std::string> names;
    for (const FiredAlarm& alarm : alarms) {
        const bool isNew = std::find(names.begin(), names.end(), alarm.ticker) == names.end();
        if (isNew) names.push_back(alarm.ticker);
        letter.text += fmt::format("{}\r\n  {}, {}\r\n\r\n", AlarmSentence(alarm), alarm.when, alarm.table);
    }
    letter.text += "The list of fired alarms in Brantlow keeps them until you have read it.\r\n";
    const std::size_t shown = std::min(names.size(), kTickersInSubject);
    const std::vector<std::string> first(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(shown));
    letter.subject = fmt::format("Price alarm{}: {}", alarms.size() == 1 ? "" : "s", fmt::join(first, ", "));
    if (shown < names.size()) letter.subject += fmt::format(" and {} more", names.size() - shown);
    return letter;
}

}  // namespace

bool MailsAlarms(const SettingsTables& settings) {
    return Get(settings, kMailsAlarms);
}

AlarmLetter LetterOfAlarms(const Session& session, const SettingsTables& settings,
                           const Environment& environment, const std::vector<FiredAlarm>& alarms) {
    return Written(session, settings, environment, WritingOf(alarms));
}

AlarmLetter TestLetter(const Session& session, const SettingsTables& settings,
                       const Environment& environment) {
    return Written(session, settings, environment, {"Test", "Mails of fired alarms arrive here.\r\n"});
}

MailTold ToldOf(const MailRequest& request, const MailReply& reply) {
    MailTold told;
    told.isSent = reply.outcome == MailOutcome::Sent;
    told.wasStopped = reply.outcome == MailOutcome::Stopped;
    told.comesAgain = reply.outcome == MailOutcome::Later;
    if (told.isSent) return told;
    const bool isRefused = reply.outcome == MailOutcome::Refused && !reply.isUnsafe;
    const std::string_view how = isRefused ? "was refused" : "was not sent";
    told.failure = fmt::format("The mail {} by {}:{}: {}", how, request.host, request.port, reply.words);
    return told;
}

MailTold MailAlarms(Session& session, AlarmPost& post, const std::vector<FiredAlarm>& alarms) {
    post.told = Mail(session, post, LetterOfAlarms(session, session.settings, post.environment, alarms));
    return post.told;
}

MailTold MailTest(Session& session, AlarmPost& post) {
    post.told = Mail(session, post, TestLetter(session, session.settings, post.environment));
    return post.told;
}

}  // namespace brantlow
