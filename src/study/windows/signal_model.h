// The signals of a study as rows of a table: sorted by a column, filtered by ticker and by condition.
#pragma once

#include <QAbstractTableModel>
#include <string>
#include <vector>

#include "study/study_figures.h"

namespace brantlow {

class SignalModel final : public QAbstractTableModel {
    Q_OBJECT
  public:
    using QAbstractTableModel::QAbstractTableModel;

    // Both outlive the model or the next call; null shows nothing.
    void Show(const ConditionStudy* study, const StudyTerms* terms);
    // Only tickers that hold `ticker`, in any case, and only signals of `condition`; 0 stands for all.
    void Filter(const std::string& ticker, std::size_t condition);
    // The signal of a row in sight.
    const StudySignal& At(int row) const { return signals_[shown_[static_cast<std::size_t>(row)]]; }
    std::size_t Count() const { return signals_.size(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

  private:
    QString TextOf(const StudySignal& signal, int column) const;
    void SortShown();
    double NumberOf(const StudySignal& signal, int column) const;

    const ConditionStudy* study_ = nullptr;
    const StudyTerms* terms_ = nullptr;
    std::vector<StudySignal> signals_;
    std::vector<std::uint32_t> shown_;
    int sortedBy_ = -1;
    Qt::SortOrder order_ = Qt::AscendingOrder;
};

}  // namespace brantlow
