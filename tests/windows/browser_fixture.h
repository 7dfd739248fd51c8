// What the browser's tests share: the practice market, a host that means no good, and a browser window
// outside any frame.
#pragma once

#include <httplib.h>

#include <QAction>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QTimer>
#include <QWebEngineView>
#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <thread>

#include "market/market_data.h"
#include "market/market_server.h"
#include "research/windows/browser.h"
#include "research/windows/frmBrowser.h"
#include "support/source_folder.h"
#include "window_fixture.h"

namespace brantlow {

// Turns the event loop until the condition holds; false when it does not in that many milliseconds.
// QTest::qWaitFor sleeps ten milliseconds between two looks, and the web engine takes some two hundred turns
// for a page.
inline bool WaitFor(const std::function<bool()>& condition, int milliseconds) {
    constexpr int kLookMs = 5;
    const QDeadlineTimer guard(milliseconds);
    // What other threads and files become is not told by an event.
    QTimer look;
    look.start(kLookMs);
    while (!condition()) {
        if (guard.hasExpired()) return condition();
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

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
    // `pages` holds paths with their HTML; no more come in once a browser may ask.
    Pages(std::initializer_list<std::pair<const std::string, std::string>> pages = {}) : pages_(pages) {
        server_.Get(".*", [this](const httplib::Request& request, httplib::Response& response) {
            // The engine asks for a picture of the site when it likes.
            if (request.path == "/favicon.ico") {
                response.status = 404;
                return;
            }
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
            {
                const std::lock_guard lock(mutex_);
                lastCookie_ = request.get_header_value("Cookie");
            }
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
    // The cookie that came with the last page asked for.
    std::string LastCookie() {
        const std::lock_guard lock(mutex_);
        return lastCookie_;
    }
    std::string Address(const std::string& path) const {
        return "http://127.0.0.1:" + std::to_string(port_) + path;
    }

    // Requests for pages.
    std::atomic<int> asked = 0;
    std::atomic<bool> released = false;

  private:
    std::map<std::string, std::string> pages_;
    std::mutex mutex_;
    std::string lastCookie_;
    httplib::Server server_;
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
    // Clicks at a place of the page until the condition holds: the engine passes over clicks that come before
    // it has painted the page.
    bool ClickUntil(const QPoint& place, const std::function<bool()>& done) {
        constexpr int kClickMs = 500;
        const QDeadlineTimer guard(kPatienceMs);
        if (!WaitFor([&] { return View().focusProxy() != nullptr; }, kPatienceMs)) return false;
        while (!guard.hasExpired()) {
            QTest::mouseClick(View().focusProxy(), Qt::LeftButton, {}, place);
            if (WaitFor(done, kClickMs)) return true;
        }
        return false;
    }
    QString Caption() { return form->windowTitle(); }
    // Waits until the caption is this one and no page is on its way.
    bool Shows(const QString& caption) {
        return WaitFor([&] { return IsShowing(caption); }, kPatienceMs);
    }
    bool IsShowing(const QString& caption) { return !form->Busy() && Caption() == caption; }
    bool IsAt(const std::string& address) {
        return WaitFor(
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
        if (!WaitFor([&] { return done; }, kPatienceMs)) qWarning("the script did not end");
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

}  // namespace brantlow
