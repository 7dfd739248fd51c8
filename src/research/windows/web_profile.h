// What all pages of the program share: their settings, the check of every request, downloads, and the cache
// and cookies, which stay in memory and end with the program.
#pragma once

#include <QObject>
#include <QWebEngineUrlRequestInterceptor>
#include <memory>

#include "acquire/web/url_cache.h"
#include "shell/person.h"

class QWebEngineDownloadRequest;
class QWebEngineProfile;

namespace brantlow {

// Lets through what a page may load.
class RequestCheck final : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT
  public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    void interceptRequest(QWebEngineUrlRequestInfo& info) override;
};

// The web engine starts with the first call of Get; until then there is nothing to purge.
class WebProfile final : public QObject, public UrlCache {
    Q_OBJECT
  public:
    WebProfile();
    ~WebProfile() override;

    // `person` is told of downloads that fail and outlives the profile.
    QWebEngineProfile& Get(Person& person);

    // The engine does not list what it holds: the whole cache is one entry, all cookies are another.
    std::vector<UrlCacheEntry> Entries() const override;
    bool Delete(std::string_view url) override;

  private:
    std::unique_ptr<QWebEngineProfile> profile_;
};

}  // namespace brantlow
