// Says that a ticker has no history and offers to download it. The main frame opens it over an empty chart;
// what is downloaded, and what becomes of the chart, is the frame's.
#pragma once

#include <QDialog>
#include <functional>

class QProgressBar;
class QPushButton;

namespace brantlow {

class frmGraphNoData final : public QDialog {
    Q_OBJECT
  public:
    // `download` runs at "Next" and pumps events; the dialog shows that it works and closes when it returns.
    frmGraphNoData(std::function<void()> download, QWidget* parent);

    // While the download runs the dialog stays.
    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Next();

    std::function<void()> download_;
    QPushButton* Command1;
    QPushButton* Command2;
    QProgressBar* busy_;
};

}  // namespace brantlow
