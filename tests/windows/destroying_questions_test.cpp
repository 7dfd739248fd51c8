// Every question before something is deleted or written over: an Enter that is pressed without a look must
// not destroy anything. One row a question.
#include <QListWidget>
#include <QPushButton>

#include "chart/windows/frmGraph.h"
#include "shell/session_change.h"
#include "store/own_files.h"
#include "store/table_edit.h"
#include "store/windows/frmDeleteFile.h"
#include "store/windows/frmDeleteQuoteDataBase.h"
#include "store/windows/frmQuoteGrid.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// A program with something to lose in every place.
class FullProgram : public Program {
  public:
    FullProgram() {
        Write("VTRDATAset.ini",
              "\"Manually\"\r\n\"True\"\r\n\"Kept\"\r\n\"True\"\r\n\"KeptQuotes\"\r\n10\r\n");
        for (const char* name :
             {"Quotes/EOD/T1.26", "Quotes/EOD/T2.26", "Kept/Jan.ddq", "KeptQuotes/T1.26"}) {
            const Path file = session.AppPath / name;
            std::filesystem::create_directories(file.parent_path());
            if (WriteWholeFile(file, kRecord)) qFatal("cannot write %s", name);
        }
        if (WriteWholeFile(session.AppPath / "Quotes/EOD/QuoteList.ddq", "03/06/26\r\n\"T1\"\r\n"))
            qFatal("no list of the last update");
        Start("Jan.ddq");
    }
};

struct Question {
    const char* name;
    // Whatever asks it.
    void (*ask)(FullProgram& program);
};

void DeleteFirstFile(FullProgram& program) {
    frmDeleteFile dialog(program.person, ChangePlaceOf(program.session), program.session.DataFolder(),
                         program.frame.get());
    dialog.findChild<QListWidget*>(QStringLiteral("File1"))->setCurrentRow(0);
    dialog.findChild<QPushButton*>(QStringLiteral("Command1"))->click();
}

void SaveOverAnothersChange(FullProgram& program) {
    program.Write("Jan.ddq", "Ticker Symbol\r\nZZZ\r\n");
    program.frame->Run("mnuFileSave");
}

void Exchange(FullProgram& program, ExchangeWay way) {
    MayExchange(program.session, program.session.DataFile("Feb.ddq"), way);
    if (way == ExchangeWay::Import)
        MayExchange(program.session, program.session.DataFile("VTRCOLset.ini"), way);
}

constexpr Question kQuestions[] = {
    {"restore the program's files", [](FullProgram& p) { p.frame->Run("mnuEditRestoreProgramFiles"); }},
    {"restore the quote database", [](FullProgram& p) { p.frame->Run("mnuEditRestoreQuoteDatabase"); }},
    {"remove the last update", [](FullProgram& p) { p.frame->Run("mnuEditRemoveLastUpdate"); }},
    {"delete a file", DeleteFirstFile},
    {"save over what another program changed", SaveOverAnothersChange},
    {"export over a table", [](FullProgram& p) { Exchange(p, ExchangeWay::Export); }},
    {"import a settings file", [](FullProgram& p) { Exchange(p, ExchangeWay::Import); }},
    {"delete a ticker's history", [](FullProgram& p) { frmDeleteQuoteDataBase("T1", p.frame.get()).exec(); }},
};

// The button that Enter presses.
QPushButton* DefaultButton(QDialog& dialog) {
    for (QPushButton* const button : dialog.findChildren<QPushButton*>())
        if (button->isDefault()) return button;
    return nullptr;
}

}  // namespace

class DestroyingQuestionsTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void enterDestroysNothing() {
        for (const Question& question : kQuestions) {
            FullProgram program;
            const QString jan = Shown(program.Read("Jan.ddq"));
            bool asked = false;
            DialogHand hand([&](QDialog& dialog) {
                asked = true;
                const QPushButton* const button = DefaultButton(dialog);
                QVERIFY2(button, question.name);
                const QString words = button->text().remove(u'&');
                const QStringList harmless = {QStringLiteral("No"), QStringLiteral("Cancel"),
                                              QStringLiteral("Keep History")};
                QVERIFY2(harmless.contains(words), question.name);
                QTest::keyClick(&dialog, Qt::Key_Return);
            });
            question.ask(program);
            QVERIFY2(asked, question.name);
            for (const char* const file : {"Quotes/EOD/T1.26", "Kept/Jan.ddq", "KeptQuotes/T1.26"})
                QCOMPARE(BytesOrEmpty(program.session.AppPath / file), std::string(kRecord));
        }
    }

    void yesIsTheDefaultOfAQuestionThatDestroysNothing() {
        FullProgram program;
        DialogHand hand([](QDialog& dialog) {
            const QPushButton* const button = DefaultButton(dialog);
            QVERIFY(button);
            QCOMPARE(button->text().remove(u'&'), QStringLiteral("Yes"));
            PressButton(dialog, QMessageBox::No);
        });
        program.frame->Run("mnuEditBackUpProgramFiles");
        QCOMPARE(hand.seen, 1);
    }
};

WINDOW_TEST(DestroyingQuestionsTest)
#include "destroying_questions_test.moc"
