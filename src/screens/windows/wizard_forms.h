// The six forms of the setup wizard: each shows the settings in force and says what Next is to write.
// frmSetupWizard makes a form when its step is reached.
#pragma once

#include <cstddef>
#include <functional>

#include "acquire/web/hosts.h"
#include "screens/setup_wizard.h"
#include "shell/session.h"

class QWidget;

namespace brantlow {

struct WizardForm {
    // Its focus proxy is the control that the step begins with; a form of text alone has none.
    QWidget* widget = nullptr;
    std::function<WizardOutcome()> next;
};

// Leaves the wizard on a way to a first table.
using WizardBegin = std::function<void(StartWay)>;

// The form of a step, 1 to 6. `session` and `hosts` outlive it; the caller owns the widget.
WizardForm MakeWizardForm(std::size_t step, Session& session, const Hosts& hosts, WizardBegin begin);

}  // namespace brantlow
