#include "shell/frame/windows/chart_commands.h"

#include <QMainWindow>
#include <QMdiSubWindow>

#include "acquire/feeds/history_download.h"
#include "chart/windows/frmGraph.h"
#include "chart/windows/frmGraphNoData.h"
#include "chart/windows/frmReturn.h"
#include "shell/frame/windows/frame_children.h"
#include "shell/frame/windows/window_person.h"
#include "store/table_edit.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

CommandRows ChartCommands::Rows() {
    static constexpr SubjectRow<ChartCommands> kRows[] = {
        {"mnuGraphicsHLC", &ChartCommands::ChartHighLowClose},
        {"mnuGraphicsCandleStick", &ChartCommands::ChartCandleStick},
        {"Graphics", &ChartCommands::ChartAgain},
        {"mnuPopUpGraphicsHLC", &ChartCommands::ChartHighLowClose},
        {"mnuPopUpGraphicsCandleStick", &ChartCommands::ChartCandleStick},
        {"mnuViewFitChart", &ChartCommands::ToggleFit},
    };
    return RowsOf(*this, kRows);
}

frmGraph* ChartCommands::Form() const {
    return form_;
}

void ChartCommands::ChartHighLowClose() {
    ShowChart(kDefaultStyle);
}

void ChartCommands::ChartCandleStick() {
    ShowChart(kCandleStickStyle);
}

void ChartCommands::ChartAgain() {
    ShowChart({});
}

void ChartCommands::ShowChart(std::string_view style) {
    ChartSelection selection;
    const frmQuoteGrid* const table = frame_.table.form();
    const std::string ticker = table ? TickerMeant(frame_.table, frame_.session) : std::string();
    selection.ticker = ticker;
    if (table) {
        selection.table = &table->Table();
        selection.row = RowOfTicker(table->Table(), ticker);
    }
    chart_.LastDay.reset();
    ShowSelection(selection, style);
}

void ChartCommands::Show(const ChartWish& wish) {
    chart_.LastDay = wish.day;
    ChartSelection selection;
    selection.ticker = wish.ticker;
    ShowSelection(selection, {}, &wish);
}

void ChartCommands::ShowSelection(const ChartSelection& selection, std::string_view style,
                                  const ChartWish* wish) {
    ChartContext context{frame_.session, analysis_, chart_};
    const ChartStart start = StartChart(context, selection, style);
    if (start == ChartStart::NoTicker) return;
    if (start == ChartStart::Done && wish) ShowWish(context, *wish);
    CloseForm();
    LoadForm(context);
    if (start == ChartStart::NoHistory) OfferHistory();
}

void ChartCommands::LoadForm(const ChartContext& context) {
    auto* form = new frmGraph(context, options_);
    QObject::connect(form, &frmGraph::OptionsChosen, &frame_.window, [this] { KeepOptions(); });
    QObject::connect(form, &frmGraph::ExitAsked, &frame_.window, [this] {
        if (!frame_.person.InRun()) CloseForm();
    });
    form_ = form;
    QMdiSubWindow* const window = frame_.children.Add(*form);
    window_ = window;
    ChildOperations operations = frame_.pictureOperations(*form, *form->ClientArea());
    operations.close = [this] { CloseForm(); };
    frame_.children.SetOperations(*form, operations);
    QObject::connect(form, &frmGraph::TestAsked, &frame_.window, [this] {
        TestConditions({frame_.session.settings, analysis_.series, chart_}, frame_.person, &frame_.window);
    });
    window->resize(form->ClientArea()->sizeHint());
    window->showMaximized();
    form->setFocus();
    frame_.applyRules();
}

// Not in the midst of a run: the series that the chart is drawn from may be in work.
void ChartCommands::FollowRow() {
    const frmQuoteGrid* const table = frame_.table.form();
    if (!form_ || !table || frame_.person.InRun()) return;
    const std::size_t row = RowOfTicker(table->Table(), table->TickerMeant());
    if (row > 0) form_->ShowAlarms(table->Table(), row);
}

void ChartCommands::CloseForm() {
    frame_.children.Remove(window_);
    window_ = nullptr;
    form_ = nullptr;
    frame_.applyRules();
}

void ChartCommands::LoadOptions() {
    options_ = LoadChartOptions(userStore_);
    ShowOptionsInMenu();
}

void ChartCommands::ToggleFit() {
    options_.fitToWindow = !options_.fitToWindow;
    OptionsChanged();
}

void ChartCommands::OptionsChanged() {
    ShowOptionsInMenu();
    if (form_) form_->ShowOptions();
    KeepOptions();
}

void ChartCommands::ShowOptionsInMenu() {
    frame_.check("mnuViewFitChart", options_.fitToWindow);
}

void ChartCommands::KeepOptions() {
    const std::error_code error = SaveChartOptions(userStore_, options_);
    if (!error) return;
    frame_.person.Say("How charts look cannot be kept in " + userStore_.string() + " (" + error.message() +
                      ")");
}

void ChartCommands::OfferHistory() {
    auto* offer = new frmGraphNoData([this] { DownloadHistory(); }, &frame_.window);
    QObject::connect(offer, &QDialog::finished, offer, &QObject::deleteLater);
    offer->open();
}

void ChartCommands::DownloadHistory() {
    const HistoryDownload download =
        DownloadTickerHistory(frame_.session, frame_.web, frame_.hosts, chart_.SelectorTicker);
    RunReport report("History of " + chart_.SelectorTicker, "histories");
    TellHistory(chart_.SelectorTicker, download, report);
    if (!report.Tickers().empty()) frame_.tell(report);
    if (download.outcome == HistoryOutcome::Failed) {
        frame_.person.Say(FaultSentence("The history of " + chart_.SelectorTicker, download.error));
    }
    CloseForm();
}

}  // namespace brantlow
