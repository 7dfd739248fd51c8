#include "chart/windows/frmGraph.h"

#include <QAbstractItemView>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <span>

#include "base/windows/display_text.h"
#include "chart/chart_picture.h"
#include "chart/windows/chart_painter.h"
#include "chart/windows/chart_panel.h"
#include "chart/windows/panel_stack.h"

namespace brantlow {

namespace {

constexpr int kSpacing = 4;
constexpr int kGroupSpacing = 18;
constexpr double kCaptionScale = 0.9;
constexpr double kSmallestPoints = 5;
constexpr double kPointStep = 0.25;

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

struct PickList {
    std::string_view control;
    const char* words;
    const char* accessibleName;
    std::span<const std::string_view> items;
    std::string ChartSession::*text;
    void (*pick)(ChartContext& context, std::string_view item);
};
constexpr std::array kPickLists = {
    PickList{"Combo1", "&Price series", "Series on the price panel", kPriceSeriesItems, &ChartSession::Combo1,
             &PickPriceSeries},
    PickList{"Combo2", "S&tudy", "Study", kStudyItems, &ChartSession::Combo2, &PickStudy},
    PickList{"Combo3", "Vol&ume series", "Series on the volume panel", kVolumeSeriesItems,
             &ChartSession::Combo3, &PickVolumeSeries},
};

QFont Bold(QFont font) {
    font.setBold(true);
    return font;
}

// Shows `text` whether or not it is one of the list's items.
// A key that would choose another item of a closed list at every press.
bool MovesInAList(const QKeyEvent& key) {
    constexpr std::array kMoves = {Qt::Key_Up,       Qt::Key_Down, Qt::Key_PageUp,
                                   Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
    if (std::find(kMoves.begin(), kMoves.end(), key.key()) != kMoves.end()) return true;
    return !key.text().isEmpty() && key.text().front().isLetterOrNumber();
}

void ShowText(QComboBox& list, const QString& text) {
    list.setPlaceholderText(text);
    list.setCurrentIndex(list.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

void GiveColour(QLabel& label, Rgb colour) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, ColourOf(colour));
    label.setPalette(palette);
}

}  // namespace

frmGraph::frmGraph(const ChartContext& context, ChartOptions& options)
    : context_(context),
      options_(options),
      sheet_(new QWidget),
      scroll_(new QScrollArea),
      panels_(new PanelStack(context.chart, options)) {
    setObjectName(QStringLiteral("frmGraph"));
    sheet_->setObjectName(QStringLiteral("ClientArea"));
    auto* rows = new QVBoxLayout(sheet_);
    rows->setContentsMargins(kSpacing, kSpacing, kSpacing, 0);
    rows->setSpacing(kSpacing);
    BuildValues(*rows);
    BuildPicks(*rows);
    BuildPanels(*rows);
    for (QLabel* label : sheet_->findChildren<QLabel*>()) labels_.insert(label->objectName(), label);

    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    scroll_->setWidget(sheet_);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(scroll_);
    setFocusProxy(picks_.constFirst());
    ConnectPanels();
    ShowOptions();
}

// In its own size the sheet is as large as its parts; else it fills the window.
void frmGraph::ShowOptions() {
    const bool fits = options_.fitToWindow;
    sheet_->layout()->setSizeConstraint(fits ? QLayout::SetDefaultConstraint : QLayout::SetFixedSize);
    sheet_->setMinimumSize(0, 0);
    sheet_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    scroll_->setWidgetResizable(fits);
    Refresh();
    sheet_->layout()->activate();
}

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
    auto* row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    rows.addLayout(row);
    for (const ValueGroup& group : kHeaderValues) {
        row->addWidget(AddLabel(group.header, Name(group.words)));
        for (const std::string_view control : group.values) {
            if (control.empty()) continue;
            QLabel* const value = AddLabel(control);
            value->setFont(Bold(font()));
            row->addWidget(value);
        }
        row->addSpacing(kGroupSpacing);
    }
    row->addStretch();
}

void frmGraph::BuildPicks(QBoxLayout& rows) {
    auto* row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    rows.addLayout(row);
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
        row->addWidget(words);
        row->addWidget(list);
        picks_.append(list);
    }
    row->addStretch();
    row->addWidget(AddButton("CommandReturn", QStringLiteral("Test Buy and Sell Conditions"),
                             QStringLiteral("Replay the Buy and Sell signals of this chart as trades"),
                             &frmGraph::TestAsked));
    row->addWidget(AddButton("Command1", QStringLiteral("Exit"), QStringLiteral("Close the chart"),
                             &frmGraph::ExitAsked));
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
    BuildSlots(*column);
    column->addSpacing(kGroupSpacing);
    BuildReadOuts(*column);
    column->addSpacing(kGroupSpacing);
    BuildFrameButtons(*column);
    column->addStretch();
    column->addWidget(AddButton("Command4", QStringLiteral("Clear Series"),
                                QStringLiteral("Leave only the volume on the volume panel"),
                                &frmGraph::ClearVolume));
    column->addSpacing(kGroupSpacing);
    emptyPrice_ = AddEmptyText("lblEmptyPrice", Panel::Price);
    emptyStudy_ = AddEmptyText("lblEmptyStudy", Panel::Study);
}

// What a panel says in place of a drawing.
QLabel* frmGraph::AddEmptyText(std::string_view name, Panel panel) {
    QLabel* const text = AddLabel(name);
    ChartPanel& ground = panels_->PanelAt(panel);
    text->setParent(&ground);
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    text->setAttribute(Qt::WA_TransparentForMouseEvents);
    // Between two rules, so that none crosses it.
    text->setGeometry(0, 0, ground.width(),
                      panel == Panel::Price ? ground.height() * 3 / 4 : ground.height());
    return text;
}

