#include "research/windows/page_printing.h"

#include <QEventLoop>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QWebEngineView>

namespace brantlow {

namespace {

constexpr QSize kPreviewSize(900, 700);

}  // namespace

bool PrintPageTo(QWebEngineView& view, QPrinter& printer) {
    QEventLoop loop;
    bool printed = false;
    QObject::connect(&view, &QWebEngineView::printFinished, &loop, [&](bool success) {
        printed = success;
        loop.quit();
    });
    QObject::connect(&view, &QObject::destroyed, &loop, &QEventLoop::quit);
    view.print(&printer);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return printed;
}

void PrintPage(QWebEngineView& view) {
    QPrinter printer;
    QPrintDialog dialog(&printer, view.window());
    if (dialog.exec() == QDialog::Accepted) PrintPageTo(view, printer);
}

void PreviewPage(QWebEngineView& view) {
    QPrinter printer;
    QPrintPreviewDialog dialog(&printer, view.window());
    dialog.setWindowTitle(QStringLiteral("Print Preview"));
    dialog.resize(kPreviewSize);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &view,
                     [&view](QPrinter* asked) { PrintPageTo(view, *asked); });
    dialog.exec();
}

}  // namespace brantlow
