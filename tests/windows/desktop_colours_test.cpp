// Windows follow a desktop that turns dark or light, at once, and what they say can be read.
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextTable>

#include "base/windows/desktop_picture.h"
#include "base/windows/program_style.h"
#include "base/windows/readable.h"
#include "shell/frame/windows/frmHelp.h"
#include "shell/frame/windows/help_browser.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/quote_grid_model.h"
#include "store/windows/verdict_legend.h"
#include "support/source_folder.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

QPalette Dark() {
    QPalette palette(QColor(45, 48, 52));
    palette.setColor(QPalette::Base, QColor(30, 32, 35));
    palette.setColor(QPalette::AlternateBase, QColor(38, 41, 45));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, QColor(235, 235, 235));
    return palette;
}

// The desktop turns dark, and light again at the end.
class DarkDesktop {
  public:
    DarkDesktop() : usual_(QApplication::palette()) {
        QApplication::setPalette(Dark());
        QCoreApplication::processEvents();
    }
    ~DarkDesktop() { End(); }
    void End() {
        QApplication::setPalette(usual_);
        QCoreApplication::processEvents();
    }

  private:
    QPalette usual_;
};

// The ground that a piece of text stands on.
QColor GroundOf(const QTextBlock& block, const QTextCharFormat& format, const QColor& base) {
    if (format.background().style() != Qt::NoBrush) return format.background().color();
    if (block.blockFormat().background().style() != Qt::NoBrush)
        return block.blockFormat().background().color();
    const QTextCursor cursor(block);
    if (const QTextTable* table = cursor.currentTable()) {
        const QTextTableCell cell = table->cellAt(cursor);
        if (cell.isValid() && cell.format().background().style() != Qt::NoBrush)
            return cell.format().background().color();
    }
    return base;
}

// The pieces of the page that cannot be read.
QStringList Unreadable(const QTextBrowser& page) {
    QStringList told;
    const QColor base = page.palette().color(QPalette::Base);
    const QColor plain = page.palette().color(QPalette::Text);
    for (QTextBlock block = page.document()->begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextCharFormat format = piece.fragment().charFormat();
            const bool hasColour = format.foreground().style() != Qt::NoBrush;
            const QColor text = hasColour ? format.foreground().color() : plain;
            const QColor ground = GroundOf(block, format, base);
            if (ContrastRatio(text, ground) < 4.5)
                told << text.name() + u'/' + ground.name() + u' ' + piece.fragment().text().left(30);
        }
    }
    return told;
}

}  // namespace

class DesktopColoursTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void everyHelpPageCanBeReadOnALightAndADarkDesktop() {
        const Path folder = SourceFolder() / "assets/Help";
        frmHelp help(folder, nullptr);
        auto* page = help.findChild<QTextBrowser*>(QStringLiteral("Page"));
        int pages = 0;
        for (const auto& file : std::filesystem::directory_iterator(folder)) {
            if (file.path().extension() != ".html") continue;
            ++pages;
            const std::string name = file.path().filename().string();
            help.ShowPage(name);
            QCOMPARE(Unreadable(*page), QStringList());
            DarkDesktop dark;
            QVERIFY2(page->palette().color(QPalette::Base).lightness() < 60, name.c_str());
            QCOMPARE(Unreadable(*page), QStringList());
            QVERIFY(page->document()->characterCount() > 100);
            dark.End();
            QCOMPARE(Unreadable(*page), QStringList());
        }
        QVERIFY(pages > 10);
    }

    void theLegendExplainsTheVerdictsOfASelectorsTableAlone() {
        Program program;
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\r\n");
        program.Start("Jan.ddq");
        auto* legend = program.frame->findChild<VerdictLegend*>();
        QVERIFY(!legend->isVisible());
        program.session.settings.MruSettings.Set(1, Value::OfText("Old.dbe"));
        program.frame->OpenRecentFile(1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        legend = program.frame->findChild<VerdictLegend*>();
        QVERIFY(legend->isVisible());
        QStringList words;
        for (const QLabel* label : legend->findChildren<QLabel*>()) {
            words << label->text();
            QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
        }
        QCOMPARE(
            words,
            QStringList({QStringLiteral("Buy"), QStringLiteral("Buy, but the trend of 15 bars turns down"),
                         QStringLiteral("Sell"), QStringLiteral("Sell, but the trend of 15 bars turns up"),
                         QStringLiteral("Hold")}));
        const auto check = [&] {
            for (const QLabel* label : legend->findChildren<QLabel*>()) {
                const QPalette& colours = label->palette();
                QVERIFY2(ContrastRatio(colours.color(QPalette::Window),
                                       colours.color(QPalette::WindowText)) >= 4.5,
                         qPrintable(label->text()));
            }
        };
        check();
        const DarkDesktop dark;
        check();
    }

    // Desktops differ in the colour that they give to what stands in an empty box.
    void whatStandsInAnEmptyBoxCanBeRead() {
        QPalette light = QApplication::palette();
        for (QPalette palette : {light, Dark()}) {
            palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
            ProgramStyle style;
            style.polish(palette);
            for (const auto group : {QPalette::Active, QPalette::Inactive}) {
                const QColor words = palette.color(group, QPalette::PlaceholderText);
                QVERIFY(ContrastRatio(words, palette.color(group, QPalette::Base)) >= 4.5);
                QVERIFY(ContrastRatio(words, palette.color(group, QPalette::Window)) >= 4.5);
                QVERIFY2(words != palette.color(group, QPalette::Text), "it is no entry");
            }
        }
    }

    // The usual style draws their rims darker than the window.
    void boxesToTickAreSeenOnADarkDesktop() {
        const DarkDesktop dark;
        ProgramStyle style;
        QRadioButton radio;
        QCheckBox check;
        for (QAbstractButton* button :
             {static_cast<QAbstractButton*>(&radio), static_cast<QAbstractButton*>(&check)}) {
            button->setStyle(&style);
            button->resize(40, 30);
            const QImage picture = button->grab().toImage();
            const QColor window = button->palette().color(QPalette::Window);
            double most = 0;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x)
                    most = std::max(most, ContrastRatio(picture.pixelColor(x, y), window));
            }
            QVERIFY2(most >= 3, std::to_string(most).c_str());
        }
    }

    void theButtonsOfChildWindowsAreSeenOnADarkDesktop() {
        const ProgramStyle style;
        QStyleOptionTitleBar bar;
        bar.palette = Dark();
        bar.titleBarFlags = Qt::SubWindow | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                            Qt::WindowCloseButtonHint;
        bar.subControls = QStyle::SC_All;
        bar.rect = QRect(0, 0, 200, 24);
        QStyleOptionComplex corner;
        corner.palette = bar.palette;
        corner.subControls = QStyle::SC_MdiMinButton | QStyle::SC_MdiNormalButton | QStyle::SC_MdiCloseButton;
        corner.rect = QRect(0, 0, 60, 20);
        struct Place {
            QStyle::ComplexControl control;
            const QStyleOptionComplex& option;
            QStyle::SubControl button;
        };
        for (const Place& place : {Place{QStyle::CC_TitleBar, bar, QStyle::SC_TitleBarMinButton},
                                   Place{QStyle::CC_TitleBar, bar, QStyle::SC_TitleBarMaxButton},
                                   Place{QStyle::CC_TitleBar, bar, QStyle::SC_TitleBarCloseButton},
                                   Place{QStyle::CC_MdiControls, corner, QStyle::SC_MdiMinButton},
                                   Place{QStyle::CC_MdiControls, corner, QStyle::SC_MdiNormalButton},
                                   Place{QStyle::CC_MdiControls, corner, QStyle::SC_MdiCloseButton}}) {
            const QColor ground = bar.palette.color(QPalette::Window);
            QImage picture(place.option.rect.size(), QImage::Format_RGB32);
            picture.fill(ground);
            QPainter painter(&picture);
            style.drawComplexControl(place.control, &place.option, &painter, nullptr);
            painter.end();
            const QRect rect = style.subControlRect(place.control, &place.option, place.button, nullptr);
            int seen = 0;
            for (int y = rect.top(); y <= rect.bottom(); ++y) {
                for (int x = rect.left(); x <= rect.right(); ++x)
                    seen += ContrastRatio(picture.pixelColor(x, y), ground) >= 4.5 ? 1 : 0;
            }
            QVERIFY2(seen >= 12, std::to_string(place.button).c_str());
        }
    }

    void picturesOfCommandsAreSeenOnADarkDesktopAndTurnWithIt() {
        const QIcon chart = DesktopPicture(QStringLiteral("chart"));
        const QImage light = chart.pixmap(24).toImage();
        {
            const DarkDesktop dark;
            const QColor ground = QApplication::palette().color(QPalette::Window);
            for (const char* name :
                 {"chart", "sort-ascending", "sort-descending", "update", "refresh", "back"}) {
                QImage picture(48, 48, QImage::Format_RGB32);
                picture.fill(ground);
                QPainter painter(&picture);
                DesktopPicture(QString::fromLatin1(name)).paint(&painter, picture.rect());
                painter.end();
                int drawn = 0;
                int seen = 0;
                for (int y = 0; y < picture.height(); ++y) {
                    for (int x = 0; x < picture.width(); ++x) {
                        const double contrast = ContrastRatio(picture.pixelColor(x, y), ground);
                        drawn += contrast > 1.2 ? 1 : 0;
                        seen += contrast >= 3 ? 1 : 0;
                    }
                }
                // The rest are the smoothed edges of the lines.
                QVERIFY2(drawn > 100 && seen > drawn / 2, (name + std::to_string(seen)).c_str());
            }
            QVERIFY(chart.pixmap(24).toImage() != light);
            QVERIFY(chart.pixmap(24, QIcon::Disabled).toImage() != chart.pixmap(24).toImage());
        }
        QCOMPARE(chart.pixmap(24).toImage(), light);
    }

    void theTableFollowsAtOnce() {
        Program program;
        program.Start("Jan.ddq");
        const auto ground = [&] {
            return program.frame->QuoteForm()->grab().toImage().pixelColor(
                program.frame->QuoteForm()->width() - 30, program.frame->QuoteForm()->height() - 30);
        };
        QVERIFY(ground().lightness() > 200);
        const DarkDesktop dark;
        QVERIFY2(ground().lightness() < 90, qPrintable(ground().name()));
    }
};

WINDOW_TEST(DesktopColoursTest)
#include "desktop_colours_test.moc"
