#include <gmock/gmock.h>
#include <httplib.h>

#include <map>
#include <thread>

#include "batch_fixture.h"
#include "store/columns.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;

// A quote host on the loopback that knows the key statistics of IBM and has no other page.
class QuoteHostHere {
  public:
    QuoteHostHere() {
        server_.set_tcp_nodelay(true);
        server_.Get("/q/ks", [](const httplib::Request& request, httplib::Response& response) {
            if (request.get_param_value("s") != "IBM") {
                response.status = 404;
                return;
            }
            response.set_content(
                "<table><tr><td>Market Cap (intraday):</td><td>1.50B</td></tr>"
                "<tr><td>Beta:</td><td>1.05</td></tr></table>",
                "text/html");
        });
        port_ = server_.bind_to_any_port("127.0.0.1");
        thread_ = std::thread([this] { server_.listen_after_bind(); });
    }
    ~QuoteHostHere() {
        while (!server_.is_running()) std::this_thread::yield();
        server_.stop();
        thread_.join();
    }
    QuoteHostHere(const QuoteHostHere&) = delete;
    QuoteHostHere& operator=(const QuoteHostHere&) = delete;

    std::string Address() const { return "http://127.0.0.1:" + std::to_string(port_); }

  private:
    httplib::Server server_;
    int port_ = 0;
    std::thread thread_;
};

class FundamentalsCommand : public BatchTest {
  protected:
    FundamentalsCommand() {
        Write("Data/Hosts.ini", "QuoteHost=" + host.Address() + "\n");
        Write("Data/Mine.ddq", "Ticker Symbol\tLast Price\r\n^DJI\t1\r\nIBM\t2\r\nGONE\t3\r\n");
    }
    CallResult Fundamentals(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2026-11-21", "fundamentals"});
        return Call(arguments);
    }

    QuoteHostHere host;
};

const std::string kCollected = EfqHeader() + "\r\n^DJI" + std::string(58, '\t') + "\r\nIBM\t1500000000" +
                               std::string(29, '\t') + "1.05" + std::string(28, '\t') + "\r\nGONE" +
                               std::string(58, '\t') + "\r\n";
constexpr std::string_view kCountsWithoutOne = "Tickers: 3\nTickers without values: 1\n  GONE\n";

TEST_F(FundamentalsCommand, SavesTheTableAndPrintsWhatGaveNoValue) {
    const CallResult result = Fundamentals({"Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.err, "1 of 3 tickers, 1 ticker unknown: GONE\n");
    EXPECT_EQ(result.out, "Saved: ExtendedFundamentals.efq\n" + std::string(kCountsWithoutOne));
    EXPECT_EQ(Read("Data/ExtendedFundamentals.efq"), kCollected);
    EXPECT_EQ(Read("Data/11-21-26.efq"), "");
}

TEST_F(FundamentalsCommand, OutTakesTheTableAndTheWorkingFileOfBeforeStays) {
    Write("Data/ExtendedFundamentals.efq", "of yesterday");
    const CallResult result = Fundamentals({"Mine.ddq", "--out", "Kept.efq"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, "Saved: Kept.efq\n" + std::string(kCountsWithoutOne));
    EXPECT_EQ(Read("Data/Kept.efq"), kCollected);
    EXPECT_EQ(Read("Data/ExtendedFundamentals.efq"), "of yesterday");
}

TEST_F(FundamentalsCommand, AHostThatIsNotThereLeavesTheTableOfBefore) {
    Write("Data/Hosts.ini", "QuoteHost=http://127.0.0.1:1\n");
    Write("Data/ExtendedFundamentals.efq", "of yesterday");
    const auto before = Everything();
    const CallResult result = Fundamentals({"Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err,
              "No reply from http://127.0.0.1:1 : could not connect; http://127.0.0.1:1 was given up after 3 "
              "requests without a reply; nothing was changed\n");
    EXPECT_EQ(result.out, "");
    std::filesystem::remove(folder / "Data/Last Run.txt");
    EXPECT_EQ(Everything(), before);
}

TEST_F(FundamentalsCommand, OutMustBeAFundamentalsFileInData) {
    struct Row {
        const char* name;
        const char* reason;
    };
    constexpr Row kRows[] = {{"Kept.dbe", "'Kept.dbe' does not end in .efq"},
                             {"../Kept.efq", "'../Kept.efq' is not in Data"},
                             {".efq", "'.efq' is no name"}};
    const auto before = Everything();
    for (const Row& row : kRows) {
        const CallResult result = Fundamentals({"Mine.ddq", "--out", row.name});
        EXPECT_EQ(result.status, ExitStatus::Usage) << row.name;
        EXPECT_THAT(result.err, HasSubstr(row.reason));
    }
    EXPECT_EQ(Everything(), before);
}

TEST_F(FundamentalsCommand, OtherKindsAreRefusedInTheProgramsOwnWords) {
    Write("Data/New EOD Quotes.db", "Ticker Symbol\r\n");
    Write("Data/Old.efq", "Symbol\r\nIBM\r\n");
    Write("Data/Old.dbe", "Ticker Symbol\r\nIBM\r\n");
    const auto before = Everything();
    struct Row {
        const char* name;
        const char* sentence;
    };
    constexpr const char* kNeed =
        "To run Extended Fundamentals, you will need to open an End of Day Quote File\n";
    constexpr Row kRows[] = {
        {"New EOD Quotes.db",
         "To access Extended Fundamental data, you will need to open an End of Day Quote File\n"},
        {"Old.efq", kNeed},
        {"Old.dbe", kNeed},
        {"Hosts.ini", kNeed},
        {"None.ddq", "None.ddq: no such file in Data\n"}};
    for (const Row& row : kRows) {
        const CallResult result = Fundamentals({row.name});
        EXPECT_EQ(result.status, ExitStatus::Refused) << row.name;
        EXPECT_EQ(result.err, row.sentence);
        EXPECT_EQ(result.out, "");
    }
    EXPECT_EQ(Everything(), before);
}

TEST_F(FundamentalsCommand, CtrlCLeavesAWholeFile) {
    const CallResult result = CallWith({"--today", "2026-11-21", "fundamentals", "Mine.ddq"},
                                       folder / "brantlow-batch", [] { return true; });
    EXPECT_EQ(result.status, ExitStatus::Interrupted);
    EXPECT_THAT(result.out, HasSubstr("Tickers: 1 of 3\n"));
    EXPECT_THAT(Read("Data/ExtendedFundamentals.efq"),
                HasSubstr("\r\nGONE" + std::string(58, '\t') + "\r\n"));
}

TEST_F(FundamentalsCommand, ATableThatCannotBeSavedIsNamed) {
    std::filesystem::create_directories(folder / "Data/Out.efq");
    const CallResult result = Fundamentals({"Mine.ddq", "--out", "Out.efq"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "Extended Fundamentals failed: " + (folder / "Data/Out.efq").string() +
                              ": cannot be saved (Is a directory); nothing was changed\n");
}

}  // namespace
}  // namespace brantlow
