// The help: pages of the Help folder with their links, a way back, and a search in the page and over all of
// them.
#pragma once

#include <QWidget>
#include <string_view>

#include "base/files.h"

class QLineEdit;

namespace brantlow {

class HelpBrowser;

class frmHelp final : public QWidget {
    Q_OBJECT
  public:
    // `folder` holds the pages. The window deletes itself when it is closed.
    frmHelp(const Path& folder, QWidget* parent);

    // "page.html", or a place on it: "page.html#place".
    void ShowPage(std::string_view page);

  private:
    void FindNext();

    Path folder_;
    HelpBrowser* page_;
    QLineEdit* find_;
    QLineEdit* search_;
};

}  // namespace brantlow
