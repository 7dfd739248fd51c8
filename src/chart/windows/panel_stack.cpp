#include "chart/windows/panel_stack.h"

#include <QLabel>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <string_view>

#include "base/windows/display_text.h"
#include "chart/scale_labels.h"
#include "chart/windows/chart_panel.h"
#include "chart/windows/panel_border.h"
#include "shell/display.h"

namespace brantlow {

namespace {

// The room that usual prices and volumes take, so that the panels keep their place from ticker to ticker.
const char* const kUsualText = "00000000";
// A longer one stands in its panel, which is empty then: such are the bounds of a scale without values.
const char* const kLongestText = "000000000000";
constexpr int kLabelGap = 2;
constexpr int kInset = 8;
constexpr int kPanelGap = 8;
constexpr double kLabelFontScale = 0.9;
// Less than this is no chart any more: the window scrolls.
constexpr QSize kSmallestPanels(320, 240);
constexpr double kNearlyFull = 1.02;
// Between two words of the time axis, and lines of text from one round price to the next.
constexpr int kTickGap = 16;
const char* const kLongestTick = "2026";
const char* const kLongestWeekTick = "May 28";
// The room at the right that usual round prices take, so that the panels keep their place from ticker to
// ticker.
const char* const kUsualRoundPrice = "00000";
constexpr int kTickLengthPixels = 4;
constexpr int kLinesALevel = 3;

}  // namespace

PanelStack::PanelStack(ChartScene& scene, ChartOptions& options, QWidget* parent)
    : QWidget(parent), scene_(scene), options_(options) {
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i] = new ChartPanel(static_cast<Panel>(i), scene, this);
    }
    for (const Panel above : {Panel::Price, Panel::Study}) AddBorder(above);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * kLabelFontScale);
    for (const ScaleLabel& row : kScaleLabels) {
        auto* label = new QLabel(this);
        label->setObjectName(Name(row.control));
        label->setFont(small);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        labels_.append(label);
    }
    Arrange();
}

void PanelStack::AddBorder(Panel above) {
    auto* border = new PanelBorder(this);
    border->setObjectName(QStringLiteral("border") + QString::fromLatin1(FormOf(above).control));
    connect(border, &PanelBorder::Dragged, this, [this, above](int down) {
        int all = 0;
        for (const ChartPanel* panel : panels_) all += panel->height();
        options_.shares = WithBorderMoved(options_.shares, above, static_cast<double>(down) / all);
        Arrange();
    });
    connect(border, &PanelBorder::Dropped, this, &PanelStack::SharesChosen);
    connect(border, &PanelBorder::Reset, this, [this] {
        options_.shares = DefaultShares();
        Arrange();
        Q_EMIT SharesChosen();
    });
    borders_.append(border);
}

int PanelStack::TopOf(Panel panel) const {
    // Half of the first label stands above its line.
    int top = labels_.constFirst()->sizeHint().height() / 2;
    for (std::size_t i = 0; i < static_cast<std::size_t>(panel); ++i) top += panels_[i]->height() + kPanelGap;
    return top;
}

int PanelStack::LabelRoom() const {
    const QFontMetrics metrics = labels_.constFirst()->fontMetrics();
    const int most = metrics.horizontalAdvance(QString::fromLatin1(kLongestText));
    int room = metrics.horizontalAdvance(QString::fromLatin1(kUsualText));
    for (const QLabel* label : labels_) {
        if (label->sizeHint().width() <= most) room = std::max(room, label->sizeHint().width());
    }
    return room;
}

int PanelStack::TimeAxisHeight() const {
    if (!options_.fitToWindow || !options_.timeAxis) return 0;
    return labels_.constFirst()->fontMetrics().height() + kTickLengthPixels;
}

int PanelStack::RoundPriceRoom() const {
    if (!options_.fitToWindow || !options_.roundPrices) return 0;
    const QFontMetrics metrics = labels_.constFirst()->fontMetrics();
    int room = metrics.horizontalAdvance(QString::fromLatin1(kUsualRoundPrice));
    for (const RoundLevel& level : scene_.Levels())
        room = std::max(room, metrics.horizontalAdvance(Shown(level.text)));
    return kTickLengthPixels + kLabelGap + room;
}

QSize PanelStack::SizeAround(QSize panels) const {
    const int gaps = kPanelGap * static_cast<int>(panels_.size() - 1);
    return {LabelRoom() + kLabelGap + panels.width() + RoundPriceRoom(),
            TopOf(Panel::Price) + panels.height() + gaps + kLabelGap + TimeAxisHeight()};
}

// A chart that fits its window asks for little and takes what there is.
QSize PanelStack::sizeHint() const {
    return options_.fitToWindow ? SizeAround(kSmallestPanels) : OwnSize();
}

QSize PanelStack::OwnSize() const {
    QSize own;
    for (const ChartPanel* panel : panels_) {
        own = QSize(panel->OwnSize().width(), own.height() + panel->OwnSize().height());
    }
    return SizeAround(own);
}

QSize PanelStack::minimumSizeHint() const {
    return sizeHint();
}

std::array<int, kPanels.size()> PanelStack::HeightsIn(int height) const {
    std::array<int, kPanels.size()> heights{};
    int left = height;
    for (std::size_t i = panels_.size() - 1; i > 0; --i) {
        heights[i] = static_cast<int>(std::lround(height * options_.shares[i]));
        left -= heights[i];
    }
    heights[0] = left;
    return heights;
}

// Where their own width all but fills the window, the panels keep it: there every bar takes as many pixels.
int PanelStack::WidthIn(int width) const {
    const int own = panels_[0]->OwnSize().width();
    return width >= own && width < own * kNearlyFull ? own : width;
}

