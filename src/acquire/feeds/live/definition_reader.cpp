#include "acquire/feeds/live/definition_reader.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/control_characters.h"

namespace brantlow {

namespace {

constexpr std::size_t kLongestText = 2000;

std::optional<std::string> CleanText(const nlohmann::json& value, const std::string& place,
                                     Complaint& complaint) {
    if (!value.is_string()) {
        complaint.Add(place, "is no text");
        return std::nullopt;
    }
    auto text = value.get<std::string>();
    if (HasControls(text)) complaint.Add(place, "holds a control character");
    if (text.size() > kLongestText)
        complaint.Add(place, fmt::format("is longer than {} bytes", kLongestText));
    return text;
}

}  // namespace

bool IsJsonPointer(std::string_view text) {
    if (text.empty()) return true;
    if (text.front() != '/') return false;
    for (std::size_t at = text.find('~'); at != std::string_view::npos; at = text.find('~', at + 1)) {
        const char next = at + 1 < text.size() ? text[at + 1] : '\0';
        if (next != '0' && next != '1') return false;
    }
    return true;
}

EntryReader::EntryReader(const nlohmann::json& object, std::string place, Complaint& complaint)
    : object_(object), place_(std::move(place)), complaint_(complaint) {
    if (!object_.is_object()) complaint_.Add(place_, "is no object");
}

const nlohmann::json* EntryReader::Find(std::string_view name) {
    known_.emplace_back(name);
    if (!object_.is_object()) return nullptr;
    const auto found = object_.find(name);
    return found == object_.end() ? nullptr : &*found;
}

std::optional<std::string> EntryReader::Text(std::string_view name) {
    const nlohmann::json* value = Find(name);
    return value == nullptr ? std::nullopt : CleanText(*value, PlaceOf(name), complaint_);
}

std::string EntryReader::RequiredText(std::string_view name) {
    const auto text = Text(name);
    if (!text) Complain(name, "is missing");
    if (text && text->empty()) Complain(name, "is empty");
    return text.value_or("");
}

std::optional<double> EntryReader::Number(std::string_view name, double least, double most) {
    const nlohmann::json* value = Find(name);
    if (value == nullptr) return std::nullopt;
    if (!value->is_number()) {
        Complain(name, "is no number");
        return std::nullopt;
    }
    const auto number = value->get<double>();
    if (!(number >= least && number <= most)) {
        Complain(name, fmt::format("is not between {} and {}", least, most));
        return std::nullopt;
    }
    return number;
}

bool EntryReader::Switch(std::string_view name) {
    const nlohmann::json* value = Find(name);
    if (value == nullptr) return false;
    if (!value->is_boolean()) Complain(name, "is neither true nor false");
    return value->is_boolean() && value->get<bool>();
}

std::vector<std::string> EntryReader::Texts(std::string_view name) {
    std::vector<std::string> texts;
    const nlohmann::json* value = Find(name);
    if (value == nullptr) return texts;
    if (!value->is_array()) {
        if (auto text = CleanText(*value, PlaceOf(name), complaint_)) texts.push_back(std::move(*text));
        return texts;
    }
    for (std::size_t i = 0; i < value->size(); ++i) {
        const std::string place = fmt::format("{}/{}", PlaceOf(name), i);
        if (auto text = CleanText((*value)[i], place, complaint_)) texts.push_back(std::move(*text));
    }
    return texts;
}

std::optional<std::string> EntryReader::Pointer(std::string_view name) {
    auto text = Text(name);
    if (text && !IsJsonPointer(*text)) Complain(name, "is no JSON pointer");
    return text;
}

std::vector<std::pair<std::string, std::string>> EntryReader::Pairs(std::string_view name) {
    std::vector<std::pair<std::string, std::string>> pairs;
    const nlohmann::json* value = Find(name);
    if (value == nullptr) return pairs;
    if (!value->is_object()) {
        Complain(name, "is no object");
        return pairs;
    }
    for (const auto& [key, entry] : value->items()) {
        if (auto text = CleanText(entry, PlaceOf(name) + "/" + key, complaint_)) {
            pairs.emplace_back(key, std::move(*text));
        }
    }
    return pairs;
}

void EntryReader::EndOfEntries() {
    if (!object_.is_object()) return;
    for (const auto& [name, value] : object_.items()) {
        if (std::find(known_.begin(), known_.end(), name) == known_.end()) {
            Complain(name, "is no entry that is known here");
        }
    }
}

}  // namespace brantlow
