// `check`: a healthy folder is clean; each planted fault is told with its file and line; what can be repaired
// without a guess is, `undo` brings the faulty bytes back, and nothing else is touched.
#include <fmt/format.h>
#include <gmock/gmock.h>

#include "base/dates.h"
#include "base/text.h"
#include "batch_fixture.h"

namespace brantlow {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

using Lines = std::vector<std::string>;

// What a healthy folder is made of: five tickers with every weekday of two months, a table, the shipped
// settings.
class CheckFolder : public BatchTest {
  protected:
    CheckFolder() {
        for (const std::string_view ticker : {"AA", "BB", "CC", "DD", "EE"})
            PutLines(YearFile(ticker), Weekdays("01/02/26", "02/27/26"));
        PutLines("Quotes/EOD/AA.25", {Record("12/29/25", 100), Record("12/31/25", 101)});
        Write("Data/Mine.ddq",
              "Ticker Symbol\tLast Price\tTrade Date\tHigh Alarm\r\nAA\t1.5\t02/27/26\t\r\n"
              "BB\t2\t\t\r\nCC\t3\t\t\r\nDD\t4\t\t\r\nEE\t5\t\t\r\n");
        for (const std::string& name : FileNamesIn(kAssets / "Data"))
            Write("Data/" + name, BytesOrEmpty(kAssets / "Data" / name));
        ReplaceLine("Data/VTRMRUset.ini", 1, "\"Mine.ddq\"");
    }

    static std::string YearFile(std::string_view ticker) { return fmt::format("Quotes/EOD/{}.26", ticker); }
    static std::string Record(std::string_view day, double close) {
        return fmt::format("\"{}\",\"\",{},{},{},1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,{}", day, close,
                           close - 1, close + 1, close);
    }
    static Lines Weekdays(std::string_view first, std::string_view last) {
        Lines lines;
        for (Date day = *ParseDate(first); day <= *ParseDate(last); day = AddDays(day, 1)) {
            const std::chrono::weekday weekday{std::chrono::sys_days{day}};
            if (weekday == std::chrono::Saturday || weekday == std::chrono::Sunday) continue;
            lines.push_back(Record(FormatDate(day), 100 + static_cast<double>(lines.size() % 7)));
        }
        return lines;
    }

    Lines LinesIn(const std::string& name) const {
        const std::string bytes = Read(name);
        Lines lines;
        LineReader reader(bytes);
        std::string_view line;
        while (reader.Next(line)) lines.emplace_back(line);
        return lines;
    }
    void PutLines(const std::string& name, const Lines& lines) const {
        std::string bytes;
        for (const std::string& line : lines) bytes += line + "\r\n";
        Write(name, bytes);
    }
    // Lines are numbered from 1.
    void ReplaceLine(const std::string& name, std::size_t line, const std::string& text) const {
        Lines lines = LinesIn(name);
        lines.at(line - 1) = text;
        PutLines(name, lines);
    }
    void InsertLine(const std::string& name, std::size_t line, const std::string& text) const {
        Lines lines = LinesIn(name);
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(line - 1), text);
        PutLines(name, lines);
    }
    void EraseLines(const std::string& name, std::size_t line, std::size_t count) const {
        Lines lines = LinesIn(name);
        const auto first = lines.begin() + static_cast<std::ptrdiff_t>(line - 1);
        lines.erase(first, first + static_cast<std::ptrdiff_t>(count));
        PutLines(name, lines);
    }
    void ReplaceText(const std::string& name, std::size_t line, std::string_view text,
                     std::string_view by) const {
        std::string whole = LinesIn(name).at(line - 1);
        const std::size_t at = whole.find(text);
        ASSERT_NE(at, std::string::npos) << text << " in " << whole;
        ReplaceLine(name, line, whole.replace(at, text.size(), by));
    }
    void PutFolder(const std::string& name) const {
        std::filesystem::remove(folder / name);
        std::filesystem::create_directories(folder / name);
    }
    void Append(const std::string& name, std::string_view bytes) const {
        Write(name, Read(name).append(bytes));
    }

