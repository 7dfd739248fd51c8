#include "chart/windows/panel_stack.h"

#include <QLabel>
#include <algorithm>
#include <cmath>
#include <string_view>

#include "base/windows/display_text.h"
#include "chart/windows/chart_panel.h"
#include "chart/windows/panel_border.h"
#include "shell/display.h"

namespace brantlow {

namespace {

struct ScaleLabel {
    std::string_view control;
    Panel panel;
    // Where its line is: 0 the top line, 1 the bottom line.
    double share;
};
constexpr std::array kScaleLabels = {
    ScaleLabel{"Label51", Panel::Price, 0},   ScaleLabel{"Label25", Panel::Price, 0.25},
    ScaleLabel{"Label52", Panel::Price, 0.5}, ScaleLabel{"Label27", Panel::Price, 0.75},
    ScaleLabel{"Label53", Panel::Price, 1},   ScaleLabel{"Label54", Panel::Study, 0},
    ScaleLabel{"Label55", Panel::Study, 1},   ScaleLabel{"Label56", Panel::Volume, 0},
    ScaleLabel{"Label57", Panel::Volume, 1},
};

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

}  // namespace

PanelStack::PanelStack(const ChartSession& chart, ChartOptions& options, QWidget* parent)
    : QWidget(parent), options_(options) {
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i] = new ChartPanel(static_cast<Panel>(i), chart, this);
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

QSize PanelStack::SizeAround(QSize panels) const {
    const int gaps = kPanelGap * static_cast<int>(panels_.size() - 1);
    return {LabelRoom() + kLabelGap + panels.width(),
            TopOf(Panel::Price) + panels.height() + gaps + kLabelGap};
}

QSize PanelStack::sizeHint() const {
    QSize own;
    for (const ChartPanel* panel : panels_) {
        own = QSize(panel->OwnSize().width(), own.height() + panel->OwnSize().height());
    }
    return SizeAround(own);
}

QSize PanelStack::minimumSizeHint() const {
    return options_.fitToWindow ? SizeAround(kSmallestPanels) : sizeHint();
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

void PanelStack::Arrange() {
    const bool fits = options_.fitToWindow;
    setMinimumSize(minimumSizeHint());
    setMaximumSize(fits ? QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) : sizeHint());
    if (!fits) resize(sizeHint());
    setSizePolicy(fits ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                  fits ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    const int room = LabelRoom();
    PlacePanels(room);
    for (std::size_t i = 0; i < kScaleLabels.size(); ++i) {
        PlaceLabel(kScaleLabels[i].panel, kScaleLabels[i].share, *labels_.at(static_cast<qsizetype>(i)),
                   room);
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