// The captions lie on the panels' ground, since they bear the colours of the lines.
void frmGraph::BuildSlots(QBoxLayout& column) {
    QLabel* const heading = AddLabel("Label20", QStringLiteral("    Series       "));
    column.addWidget(heading);
    auto* ground = new QFrame;
    ground->setFrameShape(QFrame::StyledPanel);
    ground->setAutoFillBackground(true);
    ground->setBackgroundRole(QPalette::Base);
    auto* captions = new QVBoxLayout(ground);
    captions->setContentsMargins(kSpacing, 2, kSpacing, 2);
    captions->setSpacing(1);
    QFont captionFont = Bold(font());
    captionFont.setPointSizeF(captionFont.pointSizeF() * kCaptionScale);
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
        column.addWidget(AddLabel(group.header, Name(group.words)));
        QLabel* const value = AddLabel(group.values.front());
        value->setFont(Bold(font()));
        // A read-out that comes and goes moves nothing under the pointer.
        value->setFixedHeight(value->sizeHint().height());
        value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        column.addWidget(value);
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

void frmGraph::ConnectPanels() {
    connect(panels_, &PanelStack::SharesChosen, this, &frmGraph::OptionsChosen);
    for (std::size_t i = 0; i < kPanels.size(); ++i) {
        ChartPanel& panel = panels_->PanelAt(static_cast<Panel>(i));
        connect(&panel, &ChartPanel::Pressed, this, [this](double x) {
            PressPanel(context_, x);
            Refresh();
        });
        connect(&panel, &ChartPanel::Released, this, [this](Panel released) {
            ReleasePanel(context_, released);
            Refresh();
        });
    }
}

void frmGraph::Picked(std::size_t list, int item) {
    const PickList& pick = kPickLists[list];
    pick.pick(context_, pick.items[static_cast<std::size_t>(item)]);
    Refresh();
}

void frmGraph::ClearPrice() {
    ClearPriceSeries(context_);
    Refresh();
}

void frmGraph::ClearVolume() {
    ClearVolumeSeries(context_);
    Refresh();
}

void frmGraph::Coarser() {
    if (CoarserTimeFrame(context_)) Refresh();
}

void frmGraph::Finer() {
    if (FinerTimeFrame(context_)) Refresh();
}

void frmGraph::ShowAlarms(const QuoteTable& table, std::size_t row) {
    if (brantlow::ShowAlarms(context_, {context_.chart.SelectorTicker, &table, row})) Refresh();
}

void frmGraph::Refresh() {
    const ChartSession& chart = context_.chart;
    setWindowTitle(Shown(chart.Label58));
    ShowLabels();
    ShowReadOut();
    for (std::size_t i = 0; i < kPickLists.size(); ++i) {
        ShowText(*picks_.at(static_cast<qsizetype>(i)), Shown(chart.*kPickLists[i].text));
    }
    timeFrame_->setText(Name(TimeFrameName(chart.ChartTimeFrame)));
    ShowEmptyTexts();
    panels_->Arrange();
    panels_->update();
    for (std::size_t i = 0; i < kPanels.size(); ++i) panels_->PanelAt(static_cast<Panel>(i)).update();
}

void frmGraph::ShowLabels() {
    for (const PanelDrawing& picture : context_.chart.Pictures) {
        for (const PanelLabel& text : picture.labels) {
            QLabel* const label = labels_.value(Name(text.control));
            label->setText(Shown(text.text));
            if (text.colour) GiveColour(*label, *text.colour);
        }
    }
}

void frmGraph::ShowReadOut() {
    const MouseReadOut& readOut = context_.chart.ReadOut;
    ShowWhole("Label68", readOut.Label68);
    ShowWhole("Label69", readOut.Label69);
    ShowWhole("Label28", readOut.Label28);
    ShowWhole("Label26", readOut.Label26);
}

void frmGraph::ShowWhole(std::string_view control, const std::string& text) {
    QLabel* const label = labels_.value(Name(control));
    if (label == nullptr) return;
    QFont font = Bold(this->font());
    while (font.pointSizeF() > kSmallestPoints &&
           QFontMetrics(font).horizontalAdvance(Shown(text)) >= label->width()) {
        font.setPointSizeF(font.pointSizeF() - kPointStep);
    }
    label->setFont(font);
    label->setText(Shown(text));
}

void frmGraph::ShowEmptyTexts() {
    const std::optional<std::string> noHistory = EmptyPriceText(context_.analysis.series);
    const std::optional<std::string> noStudy = noHistory ? std::nullopt : EmptyStudyText(context_.chart);
    emptyPrice_->setText(Shown(noHistory.value_or("")));
    emptyPrice_->setVisible(noHistory.has_value());
    emptyStudy_->setText(Shown(noStudy.value_or("")));
    emptyStudy_->setVisible(noStudy.has_value());
}

void frmGraph::closeEvent(QCloseEvent* event) {
    event->ignore();
    Q_EMIT ExitAsked();
}

void frmGraph::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
    Q_EMIT ExitAsked();
}

bool frmGraph::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    auto* const list = static_cast<QComboBox*>(watched);
    auto* const key = static_cast<QKeyEvent*>(event);
    if (list->view()->isVisible() || !MovesInAList(*key)) return QWidget::eventFilter(watched, event);
    list->showPopup();
    if (!key->text().isEmpty()) QCoreApplication::sendEvent(list->view(), event);
    return true;
}

}  // namespace brantlow
