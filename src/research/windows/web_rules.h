// What a page may reach: the web and nothing else. The profile asks for every request of a page, the page for
// every step of its own.
#pragma once

#include <QString>
#include <QUrl>

namespace brantlow {

// A page that is opened, followed or typed in: http or https.
bool IsWebPage(const QUrl& url);

// Anything that a page loads: of the web, or text that it holds itself.
bool MayLoad(const QUrl& url);

// An address as a person types it or as the catalogue makes it; a name without a scheme is one of the web.
QUrl PageUrl(const QString& text);

// The address as it is shown and kept in the list of addresses.
QString ShownUrl(const QUrl& url);

// A page of the program's own that says why `address` is not shown.
QString RefusalPage(const QString& address, const QString& reason);

}  // namespace brantlow
