#include "selector/windows/explain_pane.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "base/windows/display_text.h"
#include "selector/explanation.h"

namespace brantlow {

namespace {

struct IntervalChoice {
    Interval interval;
    std::string_view words;
};
constexpr std::array<IntervalChoice, 3> kIntervals = {
    {{Interval::Daily, "Daily"}, {Interval::Weekly, "Weekly"}, {Interval::Monthly, "Monthly"}}};

std::string_view StateWord(const LineExplanation& line) {
    if (line.state == TestState::Undecided) return "-";
    return line.state == TestState::True ? "holds" : "fails";
}

// A hit without a single test behind it says nothing about the ticker.
bool IsUntestedHit(const std::vector<LineExplanation>& lines) {
    return std::none_of(lines.begin(), lines.end(), [](const LineExplanation& line) {
        return line.state == TestState::True && line.computed;
    });
}

}  // namespace

ExplainPane::ExplainPane(QWidget* parent)
    : QDockWidget(QStringLiteral("Why"), parent),
      interval_(new QComboBox),
      title_(new QLabel),
      lines_(new QListWidget),
      chart_(new QPushButton(QStringLiteral("C&hart"))) {
    setObjectName(QStringLiteral("ExplainPane"));
    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    interval_->setObjectName(QStringLiteral("ExplainInterval"));
    interval_->setAccessibleName(QStringLiteral("The bars that the verdicts were made of"));
    for (const IntervalChoice& choice : kIntervals) interval_->addItem(Name(choice.words));
    layout->addWidget(interval_);
    title_->setObjectName(QStringLiteral("ExplainTitle"));
    title_->setWordWrap(true);
    layout->addWidget(title_);
    lines_->setObjectName(QStringLiteral("ExplainLines"));
    lines_->setAccessibleName(QStringLiteral("The lines of the condition"));
    lines_->setWordWrap(true);
    layout->addWidget(lines_, 1);
    chart_->setObjectName(QStringLiteral("ExplainChart"));
    chart_->setToolTip(QStringLiteral("Open the chart of the ticker"));
    layout->addWidget(chart_);
    setWidget(body);
    connect(interval_, &QComboBox::activated, this, &ExplainPane::IntervalChosen);
    connect(chart_, &QPushButton::clicked, this, &ExplainPane::ChartAsked);
}

Interval ExplainPane::ChosenInterval() const {
    return kIntervals[static_cast<std::size_t>(interval_->currentIndex())].interval;
}

void ExplainPane::ShowSentence(const QString& sentence) {
    title_->setText(sentence);
    lines_->clear();
}

void ExplainPane::Show(const std::string& ticker, std::size_t condition, const CompiledConditions& conditions,
                       const Analysis& analysis) {
    lines_->clear();
    if (condition == 0 || condition > conditions.BlockCount()) {
        ShowSentence(QStringLiteral("Select a cell of a condition to see why it is as it is."));
        return;
    }
    const ConditionBlock& block = conditions.Block(condition);
    const std::size_t bar = analysis.series.LastBar;
    std::vector<LineExplanation> explained;
    for (const TestedLine& line : block.lines) {
        explained.push_back(ExplainLine(line, analysis, bar));
        const std::string sentence = LineSentence(line, explained.back(), analysis, bar);
        lines_->addItem(Shown(std::string(StateWord(explained.back())) + ": " + line.text +
                              (sentence.empty() ? "" : "\n      " + sentence)));
    }
    const TestState result = ResultOf(explained);
    QString title =
        Shown(ticker) + QStringLiteral(", condition %1 (%2): ").arg(condition).arg(Name(block.action));
    if (explained.empty()) {
        title += QStringLiteral("it has no line and never holds");
    } else if (result == TestState::True && IsUntestedHit(explained)) {
        title += QStringLiteral("holds, but no test could be made");
    } else {
        title += result == TestState::True    ? QStringLiteral("holds")
                 : result == TestState::False ? QStringLiteral("fails")
                                              : QStringLiteral("nothing could be tested");
    }
    title_->setText(title);
}

}  // namespace brantlow
