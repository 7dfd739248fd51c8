#include "shell/frame/help_search.h"

#include <gmock/gmock.h>

#include "support/source_folder.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

class HelpSearch : public ::testing::Test {
  protected:
    void SetUp() override {
        Write("alpha.html",
              "<html><head><title>Apples</title><style>code { color: #123456; }</style></head><body>"
              "<h1>Apples &amp; pears</h1><p>A fruit\nof the <b>garden</b>.</p>"
              "<h2><a name=\"green\">Green ones</a></h2><p>They are sour.</p>"
              "<h2>Old sorts</h2><p>Sweet, and kept in the <i>cellar</i> through the winter, one beside the "
              "other on straw, where no frost gets at them until the first warm days of spring come "
              "again and the last ones are eaten.</p></body></html>");
        Write("beta.html", "<h1>Pears</h1><p>Green or yellow.</p>");
        Write("contents.html", "<h1>Contents</h1><p>garden</p>");
        Write("index.html", "<h1>Index</h1><p>garden</p>");
        Write("notes.txt", "<h1>garden</h1>");
    }
    void Write(const std::string& name, std::string_view text) {
        ASSERT_FALSE(WriteWholeFile(folder_ / name, text));
    }
    std::vector<HelpHit> Found(std::string_view words) const { return SearchHelp(folder_.Get(), words); }

    TempFolder folder_;
};

TEST_F(HelpSearch, FindsTheSectionThatHoldsAllWordsInAnyCase) {
    EXPECT_EQ(Found("GARDEN fruit"), (std::vector<HelpHit>{{"alpha.html", "", "Apples & pears",
                                                            "Apples & pears", "A fruit of the garden."}}));
    EXPECT_EQ(
        Found("sour"),
        (std::vector<HelpHit>{{"alpha.html", "green", "Apples & pears", "Green ones", "They are sour."}}));
    EXPECT_TRUE(Found("sour garden").empty()) << "in two sections";
}

TEST_F(HelpSearch, PutsHeadingsFirst) {
    const std::vector<HelpHit> hits = Found("pears");
    ASSERT_EQ(hits.size(), 2U);
    EXPECT_EQ(hits[0].page, "alpha.html");
    EXPECT_EQ(hits[1].page, "beta.html");
    const std::vector<HelpHit> green = Found("green");
    ASSERT_EQ(green.size(), 2U);
    EXPECT_EQ(green[0].place, "green");
    EXPECT_EQ(green[1], (HelpHit{"beta.html", "", "Pears", "Pears", "Green or yellow."}));
}

TEST_F(HelpSearch, TellsTheWordsAroundTheFind) {
    const std::vector<HelpHit> hits = Found("frost");
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_EQ(hits[0].place, "") << "a heading without an anchor";
    EXPECT_EQ(hits[0].text,
              "... beside the other on straw, where no frost gets at them until the first warm days "
              "of spring come again and the last ones are eaten.");
    EXPECT_EQ(
        Found("sweet")[0].text,
        "Sweet, and kept in the cellar through the winter, one beside the other on straw, where no frost "
        "gets at them until the first warm days of ...");
}

TEST_F(HelpSearch, CellsOfARowStandApart) {
    Write("gamma.html",
          "<h1>Sizes</h1><table><tr><td>plum</td><td>small</td></tr><tr><td>melon</td><td>large</td></tr></"
          "table>");
    EXPECT_EQ(Found("melon")[0].text, "plum small melon large");
    EXPECT_TRUE(Found("nbsp").empty());
}

TEST_F(HelpSearch, TagsStylesAndOtherFilesAreNoText) {
    for (const char* words : {"href", "123456", "style", "notes", "zebra", "", "   "})
        EXPECT_TRUE(Found(words).empty()) << words;
}

TEST_F(HelpSearch, AMissingFolderHoldsNothing) {
    EXPECT_TRUE(SearchHelp(folder_ / "none", "garden").empty());
}

TEST(ShippedHelp, TellsWhereMomentumStands) {
    const std::vector<HelpHit> hits = SearchHelp(SourceFolder() / "assets/Help", "momentum slope");
    EXPECT_THAT(hits, ::testing::Contains(::testing::AllOf(::testing::Field(&HelpHit::page, "studies.html"),
                                                           ::testing::Field(&HelpHit::place, "studies"))));
    EXPECT_THAT(hits, ::testing::Contains(::testing::Field(&HelpHit::page, "glossary.html")));
}

}  // namespace
}  // namespace brantlow
