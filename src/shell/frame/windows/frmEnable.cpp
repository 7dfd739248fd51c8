#include "shell/frame/windows/frmEnable.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace brantlow {

namespace {

constexpr int kSmallestButtonWidth = 96;
constexpr int kCornerDistance = 36;

QPushButton* AddButton(QHBoxLayout* row, const QString& name, const QString& words, const QString& toolTip) {
    auto* button = new QPushButton(words);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setMinimumWidth(kSmallestButtonWidth);
    button->setAutoDefault(false);
    row->addWidget(button);
    return button;
}

}  // namespace

frmEnable::frmEnable(RunControl& run, QWidget* frame)
    : QDialog(frame, Qt::Dialog | Qt::WindowTitleHint | Qt::CustomizeWindowHint | Qt::WindowCloseButtonHint),
      run_(run),
      mainFrame_(frame),
      state_(new QLabel) {
    setObjectName(QStringLiteral("frmEnable"));
    setWindowTitle(QStringLiteral("Exit, Pause or Resume Process"));
    setModal(false);
    auto* layout = new QVBoxLayout(this);
    state_->setAlignment(Qt::AlignCenter);
    layout->addWidget(state_);
    auto* row = new QHBoxLayout;
    auto* exit = AddButton(row, QStringLiteral("Command1"), QStringLiteral("Exit"),
                           QStringLiteral("Stop after the ticker in work; what is done stays"));
    pause_ = AddButton(row, QStringLiteral("Command2"), QStringLiteral("Pause"),
                       QStringLiteral("Stand still after the ticker in work"));
    resume_ = AddButton(row, QStringLiteral("Command3"), QStringLiteral("Resume"),
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
    pause_->setEnabled(!paused);
    resume_->setEnabled(paused);
    (paused ? resume_ : pause_)->setFocus();
}

void frmEnable::Exit() {
    run_.ProcessCommand = kStopRun;
    if (mainFrame_) mainFrame_->setEnabled(true);
    close();
}

void frmEnable::Pause() {
    run_.ProcessCommand = kPauseRun;
}

void frmEnable::Resume() {
    run_.ProcessCommand = kResumeRun;
}

}  // namespace brantlow
