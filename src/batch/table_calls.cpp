#include "batch/table_calls.h"

#include "store/table_files.h"
#include "store/year_growth.h"

namespace brantlow {

bool LoadTable(BatchCall& call, const std::string& name, QuoteTable& table) {
    Session& session = call.session;
    const TableLoad load = LoadQuoteTable(session.DataFile(name), KindOf(name), session.settings,
                                          session.clock.Today(), table, nullptr);
    const std::string sentence = TableLoadSentence(load, name);
    if (!sentence.empty()) session.person.Say(OneLine(sentence));
    return load.Done();
}

void TellHalfLines(BatchCall& call, const std::vector<Path>& files) {
    if (!files.empty()) call.err << OneLine(HalfLineWords(files)) << '\n';
}

std::optional<Hosts> ReadHosts(BatchCall& call) {
    Failure failure;
    Hosts hosts = LoadHosts(call.session.DataFolder(), &failure);
    if (!failure) return hosts;
    Refuse(call, failure);
    return std::nullopt;
}

std::optional<std::string> RefuseTableName(std::string_view text, std::string_view ending) {
    const std::string quoted = "'" + std::string(text) + "'";
    if (!text.ends_with(ending)) return quoted + " does not end in " + std::string(ending);
    if (!StaysInDataFolder(text)) return quoted + " is not in Data";
    if (Path(text).filename() == ending) return quoted + " is no name";
    return std::nullopt;
}

}  // namespace brantlow
