// Text files in the person's own editor, and in a plain editor window of the program where there is none.
#pragma once

#include <QDialog>
#include <QString>
#include <functional>

#include "base/files.h"

class QPlainTextEdit;
class QWidget;

namespace brantlow {

// Hands `target`, a file or an address, to the desktop's own program for it. `failed` is called, at once or
// later, when there is no such program or it cannot be started.
void OpenInDesktop(const QString& target, QWidget* owner, const std::function<void()>& failed);

// The plain editor. A file whose bytes are no UTF-8 is shown and cannot be changed, since the bytes could not
// be written back as they were; line ends stay those of the file.
class TextEditor final : public QDialog {
    Q_OBJECT
  public:
    TextEditor(Path file, QWidget* parent);

    // Puts the cursor at the beginning of a line, counted from 1; the last one where there are fewer.
    void ShowLine(std::size_t line);
    // False when the file could not be written; the person was told.
    bool Save();

  protected:
    void reject() override;

  private:
    void Load();

    Path file_;
    QPlainTextEdit* text_;
    bool endsLinesWithCrLf_ = true;
};

}  // namespace brantlow
