// The commands of the Help menu that are about the program itself, the check for a new version, and the
// companion program.
#include <QProcess>

#include "acquire/updater.h"
#include "acquire/version_check.h"
#include "acquire/windows/frmVersionUpdate.h"
#include "base/windows/display_text.h"
#include "shell/app_folder.h"
#include "shell/windows/frmAbout.h"
#include "shell/windows/frmDisclaimer.h"
#include "shell/windows/frmMain.h"
#include "shell/windows/window_person.h"

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
