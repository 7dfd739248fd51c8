#include "chart/windows/frmGraph.h"

#include <QAbstractItemView>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "base/windows/display_text.h"
#include "base/windows/flow_layout.h"
#include "base/windows/labels.h"
#include "chart/chart_picture.h"
#include "chart/scene_picture.h"
#include "chart/ticker_walk.h"
#include "chart/windows/chart_painter.h"
#include "chart/windows/chart_panel.h"
#include "chart/windows/hand_desk.h"
#include "chart/windows/panel_stack.h"
#include "chart/windows/values_line.h"
#include "chart/windows/window_picture.h"

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
      scene_(context, options),
      sheet_(new QWidget),
      scroll_(new QScrollArea),
      panels_(new PanelStack(scene_, options)),
      desk_(new HandDesk(context, scene_, panels_->PanelAt(Panel::Price))) {
    setObjectName(QStringLiteral("frmGraph"));
    sheet_->setObjectName(QStringLiteral("ClientArea"));
    auto* rows = new QVBoxLayout(sheet_);
    rows->setContentsMargins(kSpacing, kSpacing, kSpacing, 0);
    rows->setSpacing(kSpacing);
    BuildValues(*rows);
    BuildPicks(*rows);
    values_ = new ValuesLine;
    rows->addWidget(values_);
    BuildPanels(*rows);
    for (QLabel* label : sheet_->findChildren<QLabel*>()) labels_.insert(label->objectName(), label);

    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    scroll_->setWidget(sheet_);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(scroll_);
    setFocusPolicy(Qt::ClickFocus);
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
    values_->setVisible(fits);
    desk_->Button()->setVisible(fits);
    LayOut(header_);
    LayOut(choices_);
    if (!fits) {
        scene_.Zoom().Reset();
        ShowCrosshair(0);
    }
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
    header_.parts << ticker_ << walk_;
    OfferWalks({});
}

void frmGraph::OfferWalks(const std::vector<std::size_t>& conditions) {
    const std::size_t chosen = WalkCondition();
    walk_->clear();
    walk_->addItem(QStringLiteral("All rows"), QVariant::fromValue<qulonglong>(kEveryRow));
    for (const std::size_t condition : conditions) {
        walk_->addItem(QStringLiteral("Hits of Condition %1").arg(condition),
                       QVariant::fromValue<qulonglong>(condition));
    }
    walk_->setCurrentIndex(std::max(0, walk_->findData(QVariant::fromValue<qulonglong>(chosen))));
    // Without a condition there is nothing to choose.
    walk_->setVisible(!conditions.empty());
}

std::size_t frmGraph::WalkCondition() const {
    return static_cast<std::size_t>(walk_->currentData().toULongLong());
}

void frmGraph::EnterTicker() {
    const std::string ticker = ticker_->text().trimmed().toUpper().toStdString();
    if (ticker.empty()) return;
    ticker_->clear();
    Q_EMIT TickerAsked(ticker);
    setFocus();
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
    connect(panels_, &PanelStack::AxisDoubleClicked, this, &frmGraph::ResetView);
    connect(desk_, &HandDesk::Told, this, &frmGraph::Told);
    connect(desk_, &HandDesk::FocusWanted, this, [this] { setFocus(); });
    for (std::size_t i = 0; i < kPanels.size(); ++i) {
        ChartPanel& panel = panels_->PanelAt(static_cast<Panel>(i));
        connect(&panel, &ChartPanel::Pressed, this, [this](double x) {
            setFocus(Qt::MouseFocusReason);
            ChartContext shown = scene_.Shown();
            PressPanel(shown, scene_.View().ToList(x));
            dragged_ = 0;
            Refresh();
        });
        connect(&panel, &ChartPanel::Dragged, this, &frmGraph::Drag);
        connect(&panel, &ChartPanel::Zoomed, this, [this](double x, double factor) {
            scene_.Zoom().ZoomAbout(x, factor);
            ShowView();
        });
        connect(&panel, &ChartPanel::Hovered, this, [this, i](double x, double y) {
            if (!options_.fitToWindow) return;
            ShowCrosshair(scene_.View().BarAt(x, scene_.BarCount()), static_cast<Panel>(i), y);
        });
        connect(&panel, &ChartPanel::Left, this, [this] { ShowCrosshair(0); });
        connect(&panel, &ChartPanel::Released, this, [this](Panel released) {
            ReleasePanel(context_, released);
            scene_.Shown().chart.ReadOut = {};
            scene_.Zoom().PaintedAgain();
            Refresh();
        });
    }
}

