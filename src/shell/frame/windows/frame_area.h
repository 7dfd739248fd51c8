// The area of the main frame in which the children stand. While it is empty the welcome page fills it.
#pragma once

#include <QMdiArea>

namespace brantlow {

class WelcomePage;
struct WelcomeActions;

class FrameArea final : public QMdiArea {
    Q_OBJECT
  public:
    FrameArea();

    // Makes the welcome page; once, before the area is shown.
    WelcomePage& AddWelcome(WelcomeActions actions);
    // Shows the welcome page where no child is to be seen, else hides it.
    void ShowWelcome();
    bool IsEmpty() const;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    WelcomePage* welcome_ = nullptr;
};

}  // namespace brantlow
