#include "research/windows/web_page.h"

#include <QTimer>
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
#include <QWebEnginePermission>
#endif
#include <QWebEngineProfile>
#include <QWebEngineSettings>

#include "research/windows/web_rules.h"

namespace brantlow {

namespace {

// Stands for a window that a page asks for: learns where it was to lead, and goes. The engine has to be given
// a page here; left without one it falls over the clicks that are still on their way to it.
class WantedWindow final : public QWebEnginePage {
  public:
    WantedWindow(QWebEngineProfile& profile, QWebEnginePage& opener)
        : QWebEnginePage(&profile, &opener), opener_(opener) {}

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType, bool) override {
        if (!taken_ && IsWebPage(url))
            QTimer::singleShot(0, &opener_, [&opener = opener_, url] { opener.load(url); });
        taken_ = true;
        deleteLater();
        return false;
    }

  private:
    QWebEnginePage& opener_;
    bool taken_ = false;
};

}  // namespace

WebPage::WebPage(QWebEngineProfile& profile, QObject* parent) : QWebEnginePage(&profile, parent) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    connect(this, &QWebEnginePage::permissionRequested, this,
            [](const QWebEnginePermission& permission) { permission.deny(); });
#else
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
#endif
    connect(this, &QWebEnginePage::renderProcessTerminated, this,
            [this](RenderProcessTerminationStatus status) {
                if (status != NormalTerminationStatus) TellCrash();
            });
}

void WebPage::Navigate(const QUrl& url, const QString& typed) {
    if (IsWebPage(url)) return load(url);
    ShowRefusal(typed, QStringLiteral("Only pages of the web are opened here: their addresses begin with "
                                      "http:// or https://."));
}

void WebPage::ShowRefusal(const QString& address, const QString& reason) {
    showingRefusal_ = true;
    setHtml(RefusalPage(address, reason));
}

bool WebPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) {
    if (!isMainFrame) return MayLoad(url);
    // The text of the program's own page comes as an address, too.
    if (showingRefusal_ && url.scheme() == QLatin1String("data")) {
        showingRefusal_ = false;
        return true;
    }
    return IsWebPage(url);
}

QStringList WebPage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) {
    Q_EMIT FileRefused();
    return {};
}

void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) {}

QWebEnginePage* WebPage::createWindow(WebWindowType) {
    return new WantedWindow(*profile(), *this);
}

void WebPage::TellCrash() {
    ShowRefusal(ShownUrl(url()), QStringLiteral("The page has stopped working. Refresh loads it again."));
}

}  // namespace brantlow
