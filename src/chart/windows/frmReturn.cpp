#include "chart/windows/frmReturn.h"

#include <QDialogButtonBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "base/windows/display_text.h"
#include "chart/back_test.h"

namespace brantlow {

namespace {

constexpr double kTickerScale = 1.8;
constexpr int kCellGap = 6;
constexpr int kReportWidth = 620;
constexpr int kTradeRowsShown = 4;

struct FixedText {
    const char* control;
    const char* words;
};
// The misspelt words are those that users of the report know.
constexpr std::array kFixedTexts = {
    FixedText{"Label1",
              "The basis of this analysis is a transaction of 1000 shares with a commission of 0.5% for each "
              "transaction. The Purchase and Sell price is the closing price on the day of a Buy or Sell "
              "signal."},
    FixedText{"Label2",
              "The analysis is based on the selected Stock Selector Conditions. To change from one condition "
              "to another, simply select Settings, Application, and select the Graph Display Settings Tab. "
              "To change the Criteria for a Condition, select Settings, Stock Selector, and select one of "
              "the ten Conditions you wish to change."},
    FixedText{"Label5", "Shares were puchased at an average cost of"},
    FixedText{"Label8", "Shares were sold for an average value of"},
    FixedText{"Label11", "Shares remain in your portfolio"},
    FixedText{"Label13", "Your ROI is:"},
    FixedText{"Label15", "Your profit is:"},
    FixedText{"Label17", "Buy Condtition:"},
    FixedText{"Label19", "Sell Condition:"},
};

// The rows of the report below the ticker and the conditions: a count, what it counts, an amount. Without a
// count the words stand right before the amount.
struct ReportRow {
    const char* count;
    const char* words;
    const char* amount;
};
constexpr std::array kReportRows = {
    ReportRow{"Label4", "Label5", "Label6"},    ReportRow{"Label7", "Label8", "Label9"},
    ReportRow{"Label10", "Label11", "Label12"}, ReportRow{nullptr, "Label15", "Label16"},
    ReportRow{nullptr, "Label13", "Label14"},
};

// Places in the report's grid. Lines stand in even rows and columns, texts between them.
constexpr int kCountColumn = 1;
constexpr int kWordsColumn = 3;
constexpr int kAmountColumn = 5;
constexpr int kLastColumn = 6;
constexpr int kTickerRow = 1;
constexpr int kConditionsRow = 3;
constexpr int kFirstReportRow = 5;
constexpr int kReportEnd = kFirstReportRow + 2 * static_cast<int>(kReportRows.size()) - 1;
constexpr int kCountedEnd = kFirstReportRow + 5;

// The ruled frame: a line from one place of the grid to another.
struct Ruling {
    int row, column, rows, columns;
};
constexpr int kWide = kLastColumn + 1;
constexpr std::array kRulings = {
    Ruling{0, 0, 1, kWide},
    Ruling{2, 0, 1, kWide},
    Ruling{4, 0, 1, kWide},
    Ruling{6, 0, 1, kWide},
    Ruling{8, 0, 1, kWide},
    Ruling{10, 0, 1, kWide},
    Ruling{12, 0, 1, kWide},
    Ruling{kReportEnd, 0, 1, kWide},
    Ruling{0, 0, kReportEnd + 1, 1},
    Ruling{kFirstReportRow - 1, 2, kCountedEnd - kFirstReportRow + 2, 1},
    Ruling{kFirstReportRow - 1, 4, kReportEnd - kFirstReportRow + 2, 1},
    Ruling{0, kLastColumn, kReportEnd + 1, 1},
};

constexpr std::array kTradeColumns = {"Signal", "Trade", "Close", "Price", "Amount"};
constexpr std::size_t kFirstNumberColumn = 3;
constexpr const char* kNotYet = "-";

QLabel* Text(const char* control, Qt::Alignment alignment = Qt::AlignLeft) {
    auto* label = new QLabel;
    label->setObjectName(QString::fromLatin1(control));
    label->setAlignment(alignment | Qt::AlignVCenter);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setMargin(kCellGap);
    for (const FixedText& text : kFixedTexts) {
        if (label->objectName() == QLatin1String(text.control))
            label->setText(QString::fromLatin1(text.words));
    }
    return label;
}

QLabel* Strong(QLabel* label, double scale = 1) {
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * scale);
    label->setFont(font);
    return label;
}

QLabel* Note(const char* control) {
    QLabel* note = Text(control);
    note->setWordWrap(true);
    note->setMargin(0);
    note->setMinimumWidth(kReportWidth);
    return note;
}

QLabel* Ticker(const std::string& ticker) {
    QLabel* label = Text("Label3", Qt::AlignHCenter);
    label->setFont(QFont(QStringLiteral("Arial")));
    label->setText(Shown(ticker));
    return Strong(label, kTickerScale);
}

QWidget* Conditions() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (const char* control : {"Label17", "Label18", "Label19", "Label20"}) {
        if (control == std::string_view("Label19")) layout->addStretch(1);
        layout->addWidget(Text(control));
    }
    return row;
}

