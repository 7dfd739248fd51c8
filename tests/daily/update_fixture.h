// What the tests of the end-of-day update share: a table, a web in memory and reply lines.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "acquire/memory_web.h"
#include "daily/update_quotes.h"
#include "support/session_fixture.h"

namespace brantlow {

inline constexpr const char* kQuoteHost = "http://quotes.test";

// Plenty of memory, and next to none.
inline std::string MuchMemory() {
    return "MemTotal: 1000 kB\nMemAvailable: 900 kB\n";
}
inline std::string LittleMemory() {
    return "MemTotal: 1000 kB\nMemAvailable: 50 kB\n";
}

// A line of the standard source. A field that a test names replaces the sample's.
class ReplyLine {
  public:
    explicit ReplyLine(const std::string& ticker) { fields_[0] = "\"" + ticker + "\""; }
    // Fields are numbered from 1.
    ReplyLine& With(std::size_t field, const std::string& text) {
        fields_[field - 1] = text;
        return *this;
    }
    std::string Text(char separator = ',') const {
        std::string line;
        for (const std::string& field : fields_) {
            if (!line.empty()) line += separator;
            line += field;
        }
        return line + "\r\n";
    }

  private:
    std::vector<std::string> fields_ = {"",
                                        "110",
                                        "\"3/15/2024\"",
                                        "\"4:01pm\"",
                                        "\"3/1/2024\"",
                                        "10",
                                        "\"Name, Inc\"",
                                        "\"NYSE\"",
                                        "\"2/1/2024\"",
                                        "111",
                                        "109",
                                        "101",
                                        "112",
                                        "2",
                                        "50",
                                        "120",
                                        "5",
                                        "99",
                                        "22",
                                        "12345",
                                        "1.5",
                                        "6",
                                        "100",
                                        "1.2B",
                                        "3"};
};

class UpdateTest : public SessionTest {
  protected:
    UpdateTest() {
        session.settings.QuoteHost = kQuoteHost;
        SetLines(session.settings.NetSettings,
                 {"Yahoo", "", "Yahoo", "", "", "15", "0", "0", "01/02/04", "Comma"});
        web.AnswerWith([this](const WebRequest& request) { return Answer(request); });
    }

    // The row of the sample line in a table with the columns of `header`.
    UpdateOutcome Update() { return UpdateQuotes(work); }

    static QuoteTable Tickers(std::size_t count, const std::string& columns = "\tLast Price") {
        QuoteTable table;
        table.AppendLine("Ticker Symbol" + columns);
        for (std::size_t i = 1; i <= count; ++i) table.AppendLine("T" + std::to_string(i));
        return table;
    }

    // The tickers that an address of the standard source asks for.
    static std::vector<std::string> AskedTickers(const std::string& url) {
        const std::size_t begin = url.find("?s=") + 3;
        const std::string list = url.substr(begin, url.find("&f=") - begin);
        std::vector<std::string> tickers;
        for (const std::string_view ticker : SplitAtCommas(list)) tickers.emplace_back(ticker);
        return tickers;
    }

    // A line for every ticker asked for.
    WebReply Answer(const WebRequest& request) {
        std::string text;
        for (const std::string& ticker : AskedTickers(request.url)) {
            if (!ticker.empty()) text += lines.count(ticker) ? lines[ticker] : ReplyLine(ticker).Text();
        }
        return MemoryWeb::Page(text);
    }

    static std::vector<std::string_view> SplitAtCommas(std::string_view text) {
        std::vector<std::string_view> pieces;
        for (;;) {
            const std::size_t comma = text.find(',');
            pieces.push_back(text.substr(0, comma));
            if (comma == std::string_view::npos) return pieces;
            text.remove_prefix(comma + 1);
        }
    }

    // The reply lines of tickers that do not get the sample's.
    std::map<std::string, std::string> lines;
    QuoteTable table = Tickers(1);
    MemoryWeb web;
    Hosts hosts = Hosts::Parse("VendorHost=http://vendor.test\nMarket.Germany=http://de.test\n");
    QuoteArrays rows;
    AlertedTickers alerted;
    UpdateWork work{session, table, web, hosts, rows, alerted, MuchMemory};
};

}  // namespace brantlow
