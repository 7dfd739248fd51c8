// The field in which the key of a live source is entered: masked, never filled with the key that is kept, and
// kept in Data/Keys.ini alone. The window of the sources and the cards of the first start show it.
#pragma once

#include <QWidget>
#include <string>

#include "acquire/feeds/live/source_standing.h"

class QLabel;
class QLineEdit;

namespace brantlow {

class SourceKeyField final : public QWidget {
    Q_OBJECT
  public:
    SourceKeyField();

    // Empties the field and tells how it stands with this source's key; it hides for one that needs none.
    // What is told follows the typing.
    void ShowSource(const SourceDefinition& source, KeyStanding standing);
    bool HasEntry() const;
    // Writes what was entered and empties the field; a sentence where it cannot be kept, else empty. Without
    // an entry nothing is written.
    std::string Keep(const Path& dataFolder, const SourceDefinition& source);

  Q_SIGNALS:
    // Something was typed or pasted.
    void Entered();
    void ReturnPressed();

  private:
    std::string Entry() const;
    void ShowState();
    QLineEdit* AddLine(const char* name);

    QLabel* words_;
    QLineEdit* first_;
    QLineEdit* second_;
    QLabel* state_;
    // The source that is shown: its definition may be read again while the field is typed into.
    SourceDefinition source_;
    KeyStanding standing_ = KeyStanding::NotNeeded;
};

}  // namespace brantlow