    // What a folder without findings is told, with so many year files more than the healthy one.
    static std::string AllClean(int more = 0) {
        constexpr int kYearFilesAndTable = 7;
        const auto shipped = static_cast<int>(FileNamesIn(kAssets / "Data").size());
        return fmt::format("0 faults and 0 notes in {} files\n", kYearFilesAndTable + shipped + more);
    }

    CallResult Check(const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {"--today", "2026-03-03", "check"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(arguments);
    }
};

TEST_F(CheckFolder, AHealthyFolderIsClean) {
    const auto before = Everything();
    const CallResult result = Check({"--strict"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, AllClean());
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(Everything() == before);
}

TEST_F(CheckFolder, ARepairOfAHealthyFolderLeavesNothingToUndo) {
    const auto before = Everything();
    EXPECT_EQ(Check({"--repair"}).out, AllClean());
    EXPECT_TRUE(Everything() == before);
    EXPECT_EQ(Call({"undo"}).err, "There is no change to undo\n");
}

enum class Repaired { No, Yes };

struct Planted {
    std::string name;
    std::function<void(const class PlantedFault&)> plant;
    std::string line;  // as `check` prints it, without what is said of repairs
    Repaired repaired = Repaired::No;
};

class PlantedFault : public CheckFolder, public ::testing::WithParamInterface<Planted> {
  public:
    using CheckFolder::Append;
    using CheckFolder::EraseLines;
    using CheckFolder::InsertLine;
    using CheckFolder::LinesIn;
    using CheckFolder::PutFolder;
    using CheckFolder::PutLines;
    using CheckFolder::Read;
    using CheckFolder::Record;
    using CheckFolder::ReplaceLine;
    using CheckFolder::ReplaceText;
    using CheckFolder::Write;
};

void PrintTo(const Planted& planted, std::ostream* out) {
    *out << planted.name;
}

bool IsNote(const Planted& planted) {
    return planted.line.find(": note: ") != std::string::npos;
}

TEST_P(PlantedFault, IsFoundRepairedAndBroughtBack) {
    const Planted& planted = GetParam();
    planted.plant(*this);
    const auto faulty = Everything();
    const bool isRepaired = planted.repaired == Repaired::Yes;

    const CallResult found = Check();
    EXPECT_THAT("\n" + found.out,
                HasSubstr("\n" + planted.line + (isRepaired ? " [can be repaired]\n" : "\n")));
    EXPECT_EQ(found.status, IsNote(planted) ? ExitStatus::Done : ExitStatus::Partly) << found.out;
    EXPECT_EQ(Check({"--strict"}).status, ExitStatus::Partly);
    EXPECT_TRUE(Everything() == faulty) << "a look changes nothing";

    const CallResult repair = Check({"--repair"});
    EXPECT_THAT("\n" + repair.out, HasSubstr("\n" + planted.line + (isRepaired ? " [repaired]\n" : "\n")));
    if (!isRepaired) {
        EXPECT_TRUE(Everything() == faulty);
        return;
    }
    EXPECT_EQ(repair.status, ExitStatus::Done) << repair.out << repair.err;
    EXPECT_THAT(Check().out, Not(HasSubstr(planted.line)));
    EXPECT_EQ(Check().status, ExitStatus::Done);
    EXPECT_THAT(Call({"undo"}).out, HasSubstr("Undone: Repair of the Database\n"));
    EXPECT_TRUE(Everything() == faulty);
}

std::string NulBytes(std::size_t count) {
    return std::string(count, '\0');
}

// Line 7 of AA.26 is 01/12/26; its last line, 02/27/26, is the 41st.
const std::vector<Planted> kInYearFiles = {
    {"EmptyLine", [](const PlantedFault& f) { f.InsertLine("Quotes/EOD/AA.26", 4, ""); },
     "Quotes/EOD/AA.26:4: an empty line", Repaired::Yes},
    {"HalfLastLine", [](const PlantedFault& f) { f.Append("Quotes/EOD/AA.26", "\"03/02/26\",\"\",10"); },
     "Quotes/EOD/AA.26:42: the last line was cut off", Repaired::Yes},
    {"NulBytesAtTheEnd", [](const PlantedFault& f) { f.Append("Quotes/EOD/AA.26", NulBytes(64)); },
     "Quotes/EOD/AA.26:42: holds bytes of value 0", Repaired::Yes},
    {"NulBytesBeforeARecord",
     [](const PlantedFault& f) {
         f.Append("Quotes/EOD/AA.26", NulBytes(9) + PlantedFault::Record("03/02/26", 100) + "\r\n");
     },
     "Quotes/EOD/AA.26:42: holds bytes of value 0", Repaired::Yes},
    {"NulByteInAnUnreadableLine",
     [](const PlantedFault& f) { f.ReplaceLine("Quotes/EOD/AA.26", 3, "torn" + NulBytes(1)); },
     "Quotes/EOD/AA.26:3: holds bytes of value 0"},
    {"UnreadableLine", [](const PlantedFault& f) { f.ReplaceLine("Quotes/EOD/AA.26", 5, "<html>"); },
     "Quotes/EOD/AA.26:5: 1 fields instead of 19"},
    {"FieldMissing", [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 5, ",1000,", ","); },
     "Quotes/EOD/AA.26:5: 18 fields instead of 19"},
    {"DateOfNoCalendar",
     [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, "01/06/26", "02/30/26"); },
     "Quotes/EOD/AA.26:3: '02/30/26' is no date mm/dd/yy"},
    {"DateWithoutQuotes",
     [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, "\"01/06/26\"", "01/06/26"); },
     "Quotes/EOD/AA.26:3: the date '01/06/26' stands in no double quotes"},
    {"Time", [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, "\"\"", "\"4pm\""); },
     "Quotes/EOD/AA.26:3: '4pm' is no time hh:mm"},
    {"DividendDate",
     [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, "0,\"\",\"\"", "0,\"\",\"soon\""); },
     "Quotes/EOD/AA.26:3: note: the ex-dividend date 'soon' is no date mm/dd/yy"},
    {"Number", [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, ",102,", ",1o2,"); },
     "Quotes/EOD/AA.26:3: the close '1o2' is no number"},
    {"AnotherYearsRecord",
     [](const PlantedFault& f) {
         f.InsertLine("Quotes/EOD/AA.26", 1, PlantedFault::Record("12/30/25", 100));
     },
     "Quotes/EOD/AA.26:1: 12/30/25 belongs into the file of another year", Repaired::Yes},
    {"ARecordOfAYearWithoutFile",
     [](const PlantedFault& f) {
         f.InsertLine("Quotes/EOD/AA.26", 1, PlantedFault::Record("12/30/24", 100));
     },
     "Quotes/EOD/AA.26:1: 12/30/24 belongs into the file of another year"},
    {"DaysOutOfOrder",
     [](const PlantedFault& f) {
         const std::string seventh = f.LinesIn("Quotes/EOD/AA.26")[6];
         f.EraseLines("Quotes/EOD/AA.26", 7, 1);
         f.InsertLine("Quotes/EOD/AA.26", 9, seventh);
     },
     "Quotes/EOD/AA.26:9: 01/12/26 stands behind 01/14/26", Repaired::Yes},
    {"ARecordTwice",
     [](const PlantedFault& f) { f.InsertLine("Quotes/EOD/AA.26", 8, f.LinesIn("Quotes/EOD/AA.26")[6]); },
     "Quotes/EOD/AA.26:8: the same line for 01/12/26 once more", Repaired::Yes},
    {"ADayTwice",
     [](const PlantedFault& f) {
         f.InsertLine("Quotes/EOD/AA.26", 8, PlantedFault::Record("01/12/26", 102.5));
     },
     "Quotes/EOD/AA.26:8: another line for 01/12/26"},
    {"AFutureDay",
     [](const PlantedFault& f) {
         f.Append("Quotes/EOD/AA.26", PlantedFault::Record("06/01/26", 100) + "\r\n");
     },
     "Quotes/EOD/AA.26:42: 06/01/26 is still to come"},
    {"ANegativeClose", [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, ",102,", ",-102,"); },
     "Quotes/EOD/AA.26:3: the close is -102"},
    {"ACloseOfZero", [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, ",102,", ",0,"); },
     "Quotes/EOD/AA.26:3: the close is 0"},
    {"ANegativeVolume",
     [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, ",1000,", ",-1000,"); },
     "Quotes/EOD/AA.26:3: the volume is -1000"},
    {"ALowOfZero", [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, ",101,", ",0,"); },
     "Quotes/EOD/AA.26:3: note: the day's low is 0"},
    {"AHighBelowTheLow",
     [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, ",103,", ",100.5,"); },
     "Quotes/EOD/AA.26:3: note: the high 100.5 is below the low"},
    {"ACloseOutsideTheDay",
     [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, ",102,", ",104,"); },
     "Quotes/EOD/AA.26:3: note: the close 104 is not between the day's low and high"},
    {"AnOpenOutsideTheDay",
     [](const PlantedFault& f) { f.ReplaceText("Quotes/EOD/AA.26", 3, "0,102", "0,99"); },
     "Quotes/EOD/AA.26:3: note: the open 99 is not between the day's low and high"},
    {"ASplitThatNobodyRestated",
     [](const PlantedFault& f) {
         Lines lines;
         for (const std::string& line : f.LinesIn("Quotes/EOD/BB.26")) {
             const double close = lines.size() < 20 ? 200 : 100;
             lines.push_back(PlantedFault::Record(line.substr(1, 8), close));
         }
         f.PutLines("Quotes/EOD/BB.26", lines);
     },
     "Quotes/EOD/BB.26:21: the price jumps as after a split of 2/1 that was not restated"},
    {"ASplitOfTheLastDays",
     [](const PlantedFault& f) {
         Lines lines;
         for (const std::string& line : f.LinesIn("Quotes/EOD/BB.26")) {
             const double close = lines.size() < 40 ? 300 : 100;
             lines.push_back(PlantedFault::Record(line.substr(1, 8), close));
         }
         f.PutLines("Quotes/EOD/BB.26", lines);
     },
     "Quotes/EOD/BB.26:41: note: the price jumps as after a split of 3/1; the split calendar may restate it "
     "yet"},
    {"AHole", [](const PlantedFault& f) { f.EraseLines("Quotes/EOD/CC.26", 10, 3); },
     "Quotes/EOD/CC.26:10: note: 3 days are missing before it that the other tickers have"},
    {"AnEmptyFile", [](const PlantedFault& f) { f.Write("Quotes/EOD/EE.24", ""); },
     "Quotes/EOD/EE.24: the file is empty", Repaired::Yes},
    {"ANameOfNoYear", [](const PlantedFault& f) { f.Write("Quotes/EOD/AA.2026", "x"); },
     "Quotes/EOD/AA.2026: note: is no file of the quote database, by its name"},
    {"ATickerInOtherLetters",
     [](const PlantedFault& f) {
         f.Write("Quotes/EOD/aa.26", PlantedFault::Record("01/02/26", 100) + "\r\n");
     },
     "Quotes/EOD/aa.26: note: differs from AA by small and capital letters alone"},
    {"ATickerOfNoTable",
     [](const PlantedFault& f) {
         f.Write("Quotes/EOD/ZZ.26", PlantedFault::Record("01/02/26", 100) + "\r\n");
     },
     "Quotes/EOD/ZZ.26: note: no quote table holds the ticker ZZ"},
};

