// The tables: loaded as a window shows them, saved, and loaded again. Input: a byte for the kind, the lines
// of the columns' settings, "----", the table.
#include "fuzz_session.h"
#include "shell/settings/settings_files.h"
#include "store/table_files.h"

using namespace brantlow;

namespace {

struct KindRow {
    FileKind kind;
    const char* name;
};
constexpr KindRow kKinds[] = {{FileKind::Ddq, "Data/T.ddq"},
                              {FileKind::Db, "Data/T.db"},
                              {FileKind::Dbe, "Data/T.dbe"},
                              {FileKind::Efq, "Data/T.efq"}};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = BytesOf(data, size);
    const KindRow& row = kKinds[TakeByte(input) % std::size(kKinds)];
    FuzzSession fuzz;
    fuzz.Write("Data/VTRCOLset.ini", TakePart(input));
    LoadSettingsFile(SettingsFile::Columns, AppFolder().Get(), fuzz.session.settings);
    fuzz.Write(row.name, input);
    QuoteTable table;
    LoadQuoteTable(fuzz.File(row.name), row.kind, fuzz.session.settings, fuzz.clock.Today(), table,
                   &fuzz.person);
    if (row.kind == FileKind::Db || SaveQuoteTable(table, fuzz.File("Data/Saved.ddq"))) return 0;
    const ReadResult saved = ReadWholeFile(fuzz.File("Data/Saved.ddq"));
    // Without columns chosen by the settings, which need not name each one once.
    QuoteTable again;
    LoadQuoteTable(fuzz.File("Data/Saved.ddq"), row.kind, SettingsTables{}, fuzz.clock.Today(), again,
                   nullptr);
    Demand(again.RowCount() == table.RowCount(), "a saved table has another number of rows");
    Demand(!SaveQuoteTable(again, fuzz.File("Data/Saved.ddq")), "a table cannot be saved again");
    Demand(ReadWholeFile(fuzz.File("Data/Saved.ddq")).bytes == saved.bytes,
           "a saved table does not read back as itself");
    return 0;
}
