#include "base/windows/text_editor.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QShortcut>
#include <QStandardPaths>
#include <QTextBlock>
#include <QVBoxLayout>

#include "base/failure.h"
#include "base/windows/display_text.h"

namespace brantlow {

namespace {

constexpr QSize kEditorSize(760, 520);

QDialogButtonBox* AddButtons(QVBoxLayout& layout) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Close);
    layout.addWidget(buttons);
    return buttons;
}

}  // namespace

void OpenInDesktop(const QString& target, QWidget* owner, const std::function<void()>& failed) {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (program.isEmpty()) return failed();
    auto* process = new QProcess(owner);
    QObject::connect(process, &QProcess::errorOccurred, owner,
                     [process, failed](QProcess::ProcessError error) {
                         if (error != QProcess::FailedToStart) return;
                         process->deleteLater();
                         failed();
                     });
    QObject::connect(process, &QProcess::finished, owner, [process, failed](int status) {
        process->deleteLater();
        if (status != 0) failed();
    });
    process->start(program, {target});
}

TextEditor::TextEditor(Path file, QWidget* parent)
    : QDialog(parent), file_(std::move(file)), text_(new QPlainTextEdit) {
    setObjectName(QStringLiteral("TextEditor"));
    setWindowTitle(ShownPath(file_.filename()) + QStringLiteral("[*]"));
    resize(kEditorSize);
    auto* layout = new QVBoxLayout(this);
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_->setAccessibleName(QStringLiteral("Text of ") + ShownPath(file_.filename()));
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    layout->addWidget(text_);
    QDialogButtonBox* buttons = AddButtons(*layout);
    QPushButton* save = buttons->button(QDialogButtonBox::Save);
    connect(text_, &QPlainTextEdit::modificationChanged, this, [this, save](bool modified) {
        setWindowModified(modified);
        save->setEnabled(modified);
    });
    connect(save, &QPushButton::clicked, this, &TextEditor::Save);
    connect(buttons, &QDialogButtonBox::rejected, this, &TextEditor::reject);
    auto* key = new QShortcut(QKeySequence::Save, this);
    connect(key, &QShortcut::activated, this, &TextEditor::Save);
    save->setEnabled(false);
    Load();
}

void TextEditor::Load() {
    std::string read;
    const Failure failure = ReadNeeded(file_, read);
    const QByteArray bytes(read.data(), static_cast<qsizetype>(read.size()));
    const QString shown = Shown(read);
    endsLinesWithCrLf_ = bytes.contains("\r\n") || !bytes.contains('\n');
    const bool isFaithful = !failure && shown.toUtf8() == bytes;
    text_->setReadOnly(!isFaithful);
    text_->setPlainText(failure ? Shown(Sentence(failure)) : shown);
    if (!failure && !isFaithful)
        setWindowTitle(ShownPath(file_.filename()) + QStringLiteral(" (read only)[*]"));
}

void TextEditor::ShowLine(std::size_t line) {
    if (line == 0) return;
    const int block = std::min(static_cast<int>(line), text_->document()->blockCount()) - 1;
    text_->setTextCursor(QTextCursor(text_->document()->findBlockByNumber(block)));
    text_->centerCursor();
}

bool TextEditor::Save() {
    if (!text_->document()->isModified()) return true;
    QString text = text_->toPlainText();
    if (endsLinesWithCrLf_) text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    const std::error_code error = WriteWholeFile(file_, text.toStdString());
    if (error) {
        QMessageBox::warning(this, QStringLiteral("Brantlow"), Shown(CannotBeSaved(file_, error)));
        return false;
    }
    text_->document()->setModified(false);
    return true;
}

void TextEditor::reject() {
    if (text_->document()->isModified()) {
        const auto answer =
            QMessageBox::question(this, QStringLiteral("Brantlow"), QStringLiteral("Save the changes?"),
                                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
        if (answer == QMessageBox::Cancel) return;
        if (answer == QMessageBox::Save && !Save()) return;
    }
    QDialog::reject();
}

}  // namespace brantlow
