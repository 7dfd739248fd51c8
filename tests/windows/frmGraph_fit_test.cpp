// The chart that fills its window: where its parts stand in windows of every size, what a press finds there,
// and how the choice is made and kept.
#include <QAction>
#include <QMdiSubWindow>
#include <QScrollArea>
#include <QScrollBar>

#include "chart/windows/panel_stack.h"
#include "fitting_chart.h"

using namespace brantlow;

namespace {

constexpr const char* kPanelNames[] = {"Picture1", "Picture2", "Picture3"};

}  // namespace

class FrmGraphFitTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aNewInstallationFitsTheChart() {
        ChartProgram program(ChartProgram::kBars, true);
        QVERIFY(program.frame->Commands().Entry("mnuViewFitChart")->isChecked());
        program.Choose("mnuGraphicsHLC");
        QVERIFY(program.Graph()->findChild<QScrollArea*>()->widgetResizable());
    }

    void thePanelsFillWindowsOfEverySize() {
        FittingChart program;
        QSize last;
        for (const QSize size : {QSize(1100, 800), QSize(1400, 950), QSize(1920, 1080), QSize(3840, 2160)}) {
            program.SetFrame(size);
            const auto* const scroll = program.Graph()->findChild<QScrollArea*>();
            QCOMPARE(program.Graph()->ClientArea()->size(), scroll->viewport()->size());
            const auto* const stack = program.Graph()->findChild<PanelStack*>();
            // To the right edge and to the lower one.
            const QRect volume = program.PanelNamed("Picture3")->geometry();
            QCOMPARE(volume.right() + 1, stack->width());
            // But for the time axis.
            QVERIFY(stack->height() - volume.bottom() < 32);
            const QSize price = program.PanelNamed("Picture1")->size();
            QVERIFY(price.width() > last.width() && price.height() > last.height());
            last = price;
        }
        QVERIFY(last.width() > 3500);
        QVERIFY(last.height() > 1300);
    }

    void aTallerWindowMakesThePricePanelTallest() {
        FittingChart program({1400, 800});
        const int price = program.PanelNamed("Picture1")->height();
        const int study = program.PanelNamed("Picture2")->height();
        program.SetFrame({1400, 1200});
        const int more = program.PanelNamed("Picture1")->height() - price;
        QVERIFY(more > 2 * (program.PanelNamed("Picture2")->height() - study));
    }

    // What stands on the panels fills them: the right axis is at x = 12650 of 12705 twips, the lower line of
    // the price panel at 6050 of 6150.
    void theDrawingIsScaledWithThePanel() {
        FittingChart program({1920, 1080});
        const QImage price = program.Picture("Picture1");
        const int x = 12650 * price.width() / 12705;
        QCOMPARE(price.pixelColor(x, price.height() / 3), QColor(Qt::black));
        const int y = 6050 * price.height() / 6150;
        QCOMPARE(price.pixelColor(price.width() / 3 + 1, y), QColor(Qt::black));
        // The lists stay as they are.
        QCOMPARE(std::get<DrawnLine>(program.Graph()->Chart().Picture(Panel::Price).items[2]).x1, 12650.0F);
    }

    void theScaleLabelsStandBesideTheirLinesAtEverySize() {
        FittingChart program;
        for (const QSize size : {QSize(1100, 800), QSize(1920, 1080)}) {
            program.SetFrame(size);
            const std::tuple<const char*, const char*, double> rows[] = {
                {"Label51", "Picture1", 50},   {"Label25", "Picture1", 1550}, {"Label52", "Picture1", 3050},
                {"Label27", "Picture1", 4550}, {"Label53", "Picture1", 6050}, {"Label54", "Picture2", 50},
                {"Label55", "Picture2", 1120}, {"Label56", "Picture3", 50},   {"Label57", "Picture3", 1120},
            };
            for (const auto& [name, panelName, twips] : rows) {
                const auto* const label = program.Part<QLabel>(name);
                const auto* const panel = program.PanelNamed(panelName);
                const int line = panel->y() + static_cast<int>(twips / kTwips * panel->Scale().down);
                QVERIFY2(std::abs(label->geometry().center().y() - line) <= 2, name);
                QVERIFY2(label->geometry().right() < panel->x(), name);
            }
        }
    }

    void aPressFindsTheBarUnderThePointerAtEverySize() {
        FittingChart program;
        for (const QSize size : {QSize(1100, 800), QSize(1920, 1080), QSize(3840, 2160)}) {
            program.SetFrame(size);
            for (const char* name : kPanelNames) {
                auto* const panel = program.PanelNamed(name);
                const double twips = 45 * 100 + 22;
                const QPoint place(static_cast<int>(twips / kTwips * panel->Scale().across), 20);
                QTest::mousePress(panel, Qt::LeftButton, {}, place);
                QCOMPARE(program.Label("Label69"), QStringLiteral("200"));
                QTest::mouseRelease(panel, Qt::LeftButton, {}, place);
                QCOMPARE(program.Label("Label69"), QString());
            }
        }
    }

    void theTipIsTheValueUnderThePointerAtEverySize() {
        FittingChart program({1920, 1080});
        auto* const panel = program.PanelNamed("Picture1");
        // The middle line, at 3050 twips, is 240; a pixel is less than 0.7.
        const int y = static_cast<int>(3050.0 / kTwips * panel->Scale().down);
        QTest::mouseMove(panel, QPoint(300, y));
        QVERIFY(std::abs(panel->toolTip().toDouble() - 240) < 0.7);
    }

    void nothingIsCutInANarrowWindow() {
        FittingChart program({640, 480});
        const QSize sheet = program.Graph()->ClientArea()->size();
        for (const QWidget* part : program.Graph()->ClientArea()->findChildren<QWidget*>()) {
            if (!part->isVisible() || part->parentWidget() != program.Graph()->ClientArea()) continue;
            QVERIFY2(QRect(QPoint(), sheet).contains(program.PlaceOf(*part)), qPrintable(part->objectName()));
        }
    }

    void whatAnEmptyChartSaysStandsInItsMiddleAtEverySize() {
        ChartProgram program(ChartProgram::kBars, true);
        program.SelectTicker("T2");
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        program.Choose("mnuGraphicsHLC");
        for (const QSize size : {QSize(1400, 950), QSize(1024, 768), QSize(1900, 1000)}) {
            program.frame->resize(size);
            QCoreApplication::processEvents();
            const auto* const panel = program.Part<ChartPanel>("Picture1");
            const QRect text = program.Part<QLabel>("lblEmptyPrice")->geometry();
            QCOMPARE(text.width(), panel->width());
            // Its middle is half way between the rules at a quarter and at the half of the panel.
            QVERIFY2(std::abs(text.center().y() - panel->height() * 3 / 8) <= 3,
                     qPrintable(QString::number(text.center().y())));
        }
    }

    void aBorderIsDraggedAndItsPlaceIsKept() {
        FittingChart program;
        const int price = program.PanelNamed("Picture1")->height();
        const int volume = program.PanelNamed("Picture3")->height();
        program.Drag("borderPicture1", -60);
        QVERIFY(std::abs(program.PanelNamed("Picture1")->height() - (price - 60)) <= 1);
        QVERIFY(std::abs(program.PanelNamed("Picture3")->height() - volume) <= 1);
        const int study = program.PanelNamed("Picture2")->height();
        program.Drag("borderPicture2", 30);
        QVERIFY(std::abs(program.PanelNamed("Picture2")->height() - (study + 30)) <= 1);
        // In the next chart too, and at the next start.
        const int kept = program.PanelNamed("Picture2")->height();
        program.Choose("mnuGraphicsCandleStick");
        QVERIFY(std::abs(program.PanelNamed("Picture2")->height() - kept) <= 1);
        QVERIFY(GetSetting(program.store, "Chart", "StudyShare", "").size() > 2);
        // A double click gives the usual shares.
        QTest::mouseDClick(program.Part<QWidget>("borderPicture1"), Qt::LeftButton);
        QVERIFY(std::abs(program.PanelNamed("Picture1")->height() - price) <= 1);
    }

    void offItStandsInItsOwnSizeAndOnItFillsTheWindowAgain() {
        FittingChart program({1920, 1080});
        const QSize fitting = program.PanelNamed("Picture1")->size();
        program.Choose("mnuViewFitChart");
        QVERIFY(!program.frame->Commands().Entry("mnuViewFitChart")->isChecked());
        QCoreApplication::processEvents();
        QCOMPARE(program.PanelNamed("Picture1")->size(), QSize(847, 410));
        QCOMPARE(program.PanelNamed("Picture2")->size(), QSize(847, 82));
        QCOMPARE(program.PanelNamed("Picture3")->size(), QSize(847, 82));
        QVERIFY(!program.Part<QWidget>("borderPicture1")->isVisible());
        QCOMPARE(GetSetting(program.store, "Chart", "FitToWindow", ""), std::string("0"));
        program.Choose("mnuViewFitChart");
        QCoreApplication::processEvents();
        QCOMPARE(program.PanelNamed("Picture1")->size(), fitting);
        QCOMPARE(GetSetting(program.store, "Chart", "FitToWindow", ""), std::string("1"));
    }

    void theFixedLayoutIsTheSameWhicheverWayItWasReached() {
        ChartProgram fixed;
        fixed.Choose("mnuGraphicsHLC");
        FittingChart switched;
        switched.Choose("mnuViewFitChart");
        switched.SetFrame(fixed.frame->size());
        QCoreApplication::processEvents();
        QCOMPARE(switched.Graph()->ClientArea()->size(), fixed.Graph()->ClientArea()->size());
        QCOMPARE(switched.Graph()->ClientArea()->grab().toImage(),
                 fixed.Graph()->ClientArea()->grab().toImage());
    }

    void aStoreThatCannotBeWrittenIsTold() {
        ChartProgram program(ChartProgram::kBars, true);
        std::filesystem::create_directories(program.store);
        const QStringList told = BoxesOf([&] { program.Choose("mnuViewFitChart"); });
        QCOMPARE(told.size(), 1);
        QVERIFY(told[0].startsWith(ShownPath(program.store) + QStringLiteral(": cannot be saved (")));
        QVERIFY(told[0].endsWith(QStringLiteral("); how charts look is not kept")));
    }
};

WINDOW_TEST(FrmGraphFitTest)
#include "frmGraph_fit_test.moc"
