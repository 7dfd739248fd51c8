#include "study/windows/signal_model.h"

#include <algorithm>
#include <limits>

#include "base/numbers.h"
#include "base/text.h"
#include "base/windows/display_text.h"
#include "study/study_words.h"

namespace brantlow {

namespace {

enum SignalColumn : int {
    kSignalDay,
    kSignalTicker,
    kSignalCondition,
    kSignalAction,
    kSignalEntry,
    kSignalEntryClose,
    kSignalFirstReturn
};
constexpr std::array<const char*, kSignalFirstReturn> kSignalHeads = {"Day",    "Ticker", "Condition",
                                                                      "Action", "Bought", "At"};

}  // namespace

void SignalModel::Show(const ConditionStudy* study, const StudyTerms* terms) {
    beginResetModel();
    study_ = study;
    terms_ = terms;
    signals_ = study ? SignalsOf(*study, terms->everyDay) : std::vector<StudySignal>();
    shown_.resize(signals_.size());
    for (std::uint32_t i = 0; i < shown_.size(); ++i) shown_[i] = i;
    SortShown();
    endResetModel();
}

void SignalModel::Filter(const std::string& ticker, std::size_t condition) {
    beginResetModel();
    shown_.clear();
    const QString wanted = QString::fromStdString(ticker);
    for (std::uint32_t i = 0; i < signals_.size(); ++i) {
        const StudySignal& signal = signals_[i];
        if (condition != 0 && signal.condition != condition) continue;
        if (!Shown(study_->tickers[signal.ticker].ticker).contains(wanted, Qt::CaseInsensitive)) continue;
        shown_.push_back(i);
    }
    SortShown();
    endResetModel();
}

int SignalModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int SignalModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || !terms_ ? 0 : kSignalFirstReturn + static_cast<int>(terms_->horizons.size());
}

QString SignalModel::TextOf(const StudySignal& signal, int column) const {
    const StudiedTicker& ticker = study_->tickers[signal.ticker];
    const std::size_t entry = signal.bar + 1;
    const bool entered = entry < ticker.closes.size();
    switch (column) {
        case kSignalDay:
            return Name(FormatIsoDate(study_->DateOf(signal.date)));
        case kSignalTicker:
            return Shown(ticker.ticker);
        case kSignalCondition:
            return QString::number(signal.condition);
        case kSignalAction:
            return Name(study_->actions[signal.condition - 1]);
        case kSignalEntry:
            return entered ? Name(FormatIsoDate(study_->DateOf(ticker.dates[entry]))) : QString();
        case kSignalEntryClose:
            return entered ? Name(ShortestNumber(ticker.closes[entry])) : QString();
        default:
            break;
    }
    const std::size_t horizon = terms_->horizons[static_cast<std::size_t>(column - kSignalFirstReturn)];
    return Name(PercentText(ReturnAfter(ticker, signal.bar, horizon, terms_->cost), true));
}

// What a column sorts by where that is a number; trades that are open stand below all others.
double SignalModel::NumberOf(const StudySignal& signal, int column) const {
    constexpr double kOpen = -std::numeric_limits<double>::infinity();
    const StudiedTicker& ticker = study_->tickers[signal.ticker];
    const std::size_t entry = signal.bar + 1;
    const bool entered = entry < ticker.closes.size();
    if (column == kSignalDay) return study_->dates[signal.date].day;
    if (column == kSignalCondition) return signal.condition;
    if (column == kSignalEntry) return entered ? study_->dates[ticker.dates[entry]].day : kOpen;
    if (column == kSignalEntryClose) return entered ? ticker.closes[entry] : kOpen;
    const std::size_t horizon = terms_->horizons[static_cast<std::size_t>(column - kSignalFirstReturn)];
    return ReturnAfter(ticker, signal.bar, horizon, terms_->cost).value_or(kOpen);
}

QVariant SignalModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::TextAlignmentRole && index.column() >= kSignalEntryClose)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? TextOf(At(index.row()), index.column()) : QVariant();
}

QVariant SignalModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || !terms_) return {};
    if (section < kSignalFirstReturn)
        return QString::fromLatin1(kSignalHeads[static_cast<std::size_t>(section)]);
    const std::size_t horizon = terms_->horizons[static_cast<std::size_t>(section - kSignalFirstReturn)];
    return Name(AfterText(horizon, study_->span.interval));
}

void SignalModel::sort(int column, Qt::SortOrder order) {
    sortedBy_ = column;
    order_ = order;
    if (column < 0) return;
    beginResetModel();
    SortShown();
    endResetModel();
}

// Signals that are equal in the column keep the order of their days.
void SignalModel::SortShown() {
    if (sortedBy_ < 0 || sortedBy_ >= columnCount() || !study_) return;
    std::sort(shown_.begin(), shown_.end());
    const bool down = order_ == Qt::DescendingOrder;
    const auto ticker = [this](std::uint32_t i) -> const std::string& {
        return study_->tickers[signals_[i].ticker].ticker;
    };
    std::stable_sort(shown_.begin(), shown_.end(), [&](std::uint32_t a, std::uint32_t b) {
        if (down) std::swap(a, b);
        if (sortedBy_ == kSignalTicker) return ticker(a) < ticker(b);
        if (sortedBy_ == kSignalAction)
            return study_->actions[signals_[a].condition - 1] < study_->actions[signals_[b].condition - 1];
        return NumberOf(signals_[a], sortedBy_) < NumberOf(signals_[b], sortedBy_);
    });
}

}  // namespace brantlow
