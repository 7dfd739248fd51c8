#include <gmock/gmock.h>
#include <httplib.h>

#include <atomic>
#include <thread>

#include "batch_fixture.h"
#include "loopback_host.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;

// A quote host on the loopback: a quote of the day for every ticker, an empty split calendar, a history of
// one day, and an alert page that counts.
class MarketHere {
  public:
    MarketHere() {
        server_.set_tcp_nodelay(true);
        server_.Get("/d/quotes.txt", [](const httplib::Request& request, httplib::Response& response) {
            std::string text;
            std::string ticker;
            for (const char c : request.get_param_value("s") + ",") {
                if (c != ',') {
                    ticker += c;
                } else if (!ticker.empty()) {
                    text += Line(ticker);
                    ticker.clear();
                }
            }
            response.set_content(text, "text/plain");
        });
        server_.Get("/table.txt", [](const httplib::Request&, httplib::Response& response) {
            response.set_content("Date,Open,High,Low,Close,Volume,Adj\n2026-11-19,10,12,9,11,500,11\n",
                                 "text/plain");
        });
        server_.Get("/send_stock_alert.asp", [this](const httplib::Request&, httplib::Response& response) {
            ++alerts;
            response.set_content("sent", "text/plain");
        });
        port_ = server_.bind_to_any_port("127.0.0.1");
        thread_ = std::thread([this] { server_.listen_after_bind(); });
    }
    ~MarketHere() {
        while (!server_.is_running()) std::this_thread::yield();
        server_.stop();
        thread_.join();
    }
    MarketHere(const MarketHere&) = delete;
    MarketHere& operator=(const MarketHere&) = delete;

    std::string HostsFile() const {
        const std::string address = "http://127.0.0.1:" + std::to_string(port_);
        return "QuoteHost=" + address + "\nHistoryHost=" + address + "\nVendorHost=" + address +
               "\nYahooBizHost=" + address + "\n";
    }

    std::atomic<int> alerts = 0;

  private:
    static std::string Line(const std::string& ticker) {
        return "\"" + ticker +
               "\",11,\"11/20/2026\",\"4:01pm\",N/A,1,\"Name\",\"NYSE\",N/"
               "A,11.1,10.9,10,12,0,5,50,1,9,11,1000,1,"
               "1,10,1.5B,2\r\n";
    }

    httplib::Server server_;
    int port_ = 0;
    std::thread thread_;
};

class UpdateCommand : public BatchTest {
  protected:
    UpdateCommand() {
        Write("Data/Hosts.ini", market.HostsFile());
        Write("Data/VTRNETset.ini",
              "\"Yahoo\"\r\n\"\"\r\n\"Yahoo\"\r\n\r\n\r\n15\r\n0\r\n0\r\n\"01/02/04\"\r\n\"Comma\"\r\n");
        Write("Data/Mine.ddq", kBefore);
        Write("Quotes/EOD/keep", "");
        Settings("Automatic Save", "Manual", "Manual");
    }
    // The lines of the data settings that an update looks at.
    void Settings(const std::string& save, const std::string& selector, const std::string& splits) const {
        std::string text;
        for (int line = 1; line <= 19; ++line) {
            std::string value;
            if (line == 6) value = "2";
            if (line == 7) value = save;
            if (line == 8) value = "Automatic Save";
            if (line == 14) value = "E-mail Alerts";
            if (line == 16) value = selector;
            if (line == 19) value = splits;
            text += "\"" + value + "\"\r\n";
        }
        Write("Data/VTRDATAset.ini", text);
    }
    CallResult Do(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2026-11-21"});
        return Call(arguments);
    }

    static constexpr const char* kBefore =
        "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\nAAA\t1.000\t11\t\r\nBBB\t2.000\t\t5\r\n";
    static constexpr const char* kAfter =
        "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\nAAA\t11.000\t11\t\r\nBBB\t11.000\t\t5\r\n";

    MarketHere market;
};

