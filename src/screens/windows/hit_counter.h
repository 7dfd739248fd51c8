// Counts what a condition of the editor finds in the open table: walks its tickers once in the background,
// then answers at each edit.
#pragma once

#include <QObject>
#include <QString>
#include <atomic>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "study/hit_store.h"

namespace brantlow {

class HitCounter final : public QObject {
    Q_OBJECT
  public:
    // Daily bars. The source's folder and day are taken now.
    HitCounter(const HistorySource& source, std::vector<std::string> tickers, QObject* parent);
    // Ends the walk wherever it is.
    ~HitCounter() override;

    // "Finds 12 of 43 tickers now. MA30 Above MA90 leaves 20 (alone 20), ..."; while the walk goes on, how
    // far it is.
    QString Sentence(const Condition& condition) const;
    // How many tickers the condition finds; nothing while the walk goes on.
    std::optional<std::size_t> Hits(const Condition& condition) const;

  Q_SIGNALS:
    // The walk came further, or to its end: what Sentence says has changed.
    void Counted();

  private:
    void Walk();
    void Look();

    const std::string quoteFolder_;
    const FixedClock clock_;
    const std::vector<std::string> tickers_;
    HitStore store_;
    std::atomic<std::size_t> done_ = 0;
    std::atomic<bool> end_ = false;
    std::atomic<bool> walked_ = false;
    bool ready_ = false;
    std::thread thread_;
};

}  // namespace brantlow
