// The area of the main frame in which the children stand. While it is empty the welcome page fills it.
#pragma once

#include <QMdiArea>
#include <functional>
#include <string>
#include <vector>

namespace brantlow {

class WelcomePage;
struct WelcomeActions;

class FrameArea final : public QMdiArea {
    Q_OBJECT
  public:
    FrameArea();

    // Makes the welcome page; once, before the area is shown. `tables` are those to go on with, by their
    // names.
    void AddWelcome(WelcomeActions actions, std::function<std::vector<std::string>()> tables);
    // Shows the welcome page, with the tables of now, where no child is to be seen, else hides it.
    void ShowWelcome();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    bool IsEmpty() const;

    WelcomePage* welcome_ = nullptr;
    std::function<std::vector<std::string>()> tables_;
};

}  // namespace brantlow
