// The lines of the settings files, one row a line: where it stands, what it may hold, what it starts with,
// what the Default button does to it and what an unknown text means. The engine, the dialogs, the wizard, the
// documents and the tests read the rows; no line number stands anywhere else.
//
// A line is read and written by its handle: Get(tables, kSavesTable), Set(tables, kSavesTable, true). What
// has no fixed line (columns, conditions, sequences of fields) is in settings_files.h and condition_set.h.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "base/dates.h"
#include "shell/settings/choices.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

enum class LineKind {
    Flag,    // the first of two words; any other text is no
    Choice,  // one of some words
    Number,  // a number within a range
    Time,    // hour or minute in two digits, or nothing
    Day,     // a date
    Text,
};

// How a value stands in its line: in quotes, bare, or printed as it is.
enum class LineForm { Written, Number, Printed };

// What the Default button does to a line: gives it its standard, keeps it as it is in force, keeps what the
// dialog shows for it, or makes it the day.
enum class LineReset { Standard, Keep, KeepShown, Today };

struct LineRow {
    SettingsFile file;
    std::size_t number;
    LineKind kind;
    std::string_view name;
    // What a new application folder starts with, without quotes.
    std::string_view standard;
    // What the line decides, as docs/files.md says it.
    std::string_view words;
    LineForm form = LineForm::Written;
    LineReset reset = LineReset::Standard;
    // The words of a flag (for yes, for no) and of a choice; the numbers that a dialog offers.
    std::span<const std::string_view> choices = {};
    // What an unknown text counts as: a choice by its place, or a number. A number below `least` is unknown,
    // one above `most` counts as `most`.
    int fallback = 0;
    // The choice that a dialog shows for an unknown text, where that is another one.
    int shown = -1;
    int least = 0;
    int most = 0;

    // The choice shown for an unknown text; a flag's is its word for no.
    constexpr std::size_t Shown() const {
        if (kind == LineKind::Flag) return 1;
        return static_cast<std::size_t>(shown < 0 ? fallback : shown);
    }

    // In front of those that call it: clang does not look for it further down.
    template <class Part, class Given>
    consteval LineRow With(Part LineRow::*part, const Given& value) const {
        LineRow row = *this;
        row.*part = value;
        return row;
    }

    // For the rows below: the row with one more thing said of it.
    consteval LineRow As(LineForm value) const { return With(&LineRow::form, value); }
    consteval LineRow Kept() const { return With(&LineRow::reset, LineReset::Keep); }
    consteval LineRow KeptAsShown() const { return With(&LineRow::reset, LineReset::KeepShown); }
    consteval LineRow Dated() const { return With(&LineRow::reset, LineReset::Today); }
    consteval LineRow Of(std::span<const std::string_view> words_) const {
        return With(&LineRow::choices, words_);
    }
    consteval LineRow Otherwise(int value) const { return With(&LineRow::fallback, value); }
    consteval LineRow Shows(int value) const { return With(&LineRow::shown, value); }
    consteval LineRow Within(int from, int to) const {
        return With(&LineRow::least, from).With(&LineRow::most, to);
    }
};

