#include "acquire/feeds/live/source_catalogue.h"

#include <algorithm>

#include "base/failure.h"

namespace brantlow {

namespace {

constexpr std::size_t kLargestDefinition = std::size_t{256} * 1024;

void Take(SourceCatalogue& catalogue, const std::string& file, std::string_view json) {
    DefinitionRead read = json.size() > kLargestDefinition
                              ? DefinitionRead{std::nullopt, "/: is larger than 256 KB"}
                              : ReadSourceDefinition(json);
    if (!read.definition) {
        catalogue.refusals.push_back(file + ": " + read.refusal);
        return;
    }
    std::vector<SourceDefinition>& sources = catalogue.sources;
    const auto at = std::lower_bound(
        sources.begin(), sources.end(), *read.definition,
        [](const SourceDefinition& a, const SourceDefinition& b) { return a.name < b.name; });
    if (at != sources.end() && at->name == read.definition->name) {
        *at = std::move(*read.definition);
    } else {
        sources.insert(at, std::move(*read.definition));
    }
}

}  // namespace

const SourceDefinition* SourceCatalogue::Find(std::string_view name) const {
    const auto found = std::find_if(sources.begin(), sources.end(),
                                    [&](const SourceDefinition& source) { return source.name == name; });
    return found == sources.end() ? nullptr : &*found;
}

SourceCatalogue LoadSources(const Path& dataFolder) {
    SourceCatalogue catalogue;
    for (const BuiltInSource& source : BuiltInSources()) {
        Take(catalogue, std::string(source.fileName), source.json);
    }
    const Path folder = dataFolder / "Sources";
    std::vector<std::string> names;
    const Failure unread = ListFiles(folder, names);
    if (unread) catalogue.refusals.push_back(Sentence(unread));
    for (const std::string& name : names) {
        if (!name.ends_with(".json")) continue;
        const std::string file = "Data/Sources/" + name;
        const ReadResult read = ReadWholeFile(folder / name);
        if (read.outcome == ReadOutcome::Done) {
            Take(catalogue, file, read.bytes);
        } else {
            catalogue.refusals.push_back(Sentence(FailedTo(FailureKind::Read, file, read.error)));
        }
    }
    return catalogue;
}

}  // namespace brantlow
