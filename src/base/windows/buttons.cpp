#include "base/windows/buttons.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace brantlow {

namespace {

QPushButton* Named(QPushButton* button, const QString& name, const QString& toolTip) {
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    return button;
}

}  // namespace

QPushButton* AddButton(QHBoxLayout& row, const QString& name, const QString& words, const QString& toolTip) {
    auto* button = Named(new QPushButton(words), name, toolTip);
    row.addWidget(button);
    return button;
}

QPushButton* AddButton(QDialogButtonBox& box, const QString& name, const QString& words,
                       const QString& toolTip, QDialogButtonBox::ButtonRole role) {
    return Named(box.addButton(words, role), name, toolTip);
}

}  // namespace brantlow
