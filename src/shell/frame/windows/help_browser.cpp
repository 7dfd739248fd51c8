#include "shell/frame/windows/help_browser.h"

#include <QEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <array>

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
constexpr const char* kLightLink = "a { color: #1a5fb4; }";
constexpr const char* kDarkLink = "a { color: #8ab8ee; }";
constexpr int kMiddleLightness = 128;

}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
    document()->setDefaultStyleSheet(QString::fromLatin1(kLightLink));
}

bool HelpBrowser::IsDark() const {
    return palette().color(QPalette::Active, QPalette::Base).lightness() < kMiddleLightness;
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    const QVariant resource = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::HtmlResource) return resource;
    shownDark_ = IsDark();
    document()->setDefaultStyleSheet(QString::fromLatin1(shownDark_ ? kDarkLink : kLightLink));
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
