#include "shell/frame/windows/frmLastRun.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "base/windows/display_text.h"

namespace brantlow {

namespace {

constexpr int kWidth = 620;
constexpr int kHeight = 420;

QTreeWidget* TickerList(const RunReport& report) {
    auto* list = new QTreeWidget;
    list->setObjectName(QStringLiteral("lstTickers"));
    list->setHeaderLabels(
        {QStringLiteral("Ticker Symbol"), QStringLiteral("What became of it"), QStringLiteral("Why")});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    QList<QTreeWidgetItem*> rows;
    for (const TickerTold& told : report.Tickers()) {
        rows.append(
            new QTreeWidgetItem(QStringList{Shown(told.ticker), Name(FateWord(told.fate)), Shown(told.why)}));
    }
    list->addTopLevelItems(rows);
    constexpr int kWhyColumn = 2;
    for (int column = 0; column < kWhyColumn; ++column) list->resizeColumnToContents(column);
    // In the order of the run until a head is clicked.
    list->header()->setSectionsClickable(true);
    QObject::connect(list->header(), &QHeaderView::sectionClicked, list, [list](int section) {
        if (list->isSortingEnabled()) return;
        list->header()->setSortIndicator(section, Qt::AscendingOrder);
        list->setSortingEnabled(true);
    });
    return list;
}

}  // namespace

frmLastRun::frmLastRun(const RunReport& report, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmLastRun"));
    setWindowTitle(Shown(report.What()));
    resize(kWidth, kHeight);
    auto* layout = new QVBoxLayout(this);
    QStringList lines;
    for (const std::string& line : report.Lines()) lines.append(Shown(line));
    auto* told = new QLabel(lines.join(QLatin1Char('\n')));
    told->setObjectName(QStringLiteral("lblLines"));
    told->setTextFormat(Qt::PlainText);
    told->setWordWrap(true);
    told->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    layout->addWidget(told);
    // Not every run tells of single tickers.
    if (report.Tickers().empty()) {
        adjustSize();
        layout->addStretch();
    } else {
        layout->addWidget(TickerList(report), 1);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

}  // namespace brantlow
