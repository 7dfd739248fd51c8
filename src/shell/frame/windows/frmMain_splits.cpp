// Restating the history of the selected ticker after a stock split.
#include <QStatusBar>
#include <memory>

#include "base/windows/display_text.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "shell/status_words.h"
#include "splits/split_adjustment.h"
#include "splits/windows/frmSplitFactor.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

constexpr int kResultMilliseconds = 10000;

QString ResultSentence(const std::string& ticker, std::size_t days) {
    return Shown(ticker) + QStringLiteral(": %1 days before the split are restated").arg(days);
}

}  // namespace

void frmMain::AdjustSplit() {
    const frmQuoteGrid* const form = QuoteForm();
    if (!form || form->SelectedTicker().empty()) return;
    auto* dialog = new frmSplitFactor(form->SelectedTicker(), this);
    connect(dialog, &QDialog::finished, dialog, &QObject::deleteLater);
    connect(dialog, &QDialog::accepted, this, [this, dialog, ticker = form->SelectedTicker()] {
        RestateHistory(ticker, dialog->SplitFactor());
    });
    dialog->open();
}

// A series of its own, so that an open chart keeps the one that it draws. A factor that does not show in the
// prices changes nothing, without a word.
void frmMain::RestateHistory(const std::string& ticker, double SplitFactor) {
    person_.ShowStatusWord(kStatusUpdating);
    const auto series = std::make_unique<WorkingSeries>();
    const HistorySource source{session_.settings.QuoteFolder, session_.clock};
    const SplitAdjustment adjustment = AdjustForSplit(source, ticker, SplitFactor, *series);
    person_.ShowStatusWord(kStatusComplete);
    if (adjustment.error) {
        TellDatabaseError(adjustment.error);
    } else if (adjustment.SplitIndex > 0) {
        statusBar()->showMessage(ResultSentence(ticker, adjustment.SplitIndex), kResultMilliseconds);
    }
}

}  // namespace brantlow