void frmGraph::Picked(std::size_t list, int item) {
    const PickList& pick = kPickLists[list];
    if (list == 0 && !HasFreeSlot(context_.chart)) TellNoFreeSlot();
    pick.pick(context_, pick.items[static_cast<std::size_t>(item)]);
    PaintedAgain();
    setFocus();
}

// In the status bar, and at the button that it names.
void frmGraph::TellNoFreeSlot() {
    const auto* const clear = findChild<QPushButton*>(QStringLiteral("Command3"));
    QToolTip::showText(clear->mapToGlobal(clear->rect().bottomLeft()), Name(kNoFreeSlot),
                       findChild<QPushButton*>(QStringLiteral("Command3")));
    Q_EMIT Told(std::string(kNoFreeSlot));
}

void frmGraph::ClearPrice() {
    ClearPriceSeries(context_);
    PaintedAgain();
}

void frmGraph::ClearVolume() {
    ClearVolumeSeries(context_);
    PaintedAgain();
}

void frmGraph::Coarser() {
    if (CoarserTimeFrame(context_)) Reloaded();
}

void frmGraph::Finer() {
    if (FinerTimeFrame(context_)) Reloaded();
}

void frmGraph::ShowAlarms(const QuoteTable& table, std::size_t row) {
    if (brantlow::ShowAlarms(context_, {context_.chart.SelectorTicker, &table, row})) PaintedAgain();
}

QSize frmGraph::UsualSize() const {
    return sheet_->sizeHint() - panels_->sizeHint() + panels_->OwnSize();
}

QImage frmGraph::Picture() {
    ChartPanel& price = panels_->PanelAt(Panel::Price);
    scene_.ShowHand(HandRings::None);
    price.Redraw();
    QImage picture = CaptureClient(*sheet_);
    scene_.ShowHand();
    price.Redraw();
    return picture;
}

std::string frmGraph::Svg() const {
    return SvgOfScene(scene_);
}

void frmGraph::TickerChanged() {
    crosshair_ = 0;
    Reloaded();
    desk_->Load();
}

void frmGraph::AskBeforeDrawing(std::function<bool()> isBusy) {
    desk_->AskBefore(std::move(isBusy));
}

void frmGraph::PaintedAgain() {
    scene_.Zoom().PaintedAgain();
    Refresh();
}

void frmGraph::Reloaded() {
    if (options_.fitToWindow)
        scene_.Zoom().Reloaded();
    else
        scene_.Zoom().ForgetHistory();
    ShowView();
}

void frmGraph::ZoomIn() {
    scene_.Zoom().ZoomAbout(ZoomCentre(), 1 / kZoomStep);
    ShowView();
}

void frmGraph::ZoomOut() {
    scene_.Zoom().ZoomAbout(ZoomCentre(), kZoomStep);
    ShowView();
}

// Keys zoom about the crosshair, without one about the newest bar that is shown.
double frmGraph::ZoomCentre() const {
    const std::size_t bar = crosshair_ > 0 ? crosshair_ : std::min(scene_.View().Last(), scene_.BarCount());
    return scene_.View().X(static_cast<double>(bar));
}

void frmGraph::GoToOldest() {
    scene_.Zoom().PanToOldest();
    ShowView();
}

