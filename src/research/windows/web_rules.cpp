#include "research/windows/web_rules.h"

#include <QStringList>

#include "acquire/web/web.h"
#include "base/windows/display_text.h"

namespace brantlow {

bool IsWebPage(const QUrl& url) {
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

bool MayLoad(const QUrl& url) {
    static const QStringList schemes = {
        QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("ws"),   QStringLiteral("wss"),
        QStringLiteral("data"), QStringLiteral("blob"),  QStringLiteral("about")};
    return schemes.contains(url.scheme());
}

QUrl PageUrl(const QString& text) {
    QUrl url = QUrl::fromUserInput(Shown(RequestAddress(text.trimmed().toStdString())));
    if (IsWebPage(url) && url.path().isEmpty()) url.setPath(QStringLiteral("/"));
    return url;
}

QString ShownUrl(const QUrl& url) {
    return url.toString(QUrl::FullyEncoded);
}

QString RefusalPage(const QString& address, const QString& reason) {
    return QStringLiteral(
               "<!DOCTYPE html><html><head><meta charset=\"utf-8\"><title>Page not shown</title><style>"
               "body{font-family:sans-serif;color:#24303c;background:#f6f8fa;margin:12%% 15%%}"
               "h1{font-size:1.4em}code{background:#e4e9ef;padding:.15em .4em;overflow-wrap:anywhere}"
               "</style></head><body><h1>This page cannot be shown</h1><p><code>%1</code></p><p>%2</p>"
               "</body></html>")
        .replace(QStringLiteral("%%"), QStringLiteral("%"))
        .arg(address.toHtmlEscaped(), reason.toHtmlEscaped());
}

}  // namespace brantlow
