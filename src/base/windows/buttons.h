// The buttons along the edge of a window.
#pragma once

#include <QDialogButtonBox>

class QHBoxLayout;
class QPushButton;
class QString;

namespace brantlow {

// Adds a button that Enter never presses while the focus is elsewhere: the key belongs to the lists and
// fields.
QPushButton* AddButton(QHBoxLayout& row, const QString& name, const QString& words, const QString& toolTip);
// The same among the buttons of a dialog, where the desktop orders them by their roles.
QPushButton* AddButton(QDialogButtonBox& box, const QString& name, const QString& words,
                       const QString& toolTip,
                       QDialogButtonBox::ButtonRole role = QDialogButtonBox::ActionRole);

}  // namespace brantlow