const std::vector<Planted> kInTables = {
    {"TooManyLines",
     [](const PlantedFault& f) {
         Lines lines = {"Ticker Symbol"};
         for (int i = 2; i <= 18001; ++i) lines.push_back(fmt::format("T{}", i));
         f.PutLines("Data/Big.ddq", lines);
     },
     "Data/Big.ddq:18001: lines behind the 18,000th are not read"},
    {"AnEmptyTable", [](const PlantedFault& f) { f.Write("Data/Empty.ddq", ""); },
     "Data/Empty.ddq: the file is empty"},
    {"NoHeader", [](const PlantedFault& f) { f.EraseLines("Data/Mine.ddq", 1, 1); },
     "Data/Mine.ddq:1: the first line names no column of this kind of file"},
    {"AColumnTwice",
     [](const PlantedFault& f) { f.ReplaceText("Data/Mine.ddq", 1, "High Alarm", "Last Price"); },
     "Data/Mine.ddq:1: the column \"Last Price\" stands twice"},
    {"AnUnknownColumn",
     [](const PlantedFault& f) { f.ReplaceText("Data/Mine.ddq", 1, "High Alarm", "Hihg Alarm"); },
     "Data/Mine.ddq:1: note: the column \"Hihg Alarm\" is not known"},
    {"CellsMissing", [](const PlantedFault& f) { f.ReplaceLine("Data/Mine.ddq", 3, "BB\t2"); },
     "Data/Mine.ddq:3: 2 cells, but 4 columns", Repaired::Yes},
    {"EmptyCellsTooMany", [](const PlantedFault& f) { f.ReplaceLine("Data/Mine.ddq", 3, "BB\t2\t\t\t\t"); },
     "Data/Mine.ddq:3: 6 cells, but 4 columns", Repaired::Yes},
    {"CellsTooMany", [](const PlantedFault& f) { f.ReplaceLine("Data/Mine.ddq", 3, "BB\t2\t\t\tx"); },
     "Data/Mine.ddq:3: 5 cells, but 4 columns"},
    {"AnEmptyRow", [](const PlantedFault& f) { f.InsertLine("Data/Mine.ddq", 3, ""); },
     "Data/Mine.ddq:3: an empty line", Repaired::Yes},
    {"NoTicker", [](const PlantedFault& f) { f.ReplaceLine("Data/Mine.ddq", 3, "\t2\t\t"); },
     "Data/Mine.ddq:3: the line has no ticker"},
    {"ATickerTwice", [](const PlantedFault& f) { f.InsertLine("Data/Mine.ddq", 7, "AA\t2\t\t"); },
     "Data/Mine.ddq:7: note: AA stands in line 2 already"},
    {"ATickerWithoutFiles", [](const PlantedFault& f) { f.InsertLine("Data/Mine.ddq", 7, "CON\t2\t\t"); },
     "Data/Mine.ddq:7: note: \"CON\" can have no files in the quote database"},
    {"ACellThatIsNoNumber", [](const PlantedFault& f) { f.ReplaceText("Data/Mine.ddq", 2, "1.5", "1.5.2"); },
     "Data/Mine.ddq:2: Last Price '1.5.2' is no number"},
    {"ACellThatIsNoDate",
     [](const PlantedFault& f) { f.ReplaceText("Data/Mine.ddq", 2, "02/27/26", "Friday"); },
     "Data/Mine.ddq:2: note: Trade Date 'Friday' is no date mm/dd/yy"},
    {"ATradeStillToCome",
     [](const PlantedFault& f) { f.ReplaceText("Data/Mine.ddq", 2, "02/27/26", "02/27/27"); },
     "Data/Mine.ddq:2: Trade Date '02/27/27' is still to come"},
    {"NulBytesInATable", [](const PlantedFault& f) { f.Append("Data/Mine.ddq", NulBytes(8)); },
     "Data/Mine.ddq:7: holds bytes of value 0"},
};

