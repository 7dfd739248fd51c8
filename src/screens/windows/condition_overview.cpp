#include "screens/windows/condition_overview.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "base/windows/display_text.h"
#include "screens/selector_edits.h"

namespace brantlow {

namespace {

constexpr QSize kOverviewSize(900, 480);

enum Columns : int { kCondition, kMarks, kLines, kFinds, kColumns };

QString LinesText(const Condition& condition) {
    QStringList lines;
    for (const std::string& line : LinesOf(condition)) lines << Shown(line);
    return lines.isEmpty() ? QStringLiteral("no line: it never holds") : lines.join(QLatin1Char('\n'));
}

}  // namespace

ConditionOverview::ConditionOverview(const SelectorPanels& panels, CountHits hits, QWidget* parent)
    : QDialog(parent), panels_(panels), hits_(std::move(hits)), table_(new QTableWidget) {
    setObjectName(QStringLiteral("ConditionOverview"));
    setWindowTitle(QStringLiteral("Overview of the Conditions"));
    resize(kOverviewSize);
    auto* layout = new QVBoxLayout(this);
    table_->setObjectName(QStringLiteral("Overview"));
    table_->setAccessibleName(QStringLiteral("The ten conditions"));
    table_->setToolTip(QStringLiteral("Double click or Enter shows the condition"));
    table_->setColumnCount(kColumns);
    table_->setHorizontalHeaderLabels({QStringLiteral("Condition"), QStringLiteral("Marks"),
                                       QStringLiteral("Lines, all of which must hold"),
                                       QStringLiteral("Finds now")});
    table_->horizontalHeader()->setSectionResizeMode(kLines, QHeaderView::Stretch);
    table_->verticalHeader()->hide();
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setTabKeyNavigation(false);
    layout->addWidget(table_);
    auto* buttons = new QDialogButtonBox;
    auto* show = buttons->addButton(QStringLiteral("&Show"), QDialogButtonBox::AcceptRole);
    show->setObjectName(QStringLiteral("Show"));
    show->setToolTip(QStringLiteral("Go to the condition of the selected row (Enter)"));
    show->setDefault(true);
    auto* close = buttons->addButton(QStringLiteral("&Close"), QDialogButtonBox::RejectRole);
    close->setToolTip(QStringLiteral("Go back to the condition that was on show (Esc)"));
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &ConditionOverview::Choose);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(table_, &QTableWidget::cellDoubleClicked, this, [this] { Choose(); });
    ShowAll();
}

void ConditionOverview::ShowAll() {
    table_->setRowCount(static_cast<int>(panels_.size()));
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        const Condition condition = ConditionOf(panels_[i]);
        const std::optional<std::size_t> hits = hits_(condition);
        const QString cells[kColumns] = {QString::number(i + 1), Shown(condition.action),
                                         LinesText(condition),
                                         hits ? QString::number(*hits) : QStringLiteral("-")};
        for (int column = 0; column < kColumns; ++column) {
            auto* item = new QTableWidgetItem(cells[column]);
            if (column != kLines) item->setTextAlignment(Qt::AlignCenter);
            table_->setItem(static_cast<int>(i), column, item);
        }
    }
    table_->resizeRowsToContents();
}

void ConditionOverview::Select(std::size_t condition) {
    table_->selectRow(static_cast<int>(condition));
    table_->setFocus();
}

void ConditionOverview::Choose() {
    const int row = table_->currentRow();
    accept();
    if (row >= 0) Q_EMIT ConditionChosen(row);
}

}  // namespace brantlow
