// Lines and words by hand in the chart's window, by mouse and by keys, and the file that keeps them.
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QStatusBar>
#include <QToolButton>

#include "chart/windows/page_printer.h"
#include "chart/windows/window_picture.h"
#include "fitting_chart.h"
#include "shell/display.h"
#include "shell/frame/windows/frame_subjects.h"
#include "store/hand_drawings.h"
#include "store/windows/frmQuoteGrid.h"

using namespace brantlow;

namespace {

class DrawnChart : public FittingChart {
  public:
    DrawnChart() { WriteHistory("T2", kBars); }

    ChartPanel* Price() const { return PanelNamed("Picture1"); }
    // The pixel of a bar of the window at a price of the scale; 100 to 380 are closes of the bars.
    QPoint At(std::size_t bar, double price) const {
        const ValueAxis axis = AxisOf(Graph()->Chart(), Panel::Price);
        return {static_cast<int>(BarX(bar) / Price()->TwipsAcross(1)),
                static_cast<int>(axis.Y(price) / Price()->TwipsDown(1))};
    }
    QPoint CloseOf(std::size_t bar) const { return At(bar, Bar(bar).HistoryClose); }
    void Move(QPoint to, Qt::MouseButtons buttons = Qt::LeftButton) {
        QMouseEvent move(QEvent::MouseMove, to, Price()->mapToGlobal(to), Qt::NoButton, buttons, {});
        QCoreApplication::sendEvent(Price(), &move);
    }
    void DragFrom(QPoint from, QPoint to) {
        QTest::mousePress(Price(), Qt::LeftButton, {}, from);
        Move(to);
        QTest::mouseRelease(Price(), Qt::LeftButton, {}, to);
    }
    void Click(QPoint at) { QTest::mouseClick(Price(), Qt::LeftButton, {}, at); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(Graph(), key, modifiers); }
    QAction* Entry(const char* words) const {
        for (QAction* action : Part<QToolButton>("btnDraw")->menu()->actions()) {
            if (action->text().remove(u'&').section(u'\t', 0, 0) == QString::fromLatin1(words)) return action;
        }
        qFatal("no entry %s", words);
    }
    Path File(const char* ticker = "T1") const { return *DrawingsFile(session.DataFolder(), ticker); }
    HandDrawings Kept(const char* ticker = "T1") const {
        return LoadHandDrawings(session.DataFolder(), ticker).drawings;
    }
    static HandPoint PointOf(std::size_t bar, double price) {
        return {*ParseDate(Bar(bar).HistoryDate), price};
    }
    static HandPoint CloseAt(std::size_t bar) { return PointOf(bar, Bar(bar).HistoryClose); }
    HandDrawings Trend() const { return {{HandKind::Trend, {CloseAt(100), CloseAt(200)}}}; }
    void Keep(const HandDrawings& drawings, const char* ticker = "T1") {
        std::filesystem::create_directories(File(ticker).parent_path());
        if (WriteWholeFile(File(ticker), TextOfHandDrawings(drawings))) qFatal("cannot write");
    }
    void DrawTrend() {
        Key(Qt::Key_T);
        DragFrom(CloseOf(100), CloseOf(200));
    }
    // The price panel without the crosshair.
    QImage Drawn() {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(Price(), &leave);
        return Picture("Picture1");
    }
    void SaveAs(const char* name) {
        DialogHand hand([&](QDialog& dialog) { EnterFile(dialog, folder / name); });
        Choose("mnuFileSaveAs");
    }
    // The pictures on the page, as a PDF file packs them.
    QList<QByteArray> Printed() {
        frame->Subjects().print.Pages().LeavePrinterAlone();
        const Path file = folder / "page.pdf";
        std::filesystem::remove(file);
        DialogHand hand([&](QDialog& dialog) {
            if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) return box->accept();
            EnterFile(dialog, file);
        });
        Choose("mnuFilePrint");
        QList<QByteArray> pictures;
        const QByteArray pdf = QByteArray::fromStdString(BytesOrEmpty(file));
        for (qsizetype at = pdf.indexOf("/Subtype /Image"); at >= 0;
             at = pdf.indexOf("/Subtype /Image", at + 1)) {
            const qsizetype start = pdf.indexOf("stream\n", at);
            pictures << pdf.mid(start, pdf.indexOf("endstream", start) - start);
        }
        return pictures;
    }
    QString Notice() const { return frame->statusBar()->currentMessage(); }
};