const std::vector<Planted> kInSettings = {
    {"AnUnknownWord", [](const PlantedFault& f) { f.ReplaceLine("Data/VTRDATAset.ini", 1, "\"Hourly\""); },
     "Data/VTRDATAset.ini:1: BackUpFrequency: \"Hourly\" is none of its words", Repaired::Yes},
    {"AnUnknownSwitch", [](const PlantedFault& f) { f.ReplaceLine("Data/VTRDATAset.ini", 7, "\"yes\""); },
     "Data/VTRDATAset.ini:7: SavesTable: \"yes\" is none of its words", Repaired::Yes},
    {"ANumberOutside", [](const PlantedFault& f) { f.ReplaceLine("Data/VTROWNset.ini", 2, "0"); },
     "Data/VTROWNset.ini:2: UndoChanges: \"0\" is no number from 1 to 10000", Repaired::Yes},
    {"AHourOfNoDay", [](const PlantedFault& f) { f.ReplaceLine("Data/VTRDATAset.ini", 10, "\"25\""); },
     "Data/VTRDATAset.ini:10: CollectionHour: \"25\" is none from 0 to 23", Repaired::Yes},
    {"ADateThatIsNone",
     [](const PlantedFault& f) { f.ReplaceLine("Data/VTRDATAset.ini", 13, "\"yesterday\""); },
     "Data/VTRDATAset.ini:13: LastBackUp: \"yesterday\" is no date", Repaired::Yes},
    {"TooFewLines", [](const PlantedFault& f) { f.EraseLines("Data/VTRDATAset.ini", 18, 2); },
     "Data/VTRDATAset.ini:17: note: 17 lines of 19: the others count as empty"},
    {"AnUnknownColumnChosen",
     [](const PlantedFault& f) { f.ReplaceLine("Data/VTRCOLset.ini", 2, "\"Chnage\""); },
     "Data/VTRCOLset.ini:2: \"Chnage\" is no name of the list"},
    {"AColumnChosenTwice",
     [](const PlantedFault& f) { f.ReplaceLine("Data/VTRCOLset.ini", 2, "\"Last Price\""); },
     "Data/VTRCOLset.ini:2: \"Last Price\" stands twice"},
    {"AnUnknownSeries", [](const PlantedFault& f) { f.ReplaceLine("Data/VTRGRAPHset.ini", 4, "\"MA 17\""); },
     "Data/VTRGRAPHset.ini:4: \"MA 17\" is no name of the list"},
    {"AnUnknownCondition",
     [](const PlantedFault& f) { f.ReplaceLine("Data/VTRGRAPHset.ini", 9, "\"Condition 11\""); },
     "Data/VTRGRAPHset.ini:9: \"Condition 11\" is neither \"None\" nor a condition"},
    {"AMarkerMissing",
     [](const PlantedFault& f) {
         const Lines lines = f.LinesIn("Data/VTRNETset.ini");
         f.EraseLines("Data/VTRNETset.ini", lines.size(), 1);
     },
     "Data/VTRNETset.ini:45: the line \"EndH\" is missing"},
    {"AnUnknownField",
     [](const PlantedFault& f) { f.ReplaceLine("Data/VTRIMEXset.ini", 12, "\"Price of Old\""); },
     "Data/VTRIMEXset.ini:12: \"Price of Old\" is no name of the list"},
    {"AnUnknownTest",
     [](const PlantedFault& f) { f.ReplaceLine("Data/VTRSELset.ini", 3, "\"MA15 Over MA30\""); },
     "Data/VTRSELset.ini:3: \"MA15 Over MA30\" is no test of the catalogue"},
    {"AnUnknownAction", [](const PlantedFault& f) { f.ReplaceLine("Data/VTRSELset.ini", 2, "\"Keep\""); },
     "Data/VTRSELset.ini:2: \"Keep\" is none of \"Buy\", \"Sell\", \"Hold\""},
    {"AConditionCutOff",
     [](const PlantedFault& f) {
         const Lines lines = f.LinesIn("Data/VTRSELset.ini");
         f.EraseLines("Data/VTRSELset.ini", lines.size() - 7, 8);
     },
     "Data/VTRSELset.ini:435: the condition ends after 30 values of 38"},
    {"ARecentFileThatIsGone",
     [](const PlantedFault& f) { f.ReplaceLine("Data/VTRMRUset.ini", 2, "\"Gone.ddq\""); },
     "Data/VTRMRUset.ini:2: note: the recent file \"Gone.ddq\" is not in Data"},
    {"ASettingsFileThatIsAFolder", [](const PlantedFault& f) { f.PutFolder("Data/VTRGRAPHset.ini"); },
     "Data/VTRGRAPHset.ini: cannot be read (Is a directory)"},
};

