#include "store/hand_drawings.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <nlohmann/json.hpp>

#include "base/numbers.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

using nlohmann::json;
using nlohmann::ordered_json;

constexpr std::string_view kDrawingsEnding = ".json";
constexpr double kLargestPrice = 1e12;

bool HasOnly(const json& entry, const std::vector<std::string_view>& names) {
    return std::all_of(entry.items().begin(), entry.items().end(), [&](const auto& item) {
        return std::find(names.begin(), names.end(), item.key()) != names.end();
    });
}

std::optional<Date> DayOf(const json& value) {
    if (!value.is_string()) return std::nullopt;
    const auto& text = value.get_ref<const std::string&>();
    const std::optional<Date> day = ParseDate(text);
    if (!day || FormatIsoDate(*day) != text) return std::nullopt;
    return day;
}

std::optional<HandPoint> PointOf(const json& value) {
    if (!value.is_object() || !value.contains("day") || !value.contains("price")) return std::nullopt;
    const json& price = value["price"];
    const std::optional<Date> day = DayOf(value["day"]);
    if (!HasOnly(value, {"day", "price"}) || !day || !price.is_number()) return std::nullopt;
    const auto number = price.get<double>();
    if (!std::isfinite(number) || std::abs(number) > kLargestPrice) return std::nullopt;
    return HandPoint{*day, number};
}

bool IsText(const json& value) {
    if (!value.is_string()) return false;
    const auto& text = value.get_ref<const std::string&>();
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    return !text.empty() && text.size() <= kLongestHandText &&
           std::none_of(text.begin(), text.end(), isControl);
}

// Reads one drawing and says what keeps it from being one.
class DrawingReader {
  public:
    explicit DrawingReader(std::string& complaint) : complaint_(complaint) {}

    std::optional<HandDrawing> Read(const json& entry) {
        if (!entry.is_object()) return Refuse("is no object");
        const auto* const form = FormIn(entry);
        if (form == nullptr) return Refuse("\"kind\" is none of trend, horizontal, channel and text");
        HandDrawing drawing{form->kind, {}};
        std::vector<std::string_view> names = {"kind"};
        for (std::size_t i = 0; i < form->PointCount(); ++i) {
            const std::string name(form->points[i]);
            const auto found = entry.find(name);
            const auto point = found == entry.end() ? std::nullopt : PointOf(*found);
            if (!point) return Refuse("\"" + name + "\" is no day with a price");
            drawing.points.push_back(*point);
            names.push_back(form->points[i]);
        }
        if (form->kind == HandKind::Text) {
            const auto found = entry.find("text");
            if (found == entry.end() || !IsText(*found)) return Refuse("\"text\" is no line of text");
            drawing.text = found->get<std::string>();
            names.emplace_back("text");
        }
        if (!HasOnly(entry, names)) return Refuse("holds a name that it cannot have");
        return drawing;
    }

  private:
    static const HandForm* FormIn(const json& entry) {
        const auto found = entry.find("kind");
        if (found == entry.end() || !found->is_string()) return nullptr;
        const auto* const form = std::find_if(kHandForms.begin(), kHandForms.end(), [&](const HandForm& row) {
            return row.name == found->get<std::string>();
        });
        return form == kHandForms.end() ? nullptr : form;
    }
    std::optional<HandDrawing> Refuse(std::string_view reason) {
        complaint_ = reason;
        return std::nullopt;
    }

    std::string& complaint_;
};

ordered_json EntryOf(const HandDrawing& drawing) {
    const HandForm& form = FormOf(drawing.kind);
    ordered_json entry;
    entry["kind"] = form.name;
    for (std::size_t i = 0; i < form.PointCount(); ++i) {
        const HandPoint& point = drawing.points[i];
        entry[std::string(form.points[i])] = {{"day", FormatIsoDate(point.day)}, {"price", point.price}};
    }
    if (drawing.kind == HandKind::Text) entry["text"] = drawing.text;
    return entry;
}

Failure NoDrawings(const Path& file, std::string complaint) {
    return {.kind = FailureKind::Read, .file = file, .text = std::move(complaint)};
}

}  // namespace

Path DrawingsFolder(const Path& dataFolder) {
    return dataFolder / kDrawingsFolderName;
}

