// Makes the database of the benchmarks: an application folder with the year files of many tickers and a table
// that lists them. The same arguments give the same bytes on every machine.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <optional>
#include <string>

#include "base/dates.h"
#include "base/files.h"
#include "base/text.h"
#include "base/values.h"
#include "practice/practice_prices.h"
#include "shell/settings/settings_tables.h"
#include "store/history_record.h"
#include "store/year_files.h"

namespace {

using namespace brantlow;

// A table holds no more lines than kMostRows, its header among them.
constexpr std::size_t kMostTickers = kMostRows - 1;

struct Wish {
    std::string folder;
    std::size_t tickers = kMostTickers;
    int years = 4;
    std::string today = "2026-12-31";
    std::string market;
};

// A small generator of its own: the standard library's distributions differ between systems.
class Dice {
  public:
    explicit Dice(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15U + 1) {}
    // 0 up to 1.
    double Roll() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        return static_cast<double>((z ^ (z >> 31U)) >> 11U) * 0x1p-53;
    }
    double Between(double low, double high) { return low + Roll() * (high - low); }

  private:
    std::uint64_t state_;
};

bool IsTradingDay(const Date& date) {
    const std::chrono::weekday day{std::chrono::sys_days(date)};
    return day != std::chrono::Saturday && day != std::chrono::Sunday;
}

// One ticker's walk through the years.
class Walk {
  public:
    explicit Walk(std::size_t ticker) : dice_(ticker), close_(dice_.Between(3, 400)) {
        shares_ = dice_.Between(5, 4000);
        earnings_ = dice_.Between(-1, 12);
        salesPerShare_ = dice_.Between(2, 150);
        dividend_ = dice_.Roll() < 0.5 ? 0 : dice_.Between(0.1, 4);
        low52_ = high52_ = close_;
    }

    HistoryRecord Day(const Date& date) {
        HistoryRecord record;
        const double before = close_;
        close_ = std::max(0.05, close_ * dice_.Between(0.975, 1.0262));
        low52_ = std::min(low52_ * 1.001, close_);
        high52_ = std::max(high52_ * 0.999, close_);
        record.HistoryDate = FormatDate(date);
        record.HistoryTime = "16:00";
        record.HistoryClose = close_;
        record.HistoryOpen = before * dice_.Between(0.995, 1.005);
        record.HistoryLow = std::min(record.HistoryOpen, close_) * dice_.Between(0.985, 1);
        record.HistoryHigh = std::max(record.HistoryOpen, close_) * dice_.Between(1, 1.015);
        record.HistoryVolume = dice_.Between(2e4, 5e7);
        record.HistoryPE = earnings_ > 0 ? close_ / earnings_ : 0;
        record.HistoryEPS = earnings_;
        record.HistoryPEG = record.HistoryPE / 9.5;
        record.HistoryEPSest = earnings_ * 1.07;
        record.HistoryDividend = dividend_;
        record.HistoryDividendDate = dividend_ > 0 ? record.HistoryDate : "";
        record.HistoryXDividendDate = record.HistoryDividendDate;
        record.HistoryPreviousClose = before;
        record.History52WeekLow = low52_;
        record.History52WeekHigh = high52_;
        record.HistoryPS = close_ / salesPerShare_;
        RoundHistoryRecord(record);
        record.HistoryMarketCap = record.HistoryClose * shares_;
        return record;
    }

  private:
    Dice dice_;
    double close_;
    double shares_ = 0;
    double earnings_ = 0;
    double salesPerShare_ = 0;
    double dividend_ = 0;
    double low52_ = 0;
    double high52_ = 0;
};

std::string TickerName(std::size_t number) {
    return fmt::format("T{:05}", number);
}

bool WriteTicker(const std::string& quoteFolder, std::size_t number, int years, const Date& today) {
    Walk walk(number);
    std::string text;
    for (int year = static_cast<int>(today.year()) - years + 1; year <= static_cast<int>(today.year());
         ++year) {
        text.clear();
        std::string yy;
        for (Date date = std::chrono::year(year) / 1 / 1;
             date.year() == std::chrono::year(year) && date < today; date = AddDays(date, 1)) {
            if (!IsTradingDay(date)) continue;
            const HistoryRecord record = walk.Day(date);
            yy = YearDigits(record.HistoryDate);
            AppendHistoryLine(record, text);
        }
        const std::optional<Path> path = YearFilePath(quoteFolder, TickerName(number), yy);
        if (!path || WriteWholeFile(*path, text, Flush::Later)) return false;
    }
    return true;
}

