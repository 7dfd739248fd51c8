// What pages may do in the browser window, and what they leave behind.
#include <QDeadlineTimer>
#include <QSignalSpy>

#include "acquire/web/url_cache.h"
#include "browser_fixture.h"
#include "research/windows/web_rules.h"
#include "research/windows/web_sandbox.h"

using namespace brantlow;

class BrowserRulesTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
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
        Pages pages({{"/one", "<title>one</title>"}});
        Window window(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        for (const std::string address : {"file:///etc/hostname", "javascript:document.title='x'"}) {
            window.Type(address);
            QVERIFY2(window.Shows(QStringLiteral("Page not shown")), address.c_str());
            QVERIFY2(
                WaitFor([&] { return window.Text().contains(QString::fromStdString(address)); }, kPatienceMs),
                address.c_str());
            QVERIFY(window.Text().contains(QStringLiteral("This page cannot be shown")));
            QCOMPARE(window.Addresses().currentText(), QString::fromStdString(address));
        }
        QCOMPARE(window.AddressList(), QStringList{QString::fromStdString(pages.Address("/one"))});
    }

    void anAddressIsShownAsTextInARefusal() {
        Pages pages({{"/one", "<title>one</title>"}});
        Window window(pages.Address("/one"));
        QVERIFY(window.Shows(QStringLiteral("one")));
        window.Type("x:<script>document.title='taken'</script>%1%2");
        QVERIFY(window.Shows(QStringLiteral("Page not shown")));
        QVERIFY(window.Text().contains(QStringLiteral("x:<script>document.title='taken'</script>%1%2")));
    }

    void linksToOtherSchemesAreNotFollowed() {
        Pages pages({{"/links",
                      "<title>links</title><a id=file href='file:///etc/hostname'>f</a>"
                      "<a id=mail href='mailto:a@b.test'>m</a><a id=chrome href='chrome://version'>c</a>"
                      "<a id=data href='data:text/html,<title>x</title>'>d</a><a id=source "
                      "href='view-source:http://127.0.0.1/'>v</a><a id=redirect href='/tofile'>r</a>"},
                     {"/tofile", ""}});
        Window window(pages.Address("/links"));
        QVERIFY(window.Shows(QStringLiteral("links")));
        for (const char* id : {"file", "mail", "chrome", "data", "source"}) {
            window.Script(QStringLiteral("document.getElementById('%1').click()").arg(QLatin1String(id)));
            QVERIFY2(window.IsAt(pages.Address("/links")), id);
            QCOMPARE(window.Script(QStringLiteral("document.title")).toString(), QStringLiteral("links"));
        }
        window.Script(QStringLiteral("document.getElementById('redirect').click()"));
        QVERIFY(WaitFor(
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
        Pages pages(
            {{"/hostile", "<title>hostile</title><iframe id=frame src='" + url + "'></iframe>" +
                              "<img id=image src='" + url + "'><script>var got='waiting';" + "fetch('" + url +
                              "').then(r=>r.text()).then(t=>got=t,e=>got='refused');" + "</script>"}});
        Window window(pages.Address("/hostile"));
        QVERIFY(window.Shows(QStringLiteral("hostile")));
        QVERIFY(WaitFor(
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
        Pages pages({{"/upload",
                      "<title>upload</title><body style='margin:0'><input id=file type=file "
                      "style='width:300px;height:200px'>"}});
        Window window(pages.Address("/upload"));
        QVERIFY(window.Shows(QStringLiteral("upload")));
        int dialogs = 0;
        DialogHand hand([&](QDialog& dialog) {
            ++dialogs;
            dialog.reject();
        });
        const QSignalSpy refused(window.View().page(), SIGNAL(FileRefused()));
        QVERIFY(window.ClickUntil({60, 100}, [&] { return refused.count() > 0; }));
        QCOMPARE(window.Script(QStringLiteral("document.getElementById('file').files.length")).toInt(), 0);
        QCOMPARE(dialogs, 0);
        QCOMPARE(window.notices.back(), std::string("The page asked for a file of this computer. Pages are "
                                                    "given none."));
    }

    void aLinkForAnotherWindowOpensInThisOne() {
        Pages pages({{"/links",
                      "<title>links</title><body style='margin:0'><a href='/two' target=_blank "
                      "style='display:block;width:300px;height:200px'>x</a>"},
                     {"/two", "<title>two</title>"}});
        Window window(pages.Address("/links"));
        QVERIFY(window.Shows(QStringLiteral("links")));
        QVERIFY(window.ClickUntil({60, 100}, [&] { return window.IsShowing(QStringLiteral("two")); }));
        QCOMPARE(QApplication::topLevelWidgets().count(window.form.get()), 1);
    }

    void aScriptOpensNoWindow() {
        Pages pages({{"/pop", "<title>pop</title><script>var opened=window.open('/two');</script>"},
                     {"/two", "<title>two</title>"}});
        Window window(pages.Address("/pop"));
        QVERIFY(window.Shows(QStringLiteral("pop")));
        QVERIFY(window.Script(QStringLiteral("opened===null")).toBool());
        QVERIFY(window.IsAt(pages.Address("/pop")));
    }

    void purgingReachesCacheAndCookies() {
        Pages pages({{"/cookie", "<title>cookie</title>"}, {"/look", "<title>look</title>"}});
        Window window("");
        window.Type(pages.Address("/cookie"));
        QVERIFY(window.Shows(QStringLiteral("cookie")));
        window.Type(pages.Address("/look"));
        QVERIFY(window.Shows(QStringLiteral("look")));
        QCOMPARE(pages.LastCookie(), std::string("taste=sweet"));
        QCOMPARE(GetUrlCacheEntries(*window.operations.cache, kNormalCacheEntry).size(), std::size_t{1});
        QCOMPARE(GetUrlCacheEntries(*window.operations.cache, kCookieCacheEntry).size(), std::size_t{1});
        PurgeUrlCache(*window.operations.cache);
        // The engine forgets in a moment of its own, and a page asked for in that moment may never come: the
        // one after it is given longer, for a slow machine's sake.
        const QSignalSpy loaded(window.View().page(), &QWebEnginePage::loadFinished);
        const QDeadlineTimer guard(kPatienceMs);
        int wait = 500;
        while (!pages.LastCookie().empty() && !guard.hasExpired()) {
            const auto before = loaded.count();
            window.Press("Refresh");
            if (!WaitFor([&] { return loaded.count() > before; }, wait)) wait *= 2;
        }
        QCOMPARE(pages.LastCookie(), std::string());
    }

    void beforeTheFirstWindowThereIsNothingToPurge() {
        Browser browser;
        const BrowserOperations operations = browser.Operations();
        QCOMPARE(operations.cache->Entries().size(), std::size_t{0});
        QVERIFY(!operations.cache->Delete("pages:"));
        PurgeUrlCache(*operations.cache);
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

WINDOW_TEST(BrowserRulesTest)
#include "browser_rules_test.moc"
