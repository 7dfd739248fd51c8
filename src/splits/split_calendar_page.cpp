#include "splits/split_calendar_page.h"

#include "acquire/web/downloads.h"
#include "splits/split_page.h"

namespace brantlow {

std::string SplitCalendarUrl(const Hosts& hosts) {
    return std::string(hosts.Address(Host::YahooBiz)).append(kSplitCalendarPath);
}

SplitCalendarPage FetchSplitCalendarPage(Web& web, const Hosts& hosts) {
    const WebRequest request{
        .url = SplitCalendarUrl(hosts), .limitSeconds = kPageSeconds, .limitBytes = kPageBytes};
    const WebReply reply = web.Fetch(request);
    SplitCalendarPage page{MarkupOfReply(reply).value_or(std::string()), {}};
    if (!reply.ok) page.failure = FailureSentence(request.url, reply);
    if (reply.ok && !IsSplitPage(page.markup)) page.failure = FeedFault(request.url, reply);
    return page;
}

}  // namespace brantlow
