#include "shell/frame/windows/help_browser.h"

#include <QEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <array>

#include "base/windows/colours.h"
#include "base/windows/display_text.h"
#include "shell/frame/help_search.h"

namespace brantlow {

namespace {

// A colour of the pages and the one that stands for it on a dark desktop.
struct PageColour {
    const char* light;
    const char* dark;
};
constexpr std::array kPageColours = {
    PageColour{"#1d2733", "#e3e8ee"},  // text
    PageColour{"#24507f", "#9cc4f0"},  // headings
    PageColour{"#dbe5f1", "#33465c"},  // the ground of a table's head
    PageColour{"#eef2f7", "#2b333d"},  // that of code
};
// Beside what a page says of itself: tables stand apart from the lines around them.
constexpr const char* kLightStyle = "a { color: #1a5fb4; } table { margin-top: 8px; margin-bottom: 8px; }";
constexpr const char* kDarkStyle = "a { color: #8ab8ee; } table { margin-top: 8px; margin-bottom: 8px; }";

// The page of what was found; the words stand behind the question mark of its address.
constexpr const char* kHitsPage = "search.html";

QString PageOfHits(const Path& folder, const QString& words) {
    const std::vector<HelpHit> hits = SearchHelp(folder, words.toStdString());
    QString page =
        QStringLiteral(
            "<html><head><title>Search</title><style>body { font-family: sans-serif; color: "
            "#1d2733; } h1 { color: #24507f; }</style></head><body><p><a "
            "href=\"contents.html\">Contents</a> | <a href=\"index.html\">Index</a></p><h1>Search: "
            "%1</h1>")
            .arg(words.toHtmlEscaped());
    if (hits.empty()) page += QStringLiteral("<p>No place of the help holds all of these words.</p>");
    for (const HelpHit& hit : hits) {
        const std::string name = hit.page + (hit.place.empty() ? "" : "#" + hit.place);
        const std::string heading = hit.title + (hit.section == hit.title ? "" : ": " + hit.section);
        page += QStringLiteral("<p><a href=\"%1\">%2</a><br>%3</p>")
                    .arg(Shown(name).toHtmlEscaped(), Shown(heading).toHtmlEscaped(),
                         Shown(hit.text).toHtmlEscaped());
    }
    return page + QStringLiteral("</body></html>");
}

}  // namespace

HelpBrowser::HelpBrowser(const Path& folder, QWidget* parent) : QTextBrowser(parent), folder_(folder) {
    setSearchPaths({ShownPath(folder)});
    document()->setDefaultStyleSheet(QString::fromLatin1(kLightStyle));
}

bool HelpBrowser::IsDark() const {
    return brantlow::IsDark(palette().color(QPalette::Active, QPalette::Base));
}

void HelpBrowser::ShowHits(const QString& words) {
    QUrl address(QString::fromLatin1(kHitsPage));
    address.setQuery(QString::fromLatin1(QUrl::toPercentEncoding(words)));
    setSource(address, QTextDocument::HtmlResource);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::HtmlResource) return QTextBrowser::loadResource(type, name);
    const bool isHits = name.path() == QString::fromLatin1(kHitsPage);
    const QVariant resource =
        isHits ? PageOfHits(folder_, QUrl::fromPercentEncoding(name.query(QUrl::FullyEncoded).toLatin1()))
                     .toUtf8()
               : QTextBrowser::loadResource(type, name);
    shownDark_ = IsDark();
    document()->setDefaultStyleSheet(QString::fromLatin1(shownDark_ ? kDarkStyle : kLightStyle));
    if (!shownDark_) return resource;
    QByteArray page = resource.toByteArray();
    for (const PageColour& colour : kPageColours) page.replace(colour.light, colour.dark);
    return page;
}

void HelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || source().isEmpty() || shownDark_ == IsDark()) return;
    const int place = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(place);
}

}  // namespace brantlow