const std::vector<Planted> kElsewhere = {
    {"AHostWithoutAddress",
     [](const PlantedFault& f) { f.Write("Data/Hosts.ini", "# mine\r\nQuoteHots=http://127.0.0.1\r\n"); },
     "Data/Hosts.ini:2: 'QuoteHots=http://127.0.0.1' gives no host an address"},
    {"ALineInTheUpdateList",
     [](const PlantedFault& f) { f.Write("Quotes/EOD/QuoteList.ddq", "2\r\n\"AA\"\r\nBB\r\n"); },
     "Quotes/EOD/QuoteList.ddq:3: 'BB' is no ticker in double quotes"},
    {"AnEmptyLineInTheUpdateList",
     [](const PlantedFault& f) { f.Write("Quotes/EOD/QuoteList.ddq", "2\r\n\"AA\"\r\n\r\n\"BB\"\r\n"); },
     "Quotes/EOD/QuoteList.ddq:3: an empty line", Repaired::Yes},
    {"ALineInTheSplitLog",
     [](const PlantedFault& f) { f.Write("SplitLog.txt", "\"AA\",\"03/02\",2\r\n\"BB\",\"soon\",2\r\n"); },
     "SplitLog.txt:2: '\"BB\",\"soon\",2' is no ticker, day and factor"},
    {"TornDrawings",
     [](const PlantedFault& f) {
         f.Write("Data/Drawings/AA.json", "{\"drawings\": []}");
         f.Write("Data/Drawings/BB.json", "{\"drawings\": [{\"kind\": \"ray\"}]}");
     },
     "Data/Drawings/BB.json: holds no drawings of a chart: drawing 1: \"kind\" is none of trend, horizontal, "
     "channel "
     "and text"},
    {"TornState", [](const PlantedFault& f) { f.Write("Data/Source State.json", "{\"massive\":"); },
     "Data/Source State.json: holds no JSON"},
    {"AChangeWithoutList",
     [](const PlantedFault& f) {
         f.Write("Back Up/Undo/2026-01-01-Split/Change.txt", "1\t2026\tSplit\t1\t5\n");
     },
     "Back Up/Undo/2026-01-01-Split: holds no list of files: it cannot be undone"},
    {"AChangeWithoutCopy",
     [](const PlantedFault& f) {
         f.Write("Back Up/Undo/2026-01-01-Split/Change.txt", "1\t2026\tSplit\t1\t5\n");
         f.Write("Back Up/Undo/2026-01-01-Split/Files.txt",
                 "brantlow change 1\t2026\tSplit\nkept\t1\t5\tQuotes/EOD/AA.26\n");
     },
     "Back Up/Undo/2026-01-01-Split: the copy of AA.26 is missing: it cannot be undone"},
};

