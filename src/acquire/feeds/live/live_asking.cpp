#include "acquire/feeds/live/live_asking.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace brantlow {

namespace {

constexpr int kMostDeadRequests = 3;

struct Spelled {
    std::string ticker;
    std::string symbol;
};

class Asking {
  public:
    Asking(SourceClient& client, SourceWorld& world, const TickersQuestion& question, const TakeAnswer& take)
        : client_(client), world_(world), question_(question), take_(take) {}

    void Run(const std::vector<std::string>& tickers) {
        count_ = tickers.size();
        std::vector<Spelled> batch;
        const CapabilityForm* form = client_.Source().Form(question_.capability);
        const std::size_t size = form == nullptr ? 1 : std::max<std::size_t>(form->tickers, 1);
        for (const std::string& ticker : tickers) {
            const auto symbol = SpellSymbol(client_.Source().notation, ticker);
            if (!symbol) {
                HandOn(ticker,
                       {{.result = SourceResult::UnknownSymbol, .words = "it cannot be spelled there"}, {}});
                continue;
            }
            batch.push_back({ticker, *symbol});
            if (batch.size() == size) Ask(batch);
        }
        if (!batch.empty()) Ask(batch);
    }

  private:
    void HandOn(const std::string& ticker, TickerAnswer answer) {
        Session& session = world_.session;
        ++done_;
        session.CurrentTicker = ticker;
        session.run.CurrentRow = done_;
        session.run.ProgressFraction = static_cast<double>(done_) / static_cast<double>(count_);
        session.person.ShowProgress(session.run.ProgressFraction);
        session.person.PumpEvents();
        take_(ticker, std::move(answer));
    }

    void ShowLeft() {
        const CapabilityForm* form = client_.Source().Form(question_.capability);
        const std::size_t size = form == nullptr ? 1 : std::max<std::size_t>(form->tickers, 1);
        const std::size_t requests = (count_ - std::min(done_, count_) + size - 1) / size;
        ShowTimeLeft(world_.session, client_, question_.statusWord, requests);
    }

    void HandOnAll(std::vector<Spelled>& batch, const SourceOutcome& outcome) {
        for (const Spelled& row : batch) HandOn(row.ticker, {outcome, {}});
        batch.clear();
    }

    void Ask(std::vector<Spelled>& batch) {
        if (!isOver_ && ShouldStop(world_.session.run, world_.session.person)) {
            isOver_ = true;
            end_ = {.result = SourceResult::Stopped, .words = {}};
        }
        if (isOver_) return HandOnAll(batch, end_);
        if (!question_.statusWord.empty()) ShowLeft();
        SourceReply reply =
            client_.Ask({question_.capability, SymbolsOf(batch), question_.from, question_.to});
        if (batch.size() > 1 && reply.outcome.result == SourceResult::UnknownSymbol) {
            return AskWithout(batch, reply.outcome);
        }
        NoteFailure(reply.outcome);
        for (const Spelled& row : batch)
            HandOn(row.ticker, AnswerOf(client_, question_.capability, reply, row.symbol));
        batch.clear();
    }

    // One symbol spoils a list of many: it is left out where the server names it, else each is asked alone.
    void AskWithout(std::vector<Spelled>& batch, const SourceOutcome& refusal) {
        const auto named = std::find_if(batch.begin(), batch.end(), [&](const Spelled& row) {
            return refusal.words.ends_with(' ' + row.symbol) || refusal.words.ends_with(':' + row.symbol);
        });
        if (named != batch.end()) {
            HandOn(named->ticker, {refusal, {}});
            batch.erase(named);
            return Ask(batch);
        }
        for (const Spelled& row : batch) {
            std::vector<Spelled> single = {row};
            Ask(single);
        }
        batch.clear();
    }

    void NoteFailure(const SourceOutcome& outcome) {
        deadRequests_ = outcome.result == SourceResult::Network ? deadRequests_ + 1 : 0;
        if (!EndsRun(outcome) && deadRequests_ < kMostDeadRequests) return;
        isOver_ = true;
        end_ = outcome;
    }

    static std::vector<std::string> SymbolsOf(const std::vector<Spelled>& batch) {
        std::vector<std::string> symbols;
        for (const Spelled& row : batch) symbols.push_back(row.symbol);
        return symbols;
    }

    SourceClient& client_;
    SourceWorld& world_;
    const TickersQuestion& question_;
    const TakeAnswer& take_;
    std::size_t count_ = 0;
    std::size_t done_ = 0;
    int deadRequests_ = 0;
    bool isOver_ = false;
    SourceOutcome end_;
};

}  // namespace

std::string LeftText(double seconds) {
    constexpr int kSecondsPerMinute = 60;
    constexpr int kMinutesPerHour = 60;
    const int minutes = std::max(1, static_cast<int>(std::ceil(seconds / kSecondsPerMinute)));
    if (minutes < kMinutesPerHour) return fmt::format("{} min left", minutes);
    return fmt::format("{} h {} min left", minutes / kMinutesPerHour, minutes % kMinutesPerHour);
}

void ShowTimeLeft(Session& session, const SourceClient& client, std::string_view word, std::size_t requests) {
    constexpr double kWorthTelling = 60;
    const double left = client.SecondsPerRequest() * static_cast<double>(requests);
    if (left < kWorthTelling) return;
    session.person.ShowStatusWord(std::string(word) + ", " + LeftText(left));
}

void AskTickers(SourceClient& client, SourceWorld& world, const TickersQuestion& question,
                const std::vector<std::string>& tickers, const TakeAnswer& take) {
    Asking(client, world, question, take).Run(tickers);
}

}  // namespace brantlow
