// What the tests of the end-of-day update share: a table, a web in memory and reply lines.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "acquire/web/memory_web.h"
#include "daily/reply_line.h"
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

    // A line for every ticker asked for.
    WebReply Answer(const WebRequest& request) {
        std::string text;
        for (const std::string& ticker : AskedTickers(request.url)) {
            if (!ticker.empty()) text += lines.count(ticker) ? lines[ticker] : ReplyLine(ticker).Text();
        }
        return MemoryWeb::Page(text);
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
