// A frame with a table of quotes and a web that has them, for the tests of the update at the windows.
#pragma once

#include <QPushButton>

#include "daily/reply_line.h"
#include "shell/frame/windows/frame_subjects.h"
#include "shell/frame/windows/frmEnable.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "window_fixture.h"

namespace brantlow {

inline std::string MuchMemory() {
    return "MemTotal: 1000 kB\nMemAvailable: 900 kB\n";
}
// 5.4 and 5.5 percent.
inline std::string TooLittleMemory() {
    return "MemTotal: 1000 kB\nMemAvailable: 54 kB\n";
}
inline std::string JustEnoughMemory() {
    return "MemTotal: 1000 kB\nMemAvailable: 55 kB\n";
}

inline constexpr int kLastColumn = 1;
inline constexpr double kHalfPastFour = 16.5 * 3600;

// The lines of the data settings that steer an update.
struct Switches {
    std::string saveTable = "Automatic Save";
    std::string saveDatabase = "Automatic Save";
    std::string collection = "None";
    std::string alerts = "None";
    std::string selector = "Manual";
    std::string splits = "Manual";
};

// A frame with a table of T1, T2 ... and a web that has a quote of the day for each.
class UpdateProgram : public Program {
  public:
    explicit UpdateProgram(const Switches& switches = {}, int tickers = 3) {
        const std::string lines[] = {"Manually",
                                     "False",
                                     "",
                                     "False",
                                     "",
                                     "10",
                                     switches.saveTable,
                                     switches.saveDatabase,
                                     switches.collection,
                                     "16",
                                     "30",
                                     "",
                                     "",
                                     switches.alerts,
                                     "me@mail.test",
                                     switches.selector,
                                     "False",
                                     "",
                                     switches.splits};
        std::string data;
        for (const std::string& line : lines) data += "\"" + line + "\"\r\n";
        Write("VTRDATAset.ini", data);
        Write("VTRNETset.ini",
              "\"Yahoo\"\r\n\"\"\r\n\"Yahoo\"\r\n\r\n\r\n15\r\n0\r\n0\r\n\"01/02/04\"\r\n\"Comma\"\r\n");
        Write("VTRCOLset.ini", "\"Last Price\"\r\n\"High Alarm\"\r\n\"Low Alarm\"\r\n\"\"\r\n");
        std::string table = "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\n";
        for (int i = 1; i <= tickers; ++i) table += "T" + std::to_string(i) + "\t1.000\t\t\r\n";
        Write("Mine.ddq", table);
        web.AnswerWith([this](const WebRequest& request) { return Answer(request); });
        frame->Subjects().runs.WatchMemoryBy(MuchMemory);
    }

    // The frame's own looks at the clock, one a second of the machine's time, would come between the test's.
    void StartMine() {
        Start("Mine.ddq");
        Clock()->stop();
    }
    QTimer* Clock() { return Find<QTimer>("tmrDailyRun"); }
    // One look at the clock for the daily run, at this second of the day; or one a second.
    void LookAtClock(const Date& day, double second) {
        clock.Set(day, second);
        frame->Subjects().daily.WaitForDailyRun();
    }
    void LookAtClock(const Date& day, double from, double to) {
        for (double second = from; second < to; ++second) LookAtClock(day, second);
    }
    void Update() { Click("CmdUpdateQuotes"); }
    QModelIndex Cell(int row, int column) { return frame->QuoteForm()->View()->model()->index(row, column); }
    QString Text(int row, int column) { return Cell(row, column).data().toString(); }
    std::string History(const std::string& file) {
        return BytesOrEmpty(Path(session.settings.QuoteFolder) / file);
    }
    void WriteHistory(const std::string& file, const std::string& bytes) {
        if (WriteWholeFile(session.AppPath / "Quotes" / "EOD" / file, bytes)) qFatal("no history");
    }
    frmEnable* Buttons() { return frame->findChild<frmEnable*>(); }
    void Press(const char* button) {
        Buttons()->findChild<QPushButton*>(QString::fromLatin1(button))->click();
    }
    std::size_t Asked(const std::string& part) {
        std::size_t count = 0;
        for (const std::string& url : web.Addresses) count += url.find(part) != std::string::npos ? 1U : 0U;
        return count;
    }

    // Called before each reply to a request for quotes.
    std::function<void()> onQuotes;
    std::function<std::string()> calendarPage;
    bool quotesFail = false;
    std::string expectedEarnings = "6";

  private:
    WebReply Answer(const WebRequest& request) {
        if (request.url.find("/c/s.html") != std::string::npos) {
            return MemoryWeb::Page(calendarPage ? calendarPage() : "", "text/html");
        }
        if (request.url.find("/d/quotes.txt") == std::string::npos) return MemoryWeb::Page("");
        // As a web that has to wait for its reply.
        person.PumpEvents();
        if (onQuotes) onQuotes();
        if (quotesFail) return FailedReply(WebFailure::NoConnection, "No connection.");
        std::string text;
        for (const std::string& ticker : AskedTickers(request.url)) {
            if (ticker.empty()) continue;
            text += ReplyLine(ticker).With(3, "\"3/9/2026\"").With(22, expectedEarnings).Text();
        }
        return MemoryWeb::Page(text);
    }
};

}  // namespace brantlow