std::string NameOfPlanted(const ::testing::TestParamInfo<Planted>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(InYearFiles, PlantedFault, ::testing::ValuesIn(kInYearFiles), NameOfPlanted);
INSTANTIATE_TEST_SUITE_P(InTables, PlantedFault, ::testing::ValuesIn(kInTables), NameOfPlanted);
INSTANTIATE_TEST_SUITE_P(InSettings, PlantedFault, ::testing::ValuesIn(kInSettings), NameOfPlanted);
INSTANTIATE_TEST_SUITE_P(Elsewhere, PlantedFault, ::testing::ValuesIn(kElsewhere), NameOfPlanted);

// What the next command that writes takes away by itself.
TEST_F(CheckFolder, FilesOfAKilledProgramAreToldAndGoneAfterARepair) {
    const std::string left = fmt::format("Quotes/EOD/.brantlow-{}-1.tmp", 999999999);
    Write(left, "half");
    const CallResult found = Check();
    EXPECT_EQ(found.out, left + ": was left unfinished by a program that has ended\n");
    EXPECT_THAT(found.err, HasSubstr("1 fault and 0 notes in "));
    EXPECT_EQ(found.status, ExitStatus::Partly);
    EXPECT_EQ(Check({"--repair"}).status, ExitStatus::Done);
    EXPECT_FALSE(IsRegularFile(folder / left));
}

TEST_F(CheckFolder, AChangeThatWasCutOffIsToldAndTakenBackByARepair) {
    Write("Back Up/Undo/open-999999999-1/Files.txt",
          "brantlow change 1\t2026-01-01 10:00:00\tSplit AA by 2\nabsent\t0\t0\tQuotes/EOD/NEW.26\n");
    Write("Quotes/EOD/NEW.26", Record("01/02/26", 100) + "\r\n");
    EXPECT_THAT(
        Check().out,
        HasSubstr("Back Up/Undo/open-999999999-1: \"Split AA by 2\" was cut off; the next command that "
                  "writes takes it back\n"));
    EXPECT_THAT(Check({"--repair"}).err, HasSubstr("Split AA by 2"));
    EXPECT_FALSE(IsRegularFile(folder / "Quotes/EOD/NEW.26"));
    EXPECT_EQ(Check().status, ExitStatus::Done);
}

// An unreadable file is another thing than a change that cannot be undone.
TEST_F(CheckFolder, AKeptChangeWhoseListCannotBeReadIsNamedByItsFile) {
    const std::string change = "Back Up/Undo/2026-01-01-Split/";
    for (const char* name : {"Change.txt", "Files.txt"}) {
        SCOPED_TRACE(name);
        std::filesystem::remove_all(folder / change);
        Write(change + "Change.txt", "1\t2026\tSplit\t0\t0\n");
        Write(change + "Files.txt", "brantlow change 1\t2026\tSplit\n");
        EXPECT_EQ(Check().out, AllClean());
        std::filesystem::remove(folder / (change + name));
        std::filesystem::create_directory(folder / (change + name));
        const std::string told = change + name + ": cannot be read (Is a directory)\n";
        const CallResult found = Check();
        EXPECT_EQ(found.out, told);
        EXPECT_THAT(found.err, ::testing::StartsWith(told));
        EXPECT_EQ(found.status, ExitStatus::Partly);
    }
}

TEST_F(CheckFolder, OneLineTellsHowManyFurtherLinesOfAFileAreAlike) {
    Lines lines = LinesIn("Quotes/EOD/AA.26");
    for (std::string& line : lines) line.replace(line.find(",1000,"), 6, ",x,");
    PutLines("Quotes/EOD/AA.26", lines);
    EXPECT_EQ(Check().out, "Quotes/EOD/AA.26:1: the volume 'x' is no number (and 40 further lines)\n");
}

TEST_F(CheckFolder, RepairsOfManyFilesAreOneChange) {
    Append("Quotes/EOD/AA.26", "half");
    InsertLine("Quotes/EOD/BB.26", 2, "");
    InsertLine("Data/Mine.ddq", 2, "");
    ReplaceLine("Data/VTRDATAset.ini", 1, "\"Hourly\"");
    const auto faulty = Everything();
    const CallResult repair = Check({"--repair"});
    EXPECT_THAT(repair.out, HasSubstr("\n0 faults and 0 notes in "));
    EXPECT_THAT(repair.out, EndsWith(" files, 4 repaired\n"));
    EXPECT_EQ(repair.err, "");
    EXPECT_EQ(Call({"undo"}).out, "Undone: Repair of the Database\nFiles: 4\n");
    EXPECT_TRUE(Everything() == faulty);
}

TEST_F(CheckFolder, ATickerOfAnotherMarketsHolidaysHasNoHoles) {
    for (const std::string_view ticker : {"AA", "BB", "CC", "DD"}) EraseLines(YearFile(ticker), 12, 2);
    EraseLines(YearFile("EE"), 20, 2);
    EXPECT_EQ(Check().out, AllClean());
}

TEST_F(CheckFolder, TheLastDayOfAYearMayBeMissing) {
    for (const std::string_view ticker : {"AA", "BB", "CC", "DD", "EE"})
        PutLines(fmt::format("Quotes/EOD/{}.25", ticker), Weekdays("12/22/25", "12/31/25"));
    EraseLines("Quotes/EOD/EE.25", 8, 1);
    EXPECT_EQ(Check().out, AllClean(4));
}

TEST_F(CheckFolder, AFallInHeavyTradeIsNoSplit) {
    Lines lines;
    for (const std::string& line : LinesIn("Quotes/EOD/BB.26")) {
        std::string record = Record(line.substr(1, 8), lines.size() < 20 ? 200 : 100);
        if (lines.size() == 20) record.replace(record.find(",1000,"), 6, ",9000,");
        lines.push_back(record);
    }
    PutLines("Quotes/EOD/BB.26", lines);
    EXPECT_EQ(Check().out, AllClean());
}

TEST_F(CheckFolder, OneOddPriceIsNoSplit) {
    ReplaceLine("Quotes/EOD/BB.26", 20, Record("01/29/26", 50));
    EXPECT_THAT(Check().out, Not(HasSubstr("BB.26:21")));
}

TEST_F(CheckFolder, AFolderWithoutDatabaseIsCheckedAsFarAsItGoes) {
    std::filesystem::remove_all(folder / "Quotes");
    EXPECT_EQ(Check().out, AllClean(-6));
}

}  // namespace
}  // namespace brantlow
