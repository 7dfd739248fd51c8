// The line below a selector's table that says what the colours of the verdicts mean; two of them are not in
// the words of the cells.
#pragma once

#include <QWidget>

namespace brantlow {

class VerdictLegend final : public QWidget {
    Q_OBJECT
  public:
    explicit VerdictLegend(QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void ShowColours();
};

}  // namespace brantlow
