#include "chart/windows/values_line.h"

#include <QPainter>
#include <algorithm>

#include "base/windows/display_text.h"
#include "base/windows/labels.h"
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
const char* const kGap = "   ";

}  // namespace

ValuesLine::ValuesLine(QWidget* parent) : QWidget(parent) {
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * kFontScale);
    setFont(small);
    setObjectName(QStringLiteral("lblValues"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(QStringLiteral("Values at the crosshair"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ValuesLine::ShowValues(const std::vector<HoverValue>& values, const ChartPalette& palette,
                            const QString& remark) {
    ground_ = ColourOf(palette.ground);
    pairs_.clear();
    for (const HoverValue& value : values) {
        pairs_.push_back({Shown(value.name), Shown(value.text),
                          ColourOf(value.colour.value_or(palette.quiet)),
                          ColourOf(value.colour.value_or(palette.ink))});
    }
    if (!remark.isEmpty()) pairs_.push_back({remark, {}, ColourOf(palette.quiet), {}});
    setAccessibleDescription(Text());
    TakeRoom();
    update();
}

QString ValuesLine::Text() const {
    QStringList words;
    for (const Pair& pair : pairs_)
        words << (pair.value.isEmpty() ? pair.name : pair.name + u' ' + pair.value);
    return words.join(QStringLiteral("  "));
}

// By the number of values and not by their digits, so that the panels below keep their place from bar to bar.
void ValuesLine::TakeRoom() {
    const qsizetype all = static_cast<qsizetype>(pairs_.size()) *
                          fontMetrics().horizontalAdvance(QString::fromLatin1(kUsualPair));
    const auto lines =
        static_cast<int>((all + std::max(width(), kNarrowest) - 1) / std::max(width(), kNarrowest));
    const int height =
        std::clamp(lines, kFewestLines, kMostLines) * fontMetrics().lineSpacing() + 2 * kMargin;
    if (height != minimumHeight()) setFixedHeight(height);
}

void ValuesLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    TakeRoom();
}

void ValuesLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ground_);
    const QFont bold = Bold(font());
    const QFontMetrics names = fontMetrics();
    const QFontMetrics values(bold);
    const int gap = names.horizontalAdvance(QString::fromLatin1(kGap));
    const int blank = names.horizontalAdvance(u' ');
    int x = kMargin;
    int y = kMargin + names.ascent();
    for (const Pair& pair : pairs_) {
        const int name = names.horizontalAdvance(pair.name);
        const int value = pair.value.isEmpty() ? 0 : blank + values.horizontalAdvance(pair.value);
        if (x > kMargin && x + name + value > width() - kMargin) {
            x = kMargin;
            y += names.lineSpacing();
        }
        painter.setFont(font());
        painter.setPen(pair.nameColour);
        painter.drawText(x, y, pair.name);
        painter.setFont(bold);
        painter.setPen(pair.valueColour);
        painter.drawText(x + name + blank, y, pair.value);
        x += name + value + gap;
    }
}

}  // namespace brantlow
