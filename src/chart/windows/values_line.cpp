#include "chart/windows/values_line.h"

#include <algorithm>

#include "base/windows/display_text.h"
#include "chart/windows/chart_painter.h"

namespace brantlow {

namespace {

constexpr int kFewestLines = 2;
// A name and a value of usual length, with the gap to the next.
const char* const kUsualPair = "MLR 30 100.00 ";
constexpr int kMostLines = 4;
// A label that has not been laid out yet is no measure.
constexpr int kNarrowest = 600;
constexpr int kMargin = 3;
constexpr double kFontScale = 0.92;

QString Coloured(const QString& words, Rgb colour) {
    return QStringLiteral("<span style=\"color:%1\">%2</span>")
        .arg(ColourOf(colour).name(), words.toHtmlEscaped());
}

// A name and its value are not torn apart at the end of a line.
QString Pair(const HoverValue& value, const ChartPalette& palette) {
    const Rgb name = value.colour.value_or(palette.quiet);
    return QStringLiteral("<span style=\"white-space:nowrap\">%1&nbsp;<b>%2</b></span>")
        .arg(Coloured(Shown(value.name), name),
             Coloured(Shown(value.text), value.colour.value_or(palette.ink)));
}

}  // namespace

ValuesLine::ValuesLine(QWidget* parent) : QLabel(parent) {
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * kFontScale);
    setFont(small);
    setObjectName(QStringLiteral("lblValues"));
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setMargin(kMargin);
    setAutoFillBackground(true);
    setAccessibleName(QStringLiteral("Values at the crosshair"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ValuesLine::ShowValues(const std::vector<HoverValue>& values, const ChartPalette& palette,
                            const QString& remark) {
    QPalette colours = this->palette();
    colours.setColor(QPalette::Window, ColourOf(palette.ground));
    colours.setColor(QPalette::WindowText, ColourOf(palette.ink));
    setPalette(colours);
    QStringList words;
    for (const HoverValue& value : values) words << Pair(value, palette);
    if (!remark.isEmpty()) words << Coloured(remark, palette.quiet);
    count_ = words.size();
    TakeRoom();
    setText(words.join(QStringLiteral(" &nbsp; ")));
}

// By the number of values and not by their digits, so that the panels below keep their place from bar to bar.
void ValuesLine::TakeRoom() {
    const qsizetype all = count_ * fontMetrics().horizontalAdvance(QString::fromLatin1(kUsualPair));
    const auto lines =
        static_cast<int>((all + std::max(width(), kNarrowest) - 1) / std::max(width(), kNarrowest));
    const int height =
        std::clamp(lines, kFewestLines, kMostLines) * fontMetrics().lineSpacing() + 2 * kMargin;
    if (height != minimumHeight()) setFixedHeight(height);
}

void ValuesLine::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    TakeRoom();
}

}  // namespace brantlow
