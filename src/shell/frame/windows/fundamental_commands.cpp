#include "shell/frame/windows/fundamental_commands.h"

#include "acquire/feeds/extended_fundamentals.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "shell/status_words.h"
#include "store/file_names.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

CommandRows FundamentalCommands::Rows() {
    static constexpr SubjectRow<FundamentalCommands> kRows[] = {
        {"mnuExtendedFundamentals", &FundamentalCommands::ExtendedFundamentals},
        {"FundamentalData", &FundamentalCommands::ExtendedFundamentalData},
    };
    return RowsOf(*this, kRows);
}

void FundamentalCommands::ExtendedFundamentalData() {
    if (KindOf(frame_.session.CurrentFile) != FileKind::Ddq) {
        frame_.person.Say(kFundamentalsNeedQuoteFile);
        return;
    }
    ExtendedFundamentals();
}

void FundamentalCommands::ExtendedFundamentals() {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form || frame_.person.InRun()) return;
    if (KindOf(frame_.session.CurrentFile) == FileKind::Db) {
        frame_.person.Say(kFundamentalsOverTemplate);
        return;
    }
    if (const Failure fault = CreateFundamentalFile(form->Table(), frame_.session)) {
        frame_.person.Say(ChangeSentence(kFundamentalsChange, fault));
        return;
    }
    if (frame_.table.show(kFundamentalsName)) Collect(*frame_.table.form());
}

// The table counts as new afterwards and goes by the day's name. One that was closed meanwhile goes now.
void FundamentalCommands::Collect(frmQuoteGrid& form) {
    const FundamentalSources sources{frame_.web, cache_, frame_.hosts, frame_.runs.MemoryInfo()};
    frame_.person.ShowStatusWord(kStatusUpdating);
    frame_.runs.BeginFilling(form);
    const FundamentalsOutcome outcome = CollectExtendedFundamentals(frame_.session, sources, form.Table());
    const bool stays = frame_.runs.EndOn(form);
    frame_.tell(outcome.report);
    frame_.table.nameChanged();
    if (frame_.runs.TakeCloseTable() && stays) frame_.table.close();
    if (outcome.saveError) frame_.person.Say(ChangeSentence(kFundamentalsChange, outcome.saveError));
}

}  // namespace brantlow
