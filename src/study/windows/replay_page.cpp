#include "study/windows/replay_page.h"

#include <fmt/format.h>

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "base/numbers.h"
#include "base/windows/display_text.h"
#include "chart/signals.h"
#include "shell/run_report.h"
#include "shell/status_words.h"
#include "study/remaining_time.h"

namespace brantlow {

namespace {

enum TradeColumn : int { kDay, kTicker, kAction, kPrice, kAmount, kColumns };
constexpr std::array<const char*, kColumns> kHeads = {"Day", "Ticker", "Trade", "Price", "Amount"};

std::string DayText(const TableTrade& trade) {
    return trade.date ? FormatIsoDate(*trade.date) : std::string("to come");
}

std::string Money(double value) {
    return FormatPicture(kMoneyPicture, value);
}

bool IsBefore(const TableTrade& a, const TableTrade& b, int column) {
    switch (column) {
        case kDay:
            // A trade that is still to come is the newest.
            if (!a.date || !b.date) return a.date && !b.date;
            return *a.date < *b.date;
        case kTicker:
            return a.ticker < b.ticker;
        case kAction:
            return a.trade.action < b.trade.action;
        case kPrice:
            return a.trade.price < b.trade.price;
        default:
            return a.trade.amount < b.trade.amount;
    }
}

}  // namespace

std::string ReplayWords(const TableReplay& replay, const SettingsTables& settings) {
    const BackTest& sums = replay.sums;
    std::string words =
        fmt::format("Buy {}, Sell {}: {} of {} traded, {} with a gain, {} with a loss.\n",
                    Get(settings, kBuySide.setting), Get(settings, kSellSide.setting), replay.traded,
                    CountedTickers(replay.tickers), replay.gained, replay.lost);
    words +=
        fmt::format("Bought {:.0f} shares for {}, sold {:.0f} for {}; those held are worth {}. Profit {}.",
                    sums.SharesBought, Money(sums.BuyCost), sums.SharesSold, Money(sums.SellValue),
                    Money(sums.HeldValue), Money(sums.Profit));
    if (replay.stopped)
        words +=
            fmt::format("\nEnded after {}: the sums are of these alone.", CountedTickers(replay.tickers));
    if (!replay.leftOut.empty())
        words += fmt::format("\n{} left out: {}", replay.leftOut.size(), Sentence(replay.leftOut.front()));
    return words;
}

void TradeModel::Show(std::vector<TableTrade> trades) {
    beginResetModel();
    trades_ = std::move(trades);
    endResetModel();
}

int TradeModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(trades_.size());
}

int TradeModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant TradeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::TextAlignmentRole && index.column() >= kPrice)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    const TableTrade& trade = At(index.row());
    switch (index.column()) {
        case kDay:
            return Name(DayText(trade));
        case kTicker:
            return Shown(trade.ticker);
        case kAction:
            return Name(trade.trade.action);
        case kPrice:
            return trade.date ? Name(ShortestNumber(trade.trade.price)) : QString();
        default:
            return trade.date ? Name(Money(trade.trade.amount)) : QString();
    }
}

QVariant TradeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= kColumns)
        return {};
    return QString::fromLatin1(kHeads[static_cast<std::size_t>(section)]);
}

void TradeModel::sort(int column, Qt::SortOrder order) {
    if (column < 0) return;
    beginResetModel();
    std::stable_sort(trades_.begin(), trades_.end(), [&](const TableTrade& a, const TableTrade& b) {
        return order == Qt::AscendingOrder ? IsBefore(a, b, column) : IsBefore(b, a, column);
    });
    endResetModel();
}

ReplayPage::ReplayPage(Session& session, const std::vector<std::string>& tickers)
    : session_(session),
      tickers_(tickers),
      run_(new QPushButton(QStringLiteral("Replay"))),
      words_(new QLabel(QStringLiteral(
          "Replay trades the chart's Buy and Sell conditions on every ticker of the table, as the chart's "
          "own test does for one: a lot of shares each, over the bars of its chart."))),
      model_(new TradeModel(this)),
      trades_(new QTableView) {
    auto* layout = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    run_->setObjectName(QStringLiteral("Replay"));
    run_->setToolTip(
        QStringLiteral("Trade the chart's Buy and Sell conditions on every ticker, on the bars of "
                       "the chosen interval"));
    row->addWidget(run_);
    row->addStretch();
    layout->addLayout(row);
    words_->setObjectName(QStringLiteral("ReplayWords"));
    words_->setWordWrap(true);
    layout->addWidget(words_);
    trades_->setObjectName(QStringLiteral("Trades"));
    trades_->setAccessibleName(QStringLiteral("The trades of the replay"));
    trades_->setToolTip(QStringLiteral("Every trade; Enter opens the chart on that day"));
    trades_->setModel(model_);
    trades_->setSelectionBehavior(QAbstractItemView::SelectRows);
    trades_->setSelectionMode(QAbstractItemView::SingleSelection);
    trades_->setSortingEnabled(true);
    trades_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    trades_->verticalHeader()->hide();
    layout->addWidget(trades_, 1);
    connect(run_, &QPushButton::clicked, this, &ReplayPage::Ask);
    connect(trades_, &QTableView::activated, this,
            [this](const QModelIndex& index) { AskChart(index.row()); });
}

void ReplayPage::Ask() {
    if (const auto refusal = RefuseBackTest(session_.settings)) return words_->setText(Name(*refusal));
    Q_EMIT RunAsked();
}

void ReplayPage::Run(Interval interval) {
    BeginRun(session_.run);
    session_.person.ShowStatusWord(kStatusStudying);
    RemainingTime remaining(session_.clock);
    const TableReplay replay =
        ReplayTable(session_, tickers_, interval, [&](std::size_t done, std::size_t all) {
            remaining.BeginPause();
            if (ShouldStop(session_.run, session_.person)) return false;
            remaining.EndPause();
            const double share =
                static_cast<double>(done) / static_cast<double>(std::max<std::size_t>(all, 1));
            session_.run.ProgressFraction = share;
            session_.person.ShowProgress(share);
            const std::string words = remaining.Words(share);
            if (!words.empty()) session_.person.ShowStatusWord(words);
            session_.person.PumpEvents();
            return true;
        });
    session_.person.ShowStatusWord(kStatusComplete);
    ShowReplay(replay);
}

void ReplayPage::ShowReplay(const TableReplay& replay) {
    words_->setText(Shown(ReplayWords(replay, session_.settings)));
    trades_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    model_->Show(replay.trades);
    trades_->resizeColumnsToContents();
}

void ReplayPage::AskChart(int row) {
    if (row < 0 || row >= model_->rowCount()) return;
    const TableTrade& trade = model_->At(row);
    Q_EMIT ChartAsked(trade.ticker, trade.date.value_or(session_.clock.Today()));
}

}  // namespace brantlow
