// What the window tests share: an application folder of their own, a frame on it, and a hand that answers the
// dialogs that a click opens. Compiled once for all of them (see CMakeLists.txt).
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "acquire/web/memory_web.h"
#include "base/clock.h"
#include "base/files.h"
#include "base/windows/display_text.h"
#include "indicators/analysis.h"
#include "shell/frame/windows/command_bar.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "shell/session.h"
#include "shell/settings/settings_files.h"
#include "store/columns.h"
#include "store/file_names.h"
#include "support/temp_folder.h"
#include "window_test.h"

namespace brantlow {

// How long a test waits for what has to come: a guard against waiting for ever, and no measure of speed.
inline constexpr int kPatienceMs = 120000;

inline constexpr Date kTestDay{std::chrono::year{2026}, std::chrono::month{3}, std::chrono::day{9}};

// The frame and all that main() gives it.
class Program {
  public:
    Program();
    ~Program();

    // The header of a quote table and `tickers` rows T1, T2 ... with a last price and a change.
    static std::string QuoteTableText(int tickers);

    // A file of the folder Data.
    void Write(const std::string& name, const std::string& bytes);
    std::string Read(const std::string& name);
    void SetRecent(const std::string& first);

    // Starts the frame with this file as the most recent one.
    void Start(const std::string& recent);

    template <class Widget>
    Widget* Find(const char* name) {
        return frame->findChild<Widget*>(QString::fromLatin1(name));
    }
    QString StatusWord();
    QString TickerCount();
    void Click(const char* button);

    TempFolder folder;
    FixedClock clock{kTestDay};
    WindowPerson person;
    Session session{folder.Get(), clock, person};
    std::unique_ptr<Analysis> analysis = std::make_unique<Analysis>();
    Path store = folder / "config" / "Brantlow.ini";
    MemoryWeb web{&person};
    Hosts hosts;
    std::unique_ptr<frmMain> frame = std::make_unique<frmMain>(session, *analysis, person, web, hosts, store);
};

// Answers the next dialog that opens; `seen` counts the dialogs so far. A dialog that nothing answers is
// rejected after kPatienceMs, so that a failing test ends.
class DialogHand {
  public:
    explicit DialogHand(std::function<void(QDialog&)> answer);

    int seen = 0;

  private:
    void Look();

    std::function<void(QDialog&)> answer_;
    QTimer timer_;
    QPointer<QDialog> last_;
    QDeadlineTimer patience_;
};

// The words of the boxes that `act` opens, each answered with OK.
QStringList BoxesOf(const std::function<void()>& act);

// Acts at every turn of the event loop while a run is on: step i runs until it says that it is done.
class RunWatcher {
  public:
    explicit RunWatcher(std::vector<std::function<bool()>> steps);
    std::size_t next = 0;

  private:
    std::vector<std::function<bool()>> steps_;
    QTimer timer_;
};

template <class Widget>
Widget* Part(const QDialog* dialog, const char* name) {
    return dialog->findChild<Widget*>(QString::fromLatin1(name));
}

// The words as texts of the windows.
inline QStringList Words(std::initializer_list<const char*> words) {
    QStringList list;
    for (const char* word : words) list << QString::fromUtf8(word);
    return list;
}

// A day as a year file holds it.
inline constexpr const char* kRecord =
    "\"03/06/26\",\"16:00\",12,1,2,300,1,2,3,4,5,\"\",\"\",6,7,8,9,10,11\r\n";

inline constexpr int kTwips = 15;

void PressButton(QDialog& dialog, QMessageBox::StandardButton button);

// Enters a file name in an open or save dialog. In a turn of its own: the key can open a question. Name and
// key in the same turn: a dialog that finds the proposed file meanwhile puts it back.
void EnterFile(QDialog& dialog, const Path& file);

}  // namespace brantlow
