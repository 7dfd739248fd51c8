// How long a table of 18,000 lines and 35 columns takes to its first paint in the window, from the end of the
// splash of a start that opens it and from the command that does, and how long what a person does to the open
// table takes after that, each with its paint: until it is seen and the window can be used again, and the
// longest that an event had to wait meanwhile.
//
//   first_paint [--rows N] [--repeat N]     (QT_QPA_PLATFORM=offscreen needs no display)
//
// All 35 columns are shown. Times are wall times in milliseconds, the median of the repetitions. Exit status
// 1 when what is done to the open table misses its goal.
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
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
#include "chart/windows/page_printer.h"
#include "indicators/analysis.h"
#include "shell/frame/windows/frame_subjects.h"
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

using Moment = std::chrono::steady_clock::time_point;

double MillisecondsSince(Moment begin) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

// Measures one thing that a person does: how long it takes, and how long the event loop stood still in it. A
// dialog on the way is answered, and time counts from its answer.
class Watch {
  public:
    explicit Watch(const Path& folder) : folder_(folder) {
        QObject::connect(&turn_, &QTimer::timeout, [this] { Turn(); });
        turn_.start(0);
    }
    void Begin() {
        begin_ = last_ = std::chrono::steady_clock::now();
        longest_ = 0;
    }
    double Took() const { return MillisecondsSince(begin_); }
    double LongestWait() {
        Note();
        return longest_;
    }

  private:
    void Note() {
        longest_ = std::max(longest_, MillisecondsSince(last_));
        last_ = std::chrono::steady_clock::now();
    }
    void Turn() {
        Note();
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || dialog == answered_) return;
        answered_ = dialog;
        if (auto* const file = qobject_cast<QFileDialog*>(dialog)) {
            file->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
                ->setText(QString::fromStdString((folder_ / "out").string() + std::to_string(++files_)));
            Begin();
            return static_cast<void>(QMetaObject::invokeMethod(file, "accept"));
        }
        auto* const keep = dialog->findChild<QPushButton*>(QStringLiteral("Command2"));
        // What tells the end.
        if (!keep) return dialog->accept();
        Begin();
        keep->click();
    }

    Path folder_;
    QTimer turn_;
    Moment begin_, last_;
    double longest_ = 0;
    QPointer<QDialog> answered_;
    int files_ = 0;
};

// What a person does to the open table, with the paint that follows. What is written to a file goes on beside
// the window: there the wait alone has a goal.
enum class Goal { Took, Wait };
struct TableWork {
    const char* words;
    void (*run)(frmMain& frame, int round);
    Goal goal = Goal::Took;
};
constexpr double kMostTook = 50;
constexpr double kMostWait = 100;

void ChooseInHeader(frmMain& frame, const char* header, const char* entry) {
    frmQuoteGrid& grid = *frame.QuoteForm();
    const auto column = static_cast<int>(grid.Table().ColumnOf(header).value_or(1));
    Q_EMIT grid.View()->HeaderMenuAsked(column, QPoint(10, 10));
    auto* const menu = grid.findChild<QMenu*>(QStringLiteral("mnuColumns"));
    menu->findChild<QAction*>(QString::fromLatin1(entry))->trigger();
    delete menu;
}

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
     },
     Goal::Wait},
    {"add a ticker, saved",
     [](frmMain& frame, int round) {
         Type(frame, QStringLiteral("NEW%1").arg(round));
         frame.Run("CmdAdd");
     },
     Goal::Wait},
    {"delete it, saved",
     [](frmMain& frame, int round) {
         Type(frame, QStringLiteral("NEW%1").arg(round));
         frame.Run("CmdDelete");
     },
     Goal::Wait},
    {"undo that, read again", [](frmMain& frame, int) { frame.Run("mnuEditUndo"); }, Goal::Wait},
    {"save", [](frmMain& frame, int) { frame.Run("mnuFileSave"); }, Goal::Wait},
    {"go to the filter", [](frmMain& frame, int) { frame.Run("mnuEditFind"); }},
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
    {"select a row, add up",
     [](frmMain& frame, int round) { frame.QuoteForm()->SelectTicker("T" + std::to_string(9000 + round)); }},
    {"move a column", [](frmMain& frame, int) { ChooseInHeader(frame, "Volume", "actMoveLeft"); }},
    {"fit a column", [](frmMain& frame, int) { ChooseInHeader(frame, "Name", "actFit"); }},
    {"fit all columns", [](frmMain& frame, int) { ChooseInHeader(frame, "Name", "actFitAll"); }},
    {"hide a column", [](frmMain& frame, int) { ChooseInHeader(frame, "52 Week Low", "actHide"); }},
    {"double click, chart",
     [](frmMain& frame, int) {
         Q_EMIT frame.QuoteForm()->View()->CellDoubleClicked(1);
         QCoreApplication::processEvents();
         frame.Run("mnuFileClose");
     }},
    {"export as CSV", [](frmMain& frame, int) { frame.Run("mnuFileExportCsv"); }, Goal::Wait},
    {"print to a PDF file", [](frmMain& frame, int) { frame.Run("mnuFilePrintTable"); }, Goal::Wait},
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
    constexpr std::size_t kSavingLine = 7;
    session.settings.DataSettings.Set(kSavingLine, Value::OfText("Automatic Save"));
    frame.Subjects().print.Pages().LeavePrinterAlone();
    Watch watch(folder);
    bool isMissed = false;
    for (const TableWork& work : kTableWork) {
        std::vector<double> times, waits;
        for (int i = 0; i < repeat; ++i) {
            QCoreApplication::processEvents();
            watch.Begin();
            work.run(frame, i);
            frame.QuoteForm()->repaint();
            QCoreApplication::processEvents();
            times.push_back(watch.Took());
            waits.push_back(watch.LongestWait());
        }
        const bool misses =
            (work.goal == Goal::Took && Median(times) > kMostTook) || Median(waits) > kMostWait;
        std::printf("%-22s%6.1f ms, longest wait %6.1f ms%s\n", work.words, Median(times), Median(waits),
                    misses ? "  MISSED" : "");
        isMissed = isMissed || misses;
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return isMissed ? EXIT_FAILURE : EXIT_SUCCESS;
}
