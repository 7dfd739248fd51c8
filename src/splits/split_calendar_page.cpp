#include "splits/split_calendar_page.h"

#include "acquire/web/downloads.h"
#include "splits/split_page.h"

namespace brantlow {

std::string SplitCalendarUrl(const Hosts& hosts) {
    return std::string(hosts.Address(Host::YahooBiz)).append(kSplitCalendarPath);
}

std::string FetchSplitCalendarPage(Web& web, const Hosts& hosts) {
    const WebRequest request{.url = SplitCalendarUrl(hosts), .limitSeconds = kPageSeconds};
    return FetchPageMarkup(web, request).value_or(std::string());
}

}  // namespace brantlow
