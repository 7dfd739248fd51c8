#include "chart/chart_options.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "shell/user_store.h"

namespace brantlow {

namespace {

constexpr std::string_view kSection = "Chart";

struct FlagKey {
    std::string_view name;
    bool ChartOptions::*field;
};
constexpr std::array kFlagKeys = {
    FlagKey{"FitToWindow", &ChartOptions::fitToWindow}, FlagKey{"TimeAxis", &ChartOptions::timeAxis},
    FlagKey{"RoundPrices", &ChartOptions::roundPrices}, FlagKey{"Grid", &ChartOptions::grid},
    FlagKey{"WideLines", &ChartOptions::wideLines},
};

constexpr std::string_view kPaletteKey = "Palette";
// In the order of ChartColours.
constexpr std::array<std::string_view, kChartColours> kColourNames = {"Standard", "Distinct", "Dark",
                                                                      "Desktop"};

// What the price panel has is what these leave.
struct ShareKey {
    std::string_view name;
    Panel panel;
};
constexpr std::array kShareKeys = {
    ShareKey{"StudyShare", Panel::Study},
    ShareKey{"VolumeShare", Panel::Volume},
};

ChartColours LoadColours(const Path& storeFile) {
    const std::string kept = GetSetting(storeFile, kSection, kPaletteKey, "");
    const auto found = std::find(kColourNames.begin(), kColourNames.end(), kept);
    return found == kColourNames.end() ? ChartOptions().colours
                                       : static_cast<ChartColours>(found - kColourNames.begin());
}

double& ShareOf(PanelShares& shares, Panel panel) {
    return shares[static_cast<std::size_t>(panel)];
}

bool AreShares(const PanelShares& shares) {
    return std::all_of(shares.begin(), shares.end(), [](double share) { return share >= kLeastShare; });
}

PanelShares LoadShares(const Path& storeFile) {
    PanelShares shares = DefaultShares();
    double& price = ShareOf(shares, Panel::Price);
    price = 1;
    for (const ShareKey& key : kShareKeys) {
        double& share = ShareOf(shares, key.panel);
        share = WholeNumber(GetSetting(storeFile, kSection, key.name, "")).value_or(share);
        price -= share;
    }
    return AreShares(shares) ? shares : DefaultShares();
}

struct KeyText {
    std::string_view key;
    std::string text;
};

// All keys in one order.
std::vector<KeyText> TextsOf(const ChartOptions& options) {
    std::vector<KeyText> texts;
    for (const FlagKey& key : kFlagKeys) texts.push_back({key.name, options.*key.field ? "1" : "0"});
    texts.push_back({kPaletteKey, std::string(kColourNames[static_cast<std::size_t>(options.colours)])});
    for (const ShareKey& key : kShareKeys) {
        texts.push_back({key.name, ShortestNumber(options.shares[static_cast<std::size_t>(key.panel)])});
    }
    return texts;
}

}  // namespace

PanelShares DefaultShares() {
    const double all = PanelHeight(Panel::Price) + PanelHeight(Panel::Study) + PanelHeight(Panel::Volume);
    PanelShares shares{};
    double& price = ShareOf(shares, Panel::Price);
    price = 1;
    for (const ShareKey& key : kShareKeys) {
        ShareOf(shares, key.panel) = PanelHeight(key.panel) / all;
        price -= ShareOf(shares, key.panel);
    }
    return shares;
}

PanelShares WithBorderMoved(PanelShares shares, Panel above, double part) {
    double& upper = ShareOf(shares, above);
    double& lower = ShareOf(shares, static_cast<Panel>(static_cast<std::size_t>(above) + 1));
    part = std::clamp(part, std::min(0.0, kLeastShare - upper), std::max(0.0, lower - kLeastShare));
    upper += part;
    lower -= part;
    return shares;
}

ChartOptions LoadChartOptions(const Path& storeFile) {
    ChartOptions options;
    for (const FlagKey& key : kFlagKeys) {
        const std::string value = GetSetting(storeFile, kSection, key.name, "");
        if (value == "0" || value == "1") options.*key.field = value == "1";
    }
    options.colours = LoadColours(storeFile);
    options.shares = LoadShares(storeFile);
    return options;
}

std::error_code SaveChartOptions(const Path& storeFile, const ChartOptions& options) {
    const std::vector<KeyText> kept = TextsOf(LoadChartOptions(storeFile));
    const std::vector<KeyText> wanted = TextsOf(options);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (wanted[i].text == kept[i].text) continue;
        if (const auto error = SaveSetting(storeFile, kSection, wanted[i].key, wanted[i].text)) return error;
    }
    return {};
}

}  // namespace brantlow
