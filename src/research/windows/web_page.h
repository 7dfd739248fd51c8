// A page of the browser window: it follows links to the web only, opens in its own window what asks for
// another one, and hands no file to anybody.
#pragma once

#include <QWebEnginePage>

class QWebEngineProfile;

namespace brantlow {

class WebPage final : public QWebEnginePage {
    Q_OBJECT
  public:
    // `profile` outlives the page.
    WebPage(QWebEngineProfile& profile, QObject* parent);

    // Goes to an address of the web; any other one gets a page that says so.
    void Navigate(const QUrl& url, const QString& typed);
    // Shows a page of the program's own in place of `address`.
    void ShowRefusal(const QString& address, const QString& reason);

  Q_SIGNALS:
    // The page asked for a file and got none.
    void FileRefused();

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    // No page gets a file of this machine, chosen or not.
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& oldFiles,
                            const QStringList& acceptedMimeTypes) override;
    // What a page writes to its console is its own affair.
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;

  private:
    void TellCrash();

    bool showingRefusal_ = false;
};

}  // namespace brantlow