// By file, each file's by number.
inline constexpr std::array kLineRows = {
    // VTRDATAset.ini
    LineRow{SettingsFile::Data, 1, LineKind::Choice, "BackUpFrequency", kBackUpWords[0],
            "how often to back up"}
        .Of(kBackUpWords),
    LineRow{SettingsFile::Data, 2, LineKind::Flag, "BacksUpApplication", kTrueFalse[0],
            "whether the application's files are backed up"}
        .Of(kTrueFalse),
    LineRow{SettingsFile::Data, 3, LineKind::Text, "ApplicationBackUpFolder", R"(Back Up\Data)", "where to"}
        .KeptAsShown(),
    LineRow{SettingsFile::Data, 4, LineKind::Flag, "BacksUpDatabase", kTrueFalse[0],
            "whether the quote database is backed up"}
        .Of(kTrueFalse),
    LineRow{SettingsFile::Data, 5, LineKind::Text, "DatabaseBackUpFolder", R"(Back Up\Quotes)", "where to"}
        .KeptAsShown(),
    LineRow{SettingsFile::Data, 6, LineKind::Number, "HistoryYears", "10",
            "years of history fetched for a new ticker; \"\" for none"}
        .Of(kHistoryYearsWords)
        .Within(0, 1000)
        .As(LineForm::Number),
    LineRow{SettingsFile::Data, 7, LineKind::Flag, "SavesTable", kSaveWords[0],
            "whether an update or an edit saves the table"}
        .Of(kSaveWords),
    LineRow{SettingsFile::Data, 8, LineKind::Flag, "StoresInDatabase", kSaveWords[0],
            "whether an update goes to the quote database"}
        .Of(kSaveWords),
    LineRow{SettingsFile::Data, 9, LineKind::Choice, "Collection", kCollectionWords[1], "the daily update"}
        .Of(kCollectionWords)
        .Otherwise(1),
    LineRow{SettingsFile::Data, 10, LineKind::Time, "CollectionHour", "",
            "its hour, two digits; \"\" without a daily update"}
        .Within(0, 23),
    LineRow{SettingsFile::Data, 11, LineKind::Time, "CollectionMinute", "",
            "its minute, two digits; \"\" without a daily update"}
        .Within(0, 59),
    LineRow{SettingsFile::Data, 12, LineKind::Flag, "ChecksForUpdates", kUpdateWords[1],
            "whether the program looks for newer versions"}
        .Of(kUpdateWords),
    LineRow{SettingsFile::Data, 13, LineKind::Day, "LastBackUp", "", "the day of the last back-up"}.Dated(),
    LineRow{SettingsFile::Data, 14, LineKind::Flag, "SendsAlerts", kAlertWords[1],
            "whether alarms send alerts by e-mail"}
        .Of(kAlertWords),
    LineRow{SettingsFile::Data, 15, LineKind::Text, "AlertAddress", "", "their address"}.Kept(),
    LineRow{SettingsFile::Data, 16, LineKind::Flag, "RunsSelector", kAutomaticManual[1],
            "whether the selector runs after an update"}
        .Of(kAutomaticManual),
    LineRow{SettingsFile::Data, 17, LineKind::Flag, "DatabaseIsElsewhere", kTrueFalse[1],
            "whether the quote database lies in a folder of its own choice"}
        .Of(kTrueFalse),
    LineRow{SettingsFile::Data, 18, LineKind::Text, "DatabaseFolder", R"(Quotes\EOD)", "which folder"}
        .KeptAsShown(),
    LineRow{SettingsFile::Data, 19, LineKind::Flag, "AdjustsSplits", kAutomaticManual[0],
            "whether an update adjusts for stock splits"}
        .Of(kAutomaticManual),
    // VTRGRAPHset.ini
    LineRow{SettingsFile::Graph, 1, LineKind::Choice, "ChartStyle", kChartStyleWords[0], "the chart's style"}
        .Of(kChartStyleWords)
        .Otherwise(1)
        .Shows(0),
    LineRow{SettingsFile::Graph, 2, LineKind::Text, "FirstPanel", "Price",
            "the first series, always \"Price\""},
    LineRow{SettingsFile::Graph, 3, LineKind::Text, "ChartSeries1", "LR MINMAX CL",
            "first of the six series drawn with it"},
    LineRow{SettingsFile::Graph, 4, LineKind::Text, "ChartSeries2", "LR T.CL",
            "second of the six series drawn with it"},
    LineRow{SettingsFile::Graph, 5, LineKind::Text, "ChartSeries3", "MA 180",
            "third of the six series drawn with it"},
    LineRow{SettingsFile::Graph, 6, LineKind::Text, "ChartSeries4", "MLR 60",
            "fourth of the six series drawn with it"},
    LineRow{SettingsFile::Graph, 7, LineKind::Text, "ChartSeries5", "MLR 60 L.CL",
            "fifth of the six series drawn with it"},
    LineRow{SettingsFile::Graph, 8, LineKind::Text, "ChartSeries6", "MLR 90",
            "sixth of the six series drawn with it"},
    LineRow{SettingsFile::Graph, 9, LineKind::Text, "BuyCondition", "Condition 1",
            "the condition that marks buying: \"None\" or \"Condition\" and its number"}
        .KeptAsShown(),
    LineRow{SettingsFile::Graph, 10, LineKind::Text, "SellCondition", "Condition 2",
            "the condition that marks selling"}
        .KeptAsShown(),
    // VTRMRUset.ini
    LineRow{SettingsFile::Mru, 1, LineKind::Text, "RecentFile1", "Practice.ddq",
            "the newest file; \"\" where there is none"},
    LineRow{SettingsFile::Mru, 2, LineKind::Text, "RecentFile2", "", "second of the recent files"},
    LineRow{SettingsFile::Mru, 3, LineKind::Text, "RecentFile3", "", "third of the recent files"},
    LineRow{SettingsFile::Mru, 4, LineKind::Text, "RecentFile4", "", "fourth of the recent files"},
    // VTRNETset.ini
    LineRow{SettingsFile::Net, 1, LineKind::Choice, "WebContent", kContentWords[0],
            "the pages that research commands open"}
        .Of(kContentWords)
        .Otherwise(1)
        .Shows(0)
        .Kept(),
    LineRow{SettingsFile::Net, 2, LineKind::Text, "Brokerage", "", "address of the brokerage firm"}
        .KeptAsShown(),
    LineRow{SettingsFile::Net, 3, LineKind::Choice, "QuoteSource", kSourceWords[0], "where quotes come from"}
        .Of(kSourceWords)
        .Kept(),
    LineRow{SettingsFile::Net, 4, LineKind::Text, "QuoteTemplate", "",
            "the user's address for end-of-day quotes"}
        .As(LineForm::Printed)
        .KeptAsShown(),
    LineRow{SettingsFile::Net, 5, LineKind::Text, "HistoryTemplate", "",
            "the user's address for historical quotes"}
        .As(LineForm::Printed)
        .KeptAsShown(),
    LineRow{SettingsFile::Net, 6, LineKind::Number, "QuotesPerRequest", "15",
            "quotes asked for in one request"}
        .Otherwise(15)
        .Within(1, 18000)
        .As(LineForm::Printed),
    LineRow{SettingsFile::Net, 7, LineKind::Number, "SourceHeader", "0", "lines above the quotes of a reply"}
        .Within(0, 18000)
        .As(LineForm::Printed),
    LineRow{SettingsFile::Net, 8, LineKind::Number, "SourceFooter", "0", "lines below them"}
        .Within(0, 18000)
        .As(LineForm::Printed),
    LineRow{SettingsFile::Net, 9, LineKind::Choice, "SourceDateForm", "01/02/04", "form of its dates"}.Of(
        kDateForms),
    LineRow{SettingsFile::Net, 10, LineKind::Choice, "SourceDelimiter", kDelimiterWords[0], "its separator"}
        .Of(kDelimiterWords)
        .Otherwise(1),
    // VTRLANGset.ini
    LineRow{SettingsFile::Lang, 1, LineKind::Text, "QuoteHost", "",
            "base address of the quote host; \"\" for that of the United States"}
        .Kept(),
    // VTRIMEXset.ini
    LineRow{SettingsFile::ImEx, 1, LineKind::Choice, "ExportType", kFileTypeWords[0],
            "form of an export file"}
        .Of(kFileTypeWords),
    LineRow{SettingsFile::ImEx, 2, LineKind::Text, "ExportFolder", "Data", "its folder"}.KeptAsShown(),
    LineRow{SettingsFile::ImEx, 3, LineKind::Text, "ExportName", "Export.Txt", "its name"},
    LineRow{SettingsFile::ImEx, 4, LineKind::Choice, "ImportType", kFileTypeWords[0],
            "form of an import file"}
        .Of(kFileTypeWords)
        .Otherwise(1),
    LineRow{SettingsFile::ImEx, 5, LineKind::Text, "ImportFolder", "Data", "its folder"}.KeptAsShown(),
    LineRow{SettingsFile::ImEx, 6, LineKind::Text, "ImportName", "Import.Txt", "its name"},
    LineRow{SettingsFile::ImEx, 7, LineKind::Number, "ImportHeader", "0", "lines above its quotes"}
        .Within(0, 18000)
        .As(LineForm::Number),
    LineRow{SettingsFile::ImEx, 8, LineKind::Number, "ImportFooter", "0", "lines below them"}
        .Within(0, 18000)
        .As(LineForm::Number),
    LineRow{SettingsFile::ImEx, 9, LineKind::Choice, "ImportDateForm", "01/02/04", "form of its dates"}.Of(
        kDateForms),
    // VTROWNset.ini
    LineRow{SettingsFile::Own, 1, LineKind::Flag, "KeepsHistory", kKeepWords[0],
            "whether a ticker whose download failed keeps the history that is stored"}
        .Of(kKeepWords),
    LineRow{SettingsFile::Own, 2, LineKind::Number, "UndoChanges", "20", "how many changes can be undone"}
        .Otherwise(20)
        .Within(1, 10000)
        .As(LineForm::Number),
    LineRow{SettingsFile::Own, 3, LineKind::Number, "UndoMegabytes", "2048",
            "how many megabytes are kept for undoing"}
        .Otherwise(2048)
        .Within(1, 1000000)
        .As(LineForm::Number),
    // VTRSRCset.ini
    LineRow{SettingsFile::Src, 1, LineKind::Text, "LiveQuotes", "", "the live source of quotes, by its name"},
    LineRow{SettingsFile::Src, 2, LineKind::Text, "LiveHistory", "", "that of histories"},
    LineRow{SettingsFile::Src, 3, LineKind::Text, "LiveSplits", "", "that of splits"},
    LineRow{SettingsFile::Src, 4, LineKind::Text, "LiveFundamentals", "",
            "that of fundamentals, asked after each update"},
    LineRow{SettingsFile::Src, 5, LineKind::Text, "LiveSymbols", "", "that of lists of symbols"},
    LineRow{SettingsFile::Src, 6, LineKind::Text, "LiveFallback", "",
            "the one to ask for tickers that the first does not know"},
    // VTRMAILset.ini
    LineRow{SettingsFile::Mail, 1, LineKind::Flag, "MailsAlarms", "None",
            "whether the alarms of an update are mailed"}
        .Of(kMailWords),
    LineRow{SettingsFile::Mail, 2, LineKind::Text, "MailHost", "", "the mail server"},
    LineRow{SettingsFile::Mail, 3, LineKind::Number, "MailPort", "465", "its port"}
        .Otherwise(465)
        .Within(1, 65535)
        .As(LineForm::Number),
    LineRow{SettingsFile::Mail, 4, LineKind::Choice, "MailSecurity", "TLS", "how the connection is encrypted"}
        .Of(kMailSecurityWords),
    LineRow{SettingsFile::Mail, 5, LineKind::Text, "MailUser", "", "who logs in; \"\" for nobody"},
    LineRow{SettingsFile::Mail, 6, LineKind::Text, "MailSender", "",
            "the sender's address; \"\" for the first recipient's"},
    LineRow{SettingsFile::Mail, 7, LineKind::Text, "MailRecipient", "",
            "the recipients' addresses, commas between them"},
};

