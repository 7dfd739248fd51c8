// Shows sizes, kinds and dates whole in the lists of file dialogs, which open with columns that cut them. A
// desktop that has file dialogs of its own shows those, and nothing is done to them.
#pragma once

#include <QObject>

namespace brantlow {

// As an event filter of the application it looks at each file dialog as that is shown, and widens the columns
// that are too narrow for the files of a folder; the dialog grows with them as far as its screen goes.
class FileColumns final : public QObject {
    Q_OBJECT
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace brantlow
