// The parts of the chart's window around its panels, as they are made and laid out.
#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>
#include <array>
#include <string_view>

#include "base/windows/display_text.h"
#include "base/windows/flow_layout.h"
#include "base/windows/labels.h"
#include "chart/windows/chart_panel.h"
#include "chart/windows/chart_picks.h"
#include "chart/windows/frmGraph.h"
#include "chart/windows/hand_desk.h"
#include "chart/windows/panel_stack.h"

namespace brantlow {

namespace {

constexpr int kGroupSpacing = 18;
constexpr double kCaptionScale = 0.9;

// A heading and the values that stand after it.
struct ValueGroup {
    std::string_view header;
    std::string_view words;
    std::array<std::string_view, 3> values;
};
constexpr std::array kHeaderValues = {
    ValueGroup{"Label3", "Symbol:", {"Label58"}},
    ValueGroup{"Label1", "LastPrice:", {"Label59"}},
    ValueGroup{"Label2", "Date:", {"Label60", "Label61", "Label62"}},
    ValueGroup{"Label11", "PEG:", {"Label63"}},
    ValueGroup{"Label12", "P/E:", {"Label64"}},
};
constexpr std::array kReadOuts = {
    ValueGroup{"Label21", "Date:", {"Label68"}},
    ValueGroup{"Label22", "Price:", {"Label69"}},
    ValueGroup{"Label24", "Volume:", {"Label28"}},
    ValueGroup{"Label23", "Indicator:", {"Label26"}},
};

}  // namespace

QLabel* frmGraph::AddLabel(std::string_view control, const QString& words) {
    auto* label = new QLabel(words);
    label->setObjectName(Name(control));
    return label;
}

QPushButton* frmGraph::AddButton(std::string_view control, const QString& words, const QString& toolTip,
                                 void (frmGraph::*pressed)()) {
    auto* button = new QPushButton(words);
    button->setObjectName(Name(control));
    button->setToolTip(toolTip);
    connect(button, &QPushButton::clicked, this, pressed);
    return button;
}

void frmGraph::BuildValues(QBoxLayout& rows) {
    header_.ground = new QWidget;
    header_.gap = kGroupSpacing + kSpacing;
    rows.addWidget(header_.ground);
    for (const ValueGroup& group : kHeaderValues) {
        auto* part = new QWidget(header_.ground);
        auto* row = new QHBoxLayout(part);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(kSpacing);
        row->addWidget(AddLabel(group.header, Name(group.words)));
        for (const std::string_view control : group.values) {
            if (control.empty()) continue;
            QLabel* const value = AddLabel(control);
            value->setFont(Bold(font()));
            row->addWidget(value);
        }
        header_.parts << part;
    }
    header_.atRight = header_.parts.size();
    BuildWalk();
}

void frmGraph::LayOut(const Strip& strip) const {
    delete strip.ground->layout();
    if (options_.fitToWindow) {
        auto* flow = new FlowLayout(strip.ground, kSpacing);
        flow->setContentsMargins(0, 0, 0, 0);
        for (QWidget* part : strip.parts) flow->addWidget(part);
        return;
    }
    auto* row = new QHBoxLayout(strip.ground);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(strip.gap);
    for (qsizetype i = 0; i < strip.parts.size(); ++i) {
        if (i == strip.atRight) row->addStretch();
        row->addWidget(strip.parts[i]);
    }
}

// For the chart of another ticker: typed, or by the keys through the rows of the table.
void frmGraph::BuildWalk() {
    ticker_ = new QLineEdit(header_.ground);
    ticker_->setObjectName(QStringLiteral("txtTicker"));
    ticker_->setAccessibleName(QStringLiteral("Ticker to chart"));
    ticker_->setPlaceholderText(QStringLiteral("Ticker"));
    ticker_->setToolTip(QStringLiteral("Type a ticker and press Enter for its chart"));
    ticker_->setMaximumWidth(fontMetrics().horizontalAdvance(QStringLiteral("WWWWWWWW")));
    connect(ticker_, &QLineEdit::returnPressed, this, &frmGraph::EnterTicker);
    walk_ = new QComboBox(header_.ground);
    walk_->setObjectName(QStringLiteral("cboWalk"));
    walk_->setAccessibleName(QStringLiteral("What Page Up and Page Down go through"));
    walk_->setToolTip(QStringLiteral("What Page Up and Page Down go through"));
    walk_->setFocusPolicy(Qt::StrongFocus);
    walk_->installEventFilter(this);
    // Page Down goes to the first of what was chosen, and not through the list again.
    connect(walk_, &QComboBox::activated, this, [this] { setFocus(); });
    header_.parts << ticker_ << walk_;
    OfferWalks({});
}

void frmGraph::BuildPicks(QBoxLayout& rows) {
    choices_.ground = new QWidget;
    choices_.gap = kSpacing;
    rows.addWidget(choices_.ground);
    for (std::size_t i = 0; i < kPickLists.size(); ++i) {
        const PickList& pick = kPickLists[i];
        auto* list = new QComboBox;
        list->setObjectName(Name(pick.control));
        list->setAccessibleName(QString::fromLatin1(pick.accessibleName));
        list->setToolTip(list->accessibleName());
        for (const std::string_view item : pick.items) list->addItem(Name(item));
        list->setMaxVisibleItems(list->count());
        // A pick draws a line: the wheel is for scrolling, and a key opens the list to choose in.
        list->setFocusPolicy(Qt::StrongFocus);
        list->installEventFilter(this);
        connect(list, &QComboBox::activated, this, [this, i](int item) { Picked(i, item); });
        auto* words = new QLabel(QString::fromLatin1(pick.words));
        words->setBuddy(list);
        auto* part = new QWidget(choices_.ground);
        auto* row = new QHBoxLayout(part);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(kSpacing);
        row->addWidget(words);
        row->addWidget(list);
        choices_.parts << part;
        picks_.append(list);
    }
    choices_.parts << desk_->Button();
    choices_.atRight = choices_.parts.size();
    choices_.parts << AddButton("CommandReturn", QStringLiteral("Test Buy and Sell Conditions"),
                                QStringLiteral("Replay the Buy and Sell signals of this chart as trades"),
                                &frmGraph::TestAsked);
    choices_.parts << AddButton("Command1", QStringLiteral("Exit"), QStringLiteral("Close the chart"),
                                &frmGraph::ExitAsked);
    // At once, so that the Tab key goes from one to the next.
    for (QWidget* part : choices_.parts) part->setParent(choices_.ground);
}

void frmGraph::BuildPanels(QBoxLayout& rows) {
    auto* row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    rows.addLayout(row, 1);
    row->addWidget(panels_, 1);
    auto* column = new QVBoxLayout;
    column->setSpacing(2);
    row->addLayout(column);
    column->addSpacing(panels_->TopOf(Panel::Price));
    const auto addGap = [&] {
        gaps_ << new QSpacerItem(0, kGroupSpacing, QSizePolicy::Minimum, QSizePolicy::Fixed);
        column->addSpacerItem(gaps_.back());
    };
    column_ = column;
    BuildSlots(*column);
    addGap();
    BuildReadOuts(*column);
    addGap();
    BuildFrameButtons(*column);
    column->addStretch();
    column->addWidget(AddButton("Command4", QStringLiteral("Clear Series"),
                                QStringLiteral("Leave only the volume on the volume panel"),
                                &frmGraph::ClearVolume));
    addGap();
    emptyPrice_ = AddEmptyText("lblEmptyPrice", Panel::Price);
    emptyStudy_ = AddEmptyText("lblEmptyStudy", Panel::Study);
}

// What a panel says in place of a drawing.
QLabel* frmGraph::AddEmptyText(std::string_view name, Panel panel) {
    QLabel* const text = AddLabel(name);
    auto* rows = new QVBoxLayout(&panels_->PanelAt(panel));
    rows->setContentsMargins(0, 0, 0, 0);
    // Between two rules of the price panel, so that none crosses it.
    rows->addWidget(text, 3);
    if (panel == Panel::Price) rows->addStretch(1);
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    text->setAttribute(Qt::WA_TransparentForMouseEvents);
    return text;
}

// The captions lie on the panels' ground, since they bear the colours of the lines.
void frmGraph::BuildSlots(QBoxLayout& column) {
    QLabel* const heading = AddLabel("Label20", QStringLiteral("    Series       "));
    column.addWidget(heading);
    auto* ground = new QFrame;
    legendGround_ = ground;
    ground->setFrameShape(QFrame::StyledPanel);
    ground->setAutoFillBackground(true);
    ground->setBackgroundRole(QPalette::Base);
    auto* captions = new QVBoxLayout(ground);
    captions->setContentsMargins(kSpacing, 2, kSpacing, 2);
    captions->setSpacing(1);
    const QFont captionFont = HeadingFont(font(), kCaptionScale);
    for (const std::string_view control : kSlotControls) {
        QLabel* const caption = AddLabel(control);
        caption->setFont(captionFont);
        caption->setForegroundRole(QPalette::WindowText);
        captions->addWidget(caption);
    }
    column.addWidget(ground);
    column.addWidget(AddButton("Command3", QStringLiteral("Clear Series"),
                               QStringLiteral("Leave only the price on the price panel"),
                               &frmGraph::ClearPrice));
}

void frmGraph::BuildReadOuts(QBoxLayout& column) {
    for (const ValueGroup& group : kReadOuts) {
        auto* const pair = new QVBoxLayout;
        pair->setSpacing(column.spacing());
        column.addLayout(pair);
        readOuts_ << pair;
        pair->addWidget(AddLabel(group.header, Name(group.words)));
        QLabel* const value = AddLabel(group.values.front());
        value->setFont(Bold(font()));
        // A read-out that comes and goes moves nothing under the pointer.
        value->setFixedHeight(value->sizeHint().height());
        value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        pair->addWidget(value);
    }
}

void frmGraph::BuildFrameButtons(QBoxLayout& column) {
    Command5 = AddButton("Command5", QStringLiteral("<<"), QStringLiteral("Weekly or Monthly Display"),
                         &frmGraph::Coarser);
    Command6 = AddButton("Command6", QStringLiteral(">>"), QStringLiteral("Daily or Weekly Display"),
                         &frmGraph::Finer);
    timeFrame_ = AddLabel("lblTimeFrame");
    timeFrame_->setAlignment(Qt::AlignCenter);
    column.addWidget(timeFrame_);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {Command5, Command6}) {
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        buttons->addWidget(button);
    }
    column.addLayout(buttons);
}

void frmGraph::ArrangeReadOuts() {
    if (readOuts_.isEmpty()) return;
    const auto arrange = [this](QBoxLayout::Direction direction, int gap) {
        for (QSpacerItem* item : gaps_) item->changeSize(0, gap, QSizePolicy::Minimum, QSizePolicy::Fixed);
        column_->invalidate();
        for (QBoxLayout* pair : readOuts_) {
            pair->setDirection(direction);
            // Beside its heading a value takes the rest of the width, under it no more than its height.
            pair->setStretch(1, direction == QBoxLayout::LeftToRight ? 1 : 0);
        }
        sheet_->layout()->activate();
    };
    arrange(QBoxLayout::TopToBottom, kGroupSpacing);
    if (!options_.fitToWindow) return;
    const QSize room = scroll_->viewport()->size();
    const auto isTooHigh = [&] {
        return sheet_->layout()->minimumHeightForWidth(room.width()) > room.height();
    };
    if (isTooHigh()) arrange(QBoxLayout::LeftToRight, kGroupSpacing);
    if (isTooHigh()) arrange(QBoxLayout::LeftToRight, kSpacing);
}

}  // namespace brantlow
