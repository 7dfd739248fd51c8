// A program in which every command can show what it does, and an onlooker who writes down what a click
// changes: dialogs and their words, windows, files, pages of the browser, and how the frame looks afterwards.
#pragma once

#include <sys/stat.h>

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStatusBar>
#include <QToolBar>
#include <map>

#include "chart/windows/page_printer.h"
#include "daily/reply_line.h"
#include "shell/frame/windows/frame_subjects.h"
#include "store/history_record.h"
#include "store/windows/frmQuoteGrid.h"
#include "window_fixture.h"

namespace brantlow {

// A program with files of every kind, a history, back-up folders and settings for import and export.
class SceneProgram : public Program {
  public:
    explicit SceneProgram(const std::string& open = "Jan.ddq") {
        hosts = Hosts::Parse(
            "QuoteHost=http://quote.test\nYahooBizHost=http://biz.test\n"
            "YahooScreenHost=http://screen.test\nVendorHost=http://vendor.test\n");
        // The person takes its leave of one frame before it meets the next.
        frame.reset();
        frame = std::make_unique<frmMain>(session, *analysis, person, web, hosts, store, Browser());
        WriteFiles();
        // A quote of the day for each ticker.
        web.AnswerWith([](const WebRequest& request) {
            const bool isQuotes = request.url.find("/d/quotes.txt") != std::string::npos;
            std::string text;
            for (const char* ticker : {"T1", "T2", "T3"}) {
                if (isQuotes) text += ReplyLine(ticker).With(3, "\"3/9/2026\"").Text();
            }
            return MemoryWeb::Page(text);
        });
        Start(open);
        frame->Subjects().print.Pages().LeavePrinterAlone();
        Find<QLineEdit>("Text1")->setText(QStringLiteral("T1"));
    }

    // Triggers an entry as its menu does.
    void Choose(std::string_view entry) { frame->Commands().Entry(entry)->trigger(); }

    // What `act` brings about, in order: first what happens, then what has changed. A file dialog takes the
    // next of `files`, names below Data/, and is left by Escape when there is none; a question is answered
    // with Yes.
    QStringList SeenBy(const std::function<void()>& act, QStringList files = {}) {
        seen.clear();
        web.Addresses.clear();
        const std::map<QString, QString> before = Scene();
        {
            DialogHand hand([&](QDialog& dialog) { Answer(dialog, files); });
            act();
            for (int turn = 0; turn < 2; ++turn) QCoreApplication::processEvents();
            if (!QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; }, kPatienceMs)) {
                seen << QStringLiteral("a dialog that stays");
            }
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const std::map<QString, QString> after = Scene();
        if (!web.Addresses.empty()) seen << QStringLiteral("web ") + Shown(web.Addresses.front());
        for (const auto& [what, state] : before) {
            if (!after.contains(what)) seen << QStringLiteral("-") + what;
        }
        for (const auto& [what, state] : after) {
            if (!before.contains(what)) {
                seen << QStringLiteral("+") + what;
            } else if (before.at(what) != state) {
                seen << QStringLiteral("~") + what;
            }
        }
        return seen.replaceInStrings(ShownPath(session.AppPath), QStringLiteral("APP"));
    }

    QMdiArea& Area() { return *frame->findChild<QMdiArea*>(); }
    // Opens a file of Data/ without a dialog.
    void Open(const std::string& name) {
        session.settings.MruSettings.Set(1, Value::OfText(name));
        frame->OpenRecentFile(1);
        QCoreApplication::processEvents();
    }

    QStringList seen;

  private:
    BrowserOperations Browser() {
        BrowserOperations browser;
        browser.open = [this](const BrowserStart& start) {
            seen << QStringLiteral("browser ") + Shown(start.StartingAddress);
            auto* window = new QWidget;
            window->setObjectName(QStringLiteral("frmBrowser"));
            return window;
        };
        const auto takeDown = [this](const char* what) {
            return [this, what](QWidget&) { seen << QString::fromLatin1(what); };
        };
        browser.print = takeDown("the page is printed");
        browser.printPreview = takeDown("the page is previewed");
        browser.savePage = takeDown("the page is saved");
        browser.savePageAs = takeDown("the page is saved as");
        return browser;
    }

