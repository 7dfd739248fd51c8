// The setup wizard's window: the head of the step, its form, and the buttons that lead from step to step. The
// Help menu opens it.
#pragma once

#include <QDialog>
#include <optional>

#include "screens/setup_wizard.h"
#include "screens/windows/wizard_forms.h"

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace brantlow {

class frmSetupWizard final : public QDialog {
    Q_OBJECT
  public:
    // All outlive the window. It begins at the first step.
    frmSetupWizard(Session& session, const Hosts& hosts, QWidget* parent);

    // Leaves the wizard; what the steps have written stays.
    void reject() override;

  Q_SIGNALS:
    // The daily run was turned on: its start is to be scheduled.
    void ScheduleAsked();
    // The wizard was left for a first table.
    void BeginAsked(StartWay way);

  private:
    QWidget* BuildHead();
    QWidget* BuildButtons();
    void ShowStep();
    // Keeps the step that is shown; nothing where it stays.
    std::optional<WizardOutcome> Keep();
    void Next();
    void Begin(StartWay way);
    void Back();
    void Finish();

    Session& session_;
    const Hosts& hosts_;
    WizardDriver driver_;
    WizardForm form_;
    QLabel* head_;
    QVBoxLayout* place_;
    QPushButton* back_ = nullptr;
    QPushButton* next_ = nullptr;
    QPushButton* finish_ = nullptr;
    QPushButton* cancel_ = nullptr;
};

}  // namespace brantlow
