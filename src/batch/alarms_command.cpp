#include <nlohmann/json.hpp>

#include "alerts/alarm_mail.h"
#include "base/text.h"
#include "batch/table_commands.h"

namespace brantlow {

namespace {

std::string JsonOf(const FiredAlarm& alarm) {
    nlohmann::ordered_json json;
    json["when"] = DisplayUtf8(alarm.when);
    json["ticker"] = DisplayUtf8(alarm.ticker);
    json["price"] = DisplayUtf8(alarm.price);
    json["kind"] = AlarmKindWord(alarm.kind);
    json["limit"] = DisplayUtf8(alarm.limit);
    json["table"] = DisplayUtf8(alarm.table);
    json["mailed"] = alarm.mailing == AlarmMailing::Sent;
    return json.dump();
}

ExitStatus TryMail(BatchCall& call) {
    CurlMail mail(call.session.person);
    AlarmPost post{mail};
    BeginRun(call.session.run);
    const MailTold told = MailTest(call.session, post);
    if (!told.isSent) return Refuse(call, OneLine(told.failure));
    call.out << "Sent\n";
    return ExitStatus::Done;
}

}  // namespace

bool ForgetsAlarms(const Arguments& arguments) {
    return arguments.Has(kReadAlarmsOption);
}

ExitStatus RunAlarms(BatchCall& call) {
    if (call.arguments.Has(kTestMailOption)) return TryMail(call);
    const Path folder = call.session.DataFolder();
    Failure failure;
    const std::vector<FiredAlarm> alarms = LoadFiredAlarms(folder, failure);
    if (failure) return Refuse(call, Sentence(failure));
    for (const FiredAlarm& alarm : alarms) call.out << JsonOf(alarm) << '\n';
    if (!call.arguments.Has(kReadAlarmsOption)) return ExitStatus::Done;
    failure = ForgetFiredAlarms(folder);
    return failure ? Refuse(call, Sentence(failure)) : ExitStatus::Done;
}

}  // namespace brantlow