void AddRulings(QGridLayout& grid) {
    int number = 0;
    for (const Ruling& ruling : kRulings) {
        auto* line = new QFrame;
        line->setObjectName(QStringLiteral("Line%1").arg(++number));
        line->setFrameStyle((ruling.rows == 1 ? QFrame::HLine : QFrame::VLine) | QFrame::Plain);
        line->setForegroundRole(QPalette::Mid);
        // No wider than drawn, so that lines meet at their ends.
        ruling.rows == 1 ? line->setFixedHeight(line->lineWidth()) : line->setFixedWidth(line->lineWidth());
        grid.addWidget(line, ruling.row, ruling.column, ruling.rows, ruling.columns);
    }
}

void AddReportRows(QGridLayout& grid) {
    int row = kFirstReportRow;
    for (const ReportRow& report : kReportRows) {
        const bool counted = report.count != nullptr;
        if (counted) grid.addWidget(Text(report.count, Qt::AlignRight), row, kCountColumn);
        grid.addWidget(Text(report.words, counted ? Qt::AlignLeft : Qt::AlignRight), row,
                       counted ? kWordsColumn : kCountColumn, 1, counted ? 1 : kWordsColumn);
        grid.addWidget(Strong(Text(report.amount, Qt::AlignRight)), row, kAmountColumn);
        row += 2;
    }
}

QWidget* Report(const std::string& ticker) {
    auto* report = new QWidget;
    report->setBackgroundRole(QPalette::Base);
    report->setAutoFillBackground(true);
    auto* grid = new QGridLayout(report);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->setColumnStretch(kWordsColumn, 1);
    AddRulings(*grid);
    grid->addWidget(Ticker(ticker), kTickerRow, kCountColumn, 1, kAmountColumn);
    grid->addWidget(Conditions(), kConditionsRow, kCountColumn, 1, kAmountColumn);
    AddReportRows(*grid);
    return report;
}

// The texts of a trade's row. After a signal on the newest bar there is no close to trade at yet.
std::array<QString, kTradeColumns.size()> TradeTexts(const BackTestTrade& trade,
                                                     const WorkingSeries& series) {
    const bool traded = trade.signalBar < series.BarCount;
    const QString notYet = QString::fromLatin1(kNotYet);
    return {Shown(series.QuoteDate[trade.signalBar]), Name(trade.action),
            traded ? Shown(series.QuoteDate[trade.signalBar + 1]) : notYet,
            traded ? Shown(ShortestNumber(trade.price)) : notYet,
            Shown(FormatPicture(kMoneyPicture, trade.amount))};
}

QTableWidgetItem* TradeCell(const QString& text, std::size_t column) {
    auto* cell = new QTableWidgetItem(text);
    cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    cell->setTextAlignment(Qt::AlignVCenter | (column < kFirstNumberColumn ? Qt::AlignLeft : Qt::AlignRight));
    return cell;
}

QTableWidget* TradeTable(const std::vector<BackTestTrade>& trades, const WorkingSeries& series) {
    auto* table = new QTableWidget(static_cast<int>(trades.size()), static_cast<int>(kTradeColumns.size()));
    table->setObjectName(QStringLiteral("Trades"));
    table->setAccessibleName(QStringLiteral("The trades of this analysis"));
    for (std::size_t row = 0; row < trades.size(); ++row) {
        const auto texts = TradeTexts(trades[row], series);
        for (std::size_t column = 0; column < texts.size(); ++column) {
            table->setItem(static_cast<int>(row), static_cast<int>(column), TradeCell(texts[column], column));
        }
    }
    for (std::size_t column = 0; column < kTradeColumns.size(); ++column) {
        QTableWidgetItem* header = TradeCell(QString::fromLatin1(kTradeColumns[column]), column);
        table->setHorizontalHeaderItem(static_cast<int>(column), header);
    }
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->horizontalHeader()->setHighlightSections(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setMinimumHeight(kTradeRowsShown * table->fontMetrics().height() * 2);
    return table;
}

}  // namespace

frmReturn::frmReturn(const ReturnSource& source, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmReturn"));
    setWindowTitle(QStringLiteral("Test Stock Selector's Buy and Sell Conditions"));
    const BackTest test = RunBackTest(source.series, source.chart);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Report(source.chart.Label58));
    layout->addWidget(TradeTable(test.trades, source.series), 1);
    layout->addWidget(Note("Label1"));
    layout->addWidget(Note("Label2"));
    auto* buttons = new QDialogButtonBox;
    QPushButton* exit = buttons->addButton(QStringLiteral("Exit"), QDialogButtonBox::RejectRole);
    exit->setObjectName(QStringLiteral("Command1"));
    exit->setDefault(true);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (const BackTestLabel& label : BackTestLabels(test, source.settings)) {
        findChild<QLabel*>(Name(label.control))->setText(Shown(label.text));
    }
    findChild<QTableWidget*>(QStringLiteral("Trades"))->setVisible(!test.trades.empty());
    exit->setFocus();
}

// In the middle of the screen that it opens on.
void frmReturn::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    const QRect available = screen()->availableGeometry();
    // A window opens with two thirds of a screen at most, which cuts the report where letters are large.
    const int whole = layout()->totalHeightForWidth(width());
    resize(QSize(width(), std::max(height(), whole)).boundedTo(available.size()));
    QRect frame = frameGeometry();
    frame.moveCenter(available.center());
    move(frame.topLeft());
}

void TestConditions(const ReturnSource& source, Person& person, QWidget* parent) {
    if (const std::optional<std::string_view> refusal = RefuseBackTest(source.settings)) {
        person.Say(*refusal);
        return;
    }
    frmReturn(source, parent).exec();
}

}  // namespace brantlow
