#include "store/windows/verdict_legend.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <array>

#include "base/windows/display_text.h"
#include "base/windows/flow_layout.h"
#include "store/table_colours.h"
#include "store/windows/quote_grid_model.h"

namespace brantlow {

namespace {

constexpr int kGap = 6;
constexpr int kLabelMargin = 4;

struct LegendRow {
    CellStyle style;
    std::string_view words;
};
constexpr std::array kLegend = {
    LegendRow{CellStyle::Buy, "Buy"},
    LegendRow{CellStyle::FadingBuy, "Buy, but the trend of 15 bars turns down"},
    LegendRow{CellStyle::Sell, "Sell"},
    LegendRow{CellStyle::RecoveringSell, "Sell, but the trend of 15 bars turns up"},
    LegendRow{CellStyle::Hold, "Hold"},
};

}  // namespace

VerdictLegend::VerdictLegend(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("VerdictLegend"));
    auto* layout = new FlowLayout(this, kGap);
    for (const LegendRow& row : kLegend) {
        auto* label = new QLabel(Name(row.words));
        label->setMargin(kLabelMargin);
        label->setAutoFillBackground(true);
        layout->addWidget(label);
    }
    ShowColours();
}

void VerdictLegend::ShowColours() {
    const QPalette desktop = QApplication::palette();
    const QList<QLabel*> labels = findChildren<QLabel*>();
    for (std::size_t i = 0; i < kLegend.size() && static_cast<qsizetype>(i) < labels.size(); ++i) {
        const CellStyle style = kLegend[i].style;
        const QColor ground = ScreenColour(ColoursOf(style).background, QPalette::Base, desktop);
        const QColor text = WordsOf(style, desktop);
        QLabel* const label = labels.at(static_cast<qsizetype>(i));
        QPalette palette = label->palette();
        if (palette.color(QPalette::Window) == ground && palette.color(QPalette::WindowText) == text)
            continue;
        palette.setColor(QPalette::Window, ground);
        palette.setColor(QPalette::WindowText, text);
        label->setPalette(palette);
    }
}

void VerdictLegend::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ShowColours();
}

}  // namespace brantlow
