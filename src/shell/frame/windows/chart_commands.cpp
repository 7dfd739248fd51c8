#include "shell/frame/windows/chart_commands.h"

#include <QMainWindow>
#include <QMdiSubWindow>
#include <algorithm>
#include <utility>
#include <vector>

#include "acquire/feeds/history_download.h"
#include "chart/ticker_walk.h"
#include "chart/windows/frmGraph.h"
#include "chart/windows/frmGraphNoData.h"
#include "chart/windows/frmReturn.h"
#include "shell/frame/windows/frame_children.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "store/table_edit.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"

namespace brantlow {

namespace {

constexpr std::string_view kStepNeedsTable = "To go from ticker to ticker, you will need to open a table";
constexpr std::string_view kLastOfWalk = "This is the last ticker";
constexpr std::string_view kFirstOfWalk = "This is the first ticker";

}  // namespace

template <bool ChartOptions::*choice>
void ChartCommands::Toggle() {
    options_.*choice = !(options_.*choice);
    OptionsChanged();
}

template <ChartColours colours>
void ChartCommands::Colour() {
    options_.colours = colours;
    OptionsChanged();
}

CommandRows ChartCommands::Rows() {
    static constexpr SubjectRow<ChartCommands> kRows[] = {
        {"mnuGraphicsHLC", &ChartCommands::ChartHighLowClose},
        {"mnuGraphicsCandleStick", &ChartCommands::ChartCandleStick},
        {"Graphics", &ChartCommands::ChartAgain},
        {"mnuPopUpGraphicsHLC", &ChartCommands::ChartHighLowClose},
        {"mnuPopUpGraphicsCandleStick", &ChartCommands::ChartCandleStick},
        {"mnuViewFitChart", &ChartCommands::Toggle<&ChartOptions::fitToWindow>},
        {"mnuViewChartTimeAxis", &ChartCommands::Toggle<&ChartOptions::timeAxis>},
        {"mnuViewChartRoundPrices", &ChartCommands::Toggle<&ChartOptions::roundPrices>},
        {"mnuViewChartGrid", &ChartCommands::Toggle<&ChartOptions::grid>},
        {"mnuViewChartWideLines", &ChartCommands::Toggle<&ChartOptions::wideLines>},
        {"mnuViewChartDesktop", &ChartCommands::Colour<ChartColours::Desktop>},
        {"mnuViewChartStandard", &ChartCommands::Colour<ChartColours::Standard>},
        {"mnuViewChartDistinct", &ChartCommands::Colour<ChartColours::Distinct>},
        {"mnuViewChartDark", &ChartCommands::Colour<ChartColours::Dark>},
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
    QObject::connect(form, &frmGraph::TickerAsked, &frame_.window,
                     [this](const std::string& ticker) { ShowTicker(ticker); });
    QObject::connect(form, &frmGraph::StepAsked, &frame_.window, [this](bool downwards) { Step(downwards); });
    QObject::connect(form, &frmGraph::Told, &frame_.window, frame_.notice);
    QObject::connect(form, &frmGraph::OptionsChosen, &frame_.window, [this] { KeepOptions(); });
    QObject::connect(form, &frmGraph::ExitAsked, &frame_.window, [this] {
        if (!frame_.person.InRun()) CloseForPerson();
    });
    form->AskBeforeDrawing([this] { return frame_.person.InRun(); });
    form_ = form;
    QMdiSubWindow* const window = frame_.children.Add(*form);
    window_ = window;
    ChildOperations operations = frame_.pictureOperations(
        *form, [form] { return form->Picture(); }, [form] { return form->Svg(); });
    operations.print = frame_.pictureOperations(*form, [form] { return form->PaperPicture(); }, {}).print;
    operations.close = [this] { CloseForPerson(); };
    frame_.children.SetOperations(*form, operations);
    QObject::connect(form, &frmGraph::TestAsked, &frame_.window, [this] {
        TestConditions({frame_.session.settings, analysis_.series, chart_}, frame_.person, &frame_.window);
    });
    window->resize(form->UsualSize());
    window->showMaximized();
    OfferWalks();
    form->setFocus();
    frame_.applyRules();
}

void ChartCommands::ShowTicker(const std::string& ticker) {
    if (!form_ || frame_.person.InRun()) return;
    ChartSelection selection;
    selection.ticker = ticker;
    if (const frmQuoteGrid* const table = frame_.table.form()) {
        selection.table = &table->Table();
        selection.row = RowOfTicker(table->Table(), ticker);
    }
    ChartContext context{frame_.session, analysis_, chart_};
    const ChartStart start = ChangeTicker(context, selection);
    form_->TickerChanged();
    // What was told of the ticker before is over.
    frame_.notice(start == ChartStart::NoHistory ? ticker + ": no history in the Quote Database"
                                                 : std::string());
}

// The row of the table goes along, so that its commands mean the ticker that is charted.
void ChartCommands::Step(bool downwards) {
    frmQuoteGrid* const table = frame_.table.form();
    if (!form_ || frame_.person.InRun()) return;
    if (!table) return frame_.notice(std::string(kStepNeedsTable));
    const std::size_t condition = form_->WalkCondition();
    std::size_t column = kEveryRow;
    for (const HitColumn& hit : HitColumnsOf(table->Table())) {
        if (hit.condition == condition) column = hit.column;
    }
    const std::vector<std::size_t> shown = table->ShownRows();
    const auto placeOf = [&](std::size_t row) { return std::find(shown.begin(), shown.end(), row); };
    const std::size_t row = RowOfTicker(table->Table(), chart_.SelectorTicker);
    auto next = NextRow(table->Table(), row, downwards, column);
    while (next && placeOf(*next) == shown.end()) next = NextRow(table->Table(), *next, downwards, column);
    if (!next) return frame_.notice(std::string(downwards ? kLastOfWalk : kFirstOfWalk));
    const std::string ticker = table->Table().Ticker(*next);
    ShowTicker(ticker);
    table->View()->selectRow(static_cast<int>(placeOf(*next) - shown.begin()));
}

void ChartCommands::OfferWalks() {
    std::vector<std::size_t> conditions;
    if (const frmQuoteGrid* const table = frame_.table.form()) {
        for (const HitColumn& hit : HitColumnsOf(table->Table())) conditions.push_back(hit.condition);
    }
    form_->OfferWalks(conditions);
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

// The keys go on where the chart was asked for.
void ChartCommands::CloseForPerson() {
    CloseForm();
    const frmQuoteGrid* const table = frame_.table.form();
    if (table && frame_.children.FormInFront() == table) table->View()->setFocus();
}

void ChartCommands::LoadOptions() {
    options_ = LoadChartOptions(userStore_);
    ShowOptionsInMenu();
}

void ChartCommands::OptionsChanged() {
    ShowOptionsInMenu();
    if (form_) form_->ShowOptions();
    KeepOptions();
}

void ChartCommands::ShowOptionsInMenu() {
    const std::pair<std::string_view, bool> entries[] = {
        {"mnuViewFitChart", options_.fitToWindow},
        {"mnuViewChartTimeAxis", options_.timeAxis},
        {"mnuViewChartRoundPrices", options_.roundPrices},
        {"mnuViewChartGrid", options_.grid},
        {"mnuViewChartWideLines", options_.wideLines},
        {"mnuViewChartDesktop", options_.colours == ChartColours::Desktop},
        {"mnuViewChartStandard", options_.colours == ChartColours::Standard},
        {"mnuViewChartDistinct", options_.colours == ChartColours::Distinct},
        {"mnuViewChartDark", options_.colours == ChartColours::Dark},
    };
    for (const auto& [entry, on] : entries) frame_.check(entry, on);
}

void ChartCommands::KeepOptions() {
    if (Failure failure = FailedTo(FailureKind::Write, userStore_, SaveChartOptions(userStore_, options_)))
        frame_.person.Say(Sentence(std::move(failure).About("how charts look is not kept")));
}

void ChartCommands::OfferHistory() {
    auto* offer = new frmGraphNoData([this] { DownloadHistory(); }, &frame_.window);
    QObject::connect(offer, &QDialog::finished, offer, &QObject::deleteLater);
    offer->open();
}

void ChartCommands::DownloadHistory() {
    frame_.person.BeginWork();
    const HistoryDownload download =
        DownloadTickerHistory(frame_.session, frame_.web, frame_.hosts, chart_.SelectorTicker);
    const bool stays = frame_.runs.End();
    RunReport report("History of " + chart_.SelectorTicker, "histories");
    TellHistory(chart_.SelectorTicker, download, report);
    if (!report.Tickers().empty()) frame_.tell(report);
    if (download.outcome == HistoryOutcome::Failed) {
        frame_.person.Say(ChangeSentence("The history of " + chart_.SelectorTicker, download.error));
    }
    if (stays) CloseForm();
}

}  // namespace brantlow
