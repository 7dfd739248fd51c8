#include "chart/windows/chart_painter.h"

#include <QLine>
#include <QPaintDevice>
#include <QPainter>
#include <QPen>
#include <QRect>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "chart/windows/image_pixels.h"
#include "shell/display.h"

namespace brantlow {

namespace {

struct Span {
    double from = 0;
    double to = 1;
};

// Narrows `span`, a part of a line, to where start + part * run lies within 0 and `end`. False when nowhere.
bool Narrow(Span& span, double start, double run, double end) {
    if (std::min(start, start + run) >= 0 && std::max(start, start + run) <= end) return true;
    if (run == 0) return start >= 0 && start <= end;
    const auto [enter, leave] = std::minmax({-start / run, (end - start) / run});
    span.from = std::max(span.from, enter);
    span.to = std::min(span.to, leave);
    return span.from <= span.to;
}

// Draws on whole device pixels. Runs of lines of one colour go to the painter in one call.
class DevicePainter {
  public:
    DevicePainter(QPainter& painter, QSizeF size, const PaintStyle& style)
        : painter_(painter),
          style_(style),
          across_(painter.device()->devicePixelRatioF() * style.scale.across / kTwipsPerPixel),
          down_(painter.device()->devicePixelRatioF() * style.scale.down / kTwipsPerPixel),
          onePixel_(std::max(1, static_cast<int>(std::lround(painter.device()->devicePixelRatioF())))),
          penWidth_(onePixel_),
          width_(size.width() * kTwipsPerPixel / style.scale.across),
          height_(size.height() * kTwipsPerPixel / style.scale.down),
          pixels_(ImagePixels::Of(painter, size)) {
        const double pixel = 1 / painter.device()->devicePixelRatioF();
        painter_.save();
        painter_.setClipRect(QRectF(QPointF(), size), Qt::IntersectClip);
        painter_.scale(pixel, pixel);
        painter_.setBrush(Qt::NoBrush);
    }
    ~DevicePainter() {
        Flush();
        painter_.restore();
    }
    DevicePainter(const DevicePainter&) = delete;
    DevicePainter& operator=(const DevicePainter&) = delete;

    void operator()(const DrawnLine& line) {
        Take(line.colour);
        if (IsDash(line)) return AddDash(line);
        if (const std::optional<QLine> visible = Visible(line)) AddLine(*visible);
    }

    // Small rings look round only when smoothed.
    void operator()(const DrawnCircle& circle) {
        Take(circle.colour);
        Flush();
        SetPen(colour_);
        painter_.setRenderHint(QPainter::Antialiasing, true);
        const double radius = double{circle.radius} * std::min(across_, down_);
        const QPointF halfPen(penWidth_ / 2.0, penWidth_ / 2.0);
        painter_.drawEllipse(Device({double{circle.x}, double{circle.y}}) + halfPen, radius, radius);
        painter_.setRenderHint(QPainter::Antialiasing, false);
    }

  private:
    // What is drawn from here on has this colour of the lists.
    void Take(Rgb listed) {
        if (hasColour_ && listed == listed_) return;
        Flush();
        hasColour_ = true;
        listed_ = listed;
        const MappedColour mapped =
            style_.colours ? (*style_.colours)(style_.panel, listed) : MappedColour{listed};
        colour_ = mapped.colour;
        penWidth_ = style_.wide || (mapped.isSeries && style_.wideSeries) ? 2 * onePixel_ : onePixel_;
    }

    // The device pixel of a place in twips.
    QPoint Device(QPointF twips) const {
        return {static_cast<int>(std::floor(twips.x() * across_)),
                static_cast<int>(std::floor(twips.y() * down_))};
    }

    // The part of a line that lies in the area.
    std::optional<QLine> Visible(const DrawnLine& line) const {
        const QPointF from(double{line.x1}, double{line.y1});
        const QPointF run(double{line.x2} - from.x(), double{line.y2} - from.y());
        Span part;
        if (!Narrow(part, from.x(), run.x(), width_) || !Narrow(part, from.y(), run.y(), height_)) return {};
        return QLine(Device(from + part.from * run), Device(from + part.to * run));
    }

    // A level piece shorter than the pen: with its end pixels it would touch the next one of a dashed rule.
    static bool IsDash(const DrawnLine& line) {
        return line.y1 == line.y2 && line.x1 < line.x2 && line.x2 - line.x1 < kTwipsPerPixel;
    }
    void AddDash(const DrawnLine& line) {
        const double halfPixel = 0.5 / across_;
        const QPoint start = Device({double{line.x1} + halfPixel, double{line.y1}});
        const QPoint end = Device({double{line.x2} + halfPixel, double{line.y2}});
        if (start.x() < end.x()) AddBar({start, QSize(end.x() - start.x(), penWidth_)});
    }

    // Most lines run along an axis. A painter draws those one pixel wide faster as lines.
    void AddLine(const QLine& line) {
        if ((line.dx() != 0 && line.dy() != 0) || (penWidth_ == 1 && !pixels_))
            return lines_.push_back(line.translated(penWidth_ / 2, penWidth_ / 2));
        AddBar({std::min(line.x1(), line.x2()), std::min(line.y1(), line.y2()),
                std::abs(line.dx()) + penWidth_, std::abs(line.dy()) + penWidth_});
    }

    void AddBar(const QRect& bar) {
        if (pixels_)
            pixels_->Fill(bar, ColourOf(colour_).rgb());
        else
            bars_.push_back(bar);
    }

    void SetPen(Rgb colour) {
        QPen pen(ColourOf(colour), penWidth_);
        pen.setCosmetic(true);
        painter_.setPen(pen);
    }

    // Lines of one colour may change places with one another.
    void Flush() {
        for (const QRect& bar : bars_) painter_.fillRect(bar, ColourOf(colour_));
        bars_.clear();
        if (lines_.empty()) return;
        SetPen(colour_);
        painter_.drawLines(lines_.data(), static_cast<int>(lines_.size()));
        lines_.clear();
    }

    QPainter& painter_;
    const PaintStyle& style_;
    // Device pixels a twip.
    double across_;
    double down_;
    int onePixel_;
    int penWidth_;
    // In twips.
    double width_;
    double height_;
    bool hasColour_ = false;
    Rgb listed_;
    Rgb colour_;
    // What waits for the painter. A bar does not where the pixels are at hand; those of one colour may
    // overtake its lines.
    std::vector<QLine> lines_;
    std::vector<QRect> bars_;
    std::optional<ImagePixels> pixels_;
};

}  // namespace

void PaintItems(QPainter& painter, std::span<const DrawnItem> items, QSizeF size, const PaintStyle& style) {
    DevicePainter device(painter, size, style);
    for (const DrawnItem& item : items) std::visit(device, item);
}

}  // namespace brantlow
