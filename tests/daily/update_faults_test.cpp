// What a source can do wrong. Rows and files that were not concerned are byte for byte what they were.
#include "daily/update_fixture.h"

namespace brantlow {
namespace {

using Lines = std::vector<std::string>;

class UpdateFaultsTest : public UpdateTest {
  protected:
    UpdateFaultsTest() {
        table = QuoteTable();
        table.AppendLine("Ticker Symbol\tLast Price\tName");
        for (int i = 1; i <= 31; ++i) table.AppendLine("T" + std::to_string(i) + "\t1.000\told");
        Write("Data/Mine.ddq", "saved");
        Write("Quotes/EOD/T1.24", "history");
        files = Everything();
    }

    // The second batch, rows 16 to 30, gets `reply`; the others are sound.
    void SecondBatchGets(const WebReply& reply) {
        web.AnswerWith([this, reply](const WebRequest& request) {
            return AskedTickers(request.url).front() == "T16" ? reply : Answer(request);
        });
    }
    void ExpectOnlyTheSecondBatchUntouched(const char* what) {
        for (std::size_t row = 1; row <= 31; ++row) {
            const bool concerned = row >= 16 && row <= 30;
            EXPECT_EQ(table.Text(row, 1), concerned ? "1.000" : "110.000") << what << ' ' << row;
            EXPECT_EQ(table.Text(row, 2), concerned ? "old" : "Name, Inc") << what << ' ' << row;
        }
        DeleteOneFile(folder / "Import.Txt");
        EXPECT_EQ(Everything(), files) << what;
    }

