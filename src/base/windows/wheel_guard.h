// A drop-down list that the wheel passes by: only the one that has the keyboard's focus turns with it, and
// the wheel gives none the focus. Any other hands the wheel on to the page around it, which scrolls.
#pragma once

#include <QComboBox>

namespace brantlow {

void GuardWheel(QComboBox& list);

}  // namespace brantlow
