// The command palette: a box in which a few letters find any entry of the menu and any ticker of the open
// table. Enter runs what is chosen; for a ticker its row is selected and its chart opens.
#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

#include "shell/frame/palette_rows.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace brantlow {

// What the palette offers, and what it does.
struct PaletteStart {
    std::vector<PaletteRow> commands;
    std::vector<std::string> tickers;
    std::function<void(const PaletteRow&)> choose;
};

class frmCommandPalette final : public QDialog {
    Q_OBJECT
  public:
    frmCommandPalette(PaletteStart start, QWidget* parent);

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void Show(const QString& typed);
    void Choose();

    PaletteStart start_;
    std::vector<PaletteRow> shown_;
    QLineEdit* typed_;
    QListWidget* list_;
    QLabel* told_;
};

}  // namespace brantlow
