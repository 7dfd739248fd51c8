#include "daily/update_quotes.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "acquire/feeds/quote_reply.h"
#include "acquire/feeds/quote_request.h"
#include "acquire/web/downloads.h"
#include "acquire/web/fetch_queue.h"
#include "base/askable_ticker.h"
#include "base/numbers.h"
#include "base/text.h"
#include "daily/row_update.h"
#include "shell/kept_ticker.h"
#include "shell/session_change.h"
#include "shell/settings/lines.h"
#include "store/import_record.h"

namespace brantlow {

namespace {

// The arrays are in step with the table, row by row.
bool AreInStep(const QuoteTable& table, const QuoteArrays& rows) {
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
        if (!rows.HasRow(row) || rows.Symbols[row] != table.Ticker(row)) return false;
    }
    return true;
}

struct FateOfLine {
    LineTaken line;
    TickerFate fate;
    std::string_view why;
};

constexpr std::array<FateOfLine, 5> kFates = {
    {{LineTaken::Unreadable, TickerFate::Unknown, "no line of the reply"},
     {LineTaken::OtherTicker, TickerFate::Unknown, "another ticker's line in its place"},
     {LineTaken::Unknown, TickerFate::Unknown, ""},
     {LineTaken::Old, TickerFate::NothingNew, "a quote too old for the database"},
     {LineTaken::Accepted, TickerFate::Stored, ""}}};

// One run of UpdateQuotes.
class QuoteUpdate {
  public:
    explicit QuoteUpdate(const UpdateWork& work)
        : work_(work),
          settings_(work.session.settings),
          source_(QuoteSourceOf(settings_)),
          step_(BatchStep(settings_)),
          lastRow_(work.table.TickerCount()),
          fates_(lastRow_ + 1),
          row_(work, outcome_),
          tempFile_(work.session.AppPath / kReplyName),
          importFile_(ImportRecordFile(work.session.AppPath)) {}

    UpdateOutcome Run() {
        if (lastRow_ == 0) return outcome_;
        outcome_.noTemplate = source_ == QuoteSource::User && Template().empty();
        if (outcome_.noTemplate) {
            work_.session.person.Say(kSetUpQuoteDownloads);
            return outcome_;
        }
        WalkBatches();
        KeepFirst(outcome_.error, RecordFailure(importFile_.Close()));
        TellTickers();
        return std::move(outcome_);
    }

  private:
    struct RowFate {
        bool isTold = false;
        TickerFate fate = TickerFate::Unknown;
        std::string why;
    };

    bool IsAsked(std::size_t row) const {
        return source_ == QuoteSource::User || IsAskedFor(work_.table, row);
    }
    // The last row of the batch that begins at `first`.
    std::size_t LastOf(std::size_t first) const { return std::min(first + step_ - 1, lastRow_); }
    bool AsksAny(std::size_t first) const {
        for (std::size_t row = first; row <= LastOf(first); ++row) {
            if (IsAsked(row)) return true;
        }
        return false;
    }

    const std::string& Template() const { return Get(settings_, kQuoteTemplate); }

    // The requests leave ahead of the batches in work.
    std::optional<WebRequest> NextRequest() {
        while (requestRow_ <= lastRow_ && !AsksAny(requestRow_)) requestRow_ += step_;
        if (requestRow_ > lastRow_) return std::nullopt;
        WebRequest request = FeedRequest(
            source_ == QuoteSource::User
                ? FillQuoteTemplate(Template(), work_.table, requestRow_).url
                : StandardQuoteUrl(work_.hosts.QuoteHostInForce(settings_), work_.table, requestRow_));
        request.run = &work_.session.run;
        requestRow_ += step_;
        return request;
    }

    void WalkBatches() {
        Session& session = work_.session;
        FetchQueue queue(work_.web, [this] { return NextRequest(); });
        for (std::size_t first = 1; first <= lastRow_; first += step_) {
            outcome_.stopped = ShouldStop(session.run, session.person);
            if (outcome_.stopped) return;
            SayWhenTickersDoNotMatch(first);
            MarkReached(first);
            if (AsksAny(first)) {
                if (const auto fetched = queue.Next()) TakeReply(*fetched, first);
            }
            WatchMemory(work_.memoryInfo(), session.run, session.person);
            session.person.PumpEvents();
        }
    }

    void SayWhenTickersDoNotMatch(std::size_t first) {
        if (source_ != QuoteSource::User) return;
        const UserQuoteUrl filled = FillQuoteTemplate(Template(), work_.table, first);
        if (static_cast<double>(filled.tickers) != LeadingNumber(TextOf(settings_, kQuotesPerRequest))) {
            work_.session.person.Say(kTickerCountMismatch);
        }
    }

    // Until a reply says more of them, the rows of the batch are unknown to the source.
    void MarkReached(std::size_t first) {
        for (std::size_t row = first; row <= LastOf(first); ++row) {
            if (!fates_[row].isTold) fates_[row] = {true, TickerFate::Unknown, {}};
        }
    }

