#include "research/windows/web_profile.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QWebEngineCookieStore>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

#include "research/windows/web_download.h"
#include "research/windows/web_rules.h"

namespace brantlow {

namespace {

constexpr std::string_view kPages = "pages:";
constexpr std::string_view kCookies = "cookies:";

struct Setting {
    QWebEngineSettings::WebAttribute attribute;
    bool on;
};
constexpr Setting kSettings[] = {
    {QWebEngineSettings::LocalContentCanAccessFileUrls, false},
    {QWebEngineSettings::LocalContentCanAccessRemoteUrls, false},
    {QWebEngineSettings::JavascriptCanAccessClipboard, false},
    {QWebEngineSettings::JavascriptCanOpenWindows, false},
    {QWebEngineSettings::ScreenCaptureEnabled, false},
    {QWebEngineSettings::PluginsEnabled, false},
    {QWebEngineSettings::FocusOnNavigationEnabled, false},
};

}  // namespace

void RequestCheck::interceptRequest(QWebEngineUrlRequestInfo& info) {
    if (!MayLoad(info.requestUrl())) info.block(true);
}

WebProfile::WebProfile() = default;

WebProfile::~WebProfile() {
    // Pages that were closed a moment ago are gone before their profile.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QWebEngineProfile& WebProfile::Get(Person& person) {
    if (profile_) return *profile_;
    // The engine's account of its graphics is of no use to a user.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext.info=false"));
    profile_ = std::make_unique<QWebEngineProfile>();
    profile_->setUrlRequestInterceptor(new RequestCheck(profile_.get()));
    QWebEngineSettings* const settings = profile_->settings();
    for (const Setting& setting : kSettings) settings->setAttribute(setting.attribute, setting.on);
    settings->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    connect(profile_.get(), &QWebEngineProfile::downloadRequested, this,
            [&person](QWebEngineDownloadRequest* download) { TakeDownload(*download, person); });
    return *profile_;
}

std::vector<UrlCacheEntry> WebProfile::Entries() const {
    if (!profile_) return {};
    return {{std::string(kPages), kNormalCacheEntry}, {std::string(kCookies), kCookieCacheEntry}};
}

bool WebProfile::Delete(std::string_view url) {
    if (!profile_) return false;
    if (url == kPages) {
        profile_->clearHttpCache();
        profile_->clearAllVisitedLinks();
    } else if (url == kCookies) {
        profile_->cookieStore()->deleteAllCookies();
    } else {
        return false;
    }
    return true;
}

}  // namespace brantlow
