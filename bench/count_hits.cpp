// Times what the condition editor does at an edit: the walk over a table's tickers once, then the counting of
// a condition with five names and two values, over and over.
//
//   count_hits FOLDER [TODAY]
#include <fmt/format.h>

#include <chrono>
#include <cstdio>

#include "base/clock.h"
#include "store/table_files.h"
#include "study/hit_store.h"

int main(int argc, char** argv) {
    using namespace brantlow;
    using Seconds = std::chrono::duration<double>;
    if (argc < 2) {
        fmt::print(stderr, "Usage: count_hits FOLDER [TODAY]\n");
        return 2;
    }
    const Path folder = argv[1];
    const Date today = ParseDate(argc > 2 ? argv[2] : "2026-12-31").value_or(Date{});
    QuoteTable table;
    const SettingsTables settings;
    LoadQuoteTable(folder / "Data" / "Bench.ddq", FileKind::Ddq, settings, today, table, nullptr);
    const std::string quotes = (folder / "Quotes" / "EOD" / "").string();
    const FixedClock clock(today);
    HitStore hits;
    const auto start = std::chrono::steady_clock::now();
    WalkForHits({quotes, clock}, Interval::Daily, table.Tickers(), hits, [](std::size_t) { return true; });
    const auto walked = std::chrono::steady_clock::now();
    Condition condition;
    condition.names = {"Close Price Above MA 180", "MA30 Above MA90", "MA60 Above MA180",
                       "Close Price Above MA 60", "MLR Der 60 Positive"};
    condition.slots[2] = "30";
    condition.slots[13] = "0.5";
    constexpr int kEdits = 200;
    std::size_t found = 0;
    for (int edit = 0; edit < kEdits; ++edit) {
        condition.slots[2] = std::to_string(edit);
        found += hits.Count(condition).hits;
    }
    const Seconds edits = std::chrono::steady_clock::now() - walked;
    fmt::print("{} tickers walked in {:.2f} s, {:.1f} MB held, {:.3f} ms an edit ({} hits)\n", hits.Tickers(),
               Seconds(walked - start).count(), static_cast<double>(hits.Bytes()) / 1e6,
               edits.count() * 1000 / kEdits, found);
    return hits.Tickers() > 0 ? 0 : 1;
}