void frmGraph::GoToNewest() {
    scene_.Zoom().PanToNewest();
    ShowView();
}

void frmGraph::ResetView() {
    if (!options_.fitToWindow) return;
    scene_.Zoom().Reset();
    ShowView();
}

void frmGraph::Drag(double twips) {
    dragged_ += twips / scene_.View().Spacing();
    const auto bars = static_cast<std::ptrdiff_t>(dragged_);
    if (bars == 0) return;
    dragged_ -= static_cast<double>(bars);
    scene_.Zoom().PanBy(bars);
    ShowView();
}

// Another stretch has other bars under the crosshair.
void frmGraph::ShowView() {
    ShowCrosshair(0);
    Refresh();
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
    Command5->setEnabled(HasCoarserTimeFrame(chart));
    Command6->setEnabled(HasFinerTimeFrame(chart));
    panels_->Arrange();
    ShowCaptions();
    ShowEmptyTexts();
    ShowValues();
}

void frmGraph::ShowLabels() {
    for (const PanelDrawing& picture : context_.chart.Pictures) {
        for (const PanelLabel& text : picture.labels) {
            QLabel* const label = labels_.value(Name(text.control));
            label->setText(Shown(text.text));
        }
    }
    if (scene_.IsOwnWindow() || scene_.BarCount() == 0) return;
    const TextSeries& dates = scene_.Data().series.QuoteDate;
    labels_.value(QStringLiteral("Label60"))->setText(Shown(dates[scene_.View().first]));
    labels_.value(QStringLiteral("Label62"))
        ->setText(Shown(dates[std::min(scene_.View().Last(), scene_.BarCount())]));
}

// On the ground of the panels, since they bear the colours of the lines.
void frmGraph::ShowCaptions() {
    const ChartPalette& palette = scene_.Palette();
    QPalette ground = legendGround_->palette();
    ground.setColor(QPalette::Base, ColourOf(palette.ground));
    legendGround_->setPalette(ground);
    const auto legend = SlotLegend(scene_.Chart(), scene_.BarCount(), palette);
    for (std::size_t slot = 0; slot < legend.size(); ++slot) {
        QLabel& label = *labels_.value(Name(kSlotControls[slot]));
        GiveColour(label, legend[slot].colour);
        label.setToolTip(legend[slot].isDrawn ? QString() : QStringLiteral("Too few bars for this series"));
    }
    // Names of another width take their room now, and not under the pointer later on.
    legendGround_->layout()->activate();
    sheet_->layout()->activate();
}

void frmGraph::ShowValues() {
    const std::size_t newest = std::min(scene_.View().Last(), scene_.BarCount());
    const ChartPalette& palette = scene_.Palette();
    values_->ShowValues(
        HoverValuesAt(scene_.Chart(), scene_.Data(), crosshair_ > 0 ? crosshair_ : newest, palette), palette,
        Shown(scene_.Zoom().Remark()));
}

void frmGraph::ShowCrosshair(std::size_t bar, std::optional<Panel> over, double y) {
    const bool isOther = bar != crosshair_;
    crosshair_ = bar;
    const std::optional<double> x =
        bar > 0 ? std::optional(scene_.View().X(static_cast<double>(bar))) : std::nullopt;
    for (std::size_t i = 0; i < kPanels.size(); ++i) {
        const auto panel = static_cast<Panel>(i);
        panels_->PanelAt(panel).ShowCrosshair(x, over == panel ? std::optional(y) : std::nullopt);
    }
    if (isOther) ShowValues();
}

