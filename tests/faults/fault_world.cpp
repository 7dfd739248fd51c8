#include "fault_world.h"

#include <algorithm>
#include <span>
#include <stdexcept>

#include "base/text.h"
#include "fault_run.h"
#include "market/market_hosts.h"
#include "support/source_folder.h"

namespace brantlow {

namespace {

namespace fs = std::filesystem;

const Date kDay = std::chrono::year{2026} / 11 / 21;
constexpr std::string_view kGapDay = "\"11/20/26\",\"\",10,9,11,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,10\r\n";
constexpr std::string_view kTickers[] = {"A", "ADBE", "NFLX"};

const MarketData& Prices() {
    static const MarketData data = MarketData::Read(SourceFolder() / "assets" / "practice");
    return data;
}

void Write(const Path& file, std::string_view bytes) {
    fs::create_directories(file.parent_path());
    if (WriteWholeFile(file, bytes, Flush::Later))
        throw std::runtime_error(file.string() + " cannot be written");
}

bool IsKept(std::string_view line, std::span<const std::string_view> tickers) {
    for (const std::string_view ticker : tickers) {
        if (line.starts_with(std::string(ticker) + "\t")) return true;
    }
    return line.starts_with("Ticker Symbol");
}

// The rows of these tickers in a table's text.
std::string RowsOf(std::string_view table, std::span<const std::string_view> tickers) {
    std::string text;
    LineReader reader(table);
    for (std::string_view line; reader.Next(line);) {
        if (IsKept(line, tickers)) text.append(line).append("\r\n");
    }
    return text;
}

void KeepYearFiles(const Path& quotes) {
    for (const std::string& name : FileNamesIn(quotes)) {
        const std::string_view ticker = std::string_view(name).substr(0, name.rfind('.'));
        if (std::find(std::begin(kTickers), std::end(kTickers), ticker) == std::end(kTickers)) {
            fs::remove(quotes / name);
        }
    }
}

// A line for each ticker, with the fields that the shipped import settings name.
std::string ImportText() {
    std::string text;
    for (const std::string_view ticker : kTickers) {
        text += std::string(ticker) + ",41.5,0.5,1,41,42,40,43,1000,41,41,30,50,Name,NYSE,11/21/26,17:00\r\n";
    }
    return text;
}

}  // namespace

FaultWorld& FaultWorld::Instance() {
    static FaultWorld world;
    return world;
}

FaultWorld::FaultWorld() : clock_(kDay, 18.0 * 3600) {
    market_ = std::make_unique<MarketServer>(Prices(), clock_, alerts_);
    if (!market_->Bind(0)) throw std::runtime_error("no port for the market");
    market_->Run();
    Fill(folder_ / "app");
}

void FaultWorld::Fill(const Path& app) const {
    fs::create_directories(app);
    const FaultedCall practice = CallWithFault(app, {"practice"}, {});
    if (practice.status != 0) throw std::runtime_error(practice.Told());
    const Path data = app / "Data";
    const std::string table = BytesOrEmpty(data / "Practice.ddq");
    Write(data / "Mine.ddq", RowsOf(table, kTickers));
    Write(data / "Two.ddq", RowsOf(table, std::span(kTickers).subspan(1)));
    Write(data / "Out.ddq", RowsOf(table, std::span(kTickers).first(1)));
    fs::remove(data / "Practice.ddq");
    KeepYearFiles(app / "Quotes" / "EOD");
    Write(data / "Import.Txt", ImportText());
    Write(data / "Hosts.ini", MarketHostsText(market_->Address()));
    Write(app / "Quotes" / "EOD" / "QuoteList.ddq", "3\r\n\"A\"\r\n\"ADBE\"\r\n\"NFLX\"\r\n");
    // A line that a repair takes out.
    Write(app / "Quotes" / "EOD" / "GAP.26", std::string(kGapDay) + "\r\n" + std::string(kGapDay));
    Write(app / "Back Up" / "Data" / "Mine.ddq", RowsOf(table, std::span(kTickers).first(2)));
    Write(app / "Back Up" / "Quotes" / "ADBE.26", BytesOrEmpty(app / "Quotes" / "EOD" / "A.26"));
    Write(data / "Evaluations.dbe", "Ticker Symbol\tCondition 1\r\nOLD\tBuy\r\n");
    Write(data / "ExtendedFundamentals.efq", "Symbol\r\nOLD\r\n");
}

void FaultWorld::CopyTo(const Path& app) const {
    fs::copy(folder_ / "app", app, fs::copy_options::recursive);
}

void PrintTo(const FaultCase& command, std::ostream* out) {
    *out << command.name;
}

const std::vector<FaultCase>& FaultCases() {
    static const std::vector<FaultCase> cases = {
        {"add", {"add", "Mine.ddq", "AGG", "AMZN"}},
        {"delete", {"delete", "Mine.ddq", "ADBE"}},
        {"delete_history", {"delete", "Mine.ddq", "NFLX", "--history"}},
        {"alarm", {"alarm", "Mine.ddq", "NFLX", "--high", "300"}},
        {"split", {"split", "NFLX", "7/1"}},
        {"split_calendar", {"split-calendar"}},
        {"update", {"update", "Mine.ddq"}},
        {"populate", {"populate", "Mine.ddq", "--years", "2"}},
        {"history", {"history", "AGG"}},
        {"select", {"select", "Mine.ddq"}},
        {"fundamentals", {"fundamentals", "Mine.ddq"}},
        {"import", {"import", "Mine.ddq"}},
        {"export", {"export", "Mine.ddq"}},
        {"combine", {"combine", "Mine.ddq", "Two.ddq", "Out.ddq"}},
        {"remove_last_update", {"remove-last-update"}, {}, false, 0},
        {"backup_program", {"backup", "program"}},
        {"backup_database", {"backup", "database"}},
        {"restore_program", {"restore", "program"}},
        {"restore_database", {"restore", "database"}},
        {"check_repair", {"check", "--repair"}},
        {"undo", {"undo"}, {"split", "NFLX", "7/1"}, false, 2},
        {"series", {"series", "A", "NFLX"}, {}, true},
        {"evaluate", {"evaluate", "A", "NFLX"}, {}, true},
        {"chart", {"chart", "NFLX", "--out", "-"}, {}, true},
        {"settings", {"settings"}, {}, true},
        {"check", {"check"}, {"check", "--repair"}, true},
    };
    return cases;
}

}  // namespace brantlow
