// The names of the quote database's files: one text file a ticker and year, <QuoteFolder><ticker>.<yy>.
//
// This is the only code that joins a ticker to a path. A ticker is used as it stands, wildcard characters
// included. One that no file name can hold, or that is a system's device name, has no files.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/failure.h"
#include "base/files.h"

namespace brantlow {

// Names of a system's devices, in capitals.
inline constexpr std::array<std::string_view, 4> kDeviceNames = {"CON", "PRN", "AUX", "NUL"};

// True for CON, PRN, AUX, NUL in any case and for names that begin with one of them and a point.
bool IsDeviceName(std::string_view ticker);

// False when a ticker is empty, a device name, or cannot stand in a file name: a separator, NUL, "." or "..",
// or more than 250 bytes.
bool HasDatabaseFiles(std::string_view ticker);

// The file of `ticker` for the two-digit year `yy` (two characters), or nothing for a ticker without files or
// a year text that cannot stand in a file name.
std::optional<Path> YearFilePath(const std::string& quoteFolder, std::string_view ticker,
                                 std::string_view yy);

// The files named <ticker>.<rest>, where the rest holds no further point. Where the folder cannot be looked
// through there are none, and `failure`, unless null, says why.
std::vector<Path> YearFilesOf(const std::string& quoteFolder, std::string_view ticker,
                              Failure* failure = nullptr);

// The same for many tickers with one look at the folder; tickers without files are left out.
std::unordered_map<std::string, std::vector<Path>> YearFilesByTicker(const std::string& quoteFolder,
                                                                     std::span<const std::string> tickers,
                                                                     Failure* failure = nullptr);

}  // namespace brantlow
