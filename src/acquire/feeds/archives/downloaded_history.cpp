#include "acquire/feeds/archives/downloaded_history.h"

#include <array>
#include <charconv>
#include <cmath>

#include "base/plain_number.h"
#include "base/text.h"

namespace brantlow {

namespace {

using std::chrono::sys_days;

enum Column { kDay, kOpen, kHigh, kLow, kClose, kVolume, kTicker, kPeriod, kColumnCount };

struct ColumnName {
    std::string_view name;
    Column column;
};
constexpr std::array<ColumnName, 9> kColumnNames = {{{"DATE", kDay},
                                                     {"OPEN", kOpen},
                                                     {"HIGH", kHigh},
                                                     {"LOW", kLow},
                                                     {"CLOSE", kClose},
                                                     {"VOL", kVolume},
                                                     {"VOLUME", kVolume},
                                                     {"TICKER", kTicker},
                                                     {"PER", kPeriod}}};

constexpr std::size_t kMostFields = 32;
constexpr std::size_t kNone = kMostFields;
constexpr sys_days kFirstDay{std::chrono::year{1930} / 1 / 1};

// A line's fields, without storage of its own.
struct Fields {
    std::array<std::string_view, kMostFields> texts;
    std::size_t count = 0;  // kMostFields + 1 for more than there is room for
};

void ReadFields(std::string_view line, Fields& fields) {
    fields.count = 0;
    const char* begin = line.data();
    const char* const end = begin + line.size();
    // Fields are short: a search for each costs more than the bytes do.
    for (const char* at = begin;; ++at) {
        if (at != end && *at != ',') continue;
        if (fields.count == kMostFields) {
            ++fields.count;
            return;
        }
        fields.texts[fields.count++] = {begin, at};
        if (at == end) return;
        begin = at + 1;
    }
}

bool ReadWhole(std::string_view text, double& number) {
    const char* const last = text.data() + text.size();
    if (ReadPlainNumber(text.data(), last, number) == last) return true;
    const auto [end, error] = std::from_chars(text.data(), last, number);
    if (error == std::errc() && end == last) return true;
    // Blanks are rare enough to be looked for only here.
    const std::string_view bare = Trim(text);
    return bare.size() < text.size() && !bare.empty() && ReadWhole(bare, number);
}

// Digits alone.
bool ReadDigits(std::string_view text, unsigned& number) {
    number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return false;
        number = number * 10 + static_cast<unsigned>(c - '0');
    }
    return true;
}

// "20240102" or "2024-01-02".
std::optional<sys_days> DayOfText(std::string_view text) {
    text = Trim(text);
    constexpr std::size_t kPlain = 8;
    constexpr std::size_t kIso = 10;
    const bool isIso = text.size() == kIso && text[4] == '-' && text[7] == '-';
    if (!isIso && text.size() != kPlain) return std::nullopt;
    unsigned year = 0;
    unsigned month = 0;
    unsigned day = 0;
    const std::size_t step = isIso ? 1 : 0;
    const bool isRead = ReadDigits(text.substr(0, 4), year) && ReadDigits(text.substr(4 + step, 2), month) &&
                        ReadDigits(text.substr(6 + 2 * step, 2), day);
    const std::chrono::year_month_day date{std::chrono::year{static_cast<int>(year)},
                                           std::chrono::month{month}, std::chrono::day{day}};
    if (!isRead || !date.ok()) return std::nullopt;
    return sys_days{date};
}

std::string Quoted(std::string_view text) {
    return "'" + ServerWords(text) + "'";
}

class Reading {
  public:
    Reading(std::string_view name, sys_days today) : today_(today) {
        history_.symbol = SymbolOfFileName(name);
    }

    DownloadedHistory Run(std::string_view bytes) {
        constexpr std::string_view kMark = "\xEF\xBB\xBF";
        if (bytes.starts_with(kMark)) bytes.remove_prefix(kMark.size());
        LineReader lines(bytes);
        std::string_view line;
        if (!lines.Next(line)) return std::move(history_);
        ++line_;
        // A row has some forty bytes at least.
        constexpr std::size_t kBytesOfRow = 48;
        history_.days.bars.reserve(bytes.size() / kBytesOfRow);
        if (TakeHead(line)) TakeRows(lines);
        if (history_.days.refusal.empty()) FinishBars(history_.days, false);
        return std::move(history_);
    }

  private:
    bool Refuse(std::string why) {
        history_.days.Refuse(std::move(why));
        history_.line = line_;
        return false;
    }

    bool TakeHead(std::string_view line) {
        Fields& head = row_;
        ReadFields(line, head);
        places_.fill(kNone);
        for (std::size_t i = 0; i < std::min(head.count, kMostFields); ++i) {
            std::string_view name = Trim(head.texts[i]);
            if (name.size() > 1 && name.front() == '<' && name.back() == '>') {
                name = name.substr(1, name.size() - 2);
            }
            for (const ColumnName& row : kColumnNames) {
                if (EqualIgnoringCase(name, row.name)) places_[row.column] = i;
            }
        }
        count_ = head.count;
        for (const ColumnName& row : kColumnNames) {
            if (row.column < kVolume && places_[row.column] == kNone) {
                return Refuse("it names no column " + std::string(row.name));
            }
        }
        return count_ <= kMostFields || Refuse("it names too many columns");
    }

