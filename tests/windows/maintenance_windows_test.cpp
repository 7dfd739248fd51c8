// The housekeeping of the Edit menu: its questions, its dialogs, and the files that change.
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QStatusBar>

#include "base/windows/text_editor.h"
#include "shell/frame/windows/command_bar.h"
#include "shell/session_change.h"
#include "store/windows/frmDeleteFile.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// A program with a table open and back-up folders in its settings.
class KeptProgram : public Program {
  public:
    KeptProgram() {
        Write("VTRDATAset.ini",
              "\"Manually\"\r\n\"True\"\r\n\"Kept\"\r\n\"True\"\r\n\"KeptQuotes\"\r\n10\r\n");
        WriteQuotes("AAA.26", kRecord);
        Start("Jan.ddq");
    }
    void WriteQuotes(const std::string& name, const std::string& bytes) {
        const std::error_code error = WriteWholeFile(session.AppPath / "Quotes/EOD" / name, bytes);
        QVERIFY(!error);
    }
    std::string At(const char* name) { return BytesOrEmpty(session.AppPath / name); }
    QString Message() { return frame->statusBar()->currentMessage(); }
};

// A hand that answers a question whose words must be these.
DialogHand Answering(const char* title, const char* text, QMessageBox::StandardButton button) {
    return DialogHand([=](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), QString::fromLatin1(title));
        QCOMPARE(box->text(), QString::fromLatin1(text));
        PressButton(dialog, button);
    });
}

}  // namespace

class MaintenanceWindowsTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void backUpAndRestoreCopyWhatTheyNameAfterAYes() {
        KeptProgram program;
        {
            auto hand =
                Answering("Back Up Program Files?", "Do you want back up program files?", QMessageBox::Yes);
            program.Click("Command15");
            QCOMPARE(hand.seen, 1);
        }
        QCOMPARE(program.At("Kept/Jan.ddq"), Program::QuoteTableText(3));
        QVERIFY(program.Message().endsWith(QStringLiteral(" files copied")));
        QVERIFY(!program.Find<QProgressBar>("ProgressBar1")->isVisible());
        {
            auto hand =
                Answering("Back Up Quote Database?", "Do you want back up quote database?", QMessageBox::Yes);
            program.Click("Command14");
        }
        QCOMPARE(program.At("KeptQuotes/AAA.26"), std::string(kRecord));
        QCOMPARE(program.Message(), QStringLiteral("1 file copied"));
        program.WriteQuotes("AAA.26", "spoiled");
        program.Write("Jan.ddq", "spoiled");
        {
            auto hand = Answering("Restore Quote Database?", "Do you want to restore the quote database?",
                                  QMessageBox::Yes);
            program.Click("Command16");
        }
        {
            auto hand = Answering("Restore Program Files?", "Do you want to restore program files?",
                                  QMessageBox::Yes);
            program.Click("Command17");
        }
        QCOMPARE(program.At("Quotes/EOD/AAA.26"), std::string(kRecord));
        QCOMPARE(program.Read("Jan.ddq"), Program::QuoteTableText(3));
    }

    void afterARestoreTheOpenTableIsTheRestoredOne() {
        KeptProgram program;
        auto hand = DialogHand([](QDialog& dialog) { PressButton(dialog, QMessageBox::Yes); });
        program.frame->Run("mnuEditBackUpProgramFiles");
        auto* const before = program.frame->QuoteForm();
        QCOMPARE(before->Table().TickerCount(), std::size_t{3});
        program.frame->Run("mnuEditRestoreProgramFiles");
        QCOMPARE(program.frame->QuoteForm(), before);  // the same bytes are no reason to open it anew
        std::filesystem::create_directories(program.session.AppPath / "Kept");
        QVERIFY(!WriteWholeFile(program.session.AppPath / "Kept/Jan.ddq", Program::QuoteTableText(2)));
        program.frame->Run("mnuEditRestoreProgramFiles");
        QCOMPARE(program.session.CurrentFile, std::string("Jan.ddq"));
        QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), std::size_t{2});
    }

    void aNoChangesNothing() {
        KeptProgram program;
        auto hand = DialogHand([](QDialog& dialog) { PressButton(dialog, QMessageBox::No); });
        for (const char* entry :
             {"mnuEditBackUpProgramFiles", "mnuEditBackUpQuoteDatabase", "mnuEditRestoreProgramFiles",
              "mnuEditRestoreQuoteDatabase", "mnuEditRemoveLastUpdate"}) {
            program.frame->Run(entry);
        }
        QCOMPARE(hand.seen, 5);
        QVERIFY(!std::filesystem::exists(program.session.AppPath / "Kept"));
        QCOMPARE(program.At("Quotes/EOD/AAA.26"), std::string(kRecord));
    }

    void aBackUpThatCannotBeMadeIsTold() {
        KeptProgram program;
        program.session.settings.DataSettings.Set(5, Value::OfText(""));
        QStringList texts;
        auto hand = DialogHand([&](QDialog& dialog) {
            auto* box = qobject_cast<QMessageBox*>(&dialog);
            texts << box->text();
            box->buttons().constFirst()->click();
        });
        program.frame->Run("mnuEditRestoreQuoteDatabase");
        QCOMPARE(texts.value(1),
                 QStringLiteral("No folder is chosen for the back-up of the quote database. Go to Settings, "
                                "Application to choose one."));
    }

    void removeLastUpdateSaysWhenThereIsNone() {
        KeptProgram program;
        QStringList texts;
        auto hand = DialogHand([&](QDialog& dialog) {
            auto* box = qobject_cast<QMessageBox*>(&dialog);
            texts << box->text();
            PressButton(dialog, texts.size() == 1 ? QMessageBox::Yes : QMessageBox::Ok);
        });
        program.frame->Run("mnuEditRemoveLastUpdate");
        QCOMPARE(texts,
                 QStringList({QStringLiteral("Do you want to remove the last update from the database?"),
                              QStringLiteral("You will need to update the quote file before you can "
                                             "remove the last day of data.")}));
        QCOMPARE(program.At("Quotes/EOD/AAA.26"), std::string(kRecord));
    }

    void removeLastUpdateTakesTheLastRecord() {
        KeptProgram program;
        program.WriteQuotes("QuoteList.ddq", "1\r\n\"AAA\"\r\n");
        program.WriteQuotes("AAA.26", std::string(kRecord) + kRecord);
        auto hand = Answering("Remove Update?", "Do you want to remove the last update from the database?",
                              QMessageBox::Yes);
        program.frame->Run("mnuEditRemoveLastUpdate");
        QCOMPARE(program.At("Quotes/EOD/AAA.26"), std::string(kRecord));
        QCOMPARE(program.Message(), QStringLiteral("1 record removed"));
    }

    void undoNamesTheChangeAndBringsTheFilesBackAndTheChangeAgain() {
        KeptProgram program;
        const QAction* entry = program.frame->Commands().Entry("mnuEditUndo");
        QCOMPARE(entry->shortcut(), QKeySequence(QStringLiteral("Ctrl+Z")));
        const auto click = [&] { program.frame->Commands().Entry("mnuEditUndo")->trigger(); };
        const auto words = [&] {
            Q_EMIT program.frame->Commands().Menu("mnuEdit")->aboutToShow();
            return entry->text();
        };
        QCOMPARE(words(), QStringLiteral("Undo"));
        click();
        QCOMPARE(program.Message(), QStringLiteral("There is no change to undo"));
        program.WriteQuotes("QuoteList.ddq", "1\r\n\"AAA\"\r\n");
        {
            auto hand = DialogHand([](QDialog& dialog) { PressButton(dialog, QMessageBox::Yes); });
            program.frame->Run("mnuEditRemoveLastUpdate");
        }
        QCOMPARE(program.At("Quotes/EOD/AAA.26"), std::string());
        QCOMPARE(words(), QStringLiteral("Undo Remove Last Update"));
        click();
        QCOMPARE(program.At("Quotes/EOD/AAA.26"), std::string(kRecord));
        QCOMPARE(program.Message(), QStringLiteral("Undone: Remove Last Update"));
        QCOMPARE(program.Find<QLabel>("Panel1")->text(), QStringLiteral(" Undone: Remove Last Update"));
        QCOMPARE(words(), QStringLiteral("Redo Remove Last Update"));
        click();
        QCOMPARE(program.At("Quotes/EOD/AAA.26"), std::string());
        QCOMPARE(program.Message(), QStringLiteral("Redone: Remove Last Update"));
        QCOMPARE(words(), QStringLiteral("Undo Remove Last Update"));
    }

    void anUndoneRestoreShowsTheTableOfBefore() {
        KeptProgram program;
        auto hand = DialogHand([](QDialog& dialog) { PressButton(dialog, QMessageBox::Yes); });
        std::filesystem::create_directories(program.session.AppPath / "Kept");
        QVERIFY(!WriteWholeFile(program.session.AppPath / "Kept/Jan.ddq", Program::QuoteTableText(2)));
        program.frame->Run("mnuEditRestoreProgramFiles");
        QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), std::size_t{2});
        program.frame->Run("mnuEditUndo");
        QCOMPARE(program.Read("Jan.ddq"), Program::QuoteTableText(3));
        QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), std::size_t{3});
    }

    void combineAsksForThreeFilesAndJoinsThem() {
        KeptProgram program;
        QStringList titles;
        const char* names[] = {"Jan.ddq", "Feb.ddq", "Both.ddq"};
        auto hand = DialogHand([&](QDialog& dialog) {
            const Path file = program.session.DataFolder() / names[titles.size()];
            titles << dialog.windowTitle();
            EnterFile(dialog, file);
        });
        program.frame->Run("mnuEditCombineQuoteFiles");
        QCOMPARE(titles, QStringList({QStringLiteral("Select First File"),
                                      QStringLiteral("Select File to Combine"), QStringLiteral("Save As")}));
        const std::string both = program.Read("Both.ddq");
        QCOMPARE(std::count(both.begin(), both.end(), '\n'), 1 + 3 + 40 - 1);
        QCOMPARE(program.Message(), QStringLiteral("Both.ddq: 42 rows"));
    }

    void combineStopsAtTheFirstCancel() {
        KeptProgram program;
        auto hand = DialogHand([](QDialog& dialog) { dialog.reject(); });
        program.frame->Run("mnuEditCombineQuoteFiles");
        QCOMPARE(hand.seen, 1);
    }

    void deleteFileDeletesAfterAYesAndProtectsTheProgramsOwn() {
        KeptProgram program;
        program.Write("Evaluations.dbe", "x");
        program.Write("Jan.dbe", "x");
        program.Click("Command11");
        auto* dialog = program.frame->findChild<frmDeleteFile*>();
        QVERIFY(dialog);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Delete File"));
        auto* files = dialog->findChild<QListWidget*>(QStringLiteral("File1"));
        auto* button = dialog->findChild<QAbstractButton*>(QStringLiteral("Command1"));
        auto* chosen = dialog->findChild<QLineEdit*>(QStringLiteral("Text1"));
        QVERIFY(!button->isEnabled());
        const auto choose = [&](const char* name) {
            files->setCurrentItem(files->findItems(QString::fromLatin1(name), Qt::MatchExactly).constFirst());
            QCOMPARE(chosen->text(), QString::fromLatin1(name));
            QTest::mouseClick(button, Qt::LeftButton);
        };
        QStringList texts;
        QMessageBox::StandardButton answer = QMessageBox::No;
        auto hand = DialogHand([&](QDialog& box) {
            auto* message = qobject_cast<QMessageBox*>(&box);
            if (!message) return;
            texts << message->text();
            PressButton(box, message->button(QMessageBox::Ok) ? QMessageBox::Ok : answer);
        });
        choose("Jan.dbe");
        QCOMPARE(program.Read("Jan.dbe"), std::string("x"));
        answer = QMessageBox::Yes;
        choose("Jan.dbe");
        QCOMPARE(program.Read("Jan.dbe"), std::string());
        QVERIFY(files->findItems(QStringLiteral("Jan.dbe"), Qt::MatchExactly).isEmpty());
        choose("Evaluations.dbe");
        QCOMPARE(program.Read("Evaluations.dbe"), std::string("x"));
        QCOMPARE(texts.constLast(), QStringLiteral("You may not delete this file or you may not delete files "
                                                   "with these extensions"));
        QTest::mouseClick(dialog->findChild<QAbstractButton*>(QStringLiteral("Command2")), Qt::LeftButton);
        QVERIFY(!dialog->isVisible());
    }

    void deleteFileTakesWhatATableOfVerdictsTellsOfItselfWithIt() {
        KeptProgram program;
        program.Write("AAA.dbe", "Ticker Symbol\r\nT1\r\n");
        program.Write("AAA.dbe.about", "Day: 2026-03-06\r\n");
        frmDeleteFile dialog(program.person, ChangePlaceOf(program.session), program.session.DataFolder(),
                             program.frame.get());
        auto* files = dialog.findChild<QListWidget*>(QStringLiteral("File1"));
        files->setCurrentItem(files->findItems(QStringLiteral("AAA.dbe"), Qt::MatchExactly).constFirst());
        auto hand = DialogHand([](QDialog& box) { PressButton(box, QMessageBox::Yes); });
        dialog.findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        QCOMPARE(hand.seen, 1);
        QVERIFY(!IsRegularFile(program.session.DataFile("AAA.dbe")));
        QVERIFY(!IsRegularFile(program.session.DataFile("AAA.dbe.about")));
        program.frame->Run("mnuEditUndo");
        QCOMPARE(program.Read("AAA.dbe.about"), std::string("Day: 2026-03-06\r\n"));
    }

    void theUndoKeyTakesTheNewestChangeBackAndTheNextOneBringsItAgain() {
        KeptProgram program;
        const Path file = program.session.DataFile("Feb.ddq");
        FileChange change(ChangePlaceOf(program.session), "Delete Feb.ddq");
        QVERIFY(!change.Delete(file) && !change.Commit());
        QVERIFY(!IsRegularFile(file));
        program.frame->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(program.frame.get(), kPatienceMs));
        auto* view = program.frame->QuoteForm()->View();
        view->setFocus();
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Read("Feb.ddq"), Program::QuoteTableText(40));
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!IsRegularFile(file));
    }

    void deleteFileWalksThroughTheFolders() {
        KeptProgram program;
        std::filesystem::create_directories(program.session.DataFolder() / "sub");
        program.Write("sub/below.ddq", "x");
        frmDeleteFile dialog(program.person, ChangePlaceOf(program.session), program.session.DataFolder(),
                             nullptr);
        auto* folders = dialog.findChild<QListWidget*>(QStringLiteral("Dir1"));
        auto* files = dialog.findChild<QListWidget*>(QStringLiteral("File1"));
        Q_EMIT folders->itemActivated(
            folders->findItems(QStringLiteral("sub"), Qt::MatchExactly).constFirst());
        QCOMPARE(files->count(), 1);
        QCOMPARE(files->item(0)->text(), QStringLiteral("below.ddq"));
        Q_EMIT folders->itemActivated(folders->item(0));
        QVERIFY(!files->findItems(QStringLiteral("Jan.ddq"), Qt::MatchExactly).isEmpty());
    }

    void editingAsksForAFileAndOpensTheProgramsEditorWhereTheDesktopHasNone() {
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nowhere");
        KeptProgram program;
        QString title;
        auto hand = DialogHand([&](QDialog& dialog) {
            title = dialog.windowTitle();
            EnterFile(dialog, program.session.DataFolder() / "Jan.ddq");
        });
        program.frame->Run("mnuEditEditQuoteFiles");
        qputenv("PATH", path);
        QCOMPARE(title, QStringLiteral("Edit Quote File"));
        auto* editor = program.frame->findChild<TextEditor*>();
        QVERIFY(editor);
        QCOMPARE(editor->windowTitle(), QStringLiteral("Jan.ddq[*]"));
        auto* text = editor->findChild<QPlainTextEdit*>();
        text->appendPlainText(QStringLiteral("T4\t1"));
        QVERIFY(editor->Save());
        QCOMPARE(program.Read("Jan.ddq"), Program::QuoteTableText(3) + "\r\nT4\t1");
    }

    void theFrameStaysWhileATextIsNotSaved() {
        KeptProgram program;
        auto* editor = new TextEditor(program.session.DataFile("Feb.ddq"), program.frame.get());
        editor->show();
        editor->findChild<QPlainTextEdit*>()->appendPlainText(QStringLiteral("T41\t1"));
        QMessageBox::StandardButton answer = QMessageBox::Cancel;
        QStringList texts;
        DialogHand hand([&](QDialog& dialog) {
            texts << qobject_cast<QMessageBox*>(&dialog)->text();
            PressButton(dialog, answer);
        });
        program.frame->Run("mnuFileExit");
        QVERIFY(program.frame->isVisible() && program.frame->QuoteForm() && editor->isVisible());
        QCOMPARE(program.Read("Feb.ddq"), Program::QuoteTableText(40));
        answer = QMessageBox::Save;
        program.frame->Run("mnuFileExit");
        QVERIFY(!program.frame->isVisible());
        QCOMPARE(program.Read("Feb.ddq"), Program::QuoteTableText(40) + "\r\nT41\t1");
        QCOMPARE(texts, QStringList(2, QStringLiteral("Save the changes?")));
    }

    void editingTheDatabaseStartsInItsFolder() {
        KeptProgram program;
        auto hand = DialogHand([&](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Edit Quote Database Files"));
            auto* chooser = qobject_cast<QFileDialog*>(&dialog);
            QVERIFY(chooser);
            QCOMPARE(Path(chooser->directory().absolutePath().toStdString()).lexically_normal(),
                     (program.session.AppPath / "Quotes/EOD").lexically_normal());
            dialog.reject();
        });
        program.frame->Run("mnuEditEditDatabaseFiles");
        QCOMPARE(hand.seen, 1);
        QVERIFY(!program.frame->findChild<TextEditor*>());
    }

    void theEditorKeepsBytesThatItCannotShow() {
        KeptProgram program;
        const std::string bytes = "caf\xe9\n";
        program.Write("Old.ddq", bytes);
        TextEditor editor(program.session.DataFile("Old.ddq"), nullptr);
        auto* text = editor.findChild<QPlainTextEdit*>();
        QVERIFY(text->isReadOnly());
        QCOMPARE(text->toPlainText(), QString::fromUtf8("caf\xc3\xa9\n"));
        QVERIFY(editor.windowTitle().contains(QStringLiteral("(read only)")));
    }
};

WINDOW_TEST(MaintenanceWindowsTest)
#include "maintenance_windows_test.moc"
