#include "chart/drawing.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace brantlow {

namespace {

// Differences of two such coordinates are still finite.
constexpr double kLargestCoordinate = 1e300;

double Finite(double coordinate) {
    return std::isnan(coordinate) ? 0 : std::clamp(coordinate, -kLargestCoordinate, kLargestCoordinate);
}

ChartPoint Finite(ChartPoint point) {
    return {Finite(point.x), Finite(point.y)};
}

double WithinReach(double coordinate) {
    return std::clamp(coordinate, -kFarthestTwip, kFarthestTwip);
}

ChartPoint WithinReach(ChartPoint point) {
    return {WithinReach(point.x), WithinReach(point.y)};
}

// As nearly all are.
bool IsWithinReach(ChartPoint point) {
    return std::abs(point.x) <= kFarthestTwip && std::abs(point.y) <= kFarthestTwip;
}

// Moves `end` along the line to `other` until its `main` coordinate is within reach. Where no point of the
// line is, it stays.
void CutEnd(ChartPoint& end, ChartPoint other, double ChartPoint::*main, double ChartPoint::*side) {
    const double limit = WithinReach(end.*main);
    const bool reaches = limit > 0 ? other.*main < limit : other.*main > limit;
    if (limit == end.*main || !reaches) return;
    const double part = (limit - end.*main) / (other.*main - end.*main);
    end.*side += part * (other.*side - end.*side);
    end.*main = limit;
}

void CutEnd(ChartPoint& end, ChartPoint other) {
    CutEnd(end, other, &ChartPoint::y, &ChartPoint::x);
    CutEnd(end, other, &ChartPoint::x, &ChartPoint::y);
}

// Narrows the stretch from `first` to `last` of a line to where `start` + t * `way` lies from `least` to
// `most`.
struct SeenPart {
    double first = 0;
    double last = 1;

    void NarrowTo(double start, double way, double least, double most) {
        if (way == 0) {
            if (start < least || start > most) last = -1;
            return;
        }
        const double atLeast = (least - start) / way;
        const double atMost = (most - start) / way;
        first = std::max(first, std::min(atLeast, atMost));
        last = std::min(last, std::max(atLeast, atMost));
    }
};

struct ItemHash {
    std::size_t operator()(const DrawnItem& item) const { return std::visit(*this, item); }
    std::size_t operator()(const DrawnLine& line) const {
        return Mixed({line.x1, line.y1, line.x2, line.y2}, line.colour);
    }
    std::size_t operator()(const DrawnCircle& circle) const {
        return Mixed({circle.x, circle.y, circle.radius}, circle.colour);
    }

  private:
    static std::size_t Mixed(std::initializer_list<float> numbers, Rgb colour) {
        constexpr std::size_t kFactor = 1099511628211U;
        std::size_t hash = (std::size_t{colour.red} << 16U) + (std::size_t{colour.green} << 8U) + colour.blue;
        for (const float number : numbers)
            hash = hash * kFactor + std::bit_cast<std::uint32_t>(number + 0.0F);
        return hash;
    }
};

}  // namespace

DrawnLine LineBetween(ChartPoint from, ChartPoint to, Rgb colour) {
    if (!IsWithinReach(from) || !IsWithinReach(to)) {
        from = Finite(from);
        to = Finite(to);
        CutEnd(from, to);
        CutEnd(to, from);
        from = WithinReach(from);
        to = WithinReach(to);
    }
    return {static_cast<float>(from.x), static_cast<float>(from.y), static_cast<float>(to.x),
            static_cast<float>(to.y), colour};
}

std::optional<DrawnLine> CutTo(const ChartBox& box, const DrawnLine& line) {
    const ChartPoint from{line.x1, line.y1};
    const ChartPoint to{line.x2, line.y2};
    const ChartPoint way{to.x - from.x, to.y - from.y};
    SeenPart seen;
    seen.NarrowTo(from.x, way.x, box.left, box.right);
    seen.NarrowTo(from.y, way.y, box.top, box.bottom);
    if (seen.first > seen.last) return std::nullopt;
    const auto pointAt = [&](double part) {
        return ChartPoint{from.x + part * way.x, from.y + part * way.y};
    };
    return LineBetween(seen.first > 0 ? pointAt(seen.first) : from, seen.last < 1 ? pointAt(seen.last) : to,
                       line.colour);
}

DrawnCircle CircleAround(ChartPoint centre, double radius, Rgb colour) {
    centre = WithinReach(Finite(centre));
    return {static_cast<float>(centre.x), static_cast<float>(centre.y), static_cast<float>(radius), colour};
}

PanelDrawing PaintedOver(const PanelDrawing& standing, PanelDrawing fresh) {
    const std::unordered_set<DrawnItem, ItemHash> drawnAgain(fresh.items.begin(), fresh.items.end());
    std::vector<DrawnItem> left;
    std::copy_if(standing.items.begin(), standing.items.end(), std::back_inserter(left),
                 [&](const DrawnItem& item) { return !drawnAgain.contains(item); });
    fresh.items.insert(fresh.items.begin(), left.begin(), left.end());
    return fresh;
}

}  // namespace brantlow