// Pixels nearly in the colour of what is drawn by hand: the edges of letters are smoothed.
int HandPixelsOf(const QImage& picture) {
    constexpr int kNear = 60;
    const QColor colour = ColourOf(PaletteOf(ChartColours::Standard).hand);
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            count += std::abs(pixel.red() - colour.red()) + std::abs(pixel.green() - colour.green()) +
                                 std::abs(pixel.blue() - colour.blue()) <
                             kNear
                         ? 1
                         : 0;
        }
    }
    return count;
}

}  // namespace

class FrmGraphDrawTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aTrendLineIsDrawnWithTheMouseAndKept() {
        DrawnChart program;
        const QImage before = program.Drawn();
        program.Entry("Trend Line")->trigger();
        QCOMPARE(program.Notice(),
                 QStringLiteral(
                     "Trend line: drag from one place to the other, or click each. Ctrl places freely"));
        program.DragFrom(program.CloseOf(100), program.CloseOf(200));
        QVERIFY(program.Kept() == program.Trend());
        QCOMPARE(program.Notice(), QString());
        QVERIFY(program.Drawn() != before);
        // It is no drag of the chart, and no press of its read-out.
        QCOMPARE(program.Label("Label69"), QString());
    }

    void eachToolDrawsItsOwn() {
        DrawnChart program;
        program.Key(Qt::Key_H);
        program.Click(program.CloseOf(150));
        program.Key(Qt::Key_C);
        program.DragFrom(program.CloseOf(50), program.CloseOf(100));
        program.Click(program.At(80, 140));
        const HandDrawings kept = program.Kept();
        QCOMPARE(kept.size(), 2U);
        QVERIFY(kept[0].kind == HandKind::Horizontal && kept[0].points[0] == program.CloseAt(150));
        QVERIFY(kept[1].kind == HandKind::Channel && kept[1].points[1] == program.CloseAt(100));
        QCOMPARE(kept[1].points[2].day, *ParseDate(ChartProgram::Bar(80).HistoryDate));
    }

    void aTextIsWrittenInTheChart() {
        DrawnChart program;
        program.Key(Qt::Key_X);
        program.Click(program.CloseOf(150));
        auto* const words = program.Part<QLineEdit>("txtWords");
        QVERIFY(words->isVisible());
        QTest::keyClicks(words, QStringLiteral("new factory"));
        QTest::keyClick(words, Qt::Key_Return);
        QVERIFY(!words->isVisible());
        QVERIFY(program.Kept() == (HandDrawings{{HandKind::Text, {program.CloseAt(150)}, "new factory"}}));
        QTest::mouseDClick(program.Price(), Qt::LeftButton, {}, program.CloseOf(150) + QPoint(10, -4));
        QVERIFY(words->isVisible());
        QCOMPARE(words->text(), QStringLiteral("new factory"));
        QTest::keyClicks(words, QStringLiteral("old"));
        QTest::keyClick(words, Qt::Key_Escape);
        QVERIFY(!words->isVisible());
        QCOMPARE(program.Kept()[0].text, std::string("new factory"));
    }

    // The rings of the chosen one belong to the screen.
    void picturesHoldWhatIsDrawnWithoutRings_data() {
        QTest::addColumn<HandDrawings>("drawings");
        const HandPoint from = DrawnChart::CloseAt(100);
        const HandPoint to = DrawnChart::CloseAt(200);
        const HandPoint aside = DrawnChart::PointOf(150, 330);
        QTest::newRow("trend line") << HandDrawings{{HandKind::Trend, {from, to}}};
        QTest::newRow("horizontal line") << HandDrawings{{HandKind::Horizontal, {aside}}};
        QTest::newRow("channel") << HandDrawings{{HandKind::Channel, {from, to, aside}}};
        QTest::newRow("text") << HandDrawings{{HandKind::Text, {aside}, "bought"}};
    }
    void picturesHoldWhatIsDrawnWithoutRings() {
        QFETCH(HandDrawings, drawings);
        DrawnChart program;
        const auto sheet = [&] { return CaptureClient(*program.Graph()->ClientArea()); };
        const int before = HandPixelsOf(sheet());
        const QList<QByteArray> printedBefore = program.Printed();
        program.Keep(drawings);
        program.Choose("mnuGraphicsHLC");
        const QImage drawn = sheet();
        QVERIFY2(HandPixelsOf(drawn) >= before + 20, std::to_string(HandPixelsOf(drawn)).c_str());
        const QList<QByteArray> printed = program.Printed();
        QVERIFY(printed != printedBefore);
        program.Key(Qt::Key_N);
        const QImage onScreen = sheet();
        QVERIFY(onScreen != drawn);

        program.Choose("mnuEditCopyPicture");
        QCOMPARE(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), drawn);
        for (const char* name : {"drawn.bmp", "drawn.png"}) {
            program.SaveAs(name);
            const QImage saved(ShownPath(program.folder / name));
            QCOMPARE(saved.convertToFormat(QImage::Format_RGB32), drawn);
        }
        QCOMPARE(program.Printed(), printed);
        QVERIFY2(sheet() == onScreen, "the rings stay on the screen");
    }

    // A line is a line of the colour of what is drawn by hand, a text is a text of it.
    void theSvgHoldsWhatIsDrawnWithoutRings_data() { picturesHoldWhatIsDrawnWithoutRings_data(); }
    void theSvgHoldsWhatIsDrawnWithoutRings() {
        QFETCH(HandDrawings, drawings);
        DrawnChart program;
        const std::string before = program.Graph()->Svg();
        QVERIFY(before.find("#003cbe") == std::string::npos);
        program.Keep(drawings);
        program.Choose("mnuGraphicsHLC");
        const std::string drawn = program.Graph()->Svg();
        QVERIFY(drawn.find("#003cbe") != std::string::npos);
        QCOMPARE(drawn.find(">bought<") != std::string::npos, drawings[0].kind == HandKind::Text);
        program.Key(Qt::Key_N);
        QVERIFY(program.Graph()->Svg() == drawn);
    }

    void aLineIsMovedAndDeletedByTheMouseAndByKeys() {
        DrawnChart program;
        program.DrawTrend();
        program.DragFrom(program.CloseOf(150), program.CloseOf(150) + QPoint(0, -30));
        const double up = program.Kept()[0].points[0].price;
        QVERIFY(up > ChartProgram::Bar(100).HistoryClose + 5);
        program.Key(Qt::Key_Left);
        QCOMPARE(program.Kept()[0].points[0].day, *ParseDate(ChartProgram::Bar(99).HistoryDate));
        program.Key(Qt::Key_Down);
        QVERIFY(program.Kept()[0].points[0].price < up);
        program.Key(Qt::Key_Delete);
        QVERIFY(!IsRegularFile(program.File()));
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Kept().size(), 1U);
    }

    void keysAloneDrawALine() {
        DrawnChart program;
        program.Key(Qt::Key_T);
        program.Key(Qt::Key_Left);
        program.Key(Qt::Key_Return);
        for (int i = 0; i < 3; ++i) program.Key(Qt::Key_Left);
        program.Key(Qt::Key_Return);
        QVERIFY(program.Kept() ==
                (HandDrawings{{HandKind::Trend, {program.CloseAt(279), program.CloseAt(276)}}}));
    }

    void ctrlZTakesBackStepByStepAndNeverTouchesTheDatabase() {
        DrawnChart program;
        program.DrawTrend();
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(program.Kept().empty());
        program.Key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Notice(), QStringLiteral("Nothing was drawn or changed in this chart"));
        program.Key(Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(program.Kept() == program.Trend());
        // The menu's shortcut has to leave the key to the chart.
        QKeyEvent override(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
        override.ignore();
        QCoreApplication::sendEvent(program.Graph(), &override);
        QVERIFY(override.isAccepted());
    }

    void escapeGivesUpTheToolBeforeItClosesTheChart() {
        DrawnChart program;
        program.Key(Qt::Key_T);
        program.Key(Qt::Key_Escape);
        QVERIFY(program.Graph());
        program.Key(Qt::Key_Escape);
        QTRY_VERIFY(!program.Graph());
    }

    void drawingsBelongToTheirTickerAndComeBack() {
        DrawnChart program;
        program.DrawTrend();
        const QImage drawn = program.Drawn();
        program.Key(Qt::Key_Escape);
        program.Key(Qt::Key_PageDown);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T2"));
        program.DrawTrend();
        QVERIFY(program.Kept("T2") == program.Trend());
        program.Key(Qt::Key_PageUp);
        program.Key(Qt::Key_N);
        QVERIFY(program.Drawn() == drawn);
        program.Key(Qt::Key_Escape);
        program.Key(Qt::Key_Escape);
        QTRY_VERIFY(!program.Graph());
        program.Choose("mnuGraphicsHLC");
        program.SetFrame({1400, 950});
        program.Key(Qt::Key_N);
        QVERIFY(program.Drawn() == drawn);
    }

    // As after the choice of a tool from its menu.
    void keysOfTheChartWorkFromItsButtonsToo() {
        DrawnChart program;
        auto* const draw = program.Part<QToolButton>("btnDraw");
        QTest::keyClick(draw, Qt::Key_PageDown);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T2"));
        QTest::keyClick(draw, Qt::Key_PageUp);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T1"));
    }

    void aBrokenFileIsToldAndStays() {
        DrawnChart program;
        std::filesystem::create_directories(program.File("T2").parent_path());
        QVERIFY(!WriteWholeFile(program.File("T2"), "{}"));
        QStringList said;
        DialogHand hand([&](QDialog& dialog) {
            said << qobject_cast<QMessageBox*>(&dialog)->text();
            dialog.accept();
        });
        program.Key(Qt::Key_PageDown);
        const QString sentence = QString::fromStdString(program.File("T2").string()) +
                                 QStringLiteral(": cannot be read; it holds no list of drawings");
        QCOMPARE(said, QStringList{sentence});
        QCOMPARE(program.Part<QToolButton>("btnDraw")->toolTip(), sentence);
        program.DrawTrend();
        QCOMPARE(said, QStringList({sentence, sentence}));
        QCOMPARE(BytesOrEmpty(program.File("T2")), std::string("{}"));
    }

    void whatCannotBeKeptIsToldAndTakenBack() {
        DrawnChart program;
        QVERIFY(!WriteWholeFile(program.File().parent_path(), "a file in the folder's place"));
        const QImage before = program.Drawn();
        int said = 0;
        DialogHand hand([&](QDialog& dialog) {
            ++said;
            dialog.accept();
        });
        program.DrawTrend();
        QCOMPARE(said, 1);
        QVERIFY(program.Drawn() == before);
    }

    void whatAnotherProgramWroteIsShownBeforeAnythingIsDrawn() {
        DrawnChart program;
        program.Keep({{HandKind::Horizontal, {program.CloseAt(10)}}});
        program.DrawTrend();
        QCOMPARE(program.Kept().size(), 2U);
        QVERIFY(program.Kept()[0].kind == HandKind::Horizontal);
    }

    void inTheMidstOfARunNothingIsDrawn() {
        DrawnChart program;
        bool isBusy = true;
        program.Graph()->AskBeforeDrawing([&] { return isBusy; });
        program.Key(Qt::Key_T);
        QCOMPARE(program.Notice(), QStringLiteral("Nothing can be drawn while a run is under way"));
        program.DragFrom(program.CloseOf(100), program.CloseOf(200));
        QVERIFY(program.Kept().empty());
        isBusy = false;
        program.Graph()->setFocus();
        program.Key(Qt::Key_0);
        program.DrawTrend();
        QVERIFY(program.Kept() == program.Trend());
    }

    void withoutDrawingsThePressesAreTheCharts() {
        DrawnChart program;
        QTest::mousePress(program.Price(), Qt::LeftButton, {}, program.CloseOf(100));
        QVERIFY(!program.Label("Label69").isEmpty());
        QTest::mouseRelease(program.Price(), Qt::LeftButton, {}, program.CloseOf(100));
        QVERIFY(!IsRegularFile(program.File()));
    }

    void inItsOwnSizeLinesAreDrawnByKeysAndShown() {
        DrawnChart program;
        program.Choose("mnuViewFitChart");
        QVERIFY(!program.Part<QToolButton>("btnDraw")->isVisible());
        const QImage before = program.Drawn();
        program.Key(Qt::Key_H);
        program.Click(program.CloseOf(150));
        QCOMPARE(program.Kept().size(), 1U);
        QVERIFY(program.Drawn() != before);
    }

    void theMenuOffersWhatCanBeDone() {
        DrawnChart program;
        const auto enabled = [&] {
            QStringList words;
            for (const char* entry :
                 {"Choose the Next", "Edit Text", "Delete", "Delete All", "Undo", "Redo"}) {
                if (program.Entry(entry)->isEnabled()) words << QString::fromLatin1(entry);
            }
            return words.join(u',');
        };
        QCOMPARE(enabled(), QString());
        program.DrawTrend();
        QCOMPARE(enabled(), QStringLiteral("Choose the Next,Delete,Delete All,Undo"));
        program.Entry("Delete All")->trigger();
        QCOMPARE(enabled(), QStringLiteral("Undo"));
        program.Entry("Undo")->trigger();
        QCOMPARE(enabled(), QStringLiteral("Choose the Next,Delete All,Undo,Redo"));
        program.Entry("Snap to High, Low and Close")->trigger();
        QCOMPARE(program.Notice(), QStringLiteral("Places stand where they are put"));
        QVERIFY(!program.Entry("Snap to High, Low and Close")->isChecked());
    }
};

WINDOW_TEST(FrmGraphDrawTest)
#include "frmGraph_draw_test.moc"
