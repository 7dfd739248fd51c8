// The pages of the help in the colours of the desktop: they are written for a light one, and a dark one takes
// the colour of each part that can be read on its ground. A change of the desktop shows at once.
#pragma once

#include <QTextBrowser>

namespace brantlow {

class HelpBrowser final : public QTextBrowser {
    Q_OBJECT
  public:
    explicit HelpBrowser(QWidget* parent = nullptr);

    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    bool IsDark() const;

    bool shownDark_ = false;
};

}  // namespace brantlow
