#include "alerts/stock_alert.h"

#include "base/askable_ticker.h"
#include "shell/settings/lines.h"

namespace brantlow {

namespace {

// An update stands still meanwhile, and nobody reads the reply.
constexpr double kAlertSeconds = 10;
constexpr std::size_t kAlertBytes = std::size_t{1024} * 1024;

}  // namespace

std::string StockAlertUrl(const Hosts& hosts, std::string_view address, std::string_view ticker) {
    std::string url = hosts.Address(Host::Vendor);
    url.append("/send_stock_alert.asp?EA=").append(address).append("&TS=").append(ticker);
    std::erase_if(url, [](char c) { return c == '\r' || c == '\n'; });
    return url;
}

AlertOutcome SendStockAlert(Web& web, const Hosts& hosts, const SettingsTables& settings,
                            std::string_view ticker, AlertedTickers& alerted, const RunControl* run) {
    if (!SendsAlerts(settings)) return AlertOutcome::NotWanted;
    if (alerted.tickers.size() >= kMostRows) return AlertOutcome::NotWanted;
    if (!alerted.tickers.emplace(ticker).second) return AlertOutcome::NotWanted;
    if (!IsAskableTicker(ticker)) return AlertOutcome::LeftOut;
    WebRequest request;
    request.url = StockAlertUrl(hosts, Get(settings, kAlertAddress), ticker);
    request.limitSeconds = kAlertSeconds;
    request.limitBytes = kAlertBytes;
    request.run = run;
    request.isRepeated = false;
    web.Fetch(request);
    return AlertOutcome::AskedFor;
}

}  // namespace brantlow
