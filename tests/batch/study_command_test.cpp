#include <fmt/format.h>
#include <gmock/gmock.h>

#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <set>

#include "base/dates.h"
#include "base/text.h"
#include "batch_fixture.h"
#include "selector/catalogue.h"
#include "shell/settings/condition_set.h"

namespace brantlow {
namespace {

using nlohmann::ordered_json;
using ::testing::HasSubstr;

class StudyCommand : public BatchTest {
  protected:
    void InstallPractice() {
        ASSERT_EQ(Call({"--today", "2026-11-21", "practice"}).status, ExitStatus::Done);
        const std::string table = Read("Data/Practice.ddq");
        header_ = table.substr(0, table.find('\n') + 1);
        LineReader lines(table);
        std::string_view line;
        lines.Next(line);
        while (lines.Next(line)) tickers_.emplace_back(line.substr(0, line.find('\t')));
    }
    void WriteTable(const std::vector<std::string>& tickers) const {
        std::string table = header_;
        for (const std::string& ticker : tickers) table += ticker + "\r\n";
        Write("Data/Mine.ddq", table);
    }
    ordered_json Study(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2026-11-21", "study"});
        const CallResult result = Call(arguments);
        EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
        return ordered_json::parse(result.out);
    }
    // Day and ticker of each signal, by condition.
    using Days = std::set<std::string>;
    std::map<std::string, Days> SignalDays() const {
        std::map<std::string, Days> days;
        const std::string csv = Read("signals.csv");
        LineReader lines(csv);
        std::string_view line;
        lines.Next(line);
        while (lines.Next(line)) {
            const auto cells = SplitAt(line, ',');
            days[std::string(cells[2])].insert(std::string(cells[0]) + " " + std::string(cells[1]));
        }
        return days;
    }

    std::string header_ = "Ticker Symbol\tLast Price\r\n";
    std::vector<std::string> tickers_;
};

ConditionSet RandomSet(std::mt19937& dice) {
    constexpr const char* kNumbers[] = {"-20", "0", "0.8", "1.5", "10", "25", "abc"};
    const auto names = ConditionNames();
    ConditionSet set;
    for (Condition& condition : set) {
        condition.action = kConditionActions[dice() % 3];
        const std::size_t lines = dice() % 4;
        for (std::size_t i = 0; i < lines; ++i) condition.names.emplace_back(names[dice() % names.size()]);
        if (dice() % 2 == 0) condition.slots[dice() % kSlotCount] = kNumbers[dice() % std::size(kNumbers)];
    }
    return set;
}

// Files that a look back cannot take as a piece of today's: a record without a date and one out of order, a
// short record, a year without a file, a first year without one.
class StudyWalk : public StudyCommand, public ::testing::WithParamInterface<std::string> {
  protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(InstallPractice());
        const auto spoil = [this](std::size_t ticker, const std::string& year, const auto& change) {
            const std::string name = "Quotes/EOD/" + tickers_[ticker] + "." + year;
            const std::string bytes = Read(name);
            const std::size_t half = bytes.find('\n', bytes.size() / 2) + 1;
            Write(name, change(bytes.substr(0, half), bytes.substr(half)));
        };
        spoil(0, "26", [](const std::string& a, const std::string& b) {
            return a + "\"no day\",\"\",7,6,8,100,1,1,1,1,1,\"\",\"\",1,1,1,1,1,7\r\n" + b;
        });
        spoil(1, "26", [](const std::string& a, const std::string& b) { return b + a; });
        spoil(2, "25", [](const std::string& a, const std::string& b) {
            return a + a.substr(a.rfind('\n', a.size() - 2) + 1) + b;
        });
        spoil(3, "24",
              [](const std::string&, const std::string& b) { return b + "\"01/02/24\",\"\",5\r\n"; });
        for (const std::string year : {"21", "22", "23"})
            std::filesystem::remove(folder / ("Quotes/EOD/" + tickers_[4] + "." + year));
        std::filesystem::remove(folder / ("Quotes/EOD/" + tickers_[5] + ".25"));
    }

    // What one ticker's day comes to when it is asked alone.
    void CompareDay(const std::string& ticker, const std::string& day, std::size_t fewest,
                    const std::map<std::string, Days>& holding) {
        const CallResult result =
            Call({"--today", "2026-11-21", "evaluate", ticker, "--interval", GetParam(), "--as-of", day});
        const ordered_json line = ordered_json::parse(result.out);
        const bool enough = line["BarCount"].get<std::size_t>() >= fewest;
        for (std::size_t i = 0; i < line["conditions"].size(); ++i) {
            const bool holds = enough && line["conditions"][i]["result"] == "True";
            const auto found = holding.find(std::to_string(i + 1));
            const bool told = found != holding.end() && found->second.contains(day + " " + ticker);
            ASSERT_EQ(told, holds) << ticker << " " << day << " condition " << i + 1;
            hits_ += holds ? 1 : 0;
        }
    }

