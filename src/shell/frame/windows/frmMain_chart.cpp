// The chart of the main frame: its window is started for the selected ticker and goes with the children.
#include <QMdiArea>
#include <QMdiSubWindow>

#include "acquire/feeds/history_download.h"
#include "chart/windows/frmGraph.h"
#include "chart/windows/frmGraphNoData.h"
#include "chart/windows/frmReturn.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "store/table_edit.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

void frmMain::ChartHighLowClose() {
    ShowChart(kDefaultStyle);
}

void frmMain::ChartCandleStick() {
    ShowChart(kCandleStickStyle);
}

void frmMain::ChartAgain() {
    ShowChart({});
}

void frmMain::ShowChart(std::string_view style) {
    ChartSelection selection;
    const std::string ticker = quoteForm_ ? session_.CurrentTicker : std::string();
    selection.ticker = ticker;
    if (quoteForm_) {
        selection.table = &quoteForm_->Table();
        selection.row = RowOfTicker(quoteForm_->Table(), ticker);
    }
    ChartContext context{session_, analysis_, chart_};
    const ChartStart start = StartChart(context, selection, style);
    if (start == ChartStart::NoTicker) return;
    CloseGraph();
    LoadGraphForm(context);
    if (start == ChartStart::NoHistory) OfferHistory();
}

void frmMain::LoadGraphForm(const ChartContext& context) {
    auto* form = new frmGraph(context);
    connect(form, &frmGraph::ExitAsked, this, [this] {
        if (!person_.InRun()) CloseGraph();
    });
    graphForm_ = form;
    QMdiSubWindow* const window = AddChild(*form);
    graphWindow_ = window;
    SetOperations(*form, PictureOperations(*form, *form->ClientArea()));
    connect(form, &frmGraph::TestAsked, this, [this] {
        TestConditions({session_.settings, analysis_.series, chart_}, person_, this);
    });
    window->resize(form->ClientArea()->size());
    window->showMaximized();
    form->setFocus();
    ApplyRules();
}

void frmMain::CloseGraph() {
    RemoveChild(graphWindow_);
    graphWindow_ = nullptr;
    graphForm_ = nullptr;
    ApplyRules();
}

void frmMain::OfferHistory() {
    auto* offer = new frmGraphNoData([this] { DownloadChartHistory(); }, this);
    connect(offer, &QDialog::finished, offer, &QObject::deleteLater);
    offer->open();
}

void frmMain::DownloadChartHistory() {
    const HistoryDownload download = DownloadTickerHistory(session_, web_, hosts_, chart_.SelectorTicker);
    if (download.outcome == HistoryOutcome::Failed) {
        person_.Say(chart_.SelectorTicker + ": the history cannot be written to " +
                    session_.settings.QuoteFolder + " (" + download.error.message() + ")");
    }
    CloseGraph();
}

}  // namespace brantlow
