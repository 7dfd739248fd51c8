// How the chart is looked at: crosshair and values, axes, palettes, what an empty chart and a full one say.
#include <QAction>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QToolTip>

#include "chart/windows/panel_stack.h"
#include "chart/windows/values_line.h"
#include "fitting_chart.h"

using namespace brantlow;

namespace {

// A place over a bar, a third of the panel down.
QPoint PlaceOver(const ChartPanel& panel, int bar) {
    return QPoint(static_cast<int>((50 + 45.0 * bar) / panel.TwipsAcross(1)), panel.height() / 3);
}

QColor ColourOfCaption(const ChartProgram& program, const char* name) {
    const auto* const label = program.Part<QLabel>(name);
    return label->palette().color(label->foregroundRole());
}

bool Shows(const QImage& image, QColor colour) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour) return true;
        }
    }
    return false;
}

}  // namespace

class FrmGraphLookTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theValuesAreThoseOfTheNewestBarUntilThePointerIsOverAnother() {
        FittingChart program;
        QVERIFY2(ValuesText(program).startsWith(QStringLiteral("Date 10/28/26")),
                 qPrintable(ValuesText(program)));
        for (const char* name : {"Picture1", "Picture2", "Picture3"}) {
            ChartPanel* const panel = program.PanelNamed(name);
            QTest::mouseMove(panel, PlaceOver(*panel, 100));
            const QString values = ValuesText(program);
            QVERIFY2(values.contains(QStringLiteral("Open 199.50")), qPrintable(values));
            QVERIFY(values.contains(QStringLiteral("High 201.00")));
            QVERIFY(values.contains(QStringLiteral("Low 199.00")));
            QVERIFY(values.contains(QStringLiteral("Close 200.00")));
            QVERIFY(values.contains(QStringLiteral("Change +1.00 (+0.50 %)")));
            QVERIFY(values.contains(QStringLiteral("Volume 1,100")));
            QVERIFY(values.contains(QStringLiteral("MLR Der 30 ")));
            QVERIFY(values.contains(QStringLiteral("MA 15 ")));
            QVERIFY(values.contains(QStringLiteral("Vol. L. UCL ")));
            QEvent leave(QEvent::Leave);
            QCoreApplication::sendEvent(panel, &leave);
            QVERIFY(ValuesText(program).startsWith(QStringLiteral("Date 10/28/26")));
        }
    }

    void theCrosshairStandsOverAllThreePanels() {
        FittingChart program;
        const Rgb quiet = PaletteOf(ChartColours::Standard).quiet;
        ChartPanel* const over = program.PanelNamed("Picture2");
        const QPoint place = PlaceOver(*over, 100);
        QTest::mouseMove(over, place);
        for (const char* name : {"Picture1", "Picture2", "Picture3"}) {
            const QImage picture = program.Picture(name);
            QCOMPARE(picture.pixelColor(place.x(), picture.height() / 2), ColourOf(quiet));
            // Level only where the pointer is; a place falls on the pixel before it by rounding.
            bool isLevel = false;
            for (const int y : {place.y() - 1, place.y()})
                isLevel = isLevel || picture.pixelColor(place.x() + 7, y) == ColourOf(quiet);
            QCOMPARE(isLevel, program.PanelNamed(name) == over);
        }
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(over, &leave);
        QVERIFY(!Shows(program.Picture("Picture3"), ColourOf(quiet)));
    }

    void arrowKeysMoveTheCrosshair() {
        FittingChart program;
        program.Graph()->setFocus();
        QTest::keyClick(program.Graph(), Qt::Key_Left);
        QVERIFY(ValuesText(program).contains(QStringLiteral("Close 379.00")));
        QTest::keyClick(program.Graph(), Qt::Key_Left);
        QVERIFY(ValuesText(program).contains(QStringLiteral("Close 378.00")));
        QTest::keyClick(program.Graph(), Qt::Key_Right);
        QTest::keyClick(program.Graph(), Qt::Key_Right);
        QVERIFY(ValuesText(program).contains(QStringLiteral("Close 379.00")));
        ChartPanel* const panel = program.PanelNamed("Picture1");
        QTest::mouseMove(panel, PlaceOver(*panel, 1));
        QTest::keyClick(program.Graph(), Qt::Key_Left);
        QVERIFY(ValuesText(program).contains(QStringLiteral("Close 101.00")));
    }

    // The line keeps its height, so that nothing moves under the pointer.
    void theValuesMoveNothing() {
        FittingChart program;
        for (const char* item : {"MA 30", "MLR 15 L.CL", "MLR 30 T.CL", "LR T.CL", "LR MINMAX CL"})
            program.Pick("Combo1", item);
        QCoreApplication::processEvents();
        const QRect place = program.PlaceOf(*program.PanelNamed("Picture1"));
        for (const int bar : {1, 50, 200, 279}) {
            QTest::mouseMove(program.PanelNamed("Picture1"), PlaceOver(*program.PanelNamed("Picture1"), bar));
            QCoreApplication::processEvents();
            QCOMPARE(program.PlaceOf(*program.PanelNamed("Picture1")), place);
        }
    }

    void valuesThatTakeAnotherLineSaySoAndKeepIt() {
        ValuesLine values;
        values.resize(300, 100);
        values.show();
        const ChartPalette& palette = PaletteOf(ChartColours::Standard);
        const auto valued = [](const char* text) {
            return std::vector<HoverValue>(6, HoverValue{"MA 30", text, {}});
        };
        values.ShowValues(valued("1.00"), palette, {});
        const int least = values.height();
        QSignalSpy changed(&values, &ValuesLine::RoomChanged);
        values.ShowValues(valued("1234567.00 / 12345678.00"), palette, {});
        QCOMPARE(changed.size(), 1);
        const int most = values.height();
        QVERIFY(most > least);
        values.ShowValues(valued("1.00"), palette, {});
        QCOMPARE(values.height(), most);
        QCOMPARE(changed.size(), 1);
    }

    // The widths of the names are kept from bar to bar; a line that was made anew knows of none.
    void theValuesStandAsInALineThatIsMadeAnew() {
        const ChartPalette& palette = PaletteOf(ChartColours::Standard);
        const auto valued = [](const char* name, const char* text) {
            return std::vector<HoverValue>(6, HoverValue{name, text, {}});
        };
        const auto anew = [&](const std::vector<HoverValue>& shown, QFont font, QSize size) {
            ValuesLine fresh;
            fresh.setFont(font);
            fresh.ShowValues(shown, palette, {});
            fresh.resize(size);
            return fresh.grab().toImage();
        };
        ValuesLine values;
        values.resize(700, 60);
        values.ShowValues(valued("MA 30", "1.00"), palette, {});
        const auto looksAnew = [&](const std::vector<HoverValue>& shown) {
            return values.grab().toImage() == anew(shown, values.font(), values.size());
        };
        const auto other = valued("MA 30", "99999.00");
        values.ShowValues(other, palette, {});
        QVERIFY2(looksAnew(other), "other values");
        const auto named = valued("MLR 120 L.CL", "99999.00");
        values.ShowValues(named, palette, {});
        QVERIFY2(looksAnew(named), "names that are longer");
        values.resize(380, values.height());
        QVERIFY2(looksAnew(named), "a narrower line");
        QFont large = values.font();
        large.setPointSizeF(2 * large.pointSizeF());
        values.setFont(large);
        QVERIFY2(looksAnew(named), "larger letters");
        const auto fewer = std::vector<HoverValue>(2, HoverValue{"MLR 120 L.CL", "5", {}});
        values.ShowValues(fewer, palette, {});
        QVERIFY2(looksAnew(fewer), "fewer values");
        values.ShowValues({}, palette, {});
        QVERIFY2(looksAnew({}), "none");
    }

    void everyValueHasRoomInANarrowWindow() {
        for (const int width : {480, 640, 1000}) {
            FittingChart program({width, 700});
            for (const char* item : {"MA 30", "MLR 15 L.CL", "MLR 30 T.CL", "LR T.CL", "LR MINMAX CL"})
                program.Pick("Combo1", item);
            QCoreApplication::processEvents();
            auto* const values = program.Graph()->findChild<ValuesLine*>();
            const int height = values->height();
            // What is painted below the room that it has would be cut.
            values->setFixedHeight(height + 100);
            QCoreApplication::processEvents();
            const QImage image = values->grab().toImage();
            const QColor ground = image.pixelColor(0, 0);
            for (int y = height * image.height() / values->height(); y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    QVERIFY2(image.pixelColor(x, y) == ground, qPrintable(QString::number(width)));
            }
        }
    }

    void inItsOwnSizeTheChartHasNeitherCrosshairNorValuesNorAxis() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        QVERIFY(!program.Part<ValuesLine>("lblValues")->isVisible());
        const QImage before = program.Picture("Picture1");
        QTest::mouseMove(program.Part<ChartPanel>("Picture1"), QPoint(300, 300));
        QCOMPARE(program.Picture("Picture1"), before);
        QTest::keyClick(program.Graph(), Qt::Key_Left);
        QCOMPARE(program.Picture("Picture1"), before);
        QCOMPARE(program.Label("Label56"), QStringLiteral("1279"));
        auto* const stack = program.Graph()->findChild<PanelStack*>();
        QVERIFY(stack->height() - program.Part<ChartPanel>("Picture3")->geometry().bottom() < 5);
    }

    void theTimeAxisStandsUnderTheVolume() {
        FittingChart program;
        auto* const stack = program.Graph()->findChild<PanelStack*>();
        const int below = stack->height() - program.PanelNamed("Picture3")->geometry().bottom();
        QVERIFY(below > 12);
        const QRect strip(0, program.PanelNamed("Picture3")->geometry().bottom() + 1, stack->width(),
                          below - 1);
        QVERIFY(Shows(stack->grab(strip).toImage(), stack->palette().color(QPalette::WindowText)));
        program.Choose("mnuViewChartTimeAxis");
        QCoreApplication::processEvents();
        QVERIFY(stack->height() - program.PanelNamed("Picture3")->geometry().bottom() < 5);
        QCOMPARE(GetSetting(program.store, "Chart", "TimeAxis", ""), std::string("0"));
    }

    void roundPricesStandAtTheRightBesideTheFiveOfTheScale() {
        FittingChart program;
        const auto* const price = program.PanelNamed("Picture1");
        const int before = price->width();
        program.Choose("mnuViewChartRoundPrices");
        auto* const stack = program.Graph()->findChild<PanelStack*>();
        QVERIFY(price->width() < before);
        const QRect strip(price->geometry().right() + 1, price->y(),
                          stack->width() - price->geometry().right() - 1, price->height());
        QVERIFY(Shows(stack->grab(strip).toImage(), stack->palette().color(QPalette::WindowText)));
        QCOMPARE(program.Label("Label51"), QStringLiteral("380.00"));
        QCOMPARE(program.Label("Label53"), QStringLiteral("100.00"));
    }

    void theGridIsAChoice() {
        FittingChart program;
        const QColor grid = ColourOf(PaletteOf(ChartColours::Standard).grid);
        for (const char* name : {"Picture1", "Picture2", "Picture3"})
            QVERIFY(!Shows(program.Picture(name), grid));
        program.Choose("mnuViewChartGrid");
        QVERIFY(program.frame->Commands().Entry("mnuViewChartGrid")->isChecked());
        for (const char* name : {"Picture1", "Picture2", "Picture3"})
            QVERIFY(Shows(program.Picture(name), grid));
    }

    void volumesCanBeReadAtAGlance() {
        FittingChart program;
        QCOMPARE(program.Label("Label56"), QStringLiteral("1.28K"));
        QCOMPARE(program.Label("Label57"), QStringLiteral("1K"));
    }

    void aPaletteIsPaintedAndLeavesTheListsAlone() {
        FittingChart program;
        program.Choose("mnuGraphicsCandleStick");
        program.Pick("Combo1", "WMA 30");
        const auto items = program.Graph()->Chart().Picture(Panel::Price).items;
        const std::pair<const char*, ChartColours> rows[] = {{"mnuViewChartDistinct", ChartColours::Distinct},
                                                             {"mnuViewChartDark", ChartColours::Dark},
                                                             {"mnuViewChartStandard", ChartColours::Standard},
                                                             {"mnuViewChartDesktop", ChartColours::Desktop}};
        for (const auto& [entry, colours] : rows) {
            program.Choose(entry);
            for (const auto& [other, otherColours] : rows)
                QCOMPARE(program.frame->Commands().Entry(other)->isChecked(), colours == otherColours);
            const ChartPalette& palette = PaletteOf(colours);
            const QImage price = program.Picture("Picture1");
            QCOMPARE(price.pixelColor(0, 0), ColourOf(palette.ground));
            QVERIFY(Shows(price, ColourOf(palette.ink)));
            if (!palette.ownColours) {
                QVERIFY(Shows(price, ColourOf(palette.series[0])));
                QVERIFY(Shows(price, ColourOf(palette.series[1])));
                QVERIFY(Shows(price, ColourOf(palette.rising)));
                QCOMPARE(ColourOfCaption(program, "Label14"), ColourOf(palette.series[0]));
                QCOMPARE(ColourOfCaption(program, "Label15"), ColourOf(palette.series[1]));
            }
            // The legend stands on the panels' ground.
            const QWidget* const ground = program.Part<QLabel>("Label14")->parentWidget();
            QCOMPARE(ground->palette().color(QPalette::Base), ColourOf(palette.ground));
            QCOMPARE(program.Graph()->Chart().Picture(Panel::Price).items, items);
        }
    }

    void theColoursOfTheDesktopFollowItAtOnceUnlessOthersAreChosen() {
        FittingChart program;
        const QPalette light = QApplication::palette();
        QPalette dark(QColor(45, 48, 52));
        dark.setColor(QPalette::Base, QColor(30, 32, 35));
        const auto turn = [](const QPalette& palette) {
            QApplication::setPalette(palette);
            QCoreApplication::processEvents();
        };
        const auto ground = [&] { return program.Picture("Picture1").pixelColor(0, 0); };
        const QColor darkGround = ColourOf(PaletteOf(ChartColours::Dark).ground);
        QVERIFY(program.frame->Commands().Entry("mnuViewChartDesktop")->isChecked());
        QCOMPARE(ground(), QColor(Qt::white));
        turn(dark);
        QCOMPARE(ground(), darkGround);
        QCOMPARE(program.Part<QLabel>("Label14")->parentWidget()->palette().color(QPalette::Base),
                 darkGround);
        turn(light);
        QCOMPARE(ground(), QColor(Qt::white));
        program.Choose("mnuViewChartStandard");
        turn(dark);
        QCOMPARE(ground(), QColor(Qt::white));
        program.Choose("mnuViewChartDesktop");
        QCOMPARE(ground(), darkGround);
        program.Choose("mnuGraphicsHLC");
        QCOMPARE(ground(), darkGround);
        program.Choose("mnuViewFitChart");
        QCOMPARE(ground(), QColor(Qt::white));
        turn(light);
    }

    // The Tab key goes through the strip over the panels as it is read.
    void theTabKeyGoesThroughTheStripInOrder() {
        FittingChart program;
        program.frame->activateWindow();
        program.Part<QComboBox>("Combo1")->setFocus(Qt::TabFocusReason);
        QStringList names;
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            names << QApplication::focusWidget()->objectName();
        }
        QCOMPARE(names, (QStringList{QStringLiteral("Combo2"), QStringLiteral("Combo3"),
                                     QStringLiteral("btnDraw"), QStringLiteral("CommandReturn")}));
    }

    // What stands in a strip over the panels stands in the middle of its row.
    void theHeaderStandsInTheMiddleOfItsRow() {
        FittingChart program;
        const auto middle = [&](const char* part) {
            return program.PlaceOf(*program.Part<QWidget>(part)).center().y();
        };
        for (const char* label : {"Label3", "Label58", "Label64"})
            QVERIFY2(std::abs(middle(label) - middle("txtTicker")) <= 1, label);
    }

    // With large letters in a small window the read-outs stand beside their headings, and nothing is
    // scrolled.
    void aSmallWindowWithLargeLettersShowsTheWholeChart() {
        const QFont usual = QApplication::font();
        QFont large = usual;
        large.setPointSizeF(usual.pointSizeF() * 1.5);
        {
            FittingChart roomy;
            QVERIFY(roomy.PlaceOf(*roomy.Part<QWidget>("Label68")).top() >
                    roomy.PlaceOf(*roomy.Part<QWidget>("Label21")).center().y());
            // However tall the window, each value stands next to its heading.
            const auto top = [&](const char* name) {
                return roomy.PlaceOf(*roomy.Part<QWidget>(name)).top();
            };
            const int line = roomy.Part<QWidget>("Label21")->sizeHint().height();
            QVERIFY2(top("Label22") - top("Label21") <= 3 * line, std::to_string(line).c_str());
            QApplication::setFont(large);
            FittingChart program({1024 - 16, 768 - 48});
            const auto* const scroll = program.Graph()->findChild<QScrollArea*>();
            QCOMPARE(scroll->verticalScrollBar()->maximum(), 0);
            QCOMPARE(scroll->horizontalScrollBar()->maximum(), 0);
            QVERIFY(program.PlaceOf(*program.Part<QWidget>("Label68")).center().y() <
                    program.PlaceOf(*program.Part<QWidget>("Label21")).bottom());
            for (const char* panel : {"Picture1", "Picture2", "Picture3"})
                QVERIFY2(program.PanelNamed(panel)->height() >= 40, panel);
            // Nor does it scroll where the values of a bar take another line.
            for (const char* item :
                 {"MLR 120 L.CL", "MLR 90 L.CL", "MLR 60 L.CL", "MLR 30 L.CL", "MLR 15 L.CL"})
                program.Pick("Combo1", item);
            for (const int bar : {30, 150, 279}) {
                QTest::mouseMove(program.PanelNamed("Picture1"), QPoint(2 * bar, 40));
                QCoreApplication::processEvents();
                QCOMPARE(scroll->verticalScrollBar()->maximum(), 0);
            }
        }
        QApplication::setFont(usual);
    }

    void aPaletteAndWideLinesAreAlsoThoseOfTheChartInItsOwnSize() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        const QColor line(0, 100, 0);
        const auto count = [&] {
            const QImage picture = program.Picture("Picture1");
            int pixels = 0;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x) pixels += picture.pixelColor(x, y) == line ? 1 : 0;
            }
            return pixels;
        };
        const int thin = count();
        program.Choose("mnuViewChartWideLines");
        QVERIFY2(count() > thin * 3 / 2, qPrintable(QString::number(count())));
        program.Choose("mnuViewChartDark");
        QCOMPARE(program.Picture("Picture1").pixelColor(0, 0),
                 ColourOf(PaletteOf(ChartColours::Dark).ground));
    }

    void theNextChartAndTheNextStartKeepThePalette() {
        FittingChart program;
        program.Choose("mnuViewChartDark");
        program.Choose("mnuGraphicsHLC");
        QCOMPARE(program.Picture("Picture1").pixelColor(0, 0),
                 ColourOf(PaletteOf(ChartColours::Dark).ground));
        QCOMPARE(LoadChartOptions(program.store).colours, ChartColours::Dark);
    }

    void aSeventhSeriesSaysSo() {
        FittingChart program;
        for (const char* item : {"MA 30", "MA 60", "MLR 15", "MLR 30", "LR T.CL"})
            program.Pick("Combo1", item);
        QCOMPARE(program.frame->statusBar()->currentMessage(), QString());
        const auto slotsBefore = program.Graph()->Chart().Slots;
        program.Pick("Combo1", "WMA 60");
        const QString sentence = QStringLiteral("Six series are drawn. Clear Series first.");
        QCOMPARE(program.frame->statusBar()->currentMessage(), sentence);
        QTRY_COMPARE(QToolTip::text(), sentence);
        QVERIFY(program.Graph()->Chart().Slots == slotsBefore);
    }

    void theFrameButtonsAreOffWhereThereIsNothingFurther() {
        FittingChart program;
        const auto on = [&](const char* button) { return program.Part<QPushButton>(button)->isEnabled(); };
        QVERIFY(on("Command5"));
        QVERIFY(!on("Command6"));
        program.Press("Command5");
        QVERIFY(on("Command5"));
        QVERIFY(on("Command6"));
        program.Press("Command5");
        QVERIFY(!on("Command5"));
        QVERIFY(on("Command6"));
    }

    void anEmptyChartShowsAnEmptyState() {
        for (const bool fits : {true, false}) {
            ChartProgram program(ChartProgram::kBars, fits);
            program.SelectTicker("T2");
            DialogHand hand([](QDialog& dialog) { dialog.reject(); });
            program.Choose("mnuGraphicsHLC");
            QVERIFY(program.Graph());
            QVERIFY(program.Part<QLabel>("lblEmptyPrice")->isVisible());
            for (const QLabel* label : program.Graph()->findChildren<QLabel*>()) {
                QVERIFY2(!label->isVisible() || !label->text().contains(QStringLiteral("00000000000")),
                         qPrintable(label->objectName() + label->text()));
            }
            for (const char* label : {"Label51", "Label53", "Label54", "Label55", "Label56", "Label57"})
                QVERIFY2(!program.Part<QLabel>(label)->isVisible(), label);
            QCOMPARE(ValuesText(program), QString());
        }
    }

    void aTickerWithoutHistoryShowsNoPriceOfTheOneBefore() {
        FittingChart program;
        QCOMPARE(program.Label("Label59"), QStringLiteral("379"));
        auto* const box = program.Part<QLineEdit>("txtTicker");
        box->setText(QStringLiteral("T2"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(program.Label("Label58"), QStringLiteral("T2"));
        for (const char* label : {"Label59", "Label60", "Label61", "Label62", "Label63", "Label64"})
            QVERIFY2(program.Label(label).isEmpty(), label);
        box->setText(QStringLiteral("T1"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(program.Label("Label59"), QStringLiteral("379"));
        QCOMPARE(program.Label("Label62"), QStringLiteral("10/28/26"));
    }

    void aStudyWithoutValuesShowsNoScale() {
        for (const bool fits : {true, false}) {
            ChartProgram program(20, fits);
            program.Choose("mnuGraphicsHLC");
            program.Pick("Combo2", "Momentum 60");
            QVERIFY(!program.Part<QLabel>("Label54")->isVisible());
            QVERIFY(!program.Part<QLabel>("Label55")->isVisible());
            QVERIFY(program.Part<QLabel>("lblEmptyStudy")->isVisible());
            QVERIFY(program.Part<QLabel>("Label51")->isVisible());
            program.Pick("Combo2", "RSI 15");
            QVERIFY(program.Part<QLabel>("Label54")->isVisible());
            QVERIFY(!program.Part<QLabel>("lblEmptyStudy")->isVisible());
        }
    }

    void aSeriesThatIsNotDrawnHasNoColourOfAnother() {
        ChartProgram program(100);
        program.Choose("mnuGraphicsHLC");
        program.Pick("Combo1", "MA 180");
        QCOMPARE(ColourOfCaption(program, "Label14"), QColor(0, 100, 0));
        QCOMPARE(ColourOfCaption(program, "Label15"), ColourOf(PaletteOf(ChartColours::Standard).quiet));
        QCOMPARE(program.Part<QLabel>("Label15")->toolTip(), QStringLiteral("Too few bars for this series"));
        QCOMPARE(program.Part<QLabel>("Label14")->toolTip(), QString());
    }

    void brightNamesOfTheLegendAreDarkEnoughToRead() {
        FittingChart program;
        program.Pick("Combo1", "MLR 120");
        const QColor shown = ColourOfCaption(program, "Label15");
        const Rgb colour{static_cast<unsigned char>(shown.red()), static_cast<unsigned char>(shown.green()),
                         static_cast<unsigned char>(shown.blue())};
        QVERIFY(Contrast(colour, {255, 255, 255}) >= 4.5);
    }

    void aPressOnAPanelTakesTheKeysFromTheLists() {
        FittingChart program;
        program.Part<QComboBox>("Combo1")->setFocus();
        QTest::mouseClick(program.PanelNamed("Picture1"), Qt::LeftButton, {}, QPoint(100, 100));
        QVERIFY(program.Graph()->hasFocus());
    }
};

WINDOW_TEST(FrmGraphLookTest)
#include "frmGraph_look_test.moc"
