// What the settings choose, in words: the words that a line may hold, what they stand for, and the questions
// that the engine and the windows ask. The words stand here and nowhere else; lines.h ties them to the lines.
#pragma once

#include <string_view>

namespace brantlow {

struct SettingsTables;
struct UndoLimits;

// Of a switch: the word for yes, then that for no.
inline constexpr std::string_view kTrueFalse[] = {"True", "False"};
inline constexpr std::string_view kSaveWords[] = {"Automatic Save", "Manual Save"};
inline constexpr std::string_view kAutomaticManual[] = {"Automatic", "Manual"};
inline constexpr std::string_view kUpdateWords[] = {"Automatic Updates", "Manual Updates"};
inline constexpr std::string_view kAlertWords[] = {"E-mail Alerts", "None"};
inline constexpr std::string_view kMailWords[] = {"Send", "None"};
inline constexpr std::string_view kKeepWords[] = {"Keep", "Replace"};

// Of a choice, in the order of its enumeration.
inline constexpr std::string_view kBackUpWords[] = {"Manually", "Weekly", "Monthly"};
enum class BackUpFrequency { Manually, Weekly, Monthly };

inline constexpr std::string_view kCollectionWords[] = {"EOD", "None"};
enum class DataCollection { Daily, Never };

inline constexpr std::string_view kChartStyleWords[] = {"Default", "CandleStick"};
enum class ChartStyleChoice { HighLowClose, CandleSticks };

inline constexpr std::string_view kContentWords[] = {"Yahoo", "NASDAQ"};
enum class WebContent { Yahoo, Nasdaq };

inline constexpr std::string_view kSourceWords[] = {"Yahoo", "User Selected String"};
enum class SourceChoice { Standard, User };

// Encrypted from the first byte, or from STARTTLS on; never in the clear.
inline constexpr std::string_view kMailSecurityWords[] = {"TLS", "STARTTLS"};
enum class MailSecurity { Tls, StartTls };

inline constexpr std::string_view kDelimiterWords[] = {"Comma", "Tab"};
enum class Delimiter { Comma, Tab };

inline constexpr std::string_view kFileTypeWords[] = {"Comma Delimited", "Tab Delimited", "MetaStock 6",
                                                      "MetaStock 7"};
enum class TextFileType { Comma, Tab, MetaStock6, MetaStock7 };

// Forms of a date in a supplier's reply or an import file.
inline constexpr std::string_view kDateForms[] = {"01/02/04", "Jan-2-2004", "20040102", "040102"};
enum class DateForm { Slashes, MonthName, EightDigits, SixDigits };

// Years of history that are offered.
inline constexpr std::string_view kHistoryYearsWords[] = {"2", "5", "10", "20"};

// What chooses no condition for a side of the chart.
inline constexpr std::string_view kNoConditionWord = "None";

bool SavesTable(const SettingsTables& tables);
bool StoresInDatabase(const SettingsTables& tables);
bool RunsSelector(const SettingsTables& tables);
bool AdjustsSplits(const SettingsTables& tables);
bool SendsAlerts(const SettingsTables& tables);
bool ChecksForUpdates(const SettingsTables& tables);
// Whether a ticker that is added gets its history.
bool FetchesHistory(const SettingsTables& tables);
bool UsesUserSource(const SettingsTables& tables);
// Whether a ticker whose download failed keeps the history that is stored; without the file that says so it
// loses it.
bool KeepsHistoryOnFailure(const SettingsTables& tables);
// How much is kept for undoing (base/file_change.h).
UndoLimits UndoLimitsOf(const SettingsTables& tables);

}  // namespace brantlow
