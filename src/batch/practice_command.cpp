#include "batch/commands.h"
#include "practice/practice.h"
#include "shell/app_folder.h"
#include "shell/session_change.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

// The sentence for a filling that did not come about.
std::string PracticeSentence(const PracticeResult& result) {
    switch (result.outcome) {
        case PracticeOutcome::AlreadyThere:
            return "The application folder already holds " + result.detail +
                   ": nothing was changed (--replace writes over them)";
        case PracticeOutcome::NoPrices:
        case PracticeOutcome::Failed:
            return result.detail;
        case PracticeOutcome::Filled:
            break;
    }
    return {};
}

PracticeTarget TargetOf(const Session& session, bool replace) {
    return {ChangePlaceOf(session), session.DataFolder(), session.settings.QuoteFolder, session.clock.Today(),
            replace};
}

}  // namespace

ExitStatus RunPractice(BatchCall& call) {
    Session& session = call.session;
    const Path prices = call.assets / "practice";
    const bool replace = call.arguments.Has("--replace");
    const PracticeResult check = CheckPractice(prices, TargetOf(session, replace));
    if (check.outcome != PracticeOutcome::Filled) return Refuse(call, PracticeSentence(check));
    const std::error_code error = MakeAppFolder(call.assets, session.AppPath);
    if (error) return Refuse(call, FailedTo(FailureKind::Make, session.AppPath, error));
    LoadAllSettings(session.AppPath, session.settings);
    const PracticeResult result = FillPractice(prices, TargetOf(session, replace));
    if (result.outcome != PracticeOutcome::Filled) return Refuse(call, PracticeSentence(result));
    call.out << "Saved: " << kPracticeTable << '\n'
             << "Tickers: " << result.tickers << '\n'
             << "Days of history: " << result.days << '\n';
    return ExitStatus::Done;
}

}  // namespace brantlow
