// What the commands over a table of the Data folder share: loading it, the selector run over it, naming the
// file of a new one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/web/hosts.h"
#include "batch/command.h"
#include "store/quote_table.h"

namespace brantlow {

// Loads a table of the Data folder. What there is to say about the file is written; false when it cannot be
// read.
bool LoadTable(BatchCall& call, const std::string& name, QuoteTable& table);

// One line on the call's error stream for year files whose last line had been cut off and is gone now.
void TellHalfLines(BatchCall& call, const std::vector<Path>& files);

// The selector run over the end-of-day file `name`: saves the table of results as `saveAs`, as
// Evaluations.dbe when that is empty, and prints what was found.
ExitStatus SelectFrom(BatchCall& call, const std::string& name, Interval interval,
                      const std::string& saveAs = {});

// The addresses that the call goes by; nothing after the sentence was written, where Hosts.ini cannot be
// read: the built-in ones would be asked in place of those that it names.
std::optional<Hosts> ReadHosts(BatchCall& call);

// Why `text` cannot be the name in Data of a file that ends in `ending` (".dbe"), or nothing.
std::optional<std::string> RefuseTableName(std::string_view text, std::string_view ending);

}  // namespace brantlow
