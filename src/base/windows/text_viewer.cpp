#include "base/windows/text_viewer.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "base/failure.h"
#include "base/windows/display_text.h"

namespace brantlow {

namespace {

constexpr QSize kViewerSize(640, 420);

QString TextOf(const Path& file) {
    std::string bytes;
    const Failure failure = ReadNeeded(file, bytes);
    return Shown(failure ? Sentence(failure) : bytes);
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
