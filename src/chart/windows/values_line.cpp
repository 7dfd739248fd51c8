#include "chart/windows/values_line.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

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

// Measured here once, and not again by every paint.
void ValuesLine::Place() {
    const QFontMetrics names = fontMetrics();
    const QFontMetrics values(Bold(font()));
    const int gap = names.horizontalAdvance(QString::fromLatin1(kGap));
    const int blank = names.horizontalAdvance(u' ');
    QPoint at(kMargin, kMargin + names.ascent());
    for (std::size_t i = 0; i < pairs_.size(); ++i) {
        Pair& pair = pairs_[i];
        if (i == nameWidths_.size()) nameWidths_.push_back(names.horizontalAdvance(pair.name));
        pair.nameWidth = nameWidths_[i] + blank;
        pair.valueWidth = pair.value.isEmpty() ? 0 : values.horizontalAdvance(pair.value);
        const int width = nameWidths_[i] + (pair.value.isEmpty() ? 0 : blank + pair.valueWidth);
        if (at.x() > kMargin && at.x() + width > this->width() - kMargin)
            at = QPoint(kMargin, at.y() + names.lineSpacing());
        pair.at = at;
        at.rx() += width + gap;
    }
}

int ValuesLine::Lines() const {
    return pairs_.empty() ? 1 : (pairs_.back().at.y() - kMargin) / fontMetrics().lineSpacing() + 1;
}

// By the number of values and not by their digits, so that the panels below keep their place from bar to bar;
// but once the values of a bar have taken another line, it stays.
void ValuesLine::TakeRoom() {
    const qsizetype all = static_cast<qsizetype>(pairs_.size()) *
                          fontMetrics().horizontalAdvance(QString::fromLatin1(kUsualPair));
    const int room = std::max(width(), kNarrowest);
    const auto usual = std::clamp(static_cast<int>((all + room - 1) / room), kFewestLines, kMostLines);
    QString names = QString::number(width());
    for (const Pair& pair : pairs_) names += u'|' + pair.name;
    if (std::exchange(names_, names) != names) {
        lines_ = 0;
        nameWidths_.clear();
    }
    Place();
    if (isLaidOut_) lines_ = std::max(lines_, Lines());
    const int height = std::max(usual, lines_) * fontMetrics().lineSpacing() + 2 * kMargin;
    if (height == minimumHeight()) return;
    setFixedHeight(height);
    Q_EMIT RoomChanged();
}

void ValuesLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    isLaidOut_ = true;
    TakeRoom();
}

void ValuesLine::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange) return;
    names_.clear();
    TakeRoom();
}

void ValuesLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ground_);
    const QFont bold = Bold(font());
    for (const Pair& pair : pairs_) {
        painter.setFont(font());
        painter.setPen(pair.nameColour);
        painter.drawText(pair.at, pair.name);
        painter.setFont(bold);
        painter.setPen(pair.valueColour);
        painter.drawText(pair.at + QPoint(pair.nameWidth, 0), pair.value);
    }
}

}  // namespace brantlow
