#include "fault_world.h"

#include <algorithm>
#include <span>
#include <stdexcept>

#include "base/text.h"
#include "fault_run.h"
#include "market/market_hosts.h"
#include "support/source_folder.h"
#include "support/zip_file.h"

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

// Sources are asked as often as it goes.
constexpr std::string_view kNoPauses = "Limit.yahoo=1000000/1\r\nLimit.nasdaq=1000000/1\r\n";

// A line for each ticker, with the fields that the shipped import settings name: a new day for the first two,
// a better record of its last day for the third.
constexpr std::string_view kImportText =
    "A,41.5,11/21/26,43,40,1000\r\n"
    "ADBE,341.5,11/21/26,343,340,2000\r\n"
    "NFLX,999.5,11/20/26,999.5,999,3000\r\n";

const std::string kArchiveHead =
    "<TICKER>,<PER>,<DATE>,<TIME>,<OPEN>,<HIGH>,<LOW>,<CLOSE>,<VOL>,<OPENINT>\r\n";

// Below the day of the split that the market tells of, so that a split restates it.
constexpr std::string_view kDrawnText =
    "{\n  \"drawings\": [\n    {\n      \"kind\": \"horizontal\",\n      \"at\": {\n"
    "        \"day\": \"2015-03-03\",\n        \"price\": 700.0\n      }\n    }\n  ]\n}\n";

// The day that the market has and the database not yet.
void TakeLastDay(const Path& file) {
    std::string bytes = BytesOrEmpty(file);
    bytes.resize(bytes.rfind('\n', bytes.size() - 2) + 1);
    Write(file, bytes);
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
    // Over a folder that is there, for the settings files that come to old folders only.
    const FaultedCall again = CallWithFault(app, {"practice", "--replace"}, {});
    if (again.status != 0) throw std::runtime_error(again.Told());
    fs::remove_all(app / "Back Up" / "Undo");
    const Path data = app / "Data";
    const std::string table = BytesOrEmpty(data / "Practice.ddq");
    Write(data / "Mine.ddq", RowsOf(table, kTickers));
    Write(data / "Two.ddq", RowsOf(table, std::span(kTickers).subspan(1)));
    Write(data / "Out.ddq", RowsOf(table, std::span(kTickers).first(1)));
    fs::remove(data / "Practice.ddq");
    KeepYearFiles(app / "Quotes" / "EOD");
    TakeLastDay(app / "Quotes" / "EOD" / "A.26");
    Write(data / "Import.Txt", kImportText);
    Write(data / "Hosts.ini", MarketHostsText(market_->Address()) + std::string(kNoPauses));
    Write(app / "Quotes" / "EOD" / "QuoteList.ddq", "3\r\n\"A\"\r\n\"ADBE\"\r\n\"NFLX\"\r\n");
    // A line that a repair takes out.
    Write(app / "Quotes" / "EOD" / "GAP.26", std::string(kGapDay) + "\r\n" + std::string(kGapDay));
    Write(app / "Back Up" / "Data" / "Mine.ddq", RowsOf(table, std::span(kTickers).first(2)));
    Write(app / "Back Up" / "Quotes" / "ADBE.26", BytesOrEmpty(app / "Quotes" / "EOD" / "A.26"));
    WriteZip((app / "us.zip").string(),
             {{"us/a.us.txt", kArchiveHead + "A.US,D,20261120,000000,40,43,39,41,1000,0\r\n"},
              {"us/ko.us.txt", kArchiveHead + "KO.US,D,20251230,000000,60,63,59,61,1000,0\r\n"
                                              "KO.US,D,20261120,000000,60,63,59,62,1000,0\r\n"}});
    Write(data / "Drawings" / "NFLX.json", kDrawnText);
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
        {"import_history", {"import-history", "{app}/us.zip"}},
        {"draw", {std::string(kWindowsDrawing), "NFLX", "300"}},
        {"draw_first", {std::string(kWindowsDrawing), "A", "40"}},
        {"undo", {"undo"}, {"split", "NFLX", "7/1"}, false, 2},
        {"practice", {"practice", "--replace"}},
        // A restated history would be a whole step of its own.
        {"live_update",
         {"update", "Mine.ddq", "--source", "yahoo"},
         {"split-calendar", "--source", "nasdaq"}},
        {"live_populate", {"populate", "Mine.ddq", "--source", "yahoo"}},
        {"live_history", {"history", "AGG", "--source", "yahoo"}},
        {"live_splits", {"split-calendar", "--source", "nasdaq"}},
        {"symbols", {"symbols", "--source", "nasdaq", "--out", "All.ddq"}},
        {"series", {"series", "A", "NFLX"}, {}, true},
        {"indicators", {"indicators", "A", "NFLX"}, {}, true},
        {"evaluate", {"evaluate", "A", "NFLX"}, {}, true},
        {"explain", {"explain", "A", "NFLX"}, {}, true},
        {"signals", {"signals", "NFLX"}, {}, true},
        {"study", {"study", "Mine.ddq"}, {}, true},
        {"chart", {"chart", "NFLX", "--out", "-"}, {}, true},
        {"settings", {"settings"}, {}, true},
        {"check", {"check"}, {"check", "--repair"}, true},
    };
    return cases;
}

}  // namespace brantlow
