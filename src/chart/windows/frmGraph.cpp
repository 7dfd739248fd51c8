#include "chart/windows/frmGraph.h"

#include <QAbstractItemView>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <utility>

#include "base/windows/colours.h"
#include "base/windows/display_text.h"
#include "base/windows/labels.h"
#include "chart/chart_picture.h"
#include "chart/scene_picture.h"
#include "chart/ticker_walk.h"
#include "chart/windows/chart_painter.h"
#include "chart/windows/chart_panel.h"
#include "chart/windows/chart_picks.h"
#include "chart/windows/hand_desk.h"
#include "chart/windows/panel_stack.h"
#include "chart/windows/values_line.h"
#include "chart/windows/window_picture.h"

namespace brantlow {

namespace {

constexpr double kSmallestPoints = 5;
constexpr double kPointStep = 0.25;
// Whoever goes on to the next ticker at once has no use for the whole history.
constexpr int kReadAheadMilliseconds = 100;
// The pointer's and the focus's way back from a list that closes would hide a tip again.
constexpr int kTipAfterMilliseconds = 300;

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
      desk_(new HandDesk(context, scene_, panels_->PanelAt(Panel::Price))),
      readAhead_(new QTimer(this)) {
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
    scroll_->installEventFilter(this);
    setFocusPolicy(Qt::ClickFocus);
    ConnectPanels();
    readAhead_->setSingleShot(true);
    readAhead_->setInterval(kReadAheadMilliseconds);
    connect(readAhead_, &QTimer::timeout, this, [this] {
        // One that was closed may be all that is left of its chart.
        if (isVisible()) scene_.Zoom().ReadAhead();
    });
    readAhead_->start();
    ShowOptions();
}

// In its own size the sheet is as large as its parts; else it fills the window.
void frmGraph::ShowOptions() {
    LookAtDesktop();
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
    ArrangeReadOuts();
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
    // The strip may take one row more now.
    ArrangeReadOuts();
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

void frmGraph::ConnectPanels() {
    connect(panels_, &PanelStack::SharesChosen, this, &frmGraph::OptionsChosen);
    connect(panels_, &PanelStack::AxisDoubleClicked, this, &frmGraph::ResetView);
    // Not while the values are laid out themselves.
    connect(values_, &ValuesLine::RoomChanged, this, &frmGraph::ArrangeReadOuts, Qt::QueuedConnection);
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
    const bool isRefused = list == 0 && !HasFreeSlot(context_.chart);
    pick.pick(context_, pick.items[static_cast<std::size_t>(item)]);
    PaintedAgain();
    setFocus();
    if (isRefused) TellNoFreeSlot();
}

// In the status bar, and at the button that it names.
void frmGraph::TellNoFreeSlot() {
    Q_EMIT Told(std::string(kNoFreeSlot));
    QTimer::singleShot(kTipAfterMilliseconds, this, [this] {
        auto* const clear = findChild<QPushButton*>(QStringLiteral("Command3"));
        QToolTip::showText(clear->mapToGlobal(clear->rect().bottomLeft()), Name(kNoFreeSlot), clear);
    });
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

QImage frmGraph::PaperPicture() {
    const ChartColours chosen = options_.colours;
    if (chosen == ChartColours::Dark) options_.colours = ChartColours::Standard;
    if (options_.colours != chosen) Refresh();
    QImage picture = Picture();
    if (std::exchange(options_.colours, chosen) != chosen) Refresh();
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
    readAhead_->start();
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
    if (scene_.Zoom().PanBy(bars)) ShowView();
}

// Another stretch has other bars under the crosshair.
void frmGraph::ShowView() {
    PlaceCrosshair(0);
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
            label->setText(Shown(scene_.HeaderText(text)));
        }
    }
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
    PlaceCrosshair(bar, over, y);
    if (isOther) ShowValues();
}

void frmGraph::PlaceCrosshair(std::size_t bar, std::optional<Panel> over, double y) {
    crosshair_ = bar;
    const std::optional<double> x =
        bar > 0 ? std::optional(scene_.View().X(static_cast<double>(bar))) : std::nullopt;
    for (std::size_t i = 0; i < kPanels.size(); ++i) {
        const auto panel = static_cast<Panel>(i);
        panels_->PanelAt(panel).ShowCrosshair(x, over == panel ? std::optional(y) : std::nullopt);
    }
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

void frmGraph::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ArrangeReadOuts();
}

bool frmGraph::LookAtDesktop() {
    const bool isDark = IsDark(palette().color(QPalette::Window));
    return std::exchange(options_.isDarkDesktop, isDark) != isDark;
}

void frmGraph::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && LookAtDesktop()) Refresh();
}

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

// A key that no control of the window has taken would scroll an area that has nothing to scroll.
bool frmGraph::TakesKeyBeforeScrolling(QKeyEvent& key) {
    key.accept();
    keyPressEvent(&key);
    return key.isAccepted();
}

bool frmGraph::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && watched != scroll_) {
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    if (watched == scroll_) return TakesKeyBeforeScrolling(*static_cast<QKeyEvent*>(event));
    auto* const list = static_cast<QComboBox*>(watched);
    auto* const key = static_cast<QKeyEvent*>(event);
    if (list->view()->isVisible() || !MovesInAList(*key)) return QWidget::eventFilter(watched, event);
    list->showPopup();
    if (!key->text().isEmpty()) QCoreApplication::sendEvent(list->view(), event);
    return true;
}

}  // namespace brantlow
