// The research commands and the pages that they open: one row a command, with the address at either of the
// two providers. The menus of the main frame and the batch tool's `research` read these tables; a new command
// is a new row here and one in the command catalogue.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "acquire/web/hosts.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// A host and what stands behind it. In a path {T} is the ticker and {L} its first character, both as they
// stand; the name of a host in braces is that host's address.
struct PageAddress {
    Host host;
    std::string_view path;
};

struct ResearchPage {
    std::string_view command;
    PageAddress yahoo;
    PageAddress nasdaq;
};

inline constexpr PageAddress kNasdaqFinancials = {
    Host::NasdaqMain,
    "/asp/ExtendFund.asp?mode=&kind=&symbol={T}&FormType=&mkttype=&pathname=&page=full&selected={T}"};
inline constexpr PageAddress kNasdaqCompetitors = {
    Host::NasdaqQuotes,
    "/screening/ViewCompetitors.asp?mode=&kind=&symbol={T}&FormType=&mkttype=&pathname=&page=competitor"
    "&selected={T}"};
// There is one message board, whichever provider is chosen.
inline constexpr PageAddress kMessageBoard = {Host::Quote, "/q/mb?s={T}"};

inline constexpr std::array kResearchPages = {
    // Pages of a ticker.
    ResearchPage{"mnuPopUpAnalyst",
                 {Host::YahooBiz, "/a/r/{L}/{T}.html"},
                 {Host::NasdaqMain,
                  "/earnings/analyst_summary.asp?&kind=&mode=stock&symbol={T}&selected={T}&FormType=&mkttype="
                  "&pathname=&page=analystinfo"}},
    ResearchPage{"mnuPopUpChart",
                 {Host::Quote, "/q?s={T}&d=c"},
                 {Host::NasdaqQuotes,
                  "/quote.dll?mode=basics&kind=&symbol={T}&selected={T}&FormType=&mkttype=&pathname="
                  "&page=charting"}},
    ResearchPage{"mnuPopUpCompetitors", {Host::Quote, "/q/co?s={T}"}, kNasdaqCompetitors},
    ResearchPage{"mnuPopUpDetailedQuote",
                 {Host::Quote, "/q?s={T}&d=t"},
                 {Host::NasdaqQuotes,
                  "/asp/summaryquote.asp?mode=&kind=&symbol={T}&FormType=&mkttype=&pathname="
                  "&page=summaryquote&selected={T}"}},
    ResearchPage{"mnuPopUpFinancials", {Host::YahooBiz, "/fin/l/{L}/{T}.html"}, kNasdaqFinancials},
    ResearchPage{"mnuPopUpKeyStatistics", {Host::Quote, "/q/ks?s={T}"}, kNasdaqFinancials},
    ResearchPage{"mnuPopUpIndustry", {Host::YahooBiz, "/ic/{L}/{T}.html"}, kNasdaqCompetitors},
    ResearchPage{"mnuPopUpInsiderTrading",
                 {Host::YahooBiz, "/t/{L}/{T}.html"},
                 {Host::NasdaqMain,
                  "/asp/Holdings.asp?mode=&kind=&symbol={T}&FormType=&mkttype=&pathname="
                  "&page=holdingssummary&selected={T}"}},
    ResearchPage{"mnuPopUpMessageBoard", kMessageBoard, kMessageBoard},
    ResearchPage{"mnuPopUpNews",
                 {Host::Quote, "/q/h?s={T}"},
                 {Host::NasdaqNews,
                  "/news/newsHeadlines.aspx?&kind=&symbol={T}&selected={T}&FormType=&mkttype=&pathname="
                  "&page=news"}},
    ResearchPage{"mnuPopUpOptions",
                 {Host::Quote, "/q?s={T}&d=o"},
                 {Host::NasdaqQuotes,
                  "/asp/option_mostactive.asp?mode=&kind=&symbol={T}&FormType=&mkttype=&pathname="
                  "&page=options&selected={T}"}},
    ResearchPage{"mnuPopUpOwnership",
                 {Host::YahooBiz, "/hd/{L}/{T}.html"},
                 {Host::NasdaqMain, "/asp/Holdings.asp?symbol={T}&selected={T}&page=holdingssummary"}},
    ResearchPage{"mnuPopUpProfile",
                 {Host::YahooBiz, "/p/{L}/{T}.html"},
                 {Host::NasdaqMain, "/asp/quotes_reports.asp?symbol={T}&selected={T}&page=stockreports"}},
    ResearchPage{"mnuPopUpRealTimeQuote",
                 {Host::Quote, "/q?s={T}&d=e"},
                 {Host::NasdaqQuotes, "/quote.dll?&mode=stock&symbol={T}&selected={T}&page=quick"}},
    ResearchPage{"mnuPopUpReports",
                 {Host::YahooScreen, "/d?vw=0&db=reports&z=dat&tk={T}"},
                 {Host::NasdaqMain, "/asp/quotes_reports.asp?symbol={T}&selected={T}"}},
    ResearchPage{"mnuPopUpResearch",
                 {Host::YahooBiz, "/z/a/{L}/{T}.html"},
                 {Host::NasdaqMain, "/asp/stock_consultant.asp?symbol={T}&selected={T}"}},
    ResearchPage{"mnuPopUpSECFilings",
                 {Host::YahooBiz, "/e/l/{L}/{T}.html"},
                 {Host::NasdaqMain, "/asp/quotes_sec.asp?symbol={T}&selected={T}&page=filings"}},
    // Pages of the market.
    ResearchPage{"mnuViewAdvanceDecline",
                 {Host::Quote, "/m0?u"},
                 {Host::NasdaqDynamic, "/asp/usmostactive.asp?exchange=nasdaq&mostactive=adv"}},
    ResearchPage{"mnuViewDowngrades",
                 {Host::Quote, "/mrd"},
                 {Host::NasdaqEarnings, "/earnings/Analyst_Rec_change.asp?SortTable=Downgrade"}},
    ResearchPage{"mnuViewEconomicCalander",
                 {Host::YahooBiz, "/c/e.html"},
                 {Host::NasdaqMain, "/asp/econodayframe.asp?page={NasdaqMainHost}/econoday/index.html"}},
    ResearchPage{"mnuViewEarnings",
                 {Host::YahooBiz, "/research/earncal/today.html"},
                 {Host::NasdaqEarnings, "/earnings/Analyst_Forecast_change.asp?SortTable=Increase"}},
    ResearchPage{
        "mnuViewInPlay", {Host::Quote, "/mp?u"}, {Host::NasdaqScreening, "/heatmaps/heatmap_100.asp"}},
    ResearchPage{"mnuViewIPOs", {Host::YahooBiz, "/ipo/"}, {Host::NasdaqMain, "/reference/ipos.stm"}},
    ResearchPage{
        "mnuViewMarketOverview", {Host::Quote, "/mt?u"}, {Host::NasdaqDynamic, "/aspx/majorindices.aspx"}},
    ResearchPage{"mnuViewMostActiveAMEX",
                 {Host::Quote, "/mnvl?e=aq"},
                 {Host::NasdaqDynamic, "/asp/USmostactive.asp?exchange=AMEX"}},
    // The provider's own letters, crossed though they look.
    ResearchPage{"mnuViewMostActiveNYSE",
                 {Host::Quote, "/mnvl?e=nq"},
                 {Host::NasdaqDynamic, "/asp/USmostactive.asp?exchange=NYSE"}},
    ResearchPage{"mnuViewMostActiveNasdq",
                 {Host::Quote, "/mnvl?e=o"},
                 {Host::NasdaqDynamic, "/asp/USmostactive.asp?exchange=Nasdaq"}},
    ResearchPage{
        "mnuViewSplits", {Host::YahooBiz, "/c/s.html"}, {Host::NasdaqMain, "/reference/upcoming_splits.stm"}},
    ResearchPage{"mnuViewStockScreener",
                 {Host::YahooScreen, "/stocks.html"},
                 {Host::NasdaqMain, "/reference/guru.stm"}},
    ResearchPage{
        "mnuViewSymbolSearch",
        {Host::Quote, "/l"},
        {Host::NasdaqMain,
         "/asp/HomeSymLookup.asp?parentLocation=&srch=name&contain=0&mode=stock&key=a&go.x=16&go.y=6"}},
    ResearchPage{
        "mnuViewUSIndices", {Host::Quote, "/m1?u"}, {Host::NasdaqDynamic, "/dynamic/activityPrompt.stm"}},
    ResearchPage{"mnuViewUpgrades",
                 {Host::Quote, "/mru?u"},
                 {Host::NasdaqEarnings, "/earnings/Analyst_Rec_change.asp?SortTable=Upgrade"}},
    ResearchPage{
        "mnuViewWorldIndices", {Host::Quote, "/m2?u"}, {Host::NasdaqQuotes, "/asp/globalindices_world.asp"}},
};

