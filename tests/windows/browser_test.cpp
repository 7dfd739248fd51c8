// The browser window: its caption, its buttons and its address list, and the research commands that open it.
#include <QAction>
#include <QToolBar>

#include "browser_fixture.h"
#include "market/market_hosts.h"
#include "research/research_catalogue.h"

using namespace brantlow;

class BrowserTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void opensItsStartingAddressAndTakesThePagesTitleForItsCaption() {
        Market market;
        Window window(market.Address("/q?s=NFLX&d=t"));
        QCOMPARE(window.Addresses().currentText(), QString::fromStdString(market.Address("/q?s=NFLX&d=t")));
        QVERIFY(window.Shows(QStringLiteral("NFLX - Practice market")));
        QVERIFY(window.Text().contains(QStringLiteral("Netflix")));
        QCOMPARE(window.AddressList(), QStringList{QString::fromStdString(market.Address("/q?s=NFLX&d=t"))});
    }

    void withoutAStartingAddressItIsEmpty() {
        Window window("");
        QCOMPARE(window.Caption(), QStringLiteral("Brantlow Web Browser"));
        QCOMPARE(window.AddressList(), QStringList());
        QVERIFY(!window.form->Busy());
        QVERIFY(!window.Timer().isActive());
    }

    void theCaptionIsWorkingWhileAPageIsOnItsWayAndThenItsTitle() {
        Pages pages({{"/held", "<title>Slow page</title>late"}});
        Window window(pages.Address("/held"));
        QVERIFY(WaitFor([&] { return window.Caption() == QStringLiteral("Working..."); }, kPatienceMs));
        QVERIFY(window.Timer().isActive());
        pages.released = true;
        QVERIFY(window.Shows(QStringLiteral("Slow page")));
        QVERIFY(WaitFor([&] { return !window.Timer().isActive(); }, kPatienceMs));
        QCOMPARE(window.Caption(), QStringLiteral("Slow page"));
    }

    void aPageWithoutATitleIsCalledByItsAddress() {
        Pages pages({{"/bare", "nothing but text"}});
        Window window(pages.Address("/bare"));
        QVERIFY(window.IsAt(pages.Address("/bare")));
        QVERIFY(WaitFor([&] { return window.Caption().contains(QStringLiteral("/bare")); }, kPatienceMs));
    }

    void stopEndsTheLoadingAndBringsBackTheNameOfThePage() {
        Pages pages({{"/first", "<title>First</title>one"}, {"/held", "<title>Second</title>two"}});
        Window window(pages.Address("/first"));
        QVERIFY(window.Shows(QStringLiteral("First")));
        window.Type(pages.Address("/held"));
        QVERIFY(WaitFor([&] { return window.Caption() == QStringLiteral("Working..."); }, kPatienceMs));
        window.Press("Stop");
        QCOMPARE(window.Caption(), QStringLiteral("First"));
        QVERIFY(!window.form->Busy());
        QVERIFY(!window.Timer().isActive());
    }

    void theButtonsGoBackForwardHomeAndSearch() {
        Pages pages({{"/one", "<title>one</title>"},
                     {"/two", "<title>two</title>"},
                     {"/home", "<title>home</title>"},
                     {"/search", "<title>search</title>"}});
        Window window(pages.Address("/one"), pages.Address("/home"), pages.Address("/search"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        window.Type(pages.Address("/two"));
        QVERIFY(window.Shows(QStringLiteral("two")));
        window.Press("Back");
        QVERIFY(window.Shows(QStringLiteral("one")));
        window.Press("Forward");
        QVERIFY(window.Shows(QStringLiteral("two")));
        window.Press("Home");
        QVERIFY(window.Shows(QStringLiteral("home")));
        window.Press("Search");
        QVERIFY(window.Shows(QStringLiteral("search")));
        QCOMPARE(window.AddressList().size(), 4);
    }

    void refreshAsksForThePageAgain() {
        Pages pages({{"/one", "<title>one</title>"}});
        Window window(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        const int before = pages.asked;
        window.Press("Refresh");
        QVERIFY(WaitFor([&] { return pages.asked > before; }, kPatienceMs));
        QVERIFY(window.Shows(QStringLiteral("one")));
        QCOMPARE(window.AddressList().size(), 1);
    }

    void backAtTheStartOfTheHistoryIsIgnored() {
        Pages pages({{"/one", "<title>one</title>"}});
        Window window(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        window.Press("Back");
        window.Press("Forward");
        QVERIFY(window.Shows(QStringLiteral("one")));
        QVERIFY(window.IsAt(pages.Address("/one")));
    }

    void theToolbarHoldsItsButtonsInOrderWithPictureAndTip() {
        Window window("");
        QStringList keys;
        for (const QAction* button :
             window.form->findChild<QToolBar*>(QStringLiteral("tbToolBar"))->actions()) {
            keys.append(button->objectName());
            QVERIFY(!button->icon().isNull());
            QVERIFY(!button->icon().pixmap(16, 16).isNull());
            QVERIFY(!button->toolTip().isEmpty());
        }
        QCOMPARE(keys,
                 (QStringList{QStringLiteral("Back"), QStringLiteral("Forward"), QStringLiteral("Refresh"),
                              QStringLiteral("Home"), QStringLiteral("Search"), QStringLiteral("Stop")}));
    }

    void enterInTheAddressBoxGoesThereOnceAndRevisitingAddsNoSecondEntry() {
        Pages pages({{"/one", "<title>one</title>"}, {"/two", "<title>two</title>"}});
        Window window(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        window.Type(pages.Address("/two"));
        QVERIFY(window.Shows(QStringLiteral("two")));
        const int before = pages.asked;
        window.Type(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        window.Press("Back");
        QVERIFY(window.Shows(QStringLiteral("two")));
        QVERIFY(pages.asked <= before + 2);
        QCOMPARE(window.AddressList(), (QStringList{QString::fromStdString(pages.Address("/one")),
                                                    QString::fromStdString(pages.Address("/two"))}));
        QCOMPARE(window.Addresses().currentText(), QString::fromStdString(pages.Address("/two")));
    }

    void aClickInTheListGoesThere() {
        Pages pages({{"/one", "<title>one</title>"}, {"/two", "<title>two</title>"}});
        Window window(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        window.Type(pages.Address("/two"));
        QVERIFY(window.Shows(QStringLiteral("two")));
        window.Addresses().setCurrentIndex(0);
        Q_EMIT window.Addresses().activated(0);
        QVERIFY(window.Shows(QStringLiteral("one")));
        QCOMPARE(window.AddressList().size(), 2);
    }

    void anEmptyAddressGoesNowhere() {
        Pages pages({{"/one", "<title>one</title>"}});
        Window window(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        const int before = pages.asked;
        window.Type("   ");
        QVERIFY(!window.form->Busy());
        QCOMPARE(pages.asked.load(), before);
    }

    void aPageThatCannotBeHadShowsItsAddressAndTheReason() {
        std::string gone;
        {
            Pages pages;
            gone = pages.Address("/x");
        }
        Window window(gone);
        QVERIFY(window.IsAt(gone));
        QVERIFY(WaitFor([&] { return window.Text().contains(QStringLiteral("ERR_CONNECTION_REFUSED")); },
                        kPatienceMs));
        QVERIFY(window.Text().contains(QStringLiteral("127.0.0.1")));
        window.form->SavePage();
        QCOMPARE(FileNamesIn(window.folder / "Images").size(), std::size_t{0});
    }

    void theFramesResearchCommandsShowPagesOfThePracticeMarket() {
        Market market;
        Browser browser;
        Program program;
        program.hosts = Hosts::Parse(MarketHostsText(market.Address("")));
        program.Write("VTRNETset.ini", "\"Yahoo\"\r\n\"\"\r\n\"Yahoo\"\r\n");
        program.frame =
            std::make_unique<frmMain>(program.session, *program.analysis, program.person, program.web,
                                      program.hosts, program.store, browser.Operations());
        program.Start("Jan.ddq");
        program.Find<QLineEdit>("Text1")->setText(QStringLiteral("NFLX"));
        for (const char* command : {"mnuPopUpNews", "mnuViewMarketOverview"}) {
            program.frame->Run(command);
            auto* form = qobject_cast<frmBrowser*>(program.frame->BrowserForm());
            QVERIFY(form);
            const QString address = QString::fromStdString(
                AddressOf(*FindResearchPage(command), {program.hosts, program.session.settings}, "NFLX"));
            QVERIFY2(WaitFor([&] { return !form->Busy() && form->LocationURL() == address; }, kPatienceMs),
                     qPrintable(address));
        }
        program.frame->close();
        QVERIFY(!program.frame->BrowserForm());
    }
};

WINDOW_TEST(BrowserTest)
#include "browser_test.moc"