// The row of that name and kind: a handle for a row that is not there does not compile.
consteval const LineRow& RowNamed(std::string_view name, LineKind kind) {
    for (const LineRow& row : kLineRows) {
        if (row.name == name && row.kind == kind) return row;
    }
    throw "no such row";
}

template <LineKind kKind>
struct LineOf {
    consteval explicit LineOf(std::string_view name) : row(&RowNamed(name, kKind)) {}
    // For who walks the rows: the row has this kind.
    constexpr explicit LineOf(const LineRow& given) : row(&given) {}
    const LineRow* row;
};
using FlagLine = LineOf<LineKind::Flag>;
using NumberLine = LineOf<LineKind::Number>;
using TimeLine = LineOf<LineKind::Time>;
using DateLine = LineOf<LineKind::Day>;
using TextLine = LineOf<LineKind::Text>;
template <class Choice>
struct ChoiceLine : LineOf<LineKind::Choice> {
    consteval explicit ChoiceLine(std::string_view name) : LineOf(name) {}
};

inline constexpr ChoiceLine<BackUpFrequency> kBackUpFrequency{"BackUpFrequency"};
inline constexpr FlagLine kBacksUpApplication{"BacksUpApplication"};
inline constexpr TextLine kApplicationBackUpFolder{"ApplicationBackUpFolder"};
inline constexpr FlagLine kBacksUpDatabase{"BacksUpDatabase"};
inline constexpr TextLine kDatabaseBackUpFolder{"DatabaseBackUpFolder"};
inline constexpr NumberLine kHistoryYears{"HistoryYears"};
inline constexpr FlagLine kSavesTable{"SavesTable"};
inline constexpr FlagLine kStoresInDatabase{"StoresInDatabase"};
inline constexpr ChoiceLine<DataCollection> kCollection{"Collection"};
inline constexpr TimeLine kCollectionHour{"CollectionHour"};
inline constexpr TimeLine kCollectionMinute{"CollectionMinute"};
inline constexpr FlagLine kChecksForUpdates{"ChecksForUpdates"};
inline constexpr DateLine kLastBackUp{"LastBackUp"};
inline constexpr FlagLine kSendsAlerts{"SendsAlerts"};
inline constexpr TextLine kAlertAddress{"AlertAddress"};
inline constexpr FlagLine kRunsSelector{"RunsSelector"};
inline constexpr FlagLine kDatabaseIsElsewhere{"DatabaseIsElsewhere"};
inline constexpr TextLine kDatabaseFolder{"DatabaseFolder"};
inline constexpr FlagLine kAdjustsSplits{"AdjustsSplits"};
inline constexpr ChoiceLine<ChartStyleChoice> kChartStyle{"ChartStyle"};
inline constexpr TextLine kFirstPanel{"FirstPanel"};
inline constexpr TextLine kBuyCondition{"BuyCondition"};
inline constexpr TextLine kSellCondition{"SellCondition"};
inline constexpr TextLine kRecentFile1{"RecentFile1"};
inline constexpr ChoiceLine<WebContent> kWebContent{"WebContent"};
inline constexpr TextLine kBrokerage{"Brokerage"};
inline constexpr ChoiceLine<SourceChoice> kQuoteSource{"QuoteSource"};
inline constexpr TextLine kQuoteTemplate{"QuoteTemplate"};
inline constexpr TextLine kHistoryTemplate{"HistoryTemplate"};
inline constexpr NumberLine kQuotesPerRequest{"QuotesPerRequest"};
inline constexpr NumberLine kSourceHeader{"SourceHeader"};
inline constexpr NumberLine kSourceFooter{"SourceFooter"};
inline constexpr ChoiceLine<DateForm> kSourceDateForm{"SourceDateForm"};
inline constexpr ChoiceLine<Delimiter> kSourceDelimiter{"SourceDelimiter"};
inline constexpr TextLine kQuoteHost{"QuoteHost"};
inline constexpr ChoiceLine<TextFileType> kExportType{"ExportType"};
inline constexpr TextLine kExportFolder{"ExportFolder"};
inline constexpr TextLine kExportName{"ExportName"};
inline constexpr ChoiceLine<TextFileType> kImportType{"ImportType"};
inline constexpr TextLine kImportFolder{"ImportFolder"};
inline constexpr TextLine kImportName{"ImportName"};
inline constexpr NumberLine kImportHeader{"ImportHeader"};
inline constexpr NumberLine kImportFooter{"ImportFooter"};
inline constexpr ChoiceLine<DateForm> kImportDateForm{"ImportDateForm"};
inline constexpr FlagLine kKeepsHistory{"KeepsHistory"};
inline constexpr NumberLine kUndoChanges{"UndoChanges"};
inline constexpr NumberLine kUndoMegabytes{"UndoMegabytes"};
inline constexpr TextLine kLiveQuotes{"LiveQuotes"};
inline constexpr TextLine kLiveHistory{"LiveHistory"};
inline constexpr TextLine kLiveSplits{"LiveSplits"};
inline constexpr TextLine kLiveFundamentals{"LiveFundamentals"};
inline constexpr TextLine kLiveSymbols{"LiveSymbols"};
inline constexpr TextLine kLiveFallback{"LiveFallback"};
inline constexpr FlagLine kMailsAlarms{"MailsAlarms"};
inline constexpr TextLine kMailHost{"MailHost"};
inline constexpr NumberLine kMailPort{"MailPort"};
inline constexpr ChoiceLine<MailSecurity> kMailSecurity{"MailSecurity"};
inline constexpr TextLine kMailUser{"MailUser"};
inline constexpr TextLine kMailSender{"MailSender"};
inline constexpr TextLine kMailRecipient{"MailRecipient"};

