#include "store/windows/frmErrorReport.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>
#include <string_view>

#include "base/windows/display_text.h"
#include "base/windows/labels.h"
#include "base/windows/text_viewer.h"

namespace brantlow {

namespace {

constexpr std::string_view kHeading = "Database Report";
constexpr std::array<std::string_view, 4> kParagraphs = {
    "This report was generated because one or more Ticker Symbols in the Quote Database has an inadequate "
    "amount of data points. This may be due to a new IPO Ticker Symbol.",
    "If all of the Ticker Symbols in your Quote File are displayed on this report, this indicates the Quote "
    "database has not been populated for this particular quote file. See the help menu or the set up wizard.",
    "If the Ticker Symbols displayed in the report are no longer valid symbols, you may delete from the "
    "quote "
    "file.",
    "You may also choose to have Brantlow re-populate the Quote Database for the Ticker symbols listed in "
    "the "
    "report."};

constexpr int kTextWidth = 460;
constexpr int kMargin = 18;
constexpr double kHeadingScale = 1.5;

}  // namespace

frmErrorReport::frmErrorReport(Path report, QWidget* parent) : QDialog(parent), report_(std::move(report)) {
    setObjectName(QStringLiteral("frmErrorReport"));
    setWindowTitle(Name(kHeading));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin * 2 / 3);
    auto* heading = new QLabel(Name(kHeading));
    heading->setObjectName(QStringLiteral("lblHeading"));
    heading->setFont(HeadingFont(heading->font(), kHeadingScale));
    layout->addWidget(heading);
    for (const std::string_view text : kParagraphs) {
        auto* paragraph = new QLabel(Name(text));
        paragraph->setWordWrap(true);
        paragraph->setFixedWidth(kTextWidth);
        layout->addWidget(paragraph);
    }
    auto* buttons = new QDialogButtonBox(this);
    auto* view = buttons->addButton(QStringLiteral("View Data Report"), QDialogButtonBox::ActionRole);
    view->setObjectName(QStringLiteral("Command1"));
    view->setToolTip(QStringLiteral("Show the list of tickers with too little history"));
    auto* repopulate = buttons->addButton(QStringLiteral("Re-populate"), QDialogButtonBox::ActionRole);
    repopulate->setObjectName(QStringLiteral("Command3"));
    repopulate->setToolTip(
        QStringLiteral("Download the history of the tickers in the report anew; it replaces the stored one"));
    auto* close = buttons->addButton(QStringLiteral("Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("Command2"));
    close->setDefault(true);
    close->setFocus();
    layout->addWidget(buttons);
    connect(view, &QPushButton::clicked, this, &frmErrorReport::ViewDataReport);
    connect(repopulate, &QPushButton::clicked, this, &frmErrorReport::Repopulate);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void frmErrorReport::ViewDataReport() {
    ShowTextFile(report_, this);
}

// Closed first: it would stand over the buttons of the run.
void frmErrorReport::Repopulate() {
    accept();
    Q_EMIT RepopulateAsked();
}

}  // namespace brantlow
