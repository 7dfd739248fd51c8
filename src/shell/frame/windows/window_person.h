// The person at the windows: message boxes, the status bar's panels, the progress bar and the event loop. A
// long run reaches the frame only through this.
//
// While a run is on the frame is disabled and frmEnable stands in front of it; a pause frees the frame. Both
// follow from the run's control word at every PumpEvents.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "shell/person.h"
#include "shell/run_control.h"
#include "shell/run_outlook.h"
#include "shell/session.h"

class QLabel;
class QMessageBox;
class QProgressBar;

namespace brantlow {

class frmEnable;
class frmLowMemory;

// The parts of the main frame that show what the engine tells; they live as long as they are attached.
struct FrameParts {
    QWidget* window = nullptr;
    QLabel* statusWord = nullptr;
    QLabel* tickerCount = nullptr;
    QProgressBar* progressBar = nullptr;
};

// Of a clock that nobody sets.
long long SteadyMilliseconds();

class WindowPerson final : public Person {
  public:
    WindowPerson();
    ~WindowPerson() override;
    WindowPerson(const WindowPerson&) = delete;
    WindowPerson& operator=(const WindowPerson&) = delete;

    // Without a frame only the message boxes and the event loop work.
    void Attach(const FrameParts& frame, Session& session);
    void Detach();

    // From here to EndRun a run works; `showRow` brings the window up to the row in work.
    void BeginRun(std::function<void()> showRow, RunStop stop);
    // The same for work that has no rows and no buttons, such as a single download: the frame is disabled and
    // the progress bar tells that something goes on.
    void BeginWork();
    // Ends either.
    void EndRun();
    bool InRun() const { return inRun_ || inWork_; }
    bool Paused() const;
    // The clock by which the time that a run still takes is told: SteadyMilliseconds, until another is given.
    void TellTimeBy(std::function<long long()> milliseconds) { milliseconds_ = std::move(milliseconds); }
    // Between these nobody is there to answer: no box opens, questions are answered with No, and what would
    // have been said is given out at the end.
    void BeginUnattended();
    std::vector<std::string> EndUnattended();
    // The frame's menu depends on whether a run stands still.
    std::function<void()> pauseChanged;

    void HideTickerCount();
    void HideProgress();

    void Say(std::string_view text, std::string_view title = {}) override;
    bool Ask(std::string_view text, std::string_view title = {}) override;
    bool AskBeforeDestroying(std::string_view text, std::string_view title = {}) override;
    bool AskBeforeLoss(std::string_view text, std::string_view title, std::string_view yes) override;
    // The same before something that costs nothing: Enter goes on.
    bool AskToGoOn(std::string_view text, std::string_view title, std::string_view yes);
    void ShowStatusWord(std::string_view word) override;
    void ShowTickerCount(std::size_t count) override;
    void ShowProgress(double fraction) override;
    void PumpEvents() override;
    // On a thread in a run; without one a window could begin what the work must not meet.
    void DoBeside(const std::function<void()>& work) override;
    void Beep() override;
    // In a window of its own that the run does not wait for.
    void WarnLowMemory() override;

  private:
    int Answer(QMessageBox& box);
    bool ProgressShows() const;
    void KeepRunWindows();
    frmEnable& EnableWindow();
    void ShowRunSoFar();
    QWidget* DialogParent() const;
    bool AskYesOrNo(std::string_view text, std::string_view title, bool yesIsDefault);
    bool AskOrCancel(std::string_view text, std::string_view title, std::string_view yes, bool yesIsDefault);

    FrameParts frame_;
    Session* session_ = nullptr;
    // Made by a run's first PumpEvents, gone with its end.
    std::unique_ptr<frmEnable> enable_;
    QPointer<frmLowMemory> lowMemory_;
    QElapsedTimer sinceShown_;
    RunClock worked_;
    std::function<long long()> milliseconds_ = SteadyMilliseconds;
    // The word of a run in work, shown with the table's next look.
    QString wordToShow_;
    std::function<void()> showRow_;
    bool inRun_ = false;
    RunStop stop_{};
    // What was said while nobody was there; nothing while somebody is.
    std::optional<std::vector<std::string>> unheard_;
    bool inWork_ = false;
    // What had the focus before work began.
    QPointer<QWidget> focus_;
    bool wasPaused_ = false;
};

}  // namespace brantlow
