// The browser window: a list of addresses, a row of buttons and a page of the web. The main frame opens it
// for its research commands; what stands in a page is the web engine's affair.
#pragma once

#include <QTimer>
#include <QUrl>
#include <QWidget>

#include "research/windows/browser_operations.h"

class QAction;
class QComboBox;
class QToolBar;
class QWebEngineProfile;
class QWebEngineView;

namespace brantlow {

class WebPage;

class frmBrowser final : public QWidget {
    Q_OBJECT
  public:
    // `profile` outlives the window.
    frmBrowser(QWebEngineProfile& profile, const BrowserStart& start);
    ~frmBrowser() override;

    // What stands behind the buttons and the File menu.
    void GoHome();
    void GoSearch();
    void Stop();
    void Print();
    void PrintPreview();
    // Writes the page's source to <images>/<title>.htm. A page that is still loading, or that did not come,
    // is not saved.
    void SavePage();
    // Asks where.
    void SavePageAs();

    bool Busy() const { return busy_; }
    // The page's title, its address where it has none, and the window's own name before the first page.
    QString LocationName() const;
    QString LocationURL() const;

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void BuildButtons();
    void BuildAddressStrip();
    void BuildView(QWebEngineProfile& profile);
    QAction* AddButton(const char* key, const char* icon, const char* toolTip, const QKeySequence& shortcut);
    void GoTo(const QString& address);
    void cboAddress_Click();
    void NavigateComplete();
    void DownloadBegin();
    void DownloadComplete(bool ok);
    void timTimer_Timer();
    void ShowLocationName();
    void FollowHistory();
    void WritePage(const Path& file);

    QString home_;
    QString search_;
    Path images_;
    Person& person_;
    std::function<void(const std::string&)> notice_;
    QToolBar* tbToolBar;
    QWidget* picAddress;
    QComboBox* cboAddress;
    QWebEngineView* brwWebBrowser;
    WebPage* page_ = nullptr;
    QTimer timTimer{this};
    bool busy_ = false;
    bool complete_ = false;
    // Up while the window itself changes the list of addresses.
    bool changing_ = false;
};

}  // namespace brantlow
