// The browser window on pages of the practice market and of a host that means no good.
#include <httplib.h>

#include <QAction>
#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPrinter>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolBar>
#include <QWebEngineCookieStore>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <atomic>
#include <thread>

#include "acquire/url_cache.h"
#include "market/market_data.h"
#include "market/market_hosts.h"
#include "market/market_server.h"
#include "research/research_catalogue.h"
#include "research/windows/browser.h"
#include "research/windows/frmBrowser.h"
#include "research/windows/page_printing.h"
#include "research/windows/web_rules.h"
#include "research/windows/web_sandbox.h"
#include "support/source_folder.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

constexpr int kPatienceMs = 15000;

// The practice market on the loopback.
class Market {
  public:
    Market() {
        if (!server.Bind(0)) qFatal("no port for the market");
        server.Run();
    }
    std::string Address(const std::string& path) const { return server.Address() + path; }

  private:
    MarketData data_ = MarketData::Read(SourceFolder() / "assets" / "practice");
    FixedClock clock_{Date{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{20}}};
    AlertList alerts_;

  public:
    MarketServer server{data_, clock_, alerts_};
};

// A host with pages of the test's own. A page below /held comes only once it is let go.
class Pages {
  public:
    Pages() {
        server_.Get(".*", [this](const httplib::Request& request, httplib::Response& response) {
            ++asked;
            while (request.path.starts_with("/held") && !released)
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
            const auto page = pages_.find(request.path);
            if (page == pages_.end()) {
                response.status = 404;
                return response.set_content("<title>Not here</title>nothing", "text/html");
            }
            if (request.path == "/file.bin") {
                response.set_header("Content-Disposition", "attachment; filename=\"file.bin\"");
                return response.set_content(page->second, "application/octet-stream");
            }
            if (request.path == "/cookie") response.set_header("Set-Cookie", "taste=sweet; Max-Age=1000");
            if (request.path == "/tofile") return response.set_redirect("file:///etc/hostname");
            lastCookie = request.get_header_value("Cookie");
            response.set_content(page->second, "text/html; charset=utf-8");
        });
        port_ = server_.bind_to_any_port("127.0.0.1");
        thread_ = std::thread([this] { server_.listen_after_bind(); });
        while (!server_.is_running()) std::this_thread::yield();
    }
    ~Pages() {
        released = true;
        server_.stop();
        thread_.join();
    }
    // Pages are put in before a browser asks for them.
    void Put(const std::string& path, const std::string& html) { pages_[path] = html; }
    std::string Address(const std::string& path) const {
        return "http://127.0.0.1:" + std::to_string(port_) + path;
    }

    std::atomic<int> asked = 0;
    std::atomic<bool> released = false;
    std::string lastCookie;

  private:
    httplib::Server server_;
    std::map<std::string, std::string> pages_;
    int port_ = 0;
    std::thread thread_;
};

// One browser window outside any frame.
class Window {
  public:
    explicit Window(const std::string& address, const std::string& home = "",
                    const std::string& search = "") {
        std::filesystem::create_directories(folder / "Images");
        form.reset(qobject_cast<frmBrowser*>(
            operations.open({address, home, search, folder / "Images", person,
                             [this](const std::string& text) { notices.push_back(text); }})));
        form->resize(900, 600);
        form->show();
    }

    QWebEngineView& View() { return *form->findChild<QWebEngineView*>(QStringLiteral("brwWebBrowser")); }
    QComboBox& Addresses() { return *form->findChild<QComboBox*>(QStringLiteral("cboAddress")); }
    QStringList AddressList() {
        QStringList list;
        for (int i = 0; i < Addresses().count(); ++i) list.append(Addresses().itemText(i));
        return list;
    }
    QTimer& Timer() { return *form->findChild<QTimer*>(QStringLiteral("timTimer")); }
    // Types an address and presses Enter.
    void Type(const std::string& address) {
        QLineEdit* line = Addresses().lineEdit();
        line->setText(QString::fromStdString(address));
        QTest::keyClick(line, Qt::Key_Return);
    }
    void Press(const char* key) { form->findChild<QAction*>(QString::fromLatin1(key))->trigger(); }
    QString Caption() { return form->windowTitle(); }
    // Waits until the caption is this one and no page is on its way.
    bool Shows(const QString& caption) {
        return QTest::qWaitFor([&] { return !form->Busy() && Caption() == caption; }, kPatienceMs);
    }
    bool IsAt(const std::string& address) {
        return QTest::qWaitFor(
            [&] { return !form->Busy() && form->LocationURL() == QString::fromStdString(address); },
            kPatienceMs);
    }
    // What a script in the page gives.
    QVariant Script(const QString& script) {
        QVariant result;
        bool done = false;
        View().page()->runJavaScript(script, [&](const QVariant& value) {
            result = value;
            done = true;
        });
        if (!QTest::qWaitFor([&] { return done; }, kPatienceMs)) qWarning("the script did not end");
        return result;
    }
    QString Text() { return Script(QStringLiteral("document.body.innerText")).toString(); }

