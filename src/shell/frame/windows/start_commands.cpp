#include "shell/frame/windows/start_commands.h"

#include <QMainWindow>
#include <array>

#include "acquire/feeds/history_download.h"
#include "acquire/feeds/live/source_standing.h"
#include "acquire/feeds/windows/frmSources.h"
#include "acquire/web/hosts.h"
#include "practice/practice.h"
#include "shell/app_folder.h"
#include "shell/frame/windows/window_person.h"
#include "shell/session_change.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"

namespace brantlow {

namespace {

// The sentence for a filling that did not come about; empty for one that did.
std::string WhyNotFilled(const PracticeResult& result) {
    switch (result.outcome) {
        case PracticeOutcome::AlreadyThere:
            return "The practice table is not made, since the application folder already holds " +
                   result.detail + ". Nothing was changed.";
        case PracticeOutcome::NoPrices:
        case PracticeOutcome::Failed:
            return result.detail;
        case PracticeOutcome::Filled:
            break;
    }
    return {};
}

// Of a list whose tickers have histories that are to stay.
constexpr const char* kKeptHistories =
    "The stored histories stay as they are. Update Quotes (F5) fetches the days since then.";

// Of a table for which its histories were asked in vain.
std::string NoPriceSentence(const RunReport& histories) {
    return "No price came for this table. " + histories.Line() +
           ".\r\n\r\nA click on the line in the status bar shows what became of each ticker. Settings, Quote "
           "Sources, tries a source.";
}

std::string FillPracticeTable(const Session& session) {
    const std::optional<Path> assets = FindAssets(CurrentStartPlaces().executable);
    if (!assets)
        return "The files that belong to the program were not found beside it. Please install it again.";
    return WhyNotFilled(FillPractice(
        *assets / "practice",
        {ChangePlaceOf(session), session.DataFolder(), session.settings.QuoteFolder, session.clock.Today()}));
}

}  // namespace

CommandRows StartCommands::Rows() {
    static constexpr SubjectRow<StartCommands> kRows[] = {
        {"mnuFileNewMyList", &StartCommands::NewList},
        {"mnuFileNewFromMarket", &StartCommands::NewFromMarket},
    };
    return RowsOf(*this, kRows);
}

WelcomeActions StartCommands::Actions() {
    return {.open = [this](const std::string& name) { frame_.openNamed(name); },
            .update = [this](const std::string& name) { OpenAndUpdate(name); },
            .openFirst = [this] { OpenFirst(); },
            .practice = [this] { OpenPractice(); },
            .run = [this](std::string_view command) { frame_.run(command); }};
}

void StartCommands::BeginWith(StartWay way) {
    struct WayRow {
        StartWay way;
        void (StartCommands::*begin)();
    };
    constexpr std::array<WayRow, 3> kWays = {{{StartWay::PracticeTable, &StartCommands::OpenPractice},
                                              {StartWay::List, &StartCommands::NewList},
                                              {StartWay::File, &StartCommands::OpenFirst}}};
    for (const WayRow& row : kWays) {
        if (row.way == way) (this->*row.begin)();
    }
}

void StartCommands::NewList() {
    OpenNewList(NewListOf::Tickers);
}

void StartCommands::NewFromMarket() {
    OpenNewList(NewListOf::Market);
}

void StartCommands::OpenNewList(NewListOf begin) {
    auto* dialog = new frmNewList(frame_.session, frame_.web, begin, &frame_.window);
    QObject::connect(dialog, &QDialog::finished, dialog, &QObject::deleteLater);
    QObject::connect(dialog, &frmNewList::TableMade, &frame_.window,
                     [this](const std::string& name, bool fills) { Begin(name, fills); });
    dialog->open();
}

void StartCommands::Begin(const std::string& name, bool fills) {
    frame_.openNamed(name);
    if (!frame_.table.form() || !fills) return;
    Fill();
}

bool StartCommands::ShowChartOfFirst() {
    const frmQuoteGrid* const form = frame_.table.form();
    const std::vector<std::string> tickers = TickersOf(form->Table());
    for (std::size_t i = 0; i < tickers.size(); ++i) {
        if (TickersWithHistory(frame_.session, {tickers[i]}) == 0) continue;
        form->View()->selectRow(static_cast<int>(i));
        frame_.run("Graphics");
        return true;
    }
    return false;
}

void StartCommands::Fill() {
    RunReport histories;
    const Filling filling = frame_.fillTable(histories);
    const bool isEmpty = filling == Filling::Done && frame_.table.form() && !ShowChartOfFirst();
    if (isEmpty) frame_.person.Say(NoPriceSentence(histories));
    if (filling == Filling::Kept && ShowChartOfFirst()) frame_.notice(kKeptHistories);
}

void StartCommands::OpenFirst() {
    const Path file = frame_.askFile(OpeningQuestion(frame_.session, OpeningRoad::EndOfDay));
    if (file.empty()) return;
    if (KindOf(file.filename().string()) != FileKind::Ddq)
        return frame_.person.Say(file.filename().string() + ": only a quote file (.ddq) can be opened here");
    frame_.openQuoteFile(file);
    const bool isOpen = frame_.table.form() && KindOf(frame_.session.CurrentFile) == FileKind::Ddq;
    if (isOpen && !ShowChartOfFirst()) OfferHistories();
}

void StartCommands::OfferHistories() {
    const std::size_t tickers = TickersOf(frame_.table.form()->Table()).size();
    if (tickers == 0) return;
    const std::string from = AskedWords(frame_.session, Capability::History);
    const std::string missing = "No price history is stored for the tickers of " +
                                frame_.session.CurrentFile + " (" + std::to_string(tickers) + "). ";
    const bool isAnswered = !from.empty() || LoadHosts(frame_.session.DataFolder()).IsPracticeMarket();
    if (!isAnswered) {
        if (frame_.person.Ask(missing + "Do you want to choose a source now, and fetch it?"))
            ChooseSourceAndFill();
        return;
    }
    const std::string whom = from.empty() ? "the practice market" : from;
    if (frame_.person.Ask(missing + "Do you want to fetch it now, from " + whom + "?")) Fill();
}

void StartCommands::ChooseSourceAndFill() {
    auto* sources = new frmSources(frame_.session, frame_.web, &frame_.window);
    QObject::connect(sources, &frmSources::ChoicesApplied, sources, [this, sources] {
        if (!AskedWords(frame_.session, Capability::History).empty()) sources->accept();
    });
    QObject::connect(
        sources, &QDialog::accepted, &frame_.window, [this] { Fill(); }, Qt::QueuedConnection);
    QObject::connect(sources, &QDialog::finished, sources, &QObject::deleteLater);
    sources->open();
}

void StartCommands::OpenPractice() {
    const std::string name(kPracticeTable);
    const bool isNew = !IsRegularFile(frame_.session.DataFile(name));
    if (isNew) {
        const std::string failure = FillPracticeTable(frame_.session);
        if (!failure.empty()) return frame_.person.Say(failure);
    }
    frame_.openNamed(name);
    if (isNew && frame_.table.form()) ShowChartOfFirst();
}

void StartCommands::OpenAndUpdate(const std::string& name) {
    frame_.openNamed(name);
    if (frame_.table.form()) frame_.run("mnuFileUpdateQuotes");
}

}  // namespace brantlow
