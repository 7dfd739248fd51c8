// Year files of many tickers, orderly and odd ones, for tests that compare two roads through them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "history_fixture.h"
#include "indicators/year_plan.h"
#include "store/history_record.h"

namespace brantlow {

using Random = std::mt19937_64;

inline bool OneIn(Random& random, std::uint64_t count) {
    return random() % count == 0;
}

// What is odd about a ticker's files.
struct Oddities {
    bool shortRows = false;
    bool junk = false;
    bool lfOnly = false;
    bool emptyOpens = false;
    bool zeroPrices = false;
    bool longRows = false;
};

inline std::string RandomNumber(Random& random) {
    const std::uint64_t thousandths = random() % 500000;
    return std::to_string(thousandths / 1000) + "." + std::to_string(thousandths % 1000);
}

inline std::string RandomField(Random& random, std::size_t field, const Oddities& odd) {
    if (odd.junk && OneIn(random, 40)) return std::string("\x00\xff?e9", 5);
    if (kHistoryForms[field] == HistoryForm::Text) {
        return OneIn(random, 5) ? "\"\"" : "\"" + std::to_string(random() % 100) + "/02/2" + "\"";
    }
    const bool isPrice = field == 2 || field == 3 || field == 4;
    if (isPrice && odd.zeroPrices && OneIn(random, 15)) return "0";
    if (field == 18 && odd.emptyOpens && OneIn(random, 3)) return "";
    if (OneIn(random, 12)) return "0";
    return RandomNumber(random);
}

inline std::string RandomRow(Random& random, const Oddities& odd) {
    std::size_t fields = kHistoryFieldCount;
    if (odd.shortRows && OneIn(random, 25)) fields = random() % kHistoryFieldCount;
    if (odd.longRows && OneIn(random, 10)) fields = 19 + random() % 300;
    std::string row;
    for (std::size_t field = 0; field < fields; ++field) {
        if (field > 0) row += ',';
        row += RandomField(random, std::min<std::size_t>(field, 18), odd);
    }
    return row;
}

inline std::string RandomYear(Random& random, std::size_t rows, const Oddities& odd) {
    std::string text;
    for (std::size_t i = 0; i < rows; ++i) {
        text += RandomRow(random, odd);
        if (i + 1 < rows || !OneIn(random, 4)) text += odd.lfOnly ? "\n" : "\r\n";
    }
    return text;
}

class RandomHistories : public HistoryFixture {
  protected:
    // `oddOneIn` tickers show each oddity.
    void MakeTicker(const std::string& name, std::size_t mostRowsAYear, std::uint64_t oddOneIn) {
        Oddities odd;
        for (bool* oddity :
             {&odd.shortRows, &odd.junk, &odd.lfOnly, &odd.emptyOpens, &odd.zeroPrices, &odd.longRows}) {
            *oddity = OneIn(random, oddOneIn);
        }
        const bool young = OneIn(random, 4);
        const bool gone = OneIn(random, 6);
        const std::vector<std::string> years = YearTexts(kTestDay, kFullYears);
        for (std::size_t y = 0; y < years.size(); ++y) {
            if (young && y + 2 < years.size()) continue;
            if ((gone && y + 1 == years.size()) || OneIn(random, 12)) continue;
            const std::size_t rows = OneIn(random, 10) ? random() % 3 : random() % (mostRowsAYear + 1);
            WriteYear(name, years[y], RandomYear(random, rows, odd));
        }
        tickers.push_back(name);
    }

    void MakeDatabase(std::size_t count, std::uint64_t oddOneIn) {
        for (std::size_t i = 0; i < count; ++i) {
            constexpr std::size_t kMostRowsAYear[] = {4, 12, 60, 150, 260};
            MakeTicker("T" + std::to_string(i), kMostRowsAYear[random() % std::size(kMostRowsAYear)],
                       oddOneIn);
        }
        for (const char* without : {"NONE", "../x", "CON", ""}) tickers.emplace_back(without);
        std::shuffle(tickers.begin(), tickers.end(), random);
    }

    // A ticker with the recent years' full rows, as most have; every `oddOneIn`th has short rows in a year.
    void MakeFullTicker(const std::string& name, std::uint64_t oddOneIn) {
        const bool isOdd = OneIn(random, oddOneIn);
        const std::vector<std::string> years = YearTexts(kTestDay, kRecentYears);
        const std::size_t oddYear = random() % years.size();
        for (std::size_t y = 0; y < years.size(); ++y) {
            if (OneIn(random, 40)) continue;
            const Oddities odd{.shortRows = isOdd && y == oddYear};
            const std::size_t rows = OneIn(random, 20) ? random() % 400 : 140 + random() % 120;
            WriteYear(name, years[y], RandomYear(random, rows, odd));
        }
        tickers.push_back(name);
    }

    Random random{20260302};
    std::vector<std::string> tickers;
};

}  // namespace brantlow
