// The lists of file dialogs: no size and no date is cut.
#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QScreen>
#include <QSettings>
#include <QTreeView>

#include "base/windows/file_columns.h"
#include "window_fixture.h"

using namespace brantlow;

class FileColumnsTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void everyColumnOfAFileDialogIsReadWhole() {
        const TempFolder folder;
        for (const char* name : {"Practice.ddq", "Evaluations of the last quarter.dbe"}) {
            QVERIFY(!WriteWholeFile(folder / name, std::string(12'345'678, 'x')));
        }
        // The widths that a dialog of before has left would do as well.
        const TempFolder kept;
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, ShownPath(kept.Get()));
        FileColumns columns;
        QApplication::instance()->installEventFilter(&columns);
        QFileDialog dialog(nullptr, QStringLiteral("Open"), ShownPath(folder.Get()));
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setViewMode(QFileDialog::Detail);
        dialog.show();
        const auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
        const auto rows = [&] { return list->model()->rowCount(list->rootIndex()); };
        QTRY_COMPARE_WITH_TIMEOUT(rows(), 2, kPatienceMs);
        const auto isWhole = [&] {
            for (int row = 0; row < rows(); ++row) {
                for (int column = 0; column < list->header()->count(); ++column) {
                    const QModelIndex cell = list->model()->index(row, column, list->rootIndex());
                    const int words = list->fontMetrics().horizontalAdvance(cell.data().toString());
                    if (list->visualRect(cell).width() < words) return false;
                }
            }
            return true;
        };
        QTRY_VERIFY_WITH_TIMEOUT(isWhole(), kPatienceMs);
        QVERIFY(dialog.width() <= dialog.screen()->availableGeometry().width());
    }
};

WINDOW_TEST(FileColumnsTest)
#include "file_columns_test.moc"
