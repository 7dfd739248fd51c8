#include "shell/file_kind.h"

#include <array>

namespace brantlow {

namespace {

struct KindRow {
    FileKind kind;
    std::string_view ending;
};

constexpr std::array<KindRow, 4> kKinds = {
    {{FileKind::Ddq, "ddq"}, {FileKind::Db, "db"}, {FileKind::Dbe, "dbe"}, {FileKind::Efq, "efq"}}};

}  // namespace

FileKind KindOf(std::string_view fileName) {
    for (const KindRow& row : kKinds) {
        if (fileName.ends_with(row.ending)) return row.kind;
    }
    return FileKind::None;
}

}  // namespace brantlow