    void WriteFiles() {
        Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\r\n");
        Write("Old.efq", EfqHeader() + "\r\nT1\r\n");
        Write("In.Txt", "T1,55,3/6/2026\r\n");
        Write("VTRNETset.ini",
              "\"Yahoo\"\r\n\"http://broker.test/\"\r\n\"Yahoo\"\r\n\r\n\r\n15\r\n0\r\n0\r\n\"01/02/"
              "04\"\r\n\"Comma\"\r\n");
        Write("VTRDATAset.ini",
              "\"Manually\"\r\n\"True\"\r\n\"Kept\"\r\n\"True\"\r\n\"KeptQuotes\"\r\n10\r\n\"Automatic "
              "Save\"\r\n\"Automatic Save\"\r\n");
        Write(
            "VTRIMEXset.ini",
            "\"Comma Delimited\"\r\n\"Data\"\r\n\"Out.Txt\"\r\n\"Comma "
            "Delimited\"\r\n\"Data\"\r\n\"In.Txt\"\r\n"
            "\"0\"\r\n\"0\"\r\n\"01/02/04\"\r\n\"Ticker Symbol\"\r\n\"Last Price\"\r\n\"End Export File\"\r\n"
            "\"Ticker Symbol\"\r\n\"Last Price\"\r\n\"Trade Date\"\r\n\"End Import File\"\r\n");
        std::string history;
        for (int day = 1; day <= 28; ++day) {
            HistoryRecord record;
            record.HistoryDate = (day < 10 ? "02/0" : "02/") + std::to_string(day) + "/26";
            record.HistoryClose = 100.0 + day;
            record.HistoryHigh = record.HistoryClose + 1;
            record.HistoryLow = record.HistoryClose - 1;
            record.HistoryOpen = record.HistoryClose;
            AppendHistoryLine(record, history);
        }
        const Path quotes = session.AppPath / "Quotes" / "EOD";
        if (WriteWholeFile(quotes / "T1.26", history)) qFatal("no history");
        if (WriteWholeFile(quotes / "QuoteList.ddq", "1\r\n\"T1\"\r\n")) qFatal("no list of the update");
        for (const char* name : {"Kept", "KeptQuotes"}) {
            std::filesystem::create_directories(session.AppPath / name);
            if (WriteWholeFile(session.AppPath / name / "kept.ddq", "kept")) qFatal("no back-up");
        }
        std::filesystem::create_directories(session.AppPath / "Help");
    }

    void Answer(QDialog& dialog, QStringList& files) {
        if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
            seen << QStringLiteral("says ") + box->text();
            box->button(box->standardButtons() & QMessageBox::Yes ? QMessageBox::Yes : QMessageBox::Ok)
                ->click();
            return;
        }
        seen << QStringLiteral("dialog ") + dialog.windowTitle();
        if (qobject_cast<QFileDialog*>(&dialog) && !files.isEmpty())
            return EnterFile(dialog, session.DataFile(files.takeFirst().toStdString()));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    }

    // Everything that a command may change, each with a state that tells a change of it.
    std::map<QString, QString> Scene() {
        std::map<QString, QString> scene;
        if (frame->isVisible()) scene[QStringLiteral("frame")];
        if (Find<QToolBar>("tbToolBar")->isVisibleTo(frame.get())) scene[QStringLiteral("buttons")];
        if (frame->statusBar()->isVisibleTo(frame.get())) scene[QStringLiteral("status bar")];
        for (QMdiSubWindow* child : Area().subWindowList()) {
            if (child->widget() && !child->isHidden())
                scene[child->widget()->objectName() + u' ' + child->widget()->windowTitle()];
        }
        for (QWidget* window : QApplication::topLevelWidgets()) {
            const bool ofTheFrame = window == frame.get() || qobject_cast<QMenu*>(window) != nullptr;
            if (window->isVisible() && window->isWindow() && !ofTheFrame)
                scene[QStringLiteral("window ") + window->windowTitle()];
        }
        if (frame->QuoteForm())
            scene[QStringLiteral("first ") + Shown(frame->QuoteForm()->Table().Ticker(1))];
        AddFiles(scene);
        return scene;
    }

    void AddFiles(std::map<QString, QString>& scene) {
        struct stat state {};
        for (const auto& entry : std::filesystem::recursive_directory_iterator(session.AppPath)) {
            if (!entry.is_regular_file() || ::stat(entry.path().c_str(), &state) != 0) continue;
            // A file that is written whole is a new one, whatever it holds.
            const Path name = entry.path().lexically_relative(session.AppPath);
            // What is kept for undoing goes without saying.
            if (name.native().starts_with("Back Up/Undo")) continue;
            scene[ShownPath(name)] = QStringLiteral("%1 %2").arg(state.st_ino).arg(state.st_size);
        }
    }
};

}  // namespace brantlow