    void TakeRows(LineReader& lines) {
        for (std::string_view line; lines.Next(line);) {
            ++line_;
            if (Trim(line).empty()) continue;
            ReadFields(line, row_);
            if (!TakeRow(row_)) return;
        }
    }

    bool TakeRow(const Fields& row) {
        if (row.count != count_) {
            return Refuse(std::to_string(row.count) + " fields in place of " + std::to_string(count_));
        }
        if (!IsOfTicker(row) || !IsOfDays(row)) return false;
        const auto day = DayOfText(row.texts[places_[kDay]]);
        if (!day) return Refuse(Quoted(row.texts[places_[kDay]]) + " is no day");
        if (*day > today_) return Refuse(FormatIsoDate(Date{*day}) + " is still to come");
        if (last_ && *day == *last_) return Refuse(FormatIsoDate(Date{*day}) + " stands there twice");
        last_ = day;
        SourceBar bar;
        bar.day = *day;
        const bool isRead = TakePrice(row, kOpen, bar.open) && TakePrice(row, kHigh, bar.high) &&
                            TakePrice(row, kLow, bar.low) && TakePrice(row, kClose, bar.close) &&
                            TakeVolume(row, bar.volume);
        if (!isRead) return false;
        if (!(bar.close > 0)) {
            ++history_.days.withoutPrice;
        } else if (*day >= kFirstDay) {
            history_.days.bars.push_back(bar);
        }
        return true;
    }

    bool IsOfTicker(const Fields& row) {
        if (places_[kTicker] == kNone) return true;
        if (!ticker_.empty() && row.texts[places_[kTicker]] == ticker_) return true;
        const std::string_view ticker = Trim(row.texts[places_[kTicker]]);
        if (ticker.empty()) return Refuse("a row of no ticker");
        if (ticker == ticker_) return true;
        if (!ticker_.empty()) return Refuse("a row of " + Quoted(ticker) + " behind those of " + ticker_);
        ticker_ = ticker;
        history_.symbol = ticker;
        return true;
    }

    bool IsOfDays(const Fields& row) {
        if (places_[kPeriod] == kNone) return true;
        if (row.texts[places_[kPeriod]] == "D") return true;
        const std::string_view period = Trim(row.texts[places_[kPeriod]]);
        return EqualIgnoringCase(period, "D") || Refuse("its period is " + Quoted(period) + ", no day");
    }

    bool TakePrice(const Fields& row, Column column, double& price) {
        const std::string_view text = row.texts[places_[column]];
        if (ReadWhole(text, price) && std::isfinite(price) && std::abs(price) <= kHighestPrice) return true;
        return Refuse(Quoted(text) + " is no price");
    }

    bool TakeVolume(const Fields& row, double& volume) {
        if (places_[kVolume] == kNone || Trim(row.texts[places_[kVolume]]).empty()) return true;
        const std::string_view text = row.texts[places_[kVolume]];
        if (ReadWhole(text, volume) && volume >= 0 && volume <= kHighestVolume) return true;
        return Refuse(Quoted(text) + " is no volume");
    }

    sys_days today_;
    DownloadedHistory history_;
    std::array<std::size_t, kColumnCount> places_{};
    std::size_t count_ = 0;
    Fields row_;
    std::size_t line_ = 0;
    std::string ticker_;
    std::optional<sys_days> last_;
};

}  // namespace

const SymbolNotation& ArchiveNotation() {
    static const SymbolNotation notation = [] {
        SymbolNotation made;
        made.classMark = "-";
        made.preferredMark = "_";
        made.foreignMark = ".";
        made.asIsIndices = true;
        made.ending = ".us";
        made.lowerCase = true;
        made.names = {{"^GSPC", "^spx"}};
        return made;
    }();
    return notation;
}

bool IsHistoryFileName(std::string_view name) {
    const std::string bare = UpperCase(name.substr(name.find_last_of("/\\") + 1));
    constexpr std::size_t kEnding = 4;
    return bare.size() > kEnding && bare.front() != '.' && (bare.ends_with(".TXT") || bare.ends_with(".CSV"));
}

std::string SymbolOfFileName(std::string_view name) {
    std::string_view bare = name.substr(name.find_last_of("/\\") + 1);
    bare = bare.substr(0, bare.rfind('.'));
    if (bare.size() > 1 && bare.front() == '_') bare.remove_prefix(1);
    return std::string(bare);
}

DownloadedHistory ReadDownloadedHistory(std::string_view name, std::string_view bytes, sys_days today) {
    return Reading(name, today).Run(bytes);
}

}  // namespace brantlow
