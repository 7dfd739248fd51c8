// How long a table of 18,000 lines and 35 columns takes to its first paint in the window, from the end of the
// splash of a start that opens it and from the command that does, and how long a scroll of one page, finding,
// sorting, editing, filtering, selecting and copying take after that, each with its paint.
//
//   first_paint [--rows N] [--repeat N]     (QT_QPA_PLATFORM=offscreen needs no display)
//
// All 35 columns are shown. Times are wall times in milliseconds, the median of the repetitions.
#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "acquire/web/memory_web.h"
#include "base/clock.h"
#include "indicators/analysis.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "shell/session.h"
#include "store/columns.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"

using namespace brantlow;

namespace {

// A full table less the rows that the repetitions add.
constexpr int kDefaultRows = 17990;
constexpr int kDefaultRepeat = 7;
constexpr const char* kTable = "Big.ddq";

int Option(int argc, char** argv, const std::string& name, int fallback) {
    for (int i = 1; i + 1 < argc; ++i) {
        if (argv[i] == name) return std::max(1, std::atoi(argv[i + 1]));
    }
    return fallback;
}

// A cell in the form of its column; the values differ from row to row.
std::string CellText(std::size_t column, int row) {
    const std::string number = std::to_string(10 + (row * 7 + static_cast<int>(column) * 13) % 900);
    const QuoteColumn& form = kQuoteColumns[column];
    if (form.header == "Ticker Symbol") return "T" + std::to_string(row);
    if (form.header == "Name") return "Company number " + std::to_string(row);
    if (form.header == "Exchange") return "NYSE";
    if (form.header.ends_with("Date")) return "03/0" + std::to_string(1 + row % 9) + "/26";
    if (form.header == "Trade Time") return "16:00";
    if (form.header == "Change") return (row % 2 ? "-" : "") + number + ".250";
    return number + ".125";
}

void MakeFolder(const Path& folder, int rows) {
    std::filesystem::create_directories(folder / "Data");
    std::string table = QuoteHeader() + "\r\n";
    std::string columns;
    for (std::size_t column = 1; column < kQuoteColumns.size(); ++column) {
        columns += '"' + std::string(kQuoteColumns[column].header) + "\"\r\n";
    }
    for (int row = 1; row <= rows; ++row) {
        for (std::size_t column = 0; column < kQuoteColumns.size(); ++column) {
            table += (column ? "\t" : "") + CellText(column, row);
        }
        table += "\r\n";
    }
    WriteWholeFile(folder / "Data" / kTable, table);
    WriteWholeFile(folder / "Data" / "VTRCOLset.ini", columns + "\"\"\r\n");
    WriteWholeFile(folder / "Data" / "VTRMRUset.ini", "\"" + std::string(kTable) + "\"\r\n");
}

template <class Work>
double Milliseconds(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// What a person does to the open table, with the paint that follows.
struct TableWork {
    const char* words;
    void (*run)(frmMain& frame, int round);
};

void SetBox(frmMain& frame, const char* box, const QString& text) {
    frame.findChild<QLineEdit*>(QString::fromLatin1(box))->setText(text);
}

void Type(frmMain& frame, const QString& symbol) {
    SetBox(frame, "Text1", symbol);
}

void SortBy(frmMain& frame, const char* header) {
    frmQuoteGrid& grid = *frame.QuoteForm();
    grid.View()->SetCurrentColumn(static_cast<int>(grid.Table().ColumnOf(header).value_or(0)));
    frame.Run("SortDescending");
}

constexpr TableWork kTableWork[] = {
    {"find, one letter more",
     [](frmMain& frame, int round) { Type(frame, QStringLiteral("T1798%1").arg(round % 10)); }},
    {"sort by price", [](frmMain& frame, int) { SortBy(frame, "Last Price"); }},
    {"sort by date", [](frmMain& frame, int) { SortBy(frame, "Trade Date"); }},
    {"edit an alarm, saved",
     [](frmMain& frame, int) {
         Type(frame, QStringLiteral("T9000"));
         SetBox(frame, "Text2", QStringLiteral("900"));
         SetBox(frame, "Text3", QStringLiteral("1"));
         frame.Run("CmdAlarm");
     }},
    {"add a ticker, saved",
     [](frmMain& frame, int round) {
         Type(frame, QStringLiteral("NEW%1").arg(round));
         frame.Run("CmdAdd");
     }},
    {"filter by a text",
     [](frmMain& frame, int round) {
         SetBox(frame, "txtFilter", QStringLiteral("number 1%1").arg(round % 10));
     }},
    {"filter by a number",
     [](frmMain& frame, int round) { SetBox(frame, "txtFilter", QStringLiteral("Change > %1").arg(round)); }},
    {"filter, all again",
     [](frmMain& frame, int) {
         SetBox(frame, "txtFilter", QStringLiteral("T9000"));
         SetBox(frame, "txtFilter", QString());
     }},
    {"select all rows", [](frmMain& frame, int) { frame.Run("mnuEditSelectAll"); }},
    {"copy all rows", [](frmMain& frame, int) { frame.Run("mnuEditCopy"); }},
    {"sort, all selected", [](frmMain& frame, int) { SortBy(frame, "Volume"); }},
};

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const int rows = Option(argc, argv, "--rows", kDefaultRows);
    const int repeat = Option(argc, argv, "--repeat", kDefaultRepeat);
    const Path folder = std::filesystem::temp_directory_path() / "brantlow-first-paint";
    MakeFolder(folder, rows);

    // All that a start does behind the splash.
    const auto splashEnds = std::chrono::steady_clock::now();
    const SystemClock clock;
    WindowPerson person;
    Session session(folder, clock, person);
    const auto analysis = std::make_unique<Analysis>();
    MemoryWeb web(&person);
    const Hosts hosts;
    frmMain frame(session, *analysis, person, web, hosts, folder / "Brantlow.ini");
    frame.Load();
    QCoreApplication::processEvents();
    if (frame.QuoteForm() == nullptr) return EXIT_FAILURE;
    frame.QuoteForm()->repaint();
    const std::chrono::duration<double, std::milli> start = std::chrono::steady_clock::now() - splashEnds;

    std::vector<double> open, page;
    for (int i = 0; i < repeat; ++i) {
        frame.Run("mnuFileClose");
        QCoreApplication::processEvents();
        open.push_back(Milliseconds([&] {
            frame.OpenRecentFile(1);
            frame.QuoteForm()->repaint();
            QCoreApplication::processEvents();
        }));
        page.push_back(Milliseconds([&] {
            QScrollBar& bar = *frame.QuoteForm()->View()->verticalScrollBar();
            bar.setValue(bar.value() + bar.pageStep());
            QCoreApplication::processEvents();
        }));
    }
    std::printf("rows %d, columns %zu\n", rows, kQuoteColumns.size());
    std::printf("start to first paint %7.1f ms\n", start.count());
    std::printf("open to first paint  %7.1f ms\n", Median(open));
    std::printf("scroll by one page   %7.1f ms\n", Median(page));
    for (const TableWork& work : kTableWork) {
        std::vector<double> times;
        for (int i = 0; i < repeat; ++i) {
            times.push_back(Milliseconds([&] {
                work.run(frame, i);
                frame.QuoteForm()->repaint();
                QCoreApplication::processEvents();
            }));
        }
        std::printf("%-22s%6.1f ms\n", work.words, Median(times));
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return EXIT_SUCCESS;
}
