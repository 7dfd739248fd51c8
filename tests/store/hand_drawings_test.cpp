// The file of what is drawn by hand: what it holds, what it refuses, and what becomes of it after a split.
#include "store/hand_drawings.h"

#include <sys/stat.h>

#include "store/store_fixture.h"

namespace brantlow {
namespace {

constexpr Date Day(int year, unsigned month, unsigned day) {
    return Date{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
}

// One of each kind.
HandDrawings All() {
    return {
        {HandKind::Trend, {{Day(2026, 3, 2), 41.5}, {Day(2026, 4, 1), 45}}},
        {HandKind::Horizontal, {{Day(2026, 3, 3), 44.125}}},
        {HandKind::Channel, {{Day(2026, 3, 2), 40}, {Day(2026, 3, 9), 42}, {Day(2026, 3, 5), 38}}},
        {HandKind::Text, {{Day(2026, 3, 4), 43}}, "Zukauf \xC3\xA4\xC3\xB6 \"2\""},
    };
}

constexpr const char* kAllText = R"({
  "drawings": [
    {
      "kind": "trend",
      "from": {
        "day": "2026-03-02",
        "price": 41.5
      },
      "to": {
        "day": "2026-04-01",
        "price": 45.0
      }
    },
    {
      "kind": "horizontal",
      "at": {
        "day": "2026-03-03",
        "price": 44.125
      }
    },
    {
      "kind": "channel",
      "from": {
        "day": "2026-03-02",
        "price": 40.0
      },
      "to": {
        "day": "2026-03-09",
        "price": 42.0
      },
      "through": {
        "day": "2026-03-05",
        "price": 38.0
      }
    },
    {
      "kind": "text",
      "at": {
        "day": "2026-03-04",
        "price": 43.0
      },
      "text": "Zukauf äö \"2\""
    }
  ]
}
)";

std::string ComplaintOf(std::string_view bytes) {
    std::string complaint;
    const HandDrawings drawings = ReadHandDrawings(bytes, complaint);
    EXPECT_TRUE(complaint.empty() || drawings.empty()) << bytes;
    return complaint;
}

std::string OneOf(const std::string& entry) {
    return "{\"drawings\": [" + entry + "]}";
}

class HandDrawingsTest : public testing::Test {
  protected:
    Failure Save(const HandDrawings& drawings, std::string_view known) {
        return SaveHandDrawings(folder.Root() / "Data", "KO", drawings, known);
    }
    KeptDrawings Load() { return LoadHandDrawings(folder.Root() / "Data", "KO"); }
    std::string FileName() const { return (folder.Root() / "Data/Drawings/KO.json").string(); }

