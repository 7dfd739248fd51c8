// The pages of the help: all there, and no link leads nowhere.
#include "shell/help_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "shell/frame/commands.h"
#include "shell/frame/palette_rows.h"
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

// The words of a page as they are read: without tags, one blank between two.
std::string WordsOfPage(std::string_view file) {
    std::string words;
    bool inTag = false;
    for (const char c : PageText(file)) {
        if (c == '<') inTag = true;
        const bool isBlank = c == ' ' || c == '\n';
        if (!inTag && !(isBlank && words.ends_with(' '))) words += isBlank ? ' ' : c;
        if (c == '>') inTag = false;
    }
    return words;
}

std::string_view MenuOf(const MenuEntry& entry) {
    const MenuEntry* above = &entry;
    while (!above->parent.empty()) above = FindMenuEntry(above->parent);
    return above->id;
}

// An entry's words as a page tells them.
std::string ToldWords(const MenuEntry& entry) {
    std::string words = PlainWords(entry.words);
    if (words.ends_with("...")) words.resize(words.size() - 3);
    return words;
}

// The entry of this menu whose words stand at the begin of `text`; null where none does.
const MenuEntry* EntryToldIn(std::string_view text, std::string_view menu) {
    const MenuEntry* told = nullptr;
    std::size_t longest = 0;
    for (const MenuEntry& entry : kMenu) {
        const std::string words = ToldWords(entry);
        if (entry.parent.empty() || MenuOf(entry) != menu || words.size() <= longest) continue;
        if (!text.starts_with(words)) continue;
        told = &entry;
        longest = words.size();
    }
    return told;
}

// "Edit, Undo (Ctrl+Z)": menu, entry and key are those of the program.
TEST(HelpPages, CommandsThatAPageNamesStandInTheirMenusWithTheirKeys) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 7> kMenus = {
        {{"File", "mnuFile"},
         {"Edit", "mnuEdit"},
         {"View", "mnuView"},
         {"Settings", "mnuSettings"},
         {"Graphics", "mnuGraphics"},
         {"Window", "mnuWindow"},
         {"Help", "mnuHelp"}}};
    std::size_t commands = 0;
    std::size_t keys = 0;
    for (const std::string& page : AllPages()) {
        const std::string words = WordsOfPage(page);
        for (const auto& [name, menu] : kMenus) {
            const std::string before = std::string(name) + ", ";
            for (std::size_t at = words.find(before); at != std::string::npos;
                 at = words.find(before, at + 1)) {
                const std::string_view told = std::string_view(words).substr(at + before.size());
                if (told.empty() || told[0] < 'A' || told[0] > 'Z') continue;
                ++commands;
                const MenuEntry* const entry = EntryToldIn(told, menu);
                ASSERT_NE(entry, nullptr) << page << ": " << before << told.substr(0, 40);
                const std::string_view behind = told.substr(ToldWords(*entry).size());
                if (!behind.starts_with(" (Ctrl+")) continue;
                ++keys;
                EXPECT_EQ(behind.substr(2, behind.find_first_of(");") - 2), entry->shortcut) << entry->id;
            }
        }
    }
    EXPECT_GT(commands, 25U);
    EXPECT_GT(keys, 4U);
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

TEST(HelpPages, EveryWindowHasAPageOfTheHelpAndAPlaceOnIt) {
    const std::vector<std::string> pages = AllPages();
    for (const WindowHelp& row : kWindowHelp) {
        const std::size_t mark = row.page.find('#');
        const std::string page(row.page.substr(0, mark));
        EXPECT_TRUE(std::find(pages.begin(), pages.end(), page) != pages.end()) << row.window;
        EXPECT_EQ(HelpPageOf(row.window), row.page);
        if (mark == std::string_view::npos) continue;
        const std::vector<std::string> places = Attributes(PageText(page), "name=\"");
        EXPECT_TRUE(std::find(places.begin(), places.end(), row.page.substr(mark + 1)) != places.end())
            << row.page;
    }
    EXPECT_EQ(HelpPageOf("frmMain"), kHelpContents);
    EXPECT_EQ(HelpPageOf(""), kHelpContents);
}

TEST(HelpPages, NoWindowOfTheSourceIsWithoutOne) {
    // The frame is no window to ask about, the help is there already, and the splash takes no key.
    constexpr std::array<std::string_view, 3> kWithout = {"frmMain", "frmHelp", "frmSplash"};
    std::size_t windows = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(SourceFolder() / "src")) {
        const std::string name = entry.path().stem().string();
        if (entry.path().extension() != ".h" || !name.starts_with("frm")) continue;
        if (std::find(kWithout.begin(), kWithout.end(), name) != kWithout.end()) continue;
        ++windows;
        EXPECT_NE(HelpPageOf(name), kHelpContents) << name;
    }
    EXPECT_GT(windows, 25U);
}

}  // namespace
}  // namespace brantlow
