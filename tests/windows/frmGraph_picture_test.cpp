// The chart's picture: on the clipboard, as BMP, PNG and SVG files.
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QStatusBar>

#include "fitting_chart.h"

using namespace brantlow;

class FrmGraphPictureTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void copyPicturePutsTheWindowOnTheClipboard() {
        FittingChart program;
        QGuiApplication::clipboard()->clear();
        program.Choose("mnuEditCopyPicture");
        const QImage picture = QGuiApplication::clipboard()->image();
        QCOMPARE(picture.size(), program.Graph()->ClientArea()->size());
        QCOMPARE(program.frame->statusBar()->currentMessage(),
                 QStringLiteral("The picture is on the clipboard"));
        QCOMPARE(picture.convertToFormat(QImage::Format_RGB32),
                 program.Graph()->ClientArea()->grab().toImage().convertToFormat(QImage::Format_RGB32));
    }

    void withTheTableInFrontThereIsNothingToCopy() {
        FittingChart program;
        program.Choose("mnuFileClose");
        const QStringList told = BoxesOf([&] { program.Choose("mnuEditCopyPicture"); });
        QCOMPARE(told, QStringList(QStringLiteral("To copy a picture, you will need to open a chart")));
    }

    // The ending of the chosen name decides, the bitmap is for every other.
    void theEndingOfTheNameDecides() {
        const std::pair<const char*, QByteArray> rows[] = {
            {"mine.png", QByteArray("\x89PNG")}, {"mine.PNG", QByteArray("\x89PNG")},
            {"mine.svg", QByteArray("<?xml")},   {"mine.bmp", QByteArray("BM")},
            {"mine", QByteArray("BM")},          {"mine.jpeg", QByteArray("BM")},
        };
        for (const auto& [name, start] : rows) {
            FittingChart program;
            DialogHand hand([&](QDialog& dialog) { EnterFile(dialog, program.folder / name); });
            program.Choose("mnuFileSaveAs");
            std::string file = name;
            if (start == "BM" && !file.ends_with(".bmp")) file += ".bmp";
            const std::string bytes = BytesOrEmpty(program.folder / file);
            QVERIFY2(QByteArray::fromStdString(bytes).startsWith(start), name);
        }
    }

    void theDialogOffersThreeKindsWithTheBitmapFirst() {
        FittingChart program;
        QStringList filters;
        DialogHand hand([&](QDialog& dialog) {
            filters = qobject_cast<QFileDialog*>(&dialog)->nameFilters();
            dialog.reject();
        });
        program.Choose("mnuFileSaveAs");
        QCOMPARE(filters,
                 (QStringList{QStringLiteral("All Files (*.bmp)"), QStringLiteral("PNG Pictures (*.png)"),
                              QStringLiteral("SVG Pictures (*.svg)")}));
    }

    void aChosenKindGivesItsEndingToTheName() {
        FittingChart program;
        DialogHand hand([&](QDialog& dialog) {
            auto* const question = qobject_cast<QFileDialog*>(&dialog);
            question->selectNameFilter(QStringLiteral("SVG Pictures (*.svg)"));
            Q_EMIT question->filterSelected(QStringLiteral("SVG Pictures (*.svg)"));
            EnterFile(dialog, program.folder / "mine");
        });
        program.Choose("mnuFileSaveAs");
        QVERIFY(BytesOrEmpty(program.folder / "mine.svg").starts_with("<?xml"));
    }

    void theSvgShowsWhatTheWindowShows() {
        FittingChart program;
        program.Choose("mnuViewChartDark");
        const std::string svg = program.Graph()->Svg();
        QVERIFY(svg.find("#181c22") != std::string::npos);
        QVERIFY(svg.find(">MA 15<") != std::string::npos);
    }
};

WINDOW_TEST(FrmGraphPictureTest)
#include "frmGraph_picture_test.moc"
