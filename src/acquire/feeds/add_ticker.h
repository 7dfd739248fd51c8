// Adding a ticker to the open table with its history, as the button "Add Symbol" does.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>

#include "acquire/feeds/history_download.h"
#include "acquire/web/hosts.h"
#include "acquire/web/web.h"
#include "shell/session.h"
#include "store/table_edit.h"

namespace brantlow {

// A window saves where the settings save by themselves, a command in any case.
enum class TableSaving { AsSettingsSay, Always };

struct AddedTicker : TableEdit {
    // What became of its history, where one was downloaded.
    std::optional<HistoryDownload> history;
};

// Adds the ticker (AppendTicker), sorts the table by `sortColumn`, downloads the history of a new ticker of
// an end-of-day table when the settings name years for it, and saves by `saving`; history and table are one
// change of files. Where another program has changed the table's file the person is asked first, and the
// history alone is stored when those changes are to stay (operation_canceled). Messages, status words and the
// ticker count go to the session's person. `rowAdded`, which may be empty, is called once the table has its
// new row, before the download.
AddedTicker AddTicker(Session& session, Web& web, const Hosts& hosts, QuoteTable& table,
                      const NewTicker& ticker, std::size_t sortColumn,
                      TableSaving saving = TableSaving::AsSettingsSay,
                      const std::function<void()>& rowAdded = {});

}  // namespace brantlow
