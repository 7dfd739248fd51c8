// What the main frame shows while no window stands in its area: the tables to go on with, and the ways to
// begin. It knows no command; the frame hands in what a press does.
#pragma once

#include <QScrollArea>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace brantlow {

// What a press on the page does.
struct WelcomeActions {
    // Opens a table by its name in Data/.
    std::function<void(const std::string& name)> open;
    // Opens it and fetches its quotes of the day.
    std::function<void(const std::string& name)> update;
    // Asks for a table where none was open before, and leads on to a chart.
    std::function<void()> openFirst;
    // Opens the practice table, which is made where there is none.
    std::function<void()> practice;
    // Runs an entry of the menu.
    std::function<void(std::string_view command)> run;
};

class WelcomePage final : public QScrollArea {
    Q_OBJECT
  public:
    WelcomePage(WelcomeActions actions, QWidget* parent);

    // The tables to offer, that to go on with first.
    void Offer(const std::vector<std::string>& tables);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    // The table whose quotes can be fetched; tables of verdicts and of fundamentals have none.
    std::optional<std::string> FirstQuoteFile() const;
    QPushButton* AddButton(QVBoxLayout& column, const char* name, const QString& words,
                           std::function<void()> press);
    void Go(std::string_view command);
    void AddWays(QVBoxLayout& column);
    void ShowColours();

    WelcomeActions actions_;
    std::vector<std::string> tables_;
    QWidget* page_;
    QLabel* heading_;
    QLabel* recent_;
    QVBoxLayout* tableColumn_;
    QPushButton* practice_ = nullptr;
    QPushButton* update_ = nullptr;
};

// The ground of the area that the page stands on, on the desktop's palette.
QColor AreaGround(const QPalette& palette);

}  // namespace brantlow