    TestFolder folder;
    const char* const kFile = "Data/Drawings/KO.json";
};

TEST_F(HandDrawingsTest, EachKindIsWrittenAndReadAgain) {
    EXPECT_EQ(TextOfHandDrawings(All()), kAllText);
    std::string complaint;
    EXPECT_EQ(ReadHandDrawings(kAllText, complaint), All());
    EXPECT_EQ(complaint, "");
    EXPECT_EQ(ReadHandDrawings("{\"drawings\": []}", complaint), HandDrawings());
    EXPECT_EQ(complaint, "");
}

TEST_F(HandDrawingsTest, WhatIsNoDrawingIsRefusedByName) {
    const std::string point = R"({"day": "2026-03-02", "price": 1})";
    const struct {
        std::string bytes;
        std::string complaint;
    } rows[] = {
        {"", "it is no JSON"},
        {"{\"drawings\": [", "it is no JSON"},
        {"[]", "it holds no list of drawings"},
        {"{}", "it holds no list of drawings"},
        {R"({"drawings": {}})", "it holds no list of drawings"},
        {R"({"drawings": [], "more": 1})", "it holds no list of drawings"},
        {OneOf("1"), "drawing 1: is no object"},
        {OneOf("{}"), "drawing 1: \"kind\" is none of trend, horizontal, channel and text"},
        {OneOf(R"({"kind": "ray"})"), "drawing 1: \"kind\" is none of trend, horizontal, channel and text"},
        {OneOf(R"({"kind": "trend", "from": )" + point + "}"), "drawing 1: \"to\" is no day with a price"},
        {OneOf(R"({"kind": "horizontal", "at": {"day": "2026-02-30", "price": 1}})"),
         "drawing 1: \"at\" is no day with a price"},
        {OneOf(R"({"kind": "horizontal", "at": {"day": "03/02/26", "price": 1}})"),
         "drawing 1: \"at\" is no day with a price"},
        {OneOf(R"({"kind": "horizontal", "at": {"day": "2026-03-02", "price": "1"}})"),
         "drawing 1: \"at\" is no day with a price"},
        {OneOf(R"({"kind": "horizontal", "at": {"day": "2026-03-02", "price": 1e300}})"),
         "drawing 1: \"at\" is no day with a price"},
        {OneOf(R"({"kind": "horizontal", "at": {"day": "2026-03-02", "price": 1, "z": 0}})"),
         "drawing 1: \"at\" is no day with a price"},
        {OneOf(R"({"kind": "horizontal", "at": )" + point + R"(, "to": )" + point + "}"),
         "drawing 1: holds a name that it cannot have"},
        {OneOf(R"({"kind": "text", "at": )" + point + "}"), "drawing 1: \"text\" is no line of text"},
        {OneOf(R"({"kind": "text", "text": "", "at": )" + point + "}"),
         "drawing 1: \"text\" is no line of text"},
        {OneOf(R"({"kind": "text", "text": "a\nb", "at": )" + point + "}"),
         "drawing 1: \"text\" is no line of text"},
        {OneOf(R"({"kind": "text", "text": ")" + std::string(201, 'x') + R"(", "at": )" + point + "}"),
         "drawing 1: \"text\" is no line of text"},
        {OneOf(R"({"kind": "horizontal", "at": )" + point + "}, 7"), "drawing 2: is no object"},
    };
    for (const auto& row : rows) EXPECT_EQ(ComplaintOf(row.bytes), row.complaint) << row.bytes;
}

TEST_F(HandDrawingsTest, AFileCutOffAnywhereIsRefusedAndNeverHalfRead) {
    const std::string whole = kAllText;
    // The last line end is no part of the document.
    for (std::size_t length = 0; length + 1 < whole.size(); ++length)
        EXPECT_EQ(ComplaintOf(std::string_view(whole).substr(0, length)), "it is no JSON") << length;
}

TEST_F(HandDrawingsTest, NoMoreThanAThousandAreRead) {
    const std::string entry = R"({"kind": "horizontal", "at": {"day": "2026-03-02", "price": 1}})";
    std::string list;
    for (std::size_t i = 0; i < kMostHandDrawings; ++i) list += (i == 0 ? "" : ",") + entry;
    EXPECT_EQ(ComplaintOf(OneOf(list)), "");
    EXPECT_EQ(ComplaintOf(OneOf(list + "," + entry)), "drawing 1001: there are more than 1000");
}

TEST_F(HandDrawingsTest, AreKeptInTheTickersFileAndTheLastOneTakesTheFileAway) {
    folder.Folder("Data");
    EXPECT_FALSE(Save(All(), ""));
    EXPECT_EQ(folder.Read(kFile), kAllText);
    const KeptDrawings kept = Load();
    EXPECT_FALSE(kept.failure);
    EXPECT_EQ(kept.drawings, All());
    EXPECT_FALSE(Save({}, kept.bytes));
    EXPECT_EQ(folder.Files(), std::vector<std::string>());
    EXPECT_EQ(Load().drawings, HandDrawings());
    EXPECT_FALSE(Load().failure);
}

TEST_F(HandDrawingsTest, ABrokenFileIsToldAndStays) {
    folder.Write(kFile, "{\"drawings\": [1]}");
    EXPECT_EQ(Sentence(Load().failure), FileName() + ": cannot be read; drawing 1: is no object");
    EXPECT_EQ(Sentence(Save(All(), "{\"drawings\": [1]}")),
              FileName() + ": cannot be read; drawing 1: is no object");
    EXPECT_EQ(Sentence(Save({}, "")), FileName() + ": cannot be read; drawing 1: is no object");
    EXPECT_EQ(folder.Read(kFile), "{\"drawings\": [1]}");
}

TEST_F(HandDrawingsTest, AFileThatCannotBeReadIsToldAndStays) {
    folder.Folder("Data/Drawings/KO.json");
    EXPECT_EQ(Sentence(Load().failure), FileName() + ": cannot be read (Is a directory)");
    EXPECT_TRUE(Save(All(), ""));
    EXPECT_TRUE(std::filesystem::is_directory(FileName()));
}

TEST_F(HandDrawingsTest, WhatAnotherProgramWroteMeanwhileIsNotWrittenOver) {
    folder.Folder("Data");
    EXPECT_FALSE(Save(All(), ""));
    HandDrawings fewer = All();
    fewer.pop_back();
    EXPECT_EQ(Sentence(Save(fewer, "")), FileName() + ": was changed by another program; it is shown anew");
    EXPECT_EQ(folder.Read(kFile), kAllText);
}

TEST_F(HandDrawingsTest, WithoutAFolderToWriteToTheReasonIsTold) {
    folder.Write("Data", "no folder");
    EXPECT_EQ(Sentence(Save(All(), "")).find((folder.Root() / "Data/Drawings").string()), 0U);
}

TEST_F(HandDrawingsTest, OfATickerThatNoFileCanBeNamedAfterNothingIsKept) {
    folder.Folder("Data");
    for (const char* ticker : {"", "a/b", "..", "CON", "NUL.x"}) {
        EXPECT_FALSE(DrawingsFile(folder.Root(), ticker)) << ticker;
        EXPECT_EQ(Sentence(SaveHandDrawings(folder.Root() / "Data", ticker, All(), "")),
                  "No file can be named after this ticker: what is drawn cannot be kept");
    }
    EXPECT_EQ(folder.Files(), std::vector<std::string>());
}

TEST_F(HandDrawingsTest, ASplitDividesThePricesOfThePlacesBeforeIt) {
    HandDrawings drawings = All();
    EXPECT_TRUE(RestateHandDrawings(Day(2026, 3, 5), 2, drawings));
    // Each place by its own day: those of March 2 to 4 lie before the split.
    EXPECT_EQ(drawings[0].points, (std::vector<HandPoint>{{Day(2026, 3, 2), 20.75}, {Day(2026, 4, 1), 45}}));
    EXPECT_EQ(drawings[1].points, (std::vector<HandPoint>{{Day(2026, 3, 3), 22.0625}}));
    EXPECT_EQ(drawings[2].points,
              (std::vector<HandPoint>{{Day(2026, 3, 2), 20}, {Day(2026, 3, 9), 42}, {Day(2026, 3, 5), 38}}));
    EXPECT_EQ(drawings[3].points, (std::vector<HandPoint>{{Day(2026, 3, 4), 21.5}}));
    EXPECT_FALSE(RestateHandDrawings(Day(2026, 3, 2), 2, drawings));
    EXPECT_FALSE(RestateHandDrawings(Day(2027, 1, 1), 0, drawings)) << "no number comes of it";
}

}  // namespace
}  // namespace brantlow
