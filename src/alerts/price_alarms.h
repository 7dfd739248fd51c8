// Price alarms: while an update brings quotes in, each row is scanned for its alarms and takes the colour
// cues of its price columns. The chart takes the alarm values of the selected ticker from here too.
#pragma once

#include <cstddef>
#include <string_view>

#include "base/dates.h"
#include "shell/person.h"
#include "store/quote_table.h"
#include "store/table_colours.h"

namespace brantlow {

inline constexpr std::string_view kHighAlarmColumn = "High Alarm";
inline constexpr std::string_view kLowAlarmColumn = "Low Alarm";

// Scans row `row` of an end-of-day table whose columns stand at `columns`; a step whose column is missing is
// passed over. A fired alarm beeps. True when one fired: the caller asks for the alert of the row's ticker.
// Both alarms colour the last price, the low one after the high one. An alarm that is empty, 0 or no number
// never fires.
bool ScanAlarms(QuoteTable& table, std::size_t row, const ColumnPositions& columns, const Date& today,
                Person& person);

// The alarms that a chart draws; 0 is none.
struct ChartAlarms {
    double ChartHighAlarm = 0;
    double ChartLowAlarm = 0;
};

// Takes the alarms of row `row`. One whose column the table does not have keeps its value.
void LoadChartAlarms(const QuoteTable& table, std::size_t row, ChartAlarms& alarms);

}  // namespace brantlow
