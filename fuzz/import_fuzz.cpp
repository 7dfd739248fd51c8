// Both imports: a user's file by the import settings, and the day's work file of an update. Input: the import
// settings, "----", the file; the same file then serves as the work file.
#include "fuzz_session.h"
#include "shell/settings/settings_files.h"
#include "store/columns.h"
#include "store/day_import.h"
#include "store/import_record.h"
#include "store/quote_import.h"

using namespace brantlow;

namespace {

QuoteTable Table() {
    QuoteTable table;
    table.AppendLine(QuoteHeader());
    table.AppendLine("T1\t1.000");
    table.AppendLine("T2\t2.000");
    return table;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = BytesOf(data, size);
    FuzzSession fuzz;
    fuzz.Write("Data/VTRIMEXset.ini", TakePart(input));
    LoadSettingsFile(SettingsFile::ImEx, AppFolder().Get(), fuzz.session.settings);
    ImportLinesOf(input);
    const Path file = ImportFile(AppFolder().Get(), fuzz.session.settings);
    // Settings may name any file of the machine; only one of this folder is written.
    const Path inside = file.lexically_normal().lexically_relative(AppFolder().Get());
    std::error_code error;
    if (!inside.empty() && *inside.begin() != "..") {
        std::filesystem::create_directories(file.parent_path(), error);
        if (!WriteWholeFile(file, input, Flush::Later)) {
            QuoteTable table = Table();
            DayStore days;
            const Path saveTo = fuzz.File("Data/Mine.ddq");
            ImportQuotes(fuzz.session, table, days, &saveTo);
        }
    }
    // The settings may have put a folder there.
    if (!WriteWholeFile(fuzz.File("Import.Txt"), input, Flush::Later)) {
        DayStore days;
        ImportEndOfDay(fuzz.session, Table(), days);
    }
    std::filesystem::remove_all(AppFolder().Get(), error);
    return 0;
}
