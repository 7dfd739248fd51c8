// The year files of the quote database: records, the series of every interval by both roads, a split, a day
// that is stored, a day that is taken back. Input: the files of two years, cut by "----".
#include <cstring>

#include "fuzz_session.h"
#include "indicators/analysis.h"
#include "indicators/history_row.h"
#include "indicators/prepared_ticker.h"
#include "indicators/year_plan.h"
#include "shell/session_change.h"
#include "splits/split_adjustment.h"
#include "store/day_store.h"
#include "store/remove_update.h"

using namespace brantlow;

namespace {

constexpr std::string_view kTicker = "T";

// A record that was read and written reads back as the same line.
void CheckRecords(std::string_view bytes) {
    for (const std::string_view line : LinesOf(bytes)) {
        std::string once, twice;
        AppendHistoryLine(ParseHistoryLine(line), once);
        AppendHistoryLine(ParseHistoryLine(std::string_view(once).substr(0, once.size() - 2)), twice);
        Demand(once == twice, "a written record does not read back as itself");
    }
}

bool SameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b);
}

// A ticker that was prepared ahead has the bars that the loaders give.
void CheckPrepared(const HistorySource& source, Interval interval, const WorkingSeries& loaded) {
    static PreparedTicker prepared;
    const std::vector<std::string> years = YearTexts(source.clock.Today(), YearsFor(interval));
    prepared.Prepare(source.QuoteFolder, years, interval, kTicker);
    if (!prepared.IsRegular()) return;
    static const auto series = std::make_unique<WorkingSeries>();
    prepared.StoreSeries(*series);
    Demand(series->BarCount == loaded.BarCount, "a prepared ticker has another number of bars");
    for (const NumberField& field : kNumberFields) {
        for (std::size_t bar = 1; bar <= loaded.BarCount; ++bar) {
            Demand(SameBits((series.get()->*field.series)[bar], (loaded.*field.series)[bar]),
                   "a prepared ticker has another bar");
        }
    }
}

void CheckIntervals(const HistorySource& source, Analysis& analysis) {
    for (const Interval interval : {Interval::Daily, Interval::Weekly, Interval::Monthly}) {
        AnalyseTicker(source, kTicker, interval, analysis);
        CheckPrepared(source, interval, analysis.series);
    }
}

void StoreADay(FuzzSession& fuzz) {
    QuoteArrays rows;
    rows.MakeRoom(1);
    rows.Symbols[1] = kTicker;
    rows.TradeDates[1] = "03/15/24";
    rows.TradeTimes[1] = "16:00";
    rows.LastPrices[1] = "12.5";
    DayStore days;
    FileChange change(ChangePlaceOf(fuzz.session), "Fuzz", ChangeKeeps::UntilDone);
    DayRun run{change, YearGrowth::Replaced, {}, {}};
    StoreDay(fuzz.session.settings.QuoteFolder, rows, 1, days, run);
    Demand(!change.Commit(), "a day cannot be stored");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = BytesOf(data, size);
    const std::string_view newer = TakePart(input);
    CheckRecords(newer);
    FuzzSession fuzz;
    fuzz.Write("Quotes/EOD/T.23", input);
    fuzz.Write("Quotes/EOD/T.24", newer);
    const HistorySource source{fuzz.session.settings.QuoteFolder, fuzz.clock};
    // Large, and as good for the next input as the runs of the program make it.
    static const auto analysis = std::make_unique<Analysis>();
    CheckIntervals(source, *analysis);
    StoreADay(fuzz);
    fuzz.Write("Quotes/EOD/QuoteList.ddq", "1\r\n\"T\"\r\n");
    RemoveLastUpdate(fuzz.session);
    AdjustForSplit(source, ChangePlaceOf(fuzz.session), kTicker, 2, analysis->series);
    // What could be undone.
    std::error_code error;
    std::filesystem::remove_all(fuzz.File("Back Up"), error);
    return 0;
}
