// The window "Import History": which downloaded archive or folder, which tickers, how many years. What it
// would do is told before it is begun; the run itself is the main frame's.
#pragma once

#include <QDialog>
#include <vector>

#include "acquire/feeds/archives/import_choice.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace brantlow {

struct Session;

class frmImportHistory final : public QDialog {
    Q_OBJECT
  public:
    // `session` outlives the window. `tickers` are those of the open table, none where none is open.
    frmImportHistory(const Session& session, std::vector<std::string> tickers, QWidget* parent);

    // As though it had been chosen by a button.
    void SetFrom(const QString& from);

  Q_SIGNALS:
    // Import was pressed and there is something to import; the window has hidden itself.
    void ImportAsked(const HistoryImportChoice& choice, const ImportOutlook& outlook);

  private:
    QWidget* BuildFrom();
    QWidget* BuildTickers();
    QWidget* BuildButtons();
    void ChooseArchive();
    void ChooseFolder();
    HistoryImportChoice Choice() const;
    void Look();
    void Import();

    const Session& session_;
    std::vector<std::string> tickers_;
    ImportOutlook outlook_;
    QLineEdit* from_;
    QRadioButton* ofTable_;
    QRadioButton* ofAll_;
    QComboBox* years_;
    QCheckBox* newer_;
    QLabel* told_;
};

}  // namespace brantlow
