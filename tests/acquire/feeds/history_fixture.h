// An application folder of the test's own, a web in memory and the day of the history tests: Monday, March 2,
// 2026.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/history_address.h"
#include "acquire/feeds/history_download.h"
#include "acquire/web/memory_web.h"
#include "base/values.h"
#include "support/recording_person.h"
#include "support/temp_folder.h"

namespace brantlow {

class HistoryDownloadFixture : public testing::Test {
  protected:
    HistoryDownloadFixture() {
        session.settings.QuoteFolder = (folder / "Quotes").string() + "/";
        std::filesystem::create_directories(folder / "Quotes");
        session.settings.DataSettings.Set(6, Value::OfNumber(10));
        const std::vector<std::string> net = {"Yahoo", "", "Yahoo", "", "", "15", "0", "0", "01/02/04"};
        for (std::size_t i = 0; i < net.size(); ++i) SetNet(i + 1, net[i]);
    }

    void SetNet(std::size_t line, std::string_view text) {
        session.settings.NetSettings.Set(line, Value::OfRawLine(text));
    }
    void UseUserSource(std::string_view url) {
        SetNet(3, "User Selected String");
        SetNet(5, url);
    }
    std::string UrlOf(std::string_view ticker) const {
        return RequestAddress(StandardHistoryUrl(hosts, ticker, HistorySpanOf(clock.Today(), 10)));
    }
    void Answer(std::string_view ticker, const std::string& reply) {
        web.Answer(UrlOf(ticker), MemoryWeb::Page(reply));
    }
    HistoryDownload Download(std::string_view ticker) {
        return DownloadTickerHistory(session, web, hosts, ticker);
    }

    void Write(std::string_view name, std::string_view bytes) const {
        ASSERT_FALSE(WriteWholeFile(folder / "Quotes" / Path(name), bytes, Flush::Later)) << name;
    }
    std::string Read(std::string_view name) const { return BytesOrEmpty(folder / "Quotes" / Path(name)); }
    // The names of the database's files, sorted.
    std::vector<std::string> Files() const { return FileNamesIn(folder / "Quotes"); }

    // A record of the database as a download writes it.
    static std::string Record(const std::string& date, const std::string& closeLowHighVolume,
                              const std::string& open) {
        return "\"" + date + "\",\"\"," + closeLowHighVolume + ",0,0,0,0,0,\"\",\"\",0,0,0,0,0," + open +
               "\r\n";
    }

    TempFolder folder;
    FixedClock clock{std::chrono::year(2026) / 3 / 2};
    RecordingPerson person;
    Session session{folder.Get(), clock, person};
    MemoryWeb web{&person};
    Hosts hosts;
};

// Three days of two years, newest first, in the form of the standard source.
inline const std::string kThreeDays =
    "Date,Open,High,Low,Close,Volume,Adj. Close*\n"
    "2-Jan-26,10.5,11,10,10.75,1200,10.75\n"
    "31-Dec-25,9.5,10.25,9.125,10,1100,10\n"
    "30-Dec-25,9,9.5,8.75,9.25,1000,9.25\n";

}  // namespace brantlow