TEST_F(UpdateCommand, BringsTableAndDatabaseUpToDateAndAsksForTheAlert) {
    const CallResult result = Do({"update", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
    EXPECT_EQ(result.err, "2 of 2 quotes\n");
    EXPECT_EQ(Read("Data/Last Run.txt").substr(0, 19), "Update of Mine.ddq,");
    EXPECT_THAT(Read("Data/Last Run.txt"),
                HasSubstr("\r\n2 of 2 quotes\r\n\r\nAAA: stored\r\nBBB: stored\r\n"));
    EXPECT_EQ(result.out,
              "Tickers: 2\nBatches: 1\nBatches without reply: 0\nQuotes for the database: 2\nDays stored: 2\n"
              "Saved: Mine.ddq\n");
    EXPECT_EQ(Read("Data/Mine.ddq"), kAfter);
    EXPECT_EQ(Read("Quotes/EOD/AAA.26"),
              "\"11/20/26\",\"16:01\",11,9,12,1000,11,1,1,1,0,\"\",\"\",10,5,50,2,1500,10\r\n");
    EXPECT_EQ(market.alerts, 1);
    EXPECT_EQ(Read("Import.Txt") + Read("Temp.txt"), "");
}

TEST_F(UpdateCommand, WithManualSaveTheFileStaysAndALineSaysSo) {
    Settings("Manual Save", "Manual", "Manual");
    const CallResult result = Do({"update", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.err, "2 of 2 quotes\nManual Save: Mine.ddq stays as it is\n");
    EXPECT_EQ(Read("Data/Mine.ddq"), kBefore);
    EXPECT_NE(Read("Quotes/EOD/AAA.26"), "");
}

TEST_F(UpdateCommand, TheSelectorThatFollowsSavesItsTable) {
    Settings("Automatic Save", "Automatic", "Manual");
    const CallResult result = Do({"update", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
    EXPECT_THAT(result.out, HasSubstr("Saved: Mine.ddq\nSaved: Evaluations.dbe\nTickers: 2\n"));
    EXPECT_THAT(Read("Data/Evaluations.dbe"), HasSubstr("AAA\t"));
    EXPECT_EQ(Read("Data/Mine.ddq"), kAfter);
}

TEST_F(UpdateCommand, TheSplitCalendarIsLookedAt) {
    Settings("Automatic Save", "Manual", "Automatic");
    EXPECT_THAT(Do({"update", "Mine.ddq"}).out, HasSubstr("Histories adjusted: 0\n"));
}

TEST_F(UpdateCommand, AHostThatIsNotThereLeavesTheQuotes) {
    Write("Data/Hosts.ini", "QuoteHost=http://127.0.0.1:1\n");
    const CallResult result = Do({"update", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "No reply from http://127.0.0.1:1 : could not connect; nothing was changed\n");
    EXPECT_THAT(result.out, HasSubstr("Batches: 1\nBatches without reply: 1\n"));
    EXPECT_EQ(Read("Data/Mine.ddq"), kBefore);
}

TEST_F(UpdateCommand, AHostThatIsNotThereLeavesEveryFileButTheListOfTheRun) {
    Write("Data/Hosts.ini", "QuoteHost=http://127.0.0.1:1\nYahooBizHost=http://127.0.0.1:1\n");
    Write("Quotes/EOD/QuoteList.ddq", "2\r\n\"AAA\"\r\n\"BBB\"\r\n");
    Write("Import.Txt", "left from before");
    Settings("Automatic Save", "Automatic", "Automatic");
    const auto before = Everything();
    EXPECT_EQ(Do({"update", "Mine.ddq"}).status, ExitStatus::Refused);
    std::filesystem::remove(folder / "Data/Last Run.txt");
    EXPECT_EQ(Everything(), before);
}

TEST_F(UpdateCommand, ATickerThatCannotBeAskedForSpoilsNoBatch) {
    Write("Data/Mine.ddq",
          "Ticker Symbol\tLast Price\r\nA&B\t1.000\r\nAAA\t1.000\r\nB C\t1.000\r\nBBB\t2.000\r\n");
    const CallResult result = Do({"update", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Partly);
    EXPECT_EQ(result.err,
              "2 of 4 quotes\nLeft out: a ticker with a blank or one of & # ? % , cannot be asked for (2 "
              "tickers: A&B, B C)\n");
    EXPECT_EQ(Read("Data/Mine.ddq"),
              "Ticker Symbol\tLast Price\r\nA&B\t1.000\r\nAAA\t11.000\r\nB C\t1.000\r\nBBB\t11.000\r\n");
}

TEST_F(UpdateCommand, AWebPageInPlaceOfQuotesIsTold) {
    LoopbackHost host;
    host.Answer("/d/quotes.txt", [](const httplib::Request&, httplib::Response& response) {
        response.set_content("<html><body>Sign in to the network</body></html>", "text/html");
    });
    const std::string address = host.Start();
    Write("Data/Hosts.ini", "QuoteHost=" + address + "\n");
    const CallResult result = Do({"update", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err,
              "No data from " + address + " : a web page in place of data; nothing was changed\n");
}

TEST_F(UpdateCommand, RefusesWhatIsNoEndOfDayFile) {
    Write("Data/Evaluations.dbe", "Ticker Symbol\tCondition 1\r\nAAA\r\n");
    struct Row {
        const char* name;
        const char* err;
    };
    constexpr Row kRows[] = {{"None.ddq", "None.ddq: no such file in Data\n"},
                             {"../Mine.ddq", "../Mine.ddq: no such file in Data\n"},
                             {"Evaluations.dbe", "Evaluations.dbe: no end-of-day file\n"}};
    for (const Row& row : kRows) {
        const CallResult result = Do({"update", row.name});
        EXPECT_EQ(result.status, ExitStatus::Refused);
        EXPECT_EQ(result.err, row.err);
        EXPECT_EQ(result.out, "");
    }
}

TEST_F(UpdateCommand, AUserSourceWithoutAnAddressIsRefusedInItsWords) {
    Write("Data/VTRNETset.ini", "\"Yahoo\"\r\n\"\"\r\n\"User Selected String\"\r\n\r\n\r\n15\r\n0\r\n0\r\n");
    const CallResult result = Do({"update", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "Go to Settings, Application, Quote and Web Settings to set up Quote Downloads.\n");
}

TEST_F(UpdateCommand, CtrlCStopsAndLeavesEveryFileWhole) {
    std::string table = "Ticker Symbol\tLast Price\r\n";
    for (int i = 1; i <= 200; ++i) table += "T" + std::to_string(i) + "\t\r\n";
    Write("Data/Mine.ddq", table);
    const CallResult result = CallWith({"--today", "2026-11-21", "update", "Mine.ddq"},
                                       folder / "brantlow-batch", [] { return true; });
    EXPECT_EQ(result.status, ExitStatus::Interrupted);
    const std::string after = Read("Data/Mine.ddq");
    EXPECT_EQ(std::count(after.begin(), after.end(), '\n'), 201);
    EXPECT_EQ(Read("Temp.txt"), "");
}

TEST_F(UpdateCommand, AddFetchesTheHistoryAndSortsTheTable) {
    Settings("Manual Save", "Manual", "Manual");
    const CallResult result = Do({"add", "Mine.ddq", "aab", "bbb", "ccc"});
    EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
    EXPECT_EQ(result.out, "Added: AAB\nAdded: CCC\n");
    EXPECT_EQ(Read("Data/Mine.ddq"),
              "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\nAAA\t1.000\t11\t\r\nAAB\t\t\t\r\n"
              "BBB\t2.000\t\t5\r\nCCC\t\t\t\r\n");
    EXPECT_EQ(Read("Quotes/EOD/AAB.26"),
              "\"11/19/26\",\"\",11,9,12,500,0,0,0,0,0,\"\",\"\",0,0,0,0,0,10\r\n");
}

}  // namespace
}  // namespace brantlow
