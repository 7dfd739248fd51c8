#include "store/own_files.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "shell/file_kind.h"
#include "store/hand_drawings.h"

namespace brantlow {

namespace {

constexpr std::array<std::string_view, 4> kProgramFiles = {"Brantlow.lock", "SplitLog.txt", "Updater",
                                                           "Updater.sig"};

// The path without links and dots, as far as it exists.
Path Plain(const Path& path) {
    std::error_code error;
    const Path plain = std::filesystem::weakly_canonical(path, error);
    return error ? path.lexically_normal() : plain;
}

// Whether `file` lies in `folder` itself.
bool LiesIn(const Path& file, const Path& folder) {
    const Path plain = Plain(folder);
    return file.parent_path() == (plain.has_filename() ? plain : plain.parent_path());
}

bool IsYearFile(const Session& session, const Path& file) {
    return !session.settings.QuoteFolder.empty() && LiesIn(file, session.settings.QuoteFolder);
}

bool IsProgramFile(const Session& session, const Path& file) {
    const std::string name = file.filename().string();
    return LiesIn(file, session.AppPath) &&
           std::find(kProgramFiles.begin(), kProgramFiles.end(), name) != kProgramFiles.end();
}

}  // namespace

std::string OwnFileWords(const Session& session, const Path& file, ExchangeWay way) {
    const Path plain = Plain(file);
    const std::string name = plain.filename().string();
    if (!session.CurrentFile.empty() && plain == Plain(session.DataFile(session.CurrentFile))) {
        return "the open table";
    }
    if (IsProgramFile(session, plain)) return "a file of the program";
    if (IsYearFile(session, plain)) return "a file of the quote database";
    if (LiesIn(plain, DrawingsFolder(session.DataFolder()))) return "a file of the program";
    if (!LiesIn(plain, session.DataFolder())) return {};
    if (UpperCase(name).ends_with(".INI")) return "a settings file of the program";
    const bool isTable = way == ExchangeWay::Export && KindOf(name) != FileKind::None;
    return isTable ? "a table of the program" : std::string();
}

bool MayExchange(const Session& session, const Path& file, ExchangeWay way) {
    const std::string words = OwnFileWords(session, file, way);
    if (words.empty()) return true;
    const bool exports = way == ExchangeWay::Export;
    const std::string question =
        file.string() + " is " + words + ". Do you want to " +
        (exports ? "write the export over it?" : "import it? An import deletes its file.");
    return session.person.AskBeforeDestroying(question, exports ? "Replace File?" : "Import File?");
}

}  // namespace brantlow
