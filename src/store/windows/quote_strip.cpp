#include "store/windows/quote_strip.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/windows/display_text.h"

namespace brantlow {

namespace {

constexpr int kSymbolBoxWidth = 140;
constexpr int kStripMargin = 6;

}  // namespace

QuoteStrip::QuoteStrip(QWidget* parent) : QWidget(parent), Text1(new QLineEdit) {
    auto* rows = new QVBoxLayout(this);
    rows->setSpacing(kStripMargin);
    rows->setContentsMargins(kStripMargin, kStripMargin, kStripMargin, kStripMargin);
    auto* row = new QHBoxLayout;
    row->setSpacing(kStripMargin);
    rows->addLayout(row);
    AddSymbolBox(*row);
    row->addStretch();
    AddButtons(*row);
}

void QuoteStrip::AddSymbolBox(QHBoxLayout& row) {
    auto* symbol = new QLabel(QStringLiteral("S&ymbol"));
    symbol->setBuddy(Text1);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setFixedWidth(kSymbolBoxWidth);
    Text1->setClearButtonEnabled(true);
    Text1->setToolTip(QStringLiteral("Type the first letters of a ticker to find its row"));
    row.addWidget(symbol);
    row.addWidget(Text1);
}

void QuoteStrip::AddButtons(QHBoxLayout& row) {
    for (const StripButton& rule : kStripButtons) {
        auto* button = new QPushButton(Name(rule.words));
        button->setObjectName(Name(rule.id));
        button->setToolTip(Name(rule.toolTip));
        connect(button, &QPushButton::clicked, this, [this, &rule] { Q_EMIT Pressed(rule.command); });
        row.addWidget(button);
    }
}

void QuoteStrip::ApplyRules(OpenStates state, bool enabled) {
    for (const StripButton& rule : kStripButtons) {
        auto* button = findChild<QPushButton*>(Name(rule.id));
        button->setVisible((rule.shown & state) != 0);
        button->setEnabled(enabled);
    }
}

}  // namespace brantlow
