#include "market/market_answer.h"

#include <algorithm>
#include <array>
#include <string>

#include "acquire/version/version_check.h"
#include "base/text.h"
#include "market/fundamental_pages.h"
#include "market/history_reply.h"
#include "market/market_request.h"
#include "market/plain_pages.h"
#include "market/quote_of_day.h"
#include "splits/split_page.h"

namespace brantlow {

namespace {

// All that a reply is made from.
struct MarketScene {
    const MarketRequest& request;
    const MarketData& data;
    Date today;
    AlertList& alerts;
};

MarketReply Plain(std::string body) {
    return {.contentType = std::string(kPlainText), .body = std::move(body)};
}

MarketReply Page(std::string body) {
    return {.body = std::move(body)};
}

MarketReply Refusal(int status, std::string sentence) {
    MarketReply reply = Plain(std::move(sentence) + '\n');
    reply.status = status;
    return reply;
}

MarketReply AnswerQuotes(const MarketScene& scene) {
    return Plain(QuotesReply(scene.request, scene.data, scene.today));
}

MarketReply AnswerHistory(const MarketScene& scene) {
    auto history = HistoryReply(scene.request, scene.data, scene.today);
    if (!history) return Refusal(kNotFound, "The practice market does not know this ticker.");
    return Plain(std::move(*history));
}

using TickerPage = std::string (*)(std::string_view, const MarketData&, const Date&);

template <TickerPage page>
MarketReply AnswerTickerPage(const MarketScene& scene) {
    return Page(page(TickerOfAddress(scene.request), scene.data, scene.today));
}

MarketReply AnswerSplitCalendar(const MarketScene& scene) {
    return Page(SplitCalendarPage(scene.data, scene.today));
}

MarketReply AnswerUpdatePage(const MarketScene&) {
    return Page(UpdatePage());
}

MarketReply AnswerAlertRequest(const MarketScene& scene) {
    const std::string_view query = scene.request.query;
    scene.alerts.Add({QueryValue(query, "EA"), QueryValue(query, "TS")});
    return Page("<html><body><p>The alert is noted.</p></body></html>\n");
}

MarketReply AnswerAlertList(const MarketScene& scene) {
    return Page(AlertPage(scene.alerts));
}

MarketReply AnswerResearch(const MarketScene& scene) {
    return Page(ResearchPage(scene.request, scene.data, scene.today));
}

struct AnswerRow {
    std::string_view path;
    MarketReply (*answer)(const MarketScene&);
};

constexpr std::array<AnswerRow, 9> kPaths = {{{"/d/quotes.txt", AnswerQuotes},
                                              {"/table.txt", AnswerHistory},
                                              {"/q/ks", AnswerTickerPage<KeyStatisticsPage>},
                                              {"/q/ao", AnswerTickerPage<AnalystOpinionPage>},
                                              {"/q/ae", AnswerTickerPage<AnalystEstimatesPage>},
                                              {kSplitCalendarPath, AnswerSplitCalendar},
                                              {kUpdatePagePath, AnswerUpdatePage},
                                              {"/send_stock_alert.asp", AnswerAlertRequest},
                                              {"/alerts", AnswerAlertList}}};

MarketReply AnswerPath(const MarketScene& scene) {
    const auto row = std::find_if(kPaths.begin(), kPaths.end(),
                                  [&](const AnswerRow& path) { return path.path == scene.request.path; });
    if (row != kPaths.end()) return row->answer(scene);
    // A page would be a poor program to download.
    if (scene.request.path.starts_with("/Updates/")) {
        return Refusal(kNotFound, "The practice market has no programs.");
    }
    return AnswerResearch(scene);
}

}  // namespace

MarketReply Answer(std::string_view target, const MarketData& data, const Date& today, AlertList& alerts,
                   const MarketHeaders& headers) {
    const MarketRequest request = ReadRequest(target);
    const FaultRow* fault = FindFault(request.fault);
    if (!request.fault.empty() && fault == nullptr) {
        return Refusal(kBadRequest, "The practice market knows no such fault; --help lists them.");
    }
    auto live = AnswerLiveSource(request, headers, data, today);
    MarketReply reply = live ? std::move(*live) : AnswerPath({request, data, today, alerts});
    if (fault != nullptr) fault->spoil(reply, target);
    return reply;
}

}  // namespace brantlow
