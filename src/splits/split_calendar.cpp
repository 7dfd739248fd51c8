#include "splits/split_calendar.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"
#include "shell/memory_status.h"
#include "shell/session_change.h"
#include "splits/split_adjustment.h"
#include "store/year_growth.h"

namespace brantlow {

namespace {

constexpr std::size_t kMonthAndDay = std::string_view("mm/dd").size();

std::string YearOf(const Date& today) {
    return std::to_string(static_cast<int>(today.year()));
}

std::optional<Date> DayOf(std::string_view date, const Date& today) {
    if (const auto day = ParseDate(date)) return day;
    return ParseDate(std::string(date).append(1, '/').append(YearOf(today)));
}

std::string WithYear(const std::string& date, const Date& today) {
    const auto day = DayOf(date, today);
    return day ? FormatDate(*day) : date;
}

LoggedSplit ParseLogLine(std::string_view line) {
    std::vector<Value> values = ParseRecord(line);
    constexpr std::size_t kFields = 3;
    values.resize(kFields);
    return {values[0].Text(), values[1].Text(), LeadingNumber(values[2].Text())};
}

bool Holds(const std::vector<LoggedSplit>& log, std::string_view ticker) {
    return std::any_of(log.begin(), log.end(),
                       [&](const LoggedSplit& split) { return split.ticker == ticker; });
}

void TellSplit(const std::string& ticker, const SplitAdjustment& adjustment, SplitCheck& check) {
    if (adjustment.error) {
        check.report.Tell(ticker, TickerFate::Failed, Sentence(adjustment.error));
        return;
    }
    const bool isRestated = adjustment.SplitIndex > 0;
    if (isRestated) {
        check.report.Tell(ticker, TickerFate::Stored);
    } else {
        check.report.Tell(ticker, TickerFate::Skipped, "no jump of its prices fits");
    }
    if (!isRestated) return;
    check.isChanged = true;
    ++check.adjusted;
    check.halfLines.insert(check.halfLines.end(), adjustment.halfLines.begin(), adjustment.halfLines.end());
}

// Nothing of the check was kept.
void TellNothingDone(FileChange& change, SplitCheck& check) {
    if (change.TakeBack()) check.error.isHalfDone = true;
    check.adjusted = 0;
    check.halfLines.clear();
    check.isChanged = check.error.isHalfDone;
    check.report = RunReport("Split calendar", "splits");
    check.report.Fail(FailedSentence(kSplitCalendarChange, check.error));
}

void PrepareLogged(const std::vector<LoggedSplit>& log, Session& session, WorkingSeries& series,
                   FileChange& change, SplitCheck& check) {
    const HistorySource source{session.settings.QuoteFolder, session.clock};
    const std::string selected = session.CurrentTicker;
    for (const LoggedSplit& split : log) {
        session.CurrentTicker = split.ticker;
        session.person.PumpEvents();
        if (!IsDue(split, session.clock.Today())) continue;
        ++check.due;
        const SplitAdjustment adjustment =
            PrepareSplit(source, session.DataFolder(), split.ticker, split.factor, series, change);
        // A ticker that cannot be read is left out; a file that cannot be written ends the change.
        TellSplit(split.ticker, adjustment, check);
        if (!adjustment.error || adjustment.IsUnread()) continue;
        check.error = adjustment.error;
        break;
    }
    session.CurrentTicker = selected;
}

}  // namespace

std::string MonthAndDay(std::string_view date, const Date& today) {
    const auto day = DayOf(date, today);
    return day ? FormatDate(*day).substr(0, kMonthAndDay) : std::string(date);
}

std::vector<LoggedSplit> ReadSplitLog(const Path& appPath, Failure* failure) {
    std::string bytes;
    Failure met = ReadIfThere(appPath / kSplitLogName, bytes);
    if (failure != nullptr) *failure = std::move(met);
    std::vector<LoggedSplit> log;
    LineReader reader(bytes);
    std::string_view line;
    while (log.size() < kMostLoggedSplits && reader.Next(line)) {
        LoggedSplit split = ParseLogLine(line);
        if (!split.ticker.empty()) log.push_back(std::move(split));
    }
    return log;
}

Failure PrepareSplitLog(const Path& appPath, const std::vector<LoggedSplit>& log, FileChange& change) {
    const Path file = appPath / kSplitLogName;
    std::string bytes;
    for (const LoggedSplit& split : log) {
        bytes += Value::OfText(split.ticker).Written();
        bytes.append(1, ',').append(Value::OfText(split.date).Written());
        bytes.append(1, ',').append(Value::OfNumber(split.factor).Written()).append(kLineEnd);
    }
    if (bytes.empty()) return change.Delete(file);
    return bytes == BytesOrEmpty(file) ? Failure{} : change.Write(file, bytes);
}

void LogNewSplits(const std::vector<PageSplit>& splits, const Date& today, std::vector<LoggedSplit>& log) {
    for (const PageSplit& split : splits) {
        if (log.size() >= kMostLoggedSplits) return;
        if (Holds(log, split.ticker)) continue;
        log.push_back({split.ticker, MonthAndDay(split.date, today), FactorOfRatio(split.ratio)});
    }
}

void DropOldSplits(const Date& today, std::vector<LoggedSplit>& log) {
    const std::string oldest = FormatDate(AddDays(today, -kDaysInSplitLog)).substr(0, kMonthAndDay);
    std::erase_if(log, [&](LoggedSplit& split) {
        split.date = MonthAndDay(split.date, today);
        return split.date < oldest;
    });
}

bool IsDue(const LoggedSplit& split, const Date& today) {
    return WithYear(split.date, today) < FormatDate(today);
}

SplitCheck CheckSplitCalendar(Session& session, std::string_view page, std::string_view meminfo,
                              WorkingSeries& series) {
    SplitCheck check;
    const Date today = session.clock.Today();
    Failure unread;
    std::vector<LoggedSplit> log = ReadSplitLog(session.AppPath, &unread);
    if (unread) {
        check.error = unread;
        check.report = RunReport("Split calendar", "splits");
        check.report.Fail(Sentence(unread));
        return check;
    }
    const std::vector<LoggedSplit> former = log;
    DeleteOneFile(session.AppPath / kSplitWorkName);
    WatchMemory(meminfo, session.run, session.person);
    LogNewSplits(SplitsOfPage(page), today, log);
    DropOldSplits(today, log);
    check.report = RunReport("Split calendar", "splits");
    check.isChanged = log != former;
    check.logged = log.size();
    FileChange change(ChangePlaceOf(session), std::string(kSplitCalendarChange));
    change.AlsoKeep(session.DataFile(kLastRunName));
    check.error = PrepareSplitLog(session.AppPath, log, change);
    if (!check.error) PrepareLogged(log, session, series, change, check);
    // A log alone is kept up day by day, and is nothing to undo.
    if (check.adjusted == 0) change.KeepFor(ChangeKeeps::UntilDone);
    if (!check.error) check.error = CommitBeside(session, change);
    if (check.error) TellNothingDone(change, check);
    check.report.SetHeadline(
        fmt::format("{} of {} splits restated, {} in the log", check.adjusted, check.due, log.size()));
    TellHalfLines(check.halfLines, check.report);
    return check;
}

}  // namespace brantlow