void PanelStack::PlacePanels(int room) {
    if (options_.fitToWindow) {
        const QSize around = SizeAround({0, 0});
        const auto heights = HeightsIn(height() - around.height());
        const int across = WidthIn(width() - around.width());
        for (std::size_t i = 0; i < panels_.size(); ++i) panels_[i]->resize(across, heights[i]);
    } else {
        for (ChartPanel* panel : panels_) panel->resize(panel->OwnSize());
    }
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i]->move(room + kLabelGap, TopOf(static_cast<Panel>(i)));
    }
    for (qsizetype i = 0; i < borders_.size(); ++i) {
        const QRect above = panels_[static_cast<std::size_t>(i)]->geometry();
        borders_[i]->setGeometry(above.left(), above.bottom() + 1, above.width(), kPanelGap);
        borders_[i]->setVisible(options_.fitToWindow);
    }
}

AxisRoom PanelStack::RoomOnAxes() const {
    const QFontMetrics metrics = labels_.constFirst()->fontMetrics();
    const ChartPanel& price = PanelAt(Panel::Price);
    const auto gap = [&](const char* text) {
        return price.TwipsAcross(metrics.horizontalAdvance(QString::fromLatin1(text)) + kTickGap);
    };
    return {gap(kLongestTick),
            static_cast<std::size_t>(std::max(1, price.height() / (kLinesALevel * metrics.height()))),
            gap(kLongestWeekTick)};
}

void PanelStack::Arrange() {
    const bool fits = options_.fitToWindow;
    setMinimumSize(minimumSizeHint());
    setMaximumSize(fits ? QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) : sizeHint());
    if (!fits) resize(sizeHint());
    setSizePolicy(fits ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                  fits ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    PlacePanels(LabelRoom());
    scene_.Update(RoomOnAxes());
    ShowScale();
    // The texts may need another room than those before.
    const int room = LabelRoom();
    PlacePanels(room);
    for (std::size_t i = 0; i < kScaleLabels.size(); ++i) {
        PlaceLabel(kScaleLabels[i].panel, kScaleLabels[i].share, *labels_.at(static_cast<qsizetype>(i)),
                   room);
    }
    for (ChartPanel* panel : panels_) panel->Redraw();
    update();
}

// The panels' own labels hold the scale of the whole view; other views and short volumes have their own
// texts.
void PanelStack::ShowScale() {
    for (std::size_t i = 0; i < kScaleLabels.size(); ++i) {
        const ScaleLabel& row = kScaleLabels[i];
        QLabel& label = *labels_.at(static_cast<qsizetype>(i));
        label.setVisible(scene_.HasScale(row.panel));
        const bool ownText = scene_.IsOwnWindow() && row.panel != Panel::Volume;
        if (!options_.fitToWindow || ownText) continue;
        label.setText(Shown(scene_.ScaleText(row.panel, row.share)));
    }
}

void PanelStack::mouseDoubleClickEvent(QMouseEvent*) {
    Q_EMIT AxisDoubleClicked();
}

void PanelStack::paintEvent(QPaintEvent*) {
    if (!options_.fitToWindow) return;
    QPainter painter(this);
    painter.setFont(labels_.constFirst()->font());
    painter.setPen(palette().color(QPalette::WindowText));
    if (options_.timeAxis) PaintTimeAxis(painter);
    if (options_.roundPrices) PaintRoundPrices(painter);
}

void PanelStack::PaintTimeAxis(QPainter& painter) const {
    const ChartPanel& panel = PanelAt(Panel::Volume);
    const QFontMetrics metrics = painter.fontMetrics();
    const int top = panel.geometry().bottom() + 1;
    int free = panel.x();
    for (const AxisTick& tick : scene_.Ticks()) {
        const double twips = scene_.View().X(static_cast<double>(tick.bar));
        const int x = panel.x() + static_cast<int>(twips / panel.TwipsAcross(1));
        const int width = metrics.horizontalAdvance(Shown(tick.text));
        const int left = std::min(x - width / 2, this->width() - width);
        if (left < free) continue;
        painter.drawLine(x, top, x, top + kTickLengthPixels - 1);
        painter.drawText(left, top + kTickLengthPixels + metrics.ascent(), Shown(tick.text));
        free = left + width + kTickGap / 2;
    }
}

void PanelStack::PaintRoundPrices(QPainter& painter) const {
    const ChartPanel& panel = PanelAt(Panel::Price);
    const QFontMetrics metrics = painter.fontMetrics();
    const int axis = panel.x() + static_cast<int>(kPanelRight / panel.TwipsAcross(1));
    for (const RoundLevel& level : scene_.Levels()) {
        const int y =
            panel.y() + static_cast<int>(scene_.Axis(Panel::Price).Y(level.value) / panel.TwipsDown(1));
        painter.drawLine(axis + 1, y, axis + kTickLengthPixels, y);
        painter.drawText(axis + kTickLengthPixels + kLabelGap, y + metrics.ascent() / 2 - 1,
                         Shown(level.text));
    }
}

void PanelStack::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Arrange();
}

void PanelStack::PlaceLabel(Panel panel, double share, QLabel& label, int room) const {
    const PanelForm& form = FormOf(panel);
    const double lineY = (form.topY + share * form.Height()) * PanelAt(panel).Scale().down;
    const int line = TopOf(panel) + PixelsOf(lineY);
    const QSize size = label.sizeHint();
    if (size.width() <= room) {
        label.setGeometry(0, line - size.height() / 2, room, size.height());
        return;
    }
    const int top = share < 1 ? line + kLabelGap : line - kLabelGap - size.height();
    label.setGeometry(QRect(QPoint(PanelAt(panel).x() + kInset, top), size));
}

}  // namespace brantlow
