// Takes the entries of a JSON object one by one and keeps the first thing that does not fit, with its place.
// Only the reader of source definitions needs it.
#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brantlow {

// What is wrong with a document; the first complaint stands.
struct Complaint {
    std::string text;  // "/history/address: is missing"; empty while nothing is wrong

    void Add(std::string_view place, std::string_view reason) {
        if (text.empty()) text = std::string(place.empty() ? "/" : place) + ": " + std::string(reason);
    }
};

class EntryReader {
  public:
    // `object` outlives the reader; `place` is its JSON pointer. Something else than an object is complained
    // of.
    EntryReader(const nlohmann::json& object, std::string place, Complaint& complaint);

    const std::string& Place() const { return place_; }
    std::string PlaceOf(std::string_view name) const { return place_ + "/" + std::string(name); }
    void Complain(std::string_view name, std::string_view reason) { complaint_.Add(PlaceOf(name), reason); }

    // The entry, or null; it counts as known from then on.
    const nlohmann::json* Find(std::string_view name);
    // A text of at most 2,000 bytes without control characters.
    std::optional<std::string> Text(std::string_view name);
    std::string RequiredText(std::string_view name);
    std::optional<double> Number(std::string_view name, double least, double most);
    bool Switch(std::string_view name);
    // One text or an array of texts.
    std::vector<std::string> Texts(std::string_view name);
    // A text that is a JSON pointer or empty.
    std::optional<std::string> Pointer(std::string_view name);
    // An object of texts, in the order of its names.
    std::vector<std::pair<std::string, std::string>> Pairs(std::string_view name);
    // Complains of an entry that nobody asked for.
    void EndOfEntries();

    Complaint& Complaints() { return complaint_; }

  private:
    const nlohmann::json& object_;
    std::string place_;
    Complaint& complaint_;
    std::vector<std::string> known_;
};

// Whether `text` is a JSON pointer: empty, or names behind slashes.
bool IsJsonPointer(std::string_view text);

}  // namespace brantlow
