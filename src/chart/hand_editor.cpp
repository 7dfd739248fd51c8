#include "chart/hand_editor.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/text.h"

namespace brantlow {

namespace {

// How many reaches two points of the panel are apart.
double Apart(ChartPoint a, ChartPoint b, const HandReach& reach) {
    return std::hypot((a.x - b.x) / reach.across, (a.y - b.y) / reach.down);
}

// One line of at most kLongestHandText bytes, cut between letters.
std::string OnOneLine(std::string words) {
    for (char& c : words) {
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    }
    words = std::string(Trim(words));
    if (words.size() <= kLongestHandText) return words;
    std::size_t end = kLongestHandText;
    while (end > 0 && (static_cast<unsigned char>(words[end]) & 0xC0U) == 0x80U) --end;
    words.erase(end);
    return words;
}

// A press on a ring is meant for it a little further off than one on a line.
constexpr double kRingReaches = 1.3;

}  // namespace

void HandEditor::Load(HandDrawings drawings) {
    now_ = {std::move(drawings), {}, {}};
    former_ = now_;
    chosen_.reset();
    Drop();
}

HandDrawings HandEditor::Shown() const {
    HandDrawings shown = now_.kept;
    if (moving_ && chosen_) shown[*chosen_] = *moving_;
    if (making_) shown.push_back(*making_);
    return shown;
}

void HandEditor::TakeTool(std::optional<HandKind> tool) {
    Drop();
    tool_ = tool;
    if (tool) chosen_.reset();
}

bool HandEditor::Press(const HandSheet& sheet, ChartPoint at, const HandReach& reach, bool freely) {
    textPlace_.reset();
    if (!tool_) return Grab(sheet, at, reach);
    const std::optional<HandPoint> point = sheet.PointAt(at, reach, pulls_ && !freely);
    if (!point) return false;
    isBeginning_ = !making_;
    if (isBeginning_) {
        making_ = HandDrawing{*tool_, std::vector<HandPoint>(FormOf(*tool_).PointCount(), *point)};
        placed_ = 1;
        begunAt_ = at;
    } else {
        PlaceFrom(placed_, *point);
    }
    return true;
}

bool HandEditor::Move(const HandSheet& sheet, ChartPoint at, const HandReach& reach, bool freely) {
    const bool pull = pulls_ && !freely;
    if (grip_) return Drag(sheet, at, reach, pull);
    if (!making_) return false;
    const std::optional<HandPoint> point = sheet.PointAt(at, reach, pull);
    if (!point) return false;
    // The first place is looked for as long as the button is held on it.
    const bool isOnePlace = making_->points.size() == 1;
    PlaceFrom(isOnePlace ? 0 : placed_, *point);
    return true;
}

bool HandEditor::Release(const HandSheet& sheet, ChartPoint at, const HandReach& reach, bool freely) {
    if (grip_) {
        Drag(sheet, at, reach, pulls_ && !freely);
        grip_.reset();
        if (const auto moved = std::exchange(moving_, std::nullopt); moved && *moved != now_.kept[*chosen_]) {
            HandDrawings drawings = now_.kept;
            drawings[*chosen_] = *moved;
            Change(std::move(drawings));
        }
        return true;
    }
    if (!making_) return false;
    Move(sheet, at, reach, freely);
    const bool isDragged = isBeginning_ && Apart(begunAt_, at, reach) > 1;
    if (!isBeginning_ || isDragged) ++placed_;
    isBeginning_ = false;
    if (placed_ >= making_->points.size()) Finish();
    return true;
}

void HandEditor::PlaceFrom(std::size_t place, const HandPoint& point) {
    for (std::size_t i = place; i < making_->points.size(); ++i) making_->points[i] = point;
}

// A text waits for its words; all else is there. The next press chooses.
void HandEditor::Finish() {
    const HandDrawing made = *std::exchange(making_, std::nullopt);
    tool_.reset();
    if (made.kind == HandKind::Text) {
        chosen_.reset();
        textPlace_ = made.points[0];
        return;
    }
    HandDrawings drawings = now_.kept;
    drawings.push_back(made);
    Change(std::move(drawings));
    chosen_ = now_.kept.size() - 1;
}

bool HandEditor::Choose(const HandSheet& sheet, ChartPoint at, const HandReach& reach) {
    chosen_.reset();
    for (std::size_t i = now_.kept.size(); i > 0 && !chosen_; --i) {
        if (sheet.IsOn(now_.kept[i - 1], at, reach)) chosen_ = i - 1;
    }
    return chosen_.has_value();
}

bool HandEditor::Grab(const HandSheet& sheet, ChartPoint at, const HandReach& reach) {
    std::optional<std::size_t> ring;
    if (chosen_) {
        const std::vector<HandPoint>& points = now_.kept[*chosen_].points;
        for (std::size_t i = points.size(); i > 0 && !ring; --i) {
            if (Apart(sheet.PlaceOf(points[i - 1]), at, reach) <= kRingReaches) ring = i - 1;
        }
    }
    if (!ring && !Choose(sheet, at, reach)) return false;
    grip_ = Grip{ring, at, now_.kept[*chosen_]};
    return true;
}

bool HandEditor::Drag(const HandSheet& sheet, ChartPoint at, const HandReach& reach, bool pull) {
    // A press that trembles moves nothing.
    if (!moving_ && Apart(grip_->at, at, reach) <= 1) return false;
    moving_ = grip_->before;
    if (grip_->point) {
        if (const auto point = sheet.PointAt(at, reach, pull)) moving_->points[*grip_->point] = *point;
        return true;
    }
    const auto from = sheet.BarAt(grip_->at.x);
    const auto to = sheet.BarAt(at.x);
    if (!from || !to) return false;
    // A horizontal line is pulled like a place; all else keeps its form.
    if (moving_->kind == HandKind::Horizontal) {
        if (const auto point = sheet.PointAt(at, reach, pull)) moving_->points[0].price = point->price;
        return true;
    }
    const auto bars = static_cast<std::ptrdiff_t>(*to) - static_cast<std::ptrdiff_t>(*from);
    for (HandPoint& point : moving_->points) point = sheet.Moved(point, bars, at.y - grip_->at.y);
    return true;
}

std::string HandEditor::TextWords() const {
    return chosen_ ? now_.kept[*chosen_].text : std::string();
}

bool HandEditor::EditText() {
    if (!chosen_ || now_.kept[*chosen_].kind != HandKind::Text) return false;
    Drop();
    textPlace_ = now_.kept[*chosen_].points[0];
    return true;
}

void HandEditor::EnterText(std::string words) {
    const std::optional<HandPoint> place = std::exchange(textPlace_, std::nullopt);
    if (!place) return;
    words = OnOneLine(std::move(words));
    HandDrawings drawings = now_.kept;
    if (chosen_ && words.empty()) {
        DeleteChosen();
    } else if (chosen_) {
        if (words == drawings[*chosen_].text) return;
        drawings[*chosen_].text = std::move(words);
        Change(std::move(drawings));
    } else if (!words.empty()) {
        drawings.push_back({HandKind::Text, {*place}, std::move(words)});
        Change(std::move(drawings));
        chosen_ = now_.kept.size() - 1;
    }
}

bool HandEditor::Cancel() {
    const bool hasWork = making_ || grip_ || textPlace_;
    Drop();
    if (hasWork) return true;
    if (tool_) {
        tool_.reset();
        return true;
    }
    return std::exchange(chosen_, std::nullopt).has_value();
}

bool HandEditor::ChooseNext() {
    Drop();
    if (now_.kept.empty()) return false;
    chosen_ = chosen_ ? (*chosen_ + 1) % now_.kept.size() : 0;
    return true;
}

bool HandEditor::MoveChosen(const HandSheet& sheet, std::ptrdiff_t bars, double height) {
    Drop();
    if (!chosen_) return false;
    HandDrawings drawings = now_.kept;
    for (HandPoint& point : drawings[*chosen_].points) point = sheet.Moved(point, bars, height);
    if (drawings != now_.kept) Change(std::move(drawings));
    return true;
}

bool HandEditor::DeleteChosen() {
    Drop();
    if (!chosen_) return false;
    HandDrawings drawings = now_.kept;
    drawings.erase(drawings.begin() + static_cast<std::ptrdiff_t>(*chosen_));
    chosen_.reset();
    Change(std::move(drawings));
    return true;
}

bool HandEditor::DeleteAll() {
    Drop();
    if (now_.kept.empty()) return false;
    chosen_.reset();
    Change({});
    return true;
}

bool HandEditor::Undo() {
    const bool wasMaking = making_.has_value();
    Drop();
    if (wasMaking) return true;
    if (now_.undo.empty()) return false;
    chosen_.reset();
    former_ = now_;
    now_.redo.push_back(std::exchange(now_.kept, now_.undo.back()));
    now_.undo.pop_back();
    return true;
}

bool HandEditor::Redo() {
    Drop();
    if (now_.redo.empty()) return false;
    chosen_.reset();
    former_ = now_;
    now_.undo.push_back(std::exchange(now_.kept, now_.redo.back()));
    now_.redo.pop_back();
    return true;
}

void HandEditor::TakeBack() {
    now_ = former_;
    chosen_.reset();
    Drop();
}

void HandEditor::Change(HandDrawings drawings) {
    former_ = now_;
    now_.undo.push_back(std::exchange(now_.kept, std::move(drawings)));
    if (now_.undo.size() > kMostHandUndo) now_.undo.erase(now_.undo.begin());
    now_.redo.clear();
}

void HandEditor::Drop() {
    making_.reset();
    grip_.reset();
    moving_.reset();
    textPlace_.reset();
    isBeginning_ = false;
}

}  // namespace brantlow
