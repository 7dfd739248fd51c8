// The pages of the help: all there, and no link leads nowhere.
#include "shell/help_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "support/source_folder.h"

namespace brantlow {
namespace {

std::string PageText(std::string_view file) {
    return BytesOrEmpty(SourceFolder() / "assets/Help" / std::string(file));
}

// What stands between `before` and the next quotation mark, each time.
std::vector<std::string> Attributes(const std::string& text, const std::string& before) {
    std::vector<std::string> found;
    for (std::size_t at = text.find(before); at != std::string::npos; at = text.find(before, at + 1)) {
        const std::size_t start = at + before.size();
        found.push_back(text.substr(start, text.find('"', start) - start));
    }
    return found;
}

struct HelpPage {
    std::string_view file;
    std::string_view title;
};

// In the order of the contents page.
constexpr std::array kHelpPages = {
    HelpPage{"start.html", "First steps"},
    HelpPage{"tables.html", "Quote tables"},
    HelpPage{"sources.html", "Quote sources"},
    HelpPage{"update.html", "Updating quotes"},
    HelpPage{"selector.html", "The Stock Selector"},
    HelpPage{"values.html", "The value slots of a condition"},
    HelpPage{"chart.html", "The chart"},
    HelpPage{"studies.html", "Series and studies with their formulas"},
    HelpPage{"splits.html", "Stock splits"},
    HelpPage{"alarms.html", "Price alarms"},
    HelpPage{"settings.html", "Settings and the wizard"},
    HelpPage{"batch.html", "The batch tool"},
    HelpPage{"files.html", "Files and folders"},
    HelpPage{"glossary.html", "Glossary"},
};

std::vector<std::string> AllPages() {
    std::vector<std::string> pages = {std::string(kHelpContents), std::string(kHelpIndex)};
    for (const HelpPage& page : kHelpPages) pages.emplace_back(page.file);
    return pages;
}

TEST(HelpPages, EveryPageIsThereUnderItsTitle) {
    for (const HelpPage& page : kHelpPages) {
        const std::string text = PageText(page.file);
        EXPECT_NE(text.find("<h1>" + std::string(page.title) + "</h1>"), std::string::npos) << page.file;
        EXPECT_NE(text.find("href=\"contents.html\""), std::string::npos) << page.file;
    }
    std::vector<std::string> files = FileNamesIn(SourceFolder() / "assets/Help");
    std::vector<std::string> pages = AllPages();
    std::sort(pages.begin(), pages.end());
    EXPECT_EQ(files, pages);
}

TEST(HelpPages, TheContentsListThePagesInTheirOrder) {
    std::vector<std::string> links = Attributes(PageText(kHelpContents), "href=\"");
    ASSERT_EQ(links.size(), kHelpPages.size() + 1);
    EXPECT_EQ(links.front(), kHelpIndex);
    for (std::size_t i = 0; i < kHelpPages.size(); ++i) EXPECT_EQ(links[i + 1], kHelpPages[i].file);
}

TEST(HelpPages, EveryLinkLeadsToAPageAndAPlaceInIt) {
    const std::vector<std::string> pages = AllPages();
    for (const std::string& page : pages) {
        for (const std::string& link : Attributes(PageText(page), "href=\"")) {
            const std::size_t mark = link.find('#');
            const std::string target = link.substr(0, mark);
            EXPECT_TRUE(std::find(pages.begin(), pages.end(), target) != pages.end()) << page << ": " << link;
            if (mark == std::string::npos) continue;
            const std::vector<std::string> places = Attributes(PageText(target), "name=\"");
            EXPECT_TRUE(std::find(places.begin(), places.end(), link.substr(mark + 1)) != places.end())
                << page << ": " << link;
        }
    }
}

// The words of an attribute of a tag; empty where it has none.
std::string Attribute(const std::string& tag, const std::string& name) {
    const std::vector<std::string> values = Attributes(tag, " " + name + "=\"");
    return values.empty() ? std::string() : values.front();
}

std::vector<std::string> PictureTags(const std::string& text) {
    std::vector<std::string> tags;
    for (std::size_t at = text.find("<img"); at != std::string::npos; at = text.find("<img", at + 1))
        tags.push_back(text.substr(at, text.find('>', at) - at));
    return tags;
}

// As the first chunk of a PNG tells it; 0 for bytes that are none.
std::size_t WidthOfPng(const std::string& bytes) {
    constexpr std::string_view kBegin("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    if (bytes.size() < kBegin.size() + 4 || !bytes.starts_with(kBegin)) return 0;
    std::size_t width = 0;
    for (std::size_t i = 0; i < 4; ++i)
        width = width * 256 + static_cast<unsigned char>(bytes[kBegin.size() + i]);
    return width;
}

constexpr std::size_t kMostPictureBytes = 100000;
constexpr std::size_t kMostPictureWidth = 760;

TEST(HelpPages, EveryPictureIsASmallPngThatFitsThePageAndIsTold) {
    for (const std::string& page : AllPages()) {
        for (const std::string& tag : PictureTags(PageText(page))) {
            const std::string bytes = PageText(Attribute(tag, "src"));
            const std::size_t width = WidthOfPng(bytes);
            EXPECT_GT(width, 0U) << page << ": " << tag;
            EXPECT_LE(width, kMostPictureWidth) << page << ": " << tag;
            EXPECT_LT(bytes.size(), kMostPictureBytes) << page << ": " << tag;
            EXPECT_EQ(Attribute(tag, "width"), std::to_string(width)) << page << ": " << tag;
            EXPECT_GT(Attribute(tag, "alt").size(), 20U) << page << ": " << tag;
        }
    }
}

TEST(HelpPages, EveryPictureIsOnAPage) {
    std::vector<std::string> shown;
    for (const std::string& page : AllPages())
        for (const std::string& tag : PictureTags(PageText(page))) shown.push_back(Attribute(tag, "src"));
    std::sort(shown.begin(), shown.end());
    std::vector<std::string> files;
    for (const std::string& file : FileNamesIn(SourceFolder() / "assets/Help/pictures"))
        files.push_back("pictures/" + file);
    EXPECT_EQ(shown, files);
    EXPECT_GE(files.size(), 10U);
}

TEST(HelpPages, TheIndexIsInOrder) {
    std::vector<std::string> entries;
    const std::string text = PageText(kHelpIndex);
    for (std::size_t at = text.find("<li>"); at != std::string::npos; at = text.find("<li>", at + 1)) {
        const std::size_t start = text.find('>', at + 4) + 1;
        entries.push_back(UpperCase(text.substr(start, text.find('<', start) - start)));
    }
    EXPECT_GT(entries.size(), kHelpPages.size());
    EXPECT_TRUE(std::is_sorted(entries.begin(), entries.end()));
}

TEST(HelpPages, EveryWindowHasAPageOfTheHelp) {
    const std::vector<std::string> pages = AllPages();
    for (const WindowHelp& row : kWindowHelp) {
        EXPECT_TRUE(std::find(pages.begin(), pages.end(), row.page) != pages.end()) << row.window;
        EXPECT_EQ(HelpPageOf(row.window), row.page);
    }
    EXPECT_EQ(HelpPageOf("frmMain"), kHelpContents);
    EXPECT_EQ(HelpPageOf(""), kHelpContents);
}

}  // namespace
}  // namespace brantlow
