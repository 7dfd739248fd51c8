// The commands of the Help menu that are about the program itself, the check for a new version, and the
// companion program.
#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QProcess>

#include "acquire/version/updater.h"
#include "acquire/version/version_check.h"
#include "acquire/version/windows/frmVersionUpdate.h"
#include "base/windows/display_text.h"
#include "shell/app_folder.h"
#include "shell/frame/windows/frmAbout.h"
#include "shell/frame/windows/frmDisclaimer.h"
#include "shell/frame/windows/frmHelp.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "shell/help_pages.h"

namespace brantlow {

namespace {

// The maker's public key among the files of the installation.
constexpr const char* kPublicKeyName = "updater_key.pem";
// The companion program that makes the quote file of a whole market.
constexpr const char* kQuoteFileTool = "BrantlowQuoteFiles";

}  // namespace

// What pages leave behind: the browser's, where there is one.
UrlCache& frmMain::Cache() {
    if (browser_.cache != nullptr) return *browser_.cache;
    return updates_.cache;
}

void frmMain::ShowHelpContents() {
    ShowHelp(kHelpContents);
}

void frmMain::ShowHelpIndex() {
    ShowHelp(kHelpIndex);
}

// An application folder that is older than the help has no pages; those of the installation serve.
Path frmMain::HelpFolder() const {
    Path folder = session_.AppPath / "Help";
    if (IsRegularFile(folder / kHelpContents)) return folder;
    const std::optional<Path> assets = FindAssets(CurrentStartPlaces().executable);
    return assets ? *assets / "Help" : folder;
}

// A window that a modal one shuts out could not be read in: then the help belongs to the modal one.
void frmMain::ShowHelp(std::string_view page) {
    QWidget* const owner = QApplication::activeModalWidget();
    frmHelp* const shown = helpForm_.data();
    const bool elsewhere = shown != nullptr && shown->parentWidget() != owner;
    if (elsewhere) shown->close();
    if (shown == nullptr || elsewhere) helpForm_ = new frmHelp(HelpFolder(), owner);
    helpForm_->ShowPage(page);
}

// The name of the window in front: the child in the frame, or a window of its own. A modal one is in front of
// the frame from its opening, though the system may say a moment later that it is active.
std::string frmMain::WindowInFront() const {
    const QWidget* window = QApplication::activeWindow();
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal && (!window || window == this)) window = modal;
    if (window == this) {
        const QMdiSubWindow* child = area_->activeSubWindow();
        window = child ? child->widget() : this;
    }
    return window ? window->objectName().toStdString() : std::string();
}

// F1 anywhere in the program opens the page of the window in front.
bool frmMain::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1 &&
        object->isWidgetType()) {
        ShowHelp(HelpPageOf(WindowInFront()));
        return true;
    }
    return QMainWindow::eventFilter(object, event);
}

void frmMain::ShowAbout() {
    frmAbout(this).exec();
}

void frmMain::ShowDisclaimer() {
    frmDisclaimer(person_, this).exec();
}

void frmMain::CreateMarketQuoteFile() {
    const Path tool = session_.AppPath / kQuoteFileTool;
    if (!IsRegularFile(tool)) {
        return person_.Say("The program that creates market quote files is not installed. It belongs in " +
                           tool.string() + ".");
    }
    if (!QProcess::startDetached(ShownPath(tool), {}, ShownPath(session_.AppPath)))
        person_.Say(tool.string() + ": cannot be started");
}

void frmMain::CheckForUpdates() {
    OfferNewVersion(AskedBy::User);
}

void frmMain::OfferNewVersion(AskedBy askedBy) {
    const VersionOutcome outcome = CheckVersion(web_, Cache(), hosts_, session_.settings, session_.AppPath,
                                                RunningVersion(), askedBy, person_);
    if (outcome == VersionOutcome::Nothing) return;
    auto* offer = new frmVersionUpdate(this);
    connect(offer, &QDialog::finished, offer, &QObject::deleteLater);
    connect(offer, &frmVersionUpdate::AboutAsked, this,
            [this] { OpenBrowser(hosts_.Address(Host::Vendor) + std::string(kChangesPath)); });
    connect(offer, &QDialog::accepted, this, &frmMain::UpdateProgram);
    offer->open();
}

// The helper works once the program is gone.
void frmMain::UpdateProgram() {
    person_.Say(kCloseHelpText);
    const std::optional<Path> assets = FindAssets(CurrentStartPlaces().executable);
    const Path key = assets.value_or(Path()) / kPublicKeyName;
    const FetchedUpdater updater = FetchUpdater(web_, hosts_, session_.AppPath, key);
    if (!updater.refusal.empty()) return person_.Say(updater.refusal);
    if (!QProcess::startDetached(ShownPath(updater.program), {}, ShownPath(session_.AppPath)))
        return person_.Say(updater.program.string() + ": cannot be started");
    close();
}

}  // namespace brantlow
