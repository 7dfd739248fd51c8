// What the window tests share: an application folder of their own, a frame on it, and a hand that answers the
// dialogs that a click opens.
#pragma once

#include <QAbstractButton>
#include <QApplication>
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

#include "acquire/memory_web.h"
#include "base/clock.h"
#include "base/files.h"
#include "base/windows/display_text.h"
#include "indicators/analysis.h"
#include "shell/session.h"
#include "shell/settings/settings_files.h"
#include "shell/windows/command_bar.h"
#include "shell/windows/frmMain.h"
#include "shell/windows/window_person.h"
#include "store/columns.h"
#include "store/file_names.h"
#include "support/temp_folder.h"

namespace brantlow {

inline constexpr Date kTestDay{std::chrono::year{2026}, std::chrono::month{3}, std::chrono::day{9}};

// The frame and all that main() gives it.
class Program {
  public:
    Program() {
        std::filesystem::create_directories(session.DataFolder());
        std::filesystem::create_directories(session.AppPath / "Quotes" / "EOD");
        Write(std::string(kNewTableName), QuoteHeader() + "\r\n");
        Write("VTRCOLset.ini", "\"Last Price\"\r\n\"Change\"\r\n\"Name\"\r\n\"\"\r\n");
        Write("Jan.ddq", QuoteTableText(3));
        Write("Feb.ddq", QuoteTableText(40));
    }

    // The header of a quote table and `tickers` rows T1, T2 ... with a last price and a change.
    static std::string QuoteTableText(int tickers) {
        std::string text = QuoteHeader() + "\r\n";
        for (int i = 1; i <= tickers; ++i) {
            text += "T" + std::to_string(i) + "\t" + std::to_string(10 + i) + ".000\t" +
                    (i % 3 == 0 ? "-1.000" : "1.000") + "\r\n";
        }
        return text;
    }

    void Write(const std::string& name, const std::string& bytes) {
        const std::error_code error = WriteWholeFile(session.DataFile(name), bytes);
        if (error) qFatal("cannot write %s", name.c_str());
    }
    std::string Read(const std::string& name) { return BytesOrEmpty(session.DataFile(name)); }
    void SetRecent(const std::string& first) {
        Write("VTRMRUset.ini", "\"" + first + "\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n");
    }

    // Starts the frame with this file as the most recent one.
    void Start(const std::string& recent) {
        SetRecent(recent);
        frame->Load();
        QCoreApplication::processEvents();
        // The start's own look for a newer version is not what a test is about.
        web.Addresses.clear();
    }

    template <class Widget>
    Widget* Find(const char* name) {
        return frame->findChild<Widget*>(QString::fromLatin1(name));
    }
    QString StatusWord() { return Find<QLabel>("Panel2")->text(); }
    QString TickerCount() { return Find<QLabel>("Panel3")->text(); }
    void Click(const char* button) {
        auto* found = Find<QAbstractButton>(button);
        QVERIFY2(found, button);
        QTest::mouseClick(found, Qt::LeftButton);
        QCoreApplication::processEvents();
    }

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
// rejected after a while, so that a failing test ends.
class DialogHand {
  public:
    explicit DialogHand(std::function<void(QDialog&)> answer) : answer_(std::move(answer)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
        timer_.start(5);
    }

    int seen = 0;

  private:
    void Look() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        constexpr int kPatience = 400;
        if (dialog == last_ && ++looks_ < kPatience) return;
        if (dialog == last_) return dialog->reject();
        last_ = dialog;
        looks_ = 0;
        ++seen;
        answer_(*dialog);
    }

    std::function<void(QDialog&)> answer_;
    QTimer timer_;
    QPointer<QDialog> last_;
    int looks_ = 0;
};

// The words of the boxes that `act` opens, each answered with OK.
inline QStringList BoxesOf(const std::function<void()>& act) {
    QStringList told;
    DialogHand hand([&](QDialog& dialog) {
        if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
            told << box->text();
            box->button(QMessageBox::Ok)->click();
        }
    });
    act();
    return told;
}

// Acts at every turn of the event loop while a run is on: step i runs until it says that it is done.
class RunWatcher {
  public:
    explicit RunWatcher(std::vector<std::function<bool()>> steps) : steps_(std::move(steps)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            if (next < steps_.size() && steps_[next]()) ++next;
        });
        timer_.start(0);
    }
    std::size_t next = 0;

  private:
    std::vector<std::function<bool()>> steps_;
    QTimer timer_;
};

inline void PressButton(QDialog& dialog, QMessageBox::StandardButton button) {
    if (auto* box = qobject_cast<QMessageBox*>(&dialog)) box->button(button)->click();
}

// Enters a file name in an open or save dialog. The key comes from a turn of its own: it can open a question.
inline void EnterFile(QDialog& dialog, const Path& file) {
    auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    QVERIFY2(name, "the file dialog has a name field");
    name->setText(ShownPath(file));
    QTimer::singleShot(0, name, [name] { QTest::keyClick(name, Qt::Key_Return); });
}

}  // namespace brantlow
