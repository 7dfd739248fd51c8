#include "chart/windows/panel_stack.h"

#include <QLabel>
#include <algorithm>
#include <string_view>

#include "base/windows/display_text.h"
#include "chart/windows/chart_panel.h"
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
constexpr int kLabelGap = 2;
constexpr int kPanelGap = 8;
constexpr double kLabelFontScale = 0.9;

}  // namespace

PanelStack::PanelStack(const ChartSession& chart, QWidget* parent) : QWidget(parent) {
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i] = new ChartPanel(static_cast<Panel>(i), chart, this);
    }
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * kLabelFontScale);
    for (const ScaleLabel& row : kScaleLabels) {
        auto* label = new QLabel(this);
        label->setObjectName(Name(row.control));
        label->setFont(small);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        labels_.append(label);
    }
    PlaceLabels();
}

int PanelStack::TopOf(Panel panel) const {
    // Half of the first label stands above its line.
    int top = labels_.constFirst()->sizeHint().height() / 2;
    for (std::size_t i = 0; i < static_cast<std::size_t>(panel); ++i) top += panels_[i]->height() + kPanelGap;
    return top;
}

void PanelStack::PlaceLabels() {
    int room = labels_.constFirst()->fontMetrics().horizontalAdvance(QString::fromLatin1(kUsualText));
    for (const QLabel* label : labels_) room = std::max(room, label->sizeHint().width());
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i]->move(room + kLabelGap, TopOf(static_cast<Panel>(i)));
    }
    for (std::size_t i = 0; i < kScaleLabels.size(); ++i) {
        const ScaleLabel& row = kScaleLabels[i];
        QLabel* const label = labels_.at(static_cast<qsizetype>(i));
        const PanelForm& form = FormOf(row.panel);
        const int line = TopOf(row.panel) + PixelsOf(form.topY + row.share * form.Height());
        const int height = label->sizeHint().height();
        label->setGeometry(0, line - height / 2, room, height);
    }
    const ChartPanel& last = PanelAt(Panel::Volume);
    setFixedSize(last.geometry().right() + 1, last.geometry().bottom() + 1 + kLabelGap);
}

}  // namespace brantlow
