#include "shell/frame/windows/drop_commands.h"

#include <QDropEvent>
#include <QMainWindow>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <string_view>
#include <unordered_set>

#include "base/windows/display_text.h"
#include "shell/file_kind.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "shell/run_report.h"
#include "store/dropped_tickers.h"
#include "store/file_names.h"
#include "store/table_edit.h"
#include "store/table_sort.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

// A text larger than this is no list of tickers.
constexpr std::uintmax_t kLargestText = std::uintmax_t{4} * 1024 * 1024;

}  // namespace

DropCommands::DropCommands(const FrameHands& frame) : frame_(frame) {
    frame_.window.setAcceptDrops(true);
    frame_.window.installEventFilter(this);
}

// In a long run the table belongs to the run.
bool DropCommands::Takes(const QMimeData& data) const {
    return !frame_.person.InRun() && (data.hasText() || (data.hasUrls() && data.urls().size() == 1 &&
                                                         data.urls().constFirst().isLocalFile()));
}

bool DropCommands::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop)
        return QObject::eventFilter(object, event);
    auto& drop = static_cast<QDropEvent&>(*event);
    if (!Takes(*drop.mimeData())) return false;
    drop.acceptProposedAction();
    if (event->type() == QEvent::DragEnter) return true;
    // Later: the program that the drop comes from waits until it is taken, and no question is to hold it up.
    const QMimeData& data = *drop.mimeData();
    if (data.hasUrls() && data.urls().constFirst().isLocalFile()) {
        const Path file = PathOf(data.urls().constFirst().toLocalFile());
        QTimer::singleShot(0, this, [this, file] { TakeFile(file); });
    } else {
        const std::string text = data.text().toStdString();
        QTimer::singleShot(0, this, [this, text] { AddTickers(text, "the text"); });
    }
    return true;
}

void DropCommands::TakeFile(const Path& file) {
    if (frame_.person.InRun()) return;
    if (KindOf(file.filename().string()) == FileKind::Ddq) return OpenQuoteFile(file);
    const std::string name = file.filename().string();
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (!error && size > kLargestText) return frame_.person.Say(name + ": too large for a list of tickers");
    std::string bytes;
    if (const Failure failure = ReadNeeded(file, bytes)) return frame_.person.Say(Sentence(failure));
    AddTickers(bytes, name);
}

// One from elsewhere is copied into the data folder, where all tables lie.
void DropCommands::OpenQuoteFile(const Path& file) {
    const ChosenFile chosen = CutCurrentFile(frame_.session.AppPath, file);
    if (chosen.refusal.empty()) return frame_.openNamed(chosen.CurrentFile);
    const std::string name = file.filename().string();
    const Path target = frame_.session.DataFile(name);
    std::error_code error;
    const bool replaces = std::filesystem::exists(target, error);
    const std::string question = replaces ? name +
                                                " stands in the data folder already. Replace it by the file "
                                                "from elsewhere?"
                                          : "Copy " + name + " into the data folder and open it?";
    const bool goesOn = replaces ? frame_.person.AskBeforeLoss(question, "Open", "Replace")
                                 : frame_.person.AskToGoOn(question, "Open", "Copy");
    if (!goesOn) return;
    std::string bytes;
    if (const Failure failure = ReadNeeded(file, bytes)) return frame_.person.Say(Sentence(failure));
    if (const std::error_code failure = WriteWholeFile(target, bytes))
        return frame_.person.Say(target.string() + ": cannot be written (" + failure.message() + ")");
    frame_.openNamed(name);
}

void DropCommands::AddTickers(const std::string& text, const std::string& from) {
    frmQuoteGrid* const form = frame_.table.form();
    if (!form || KindOf(frame_.session.CurrentFile) != FileKind::Ddq)
        return frame_.person.Say("Tickers can be dropped onto an open End of Day Quote File.");
    QuoteTable& table = form->Table();
    const std::vector<std::string> rows = table.Tickers();
    const std::unordered_set<std::string_view> known(rows.begin(), rows.end());
    std::vector<std::string> fresh;
    for (const std::string& ticker : TickersIn(text)) {
        if (!known.contains(ticker) && RefusedTickerName(ticker, frame_.session.settings).empty())
            fresh.push_back(ticker);
    }
    if (fresh.empty()) return frame_.notice("No new ticker in " + from);
    const std::string question = "Add " + CountedTickers(fresh.size()) + " of " + from + " to " +
                                 frame_.session.CurrentFile + "? (" + fresh.front() +
                                 (fresh.size() > 1 ? " ... " + fresh.back() : "") + ")";
    if (!frame_.person.AskToGoOn(question, "Add Symbols", "Add")) return;
    std::size_t added = 0;
    for (const std::string& ticker : fresh) added += table.AppendLine(ticker) ? 1U : 0U;
    SortTable(table, form->CurrentColumn(), SortOrder::Ascending);
    form->TableChanged();
    std::error_code error;
    frame_.runs.Saving(table, [&] { error = AutomaticSave(frame_.session, table); });
    frame_.person.ShowStatusWord("Complete");
    frame_.person.ShowTickerCount(table.TickerCount());
    form->SelectTicker(fresh.front());
    if (error) return frame_.person.Say(CannotBeSaved(frame_.session.CurrentFile, error));
    frame_.notice(CountedTickers(added) + " added. Populate Database fetches their histories.");
}

}  // namespace brantlow
