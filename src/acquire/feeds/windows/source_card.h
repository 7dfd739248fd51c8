// A live source to choose where a new user begins: its name, what it needs, its terms, and the field for its
// key. The window of new lists and the setup wizard show it.
#pragma once

#include <QWidget>
#include <string>

#include "acquire/feeds/live/source_desk.h"

class QComboBox;
class QLabel;

namespace brantlow {

class SourceKeyField;

// A source's terms, with the link to its home page.
QString TermsText(const SourceDefinition& source);

class SourceCard final : public QWidget {
    Q_OBJECT
  public:
    // Offers the sources that give `needed`. `desk` outlives the card; `none` are the words of a first entry
    // that chooses none.
    SourceCard(SourceDesk& desk, Capability needed, const QString& words, const QString& none);

    // The chosen source; null for none.
    const SourceDefinition* Source() const;
    // Chooses the source of this name, where it is offered.
    void Select(std::string_view name);
    // A sentence below the terms: how long it takes.
    void ShowRemark(const QString& text);
    // Keeps a key that was entered, asks for agreement where the terms want it, and tells what is still
    // missing; a sentence, empty where the source can be asked.
    std::string Accept();

  Q_SIGNALS:
    void Changed();

  private:
    void ShowSource();

    SourceDesk& desk_;
    QComboBox* list_;
    QLabel* terms_;
    QLabel* remark_;
    SourceKeyField* key_;
};

}  // namespace brantlow
