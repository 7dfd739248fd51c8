#include "shell/frame/windows/start_commands.h"

#include "practice/practice.h"
#include "shell/app_folder.h"
#include "shell/frame/windows/window_person.h"
#include "shell/session_change.h"

namespace brantlow {

namespace {

// The sentence for a filling that did not come about; empty for one that did.
std::string WhyNotFilled(const PracticeResult& result) {
    switch (result.outcome) {
        case PracticeOutcome::AlreadyThere:
            return "The practice table is not made, since the application folder already holds " +
                   result.detail + ". Nothing was changed.";
        case PracticeOutcome::NoPrices:
            return "The practice prices cannot be read: " + result.detail;
        case PracticeOutcome::Failed:
            return "The practice table could not be written: " + result.detail;
        case PracticeOutcome::Filled:
            break;
    }
    return {};
}

std::string FillPracticeTable(const Session& session) {
    const std::optional<Path> assets = FindAssets(CurrentStartPlaces().executable);
    if (!assets)
        return "The files that belong to the program were not found beside it. Please install it again.";
    return WhyNotFilled(FillPractice(
        *assets / "practice",
        {ChangePlaceOf(session), session.DataFolder(), session.settings.QuoteFolder, session.clock.Today()}));
}

}  // namespace

void StartCommands::OpenPractice() {
    const std::string name(kPracticeTable);
    if (!IsRegularFile(frame_.session.DataFile(name))) {
        const std::string failure = FillPracticeTable(frame_.session);
        if (!failure.empty()) return frame_.person.Say(failure);
    }
    frame_.openNamed(name);
}

void StartCommands::OpenAndUpdate(const std::string& name) {
    frame_.openNamed(name);
    if (frame_.table.form()) frame_.run("mnuFileUpdateQuotes");
}

}  // namespace brantlow
