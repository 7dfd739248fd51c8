// The hosts, the update list and the user's own store. Input: the bytes of each of these files.
#include "acquire/web/hosts.h"
#include "base/text.h"
#include "fuzz_session.h"
#include "shell/user_store.h"
#include "store/update_list.h"

using namespace brantlow;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input = BytesOf(data, size);
    const Hosts hosts = Hosts::Parse(input);
    for (const HostRow& row : kHosts) {
        Demand(UpperCase(hosts.Address(row.host)).starts_with("HTTP"), "a host has no address of the web");
    }
    for (const MarketRow& market : kMarkets) {
        SettingsTables chosen;
        chosen.QuoteHost = market.builtIn;
        const std::string& address = hosts.QuoteHostInForce(chosen);
        hosts.HasDecimalCommas(address);
        hosts.MarketAt(address);
    }
    FuzzSession fuzz;
    fuzz.Write("Quotes/EOD/QuoteList.ddq", input);
    ReadUpdateList(fuzz.session.settings.QuoteFolder);
    fuzz.Write("Brantlow.ini", input);
    FrameGeometry geometry = LoadFrameGeometry(fuzz.File("Brantlow.ini"));
    Demand(geometry.MainWidth > 0 && geometry.MainHeight > 0, "a window would have no size");
    geometry.MainLeft = 1500;
    if (SaveFrameGeometry(fuzz.File("Brantlow.ini"), geometry)) return 0;
    Demand(LoadFrameGeometry(fuzz.File("Brantlow.ini")) == geometry, "a saved place is not found again");
    return 0;
}