// The chart's series by their slots: 0 the first panel's, 1 to 6 those drawn with it.
inline constexpr std::size_t kChartSeries = 6;
constexpr const LineRow& ChartSeriesRow(std::size_t slot) {
    return kFirstPanel.row[slot];
}

// How many lines of the file have rows. What a file holds beyond them has no number.
constexpr std::size_t LineCountOf(SettingsFile file) {
    std::size_t count = 0;
    for (const LineRow& row : kLineRows) count += row.file == file ? 1 : 0;
    return count;
}
// The row of a line, or null.
constexpr const LineRow* RowOf(SettingsFile file, std::size_t number) {
    for (const LineRow& row : kLineRows) {
        if (row.file == file && row.number == number) return &row;
    }
    return nullptr;
}

// The line's text as the file has it, empty where the file ends before it.
const std::string& TextOf(const SettingsTables& tables, const LineRow& row);
template <LineKind kKind>
const std::string& TextOf(const SettingsTables& tables, LineOf<kKind> line) {
    return TextOf(tables, *line.row);
}
// Puts the text into the line in its row's form.
void SetText(SettingsTables& tables, const LineRow& row, std::string_view text);

// The place of the text among the row's choices; nothing for an unknown one.
std::optional<std::size_t> ChoiceOf(const LineRow& row, std::string_view text);

