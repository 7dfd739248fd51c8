#include "shell/frame/windows/frmEnable.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>

#include "base/windows/buttons.h"
#include "base/windows/display_text.h"
#include "base/windows/labels.h"
#include "shell/run_outlook.h"

namespace brantlow {

namespace {

constexpr int kSmallestButtonWidth = 96;
constexpr int kCornerDistance = 36;
constexpr int kStateLetters = 46;
// Icon and buttons of a title bar, beside its words.
constexpr int kBesideTitle = 130;

struct StopWords {
    std::string_view toolTip;
    std::string_view question;
};
const StopWords& StopOf(RunStop stop) {
    static constexpr StopWords kKeeps = {"Stop after the ticker in work; what is done stays",
                                         "End the run after the ticker in work? What is done stays."};
    static constexpr StopWords kTakesBack = {"Stop; everything is as it was before",
                                             "End the run? Everything is as it was before."};
    return stop == RunStop::KeepsWhatIsDone ? kKeeps : kTakesBack;
}

}  // namespace

frmEnable::frmEnable(RunControl& run, RunStop stop, QWidget* frame)
    : QDialog(frame, Qt::Dialog | Qt::WindowTitleHint | Qt::CustomizeWindowHint | Qt::WindowCloseButtonHint),
      run_(run),
      stop_(stop),
      mainFrame_(frame),
      state_(new QLabel) {
    setObjectName(QStringLiteral("frmEnable"));
    setWindowTitle(QStringLiteral("Exit, Pause or Resume Process"));
    setModal(false);
    auto* layout = new QVBoxLayout(this);
    state_->setObjectName(QStringLiteral("lblState"));
    state_->setAlignment(Qt::AlignCenter);
    state_->setTextFormat(Qt::PlainText);
    state_->setWordWrap(true);
    // A title bar that is too short would cut the words that tell what the buttons are for.
    state_->setFixedWidth(
        std::max(fontMetrics().averageCharWidth() * kStateLetters,
                 QFontMetrics(Bold(font())).horizontalAdvance(windowTitle()) + kBesideTitle));
    state_->setMinimumHeight(fontMetrics().lineSpacing() * 2);
    layout->addWidget(state_);
    auto* row = new QHBoxLayout;
    auto* exit =
        AddButton(*row, QStringLiteral("Command1"), QStringLiteral("Exit"), Shown(StopOf(stop).toolTip));
    pause_ = AddButton(*row, QStringLiteral("Command2"), QStringLiteral("Pause"),
                       QStringLiteral("Stand still after the ticker in work"));
    resume_ = AddButton(*row, QStringLiteral("Command3"), QStringLiteral("Resume"),
                        QStringLiteral("Go on with the next ticker"));
    layout->addLayout(row);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(exit, &QPushButton::clicked, this, &frmEnable::Exit);
    connect(pause_, &QPushButton::clicked, this, &frmEnable::Pause);
    connect(resume_, &QPushButton::clicked, this, &frmEnable::Resume);
    ShowPaused(false);
    StandInCorner();
}

// In the lower right corner of the frame, where it covers the fewest results.
void frmEnable::StandInCorner() {
    if (!mainFrame_) return;
    adjustSize();
    const QRect corner = mainFrame_->geometry();
    move(corner.right() - width() - kCornerDistance, corner.bottom() - height() - 2 * kCornerDistance);
}

void frmEnable::ShowPaused(bool paused) {
    state_->setText(paused ? QStringLiteral("The process is paused.")
                           : QStringLiteral("The process is running."));
    paused_ = paused;
    QPushButton* const next = paused ? resume_ : pause_;
    next->setEnabled(true);
    next->setFocus();
    (paused ? pause_ : resume_)->setEnabled(false);
}

frmEnable::~frmEnable() {
    QStatusBar* const bar = StatusBar();
    if (bar && !ending_.isEmpty() && bar->currentMessage() == ending_) bar->clearMessage();
}

QStatusBar* frmEnable::StatusBar() const {
    auto* const frame = qobject_cast<QMainWindow*>(mainFrame_);
    return frame ? frame->statusBar() : nullptr;
}

// The ticker in work is finished first, which this window is not there to tell any more.
void frmEnable::Exit() {
    run_.ProcessCommand = kStopRun;
    ending_ = Shown(EndingSentence(ticker_));
    if (QStatusBar* const bar = StatusBar()) bar->showMessage(ending_);
    if (mainFrame_) mainFrame_->setEnabled(true);
    close();
}

// The ticker in work is finished first, which can take a while. The keys go on to Resume meanwhile: a second
// press of the same key must not find Exit in place of Pause.
void frmEnable::Pause() {
    run_.ProcessCommand = kPauseRun;
    resume_->setEnabled(true);
    resume_->setFocus();
    pause_->setEnabled(false);
    state_->setText(Shown(PausingSentence(ticker_)));
}

// Neither while the run stands still nor between the press of Pause and that.
void frmEnable::ShowOutlook(const std::string& line, const std::string& ticker) {
    ticker_ = ticker;
    const bool goesOn = run_.ProcessCommand == kRunning || run_.ProcessCommand == kResumeRun;
    if (!paused_ && goesOn) state_->setText(Shown(line));
}

void frmEnable::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return AskExit();
    QDialog::keyPressEvent(event);
}

// The run goes on meanwhile: the question holds up nothing, and goes with the window.
void frmEnable::AskExit() {
    if (question_) return question_->raise();
    auto* const question = new QMessageBox(this);
    question_ = question;
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setWindowTitle(windowTitle());
    question->setText(Shown(StopOf(stop_).question));
    const QAbstractButton* const exit = question->addButton(QStringLiteral("&Exit"), QMessageBox::AcceptRole);
    question->setDefaultButton(question->addButton(QStringLiteral("&Go On"), QMessageBox::RejectRole));
    connect(exit, &QAbstractButton::clicked, this, &frmEnable::Exit);
    question->open();
    question->setEnabled(true);
}

// A pause that has not begun yet is only taken back.
void frmEnable::Resume() {
    run_.ProcessCommand = kResumeRun;
    if (!paused_) ShowPaused(false);
}

}  // namespace brantlow
