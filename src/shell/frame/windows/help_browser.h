// The pages of the help in the colours of the desktop: they are written for a light one, and a dark one takes
// the colour of each part that can be read on its ground. A change of the desktop shows at once. What a
// search over all pages found is a page like the others, so that Back leads to it.
#pragma once

#include <QTextBrowser>

#include "base/files.h"

namespace brantlow {

class HelpBrowser final : public QTextBrowser {
    Q_OBJECT
  public:
    // `folder` holds the pages.
    explicit HelpBrowser(const Path& folder, QWidget* parent = nullptr);

    void ShowHits(const QString& words);

    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    bool IsDark() const;

    Path folder_;
    bool shownDark_ = false;
};

}  // namespace brantlow
