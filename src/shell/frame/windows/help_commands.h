// The commands of the Help menu that are about the program itself, F1, and the check for a new version.
#pragma once

#include <QObject>
#include <QPointer>
#include <string>
#include <string_view>

#include "acquire/web/url_cache.h"
#include "shell/frame/windows/frame_hands.h"

namespace brantlow {

class frmHelp;
enum class AskedBy;
struct PaletteRow;
struct PaletteScene;

class HelpCommands final : public QObject {
  public:
    // Both outlive this; `cache` is what pages leave behind.
    HelpCommands(const FrameHands& frame, UrlCache& cache);
    ~HelpCommands() override;

    CommandRows Rows();

    // The check at the program's start: says nothing where there is nothing new.
    void LookForNewVersion();
    void CloseForm();
    // F1 anywhere in the program opens the page of the window in front.
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void ShowHelpContents();
    void ShowHelpIndex();
    void ShowKeys();
    PaletteScene SceneInFront() const;
    void ShowCommands();
    void ChooseInPalette(const PaletteRow& row);
    void ShowAbout();
    void ShowDisclaimer();
    void CheckForUpdates();
    Path HelpFolder() const;
    void ShowHelp(std::string_view page);
    std::string WindowInFront() const;
    void OfferNewVersion(AskedBy askedBy);
    void UpdateProgram();

    const FrameHands& frame_;
    UrlCache& cache_;
    QPointer<frmHelp> form_;
};

}  // namespace brantlow
