// The list of files of a change that can be undone, its summary, and the lock's file. Input: the bytes of
// each of them. Nothing is put back: a list names files of the whole machine.
#include "base/change_list.h"
#include "fuzz_session.h"
#include "shell/folder_lock.h"

using namespace brantlow;

namespace {

std::string TextOf(const ChangeList& list, const Path& appPath) {
    std::string text = ChangeListHead(list.when, list.what);
    for (const FileChange::Entry& entry : list.entries) text += ChangeListLine(entry, appPath);
    return text;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input = BytesOf(data, size);
    const Path appPath = "/app";
    const ChangeList list = ParseChangeList(input, appPath);
    const std::string once = TextOf(list, appPath);
    Demand(TextOf(ParseChangeList(once, appPath), appPath) == once,
           "a written list does not read back as itself");
    const FuzzSession fuzz;
    fuzz.Write(std::string(kChangeSummary), input);
    if (const auto summary = ReadChangeSummary(AppFolder().Get())) {
        fuzz.Write(std::string(kChangeSummary), ChangeSummaryLine(*summary));
        Demand(ReadChangeSummary(AppFolder().Get()).has_value(), "a written summary is none");
    }
    fuzz.Write(std::string(kLockName), input);
    FolderLock lock;
    lock.Take(AppFolder().Get(), ThisProcess(kCommandHolder, "fuzz"), {});
    return 0;
}
