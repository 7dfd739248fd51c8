// The window "Quote Sources": every live source with what it gives, its key, what it is chosen for and how it
// stands with it; the trial of one, a definition of one's own, and which source is asked for what. The
// Settings menu, the settings dialog and the setup wizard open it.
#pragma once

#include <QDialog>
#include <array>
#include <string>

#include "acquire/feeds/live/source_desk.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

namespace brantlow {

class SourceKeyField;

class frmSources final : public QDialog {
    Q_OBJECT
  public:
    // Both outlive the window.
    frmSources(Session& session, Web& web, QWidget* parent);

    // Selects the source of this name.
    void SelectSource(std::string_view name);

    // In the midst of a trial it ends that first.
    void reject() override;

  Q_SIGNALS:
    // Other sources are asked from now on.
    void ChoicesApplied();

  private:
    QWidget* BuildList();
    QWidget* BuildDetails();
    QLayout* BuildActions();
    QWidget* BuildChoices();
    QWidget* BuildButtons();
    QPushButton* AddButton(QLayout& row, const char* name, const QString& words, const QString& toolTip,
                           void (frmSources::*clicked)());

    // Reads everything again and keeps the selection.
    void Refresh();
    void FillList();
    void FillChoices();
    void ShowSelected();
    void ShowRefused(const QString& sentence);
    // The selected source; null for a file that was refused.
    const SourceDefinition* Selected() const;
    void Tell(const QString& text);

    void SaveKey();
    void RemoveKey();
    void Test();
    void RunTest(const SourceDefinition& source);
    void CopyToEdit();
    void EditDefinition();
    void UseForAll();
    void Apply();
    bool AgreedTo(const SourceChoices& choices);
    void EnableParts();

    Session& session_;
    SourceDesk desk_;
    QTreeWidget* list_;
    QGroupBox* details_;
    QLabel* terms_;
    QLabel* limits_;
    SourceKeyField* key_;
    QLineEdit* ticker_;
    QPlainTextEdit* result_;
    QLabel* outcome_;
    std::array<QComboBox*, kSourceLines> choices_{};
    QPushButton* saveKey_ = nullptr;
    QPushButton* removeKey_ = nullptr;
    QPushButton* test_ = nullptr;
    QPushButton* copy_ = nullptr;
    QPushButton* edit_ = nullptr;
    QPushButton* useForAll_ = nullptr;
    QPushButton* apply_ = nullptr;
    bool isTesting_ = false;
    bool closesAfterwards_ = false;
};

}  // namespace brantlow