    std::size_t hits_ = 0;
};

TEST_P(StudyWalk, EachVerdictIsThatOfTheDayAskedAlone) {
    std::mt19937 dice(12);
    const bool weekly = GetParam() == "weekly";
    for (int round = 0; round < 6; ++round) {
        Write("Data/VTRSELset.ini", FormatConditionSet(RandomSet(dice)));
        std::vector<std::string> some(tickers_.begin(), tickers_.begin() + 6);
        for (int i = 0; i < 3; ++i) some.push_back(tickers_[6 + dice() % (tickers_.size() - 6)]);
        WriteTable(some);
        const ordered_json study =
            Study({"Mine.ddq", "--every-day", "--interval", GetParam(), "--from", "2025-09-01", "--to",
                   "2026-10-30", "--signals", (folder / "signals.csv").string()});
        ASSERT_GT(study["evaluated"], weekly ? 300 : 1500);
        const auto holding = SignalDays();
        // Days that are bars: those of the series as it stands at the end of the span.
        for (const std::string& ticker : some) {
            for (int i = 0; i < 4; ++i) {
                const Date day = AddDays(std::chrono::year{2025} / 9 / 1, static_cast<int>(dice() % 420));
                const CallResult series = Call({"series", ticker, "--interval", GetParam(), "--as-of",
                                                weekly ? "2026-11-21" : FormatIsoDate(day)});
                const ordered_json dates = ordered_json::parse(series.out)["series"]["QuoteDate"];
                const std::string written = FormatDate(day);
                std::string bar;
                for (const ordered_json& date : dates)
                    if (date.is_string() && ParseDate(date.get<std::string>()) &&
                        *ParseDate(date.get<std::string>()) <= day)
                        bar = FormatIsoDate(*ParseDate(date.get<std::string>()));
                if (bar < "2025-09-01") continue;
                ASSERT_NO_FATAL_FAILURE(CompareDay(ticker, bar, weekly ? 20 : 100, holding));
            }
        }
    }
    EXPECT_GT(hits_, 30u);
}

INSTANTIATE_TEST_SUITE_P(Intervals, StudyWalk, ::testing::Values("daily", "weekly"));

TEST_F(StudyCommand, TheReadyMadeConditionsOverThePracticeTableAddUp) {
    ASSERT_NO_FATAL_FAILURE(InstallPractice());
    const ordered_json study =
        Study({"Practice.ddq", "--signals", (folder / "signals.csv").string(), "--horizons", "1,20"});
    EXPECT_EQ(study["file"], "Practice.ddq");
    EXPECT_EQ(study["interval"], "daily");
    EXPECT_EQ(study["from"], "2025-11-22");
    EXPECT_EQ(study["to"], "2026-11-21");
    EXPECT_EQ(study["tickers"], 43);
    EXPECT_EQ(study["cost"], 0.5);
    ASSERT_EQ(study["conditions"].size(), 10u);
    const auto days = SignalDays();
    for (const ordered_json& condition : study["conditions"]) {
        const auto found = days.find(std::to_string(condition["condition"].get<int>()));
        const std::size_t listed = found == days.end() ? 0 : found->second.size();
        EXPECT_EQ(condition["signals"], listed);
        EXPECT_GT(condition["signals"], 0);
        EXPECT_GE(condition["holding"], condition["signals"]);
        for (const auto& [horizon, figures] : condition["horizons"].items())
            EXPECT_EQ(figures["n"].get<std::size_t>() + figures["open"].get<std::size_t>(), listed)
                << horizon;
    }
}

TEST_F(StudyCommand, ATickerThatStandsTwiceCountsOnce) {
    ASSERT_NO_FATAL_FAILURE(InstallPractice());
    WriteTable({tickers_[0], tickers_[1]});
    const std::string once = Study({"Mine.ddq"}).dump();
    WriteTable({tickers_[0], tickers_[1], tickers_[0]});
    EXPECT_EQ(Study({"Mine.ddq"}).dump(), once);
}

// What cannot be studied is told, never a silent empty table.
TEST_F(StudyCommand, WhereNothingCanBeEvaluatedAllIsEmptyAndASentenceSaysSo) {
    Write("Data/VTRSELset.ini", FormatConditionSet(ConditionSet{}));
    std::string young;
    for (int i = 1; i <= 28; ++i)
        young += fmt::format("\"02/{:02}/26\",\"\",0,0,0,0,0,0,0,0,0,\"\",\"\",0,0,0,0,0,0\r\n", i);
    Write("Quotes/EOD/YOUNG.26", young);
    WriteTable({"YOUNG", "NONE", "../../secret", ""});
    const CallResult result = Call({"--today", "2026-11-21", "study", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(
        result.err,
        "No day could be evaluated: no ticker has a bar from 2025-11-22 to 2026-11-21 with enough history "
        "before it\n");
    const ordered_json study = ordered_json::parse(result.out);
    EXPECT_EQ(study["evaluated"], 0);
    EXPECT_EQ(study["baseline"]["1"].dump(), R"({"n":0,"mean":null})");
    EXPECT_EQ(study["conditions"][0]["horizons"]["60"].dump(),
              R"({"n":0,"open":0,"mean":null,"median":null,"hit":null,"excess":null,"se":null,"t":null,)"
              R"("first_half":null,"second_half":null})");
}

TEST_F(StudyCommand, ASpanWithoutABarIsTold) {
    ASSERT_NO_FATAL_FAILURE(InstallPractice());
    // A Saturday.
    const CallResult result = Call(
        {"--today", "2026-11-21", "study", "Practice.ddq", "--from", "2026-11-14", "--to", "2026-11-14"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(
        result.err,
        "No day could be evaluated: no ticker has a bar from 2026-11-14 to 2026-11-14 with enough history "
        "before it\n");
    const ordered_json study = ordered_json::parse(result.out);
    EXPECT_EQ(study["tickers"], 43);
    EXPECT_EQ(study["evaluated"], 0);
    EXPECT_EQ(study["conditions"].size(), 10u);
}

// Condition 1 has a name that nothing tests, 2 the same beside one that is tested, 3 that one alone, 4 no
// line.
TEST_F(StudyCommand, NamesThatNothingTestsCountAsInAnEvaluation) {
    ASSERT_NO_FATAL_FAILURE(InstallPractice());
    ConditionSet set;
    for (std::size_t i = 0; i < 4; ++i) set[i].action = "Buy";
    set[0].names = {"Never Heard Of"};
    set[1].names = {"Never Heard Of", "Close Price Above MA 15"};
    set[2].names = {"Close Price Above MA 15"};
    Write("Data/VTRSELset.ini", FormatConditionSet(set));
    WriteTable({tickers_[0]});
    const ordered_json study = Study({"Mine.ddq", "--every-day", "--from", "2026-11-16"});
    ASSERT_EQ(study["evaluated"], 5);
    std::array<int, 4> holding{};
    for (const std::string day : {"2026-11-16", "2026-11-17", "2026-11-18", "2026-11-19", "2026-11-20"}) {
        const CallResult asked = Call({"--today", "2026-11-21", "evaluate", tickers_[0], "--as-of", day});
        const ordered_json line = ordered_json::parse(asked.out);
        for (std::size_t i = 0; i < 4; ++i) holding[i] += line["conditions"][i]["result"] == "True" ? 1 : 0;
    }
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(study["conditions"][i]["holding"], holding[i]) << i + 1;
    EXPECT_EQ(study["conditions"][3]["holding"], 0);
}

// The signals of a ticker whose last record is of June, and of one with a day without a price.
TEST_F(StudyCommand, WhatATickerThatEndedOrADayWithoutAPriceLeavesOpenIsCountedAsOpen) {
    ASSERT_NO_FATAL_FAILURE(InstallPractice());
    const std::string file = "Quotes/EOD/" + tickers_[0] + ".26";
    const std::string year = Read(file);
    const std::size_t july = year.find("\"07/");
    ASSERT_NE(july, std::string::npos);
    std::string ended = year.substr(0, july);
    // The close is the third field of a record.
    const std::size_t may = ended.find("\"05/");
    const std::size_t close = ended.find(',', ended.find(',', may) + 1) + 1;
    const std::string noPrice = "20" + ended.substr(may + 7, 2) + "-05-" + ended.substr(may + 4, 2);
    ended.replace(close, ended.find(',', close) - close, "0");
    Write(file, ended);
    ConditionSet set;
    set[0].action = "Buy";
    set[0].names = {"Close Price Above MA 15"};
    Write("Data/VTRSELset.ini", FormatConditionSet(set));
    WriteTable({tickers_[0]});

    const ordered_json study = Study({"Mine.ddq", "--every-day", "--horizons", "1,60", "--from", "2026-01-01",
                                      "--signals", (folder / "signals.csv").string()});
    const auto records = static_cast<std::size_t>(std::count(ended.begin(), ended.end(), '\n'));
    EXPECT_EQ(study["evaluated"], records);

    // The dates of its bars, for the places of entry and exit.
    std::vector<std::string> days;
    LineReader lines(ended);
    for (std::string_view line; lines.Next(line);)
        days.push_back("20" + std::string(line.substr(7, 2)) + "-" + std::string(line.substr(1, 2)) + "-" +
                       std::string(line.substr(4, 2)));
    std::size_t open1 = 0, open60 = 0, signals = 0;
    const std::string csv = Read("signals.csv");
    LineReader rows(csv);
    std::string_view row;
    rows.Next(row);
    while (rows.Next(row)) {
        const auto cells = SplitAt(row, ',');
        const auto at = std::find(days.begin(), days.end(), cells[0]) - days.begin();
        const auto isOpen = [&](std::ptrdiff_t horizon) {
            const std::ptrdiff_t exit = at + 1 + horizon;
            if (exit >= std::ssize(days)) return true;
            return days[static_cast<std::size_t>(at + 1)] == noPrice ||
                   days[static_cast<std::size_t>(exit)] == noPrice;
        };
        EXPECT_EQ(cells[6].empty(), isOpen(1)) << row;
        EXPECT_EQ(cells[7].empty(), isOpen(60)) << row;
        open1 += isOpen(1) ? 1U : 0U;
        open60 += isOpen(60) ? 1U : 0U;
        ++signals;
    }
    EXPECT_GT(signals, 20u);
    EXPECT_GT(open60, open1);
    const ordered_json& figures = study["conditions"][0]["horizons"];
    EXPECT_EQ(figures["1"]["open"], open1);
    EXPECT_EQ(figures["60"]["open"], open60);
    EXPECT_EQ(figures["60"]["n"], signals - open60);
}

TEST_F(StudyCommand, WrongArgumentsAreWrongUsage) {
    WriteTable({"A"});
    const std::vector<std::vector<std::string>> wrong = {
        {"--horizons", "0"},      {"--horizons", "5000"},
        {"--horizons", "soon"},   {"--horizons", "1,,5"},
        {"--horizons", "5,5"},    {"--horizons", ""},
        {"--cost", "100"},        {"--cost", "-1"},
        {"--cost", "much"},       {"--from", "2026-13-01"},
        {"--to", "today"},        {"--interval", "monthly"},
        {"--from", "2026-12-01"}, {"--from", "2026-05-02", "--to", "2026-05-01"},
        {"--signals", ""},
    };
    for (const auto& options : wrong) {
        std::vector<std::string> call = {"--today", "2026-11-21", "study", "Mine.ddq"};
        call.insert(call.end(), options.begin(), options.end());
        const CallResult result = Call(call);
        EXPECT_EQ(result.status, ExitStatus::Usage) << options[0] << " " << options[1];
        EXPECT_EQ(result.out, "");
        EXPECT_THAT(result.err, HasSubstr(options[0]));
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    }
}

TEST_F(StudyCommand, ATableOfVerdictsAndAMissingFileAreRefused) {
    Write("Data/Evaluations.dbe", "Ticker Symbol\r\nA\r\n");
    const CallResult verdicts = Call({"study", "Evaluations.dbe"});
    EXPECT_EQ(verdicts.status, ExitStatus::Refused);
    EXPECT_EQ(verdicts.err, "To study the conditions, you will need to open an End of Day Quote File\n");
    const CallResult missing = Call({"study", "None.ddq"});
    EXPECT_EQ(missing.status, ExitStatus::Refused);
    EXPECT_EQ(missing.err, "None.ddq: no such file in Data\n");
}

TEST_F(StudyCommand, CtrlCGivesTheTickersSoFarAndSaysSo) {
    ASSERT_NO_FATAL_FAILURE(InstallPractice());
    const CallResult result = CallWith({"--today", "2026-11-21", "study", "Practice.ddq"},
                                       folder / "brantlow-batch", [] { return true; });
    EXPECT_EQ(result.status, ExitStatus::Interrupted);
    EXPECT_THAT(result.err, ::testing::MatchesRegex("Stopped after [0-9]+ of 43 tickers: the figures are of "
                                                    "these alone\n(No day could.*\n)?"));
    EXPECT_EQ(ordered_json::parse(result.out)["tickers"], 43);
}

TEST_F(StudyCommand, AListThatCannotBeWrittenIsNamed) {
    WriteTable({"A"});
    std::filesystem::create_directories(folder / "list.csv");
    const std::string file = (folder / "list.csv").string();
    const CallResult result = Call({"study", "Mine.ddq", "--signals", file});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_THAT(result.err, HasSubstr(file + ": cannot be saved (Is a directory)\n"));
}

}  // namespace
}  // namespace brantlow
