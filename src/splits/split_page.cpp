#include "splits/split_page.h"

#include <algorithm>
#include <optional>

#include "base/numbers.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

namespace {

constexpr std::string_view kCellMark = "middle>";
constexpr std::string_view kTickerMark = "d=t";
// What closes the address of the link in front of the ticker.
constexpr std::size_t kLinkEnd = std::string_view("\">").size();
// A date has more characters than this.
constexpr std::size_t kShortText = 2;

class PageScraper {
  public:
    explicit PageScraper(std::string_view rest) : rest_(rest) {}

    std::vector<PageSplit> Scrape() {
        while (!rest_.empty() && splits_.size() < kMostRows) {
            TakeCharacter();
            if (tail_.ends_with(kCellMark)) TakeCell();
            if (tail_.ends_with(kTickerMark)) TakeTicker();
            if (IsWhole()) {
                splits_.push_back(std::move(split_));
                split_ = {};
                ratioNext_ = false;
            }
        }
        return std::move(splits_);
    }

  private:
    // Moves one character to the end of what was read outside cells, of which only the marks matter.
    void TakeCharacter() {
        tail_ += rest_.front();
        if (tail_.size() > kCellMark.size()) tail_.erase(0, 1);
        rest_.remove_prefix(1);
    }

    // The text up to the next "<", which is taken too; nothing, with the page at its end, when none follows.
    std::optional<std::string_view> TextToTag() {
        const std::size_t end = rest_.find('<');
        if (end == std::string_view::npos) {
            rest_ = {};
            return std::nullopt;
        }
        const std::string_view text = rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        return text;
    }

    void TakeCell() {
        const auto text = TextToTag();
        if (!text) return;
        if (text->find('-') != std::string_view::npos) ratioNext_ = true;
        if (ratioNext_) split_.ratio = *text;
        if (split_.ticker.empty() && text->size() > kShortText) split_.date = *text;
    }

    void TakeTicker() {
        const auto text = TextToTag();
        if (text) split_.ticker = text->substr(std::min(kLinkEnd, text->size()));
    }

    bool IsWhole() const { return !split_.ticker.empty() && !split_.date.empty() && !split_.ratio.empty(); }

    std::string_view rest_;
    std::string tail_;
    PageSplit split_;
    bool ratioNext_ = false;
    std::vector<PageSplit> splits_;
};

}  // namespace

bool IsSplitPage(std::string_view markup) {
    return markup.find(kCellMark) != std::string_view::npos ||
           markup.find(kTickerMark) != std::string_view::npos;
}

std::vector<PageSplit> SplitsOfPage(std::string_view markup) {
    return PageScraper(markup).Scrape();
}

double FactorOfRatio(std::string_view ratio) {
    // Of several hyphens the first that gives a factor counts.
    for (std::size_t hyphen = ratio.find('-'); hyphen != std::string_view::npos;
         hyphen = ratio.find('-', hyphen + 1)) {
        const std::string_view oldShares = ratio.substr(hyphen + 1);
        const double divisor = LeadingNumber(oldShares);
        if (divisor == 0) continue;
        const auto factor = Divide(LeadingNumber(ratio.substr(0, oldShares.size())), divisor);
        if (factor) return *factor;
    }
    return 0;
}

}  // namespace brantlow
