#include "store/dropped_tickers.h"

#include <algorithm>
#include <unordered_set>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::size_t kLongestDropped = 12;
constexpr std::string_view kBetween = " \t,;";

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Letters, digits and what tickers of indices and classes hold; at least one letter, and no number in front.
bool LooksLikeTicker(std::string_view piece) {
    const auto mayStand = [](char c) {
        return IsLetter(c) || (c >= '0' && c <= '9') ||
               std::string_view(".-^=").find(c) != std::string_view::npos;
    };
    return !piece.empty() && piece.size() <= kLongestDropped && (IsLetter(piece[0]) || piece[0] == '^') &&
           std::any_of(piece.begin(), piece.end(), IsLetter) &&
           std::all_of(piece.begin(), piece.end(), mayStand);
}

std::vector<std::string_view> PiecesOf(std::string_view line) {
    std::vector<std::string_view> pieces;
    while (!line.empty()) {
        const std::size_t end = line.find_first_of(kBetween);
        std::string_view piece = Trim(line.substr(0, end));
        if (piece.size() > 1 && piece.front() == '"' && piece.back() == '"')
            piece = piece.substr(1, piece.size() - 2);
        if (!piece.empty()) pieces.push_back(piece);
        line = end == std::string_view::npos ? std::string_view() : line.substr(end + 1);
    }
    return pieces;
}

bool IsHeader(const std::vector<std::string_view>& pieces) {
    return EqualIgnoringCase(pieces.front(), "Symbol") || EqualIgnoringCase(pieces.front(), "Ticker");
}

}  // namespace

std::vector<std::string> TickersIn(std::string_view text) {
    std::vector<std::string> tickers;
    std::unordered_set<std::string> known;
    LineReader lines(text);
    for (std::string_view line; lines.Next(line);) {
        std::vector<std::string_view> pieces = PiecesOf(line);
        if (pieces.empty() || IsHeader(pieces)) continue;
        const bool isList = std::all_of(pieces.begin(), pieces.end(), [](std::string_view piece) {
            return LooksLikeTicker(piece) && UpperCase(piece) == piece;
        });
        if (!isList) pieces.resize(1);
        for (const std::string_view piece : pieces) {
            std::string ticker = UpperCase(piece);
            if (LooksLikeTicker(piece) && known.insert(ticker).second) tickers.push_back(std::move(ticker));
        }
    }
    return tickers;
}

}  // namespace brantlow
