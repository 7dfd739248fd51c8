// The research commands of the main frame, with a browser that takes down what it is asked to open.
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>

#include "research/research_catalogue.h"
#include "selector/windows/frmSelectorSelection.h"
#include "shell/frame/windows/frmForumLogin.h"
#include "shell/user_store.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// Takes down what is handed to the desktop for the user's browser.
class OutsideBrowser : public QObject {
    Q_OBJECT
  public:
    OutsideBrowser() {
        for (const char* scheme : {"http", "https", "file"})
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "Take");
    }
    ~OutsideBrowser() override {
        for (const char* scheme : {"http", "https", "file"})
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }

    QStringList opened;

  public Q_SLOTS:
    void Take(const QUrl& url) { opened.append(url.toString()); }
};

// A frame with a browser of plain widgets.
class BrowsingProgram : public Program {
  public:
    BrowsingProgram() {
        hosts = Hosts::Parse(
            "QuoteHost=http://quote.test\nVendorHost=http://vendor.test\n"
            "NasdaqMainHost=http://main.test\n");
        BrowserOperations browser;
        browser.open = [this](const BrowserStart& start) {
            starts.push_back({start.StartingAddress, start.home, start.search, start.images});
            auto* window = new QWidget;
            window->setWindowTitle(QStringLiteral("Page %1").arg(starts.size()));
            return window;
        };
        const auto note = [this](const char* name) {
            return [this, name](QWidget& window) {
                done.append(QString::fromLatin1(name) + window.windowTitle());
            };
        };
        browser.print = note("print ");
        browser.printPreview = note("preview ");
        browser.savePage = note("save ");
        browser.savePageAs = note("save as ");
        frame = std::make_unique<frmMain>(session, *analysis, person, web, hosts, store, browser);
        WriteNet("Yahoo", "");
    }

    void WriteNet(const std::string& provider, const std::string& broker) {
        Write("VTRNETset.ini", "\"" + provider + "\"\r\n\"" + broker + "\"\r\n\"Yahoo\"\r\n");
    }
    // How many browser windows stand in the frame.
    int Browsers() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        int count = 0;
        for (QMdiSubWindow* child : frame->findChild<QMdiArea*>()->subWindowList())
            count += child->windowTitle().startsWith(QStringLiteral("Page ")) ? 1 : 0;
        return count;
    }

    struct Started {
        std::string address, home, search;
        Path images;
    };
    std::vector<Started> starts;
    QStringList done;
};

}  // namespace

class ResearchCommandsTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void everyEntryOfTheCatalogueOpensItsPageInANewWindow() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        program.frame->QuoteForm()->View()->selectRow(1);
        for (const ResearchPage& page : kResearchPages) {
            const std::size_t before = program.starts.size();
            QAction* entry = program.frame->Commands().Entry(page.command);
            QVERIFY2(entry, std::string(page.command).c_str());
            QVERIFY(entry->isEnabled());
            entry->trigger();
            QCOMPARE(program.starts.size(), before + 1);
            QCOMPARE(program.starts.back().address,
                     AddressOf(page, {program.hosts, program.session.settings}, "T2"));
        }
        QCOMPARE(program.Browsers(), 1);
    }

    void aRightClickedRowsTickerIsTheOneThatIsLookedUp() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        FrozenTableView* view = program.frame->QuoteForm()->View();
        Q_EMIT view->customContextMenuRequested(view->visualRect(view->model()->index(2, 1)).center());
        program.frame->Commands().PopUpMenu().close();
        program.frame->Commands().Entry("mnuPopUpNews")->trigger();
        QCOMPARE(program.starts.back().address, std::string("http://quote.test/q/h?s=T3"));
    }

    void theRowHighlightedAtOpeningIsLookedUpToo() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        FrozenTableView* view = program.frame->QuoteForm()->View();
        Q_EMIT view->customContextMenuRequested(view->visualRect(view->model()->index(0, 1)).center());
        program.frame->Commands().PopUpMenu().close();
        program.frame->Commands().Entry("mnuPopUpNews")->trigger();
        QVERIFY(!program.starts.empty());
        QCOMPARE(program.starts.back().address, std::string("http://quote.test/q/h?s=T1"));
        QCOMPARE(program.Find<QLineEdit>("Text1")->text(), QStringLiteral("T1"));
    }

    void aPageIsThatOfTheSelectedRowWhateverARunHasWorkedOn() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        program.frame->QuoteForm()->View()->selectRow(1);
        program.session.CurrentTicker = "QXTD";
        program.frame->Commands().Entry("mnuPopUpNews")->trigger();
        QVERIFY(!program.starts.empty());
        QCOMPARE(program.starts.back().address, std::string("http://quote.test/q/h?s=T2"));
        QCOMPARE(program.session.CurrentTicker, std::string("T2"));
    }

    void theProviderOfTheSettingsAnswers() {
        BrowsingProgram program;
        program.WriteNet("NASDAQ", "");
        program.Start("Jan.ddq");
        program.frame->Run("mnuViewIPOs");
        QCOMPARE(program.starts.back().address, std::string("http://main.test/reference/ipos.stm"));
        program.frame->Run("mnuPopUpMessageBoard");
        QCOMPARE(program.starts.back().address, std::string("http://quote.test/q/mb?s=T1"));
    }

    void theBrowserStartsWithItsPlaces() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        program.frame->Run("mnuViewMarketOverview");
        QCOMPARE(program.starts.size(), std::size_t{1});
        QCOMPARE(program.starts[0].home, std::string("http://vendor.test"));
        QCOMPARE(program.starts[0].search, std::string("http://quote.test/l"));
        QCOMPARE(program.starts[0].images, program.session.AppPath / "Images");
    }

    void theButtonOpensTheMarketOverview() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        program.Click("Command18");
        QCOMPARE(program.starts.size(), std::size_t{1});
        QCOMPARE(program.starts[0].address, std::string("http://quote.test/mt?u"));
    }

    void anEmptyTickerShowsNothingWhileAMarketCommandOpens() {
        BrowsingProgram program;
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        program.Start("");
        QCOMPARE(program.session.CurrentTicker, std::string());
        const int seen = hand.seen;
        for (const ResearchPage& page : kResearchPages) {
            if (IsTickerPage(page)) program.frame->Run(page.command);
        }
        QCOMPARE(program.starts.size(), std::size_t{0});
        QVERIFY(!program.frame->BrowserForm());
        program.frame->Run("mnuViewSplits");
        QCOMPARE(program.starts.size(), std::size_t{1});
        QVERIFY(program.frame->BrowserForm());
        QCOMPARE(hand.seen, seen);
    }

    void aNewWindowTakesThePlaceOfTheOneBefore() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        program.frame->Run("mnuViewIPOs");
        auto* window = qobject_cast<QMdiSubWindow*>(program.frame->BrowserForm()->parentWidget());
        QVERIFY(window->isMaximized());
        window->showNormal();
        window->setGeometry(30, 40, 500, 400);
        program.frame->Run("mnuViewSplits");
        QCOMPARE(program.Browsers(), 1);
        QCOMPARE(program.frame->BrowserForm()->windowTitle(), QStringLiteral("Page 2"));
        QCOMPARE(program.frame->BrowserForm()->parentWidget()->geometry(), QRect(30, 40, 500, 400));
    }

    void openingAFileClosesTheBrowser() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        program.frame->Run("mnuViewIPOs");
        program.SetRecent("Feb.ddq");
        program.frame->OpenRecentFile(1);
        QVERIFY(!program.frame->BrowserForm());
        QCOMPARE(program.Browsers(), 0);
        QVERIFY(program.frame->QuoteForm());
    }

    void aSelectorRunClosesTheBrowser() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        program.frame->Run("mnuViewIPOs");
        QVERIFY(program.frame->BrowserForm());
        program.frame->Run("mnuEvaluatePickStocks");
        auto* const interval = program.frame->findChild<frmSelectorSelection*>();
        QVERIFY(interval);
        interval->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        QVERIFY(!program.frame->BrowserForm());
        QCOMPARE(program.session.CurrentFile, std::string("Evaluations.dbe"));
    }

    void theFileMenuWorksOnTheBrowserInFront() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        QVERIFY(!program.frame->Commands().Entry("mnuFilePrintPreview")->isEnabled());
        program.frame->Run("mnuViewIPOs");
        for (const char* command : {"mnuFilePrint", "mnuFilePrintPreview", "mnuFileSave", "mnuFileSaveAs"}) {
            QAction* entry = program.frame->Commands().Entry(command);
            QVERIFY2(entry->isEnabled(), command);
            entry->trigger();
        }
        program.Click("Command9");
        QCOMPARE(program.done, (QStringList{QStringLiteral("print Page 1"), QStringLiteral("preview Page 1"),
                                            QStringLiteral("save Page 1"), QStringLiteral("save as Page 1"),
                                            QStringLiteral("preview Page 1")}));
        program.frame->Commands().Entry("mnuFileClose")->trigger();
        QCOMPARE(program.Browsers(), 0);
        QVERIFY(program.frame->QuoteForm());
        QVERIFY(!program.frame->Commands().Entry("mnuFilePrintPreview")->isEnabled());
    }

    void theUserClosesTheBrowserAndTheTableStays() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        program.frame->Run("mnuViewIPOs");
        program.frame->BrowserForm()->parentWidget()->close();
        QCOMPARE(program.Browsers(), 0);
        QVERIFY(!program.frame->BrowserForm());
        QVERIFY(program.frame->QuoteForm());
    }

    void vendorPagesAndTheBrokerageFirmOpenInTheUsersBrowser() {
        BrowsingProgram program;
        OutsideBrowser outside;
        program.WriteNet("Yahoo", "www.broker.test/login");
        program.Start("Jan.ddq");
        for (const char* command :
             {"mnuHelpQuestions", "mnuHelpSupport", "mnuViewBrokererageFirm", "mnuPopUpTrade"}) {
            program.frame->Commands().Entry(command)->trigger();
        }
        QCOMPARE(outside.opened, (QStringList{QStringLiteral("http://vendor.test/questions.htm"),
                                              QStringLiteral("http://vendor.test/feedback.htm"),
                                              QStringLiteral("http://www.broker.test/login"),
                                              QStringLiteral("http://www.broker.test/login")}));
        QCOMPARE(program.starts.size(), std::size_t{0});
    }

    void withoutABrokerageFirmTheUserIsTold() {
        BrowsingProgram program;
        OutsideBrowser outside;
        program.Start("Jan.ddq");
        for (const char* command : {"mnuViewBrokererageFirm", "mnuPopUpTrade"}) {
            DialogHand hand([](QDialog& dialog) {
                auto* box = qobject_cast<QMessageBox*>(&dialog);
                QVERIFY(box);
                QCOMPARE(box->text(),
                         QStringLiteral("First, you must select you broker in Application Settings."));
                PressButton(dialog, QMessageBox::Ok);
            });
            program.frame->Run(command);
            QCOMPARE(hand.seen, 1);
        }
        QCOMPARE(outside.opened, QStringList());
    }

    void aBrokerageAddressThatIsNoneOfTheWebOpensNothing() {
        for (const std::string address : {"file:///etc/passwd", "/etc/passwd", "mailto:a@b.test", "  "}) {
            BrowsingProgram program;
            OutsideBrowser outside;
            program.WriteNet("Yahoo", address);
            program.Start("Jan.ddq");
            program.frame->Run("mnuPopUpTrade");
            QCOMPARE(outside.opened, QStringList());
        }
    }

    void theForumAsksForANameOnceAndOpensInTheBrowser() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        DialogHand hand([](QDialog& dialog) {
            QCOMPARE(dialog.objectName(), QStringLiteral("frmForumLogin"));
            auto* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
            QVERIFY(!ok->isEnabled());
            dialog.findChild<QLineEdit*>(QStringLiteral("Text1"))->setText(QStringLiteral("joe"));
            auto* password = dialog.findChild<QLineEdit*>(QStringLiteral("Text2"));
            QCOMPARE(password->echoMode(), QLineEdit::Password);
            password->setText(QStringLiteral("se&cret"));
            QVERIFY(ok->isEnabled());
            ok->click();
        });
        const std::string address =
            "http://vendor.test/UserForum/BullitenBoard/UFlogin.asp?UN=joe&PW=se%26cret";
        program.frame->Run("mnuHelpUsersForum");
        QCOMPARE(hand.seen, 1);
        QCOMPARE(program.starts.back().address, address);
        program.frame->Run("mnuHelpUsersForum");
        QCOMPARE(hand.seen, 1);
        QCOMPARE(program.starts.size(), std::size_t{2});
        QCOMPARE(LoadForumUser(program.store).password, std::string("se&cret"));
        const auto others = std::filesystem::perms::group_all | std::filesystem::perms::others_all;
        QCOMPARE(std::filesystem::status(program.store).permissions() & others, std::filesystem::perms::none);
    }

    void theForumOpensNothingWhenTheQuestionIsCancelled() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        DialogHand hand([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        program.frame->Run("mnuHelpUsersForum");
        QCOMPARE(hand.seen, 1);
        QCOMPARE(program.starts.size(), std::size_t{0});
        QCOMPARE(LoadForumUser(program.store).name, std::string());
    }

    void aStoreThatCannotBeWrittenIsTold() {
        BrowsingProgram program;
        program.Start("Jan.ddq");
        std::filesystem::create_directories(program.store);
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                told = box->text();
                return PressButton(dialog, QMessageBox::Ok);
            }
            dialog.findChild<QLineEdit*>(QStringLiteral("Text1"))->setText(QStringLiteral("joe"));
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        });
        program.frame->Run("mnuHelpUsersForum");
        QVERIFY(told.startsWith(QStringLiteral("%1: cannot be saved (").arg(ShownPath(program.store))));
        QCOMPARE(program.starts.size(), std::size_t{0});
    }
};

WINDOW_TEST(ResearchCommandsTest)
#include "research_commands_test.moc"
