// The window "Study of the Conditions": what the ten conditions would have earned over the tickers of the
// table that was open. A person chooses span, interval, horizons and cost, runs it, and reads a table, a
// picture, the list of all signals and an equity curve. The main frame opens it, runs it and opens the charts
// it asks for.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "shell/session.h"
#include "study/portfolio.h"
#include "study/study_figures.h"
#include "study/study_picture.h"
#include "study/study_report.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QDoubleSpinBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPrinter;
class QPushButton;
class QSpinBox;
class QTableView;
class QTableWidget;
class QTabWidget;

namespace brantlow {

class ReplayPage;
class SignalModel;
class SvgView;

class frmStudy final : public QWidget {
    Q_OBJECT
  public:
    // `session` outlives the window; `file` is the name of the table of `tickers`.
    frmStudy(Session& session, std::string file, std::vector<std::string> tickers);
    ~frmStudy() override;

    // Walks with what the boxes say, talking to the session's person, and shows what was found.
    void Run();
    // Shows a study as if Run had made it, by the horizons and the cost of the boxes.
    void Show(ConditionStudy study);
    // Replays the chart's pair over the tickers, on the bars of the interval that is chosen.
    void RunReplay();
    // Asks for a printer, or for a PDF file, and prints the report.
    void AskPrint();
    void Print(QPrinter& printer) const;
    // Writes "Study <date>.html" in Data/; the person is told where it is or why it is not.
    void SaveReport();

  Q_SIGNALS:
    // Run was pressed and the boxes can be read.
    void RunAsked();
    // Replay was pressed.
    void ReplayAsked();
    // The chart of a ticker as it stood on a day.
    void ChartAsked(const std::string& ticker, const brantlow::Date& day);
    void CloseAsked();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    // The pictures follow the desktop's colours.
    void changeEvent(QEvent* event) override;

  private:
    void BuildBoxes(class QVBoxLayout& layout);
    QWidget* BuildConditions();
    QWidget* BuildSignals();
    QWidget* BuildPortfolio();
    void AskRun();
    QPushButton* AddButton(QHBoxLayout& row, const char* name, const char* caption, const char* words,
                           void (frmStudy::*pressed)());
    void AskSelectedChart();
    bool TakeTerms();
    void ShowAll();
    void ShowTable();
    void ShowCondition();
    void ShowPortfolio();
    const PictureColours& Colours() const;
    void ApplyFilter();
    void SaveSignals();
    void AskChart(int row);
    void Tell(const std::string& sentence);
    std::vector<ReportPicture> Pictures() const;
    std::size_t Detail() const;
    PortfolioTerms Terms() const;

    Session& session_;
    const std::string file_;
    const std::vector<std::string> tickers_;
    StudySpan span_;
    StudyTerms terms_;
    std::unique_ptr<ConditionStudy> study_;  // null until the first run
    StudyFigures figures_;

    QDateEdit* from_;
    QDateEdit* to_;
    QComboBox* interval_;
    QLineEdit* horizons_;
    QDoubleSpinBox* cost_;
    QCheckBox* everyDay_;
    QPushButton* run_;
    QLabel* state_;
    QTabWidget* tabs_;
    QComboBox* detail_;
    QTableWidget* table_;
    QLabel* words_;
    SvgView* path_;
    QLineEdit* ticker_;
    QComboBox* condition_;
    SignalModel* model_;
    QTableView* signals_;
    QComboBox* buy_;
    QComboBox* sell_;
    QSpinBox* hold_;
    QSpinBox* most_;
    SvgView* equity_;
    QLabel* equityWords_;
    ReplayPage* replay_;
};

}  // namespace brantlow
