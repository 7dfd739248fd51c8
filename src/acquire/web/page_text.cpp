#include "acquire/web/page_text.h"

#include <array>
#include <utility>
#include <vector>

#include "acquire/web/page_decoding.h"
#include "acquire/web/page_tree.h"
#include "base/text.h"
#include "base/values.h"

namespace brantlow {

namespace {

// How an element takes part in the text.
enum class Flow {
    Inline,
    Block,    // on lines of its own; gives way at the edges of a table cell
    Row,      // on lines of its own, in a table cell too
    Cell,     // runs on from the cell before it
    Break,    // ends a line, an empty one too
    Written,  // a block whose white space stands as it is
    Hidden    // gives no text
};

struct TagFlow {
    GumboTag tag;
    Flow flow;
};

constexpr std::array kTagFlows = std::to_array<TagFlow>({
    {GUMBO_TAG_ADDRESS, Flow::Block},     {GUMBO_TAG_ARTICLE, Flow::Block},
    {GUMBO_TAG_ASIDE, Flow::Block},       {GUMBO_TAG_BLOCKQUOTE, Flow::Block},
    {GUMBO_TAG_BODY, Flow::Block},        {GUMBO_TAG_CENTER, Flow::Block},
    {GUMBO_TAG_DD, Flow::Block},          {GUMBO_TAG_DETAILS, Flow::Block},
    {GUMBO_TAG_DIR, Flow::Block},         {GUMBO_TAG_DIV, Flow::Block},
    {GUMBO_TAG_DL, Flow::Block},          {GUMBO_TAG_DT, Flow::Block},
    {GUMBO_TAG_FIELDSET, Flow::Block},    {GUMBO_TAG_FIGCAPTION, Flow::Block},
    {GUMBO_TAG_FIGURE, Flow::Block},      {GUMBO_TAG_FOOTER, Flow::Block},
    {GUMBO_TAG_FORM, Flow::Block},        {GUMBO_TAG_H1, Flow::Block},
    {GUMBO_TAG_H2, Flow::Block},          {GUMBO_TAG_H3, Flow::Block},
    {GUMBO_TAG_H4, Flow::Block},          {GUMBO_TAG_H5, Flow::Block},
    {GUMBO_TAG_H6, Flow::Block},          {GUMBO_TAG_HEADER, Flow::Block},
    {GUMBO_TAG_HGROUP, Flow::Block},      {GUMBO_TAG_HR, Flow::Block},
    {GUMBO_TAG_LEGEND, Flow::Block},      {GUMBO_TAG_LI, Flow::Block},
    {GUMBO_TAG_MAIN, Flow::Block},        {GUMBO_TAG_MENU, Flow::Block},
    {GUMBO_TAG_NAV, Flow::Block},         {GUMBO_TAG_OL, Flow::Block},
    {GUMBO_TAG_OPTGROUP, Flow::Block},    {GUMBO_TAG_OPTION, Flow::Block},
    {GUMBO_TAG_P, Flow::Block},           {GUMBO_TAG_SECTION, Flow::Block},
    {GUMBO_TAG_SUMMARY, Flow::Block},     {GUMBO_TAG_UL, Flow::Block},
    {GUMBO_TAG_CAPTION, Flow::Row},       {GUMBO_TAG_TABLE, Flow::Row},
    {GUMBO_TAG_TBODY, Flow::Row},         {GUMBO_TAG_TFOOT, Flow::Row},
    {GUMBO_TAG_THEAD, Flow::Row},         {GUMBO_TAG_TR, Flow::Row},
    {GUMBO_TAG_TD, Flow::Cell},           {GUMBO_TAG_TH, Flow::Cell},
    {GUMBO_TAG_BR, Flow::Break},          {GUMBO_TAG_LISTING, Flow::Written},
    {GUMBO_TAG_PLAINTEXT, Flow::Written}, {GUMBO_TAG_PRE, Flow::Written},
    {GUMBO_TAG_XMP, Flow::Written},       {GUMBO_TAG_AUDIO, Flow::Hidden},
    {GUMBO_TAG_CANVAS, Flow::Hidden},     {GUMBO_TAG_HEAD, Flow::Hidden},
    {GUMBO_TAG_IFRAME, Flow::Hidden},     {GUMBO_TAG_NOFRAMES, Flow::Hidden},
    {GUMBO_TAG_NOSCRIPT, Flow::Hidden},   {GUMBO_TAG_OBJECT, Flow::Hidden},
    {GUMBO_TAG_SCRIPT, Flow::Hidden},     {GUMBO_TAG_STYLE, Flow::Hidden},
    {GUMBO_TAG_TEMPLATE, Flow::Hidden},   {GUMBO_TAG_TEXTAREA, Flow::Hidden},
    {GUMBO_TAG_TITLE, Flow::Hidden},      {GUMBO_TAG_VIDEO, Flow::Hidden},
});

Flow FlowOf(const GumboNode& node) {
    const GumboElement& element = node.v.element;
    if (gumbo_get_attribute(&element.attributes, "hidden") != nullptr) return Flow::Hidden;
    for (const TagFlow& entry : kTagFlows) {
        if (entry.tag == element.tag) return entry.flow;
    }
    return Flow::Inline;
}

bool IsWhite(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

// The bytes of U+00A0.
constexpr std::string_view kNonBreakingSpace = "\xC2\xA0";

// Puts the text together. Breaks and blanks wait until something visible follows them.
class TextWriter {
  public:
    void Collapsed(std::string_view text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (IsWhite(text[i])) {
                blankWaits_ = !atStart_;
            } else {
                VisibleAt(text, i);
            }
        }
    }

    void Written(std::string_view text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '\r') continue;
            if (text[i] == '\n') {
                EndLine();
            } else {
                VisibleAt(text, i);
            }
        }
    }

