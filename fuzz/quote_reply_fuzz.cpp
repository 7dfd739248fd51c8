// Replies of the sources of quotes: the standard one's lines, a user's own by the settings, decimal commas.
// Input: the network settings, "----", the reply.
#include "acquire/feeds/quote_reply.h"
#include "fuzz_session.h"
#include "shell/settings/settings_files.h"
#include "store/day_store.h"

using namespace brantlow;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = BytesOf(data, size);
    FuzzSession fuzz;
    fuzz.Write("Data/VTRNETset.ini", TakePart(input));
    LoadSettingsFile(SettingsFile::Net, AppFolder().Get(), fuzz.session.settings);
    const UserQuoteForm form = UserQuoteFormOf(fuzz.session.settings);
    QuoteArrays rows;
    rows.MakeRoom(1);
    for (const std::string_view line : LinesOf(input)) {
        if (TakeStandardLine(line, 1, rows)) {
            CalculateRow(rows, 1, RatioGuard::AboveZero, fuzz.clock.Today());
            RepairRow(rows, 1);
            RecordOfRow(rows, 1);
        }
        rows.ClearRow(1);
        if (TakeUserLine(line, form, 1, rows)) CalculateRow(rows, 1, RatioGuard::NotZero, fuzz.clock.Today());
        rows.ClearRow(1);
    }
    fuzz.Write("quotes.txt", input);
    Demand(!NormaliseDecimalComma(fuzz.File("quotes.txt")), "a reply cannot be rewritten");
    return 0;
}