// Pages of the vendor's site that open in the user's own browser.
struct VendorPage {
    std::string_view command;
    std::string_view path;
};
inline constexpr std::array<VendorPage, 2> kVendorPages = {
    {{"mnuHelpQuestions", "/questions.htm"}, {"mnuHelpSupport", "/feedback.htm"}}};

// Both open the brokerage firm's page in the user's own browser.
inline constexpr std::array<std::string_view, 2> kBrokerageCommands = {"mnuViewBrokererageFirm",
                                                                       "mnuPopUpTrade"};
inline constexpr std::string_view kNoBrokerageFirm =
    "First, you must select you broker in Application Settings.";

// Opens the vendor's forum with the user's name and password, see ForumAddress.
inline constexpr std::string_view kForumCommand = "mnuHelpUsersForum";

enum class OpensIn {
    Nothing,         // no page: `refusal` says why, or nothing at all is shown when it is empty
    Browser,         // the program's own browser window
    OutsideBrowser,  // the user's browser
};

struct ResearchTarget {
    OpensIn opensIn = OpensIn::Nothing;
    std::string address;
    std::string refusal;  // the sentence for a page that does not open; else empty
};

// Where the addresses come from. Both outlive it.
struct ResearchSources {
    const Hosts& hosts;
    const SettingsTables& settings;
};

// Null for a command that opens no research page.
const ResearchPage* FindResearchPage(std::string_view command);

// True for a page of one ticker, false for a page of the market.
bool IsTickerPage(const ResearchPage& page);

// The page's address at the provider of the settings: "Yahoo" exactly, or the other one.
std::string AddressOf(const ResearchPage& page, const ResearchSources& sources, std::string_view ticker);

// True for every command above but the forum's.
bool IsResearchCommand(std::string_view command);

// What a research command opens. `ticker` is that of the selected row; where it is empty, a ticker's page
// opens nothing.
ResearchTarget TargetOf(std::string_view command, const ResearchSources& sources, std::string_view ticker);

// The page that takes a user of this name to the vendor's forum. Characters that would end a value early are
// percent-encoded.
std::string ForumAddress(const Hosts& hosts, std::string_view name, std::string_view password);

}  // namespace brantlow
