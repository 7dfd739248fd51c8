// Keeps a horizontal line in the chart of a ticker as the chart's window keeps what a person draws, and
// before that does what is due at the window's start: no command of the batch tool draws by hand.
//
//     keep_drawings --app APP --today DAY --time HH:MM draw TICKER PRICE
#include <cstdio>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "shell/session_change.h"
#include "shell/settings/settings_files.h"
#include "store/hand_drawings.h"
#include "support/recording_person.h"

namespace {

using namespace brantlow;

// Where in the arguments each stands.
constexpr std::size_t kApp = 2;
constexpr std::size_t kTicker = 8;
constexpr std::size_t kPrice = 9;

const Date kDrawnDay = std::chrono::year{2026} / 11 / 20;

int Told(const std::string& sentence) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return 1;
}

int Draw(Session& session, const std::string& ticker, double price) {
    KeptDrawings kept = LoadHandDrawings(session.DataFolder(), ticker);
    if (kept.failure) return Told(Sentence(kept.failure));
    const HandDrawing line{HandKind::Horizontal, {{kDrawnDay, price}}};
    if (!kept.drawings.empty() && kept.drawings.back() == line) return 0;
    kept.drawings.push_back(line);
    const Failure failure = SaveHandDrawings(session.DataFolder(), ticker, kept.drawings, kept.bytes);
    return failure ? Told(Sentence(failure)) : 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    const auto price = arguments.size() > kPrice ? WholeNumber(arguments[kPrice]) : std::nullopt;
    if (!price) return Told("keep_drawings --app APP --today DAY --time HH:MM draw TICKER PRICE");
    FixedClock clock{kDrawnDay};
    RecordingPerson person;
    Session session{arguments[kApp], clock, person};
    LoadAllSettings(session.AppPath, session.settings);
    const FolderRecovery recovery = RecoverFolder(session);
    if (recovery.failed) return Told(recovery.sentences.front());
    return Draw(session, arguments[kTicker], *price);
}
