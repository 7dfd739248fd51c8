// The page of the study window that replays the chart's Buy and Sell pair over the whole table: its sums and
// the list of trades.
#pragma once

#include <QAbstractTableModel>
#include <QWidget>
#include <string>
#include <vector>

#include "shell/session.h"
#include "study/table_replay.h"

class QLabel;
class QPushButton;
class QTableView;

namespace brantlow {

// The trades as rows, sorted by a column.
class TradeModel final : public QAbstractTableModel {
    Q_OBJECT
  public:
    using QAbstractTableModel::QAbstractTableModel;

    void Show(std::vector<TableTrade> trades);
    const TableTrade& At(int row) const { return trades_[static_cast<std::size_t>(row)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

  private:
    std::vector<TableTrade> trades_;
};

class ReplayPage final : public QWidget {
    Q_OBJECT
  public:
    // Both outlive the page.
    ReplayPage(Session& session, const std::vector<std::string>& tickers);

    // Walks, talking to the session's person, and shows what was found.
    void Run(Interval interval);

  Q_SIGNALS:
    void RunAsked();
    // The chart of a ticker as it stood on the day of a trade.
    void ChartAsked(const std::string& ticker, const brantlow::Date& day);

  private:
    void Ask();
    void AskChart(int row);
    void ShowReplay(const TableReplay& replay);

    Session& session_;
    const std::vector<std::string>& tickers_;
    QPushButton* run_;
    QLabel* words_;
    TradeModel* model_;
    QTableView* trades_;
};

// "Bought 3,000 shares ...": the sums in words, a line each.
std::string ReplayWords(const TableReplay& replay, const SettingsTables& settings);

}  // namespace brantlow
