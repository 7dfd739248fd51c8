#include "acquire/feeds/live/source_copy.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "acquire/feeds/live/source_name.h"
#include "shell/kept_folders.h"

namespace brantlow {

namespace {

using Json = nlohmann::ordered_json;

constexpr int kIndent = 2;

Path FileOf(const Path& dataFolder, std::string_view name) {
    return dataFolder / Path(kSourcesFolder) / (std::string(name) + ".json");
}

bool IsBuiltIn(std::string_view name) {
    const std::span<const BuiltInSource> all = BuiltInSources();
    return std::any_of(all.begin(), all.end(), [&](const BuiltInSource& source) {
        return source.fileName == std::string(name) + ".json";
    });
}

std::string TextAt(const Json& json, const char* name) {
    const auto found = json.is_object() ? json.find(name) : json.end();
    return found != json.end() && found->is_string() ? found->get<std::string>() : std::string();
}

// The text of a definition: the user's own, which lies over a built-in one of its name.
Json DefinitionOf(const Path& dataFolder, std::string_view name) {
    if (const auto own = OwnDefinitionFile(dataFolder, name)) {
        return Json::parse(BytesOrEmpty(*own), nullptr, false);
    }
    for (const BuiltInSource& source : BuiltInSources()) {
        Json json = Json::parse(source.json, nullptr, false);
        if (TextAt(json, "name") == name) return json;
    }
    return {};
}

}  // namespace

std::optional<Path> OwnDefinitionFile(const Path& dataFolder, std::string_view name) {
    const Path folder = dataFolder / Path(kSourcesFolder);
    for (const std::string& file : FileNamesIn(folder)) {
        if (!file.ends_with(".json")) continue;
        const Json json = Json::parse(BytesOrEmpty(folder / file), nullptr, false);
        if (TextAt(json, "name") == name) return folder / file;
    }
    return std::nullopt;
}

std::string CopyNameRefusal(const SourceCatalogue& catalogue, const Path& dataFolder, std::string_view name) {
    if (!IsSourceName(name)) {
        return "a source's name has small letters, digits and hyphens, at most 40 of them";
    }
    const std::string file = "Data/" + std::string(kSourcesFolder) + "/" + std::string(name) + ".json";
    std::error_code error;
    if (std::filesystem::exists(FileOf(dataFolder, name), error)) return file + " is there already";
    if (catalogue.Find(name) != nullptr && !IsBuiltIn(name)) {
        return "'" + std::string(name) + "' is the name of another source";
    }
    return {};
}

SourceCopy CopySource(const SourceCatalogue& catalogue, const Path& dataFolder, std::string_view source,
                      std::string_view name) {
    SourceCopy copy;
    copy.refusal = CopyNameRefusal(catalogue, dataFolder, name);
    Json json = DefinitionOf(dataFolder, source);
    if (copy.refusal.empty() && !json.is_object()) copy.refusal = "its definition cannot be read";
    if (!copy.refusal.empty()) return copy;
    json["name"] = std::string(name);
    if (name != source) json["title"] = TextAt(json, "title") + " (" + std::string(name) + ")";
    copy.file = FileOf(dataFolder, name);
    std::error_code error;
    std::filesystem::create_directories(copy.file.parent_path(), error);
    if (!error) error = WriteWholeFile(copy.file, json.dump(kIndent) + "\n");
    if (error) copy.refusal = copy.file.string() + ": cannot be written: " + error.message();
    return copy;
}

}  // namespace brantlow
