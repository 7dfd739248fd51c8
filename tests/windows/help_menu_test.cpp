// About, the disclaimer, the check for a new version, and the companion program.
#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextFrame>
#include <QTextImageFormat>
#include <QTextTable>

#include "acquire/version/version_check.h"
#include "acquire/version/windows/frmVersionUpdate.h"
#include "shell/frame/licences.h"
#include "shell/frame/windows/frmDisclaimer.h"
#include "shell/frame/windows/frmHelp.h"
#include "store/windows/frmQuoteGrid.h"
#include "support/source_folder.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

constexpr const char* kUpdatePage = "https://www.brantlow.example/Updates/brantlow/updateme.htm";

void CopyHelp(Program& program) {
    std::filesystem::copy(SourceFolder() / "assets/Help", program.session.AppPath / "Help");
}

frmHelp* OpenHelp() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* help = qobject_cast<frmHelp*>(window); help && help->isVisible()) return help;
    }
    return nullptr;
}

// The program with its help on show.
frmHelp* StartWithHelp(Program& program) {
    CopyHelp(program);
    program.Start("Jan.ddq");
    program.frame->Run("mnuHelpFile");
    return OpenHelp();
}

// Presses the button of this name in the dialog that opens, and takes down the words of message boxes.
class Reader {
  public:
    QStringList texts;
    DialogHand hand{[this](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (!box) return;
        texts << box->text();
        box->buttons().constFirst()->click();
    }};
};

}  // namespace

class HelpMenuTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aboutTellsNameVersionAndPurpose() {
        Program program;
        program.Start("Jan.ddq");
        const QByteArray path = qgetenv("PATH");
        QString facts;
        // A click that opens a further dialog comes from a turn of its own.
        const auto clickLater = [](QWidget* from, const char* name) {
            auto* button = from->findChild<QPushButton*>(QString::fromLatin1(name));
            QTimer::singleShot(0, button, [button] { button->click(); });
        };
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                facts = box->text();
                clickLater(box->parentWidget(), "cmdOK");
                return box->buttons().constFirst()->click();
            }
            QCOMPARE(dialog.windowTitle(), QStringLiteral("About Brantlow"));
            QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblVersion"))->text(),
                     Shown(RunningVersion()));
            QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblDescription"))->text(),
                     QStringLiteral("Brantlow performs Fundemental and Technical analyses of quote data "
                                    "stored in the local data base to generate Stock Picks."));
            QCOMPARE(dialog.findChild<QPushButton*>(QStringLiteral("cmdSysInfo"))->text(),
                     QStringLiteral("&System Info..."));
            qputenv("PATH", "/nowhere");
            clickLater(&dialog, "cmdSysInfo");
        });
        program.frame->Run("mnuHelpAbout");
        qputenv("PATH", path);
        QCOMPARE(hand.seen, 2);
        QVERIFY(facts.contains(QStringLiteral("Kernel: ")));
    }

    // The page of the documents names the same licences.
    void aboutTellsTheLicences() {
        Program program;
        program.Start("Jan.ddq");
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                told = box->text();
                auto* ok = box->parentWidget()->findChild<QPushButton*>(QStringLiteral("cmdOK"));
                QTimer::singleShot(0, ok, [ok] { ok->click(); });
                return box->buttons().constFirst()->click();
            }
            auto* button = dialog.findChild<QPushButton*>(QStringLiteral("cmdLicences"));
            QTimer::singleShot(0, button, [button] { button->click(); });
        });
        program.frame->Run("mnuHelpAbout");
        QCOMPARE(hand.seen, 2);
        QVERIFY(told.startsWith(
            QStringLiteral("Brantlow is free software under the GNU General Public License, version 3")));
        const std::string page = BytesOrEmpty(SourceFolder() / "docs" / "licences.md");
        for (const LicenceRow& row : kLicences) {
            QVERIFY2(told.contains(Name(row.library) + QStringLiteral(": ") + Name(row.licence)),
                     row.library.data());
            QVERIFY2(page.find(row.library) != std::string::npos, row.library.data());
        }
    }

    void helpOpensAtItsContentsAndAtItsIndex() {
        Program program;
        CopyHelp(program);
        program.Start("Jan.ddq");
        program.Click("Command21");
        frmHelp* help = OpenHelp();
        QVERIFY(help);
        QCOMPARE(help->windowTitle(), QStringLiteral("Brantlow Help"));
        auto* page = help->findChild<QTextBrowser*>();
        QCOMPARE(page->source().toString(), QStringLiteral("contents.html"));
        QVERIFY(page->toPlainText().contains(QStringLiteral("First steps")));
        program.frame->Run("mnuHelpIndex");
        QCOMPARE(OpenHelp(), help);
        QCOMPARE(page->source().toString(), QStringLiteral("index.html"));
        help->findChild<QAction*>(QStringLiteral("actBack"))->trigger();
        QCOMPARE(page->source().toString(), QStringLiteral("contents.html"));
        help->findChild<QAction*>(QStringLiteral("actForward"))->trigger();
        QCOMPARE(page->source().toString(), QStringLiteral("index.html"));
        help->findChild<QAction*>(QStringLiteral("actContents"))->trigger();
        auto* find = help->findChild<QLineEdit*>(QStringLiteral("txtFind"));
        find->setText(QStringLiteral("alarms"));
        QTest::keyClick(find, Qt::Key_Return);
        QCOMPARE(page->textCursor().selectedText(), QStringLiteral("alarms"));
        QTest::keyClick(help, Qt::Key_Escape);
        QTRY_VERIFY_WITH_TIMEOUT(!OpenHelp(), kPatienceMs);
    }

    void theFieldsOfTheHelpShowAllTheirWords() {
        Program program;
        frmHelp* help = StartWithHelp(program);
        QVERIFY(help);
        QVERIFY(QTest::qWaitForWindowExposed(help));
        for (const char* name : {"txtFind", "txtSearch"}) {
            const auto* const field = help->findChild<QLineEdit*>(QString::fromLatin1(name));
            QVERIFY2(field->isVisible(), name);
            // Beside the words stand a rim and, once something was typed, a button.
            QVERIFY2(field->width() > field->fontMetrics().horizontalAdvance(field->placeholderText()) + 10,
                     name);
        }
        QTest::keyClick(help, Qt::Key_Escape);
        QTRY_VERIFY_WITH_TIMEOUT(!OpenHelp(), kPatienceMs);
    }

    void allPagesAreSearchedAndWhatIsFoundIsAPageLikeTheOthers() {
        Program program;
        frmHelp* help = StartWithHelp(program);
        QVERIFY(help);
        QVERIFY(QTest::qWaitForWindowActive(help));
        auto* page = help->findChild<QTextBrowser*>();
        auto* search = help->findChild<QLineEdit*>(QStringLiteral("txtSearch"));
        QTest::keyClick(help, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_VERIFY_WITH_TIMEOUT(search->hasFocus(), kPatienceMs);
        QTest::keyClicks(search, QStringLiteral("crosshair & zoom"));
        QTest::keyClick(search, Qt::Key_Return);
        QVERIFY(page->toPlainText().contains(QStringLiteral("Search: crosshair & zoom")));
        QVERIFY(
            page->toPlainText().contains(QStringLiteral("No place of the help holds all of these words.")));
        search->setText(QStringLiteral(" crosshair  zoom "));
        QTest::keyClick(search, Qt::Key_Return);
        QVERIFY(page->toPlainText().contains(QStringLiteral("The chart: Keys")));
        page->setSource(page->source().resolved(QUrl(QStringLiteral("chart.html#keys"))));
        QVERIFY(page->toPlainText().startsWith(QStringLiteral("Contents | Index")));
        QVERIFY(page->toPlainText().contains(QStringLiteral("move the crosshair by a bar")));
        help->findChild<QAction*>(QStringLiteral("actBack"))->trigger();
        QVERIFY(page->toPlainText().contains(QStringLiteral("The chart: Keys")));
        search->setText(QStringLiteral("  "));
        QTest::keyClick(search, Qt::Key_Return);
        QVERIFY(page->toPlainText().contains(QStringLiteral("The chart: Keys")));
    }

    void theHelpGoesWithTheFrame() {
        Program program;
        CopyHelp(program);
        program.Start("Jan.ddq");
        program.frame->Run("mnuHelpFile");
        QVERIFY(OpenHelp());
        program.frame->Run("mnuFileExit");
        QVERIFY(!program.frame->isVisible());
        QVERIFY(!OpenHelp());
    }

    void f1OpensThePageOfTheWindowInFront() {
        Program program;
        CopyHelp(program);
        program.Start("Jan.ddq");
        program.frame->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(program.frame.get(), kPatienceMs));
        QTest::keyClick(program.frame->QuoteForm(), Qt::Key_F1);
        QCOMPARE(OpenHelp()->findChild<QTextBrowser*>()->source().toString(), QStringLiteral("tables.html"));
        OpenHelp()->close();
        QTRY_VERIFY_WITH_TIMEOUT(!OpenHelp(), kPatienceMs);
        QString inDialog;
        DialogHand hand([&](QDialog& dialog) {
            QTest::keyClick(&dialog, Qt::Key_F1);
            if (OpenHelp()) inDialog = OpenHelp()->findChild<QTextBrowser*>()->source().toString();
            dialog.reject();
        });
        program.frame->Run("mnuHelpDisclaimer");
        QCOMPARE(inDialog, QStringLiteral("start.html"));
    }

    // The editor shows names that say little: the page opens where their families are told.
    void f1OpensThePageAtTheWindowsPlace() {
        Program program;
        program.Start("Jan.ddq");
        QString source;
        int place = 0;
        QString top;
        DialogHand hand([&](QDialog& dialog) {
            QTest::keyClick(&dialog, Qt::Key_F1);
            if (!OpenHelp()) return dialog.reject();
            auto* page = OpenHelp()->findChild<QTextBrowser*>();
            source = page->source().toString();
            place = page->verticalScrollBar()->value();
            const QTextBlock atTop = page->cursorForPosition(QPoint(30, 30)).block();
            top = atTop.previous().text() + u'\n' + atTop.text();
            dialog.reject();
        });
        program.frame->Run("mnuSettingsStockSelector");
        QTRY_COMPARE_WITH_TIMEOUT(source, QStringLiteral("selector.html#families"), kPatienceMs);
        QVERIFY(place > 0);
        QVERIFY2(top.contains(QStringLiteral("The families of tests")), qPrintable(top));
    }

    // A folder that an earlier version made keeps its pages; they would tell of that version.
    void thePagesAreThoseOfThisVersion() {
        Program program;
        std::filesystem::create_directories(program.session.AppPath / "Help");
        QVERIFY(!WriteWholeFile(program.session.AppPath / "Help/contents.html", "<p>Of long ago</p>"));
        program.Start("Jan.ddq");
        program.frame->Run("mnuHelpFile");
        QVERIFY(OpenHelp());
        const QString words = OpenHelp()->findChild<QTextBrowser*>()->toPlainText();
        QVERIFY2(words.contains(QStringLiteral("First steps")), qPrintable(words));
    }

    // All pictures of all pages: drawn at the size that the page tells, in a window of the first size.
    void thePicturesOfThePagesAreShown() {
        frmHelp help(SourceFolder() / "assets/Help", nullptr);
        help.setAttribute(Qt::WA_DeleteOnClose, false);
        auto* page = help.findChild<QTextBrowser*>();
        int pictures = 0;
        for (const std::string& file : FileNamesIn(SourceFolder() / "assets/Help")) {
            if (!file.ends_with(".html")) continue;
            help.ShowPage(file);
            QVERIFY(QTest::qWaitForWindowExposed(&help));
            for (QTextBlock block = page->document()->begin(); block.isValid(); block = block.next()) {
                for (auto part = block.begin(); !part.atEnd(); ++part) {
                    const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
                    if (!format.isValid()) continue;
                    ++pictures;
                    const QVariant read =
                        page->document()->resource(QTextDocument::ImageResource, QUrl(format.name()));
                    const QImage image = read.typeId() == QMetaType::QPixmap ? read.value<QPixmap>().toImage()
                                                                             : read.value<QImage>();
                    QVERIFY2(!image.isNull(), qPrintable(Shown(file) + u' ' + format.name()));
                    QCOMPARE(static_cast<int>(format.width()), image.width());
                }
            }
            QVERIFY2(page->horizontalScrollBar()->maximum() == 0, file.c_str());
        }
        QVERIFY(pictures >= 10);
    }

    void tablesHaveLinesAndStandApartFromTheText() {
        frmHelp help(SourceFolder() / "assets/Help", nullptr);
        help.setAttribute(Qt::WA_DeleteOnClose, false);
        auto* browser = help.findChild<QTextBrowser*>();
        int tables = 0;
        for (const char* page :
             {"batch", "chart", "files", "glossary", "selector", "start", "studies", "tables", "values"}) {
            help.ShowPage(std::string(page) + ".html");
            for (const QTextFrame* frame : browser->document()->rootFrame()->childFrames()) {
                if (!qobject_cast<const QTextTable*>(frame)) continue;
                const QTextFrameFormat format = frame->frameFormat();
                QVERIFY2(format.topMargin() >= 8 && format.bottomMargin() >= 8, page);
                QVERIFY2(format.border() >= 1, page);
                ++tables;
            }
        }
        QCOMPARE(tables, 11);
    }

    void aMissingPageIsTold() {
        Program program;
        frmHelp help(program.folder / "nowhere", nullptr);
        help.setAttribute(Qt::WA_DeleteOnClose, false);
        help.ShowPage("contents.html");
        QCOMPARE(help.findChild<QTextBrowser*>()->toPlainText(),
                 Shown("The page " + (program.folder / "nowhere/contents.html").string() + " is not there."));
    }

    void theDisclaimerHasToBeAccepted() {
        Program program;
        program.Start("Jan.ddq");
        QString refusal;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                refusal = box->text();
                auto* form = program.frame->findChild<frmDisclaimer*>();
                form->findChild<QCheckBox*>()->click();
                auto* go = form->findChild<QPushButton*>(QStringLiteral("Command1"));
                QTimer::singleShot(0, go, [go] { go->click(); });
                return PressButton(dialog, QMessageBox::Ok);
            }
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Terms, Conditions, and Disclaimer"));
            QVERIFY(dialog.findChild<QListWidget*>(QStringLiteral("List1"))->count() > 0);
            QCOMPARE(dialog.findChild<QCheckBox*>(QStringLiteral("Check1"))->text(),
                     QStringLiteral("Accept Conditions"));
            auto* go = dialog.findChild<QPushButton*>(QStringLiteral("Command1"));
            QCOMPARE(go->text(), QStringLiteral("Continue"));
            QTimer::singleShot(0, go, [go] { go->click(); });
        });
        program.frame->Run("mnuHelpDisclaimer");
        QCOMPARE(hand.seen, 2);
        QCOMPARE(refusal, QStringLiteral("You must Accept the Terms and Conditions before continuing."));
    }

    void theCompanionProgramIsToldWhereItIsMissing() {
        Program program;
        program.Start("Jan.ddq");
        Reader reader;
        program.frame->Run("mnuFileNewCreateMarketQuoteFile");
        QCOMPARE(
            reader.texts,
            QStringList(Shown("The program that creates market quote files is not installed. It belongs in " +
                              (program.session.AppPath / "BrantlowQuoteFiles").string() + ".")));
    }

    void theCompanionProgramIsStarted() {
        Program program;
        const Path tool = program.session.AppPath / "BrantlowQuoteFiles";
        QVERIFY(!WriteWholeFile(tool, "#!/bin/sh\ntouch started\n"));
        std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
        program.Start("Jan.ddq");
        program.frame->Run("mnuFileNewCreateMarketQuoteFile");
        QTRY_VERIFY_WITH_TIMEOUT(IsRegularFile(program.session.AppPath / "started"), kPatienceMs);
    }

    void noUpdatesAreToldToTheOneWhoAsked() {
        Program program;
        program.web.Answer(kUpdatePage, MemoryWeb::Page(RunningVersion()));
        program.Start("Jan.ddq");
        Reader reader;
        program.Click("Command19");
        QCOMPARE(reader.texts, QStringList(QStringLiteral("No Updates are available.")));
    }

    void aNewVersionIsOfferedAtTheStartWhenTheSettingsSaySo() {
        for (const bool automatic : {false, true}) {
            Program program;
            program.web.Answer(kUpdatePage, MemoryWeb::Page("Version: 99.0.0"));
            std::string settings;
            for (int line = 1; line <= 11; ++line) settings += "\"None\"\r\n";
            settings += automatic ? "\"Automatic Updates\"\r\n" : "\"Manual Updates\"\r\n";
            program.Write("VTRDATAset.ini", settings);
            program.Start("Jan.ddq");
            auto* offer = program.frame->findChild<frmVersionUpdate*>();
            QCOMPARE(offer != nullptr, automatic);
            if (!offer) continue;
            QVERIFY(offer->isVisible());
            QTest::keyClick(offer, Qt::Key_Escape);
            QVERIFY(!offer->isVisible());
        }
    }

    void anUpdateWithoutAGoodSignatureIsRefused() {
        Program program;
        program.web.Answer(kUpdatePage, MemoryWeb::Page("Version: 99.0.0"));
        program.web.Answer("https://www.brantlow.example/Updates/brantlow/Updater",
                           MemoryWeb::Page("program"));
        program.web.Answer("https://www.brantlow.example/Updates/brantlow/Updater.sig",
                           MemoryWeb::Page(std::string(64, 'x')));
        program.Start("Jan.ddq");
        program.frame->Run("mnuHelpBrantlowUpdates");
        auto* offer = program.frame->findChild<frmVersionUpdate*>();
        QVERIFY(offer);
        Reader reader;
        QTest::mouseClick(offer->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
        QCOMPARE(reader.hand.seen, 2);
        QCOMPARE(
            reader.texts,
            QStringList({QStringLiteral("If help file is open, close help file before continuing."),
                         QStringLiteral("The downloaded update does not bear the signature of its maker. It "
                                        "was deleted and nothing was changed.")}));
        QVERIFY(program.frame->isVisible());
        QVERIFY(!std::filesystem::exists(program.session.AppPath / "Updater"));
    }
};

WINDOW_TEST(HelpMenuTest)
#include "help_menu_test.moc"
