#include "daily/update_quotes.h"

#include <algorithm>

#include "acquire/feeds/quote_reply.h"
#include "acquire/feeds/quote_request.h"
#include "acquire/web/downloads.h"
#include "acquire/web/fetch_queue.h"
#include "base/text.h"
#include "daily/row_update.h"
#include "store/import_record.h"
#include "store/update_list.h"

namespace brantlow {

namespace {

// Lines of the net settings.
constexpr std::size_t kTemplateLine = 4;
constexpr std::size_t kStepLine = 6;
constexpr std::size_t kHeaderLine = 7;
constexpr std::size_t kFooterLine = 8;

// A batch is a few kilobytes; a source that sends for ever must not hold the update.
constexpr std::size_t kBatchBytes = std::size_t{16} * 1024 * 1024;
constexpr double kBatchSeconds = kDownloadSeconds;

std::size_t LineSetting(const SettingsTables& settings, std::size_t line) {
    const double count = settings.NetSettings.Number(line);
    return static_cast<std::size_t>(std::clamp(count, 0.0, static_cast<double>(kMostRows)));
}

// The arrays are in step with the table, row by row.
bool AreInStep(const QuoteTable& table, const QuoteArrays& rows) {
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
        if (!rows.HasRow(row) || rows.Symbols[row] != table.Ticker(row)) return false;
    }
    return true;
}

// One run of UpdateQuotes.
class QuoteUpdate {
  public:
    explicit QuoteUpdate(const UpdateWork& work)
        : work_(work),
          settings_(work.session.settings),
          source_(QuoteSourceOf(settings_)),
          step_(BatchStep(settings_)),
          lastRow_(work.table.TickerCount()),
          row_(work, outcome_),
          tempFile_(work.session.AppPath / "Temp.txt") {}

    UpdateOutcome Run() {
        if (source_ == QuoteSource::None || lastRow_ == 0) return outcome_;
        outcome_.noTemplate = source_ == QuoteSource::User && Template().empty();
        if (outcome_.noTemplate) {
            work_.session.person.Say(kSetUpQuoteDownloads);
            return outcome_;
        }
        WalkBatches();
        return outcome_;
    }

  private:
    const std::string& Template() const { return settings_.NetSettings.Text(kTemplateLine); }

    // The requests leave ahead of the batches in work.
    std::optional<WebRequest> NextRequest() {
        if (requestRow_ > lastRow_) return std::nullopt;
        WebRequest request;
        request.url =
            source_ == QuoteSource::User
                ? FillQuoteTemplate(Template(), work_.table, requestRow_).url
                : StandardQuoteUrl(work_.hosts.QuoteHostInForce(settings_), work_.table, requestRow_);
        request.limitSeconds = kBatchSeconds;
        request.limitBytes = kBatchBytes;
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
            if (const auto fetched = queue.Next()) TakeReply(fetched->reply, first);
            WatchMemory(work_.memoryInfo(), session.run, session.person);
            session.person.PumpEvents();
        }
    }

    void SayWhenTickersDoNotMatch(std::size_t first) {
        if (source_ != QuoteSource::User) return;
        const UserQuoteUrl filled = FillQuoteTemplate(Template(), work_.table, first);
        if (static_cast<double>(filled.tickers) != settings_.NetSettings.Number(kStepLine)) {
            work_.session.person.Say(kTickerCountMismatch);
        }
    }

    void TakeReply(const WebReply& reply, std::size_t first) {
        ++outcome_.batches;
        // A page of which only a part came in its time counts as none.
        const auto text = reply.ok ? TextOfReply(reply) : std::nullopt;
        if (!text || !WriteReply(*text)) {
            ++outcome_.failedBatches;
        } else {
            TakeLines(BytesOrEmpty(tempFile_), first);
        }
        DeleteOneFile(tempFile_);
    }

    bool WriteReply(std::string_view text) {
        if (const std::error_code error = WriteTextFile(tempFile_, text)) {
            if (!outcome_.error) outcome_.error = error;
            return false;
        }
        return !row_.HasDecimalCommas() || !NormaliseDecimalComma(tempFile_);
    }

    void TakeLines(const std::string& bytes, std::size_t batchRow) {
        const std::size_t first = LineSetting(settings_, kHeaderLine) + batchRow;
        const std::size_t last = batchRow + step_ - 1 + LineSetting(settings_, kFooterLine);
        LineReader reader(bytes);
        std::string_view line;
        std::string records;
        row_.BeginBatch(batchRow);
        for (std::size_t row = first; row <= std::min(last, lastRow_) && reader.Next(line); ++row) {
            ShowRow(row, batchRow);
            row_.TakeLine(line, row, records);
        }
        if (records.empty()) return;
        const auto error = AppendToFile(ImportRecordFile(work_.session.AppPath), records);
        if (!outcome_.error) outcome_.error = error;
    }

    void ShowRow(std::size_t row, std::size_t batchRow) {
        Session& session = work_.session;
        session.run.CurrentRow = row;
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
    RowUpdate row_;
    Path tempFile_;
    std::size_t requestRow_ = 1;
};

}  // namespace

UpdateOutcome UpdateQuotes(const UpdateWork& work) {
    Session& session = work.session;
    if (KindOf(session.CurrentFile) != FileKind::Ddq) return {};
    BeginRun(session.run);
    DeleteOneFile(ImportRecordFile(session.AppPath));
    DeleteUpdateList(session.settings.QuoteFolder);
    if (!AreInStep(work.table, work.rows)) work.rows = QuoteArrays();
    CopySymbols(work.table, work.rows);
    const UpdateOutcome outcome = QuoteUpdate(work).Run();
    CopySymbols(work.table, work.rows);
    session.run.CurrentRow = 0;
    session.run.TopRow = 0;
    return outcome;
}

}  // namespace brantlow
