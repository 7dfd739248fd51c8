// The program's own pictures for entries and buttons. They are drawn for a light desktop; on a dark one their
// lines take lighter colours, at once when it turns.
#pragma once

#include <QIcon>

class QString;

namespace brantlow {

// The picture `name` of the program, without folder and ending.
QIcon DesktopPicture(const QString& name);

}  // namespace brantlow