    void TakeReply(const FetchQueue::Fetched& fetched, std::size_t first) {
        ++outcome_.batches;
        const WebReply& reply = fetched.reply;
        // A page of which only a part came in its time counts as none.
        auto text = reply.ok ? TextOfReply(reply) : std::nullopt;
        const Failure error = text ? PassThroughFile(*text) : Failure{};
        KeepFirst(outcome_.error, error);
        const bool isTaken = text && !error && TakeLines(*text, first);
        if (isTaken) return;
        ++outcome_.failedBatches;
        // What the person stopped has not failed.
        if (reply.failure == WebFailure::Stopped) return Forget(first);
        const std::string why = error ? Sentence(error) : FeedFault(fetched.request.url, reply);
        for (std::size_t row = first; row <= LastOf(first); ++row)
            fates_[row] = {true, TickerFate::Failed, why};
    }

    // Nothing is told of the batch's rows.
    void Forget(std::size_t first) {
        for (std::size_t row = first; row <= LastOf(first); ++row) fates_[row].isTold = false;
    }

    // The reply goes through the work file, where its decimal commas get their form.
    Failure PassThroughFile(std::string& text) {
        std::error_code error = WriteTextFile(tempFile_, text);
        if (!error && !row_.HasDecimalCommas()) return {};
        if (!error) error = NormaliseDecimalComma(tempFile_.Name());
        const Failure fault = error ? FailedTo(FailureKind::Write, tempFile_.Name(), error)
                                    : ReadIfThere(tempFile_.Name(), text);
        tempFile_.Delete();
        return fault;
    }

    // False when there are rows to fill and no line holds the source's fields.
    bool TakeLines(const std::string& bytes, std::size_t batchRow) {
        const std::size_t first = static_cast<std::size_t>(Get(settings_, kSourceHeader)) + batchRow;
        const std::size_t last =
            batchRow + step_ - 1 + static_cast<std::size_t>(Get(settings_, kSourceFooter));
        LineReader reader(bytes);
        std::string_view line;
        std::string records;
        bool isRead = first > lastRow_;
        row_.BeginBatch(batchRow);
        for (std::size_t row = first; row <= std::min(last, lastRow_); ++row) {
            if (!IsAsked(row)) continue;
            if (!reader.Next(line)) break;
            ShowRow(row, batchRow);
            isRead |= TakeLine(line, row, records);
        }
        if (!records.empty()) KeepFirst(outcome_.error, RecordFailure(importFile_.Append(records)));
        return isRead;
    }

    Failure RecordFailure(const std::error_code& error) const {
        return FailedTo(FailureKind::Write, ImportRecordFile(work_.session.AppPath), error);
    }

    bool TakeLine(std::string_view line, std::size_t row, std::string& records) {
        const LineTaken taken = row_.TakeLine(line, row, records);
        for (const FateOfLine& fate : kFates) {
            if (fate.line == taken) fates_[row] = {true, fate.fate, std::string(fate.why)};
        }
        return taken != LineTaken::Unreadable;
    }

    // Rows that a run which was stopped did not reach were wanted all the same.
    void TellTickers() {
        const bool isStopped = work_.session.run.ProcessCommand == kStopRun;
        for (std::size_t row = 1; row <= lastRow_; ++row) {
            const std::string& ticker = work_.table.Ticker(row);
            RowFate& fate = fates_[row];
            if (ticker.empty()) continue;
            if (!fate.isTold && isStopped) {
                outcome_.tickers.push_back({ticker, TickerFate::Skipped, std::string(kStoppedWord)});
            }
            if (!fate.isTold) continue;
            if (!IsAsked(row)) fate = {true, TickerFate::LeftOut, std::string(kUnaskableReason)};
            outcome_.tickers.push_back({ticker, fate.fate, std::move(fate.why)});
        }
    }

    void ShowRow(std::size_t row, std::size_t batchRow) {
        Session& session = work_.session;
        session.run.CurrentRow = row;
        session.CurrentTicker = work_.table.Ticker(row);
        if (batchRow > step_) session.run.TopRow = batchRow - step_;
        session.run.ProgressFraction = static_cast<double>(row) / static_cast<double>(lastRow_);
        session.person.ShowProgress(session.run.ProgressFraction);
    }

    const UpdateWork& work_;
    const SettingsTables& settings_;
    QuoteSource source_;
    std::size_t step_;
    std::size_t lastRow_;
    UpdateOutcome outcome_;
    // By row.
    std::vector<RowFate> fates_;
    RowUpdate row_;
    ScratchFile tempFile_;
    GrowingFile importFile_;
    std::size_t requestRow_ = 1;
};

}  // namespace

void BeginUpdate(const UpdateWork& work) {
    Session& session = work.session;
    BeginRun(session.run);
    DeleteOneFile(ImportRecordFile(session.AppPath));
    if (!AreInStep(work.table, work.rows)) work.rows = QuoteArrays();
    CopySymbols(work.table, work.rows);
}

UpdateOutcome UpdateQuotes(const UpdateWork& work) {
    Session& session = work.session;
    if (KindOf(session.CurrentFile) != FileKind::Ddq) return {};
    const KeptTicker selected(session);
    BeginUpdate(work);
    const UpdateOutcome outcome = QuoteUpdate(work).Run();
    CopySymbols(work.table, work.rows);
    session.run.CurrentRow = 0;
    session.run.TopRow = 0;
    return outcome;
}

}  // namespace brantlow
