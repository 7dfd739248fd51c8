#include "shell/frame/windows/welcome_page.h"

#include <QEvent>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/windows/colours.h"
#include "base/windows/desktop_picture.h"
#include "base/windows/display_text.h"
#include "base/windows/labels.h"
#include "shell/file_kind.h"

namespace brantlow {

namespace {

constexpr int kLogoPixels = 64;
constexpr int kGap = 10;
constexpr int kColumnGap = 48;
constexpr int kButtonPixels = 20;
constexpr double kWelcomeScale = 1.6;
constexpr double kColumnScale = 1.15;
// A light desktop's area; a dark one's is a little darker than its windows.
constexpr QRgb kLightGround = 0xffe4e9ef;
constexpr int kDarker = 125;
// Flat, with its words at the left; the pointer and the focus are seen on it.
constexpr const char* kButtonLook =
    "QPushButton { text-align: left; padding: 5px 9px; border: 1px solid transparent; border-radius: 4px; }"
    "QPushButton:hover { background: palette(midlight); }"
    "QPushButton:focus { border-color: palette(highlight); }";

// What the page offers beside tables, in order: the entry of the menu behind it, or none for those that the
// page itself knows.
struct Way {
    const char* name;
    const char* words;
    const char* toolTip;
    const char* icon;
    std::string_view command;
};
constexpr Way kOpenWay = {"cmdWelcomeOpen", "Open a &Quote File...",
                          "Choose an end of day quote file (Ctrl+O)", "open-quotes", "mnuFileOpenQuotesDB"};
constexpr Way kNewWay = {"cmdWelcomeNew", "&New Quote File", "Begin a list of tickers of your own (Ctrl+N)",
                         "new", "mnuFileNewEODQuoteFile"};
constexpr Way kListWay = {"cmdWelcomeList", "&My List with Live Quotes...",
                          "Type or paste your tickers and choose who gives their prices (Ctrl+Shift+N)",
                          "sources", "mnuFileNewMyList"};
constexpr Way kHelpWay = {"cmdWelcomeHelp", "Fi&rst Steps (Help)", "Open the help (F1)", "help",
                          "mnuHelpFile"};

QLabel* Heading(const char* name, double scale) {
    auto* heading = new QLabel;
    heading->setObjectName(Name(name));
    heading->setFont(HeadingFont(heading->font(), scale));
    return heading;
}

QVBoxLayout* AddColumn(QHBoxLayout& columns) {
    auto* column = new QVBoxLayout;
    column->setSpacing(kGap / 2);
    columns.addLayout(column, 1);
    return column;
}

QIcon Picture(const char* name) {
    return DesktopPicture(Name(name));
}

}  // namespace

QColor AreaGround(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    return IsDark(window) ? window.darker(kDarker) : QColor::fromRgb(kLightGround);
}

WelcomePage::WelcomePage(WelcomeActions actions, QWidget* parent)
    : QScrollArea(parent),
      actions_(std::move(actions)),
      page_(new QWidget),
      heading_(Heading("lblWelcome", kWelcomeScale)),
      recent_(Heading("lblRecent", kColumnScale)) {
    setObjectName(QStringLiteral("WelcomePage"));
    setAccessibleName(QStringLiteral("Welcome"));
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    auto* rows = new QVBoxLayout(page_);
    rows->setSpacing(kGap);
    rows->addStretch(1);
    auto* logo = new QLabel;
    logo->setPixmap(Picture("brantlow").pixmap(kLogoPixels, kLogoPixels));
    rows->addWidget(logo, 0, Qt::AlignHCenter);
    rows->addWidget(heading_, 0, Qt::AlignHCenter);
    rows->addSpacing(kGap);
    auto* middle = new QHBoxLayout;
    middle->addStretch(1);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(kColumnGap);
    middle->addLayout(columns);
    middle->addStretch(1);
    rows->addLayout(middle);
    rows->addStretch(2);
    QVBoxLayout* const recent = AddColumn(*columns);
    recent_->setText(QStringLiteral("Recent tables"));
    recent->addWidget(recent_);
    tableColumn_ = new QVBoxLayout;
    tableColumn_->setSpacing(kGap / 2);
    recent->addLayout(tableColumn_);
    recent->addStretch(1);
    AddWays(*AddColumn(*columns));
    setWidget(page_);
    ShowColours();
}

QPushButton* WelcomePage::AddButton(QVBoxLayout& column, const char* name, const QString& words,
                                    std::function<void()> press) {
    auto* button = new QPushButton(words);
    // The page is no dialog, where Enter would press it by itself.
    button->setAutoDefault(true);
    button->setObjectName(Name(name));
    button->setFlat(true);
    button->setIconSize({kButtonPixels, kButtonPixels});
    button->setStyleSheet(QString::fromLatin1(kButtonLook));
    button->setCursor(Qt::PointingHandCursor);
    // Later: what is pressed can take the button away.
    connect(button, &QPushButton::clicked, this, std::move(press), Qt::QueuedConnection);
    column.addWidget(button);
    return button;
}

void WelcomePage::Go(std::string_view command) {
    if (command == kOpenWay.command && tables_.empty()) return actions_.openFirst();
    actions_.run(command);
}

void WelcomePage::AddWays(QVBoxLayout& column) {
    QLabel* const heading = Heading("lblBegin", kColumnScale);
    heading->setText(QStringLiteral("Begin"));
    column.addWidget(heading);
    const auto addWay = [&](const Way& way) {
        QPushButton* const button =
            AddButton(column, way.name, QString::fromLatin1(way.words), [this, &way] { Go(way.command); });
        button->setToolTip(QString::fromLatin1(way.toolTip));
        button->setIcon(Picture(way.icon));
    };
    addWay(kListWay);
    addWay(kOpenWay);
    addWay(kNewWay);
    practice_ = AddButton(column, "cmdWelcomePractice", QStringLiteral("&Practice Table"), actions_.practice);
    practice_->setIcon(Picture("chart"));
    practice_->setToolTip(QStringLiteral("Open real prices of the past, moved to the days before today"));
    update_ = AddButton(column, "cmdWelcomeUpdate", QString(), [this] {
        if (const auto table = FirstQuoteFile()) actions_.update(std::string(*table));
    });
    update_->setIcon(Picture("update"));
    addWay(kHelpWay);
    column.addStretch(1);
}

void WelcomePage::Offer(const std::vector<std::string>& tables) {
    if (tables == tables_ && tableColumn_->count() > 0) return;
    tables_ = tables;
    while (QLayoutItem* item = tableColumn_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (std::size_t i = 0; i < tables.size(); ++i) {
        QString words = Shown(tables[i]).replace(u'&', QStringLiteral("&&"));
        if (i < 9) words = QStringLiteral("&%1  %2").arg(i + 1).arg(words);
        QPushButton* const button = AddButton(*tableColumn_, "cmdWelcomeTable", words,
                                              [this, name = tables[i]] { actions_.open(std::string(name)); });
        button->setAccessibleName(QStringLiteral("Open ") + Shown(tables[i]));
        button->setToolTip(i == 0 ? QStringLiteral("Go on with this table")
                                  : QStringLiteral("Open this table"));
        button->setIcon(Picture("open-quotes"));
    }
    heading_->setText(tables.empty() ? QStringLiteral("Welcome to Brantlow")
                                     : QStringLiteral("No file is open"));
    if (tables.empty()) {
        tableColumn_->addWidget(new QLabel(
            QStringLiteral("None yet. The practice table is made\nat the first press, to look around.")));
    }
    setFocusProxy(tables.empty() ? practice_ : tableColumn_->itemAt(0)->widget());
    const auto table = FirstQuoteFile();
    update_->setVisible(table.has_value());
    if (!table) return;
    update_->setText(QStringLiteral("&Update %1").arg(Shown(*table).replace(u'&', QStringLiteral("&&"))));
    update_->setToolTip(QStringLiteral("Open this table and fetch its quotes of the day"));
}

std::optional<std::string> WelcomePage::FirstQuoteFile() const {
    const auto found = std::find_if(tables_.begin(), tables_.end(),
                                    [](const std::string& name) { return KindOf(name) == FileKind::Ddq; });
    return found == tables_.end() ? std::nullopt : std::optional(*found);
}

// The scroll area's own ground is that of the area around it. A look of its own keeps the colours that it was
// given with, so the buttons are given theirs anew.
void WelcomePage::ShowColours() {
    const QColor ground = AreaGround(QPalette());
    if (palette().color(QPalette::Window) == ground) return;
    QPalette colours;
    colours.setColor(QPalette::Window, ground);
    setPalette(colours);
    setAutoFillBackground(true);
    for (QPushButton* button : findChildren<QPushButton*>()) {
        button->setStyleSheet({});
        button->setStyleSheet(QString::fromLatin1(kButtonLook));
    }
}

void WelcomePage::changeEvent(QEvent* event) {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ShowColours();
}

}  // namespace brantlow
