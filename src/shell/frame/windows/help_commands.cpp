#include "shell/frame/windows/help_commands.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QProcess>

#include "acquire/version/updater.h"
#include "acquire/version/version_check.h"
#include "acquire/version/windows/frmVersionUpdate.h"
#include "base/windows/display_text.h"
#include "shell/app_folder.h"
#include "shell/frame/windows/frame_children.h"
#include "shell/frame/windows/frmAbout.h"
#include "shell/frame/windows/frmCommandPalette.h"
#include "shell/frame/windows/frmDisclaimer.h"
#include "shell/frame/windows/frmHelp.h"
#include "shell/frame/windows/frmKeys.h"
#include "shell/frame/windows/window_person.h"
#include "shell/help_pages.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

// The maker's public key among the files of the installation.
constexpr const char* kPublicKeyName = "updater_key.pem";

// The part of the frame that has the keyboard and a place of its own in the help, as the pane of a verdict.
const QWidget* PartWithFocus(const QWidget& frame) {
    const QWidget* part = QApplication::focusWidget();
    while (part && part != &frame && HelpPageOf(part->objectName().toStdString()) == kHelpContents)
        part = part->parentWidget();
    return part == &frame ? nullptr : part;
}

}  // namespace

HelpCommands::HelpCommands(const FrameHands& frame, UrlCache& cache) : frame_(frame), cache_(cache) {
    qApp->installEventFilter(this);
}

HelpCommands::~HelpCommands() {
    delete form_;
}

CommandRows HelpCommands::Rows() {
    static constexpr SubjectRow<HelpCommands> kRows[] = {
        {"mnuHelpFile", &HelpCommands::ShowHelpContents},
        {"mnuHelpIndex", &HelpCommands::ShowHelpIndex},
        {"mnuHelpKeys", &HelpCommands::ShowKeys},
        {"mnuHelpCommands", &HelpCommands::ShowCommands},
        {"mnuHelpAbout", &HelpCommands::ShowAbout},
        {"mnuHelpDisclaimer", &HelpCommands::ShowDisclaimer},
        {"mnuHelpBrantlowUpdates", &HelpCommands::CheckForUpdates},
    };
    return RowsOf(*this, kRows);
}

void HelpCommands::ShowHelpContents() {
    ShowHelp(kHelpContents);
}

void HelpCommands::ShowHelpIndex() {
    ShowHelp(kHelpIndex);
}

// The pages of the installation tell of this version; those of an application folder are as old as the
// folder.
Path HelpCommands::HelpFolder() const {
    const std::optional<Path> assets = FindAssets(CurrentStartPlaces().executable);
    if (assets && IsRegularFile(*assets / "Help" / kHelpContents)) return *assets / "Help";
    return frame_.session.AppPath / "Help";
}

// A window that a modal one shuts out could not be read in: then the help belongs to the modal one.
void HelpCommands::ShowHelp(std::string_view page) {
    QWidget* const owner = QApplication::activeModalWidget();
    frmHelp* const shown = form_.data();
    const bool elsewhere = shown != nullptr && shown->parentWidget() != owner;
    if (elsewhere) shown->close();
    if (shown == nullptr || elsewhere) form_ = new frmHelp(HelpFolder(), owner);
    form_->ShowPage(page);
}

// The name of the window in front: the child in the frame, or a window of its own. A modal one is in front of
// the frame from its opening, though the system may say a moment later that it is active.
std::string HelpCommands::WindowInFront() const {
    const QWidget* window = QApplication::activeWindow();
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal && (!window || window == &frame_.window)) window = modal;
    if (window == &frame_.window) {
        const QWidget* const child = frame_.children.FormInFront();
        if (child) window = child;
        if (const QWidget* const part = PartWithFocus(frame_.window)) window = part;
    }
    return window ? window->objectName().toStdString() : std::string();
}

bool HelpCommands::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1 &&
        object->isWidgetType()) {
        ShowHelp(HelpPageOf(WindowInFront()));
        return true;
    }
    return QObject::eventFilter(object, event);
}

void HelpCommands::ShowKeys() {
    frmKeys(&frame_.window).exec();
}

PaletteScene HelpCommands::SceneInFront() const {
    const frmQuoteGrid* const form = frame_.table.form();
    const ChildOperations* const child = frame_.children.ActiveOperations();
    return {.hasTicker = form && !form->TickerMeant().empty(),
            .hasChart = child && child->copyPicture,
            .hasChild = frame_.children.FormInFront() != nullptr};
}

void HelpCommands::ShowCommands() {
    const frmQuoteGrid* const form = frame_.table.form();
    PaletteStart start;
    start.commands = PaletteCommands(SceneInFront(), [this](const MenuEntry& entry) {
        const auto* action = frame_.window.findChild<QAction*>(Name(entry.id));
        return action && action->isEnabled();
    });
    if (form) start.tickers = form->Table().Tickers();
    start.choose = [this](const PaletteRow& row) { ChooseInPalette(row); };
    frmCommandPalette(std::move(start), &frame_.window).exec();
}

// A command as its menu chooses it.
void HelpCommands::ChooseInPalette(const PaletteRow& row) {
    if (row.command) {
        if (auto* action = frame_.window.findChild<QAction*>(Name(row.command->id))) action->trigger();
        return;
    }
    frmQuoteGrid* const form = frame_.table.form();
    if (!form) return;
    form->SelectTicker(row.words);
    if (!frame_.person.InRun()) frame_.run("Graphics");
}

void HelpCommands::ShowAbout() {
    frmAbout(&frame_.window).exec();
}

void HelpCommands::ShowDisclaimer() {
    frmDisclaimer(frame_.person, &frame_.window).exec();
}

void HelpCommands::CloseForm() {
    if (form_) form_->close();
}

void HelpCommands::LookForNewVersion() {
    OfferNewVersion(AskedBy::Program);
}

void HelpCommands::CheckForUpdates() {
    OfferNewVersion(AskedBy::User);
}

void HelpCommands::OfferNewVersion(AskedBy askedBy) {
    const VersionOutcome outcome =
        CheckVersion(frame_.web, cache_, frame_.hosts, frame_.session.settings, frame_.session.AppPath,
                     RunningVersion(), askedBy, frame_.person);
    if (outcome == VersionOutcome::Nothing) return;
    auto* offer = new frmVersionUpdate(&frame_.window);
    QObject::connect(offer, &QDialog::finished, offer, &QObject::deleteLater);
    QObject::connect(offer, &frmVersionUpdate::AboutAsked, this, [this] {
        frame_.openPage(frame_.hosts.Address(Host::Vendor) + std::string(kChangesPath));
    });
    QObject::connect(offer, &QDialog::accepted, this, &HelpCommands::UpdateProgram);
    // One that nobody asked for stands beside the work and holds up no daily run.
    if (askedBy == AskedBy::User) {
        offer->open();
    } else {
        offer->show();
    }
}

// The helper works once the program is gone.
void HelpCommands::UpdateProgram() {
    frame_.person.Say(kCloseHelpText);
    const std::optional<Path> assets = FindAssets(CurrentStartPlaces().executable);
    const Path key = assets.value_or(Path()) / kPublicKeyName;
    const FetchedUpdater updater = FetchUpdater(frame_.web, frame_.hosts, frame_.session.AppPath, key);
    if (!updater.refusal.empty()) return frame_.person.Say(updater.refusal);
    if (!QProcess::startDetached(ShownPath(updater.program), {}, ShownPath(frame_.session.AppPath)))
        return frame_.person.Say(updater.program.string() + ": cannot be started");
    frame_.window.close();
}

}  // namespace brantlow
