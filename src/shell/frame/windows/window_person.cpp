#include "shell/frame/windows/window_person.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEventLoop>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <chrono>
#include <exception>
#include <thread>

#include "base/windows/display_text.h"
#include "shell/file_kind.h"
#include "shell/frame/windows/frmEnable.h"
#include "shell/frame/windows/frmLowMemory.h"
#include "shell/run_outlook.h"
#include "shell/status_words.h"

namespace brantlow {

namespace {

constexpr std::string_view kProgramName = "Brantlow";
// What a run has done is shown this often at most: as fast as the eye follows.
constexpr qint64 kShowIntervalMs = 40;

constexpr int kBoxPicturePixels = 40;
constexpr int kFullBar = 100;

QString TitleOf(std::string_view title) {
    return Shown(title.empty() ? kProgramName : title);
}

// A box that can be answered even where it stands over a disabled frame.
void FillBox(QMessageBox& box, std::string_view text, std::string_view title, std::string_view picture) {
    box.setWindowTitle(TitleOf(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(Shown(text));
    box.setIconPixmap(QIcon(QStringLiteral(":/icons/%1.svg").arg(Name(picture)))
                          .pixmap(QSize(kBoxPicturePixels, kBoxPicturePixels), box.devicePixelRatioF()));
    box.setEnabled(true);
}

}  // namespace

long long SteadyMilliseconds() {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count();
}

WindowPerson::WindowPerson() = default;

WindowPerson::~WindowPerson() = default;

void WindowPerson::Attach(const FrameParts& frame, Session& session) {
    frame_ = frame;
    session_ = &session;
}

void WindowPerson::Detach() {
    enable_.reset();
    frame_ = FrameParts{};
    session_ = nullptr;
    pauseChanged = nullptr;
    showRow_ = nullptr;
    inRun_ = false;
    inWork_ = false;
}

bool WindowPerson::Paused() const {
    return inRun_ && session_ && session_->run.ProcessCommand.empty();
}

void WindowPerson::BeginRun(std::function<void()> showRow, RunStop stop) {
    stop_ = stop;
    showRow_ = std::move(showRow);
    inRun_ = session_ != nullptr;
    wasPaused_ = false;
    sinceShown_.start();
    worked_.Begin(milliseconds_());
    if (frame_.window) frame_.window->setEnabled(false);
}

void WindowPerson::BeginWork() {
    inWork_ = true;
    focus_ = frame_.window ? frame_.window->focusWidget() : nullptr;
    if (pauseChanged) pauseChanged();
    if (frame_.window) frame_.window->setEnabled(false);
    if (!frame_.progressBar) return;
    frame_.progressBar->setRange(0, 0);
    frame_.progressBar->show();
}

void WindowPerson::EndRun() {
    if (inRun_) ShowRunSoFar();
    showRow_ = nullptr;
    inRun_ = false;
    inWork_ = false;
    enable_.reset();
    if (frame_.window) {
        frame_.window->setEnabled(true);
        frame_.window->activateWindow();
        // A window that is off loses its focus.
        if (focus_ && !frame_.window->focusWidget()) focus_->setFocus();
    }
    focus_ = nullptr;
    if (frame_.progressBar) {
        frame_.progressBar->setRange(0, kFullBar);
        frame_.progressBar->hide();
    }
    if (pauseChanged) pauseChanged();
}

QWidget* WindowPerson::DialogParent() const {
    if (enable_ && enable_->isVisible()) return enable_.get();
    return frame_.window && frame_.window->isVisible() ? frame_.window : nullptr;
}

void WindowPerson::BeginUnattended() {
    unheard_.emplace();
}

std::vector<std::string> WindowPerson::EndUnattended() {
    std::vector<std::string> unheard = std::move(unheard_).value_or(std::vector<std::string>());
    unheard_.reset();
    return unheard;
}

// A run waits for the answer.
int WindowPerson::Answer(QMessageBox& box) {
    worked_.StandStill(milliseconds_());
    const int button = box.exec();
    if (!Paused()) worked_.GoOn(milliseconds_());
    return button;
}

void WindowPerson::Say(std::string_view text, std::string_view title) {
    if (unheard_) return static_cast<void>(unheard_->emplace_back(text));
    QMessageBox box(DialogParent());
    FillBox(box, text, title, "information");
    Answer(box);
}

bool WindowPerson::AskYesOrNo(std::string_view text, std::string_view title, bool yesIsDefault) {
    if (unheard_) return false;
    QMessageBox box(DialogParent());
    FillBox(box, text, title, "question");
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(yesIsDefault ? QMessageBox::Yes : QMessageBox::No);
    return Answer(box) == QMessageBox::Yes;
}

bool WindowPerson::Ask(std::string_view text, std::string_view title) {
    return AskYesOrNo(text, title, true);
}

bool WindowPerson::AskBeforeDestroying(std::string_view text, std::string_view title) {
    return AskYesOrNo(text, title, false);
}

bool WindowPerson::AskOrCancel(std::string_view text, std::string_view title, std::string_view yes,
                               bool yesIsDefault) {
    if (unheard_) return false;
    QMessageBox box(DialogParent());
    FillBox(box, text, title, "question");
    QPushButton* const goesOn = box.addButton(Shown(yes), QMessageBox::AcceptRole);
    QPushButton* const cancel = box.addButton(QMessageBox::Cancel);
    box.setDefaultButton(yesIsDefault ? goesOn : cancel);
    Answer(box);
    return box.clickedButton() == goesOn;
}

bool WindowPerson::AskBeforeLoss(std::string_view text, std::string_view title, std::string_view yes) {
    return AskOrCancel(text, title, yes, false);
}

bool WindowPerson::AskToGoOn(std::string_view text, std::string_view title, std::string_view yes) {
    return AskOrCancel(text, title, yes, true);
}

void WindowPerson::ShowStatusWord(std::string_view word) {
    if (!frame_.statusWord) return;
    wordToShow_ = Shown(word);
    if (word == kStatusComplete) frame_.progressBar->hide();
    if (inRun_) return;
    frame_.statusWord->setText(wordToShow_);
    frame_.statusWord->repaint();
}

void WindowPerson::ShowTickerCount(std::size_t count) {
    if (!frame_.tickerCount) return;
    frame_.tickerCount->setText(QString::number(count));
    frame_.tickerCount->show();
}

void WindowPerson::HideTickerCount() {
    if (!frame_.tickerCount) return;
    frame_.tickerCount->clear();
    frame_.tickerCount->hide();
}

void WindowPerson::HideProgress() {
    if (frame_.progressBar) frame_.progressBar->hide();
}

bool WindowPerson::ProgressShows() const {
    return frame_.progressBar &&
           (KindOf(session_->CurrentFile) != FileKind::None || session_->ProgressAlways);
}

void WindowPerson::ShowProgress(double fraction) {
    if (!ProgressShows()) return;
    session_->run.ProgressFraction = fraction;
    const ProgressStep step = NextProgress(session_->run);
    frame_.progressBar->setVisible(step.visible);
    if (!step.repaint) return;
    // Work that told nothing of how far it is until now.
    if (frame_.progressBar->maximum() == 0) frame_.progressBar->setRange(0, kFullBar);
    frame_.progressBar->setValue(static_cast<int>(step.value));
    frame_.window->repaint();
    if (inWork_) PumpEvents();
}

void WindowPerson::ShowRunSoFar() {
    frame_.statusWord->setText(wordToShow_);
    showRow_();
    sinceShown_.restart();
}

frmEnable& WindowPerson::EnableWindow() {
    if (!enable_) enable_ = std::make_unique<frmEnable>(session_->run, stop_, frame_.window);
    return *enable_;
}

// The frame is free only while the run stands still, and then frmEnable comes back when it was closed, since
// only its buttons go on from there.
void WindowPerson::KeepRunWindows() {
    if (session_->run.ProcessCommand == kStopRun) return;
    frmEnable& buttons = EnableWindow();
    // Some runs have no word of their own.
    const std::string word = wordToShow_.toStdString();
    buttons.ShowOutlook(RunOutlook({word == kStatusComplete ? std::string() : word, session_->CurrentTicker,
                                    session_->run.ProgressFraction, worked_.Seconds(milliseconds_())}),
                        session_->CurrentTicker);
    buttons.show();
    buttons.setEnabled(true);
    if (Paused() == wasPaused_) return;
    wasPaused_ = Paused();
    if (wasPaused_) worked_.StandStill(milliseconds_());
    buttons.ShowPaused(wasPaused_);
    frame_.window->setEnabled(wasPaused_);
    // The frame's state goes down to the windows that it owns.
    buttons.setEnabled(true);
    if (pauseChanged) pauseChanged();
}

void WindowPerson::PumpEvents() {
    if (inRun_) {
        KeepRunWindows();
        if (Paused() || sinceShown_.elapsed() >= kShowIntervalMs) ShowRunSoFar();
    }
    QCoreApplication::processEvents(Paused() ? QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents
                                             : QEventLoop::AllEvents);
    if (!Paused()) worked_.GoOn(milliseconds_());
}

void WindowPerson::DoBeside(const std::function<void()>& work) {
    if (!InRun()) return work();
    if (inRun_) {
        KeepRunWindows();
        ShowRunSoFar();
    }
    std::exception_ptr thrown;
    QObject windows;
    bool isDone = false;
    std::thread worker([&] {
        try {
            work();
        } catch (...) {
            thrown = std::current_exception();
        }
        QMetaObject::invokeMethod(
            &windows, [&isDone] { isDone = true; }, Qt::QueuedConnection);
    });
    // No loop of its own: that would delete what waits for the end of the click that led here.
    while (!isDone) QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    worker.join();
    if (thrown) std::rethrow_exception(thrown);
}

void WindowPerson::Beep() {
    QApplication::beep();
}

void WindowPerson::WarnLowMemory() {
    if (!frame_.window) return Person::WarnLowMemory();
    if (!lowMemory_) {
        lowMemory_ = new frmLowMemory(session_->run, frame_.window);
        lowMemory_->setAttribute(Qt::WA_DeleteOnClose);
    }
    lowMemory_->show();
    lowMemory_->raise();
}

}  // namespace brantlow
