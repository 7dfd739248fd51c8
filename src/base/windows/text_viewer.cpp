#include "base/windows/text_viewer.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "base/windows/display_text.h"

namespace brantlow {

namespace {

constexpr QSize kViewerSize(640, 420);

QString TextOf(const Path& file) {
    const ReadResult read = ReadWholeFile(file);
    if (read.outcome == ReadOutcome::Done) return Shown(read.bytes);
    const std::string reason = read.error ? read.error.message() : "no such file";
    return Shown(file.string() + ": cannot be read (" + reason + ")");
}

}  // namespace

void ShowTextFile(const Path& file, QWidget* parent) {
    auto* viewer = new QDialog(parent);
    viewer->setObjectName(QStringLiteral("TextViewer"));
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->setWindowTitle(ShownPath(file.filename()));
    viewer->resize(kViewerSize);
    auto* layout = new QVBoxLayout(viewer);
    auto* text = new QPlainTextEdit(TextOf(file));
    text->setReadOnly(true);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    layout->addWidget(text);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, viewer, &QDialog::reject);
    layout->addWidget(buttons);
    viewer->open();
}

}  // namespace brantlow
