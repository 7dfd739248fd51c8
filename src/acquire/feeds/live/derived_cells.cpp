#include "acquire/feeds/live/derived_cells.h"

#include <nlohmann/json.hpp>

#include "base/text.h"

namespace brantlow {

using nlohmann::json;

DerivedCells DerivedCells::Load(const Path& dataFolder) {
    DerivedCells cells;
    const ReadResult read = ReadWholeFile(dataFolder / kSourceCellsName);
    cells.isUnread_ = read.outcome == ReadOutcome::Failed;
    const json kept = json::parse(read.bytes, nullptr, false);
    if (!kept.is_object()) return cells;
    for (const auto& [ticker, row] : kept.items()) {
        if (!row.is_object()) continue;
        for (const auto& [header, text] : row.items()) {
            if (text.is_string()) cells.cells_[ticker][header] = text.get<std::string>();
        }
    }
    return cells;
}

const std::string* DerivedCells::Find(std::string_view ticker, std::string_view header) const {
    const auto row = cells_.find(ticker);
    if (row == cells_.end()) return nullptr;
    const auto cell = row->second.find(header);
    return cell == row->second.end() ? nullptr : &cell->second;
}

bool DerivedCells::IsOwn(std::string_view ticker, std::string_view header, std::string_view text) const {
    const std::string* const cell = Find(ticker, header);
    return cell != nullptr && *cell == text;
}

bool DerivedCells::WasOwn(std::string_view ticker, std::string_view header) const {
    return Find(ticker, header) != nullptr;
}

void DerivedCells::Set(const std::string& ticker, const std::string& header, std::string text) {
    cells_[ticker][header] = std::move(text);
}

void DerivedCells::Save(const Path& dataFolder) const {
    if (isUnread_) return;
    json kept = json::object();
    for (const auto& [ticker, row] : cells_) {
        for (const auto& [header, text] : row)
            kept[DisplayUtf8(ticker)][DisplayUtf8(header)] = DisplayUtf8(text);
    }
    (void)WriteWholeFile(dataFolder / kSourceCellsName, kept.dump(0) + "\n", Flush::Later);
}

}  // namespace brantlow
