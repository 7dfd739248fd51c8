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
// A longer one stands in its panel, which is empty then: such are the bounds of a scale without values.
const char* const kLongestText = "000000000000";
constexpr int kLabelGap = 2;
constexpr int kInset = 8;
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
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
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
    const QFontMetrics metrics = labels_.constFirst()->fontMetrics();
    const int most = metrics.horizontalAdvance(QString::fromLatin1(kLongestText));
    int room = metrics.horizontalAdvance(QString::fromLatin1(kUsualText));
    for (const QLabel* label : labels_) {
        if (label->sizeHint().width() <= most) room = std::max(room, label->sizeHint().width());
    }
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i]->move(room + kLabelGap, TopOf(static_cast<Panel>(i)));
    }
    for (std::size_t i = 0; i < kScaleLabels.size(); ++i) {
        PlaceLabel(kScaleLabels[i].panel, kScaleLabels[i].share, *labels_.at(static_cast<qsizetype>(i)),
                   room);
    }
    const ChartPanel& last = PanelAt(Panel::Volume);
    setFixedSize(last.geometry().right() + 1, last.geometry().bottom() + 1 + kLabelGap);
}

void PanelStack::PlaceLabel(Panel panel, double share, QLabel& label, int room) const {
    const PanelForm& form = FormOf(panel);
    const int line = TopOf(panel) + PixelsOf(form.topY + share * form.Height());
    const QSize size = label.sizeHint();
    if (size.width() <= room) {
        label.setGeometry(0, line - size.height() / 2, room, size.height());
        return;
    }
    const int top = share < 1 ? line + kLabelGap : line - kLabelGap - size.height();
    label.setGeometry(QRect(QPoint(PanelAt(panel).x() + kInset, top), size));
}

}  // namespace brantlow
