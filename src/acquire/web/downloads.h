// The primitives through which quotes and pages arrive: an address into a file, an address into visible text,
// text into a scratch file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "acquire/web/web.h"
#include "base/files.h"

namespace brantlow {

// The longest wait for one downloaded file, in seconds.
inline constexpr double kDownloadSeconds = 120;

// What a request of quotes or history may take: seconds for one reply, seconds without a sign of life, bytes.
// The longest history, 18,000 days, is far below the last.
inline constexpr double kFeedSeconds = 60;
inline constexpr double kSilentSeconds = 30;
inline constexpr std::size_t kFeedBytes = std::size_t{8} * 1024 * 1024;

// A request for a reply of quotes or history.
WebRequest FeedRequest(std::string url);

// What is wrong with a reply that came whole and holds nothing of what was asked for, as a sentence
// (FailureSentence, NoDataSentence).
std::string FeedFault(std::string_view url, const WebReply& reply);

// The wait of the checks that must not hold the program up, in seconds.
inline constexpr double kPageSeconds = 10;
// What is longer is no page to be read for values.
inline constexpr std::size_t kPageBytes = std::size_t{4} * 1024 * 1024;

// Fetches `request` and replaces `target` by what came. False on any failure; `target` is then as it was.
bool DownloadFile(Web& web, const WebRequest& request, const Path& target);
// The same with a wait of at most kDownloadSeconds.
bool DownloadFile(Web& web, std::string_view url, const Path& target);

// Puts a reply that has come into `target`, under the same rules.
bool StoreReply(const WebReply& reply, const Path& target);

// The visible text of the page at an address (page_text.h), or nothing when it cannot be fetched. A page
// whose time is over gives the text of what had come by then. Without a limit the wait has no end but the
// page's own or the run's stop.
std::optional<std::string> FetchPageText(Web& web, const WebRequest& request);
std::optional<std::string> FetchPageText(Web& web, std::string_view url, std::optional<double> limitSeconds);

// The markup of a reply that has come, in UTF-8, or nothing when it is a failed one; a page whose time is
// over gives what had come by then.
std::optional<std::string> MarkupOfReply(const WebReply& reply);

// The text of a reply that has come, or nothing when it is a failed one.
std::optional<std::string> TextOfReply(const WebReply& reply);

// Ends `text` with one line end and writes it.
std::error_code WriteTextFile(ScratchFile& file, std::string& text);

}  // namespace brantlow
