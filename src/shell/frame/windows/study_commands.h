// The study of the conditions: its window, the run of it and the charts that it asks for.
#pragma once

#include <QPointer>

#include "shell/frame/windows/frame_hands.h"

class QMdiSubWindow;

namespace brantlow {

class frmStudy;

class StudyCommands final {
  public:
    explicit StudyCommands(const FrameHands& frame) : frame_(frame) {}

    CommandRows Rows();

  private:
    void ShowStudy();
    void RunLong(void (frmStudy::*run)());
    void CloseForm();

    const FrameHands& frame_;
    QPointer<frmStudy> form_;
    QPointer<QMdiSubWindow> window_;
};

}  // namespace brantlow
