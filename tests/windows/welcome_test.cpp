// The page of a frame in which no window stands: the tables to go on with and the ways to begin.
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>

#include "shell/frame/windows/frmHelp.h"
#include "shell/frame/windows/welcome_page.h"
#include "store/windows/frmQuoteGrid.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

WelcomePage& Page(Program& program) {
    return *program.frame->findChild<WelcomePage*>();
}

// The accessible names of the tables on the page, from the top.
QStringList Offered(Program& program) {
    QStringList names;
    for (const QPushButton* button :
         Page(program).findChildren<QPushButton*>(QStringLiteral("cmdWelcomeTable")))
        names << button->accessibleName();
    return names;
}

void Press(Program& program, const char* name, int place = 0) {
    const auto buttons = Page(program).findChildren<QPushButton*>(Name(name));
    QVERIFY2(buttons.size() > place, name);
    QTest::mouseClick(buttons.at(place), Qt::LeftButton);
    QCoreApplication::processEvents();
}

}  // namespace

class WelcomeTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // The settings of a new application folder name the practice table, which nobody has made yet.
    void aFirstStartBeginsOnThePageWithoutABox() {
        Program program;
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        program.Start("Practice.ddq");
        QCOMPARE(hand.seen, 0);
        QVERIFY(Page(program).isVisible());
        QVERIFY(!program.frame->QuoteForm());
        QCOMPARE(Offered(program), QStringList());
        QVERIFY(!program.Find<QPushButton>("cmdWelcomeUpdate")->isVisible());
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QVERIFY(!program.Find<QLabel>("Panel3")->isVisible());
    }

    // Where two have one letter the first press of it chooses neither.
    void noLetterOfThePageIsOneOfTheMenu() {
        Program program;
        program.Start("Practice.ddq");
        QStringList words;
        for (const QAction* action : program.frame->menuBar()->actions()) words << action->text();
        for (const QPushButton* button : Page(program).findChildren<QPushButton*>()) words << button->text();
        QStringList letters;
        for (const QString& text : words) {
            const QString letter = QKeySequence::mnemonic(text).toString();
            QVERIFY2(letter.isEmpty() || !letters.contains(letter), qPrintable(text));
            letters << letter;
        }
        QVERIFY(letters.contains(QStringLiteral("Alt+Q")));
    }

    void enterPressesTheButtonWithTheFocus() {
        Program program;
        program.Start("Practice.ddq");
        auto* button = Page(program).findChild<QPushButton*>(QStringLiteral("cmdWelcomePractice"));
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Return);
        QCoreApplication::processEvents();
        QVERIFY(program.frame->QuoteForm());
    }

    void anotherMissingTableIsToldStill() {
        Program program;
        const QStringList told = BoxesOf([&] { program.Start("Gone.ddq"); });
        QCOMPARE(told, QStringList(QStringLiteral("Gone.ddq: no such file in Data")));
        QVERIFY(Page(program).isVisible());
    }

    void thePracticeTableIsMadeAndOpened() {
        Program program;
        program.Start("Practice.ddq");
        Press(program, "cmdWelcomePractice");
        QVERIFY(program.frame->QuoteForm());
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Practice.ddq"));
        QVERIFY(program.frame->QuoteForm()->Table().TickerCount() > 20);
        QVERIFY(!std::filesystem::is_empty(program.session.AppPath / "Quotes" / "EOD"));
        QVERIFY(!Page(program).isVisible());
    }

    void whatStandsInTheWayOfThePracticeTableIsTold() {
        Program program;
        program.Start("Practice.ddq");
        QVERIFY(!WriteWholeFile(program.session.AppPath / "Quotes" / "EOD" / "NFLX.26", "kept\r\n"));
        const QStringList told = BoxesOf([&] { Press(program, "cmdWelcomePractice"); });
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().startsWith(QStringLiteral("The practice table is not made, since the "
                                                             "application folder already holds ")),
                 qPrintable(told.constFirst()));
        QCOMPARE(BytesOrEmpty(program.session.AppPath / "Quotes" / "EOD" / "NFLX.26"),
                 std::string("kept\r\n"));
        QVERIFY(!std::filesystem::exists(program.session.DataFile("Practice.ddq")));
        QVERIFY(Page(program).isVisible());
    }

    void aCancelledOpenOffersTheTableJustClosedFirst() {
        Program program;
        program.Start("Jan.ddq");
        QVERIFY(!Page(program).isVisible());
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\r\n");
        program.frame->OpenRecentFile(1);
        {
            DialogHand hand([&](QDialog& dialog) { EnterFile(dialog, program.session.DataFile("Old.dbe")); });
            program.Click("Command6");
        }
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Old.dbe"));
        DialogHand cancel([](QDialog& dialog) { dialog.reject(); });
        program.Click("Command5");
        QVERIFY(!program.frame->QuoteForm());
        QVERIFY(Page(program).isVisible());
        QCOMPARE(Offered(program),
                 QStringList({QStringLiteral("Open Old.dbe"), QStringLiteral("Open Jan.ddq")}));
        Press(program, "cmdWelcomeTable");
        QVERIFY(program.frame->QuoteForm());
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Old.dbe"));
        QVERIFY(!Page(program).isVisible());
    }

    void tablesThatAreGoneAreNotOffered() {
        Program program;
        program.Start("Jan.ddq");
        program.Write("VTRMRUset.ini", "\"Jan.ddq\"\r\n\"Gone.ddq\"\r\n\"Feb.ddq\"\r\n\"\"\r\n");
        LoadAllSettings(program.session.AppPath, program.session.settings);
        program.frame->Run("mnuFileClose");
        QCOMPARE(Offered(program),
                 QStringList({QStringLiteral("Open Jan.ddq"), QStringLiteral("Open Feb.ddq")}));
        Press(program, "cmdWelcomeTable", 1);
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Feb.ddq"));
    }

    void aNewTableThatWasNotSavedIsNotOffered() {
        Program program;
        program.Start("Jan.ddq");
        program.frame->Run("mnuFileNewEODQuoteFile");
        DialogHand hand([](QDialog& dialog) { PressButton(dialog, QMessageBox::No); });
        program.frame->Run("mnuFileClose");
        QCOMPARE(Offered(program), QStringList(QStringLiteral("Open Jan.ddq")));
    }

    void updateIsOfferedForQuoteFilesAlone() {
        Program program;
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\r\n");
        program.Start("Jan.ddq");
        program.session.settings.MruSettings.Set(1, Value::OfText("Old.dbe"));
        program.session.settings.MruSettings.Set(2, Value::OfText("Jan.ddq"));
        program.frame->OpenRecentFile(1);
        program.frame->Run("mnuFileClose");
        const auto* const update = Page(program).findChild<QPushButton*>(QStringLiteral("cmdWelcomeUpdate"));
        QVERIFY(update->isVisible());
        QCOMPARE(update->text(), QStringLiteral("&Update Jan.ddq"));
        Press(program, "cmdWelcomeUpdate");
        QCOMPARE(program.session.CurrentFile, std::string("Jan.ddq"));
    }

    void updateOpensTheFirstTableAndFetchesItsQuotes() {
        Program program;
        program.Start("Jan.ddq");
        program.frame->Run("mnuFileClose");
        QCOMPARE(Page(program).findChild<QPushButton*>(QStringLiteral("cmdWelcomeUpdate"))->text(),
                 QStringLiteral("&Update Jan.ddq"));
        QVERIFY(program.web.Addresses.empty());
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        Press(program, "cmdWelcomeUpdate");
        QVERIFY(program.frame->QuoteForm());
        QVERIFY(!program.web.Addresses.empty());
        QVERIFY(program.web.Addresses.front().find("/d/quotes.txt?s=T1") != std::string::npos);
    }

    void theOtherWaysRunTheirCommands() {
        Program program;
        program.Start("Practice.ddq");
        {
            DialogHand hand([](QDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), QStringLiteral("Open"));
                dialog.reject();
            });
            Press(program, "cmdWelcomeOpen");
            QCOMPARE(hand.seen, 1);
        }
        Press(program, "cmdWelcomeHelp");
        bool helpShows = false;
        for (const QWidget* window : QApplication::topLevelWidgets())
            helpShows =
                helpShows || (window->objectName() == QStringLiteral("frmHelp") && window->isVisible());
        QVERIFY(helpShows);
        Press(program, "cmdWelcomeNew");
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("New EOD Quotes.db"));
        QVERIFY(!Page(program).isVisible());
    }

    void theKeyboardGoesOnWithTheFirstTable() {
        Program program;
        program.Start("Jan.ddq");
        program.frame->Run("mnuFileClose");
        program.frame->activateWindow();
        QCoreApplication::processEvents();
        auto* first = Page(program).findChild<QPushButton*>(QStringLiteral("cmdWelcomeTable"));
        QCOMPARE(program.frame->focusWidget(), static_cast<QWidget*>(first));
        QTest::keyClick(first, Qt::Key_Space);
        QCoreApplication::processEvents();
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Jan.ddq"));
    }

    // The words of the page are cut nowhere, on a small frame and with a large font.
    void noWordIsCutWithALargeFont() {
        const QFont usual = QApplication::font();
        QFont large = usual;
        large.setPointSizeF(usual.pointSizeF() * 1.5);
        QApplication::setFont(large);
        {
            Program program;
            program.Start("Jan.ddq");
            program.frame->Run("mnuFileClose");
            program.frame->resize(640, 480);
            QCoreApplication::processEvents();
            for (const QPushButton* button : Page(program).findChildren<QPushButton*>()) {
                QVERIFY2(button->width() >= button->sizeHint().width(), qPrintable(button->text()));
                QVERIFY2(button->height() >= button->fontMetrics().height(), qPrintable(button->text()));
            }
        }
        QApplication::setFont(usual);
    }

    void thePageFollowsTheDesktopsColours() {
        const QPalette usual = QApplication::palette();
        Program program;
        program.Start("Practice.ddq");
        QPalette dark = usual;
        dark.setColor(QPalette::Window, QColor(40, 40, 44));
        dark.setColor(QPalette::WindowText, QColor(230, 230, 230));
        dark.setColor(QPalette::ButtonText, QColor(230, 230, 230));
        QApplication::setPalette(dark);
        QCoreApplication::processEvents();
        const QImage page = Page(program).grab().toImage();
        QVERIFY(page.pixelColor(3, 3).lightness() < 60);
        QApplication::setPalette(usual);
        QCoreApplication::processEvents();
        QVERIFY(Page(program).grab().toImage().pixelColor(3, 3).lightness() > 200);
    }
};

WINDOW_TEST(WelcomeTest)
#include "welcome_test.moc"