bool Get(const SettingsTables& tables, FlagLine line);
double Get(const SettingsTables& tables, NumberLine line);
// Nothing for a text that is no whole number of the row's range.
std::optional<int> Get(const SettingsTables& tables, TimeLine line);
std::optional<Date> Get(const SettingsTables& tables, DateLine line);
const std::string& Get(const SettingsTables& tables, TextLine line);
template <class Choice>
Choice Get(const SettingsTables& tables, ChoiceLine<Choice> line) {
    const auto place = ChoiceOf(*line.row, TextOf(tables, *line.row));
    return static_cast<Choice>(place.value_or(static_cast<std::size_t>(line.row->fallback)));
}
// The choice, nothing where the line holds an unknown text.
template <class Choice>
std::optional<Choice> Known(const SettingsTables& tables, ChoiceLine<Choice> line) {
    const auto place = ChoiceOf(*line.row, TextOf(tables, *line.row));
    return place ? std::optional(static_cast<Choice>(*place)) : std::nullopt;
}

void Set(SettingsTables& tables, FlagLine line, bool on);
void Set(SettingsTables& tables, NumberLine line, double number);
void Set(SettingsTables& tables, DateLine line, const Date& date);
void Set(SettingsTables& tables, TextLine line, std::string_view text);
void Set(SettingsTables& tables, TimeLine line, std::string_view digits);
template <class Choice>
void Set(SettingsTables& tables, ChoiceLine<Choice> line, Choice choice) {
    SetText(tables, *line.row, line.row->choices[static_cast<std::size_t>(choice)]);
}

}  // namespace brantlow
