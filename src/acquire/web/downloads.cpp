#include "acquire/web/downloads.h"

#include "acquire/web/page_decoding.h"
#include "acquire/web/page_text.h"
#include "base/text.h"
#include "base/values.h"

namespace brantlow {

namespace {

// A page that was sent whole, or as much of one as came in its time.
bool HoldsPage(const WebReply& reply) {
    constexpr int kStatusOk = 200;
    return reply.ok || (reply.failure == WebFailure::TimedOut && reply.status == kStatusOk);
}

}  // namespace

WebRequest FeedRequest(std::string url) {
    return {.url = std::move(url),
            .limitSeconds = kFeedSeconds,
            .silentSeconds = kSilentSeconds,
            .limitBytes = kFeedBytes};
}

std::string FeedFault(std::string_view url, const WebReply& reply) {
    if (!reply.ok) return FailureSentence(url, reply);
    const std::string_view text = Trim(reply.bytes);
    if (text.empty()) return NoDataSentence(url, "an empty reply");
    const bool isPage = text.front() == '<' || UpperCase(reply.contentType).starts_with("TEXT/HTML");
    return NoDataSentence(url, isPage ? "a web page in place of data" : "a reply in no form that is known");
}

bool DownloadFile(Web& web, const WebRequest& request, const Path& target) {
    return StoreReply(web.Fetch(request), target);
}

bool DownloadFile(Web& web, std::string_view url, const Path& target) {
    return DownloadFile(web, {.url = std::string(url), .limitSeconds = kDownloadSeconds}, target);
}

bool StoreReply(const WebReply& reply, const Path& target) {
    return reply.ok && !WriteWholeFile(target, reply.bytes, Flush::Later);
}

std::optional<std::string> FetchPageText(Web& web, const WebRequest& request) {
    return TextOfReply(web.Fetch(request));
}

std::optional<std::string> FetchPageText(Web& web, std::string_view url, std::optional<double> limitSeconds) {
    return FetchPageText(web, {.url = std::string(url), .limitSeconds = limitSeconds});
}

std::optional<std::string> MarkupOfReply(const WebReply& reply) {
    if (!HoldsPage(reply)) return std::nullopt;
    return DecodePage(reply.bytes, reply.contentType);
}

std::optional<std::string> TextOfReply(const WebReply& reply) {
    if (!HoldsPage(reply)) return std::nullopt;
    return PageText(reply.bytes, reply.contentType);
}

std::error_code WriteTextFile(ScratchFile& file, std::string& text) {
    text += kLineEnd;
    return file.Write(text);
}

}  // namespace brantlow