    // The next text stands on a new line.
    void BreakSoftly() {
        if (!atStart_) breakWaits_ = true;
        Forget();
    }

    // The same where a cell's edge must not take the break back.
    void BreakFirmly() {
        breakWaits_ = false;
        if (!lineEmpty_) EndLine();
        Forget();
    }

    // Ends the line, be it empty.
    void EndLine() {
        if (breakWaits_) {
            breakWaits_ = false;
            text_ += kLineEnd;
        }
        text_ += kLineEnd;
        lineEmpty_ = true;
        Forget();
    }

    void CellEdge() {
        breakWaits_ = false;
        Forget();
    }

    // The text without line ends behind it.
    std::string TakeText() {
        text_.erase(text_.find_last_not_of(kLineEnd) + 1);
        return std::move(text_);
    }

  private:
    // Writes the byte at `i`, or the blank that stands there as a longer sign; `i` moves to its last byte.
    void VisibleAt(std::string_view text, std::size_t& i) {
        if (text.substr(i, kNonBreakingSpace.size()) != kNonBreakingSpace) return Visible(text[i]);
        Visible(' ');
        i += kNonBreakingSpace.size() - 1;
    }

    void Visible(char c) {
        if (breakWaits_) {
            text_ += kLineEnd;
            breakWaits_ = false;
        } else if (blankWaits_) {
            text_ += ' ';
        }
        blankWaits_ = false;
        atStart_ = false;
        lineEmpty_ = false;
        text_ += c;
    }

    // A line, a block or a cell begins here: white space before its text is not seen.
    void Forget() {
        atStart_ = true;
        blankWaits_ = false;
    }

    std::string text_;
    bool atStart_ = true;
    bool lineEmpty_ = true;
    bool blankWaits_ = false;
    bool breakWaits_ = false;
};

// Walks a page's tree with a list of its own: a page's depth costs no stack.
class PageWalk {
  public:
    std::string TextOf(const GumboNode& root) {
        Enter(root);
        while (!open_.empty()) {
            Level& level = open_.back();
            const GumboVector& children = level.node->v.element.children;
            if (level.next < children.length) {
                Enter(*static_cast<const GumboNode*>(children.data[level.next++]));
            } else {
                Leave();
            }
        }
        return writer_.TakeText();
    }

  private:
    struct Level {
        const GumboNode* node;
        Flow flow;
        unsigned next;
    };

    void Enter(const GumboNode& node) {
        if (node.type != GUMBO_NODE_ELEMENT) return Text(node);
        const Flow flow = FlowOf(node);
        if (flow == Flow::Hidden) return;
        Edge(flow);
        if (flow == Flow::Written) ++writtenDepth_;
        open_.push_back({&node, flow, 0});
    }

    void Leave() {
        const Flow flow = open_.back().flow;
        open_.pop_back();
        if (flow == Flow::Break) return writer_.EndLine();
        if (flow == Flow::Written) --writtenDepth_;
        Edge(flow);
    }

    void Edge(Flow flow) {
        if (flow == Flow::Block || flow == Flow::Written) writer_.BreakSoftly();
        if (flow == Flow::Row) writer_.BreakFirmly();
        if (flow == Flow::Cell) writer_.CellEdge();
    }

    void Text(const GumboNode& node) {
        const bool isText = node.type == GUMBO_NODE_TEXT || node.type == GUMBO_NODE_CDATA;
        if (!isText && node.type != GUMBO_NODE_WHITESPACE) return;
        if (writtenDepth_ > 0) {
            writer_.Written(node.v.text.text);
        } else {
            writer_.Collapsed(node.v.text.text);
        }
    }

    TextWriter writer_;
    std::vector<Level> open_;
    std::size_t writtenDepth_ = 0;
};

bool IsHtml(std::string_view bytes, std::string_view contentType) {
    const std::string_view type = Trim(contentType.substr(0, contentType.find(';')));
    const std::string_view content = Trim(bytes);
    if (type.empty()) return !content.empty() && content.front() == '<';
    const bool announced =
        EqualIgnoringCase(type, "text/html") || EqualIgnoringCase(type, "application/xhtml+xml");
    return announced && content.find('<') != std::string_view::npos;
}

}  // namespace

std::string VisibleText(std::string_view html, const PageLimits& limits) {
    const PageTree tree(html, limits);
    return tree.Root() == nullptr ? std::string() : PageWalk().TextOf(*tree.Root());
}

std::string PageText(std::string_view bytes, std::string_view contentType) {
    if (!IsHtml(bytes, contentType)) return std::string(bytes);
    return VisibleText(DecodePage(bytes, contentType));
}

}  // namespace brantlow