// From the newest bar where there is no crosshair yet.
void frmGraph::MoveCrosshair(int bars) {
    const std::size_t newest = std::min(scene_.View().Last(), scene_.BarCount());
    if (newest == 0) return;
    const auto first = static_cast<std::int64_t>(scene_.View().first);
    const auto from = static_cast<std::int64_t>(crosshair_ > 0 ? crosshair_ : newest + (bars < 0 ? 1U : 0U));
    const std::int64_t wanted = from + bars;
    const auto bar = std::clamp(wanted, first, static_cast<std::int64_t>(newest));
    // At an edge the stretch moves on.
    if (wanted != bar && !scene_.IsOwnWindow()) {
        scene_.Zoom().PanBy(bar - wanted);
        Refresh();
        return ShowCrosshair(wanted < bar ? scene_.View().first
                                          : std::min(scene_.View().Last(), scene_.BarCount()));
    }
    ShowCrosshair(static_cast<std::size_t>(bar));
    desk_->FollowCrosshair(crosshair_);
}

void frmGraph::ShowReadOut() {
    const MouseReadOut& readOut = scene_.Chart().ReadOut;
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
    for (QLabel* text : {emptyPrice_, emptyStudy_}) GiveColour(*text, scene_.Palette().quiet);
    // Between two rules, so that none crosses it.
    const QSize price = panels_->PanelAt(Panel::Price).size();
    emptyPrice_->setGeometry(0, 0, price.width(), price.height() * 3 / 4);
    emptyStudy_->setGeometry(QRect(QPoint(), panels_->PanelAt(Panel::Study).size()));
    emptyPrice_->setText(Shown(noHistory.value_or("")));
    emptyPrice_->setVisible(noHistory.has_value());
    emptyStudy_->setText(Shown(noStudy.value_or("")));
    emptyStudy_->setVisible(noStudy.has_value());
}

// What keys do that no control of the window takes.
struct frmGraph::KeyRow {
    int key;
    Qt::KeyboardModifiers modifiers;
    // Not in the chart's own size.
    bool fittingOnly;
    void (frmGraph::*act)();
};
const frmGraph::KeyRow frmGraph::kKeys[] = {
    {Qt::Key_Escape, Qt::NoModifier, false, &frmGraph::ExitAsked},
    {Qt::Key_Left, Qt::NoModifier, true, &frmGraph::CrosshairBack},
    {Qt::Key_Right, Qt::NoModifier, true, &frmGraph::CrosshairOn},
    {Qt::Key_Home, Qt::NoModifier, true, &frmGraph::GoToOldest},
    {Qt::Key_End, Qt::NoModifier, true, &frmGraph::GoToNewest},
    {Qt::Key_Plus, Qt::NoModifier, true, &frmGraph::ZoomIn},
    {Qt::Key_Plus, Qt::ShiftModifier, true, &frmGraph::ZoomIn},
    {Qt::Key_Equal, Qt::NoModifier, true, &frmGraph::ZoomIn},
    {Qt::Key_Minus, Qt::NoModifier, true, &frmGraph::ZoomOut},
    {Qt::Key_0, Qt::NoModifier, true, &frmGraph::ResetView},
    {Qt::Key_PageDown, Qt::NoModifier, false, &frmGraph::StepDown},
    {Qt::Key_PageUp, Qt::NoModifier, false, &frmGraph::StepUp},
};

void frmGraph::closeEvent(QCloseEvent* event) {
    event->ignore();
    Q_EMIT ExitAsked();
}

// A key of drawing by hand is that before it is a shortcut of the menu.
bool frmGraph::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && HandDesk::IsOwn(*static_cast<QKeyEvent*>(event)))
        event->accept();
    return QWidget::event(event);
}

void frmGraph::keyPressEvent(QKeyEvent* event) {
    if (desk_->TakeKey(*event, crosshair_)) return;
    const auto* const found = std::find_if(std::begin(kKeys), std::end(kKeys), [&](const KeyRow& row) {
        return row.key == event->key() && row.modifiers == (event->modifiers() & ~Qt::KeypadModifier);
    });
    if (found == std::end(kKeys) || (found->fittingOnly && !options_.fitToWindow))
        return QWidget::keyPressEvent(event);
    (this->*found->act)();
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
