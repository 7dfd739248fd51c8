// The web of one run that gives a host up: after three replies in a row that did not come, the rest of the
// host's requests is not made. Runs over many tickers put it before the web that they are handed; it lives no
// longer than the run, so that the next run asks again.
#pragma once

#include <map>
#include <string>

#include "acquire/web/web.h"

namespace brantlow {

// So many replies in a row that do not come give a host up.
inline constexpr std::size_t kRepliesMissed = 3;

// True for a failure by which the host, and not one page of it, can be told to be out of reach.
bool IsMissedReply(const WebReply& reply);

class GivingUpWeb final : public Web {
  public:
    explicit GivingUpWeb(Web& web) : web_(web) {}
    // Abandons what nobody took.
    ~GivingUpWeb() override;
    GivingUpWeb(const GivingUpWeb&) = delete;
    GivingUpWeb& operator=(const GivingUpWeb&) = delete;

    // A host that is given up has its request forgotten, those under way included: their replies are GivenUp.
    WebTicket Start(const WebRequest& request) override;
    WebReply Finish(WebTicket ticket) override;
    void Abandon(WebTicket ticket) override;
    void SetConnectedState(std::uint32_t state, std::uint32_t flags) override;

    bool IsGivenUp(std::string_view url) const;

  private:
    struct UnderWay {
        WebTicket inner = 0;  // 0 when it was not made
        std::string host;
    };

    Web& web_;
    WebTicket lastTicket_ = 0;
    std::map<WebTicket, UnderWay> underWay_;
    // Replies in a row that did not come.
    std::map<std::string, std::size_t, std::less<>> missed_;
};

}  // namespace brantlow
