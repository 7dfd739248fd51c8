#include "fuzz_session.h"

#include <cstdio>
#include <cstdlib>

namespace brantlow {

namespace {

constexpr std::string_view kCut = "\n----\n";

}  // namespace

void Demand(bool holds, const char* sentence) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", sentence);
    std::abort();
}

unsigned TakeByte(std::string_view& input) {
    if (input.empty()) return 0;
    const auto byte = static_cast<unsigned char>(input.front());
    input.remove_prefix(1);
    return byte;
}

std::string_view TakePart(std::string_view& input) {
    const std::size_t cut = input.find(kCut);
    const std::string_view part = input.substr(0, cut);
    input.remove_prefix(cut == std::string_view::npos ? input.size() : cut + kCut.size());
    return part;
}

std::vector<std::string_view> LinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

const TempFolder& AppFolder() {
    static const TempFolder folder;
    return folder;
}

FuzzSession::FuzzSession() {
    std::filesystem::create_directories(File("Data"));
    std::filesystem::create_directories(File("Quotes/EOD"));
    session.settings.QuoteFolder = File("Quotes/EOD").string() + "/";
    session.CurrentFile = "Mine.ddq";
}

void FuzzSession::Write(const std::string& name, std::string_view bytes) const {
    Demand(!WriteWholeFile(File(name), bytes, Flush::Later), "the scratch folder cannot be written");
}

}  // namespace brantlow