std::optional<Path> DrawingsFile(const Path& dataFolder, std::string_view ticker) {
    if (!HasDatabaseFiles(ticker)) return std::nullopt;
    return DrawingsFolder(dataFolder) / std::string(ticker).append(kDrawingsEnding);
}

HandDrawings ReadHandDrawings(std::string_view bytes, std::string& complaint) {
    complaint.clear();
    const json document = json::parse(bytes, nullptr, false);
    if (document.is_discarded()) {
        complaint = "it is no JSON";
        return {};
    }
    if (!document.is_object() || !HasOnly(document, {"drawings"}) || !document.contains("drawings") ||
        !document["drawings"].is_array()) {
        complaint = "it holds no list of drawings";
        return {};
    }
    HandDrawings drawings;
    DrawingReader reader(complaint);
    for (const json& entry : document["drawings"]) {
        const std::optional<HandDrawing> drawing = reader.Read(entry);
        if (drawing && drawings.size() == kMostHandDrawings) complaint = "there are more than 1000";
        if (!complaint.empty()) {
            complaint = "drawing " + std::to_string(drawings.size() + 1) + ": " + complaint;
            return {};
        }
        drawings.push_back(*drawing);
    }
    return drawings;
}

std::string TextOfHandDrawings(const HandDrawings& drawings) {
    ordered_json document;
    document["drawings"] = ordered_json::array();
    for (const HandDrawing& drawing : drawings) document["drawings"].push_back(EntryOf(drawing));
    return document.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

KeptDrawings LoadHandDrawings(const Path& dataFolder, std::string_view ticker) {
    KeptDrawings kept;
    const std::optional<Path> file = DrawingsFile(dataFolder, ticker);
    if (!file) return kept;
    const ReadResult read = ReadWholeFile(*file);
    if (read.outcome == ReadOutcome::Failed) kept.failure = FailedTo(FailureKind::Read, *file, read.error);
    if (read.outcome != ReadOutcome::Done) return kept;
    kept.bytes = read.bytes;
    std::string complaint;
    kept.drawings = ReadHandDrawings(kept.bytes, complaint);
    if (!complaint.empty()) kept.failure = NoDrawings(*file, std::move(complaint));
    return kept;
}

Failure SaveHandDrawings(const Path& dataFolder, std::string_view ticker, const HandDrawings& drawings,
                         std::string_view known) {
    const std::optional<Path> file = DrawingsFile(dataFolder, ticker);
    if (!file) return FailedBecause("No file can be named after this ticker: what is drawn cannot be kept");
    KeptDrawings kept = LoadHandDrawings(dataFolder, ticker);
    if (kept.failure) return std::move(kept.failure).About("nothing was changed");
    if (kept.bytes != known)
        return FailedBecause(file->string() + ": was changed by another program; it is shown anew");
    if (drawings.empty()) return DeleteIfThere(*file);
    std::error_code error;
    std::filesystem::create_directory(DrawingsFolder(dataFolder), error);
    if (error) return FailedTo(FailureKind::Make, DrawingsFolder(dataFolder), error);
    return FailedTo(FailureKind::Write, *file, WriteWholeFile(*file, TextOfHandDrawings(drawings)));
}

bool RestateHandDrawings(const Date& firstDay, double factor, HandDrawings& drawings) {
    bool isChanged = false;
    for (HandDrawing& drawing : drawings) {
        for (HandPoint& point : drawing.points) {
            const auto price = point.day < firstDay ? Divide(point.price, factor) : std::nullopt;
            if (!price) continue;
            point.price = *price;
            isChanged = true;
        }
    }
    return isChanged;
}

Failure PrepareRestatedDrawings(const Path& dataFolder, std::string_view ticker, const Date& firstDay,
                                double factor, FileChange& change) {
    const std::optional<Path> file = DrawingsFile(dataFolder, ticker);
    if (!file) return {};
    const ReadResult read = ReadWholeFile(change.Where(*file));
    if (read.outcome == ReadOutcome::Missing) return {};
    if (read.outcome == ReadOutcome::Failed) return FailedTo(FailureKind::Read, *file, read.error);
    std::string complaint;
    HandDrawings drawings = ReadHandDrawings(read.bytes, complaint);
    if (!complaint.empty()) return NoDrawings(*file, std::move(complaint));
    if (!RestateHandDrawings(firstDay, factor, drawings)) return {};
    return change.Write(*file, TextOfHandDrawings(drawings));
}

}  // namespace brantlow
