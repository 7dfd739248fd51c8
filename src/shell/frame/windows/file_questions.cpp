#include "shell/frame/windows/file_questions.h"

#include <QFileDialog>

#include "base/windows/display_text.h"
#include "store/table_road.h"

namespace brantlow {

namespace {

// The filters of a question, "words|pattern" one behind the other, as the dialog of this platform takes them:
// the words, which hold the pattern.
QStringList DialogFilters(const std::string& filter) {
    const QStringList parts = Shown(filter).split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) filters << parts[i];
    return filters;
}

// A name without an ending takes that of the further filter that is chosen.
void OfferKinds(QFileDialog& dialog, const QStringList& filters) {
    dialog.setNameFilters(filters);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog, filters](const QString& filter) {
                         const bool isFirst = filter == filters.constFirst();
                         dialog.setDefaultSuffix(isFirst ? QString() : filter.section(u'.', -1).chopped(1));
                     });
}

}  // namespace

Path AskFile(QWidget& window, const FileQuestion& question) {
    QFileDialog dialog(&window, Shown(question.title), ShownPath(question.folder));
    dialog.setOption(QFileDialog::DontUseNativeDialog, !window.isActiveWindow() || !window.isVisible());
    dialog.setAcceptMode(question.saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    OfferKinds(dialog, DialogFilters(question.filter));
    // A file that cannot be opened is told in the program's own words, so any name may be entered.
    dialog.setFileMode(QFileDialog::AnyFile);
    if (!question.fileName.empty()) dialog.selectFile(Shown(question.fileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return PathOf(dialog.selectedFiles().constFirst());
}

}  // namespace brantlow
