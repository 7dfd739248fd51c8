#include "shell/frame/help_search.h"

#include <algorithm>

#include "acquire/web/page_text.h"
#include "base/text.h"
#include "shell/help_pages.h"

namespace brantlow {

namespace {

constexpr std::string_view kPageEnding = ".html";
constexpr std::string_view kSectionTag = "<h2";
constexpr std::string_view kCellEnd = "</td>";
constexpr std::string_view kBlank = "&nbsp;";
// Of the text that is told around a find.
constexpr std::size_t kTextBefore = 40;
constexpr std::size_t kTextBytes = 140;

// What stands between two marks; empty where one of them is missing.
std::string_view Between(std::string_view text, std::string_view from, std::string_view to) {
    const std::size_t at = text.find(from);
    if (at == std::string_view::npos) return {};
    text.remove_prefix(at + from.size());
    const std::size_t end = text.find(to);
    return end == std::string_view::npos ? std::string_view() : text.substr(0, end);
}

std::string OneLineOf(std::string_view html) {
    // The cells of a row would run together.
    std::string spaced(html);
    for (std::size_t at = spaced.find(kCellEnd); at != std::string::npos;
         at = spaced.find(kCellEnd, at + kBlank.size() + 1)) {
        spaced.insert(at, kBlank);
    }
    std::string text = VisibleText(spaced);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    text.erase(std::unique(text.begin(), text.end(), [](char a, char b) { return a == ' ' && b == ' '; }),
               text.end());
    return std::string(Trim(text));
}

std::vector<std::string> WordsOf(std::string_view text) {
    std::vector<std::string> words;
    for (const std::string_view word : SplitAt(text, ' ')) {
        if (!word.empty()) words.push_back(UpperCase(word));
    }
    return words;
}

bool HoldsAll(std::string_view text, const std::vector<std::string>& words) {
    const std::string capitals = UpperCase(text);
    return std::all_of(words.begin(), words.end(),
                       [&](const std::string& word) { return capitals.find(word) != std::string::npos; });
}

// Cut at blanks, with dots where something is left out.
std::string TextAround(const std::string& text, const std::string& word) {
    const std::size_t found = std::min(UpperCase(text).find(word), text.size());
    std::size_t start = found > kTextBefore ? text.find(' ', found - kTextBefore) + 1 : 0;
    if (start > found) start = found;
    std::size_t end = text.size();
    if (end - start > kTextBytes) end = text.rfind(' ', start + kTextBytes);
    if (end == std::string::npos || end <= found) end = text.size();
    return (start > 0 ? "... " : "") + text.substr(start, end - start) + (end < text.size() ? " ..." : "");
}

struct Search {
    std::vector<std::string> words;
    std::vector<HelpHit> inHeadings, inTexts;

    void Take(HelpHit section, std::string_view html) {
        const std::string text = OneLineOf(html);
        const bool isInHeading = HoldsAll(section.section, words);
        if (!isInHeading && !HoldsAll(text, words)) return;
        section.text = TextAround(text, words.front());
        (isInHeading ? inHeadings : inTexts).push_back(std::move(section));
    }

    void TakePage(const std::string& page, std::string_view html) {
        const std::string title = OneLineOf(Between(html, "<h1>", "</h1>"));
        const std::size_t body = std::min(html.find("</h1>"), html.size());
        std::size_t next = std::min(html.find(kSectionTag, body), html.size());
        Take({page, "", title, title, ""}, html.substr(body, next - body));
        while (next < html.size()) {
            const std::size_t start = next;
            next = std::min(html.find(kSectionTag, start + 1), html.size());
            const std::string_view section = html.substr(start, next - start);
            const std::string_view heading = section.substr(0, section.find("</h2>"));
            Take({page, std::string(Between(heading, "name=\"", "\"")), title, OneLineOf(heading), ""},
                 section.substr(heading.size()));
        }
    }
};

}  // namespace

std::vector<HelpHit> SearchHelp(const Path& folder, std::string_view words) {
    Search search{WordsOf(words), {}, {}};
    if (search.words.empty()) return {};
    for (const std::string& page : FileNamesIn(folder)) {
        if (!page.ends_with(kPageEnding) || page == kHelpContents || page == kHelpIndex) continue;
        search.TakePage(page, BytesOrEmpty(folder / page));
    }
    std::vector<HelpHit> hits = std::move(search.inHeadings);
    hits.insert(hits.end(), search.inTexts.begin(), search.inTexts.end());
    return hits;
}

}  // namespace brantlow