// Days of prices that a market folder holds past `today`: a week, in which the market moves no dates.
constexpr int kDaysAhead = 6;

// The prices of a ticker for the practice market, going on for a week behind the database.
std::string MarketPrices(std::size_t number, int years, const Date& today) {
    Walk walk(number);
    std::string text = "Date,Open,High,Low,Close,Volume\n";
    const Date last = AddDays(today, kDaysAhead);
    for (Date date = (today.year() - std::chrono::years(years - 1)) / 1 / 1; date <= last;
         date = AddDays(date, 1)) {
        if (!IsTradingDay(date) && date != last) continue;
        const HistoryRecord day = walk.Day(date);
        fmt::format_to(std::back_inserter(text), "{},{:.3f},{:.3f},{:.3f},{:.3f},{:.0f}\n",
                       FormatIsoDate(date), day.HistoryOpen, day.HistoryHigh, day.HistoryLow,
                       day.HistoryClose, day.HistoryVolume);
    }
    return text;
}

bool WriteMarket(const Wish& wish, const Date& today) {
    const Path folder = wish.market;
    std::error_code error;
    std::filesystem::create_directories(folder / "prices", error);
    std::string tickers = "ticker,name,exchange\n";
    for (std::size_t number = 1; number <= wish.tickers; ++number) {
        const std::string ticker = TickerName(number);
        tickers.append(ticker).append(",Company ").append(ticker).append(",NYSE\n");
        const std::string prices = MarketPrices(number, wish.years, today);
        if (WriteWholeFile(PracticePriceFile(folder, ticker), prices, Flush::Later)) return false;
    }
    return !WriteWholeFile(folder / kPracticeTickerFile, tickers);
}

// The header is that of a new table as the program ships it.
bool WriteTable(const Path& data, std::size_t tickers) {
    const std::string shipped = BytesOrEmpty(Path(BRANTLOW_SOURCE_DIR) / "assets/Data/New EOD Quotes.db");
    std::string_view header;
    if (!LineReader(shipped).Next(header)) return false;
    std::string text(header);
    text += kLineEnd;
    for (std::size_t number = 1; number <= tickers; ++number)
        text.append(TickerName(number)).append(kLineEnd);
    return !WriteWholeFile(data / "Bench.ddq", text);
}

// The settings files that the program ships, the ready-made conditions among them.
bool CopySettings(const Path& data) {
    const Path shipped = Path(BRANTLOW_SOURCE_DIR) / "assets/Data";
    for (const std::string& name : FileNamesIn(shipped)) {
        if (!name.ends_with(".ini")) continue;
        if (WriteWholeFile(data / name, BytesOrEmpty(shipped / name))) return false;
    }
    return true;
}

bool MakeDatabase(const Wish& wish, const Date& today) {
    const Path quotes = Path(wish.folder) / "Quotes" / "EOD";
    const Path data = Path(wish.folder) / "Data";
    std::error_code error;
    std::filesystem::create_directories(quotes, error);
    std::filesystem::create_directories(data, error);
    for (std::size_t number = 1; number <= wish.tickers; ++number) {
        if (!WriteTicker(quotes.string() + "/", number, wish.years, today)) return false;
    }
    return CopySettings(data) && WriteTable(data, wish.tickers);
}

}  // namespace

int main(int argc, char** argv) {
    Wish wish;
    CLI::App app("Makes a benchmark database: year files, settings and the table Data/Bench.ddq");
    app.add_option("folder", wish.folder, "Application folder to fill")->required();
    app.add_option("--tickers", wish.tickers, "Tickers")
        ->capture_default_str()
        ->check(CLI::Range(std::size_t{1}, kMostTickers));
    app.add_option("--years", wish.years, "Years back, the current one included")
        ->capture_default_str()
        ->check(CLI::Range(1, 60));
    app.add_option("--today", wish.today, "Day after the last record, YYYY-MM-DD")->capture_default_str();
    app.add_option("--market", wish.market, "Folder for the prices that a practice market serves of them");
    CLI11_PARSE(app, argc, argv);
    const std::optional<Date> today = ParseDate(wish.today);
    if (!today) {
        fmt::print(stderr, "--today: {} is no date\n", wish.today);
        return 2;
    }
    if (!wish.market.empty() && !WriteMarket(wish, *today)) {
        fmt::print(stderr, "{}: the prices could not be written\n", wish.market);
        return 1;
    }
    if (!MakeDatabase(wish, *today)) {
        fmt::print(stderr, "{}: the database could not be written\n", wish.folder);
        return 1;
    }
    return 0;
}