    Lines files;
};

TEST_F(UpdateFaultsTest, ABatchWhoseReplyDoesNotComeIsPassedOverWithoutAWord) {
    for (const WebFailure failure :
         {WebFailure::BadAddress, WebFailure::Offline, WebFailure::NoConnection, WebFailure::Broken,
          WebFailure::Status, WebFailure::TooLarge, WebFailure::Busy}) {
        table.SetText(16, 1, "1.000");
        SecondBatchGets(FailedReply(failure, "no"));
        const UpdateOutcome outcome = Update();
        EXPECT_EQ(outcome.batches, 3U);
        EXPECT_EQ(outcome.failedBatches, 1U);
        ExpectOnlyTheSecondBatchUntouched("failed");
    }
    EXPECT_TRUE(person.said.empty());
}

TEST_F(UpdateFaultsTest, APageOfWhichOnlyAPartCameInItsTimeCountsAsNone) {
    WebReply reply = FailedReply(WebFailure::TimedOut, "late");
    reply.status = 200;
    reply.bytes = ReplyLine("T16").Text();
    SecondBatchGets(reply);
    EXPECT_EQ(Update().failedBatches, 1U);
    ExpectOnlyTheSecondBatchUntouched("late");
}

TEST_F(UpdateFaultsTest, RepliesWithoutQuotesLeaveTheirRows) {
    std::string junk;
    for (int i = 0; i < 5000; ++i) junk += static_cast<char>((i * 7919) % 256);
    struct Row {
        const char* what;
        std::string bytes;
        const char* contentType;
    };
    const Row kRows[] = {
        {"empty", "", "text/plain"},
        {"line ends", "\r\n\n\r\n\n", "text/plain"},
        {"page",
         "<html><head><title>Sorry</title></head><body><p>Our quotes, and all the rest, are "
         "closed.</p><table><tr><td>T16</td><td>5</td></tr></table></body></html>",
         "text/html"},
        {"page as text", "<html><body>T16,T17,1,2,3,4,5,6,7,8,9,0,1,2,3,4,5,6,7,8,9,0,1,2,3</body></html>",
         "text/plain"},
        {"junk", junk, "application/octet-stream"},
        {"zeros", std::string(3000, '\0'), "text/plain"},
        {"commas", std::string(100000, ','), "text/plain"},
        {"quotes", std::string(5000, '"'), "text/plain"},
    };
    for (const Row& row : kRows) {
        SecondBatchGets(MemoryWeb::Page(row.bytes, row.contentType));
        Update();
        ExpectOnlyTheSecondBatchUntouched(row.what);
    }
    EXPECT_TRUE(person.said.empty());
}

TEST_F(UpdateFaultsTest, TickersOfNoRowChangeNothingAndBecomeNoFiles) {
    std::string text;
    for (const char* ticker : {"../../ESCAPE", "/tmp/x", "EVIL", "AUX", "", "T99", "T16\\..\\x"}) {
        text += ReplyLine(ticker).Text();
    }
    SecondBatchGets(MemoryWeb::Page(text));
    EXPECT_EQ(Update().accepted, 16U);
    const std::string records = Read("Import.Txt");
    for (const char* ticker : {"ESCAPE", "EVIL", "AUX", "T99"}) {
        EXPECT_EQ(records.find(ticker), std::string::npos) << ticker;
    }
    ExpectOnlyTheSecondBatchUntouched("foreign");
}

TEST_F(UpdateFaultsTest, AReplyInTheWrongOrderChangesNoCells) {
    std::string text;
    for (int i = 30; i >= 16; --i) {
        if (i != 23) text += ReplyLine("T" + std::to_string(i)).Text();
    }
    SecondBatchGets(MemoryWeb::Page(text));
    Update();
    ExpectOnlyTheSecondBatchUntouched("order");
}

TEST_F(UpdateFaultsTest, EighteenThousandLinesForFifteenTickersFillFifteenRows) {
    std::string text;
    for (int i = 0; i < 18000; ++i) text += ReplyLine("T" + std::to_string(16 + i)).Text();
    SecondBatchGets(MemoryWeb::Page(text));
    const UpdateOutcome outcome = Update();
    EXPECT_EQ(outcome.accepted, 31U);
    EXPECT_EQ(table.RowCount(), 32U);
    for (std::size_t row = 1; row <= 31; ++row) EXPECT_EQ(table.Text(row, 1), "110.000") << row;
}

TEST_F(UpdateFaultsTest, AReplyCutAnywhereLeavesTheRowsThatItNoLongerHolds) {
    const std::string line = ReplyLine("T16").Text();
    const std::string whole = line + ReplyLine("T17").Text() + ReplyLine("T18").Text();
    for (std::size_t length = 0; length < whole.size(); length += 7) {
        for (std::size_t row = 16; row <= 18; ++row) table.SetText(row, 1, "1.000");
        SecondBatchGets(MemoryWeb::Page(whole.substr(0, length)));
        Update();
        // The last field of a line may be cut short and still be one; with it the line counts.
        const std::size_t lastField = line.rfind(',') + 1;
        for (std::size_t k = 0; k < 3; ++k) {
            const bool came = length > k * line.size() + lastField - 1;
            EXPECT_EQ(table.Text(16 + k, 1), came ? "110.000" : "1.000") << length << ' ' << k;
        }
        EXPECT_EQ(table.Text(19, 1), "1.000") << length;
    }
}

TEST_F(UpdateFaultsTest, AnEmptyTickerCellTakesNoLine) {
    table.SetText(16, 0, "");
    SecondBatchGets(MemoryWeb::Page(ReplyLine("").Text()));
    web.AnswerWith([](const WebRequest&) { return MemoryWeb::Page(ReplyLine("").Text()); });
    Update();
    EXPECT_EQ(table.Text(16, 1), "1.000");
}

TEST_F(UpdateFaultsTest, AFolderThatTakesNoScratchFileLosesTheBatchOnly) {
    std::filesystem::create_directories(folder / "Temp.txt/held");
    const UpdateOutcome outcome = Update();
    EXPECT_EQ(outcome.failedBatches, 3U);
    EXPECT_EQ(table.Text(1, 1), "1.000");
}

TEST_F(UpdateFaultsTest, RecordsThatCannotBeWrittenAreReported) {
    std::filesystem::create_directories(folder / "Import.Txt");
    const UpdateOutcome outcome = Update();
    EXPECT_TRUE(outcome.error);
    EXPECT_EQ(table.Text(1, 1), "110.000");
}

}  // namespace
}  // namespace brantlow
