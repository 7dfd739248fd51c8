// The split factors that the program knows: the bands of price jumps by which it recognises a split, and the
// choices of the dialog frmSplitFactor. A factor is new shares divided by old shares.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace brantlow {

// A split shows in the prices as a close that is `lower` up to, but not, `upper` times the close of the day
// before. Bands overlap; only the band of the given factor counts.
struct SplitBand {
    int newShares;
    int oldShares;
    double lower;
    double upper;

    constexpr double Factor() const { return static_cast<double>(newShares) / oldShares; }
    constexpr bool Contains(double ratio) const { return ratio >= lower && ratio < upper; }
};

inline constexpr std::array<SplitBand, 28> kSplitBands = {{
    {10, 1, 0.07, 0.13}, {9, 1, 0.08, 0.14}, {8, 1, 0.09, 0.15}, {7, 1, 0.11, 0.17}, {6, 1, 0.12, 0.2},
    {5, 1, 0.16, 0.24},  {4, 1, 0.21, 0.29}, {3, 1, 0.27, 0.39}, {5, 2, 0.35, 0.45}, {2, 1, 0.44, 0.56},
    {5, 3, 0.54, 0.66},  {3, 2, 0.6, 0.72},  {4, 3, 0.69, 0.81}, {5, 4, 0.74, 0.86}, {4, 5, 1.1, 1.4},
    {3, 4, 1.2, 1.5},    {1, 2, 1.8, 2.2},   {3, 5, 1.5, 1.9},   {2, 3, 1.3, 1.7},   {2, 5, 2.3, 2.7},
    {1, 3, 2.8, 3.2},    {1, 4, 3.7, 4.3},   {1, 5, 4.6, 5.4},   {1, 6, 5.5, 6.5},   {1, 7, 6.5, 7.5},
    {1, 8, 7.4, 8.6},    {1, 9, 8.4, 9.6},   {1, 10, 9.3, 10.7},
}};

// A choice of frmSplitFactor: the option's name and its caption, and the factor it stands for.
struct SplitChoice {
    std::string_view control;
    std::string_view caption;
    int newShares;
    int oldShares;

    constexpr double Factor() const { return static_cast<double>(newShares) / oldShares; }
};

// In the order in which the dialog shows them.
inline constexpr std::array<SplitChoice, 18> kSplitChoices = {{
    {"Option18", "10/1", 10, 1},
    {"Option1", "5/1", 5, 1},
    {"Option2", "4/1", 4, 1},
    {"Option3", "3/1", 3, 1},
    {"Option4", "5/2", 5, 2},
    {"Option5", "2/1", 2, 1},
    {"Option6", "5/3", 5, 3},
    {"Option7", "3/2", 3, 2},
    {"Option8", "4/3", 4, 3},
    {"Option9", "5/4", 5, 4},
    {"Option10", "1/3", 1, 3},
    {"Option11", "1/4", 1, 4},
    {"Option12", "1/5", 1, 5},
    {"Option13", "1/6", 1, 6},
    {"Option14", "1/7", 1, 7},
    {"Option15", "1/8", 1, 8},
    {"Option16", "1/9", 1, 9},
    {"Option17", "1/10", 1, 10},
}};

inline constexpr std::string_view kSplitDialogTitle = "Split Adjustment";
inline constexpr std::string_view kSplitDialogFrame = "Stock Split";
inline constexpr std::string_view kSplitDialogLabel = "Select Stock Split: New Shares/Old Shares";

// The band of a factor, which must be exactly the band's; null when there is none.
const SplitBand* BandOfFactor(double factor);

// The factor that "NEW/OLD" writes, both whole numbers above 0; nothing for any other text.
std::optional<double> ParseSplitFactor(std::string_view text);

}  // namespace brantlow
