#include "research/windows/web_download.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>
#include <QWebEngineDownloadRequest>
#include <QWebEnginePage>
#include <QWebEngineView>

#include "base/windows/display_text.h"

namespace brantlow {

namespace {

QString AskPlace(const QWebEngineDownloadRequest& download) {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    QWebEngineView* const view = download.page() ? QWebEngineView::forPage(download.page()) : nullptr;
    QFileDialog dialog(view ? view->window() : nullptr, QStringLiteral("Save As"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDirectory(folder.exists() ? folder : QDir::home());
    dialog.selectFile(QFileInfo(download.suggestedFileName()).fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().constFirst();
}

}  // namespace

void TakeDownload(QWebEngineDownloadRequest& download, Person& person) {
    const QString place = AskPlace(download);
    if (place.isEmpty()) return download.cancel();
    const QFileInfo file(place);
    download.setDownloadDirectory(file.path());
    download.setDownloadFileName(file.fileName());
    QObject::connect(&download, &QWebEngineDownloadRequest::stateChanged, &download,
                     [&download, &person, place] {
                         if (download.state() != QWebEngineDownloadRequest::DownloadInterrupted) return;
                         person.Say(PathOf(place).string() + ": cannot be downloaded (" +
                                    download.interruptReasonString().toStdString() + ")");
                     });
    download.accept();
}

}  // namespace brantlow