    TempFolder folder;
    WindowPerson person;
    std::vector<std::string> notices;
    Browser browser;
    BrowserOperations operations = browser.Operations();
    std::unique_ptr<frmBrowser> form;
};

}  // namespace

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
        Pages pages;
        pages.Put("/held", "<title>Slow page</title>late");
        Window window(pages.Address("/held"));
        QVERIFY(
            QTest::qWaitFor([&] { return window.Caption() == QStringLiteral("Working..."); }, kPatienceMs));
        QVERIFY(window.Timer().isActive());
        pages.released = true;
        QVERIFY(window.Shows(QStringLiteral("Slow page")));
        QVERIFY(QTest::qWaitFor([&] { return !window.Timer().isActive(); }, kPatienceMs));
        QCOMPARE(window.Caption(), QStringLiteral("Slow page"));
    }

    void aPageWithoutATitleIsCalledByItsAddress() {
        Pages pages;
        pages.Put("/bare", "nothing but text");
        Window window(pages.Address("/bare"));
        QVERIFY(window.IsAt(pages.Address("/bare")));
        QVERIFY(
            QTest::qWaitFor([&] { return window.Caption().contains(QStringLiteral("/bare")); }, kPatienceMs));
    }

    void stopEndsTheLoadingAndBringsBackTheNameOfThePage() {
        Pages pages;
        pages.Put("/first", "<title>First</title>one");
        pages.Put("/held", "<title>Second</title>two");
        Window window(pages.Address("/first"));
        QVERIFY(window.Shows(QStringLiteral("First")));
        window.Type(pages.Address("/held"));
        QVERIFY(
            QTest::qWaitFor([&] { return window.Caption() == QStringLiteral("Working..."); }, kPatienceMs));
        window.Press("Stop");
        QCOMPARE(window.Caption(), QStringLiteral("First"));
        QVERIFY(!window.form->Busy());
        QVERIFY(!window.Timer().isActive());
    }

    void theButtonsGoBackForwardHomeAndSearch() {
        Pages pages;
        for (const std::string name : {"one", "two", "home", "search"})
            pages.Put("/" + name, "<title>" + name + "</title>" + name);
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
        Pages pages;
        pages.Put("/one", "<title>one</title>");
        Window window(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        const int before = pages.asked;
        window.Press("Refresh");
        QVERIFY(QTest::qWaitFor([&] { return pages.asked > before; }, kPatienceMs));
        QVERIFY(window.Shows(QStringLiteral("one")));
        QCOMPARE(window.AddressList().size(), 1);
    }

    void backAtTheStartOfTheHistoryIsIgnored() {
        Pages pages;
        pages.Put("/one", "<title>one</title>");
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
        Pages pages;
        pages.Put("/one", "<title>one</title>");
        pages.Put("/two", "<title>two</title>");
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
        Pages pages;
        pages.Put("/one", "<title>one</title>");
        pages.Put("/two", "<title>two</title>");
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
        Pages pages;
        pages.Put("/one", "<title>one</title>");
        Window window(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        const int before = pages.asked;
        window.Type("   ");
        QVERIFY(!window.form->Busy());
        QCOMPARE(pages.asked.load(), before);
    }

    void anAddressWithoutASchemeIsOneOfTheWeb() {
        QCOMPARE(PageUrl(QStringLiteral("  www.broker.test/a b ")),
                 QUrl(QStringLiteral("http://www.broker.test/a%20b")));
        QCOMPARE(ShownUrl(PageUrl(QStringLiteral("http://vendor.test"))),
                 QStringLiteral("http://vendor.test/"));
        QCOMPARE(ShownUrl(PageUrl(QStringLiteral("http://quote.test/q?s=BRK.B&d=t"))),
                 QStringLiteral("http://quote.test/q?s=BRK.B&d=t"));
        QVERIFY(
            !PageUrl(QStringLiteral("http://quote.test/q?s=A\r\nB")).toString().contains(QLatin1Char('\n')));
        QVERIFY(IsWebPage(PageUrl(QStringLiteral("HTTPS://X.test"))));
    }

    void onlyAddressesOfTheWebAreOpened() {
        for (const char* address :
             {"file:///etc/hostname", "/etc/hostname", "javascript:document.title='x'", "chrome://version",
              "chrome://gpu", "view-source:http://127.0.0.1/", "data:text/html,<title>x</title>",
              "mailto:a@b.test", "qrc:/icons/back.svg", "ftp://127.0.0.1/", "about:version", "http:///nohost",
              "blob:http://x/1", "http:", "", "://"}) {
            QVERIFY2(!IsWebPage(PageUrl(QString::fromLatin1(address))), address);
        }
        for (const char* address :
             {"http://a.test/x", "https://a.test", "a.test/x?y=1", "127.0.0.1:8080/q", "HTTP://A.test"}) {
            QVERIFY2(IsWebPage(PageUrl(QString::fromLatin1(address))), address);
        }
    }

    void anyOtherAddressGetsAPageThatSaysSo() {
        Pages pages;
        pages.Put("/one", "<title>one</title>");
        Window window(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        for (const std::string address : {"file:///etc/hostname", "javascript:document.title='x'"}) {
            window.Type(address);
            QVERIFY2(window.Shows(QStringLiteral("Page not shown")), address.c_str());
            QVERIFY2(QTest::qWaitFor([&] { return window.Text().contains(QString::fromStdString(address)); },
                                     kPatienceMs),
                     address.c_str());
            QVERIFY(window.Text().contains(QStringLiteral("This page cannot be shown")));
            QCOMPARE(window.Addresses().currentText(), QString::fromStdString(address));
        }
        QCOMPARE(window.AddressList(), QStringList{QString::fromStdString(pages.Address("/one"))});
    }

    void anAddressIsShownAsTextInARefusal() {
        Pages pages;
        pages.Put("/one", "<title>one</title>");
        Window window(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        window.Type("x:<script>document.title='taken'</script>%1%2");
        QVERIFY(window.Shows(QStringLiteral("Page not shown")));
        QVERIFY(window.Text().contains(QStringLiteral("x:<script>document.title='taken'</script>%1%2")));
    }

    void linksToOtherSchemesAreNotFollowed() {
        Pages pages;
        pages.Put("/links",
                  "<title>links</title><a id=file href='file:///etc/hostname'>f</a>"
                  "<a id=mail href='mailto:a@b.test'>m</a><a id=chrome href='chrome://version'>c</a>"
                  "<a id=data href='data:text/html,<title>x</title>'>d</a><a id=source "
                  "href='view-source:http://127.0.0.1/'>v</a><a id=redirect href='/tofile'>r</a>");
        pages.Put("/tofile", "");
        Window window(pages.Address("/links"));
        QVERIFY(window.Shows(QStringLiteral("links")));
        for (const char* id : {"file", "mail", "chrome", "data", "source"}) {
            window.Script(QStringLiteral("document.getElementById('%1').click()").arg(QLatin1String(id)));
            QVERIFY2(window.IsAt(pages.Address("/links")), id);
            QCOMPARE(window.Script(QStringLiteral("document.title")).toString(), QStringLiteral("links"));
        }
        window.Script(QStringLiteral("document.getElementById('redirect').click()"));
        QVERIFY(QTest::qWaitFor(
            [&] {
                return window.form->LocationURL() != QString::fromStdString(pages.Address("/links")) ||
                       !window.form->Busy();
            },
            kPatienceMs));
        QVERIFY(!window.form->LocationURL().startsWith(QStringLiteral("file")));
    }

    void noPageReachesAFile() {
        TempFolder folder;
        QVERIFY(!WriteWholeFile(folder / "secret.html", "<title>secret</title>secret"));
        const std::string url = "file://" + (folder / "secret.html").string();
        Pages pages;
        pages.Put("/hostile", "<title>hostile</title><iframe id=frame src='" + url + "'></iframe>" +
                                  "<img id=image src='" + url + "'><script>var got='waiting';" + "fetch('" +
                                  url + "').then(r=>r.text()).then(t=>got=t,e=>got='refused');" +
                                  "</script>");
        Window window(pages.Address("/hostile"));
        QVERIFY(window.Shows(QStringLiteral("hostile")));
        QVERIFY(QTest::qWaitFor(
            [&] { return window.Script(QStringLiteral("got")).toString() == QStringLiteral("refused"); },
            kPatienceMs));
        const QString inFrame = window
                                    .Script(QStringLiteral("(function(){try{return frames[0].document.body."
                                                           "innerText}catch(e){return 'closed'}})()"))
                                    .toString();
        QVERIFY2(!inFrame.contains(QStringLiteral("secret")), qPrintable(inFrame));
        QVERIFY(window.Script(QStringLiteral("document.getElementById('image').naturalWidth")).toInt() == 0);
    }

    void aChosenFileIsNotHandedOut() {
        Pages pages;
        pages.Put("/upload",
                  "<title>upload</title><body style='margin:0'><input id=file type=file "
                  "style='width:300px;height:200px'>");
        Window window(pages.Address("/upload"));
        QVERIFY(window.Shows(QStringLiteral("upload")));
        int dialogs = 0;
        DialogHand hand([&](QDialog& dialog) {
            ++dialogs;
            dialog.reject();
        });
        QVERIFY(QTest::qWaitFor([&] { return window.View().focusProxy() != nullptr; }, kPatienceMs));
        const QSignalSpy refused(window.View().page(), SIGNAL(FileRefused()));
        QTest::mouseClick(window.View().focusProxy(), Qt::LeftButton, {}, QPoint(60, 100));
        QVERIFY(QTest::qWaitFor([&] { return refused.count() == 1; }, kPatienceMs));
        QCOMPARE(window.Script(QStringLiteral("document.getElementById('file').files.length")).toInt(), 0);
        QCOMPARE(dialogs, 0);
    }

    void aLinkForAnotherWindowOpensInThisOne() {
        Pages pages;
        pages.Put("/links",
                  "<title>links</title><body style='margin:0'><a href='/two' target=_blank "
                  "style='display:block;width:300px;height:200px'>x</a>");
        pages.Put("/two", "<title>two</title>");
        Window window(pages.Address("/links"));
        QVERIFY(window.Shows(QStringLiteral("links")));
        QVERIFY(QTest::qWaitFor([&] { return window.View().focusProxy() != nullptr; }, kPatienceMs));
        QTest::mouseClick(window.View().focusProxy(), Qt::LeftButton, {}, QPoint(60, 100));
        QVERIFY(window.Shows(QStringLiteral("two")));
        QCOMPARE(QApplication::topLevelWidgets().count(window.form.get()), 1);
    }

    void aScriptOpensNoWindow() {
        Pages pages;
        pages.Put("/pop", "<title>pop</title><script>var opened=window.open('/two');</script>");
        pages.Put("/two", "<title>two</title>");
        Window window(pages.Address("/pop"));
        QVERIFY(window.Shows(QStringLiteral("pop")));
        QVERIFY(window.Script(QStringLiteral("opened===null")).toBool());
        QVERIFY(window.IsAt(pages.Address("/pop")));
    }

    void aPageThatCannotBeHadShowsItsAddressAndTheReason() {
        std::string gone;
        {
            Pages pages;
            gone = pages.Address("/x");
        }
        Window window(gone);
        QVERIFY(window.IsAt(gone));
        QVERIFY(QTest::qWaitFor(
            [&] { return window.Text().contains(QStringLiteral("ERR_CONNECTION_REFUSED")); }, kPatienceMs));
        QVERIFY(window.Text().contains(QStringLiteral("127.0.0.1")));
        window.form->SavePage();
        QCOMPARE(FileNamesIn(window.folder / "Images").size(), std::size_t{0});
    }

    void savingWritesThePagesSourceUnderItsTitle() {
        Pages pages;
        pages.Put("/page", "<title>../News: IBM</title><p>caf\xc3\xa9</p>");
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("../News: IBM")));
        window.form->SavePage();
        const Path file = window.folder / "Images" / "News IBM.htm";
        QVERIFY(QTest::qWaitFor([&] { return IsRegularFile(file); }, kPatienceMs));
        const std::string source = BytesOrEmpty(file);
        QVERIFY(source.starts_with("\xEF\xBB\xBF<"));
        QVERIFY(source.find("<p>caf\xc3\xa9</p>") != std::string::npos);
        QCOMPARE(FileNamesIn(window.folder / "Images").size(), std::size_t{1});
        QVERIFY(QTest::qWaitFor([&] { return !window.notices.empty(); }, kPatienceMs));
        QCOMPARE(window.notices, std::vector<std::string>{"Saved as " + file.string()});
    }

    void savingAgainReplacesTheFile() {
        Pages pages;
        pages.Put("/page", "<title>News</title><p>new</p>");
        Window window(pages.Address("/page"));
        const Path file = window.folder / "Images" / "News.htm";
        QVERIFY(!WriteWholeFile(file, "old"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        window.form->SavePage();
        QVERIFY(QTest::qWaitFor([&] { return BytesOrEmpty(file).find("<p>new</p>") != std::string::npos; },
                                kPatienceMs));
    }

    void aPageThatIsStillLoadingIsNotSaved() {
        Pages pages;
        pages.Put("/held", "<title>Slow</title>late");
        Window window(pages.Address("/held"));
        QVERIFY(QTest::qWaitFor([&] { return window.form->Busy(); }, kPatienceMs));
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        window.form->SavePage();
        window.form->SavePageAs();
        pages.released = true;
        QVERIFY(window.Shows(QStringLiteral("Slow")));
        QCOMPARE(hand.seen, 0);
        QCOMPARE(FileNamesIn(window.folder / "Images").size(), std::size_t{0});
    }

    void aFolderThatIsMissingIsTold() {
        Pages pages;
        pages.Put("/page", "<title>News</title>");
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        std::filesystem::remove_all(window.folder / "Images");
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            told = qobject_cast<QMessageBox*>(&dialog)->text();
            PressButton(dialog, QMessageBox::Ok);
        });
        window.form->SavePage();
        QVERIFY(QTest::qWaitFor([&] { return !told.isEmpty(); }, kPatienceMs));
        QVERIFY(told.startsWith(ShownPath(window.folder / "Images" / "News.htm") +
                                QStringLiteral(": cannot be saved (")));
    }

    void saveAsAsksForTheNameAndAddsTheEnding() {
        Pages pages;
        pages.Put("/page", "<title>News v1.2</title><p>text</p>");
        for (const char* name : {"mine", "mine.htm", "News v1.2"}) {
            Window window(pages.Address("/page"));
            QVERIFY(window.Shows(QStringLiteral("News v1.2")));
            DialogHand hand([&](QDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), QStringLiteral("Save As"));
                auto* files = qobject_cast<QFileDialog*>(&dialog);
                QVERIFY(files);
                QCOMPARE(files->nameFilters(), QStringList{QStringLiteral("All Files (*.htm)")});
                QCOMPARE(files->directory().path(), ShownPath(window.folder / "Images"));
                QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                         QStringLiteral("News v1.2"));
                EnterFile(dialog, window.folder / "Images" / name);
            });
            window.form->SavePageAs();
            QCOMPARE(hand.seen, 1);
            const std::string expected = std::string(name) == "mine.htm" ? name : std::string(name) + ".htm";
            const Path file = window.folder / "Images" / expected;
            QVERIFY2(QTest::qWaitFor([&] { return IsRegularFile(file); }, kPatienceMs), name);
            QVERIFY(BytesOrEmpty(file).find("<p>text</p>") != std::string::npos);
        }
    }

    void aCancelledSaveAsWritesNothing() {
        Pages pages;
        pages.Put("/page", "<title>News</title>");
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        window.form->SavePageAs();
        QCOMPARE(hand.seen, 1);
        QCOMPARE(FileNamesIn(window.folder / "Images").size(), std::size_t{0});
    }

    void aPageIsPrinted() {
        Market market;
        Window window(market.Address("/q?s=NFLX&d=t"));
        QVERIFY(window.IsAt(market.Address("/q?s=NFLX&d=t")));
        QPrinter printer;
        const Path file = window.folder / "page.pdf";
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(ShownPath(file));
        QVERIFY(PrintPageTo(window.View(), printer));
        QVERIFY(BytesOrEmpty(file).starts_with("%PDF"));
    }

    void printAsksForThePrinterAndPreviewShowsThePages() {
        Pages pages;
        pages.Put("/page", "<title>News</title>text");
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        QStringList dialogs;
        DialogHand hand([&](QDialog& dialog) {
            dialogs.append(QString::fromLatin1(dialog.metaObject()->className()));
            QTimer::singleShot(0, &dialog, &QDialog::reject);
        });
        window.operations.print(*window.form);
        window.operations.printPreview(*window.form);
        QCOMPARE(dialogs,
                 (QStringList{QStringLiteral("QPrintDialog"), QStringLiteral("QPrintPreviewDialog")}));
        QVERIFY(window.Shows(QStringLiteral("News")));
    }

    void aDownloadAsksWhereItGoes() {
        Pages pages;
        pages.Put("/page", "<title>News</title>");
        pages.Put("/file.bin", "some bytes");
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        const Path file = window.folder / "got.bin";
        DialogHand hand([&](QDialog& dialog) {
            QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                     QStringLiteral("file.bin"));
            EnterFile(dialog, file);
        });
        window.Type(pages.Address("/file.bin"));
        QVERIFY(QTest::qWaitFor([&] { return BytesOrEmpty(file) == "some bytes"; }, kPatienceMs));
        QCOMPARE(hand.seen, 1);
    }

    void aCancelledDownloadFetchesNothing() {
        Pages pages;
        pages.Put("/page", "<title>News</title>");
        pages.Put("/file.bin", "some bytes");
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        window.Type(pages.Address("/file.bin"));
        QVERIFY(QTest::qWaitFor([&] { return hand.seen == 1; }, kPatienceMs));
        QVERIFY(window.Shows(QStringLiteral("News")));
    }

    void purgingReachesCacheAndCookies() {
        Pages pages;
        pages.Put("/cookie", "<title>cookie</title>");
        pages.Put("/look", "<title>look</title>");
        Window window("");
        window.Type(pages.Address("/cookie"));
        QVERIFY(window.Shows(QStringLiteral("cookie")));
        window.Type(pages.Address("/look"));
        QVERIFY(window.Shows(QStringLiteral("look")));
        QCOMPARE(pages.lastCookie, std::string("taste=sweet"));
        QCOMPARE(GetUrlCacheEntries(*window.operations.cache, kNormalCacheEntry).size(), std::size_t{1});
        QCOMPARE(GetUrlCacheEntries(*window.operations.cache, kCookieCacheEntry).size(), std::size_t{1});
        PurgeUrlCache(*window.operations.cache);
        // The engine forgets in a moment of its own.
        bool forgotten = false;
        for (int i = 0; i < 50 && !forgotten; ++i) {
            const int before = pages.asked;
            window.Press("Refresh");
            QVERIFY(
                QTest::qWaitFor([&] { return pages.asked > before && !window.form->Busy(); }, kPatienceMs));
            forgotten = pages.lastCookie.empty();
        }
        QVERIFY(forgotten);
    }

    void beforeTheFirstWindowThereIsNothingToPurge() {
        Browser browser;
        const BrowserOperations operations = browser.Operations();
        QCOMPARE(operations.cache->Entries().size(), std::size_t{0});
        QVERIFY(!operations.cache->Delete("pages:"));
        PurgeUrlCache(*operations.cache);
    }

    void operationsLeaveOtherWindowsAlone() {
        Browser browser;
        const BrowserOperations operations = browser.Operations();
        QWidget other;
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        for (const auto& operation :
             {operations.print, operations.printPreview, operations.savePage, operations.savePageAs})
            operation(other);
        QCOMPARE(hand.seen, 0);
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
        program.session.CurrentTicker = "NFLX";
        for (const char* command : {"mnuPopUpNews", "mnuViewMarketOverview"}) {
            program.frame->Run(command);
            auto* form = qobject_cast<frmBrowser*>(program.frame->BrowserForm());
            QVERIFY(form);
            const QString address = QString::fromStdString(
                AddressOf(*FindResearchPage(command), {program.hosts, program.session.settings}, "NFLX"));
            QVERIFY2(
                QTest::qWaitFor([&] { return !form->Busy() && form->LocationURL() == address; }, kPatienceMs),
                qPrintable(address));
        }
        program.frame->close();
        QVERIFY(!program.frame->BrowserForm());
    }

    void theSandboxIsGivenUpOnlyWhereItCannotBeHad() {
        const QByteArray before = qgetenv("QTWEBENGINE_DISABLE_SANDBOX");
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "0");
        PrepareWebSandbox();
        QCOMPARE(qgetenv("QTWEBENGINE_DISABLE_SANDBOX"), QByteArray("0"));
        qunsetenv("QTWEBENGINE_DISABLE_SANDBOX");
        PrepareWebSandbox();
        if (geteuid() == 0) QCOMPARE(qgetenv("QTWEBENGINE_DISABLE_SANDBOX"), QByteArray("1"));
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", before);
    }
};

QTEST_MAIN(BrowserTest)
#include "browser_test.moc"
