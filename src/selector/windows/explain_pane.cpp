#include "selector/windows/explain_pane.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "base/windows/display_text.h"

namespace brantlow {

namespace {

enum Columns : int { kState, kLine };

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

// The table was made earlier: the conditions or the history may be others now.
QString DifferenceWords(const std::string& verdict, const ConditionExplanation& explanation) {
    const bool holds = explanation.result == TestState::True;
    if (verdict.empty() != holds) return {};
    return QStringLiteral("\nThe table says otherwise: the conditions or the history have changed since.");
}

}  // namespace

// A sentence takes as many lines as the width of the pane asks for; the list itself gives it those of its
// text.
void ExplainPane::FitRows(int width) {
    const int air = 2 * (lines_->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, lines_) + 1);
    const QSize room(width - air, QWIDGETSIZE_MAX);
    for (int row = 0; row < lines_->topLevelItemCount(); ++row) {
        QTreeWidgetItem* const item = lines_->topLevelItem(row);
        const QRect words =
            lines_->fontMetrics().boundingRect({QPoint(), room}, Qt::TextWordWrap, item->text(kLine));
        item->setSizeHint(kLine, {0, words.height() + air});
    }
}

ExplainPane::ExplainPane(QWidget* parent)
    : QDockWidget(QStringLiteral("Why"), parent),
      interval_(new QComboBox),
      day_(new QLabel),
      title_(new QLabel),
      lines_(new QTreeWidget),
      chart_(new QPushButton(QStringLiteral("C&hart"))) {
    setObjectName(QStringLiteral("ExplainPane"));
    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    interval_->setObjectName(QStringLiteral("ExplainInterval"));
    interval_->setAccessibleName(QStringLiteral("The bars that the verdicts were made of"));
    interval_->setToolTip(QStringLiteral(
        "The bars that the verdicts were made of; a table that tells its own is explained on them"));
    for (const IntervalChoice& choice : kIntervals) interval_->addItem(Name(choice.words));
    auto* bars = new QHBoxLayout;
    bars->addWidget(interval_, 1);
    day_->setObjectName(QStringLiteral("ExplainDay"));
    day_->hide();
    bars->addWidget(day_);
    layout->addLayout(bars);
    title_->setObjectName(QStringLiteral("ExplainTitle"));
    title_->setWordWrap(true);
    layout->addWidget(title_);
    lines_->setObjectName(QStringLiteral("ExplainLines"));
    lines_->setAccessibleName(QStringLiteral("The lines of the condition"));
    lines_->setHeaderLabels({QStringLiteral("Now"), QStringLiteral("Line and numbers")});
    lines_->header()->setStretchLastSection(true);
    lines_->header()->setSectionResizeMode(kState, QHeaderView::ResizeToContents);
    lines_->setRootIsDecorated(false);
    lines_->setAlternatingRowColors(true);
    lines_->setWordWrap(true);
    lines_->setTextElideMode(Qt::ElideNone);
    // The header tells a width before it goes by it.
    connect(lines_->header(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (column == kLine) FitRows(width);
    });
    layout->addWidget(lines_, 1);
    chart_->setObjectName(QStringLiteral("ExplainChart"));
    chart_->setToolTip(
        QStringLiteral("Open the chart of the ticker with the series that the condition looks at"));
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

void ExplainPane::ShowOrigin(std::optional<Interval> interval, std::optional<Date> day) {
    interval_->setEnabled(!interval);
    day_->setText(day ? QStringLiteral("as of %1").arg(Name(FormatIsoDate(*day))) : QString());
    day_->setVisible(day.has_value());
    if (!interval) return;
    for (std::size_t i = 0; i < kIntervals.size(); ++i)
        if (kIntervals[i].interval == *interval) interval_->setCurrentIndex(static_cast<int>(i));
}

void ExplainPane::Show(const std::string& ticker, std::size_t condition, const ConditionBlock& block,
                       const ConditionExplanation& explanation, const Analysis& analysis,
                       const std::string& verdict) {
    lines_->clear();
    for (std::size_t i = 0; i < explanation.lines.size(); ++i) {
        const LineExplanation& line = explanation.lines[i];
        const std::string sentence = LineSentence(block.lines[i], line, analysis, analysis.series.LastBar);
        auto* item = new QTreeWidgetItem(lines_);
        item->setText(kState, Name(StateWord(line)));
        item->setText(kLine, Shown(line.text + (sentence.empty() ? "" : "\n" + sentence)));
        for (const int column : {kState, kLine}) item->setTextAlignment(column, Qt::AlignLeft | Qt::AlignTop);
    }
    FitRows(lines_->columnWidth(kLine));
    title_->setText(
        Shown(ticker) + QStringLiteral(", condition %1 (%2): ").arg(condition).arg(Name(block.action)) +
        Name(ResultWords(explanation, analysis.series.BarCount)) + DifferenceWords(verdict, explanation));
}

}  // namespace brantlow
