// Which files of an exchange with other programs are the program's own: an export would write over them, an
// import would read and then delete them. Export and import ask before they touch one.
#pragma once

#include <string>

#include "base/files.h"
#include "shell/session.h"

namespace brantlow {

enum class ExchangeWay { Export, Import };

// What `file` is to the program: "a settings file of the program", "the open table", "a table of the program"
// (for an export only), "a file of the quote database", "a file of the program"; empty for any other file. A
// link is as good as what it leads to.
std::string OwnFileWords(const Session& session, const Path& file, ExchangeWay way);

// True for a file that is not the program's own, or that the person, who is asked, gives up.
bool MayExchange(const Session& session, const Path& file, ExchangeWay way);

}  // namespace brantlow
