#include "alerts/stock_alert.h"

namespace brantlow {

namespace {

constexpr std::size_t kAlertSwitchLine = 14;
constexpr std::size_t kAlertAddressLine = 15;
constexpr std::string_view kAlertsOn = "E-mail Alerts";

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

void SendStockAlert(Web& web, const Hosts& hosts, const SettingsTables& settings, std::string_view ticker,
                    AlertedTickers& alerted, const RunControl* run) {
    const SettingsTable& data = settings.DataSettings;
    if (data.Text(kAlertSwitchLine) != kAlertsOn) return;
    if (alerted.tickers.size() >= kMostRows) return;
    if (!alerted.tickers.emplace(ticker).second) return;
    WebRequest request;
    request.url = StockAlertUrl(hosts, data.Text(kAlertAddressLine), ticker);
    request.limitSeconds = kAlertSeconds;
    request.limitBytes = kAlertBytes;
    request.run = run;
    web.Fetch(request);
}

}  // namespace brantlow
