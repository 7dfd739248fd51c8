// Printing, saving and saving as by the active child: pictures of windows on paper and in files.
#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPdfWriter>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStatusBar>
#include <cmath>

#include "chart/windows/page_printer.h"
#include "chart/windows/window_picture.h"
#include "fitting_chart.h"
#include "shell/frame/windows/frame_subjects.h"
#include "shell/settings/condition_set.h"
#include "store/windows/frmQuoteGrid.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// A window that paints its left half red and its right half blue.
class TwoColours final : public QWidget {
  public:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(QRect(0, 0, width() / 2, height()), Qt::red);
        painter.fillRect(QRect(width() / 2, 0, width() - width() / 2, height()), Qt::blue);
    }
};

int PagesOf(const std::string& pdf) {
    int pages = 0;
    constexpr std::string_view kPage = "/Type /Page";
    for (std::size_t at = pdf.find(kPage); at != std::string::npos; at = pdf.find(kPage, at + 1)) {
        if (pdf[at + kPage.size()] != 's') ++pages;
    }
    return pages;
}

// The drawing commands of a page of a PDF file.
QString CommandsOf(const std::string& pdf) {
    // The unpacker wants a guess of the unpacked size in front.
    const QByteArray sizeGuess("\0\0\x10\0", 4);
    const QByteArray stream("stream\n");
    const QByteArray file = QByteArray::fromStdString(pdf);
    for (qsizetype at = file.indexOf(stream); at >= 0; at = file.indexOf(stream, at + 1)) {
        const qsizetype start = at + stream.size();
        QByteArray packed = file.mid(start, file.indexOf("endstream", start) - start);
        const QString text = QString::fromLatin1(qUncompress(packed.prepend(sizeGuess)));
        if (text.contains(QStringLiteral(" Do"))) return text;
    }
    return {};
}

// The size in points of the only picture on the page: a unit square under the scales set before it.
QSizeF SizeOnPage(const std::string& pdf) {
    static const QRegularExpression scale(QStringLiteral("([-.0-9]+) 0 0 ([-.0-9]+) [-.0-9]+ [-.0-9]+ cm"));
    QSizeF size(1, 1);
    QRegularExpressionMatchIterator matches = scale.globalMatch(CommandsOf(pdf));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        size.rwidth() *= std::abs(match.captured(1).toDouble());
        size.rheight() *= std::abs(match.captured(2).toDouble());
    }
    return size;
}

// How light the only picture on the page is, 0 to 255.
double LightnessOf(const std::string& pdf) {
    const QByteArray file = QByteArray::fromStdString(pdf);
    const qsizetype image = file.indexOf("/Subtype /Image");
    const qsizetype start = file.indexOf("stream\n", image) + 7;
    QByteArray bytes = file.mid(start, file.indexOf("endstream", start) - start);
    if (bytes.startsWith("\xff\xd8")) {
        const QImage picture = QImage::fromData(bytes).convertToFormat(QImage::Format_RGB888);
        bytes = QByteArray(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes());
    } else {
        bytes = qUncompress(bytes.prepend(QByteArray("\0\x40\0\0", 4)));
    }
    if (image < 0 || bytes.isEmpty()) return -1;
    double sum = 0;
    for (const char byte : bytes) sum += static_cast<unsigned char>(byte);
    return sum / static_cast<double>(bytes.size());
}

// The main frame, told to send its pages to files.
class PrintingProgram : public Program {
  public:
    explicit PrintingProgram(const std::string& recent) {
        Start(recent);
        frame->Subjects().print.Pages().LeavePrinterAlone();
    }
    QMdiArea& Area() { return *frame->findChild<QMdiArea*>(); }
    // A child of 400 x 200 pixels with this caption, made the active one.
    QWidget& AddPicture(const QString& caption) {
        auto* child = new TwoColours;
        child->setWindowTitle(caption);
        QMdiSubWindow* window = Area().addSubWindow(child);
        frame->Subjects().children.SetOperations(
            *child,
            frame->Subjects().print.PictureOperations(*child, [child] { return CaptureClient(*child); }, {}));
        window->show();
        Area().setActiveSubWindow(window);
        child->setFixedSize(400, 200);
        return *child;
    }
    bool Enabled(const char* entry) { return frame->Commands().Entry(entry)->isEnabled(); }
    Path Images(const char* name) const { return session.AppPath / "Images" / name; }
};

}  // namespace

class PrintTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aCaptureIsTheClientAreaInItsPixels() {
        TwoColours window;
        window.resize(300, 120);
        const QImage picture = CaptureClient(window);
        QCOMPARE(picture.size(), QSize(300, 120) * window.devicePixelRatio());
        QCOMPARE(picture.devicePixelRatio(), 1.0);
        QCOMPARE(picture.pixelColor(10, 60), QColor(Qt::red));
        QCOMPARE(picture.pixelColor(290, 60), QColor(Qt::blue));
    }

    void aBitmapReadsBackAsItWas() {
        TwoColours window;
        window.resize(301, 120);
        const QImage picture = CaptureClient(window);
        const std::string bytes = BitmapBytes(picture);
        QVERIFY(bytes.starts_with("BM"));
        const QImage read = QImage::fromData(QByteArray::fromStdString(bytes), "BMP");
        QCOMPARE(read.size(), picture.size());
        QCOMPARE(read.convertToFormat(QImage::Format_RGB32), picture);
    }

    void theQuoteTableIsPrintedOnOnePage() {
        PrintingProgram program("Feb.ddq");
        QVERIFY(program.Enabled("mnuFilePrint"));
        const Path file = program.folder / "table.pdf";
        QStringList told;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                told.append(box->text());
                return box->accept();
            }
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Print"));
            auto* question = qobject_cast<QFileDialog*>(&dialog);
            QCOMPARE(question->directory().dirName(), QStringLiteral("Images"));
            QCOMPARE(question->selectedFiles().constFirst().section(u'/', -1), QStringLiteral("Feb.pdf"));
            QCOMPARE(question->nameFilters(), QStringList(QStringLiteral("PDF Files (*.pdf)")));
            EnterFile(dialog, program.folder / "table");
        });
        program.Click("Command10");
        QCOMPARE(hand.seen, 2);
        QCOMPARE(told, QStringList(QStringLiteral("There is no printer. The page was written to ") +
                                   ShownPath(file)));
        const std::string pdf = BytesOrEmpty(file);
        QVERIFY(pdf.starts_with("%PDF-"));
        QCOMPARE(PagesOf(pdf), 1);
    }

    void aCancelPrintsNothing() {
        PrintingProgram program("Feb.ddq");
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        program.frame->Run("mnuFilePrint");
        QCOMPARE(hand.seen, 1);
        QVERIFY(std::filesystem::is_empty(program.session.AppPath / "Images"));
    }

    void aPageThatCannotBeWrittenIsTold() {
        PrintingProgram program("Feb.ddq");
        const Path file = program.folder / "missing" / "table.pdf";
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            auto* box = qobject_cast<QMessageBox*>(&dialog);
            if (!box) return EnterFile(dialog, file);
            told = box->text();
            box->accept();
        });
        program.frame->Run("mnuFilePrint");
        QVERIFY2(told.startsWith(ShownPath(file) + QStringLiteral(": cannot be saved (")), qPrintable(told));
    }

    // Whatever the desktop and the chart look like; what is on the screen stays as it is.
    void aPageIsLightOnADarkDesktop_data() {
        QTest::addColumn<QString>("front");
        QTest::addColumn<QString>("colours");
        QTest::newRow("table") << QStringLiteral("mnuFileSave") << QStringLiteral("mnuViewChartDesktop");
        QTest::newRow("chart") << QStringLiteral("mnuGraphicsHLC") << QStringLiteral("mnuViewChartDesktop");
        QTest::newRow("dark chart") << QStringLiteral("mnuGraphicsHLC") << QStringLiteral("mnuViewChartDark");
    }
    void aPageIsLightOnADarkDesktop() {
        QFETCH(QString, front);
        QFETCH(QString, colours);
        constexpr double kDark = 90;
        constexpr double kLight = 200;
        const QPalette usual = QApplication::palette();
        FittingChart program;
        if (front == QStringLiteral("mnuFileSave")) program.Choose("mnuFileClose");
        QPalette dark(QColor(45, 48, 52));
        dark.setColor(QPalette::Base, QColor(30, 32, 35));
        QApplication::setPalette(dark);
        QCoreApplication::processEvents();
        if (front != QStringLiteral("mnuFileSave")) program.Choose(colours.toLatin1());
        const auto screen = [&] {
            const QImage seen =
                program.frame->grab().toImage().scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            return seen.pixelColor(0, 0).lightness();
        };
        const int before = screen();
        program.frame->Subjects().print.Pages().LeavePrinterAlone();
        const Path file = program.folder / "page.pdf";
        DialogHand hand([&](QDialog& dialog) {
            if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) return box->accept();
            EnterFile(dialog, file);
        });
        program.Choose("mnuFilePrint");
        const int after = screen();
        QApplication::setPalette(usual);
        QCoreApplication::processEvents();
        const double lightness = LightnessOf(BytesOrEmpty(file));
        QVERIFY2(lightness > kLight, std::to_string(lightness).c_str());
        QVERIFY2(before < kDark, std::to_string(before).c_str());
        QCOMPARE(after, before);
    }

    void theTemplateOfNewTablesIsNotPrinted() {
        PrintingProgram program("Feb.ddq");
        program.frame->Run("mnuFileNewEODQuoteFile");
        QVERIFY(!program.Enabled("mnuFilePrint"));
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        program.frame->Run("mnuFilePrint");
        QCOMPARE(hand.seen, 0);
    }

    void theActiveChildDecidesWhatIsEnabled() {
        PrintingProgram program("Feb.ddq");
        QVERIFY(!program.Enabled("mnuFilePrintPreview"));
        program.AddPicture(QStringLiteral("AAPL"));
        QVERIFY(program.Enabled("mnuFilePrint"));
        QVERIFY(program.Enabled("mnuFileSave"));
        QVERIFY(program.Enabled("mnuFileSaveAs"));
        QVERIFY(!program.Enabled("mnuFilePrintPreview"));
    }

    void withoutAChildTheCommandsDoNothing() {
        PrintingProgram program("Feb.ddq");
        program.frame->Run("mnuFileClose");
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        for (const char* command : {"mnuFilePrint", "mnuFilePrintPreview", "mnuFileSave", "mnuFileSaveAs"}) {
            program.frame->Run(command);
            QVERIFY2(!program.Enabled(command), command);
        }
        QCOMPARE(hand.seen, 0);
    }

    void aChartIsSavedUnderItsCaptionWithNoQuestion() {
        PrintingProgram program("Feb.ddq");
        program.AddPicture(QStringLiteral("AAPL"));
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        const Path file = program.Images("AAPL.bmp");
        QVERIFY(!std::filesystem::exists(program.session.AppPath / "Images"));
        program.Click("Command8");
        QCOMPARE(QImage(ShownPath(file)).size(), QSize(400, 200));
        QCOMPARE(program.frame->statusBar()->currentMessage(), QStringLiteral("Saved as ") + ShownPath(file));
        // Again, over a file that is not the picture.
        QVERIFY(!WriteWholeFile(file, "an older one"));
        program.Click("Command8");
        const QImage picture(ShownPath(file));
        QCOMPARE(picture.size(), QSize(400, 200));
        QCOMPARE(picture.pixelColor(5, 100), QColor(Qt::red));
        QCOMPARE(picture.pixelColor(395, 100), QColor(Qt::blue));
        QCOMPARE(hand.seen, 0);
        QVERIFY(program.Read("Feb.ddq") == Program::QuoteTableText(40));
    }

    void aChartIsSavedAsTheFileThatIsChosen() {
        PrintingProgram program("Feb.ddq");
        program.AddPicture(QStringLiteral("BRK.B"));
        DialogHand hand([&](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Save As"));
            auto* question = qobject_cast<QFileDialog*>(&dialog);
            QVERIFY(question && question->acceptMode() == QFileDialog::AcceptSave);
            QCOMPARE(question->directory().dirName(), QStringLiteral("Images"));
            QCOMPARE(question->nameFilters(), QStringList(QStringLiteral("All Files (*.bmp)")));
            QCOMPARE(question->selectedFiles().constFirst().section(u'/', -1), QStringLiteral("BRK.B"));
            EnterFile(dialog, program.folder / "mine");
        });
        program.frame->Run("mnuFileSaveAs");
        QCOMPARE(hand.seen, 1);
        QCOMPARE(QImage(ShownPath(program.folder / "mine.bmp")).size(), QSize(400, 200));
        QVERIFY(!IsRegularFile(program.folder / "mine"));
    }

    void aFileThatTheEndingLeadsToIsAskedAbout() {
        PrintingProgram program("Feb.ddq");
        program.AddPicture(QStringLiteral("AAPL"));
        QVERIFY(!WriteWholeFile(program.folder / "mine.bmp", "kept"));
        for (const bool replaces : {false, true}) {
            DialogHand hand([&](QDialog& dialog) {
                auto* box = qobject_cast<QMessageBox*>(&dialog);
                if (!box) return EnterFile(dialog, program.folder / "mine");
                QCOMPARE(box->text(), QStringLiteral("mine.bmp already exists. Do you want to replace it?"));
                PressButton(dialog, replaces ? QMessageBox::Yes : QMessageBox::No);
            });
            program.frame->Run("mnuFileSaveAs");
            QCOMPARE(hand.seen, 2);
            QCOMPARE(BytesOrEmpty(program.folder / "mine.bmp") == "kept", !replaces);
        }
    }

    void aPictureThatCannotBeSavedIsTold() {
        PrintingProgram program("Feb.ddq");
        program.AddPicture(QStringLiteral("AAPL"));
        QVERIFY(!WriteWholeFile(program.session.AppPath / "Images", "no folder"));
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            told = qobject_cast<QMessageBox*>(&dialog)->text();
            dialog.accept();
        });
        program.frame->Run("mnuFileSave");
        QVERIFY(told.startsWith(ShownPath(program.Images("AAPL.bmp")) + QStringLiteral(": cannot be saved")));
    }

    void withTheTableActiveSaveKeepsTheTable() {
        PrintingProgram program("Feb.ddq");
        QWidget& child = program.AddPicture(QStringLiteral("AAPL"));
        for (QMdiSubWindow* window : program.Area().subWindowList()) {
            if (window->widget() != &child) program.Area().setActiveSubWindow(window);
        }
        program.frame->QuoteForm()->Table().SetText(1, 1, "99.000");
        program.frame->Run("mnuFileSave");
        QVERIFY(program.Read("Feb.ddq").find("99.000") != std::string::npos);
        QVERIFY(!std::filesystem::exists(program.session.AppPath / "Images"));
    }

    // What the browser hands in is called while it is the active child, and forgotten with it.
    void everyChildHasItsOwnOperations() {
        PrintingProgram program("Feb.ddq");
        QStringList called;
        auto* child = new QWidget;
        QMdiSubWindow* window = program.Area().addSubWindow(child);
        program.frame->Subjects().children.SetOperations(
            *child, {.active = kBrowserActive,
                     .print = [&] { called.append(QStringLiteral("print")); },
                     .printPreview = [&] { called.append(QStringLiteral("preview")); },
                     .save = [&] { called.append(QStringLiteral("save")); },
                     .saveAs = [&] { called.append(QStringLiteral("save as")); }});
        window->show();
        program.Area().setActiveSubWindow(window);
        QVERIFY(program.Enabled("mnuFilePrintPreview"));
        for (const char* command : {"mnuFilePrint", "mnuFilePrintPreview", "mnuFileSave", "mnuFileSaveAs"})
            program.frame->Run(command);
        QCOMPARE(called, QStringList({QStringLiteral("print"), QStringLiteral("preview"),
                                      QStringLiteral("save"), QStringLiteral("save as")}));
        delete window;
        QCoreApplication::processEvents();
        QVERIFY(!program.Enabled("mnuFilePrintPreview"));
        program.frame->Run("mnuFilePrintPreview");
        QCOMPARE(called.size(), 4);
    }

    void theChartWindowIsKeptAndPrintedWhole() {
        ChartProgram program;
        program.frame->Subjects().print.Pages().LeavePrinterAlone();
        program.Choose("mnuGraphicsHLC");
        const QSize size = program.Graph()->ClientArea()->size() * program.Graph()->devicePixelRatio();
        program.frame->Run("mnuFileSave");
        const QImage picture(ShownPath(program.session.AppPath / "Images" / "T1.bmp"));
        QCOMPARE(picture.size(), size);
        QCOMPARE(picture, CaptureClient(*program.Graph()->ClientArea()));
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) return box->accept();
            auto* question = qobject_cast<QFileDialog*>(&dialog);
            QCOMPARE(question->selectedFiles().constFirst().section(u'/', -1), QStringLiteral("T1.pdf"));
            EnterFile(dialog, program.folder / "chart.pdf");
        });
        program.frame->Run("mnuFilePrint");
        QCOMPARE(hand.seen, 2);
        QCOMPARE(PagesOf(BytesOrEmpty(program.folder / "chart.pdf")), 1);
    }

    void theChartsButtonTestsItsConditions() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        QString told;
        DialogHand refusal([&](QDialog& dialog) {
            told = qobject_cast<QMessageBox*>(&dialog)->text();
            dialog.accept();
        });
        program.Press("CommandReturn");
        QCOMPARE(told, QStringLiteral("First, you must select Buy and Sell Conditions. Select Settings, "
                                      "Application, and Graphics Display Settings tab."));
    }

    // The P/E ratio is 12.5 on every bar: one purchase, signalled on bar 1 and made at the close of bar 2,
    // 102.
    void theChartsButtonReportsTheBackTest() {
        ChartProgram program;
        ConditionSet set;
        set[0].slots[16] = "12";
        set[1].action = "Sell";
        set[1].slots[17] = "5";
        program.Write("VTRSELset.ini", FormatConditionSet(set));
        program.Write("VTRGRAPHset.ini",
                      "\"Default\"\r\n\"Price\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n"
                      "\"Condition 1\"\r\n\"Condition 2\"\r\n");
        LoadAllSettings(program.session.AppPath, program.session.settings);
        program.Choose("mnuGraphicsHLC");
        QStringList texts;
        DialogHand report([&](QDialog& dialog) {
            for (const char* control : {"Label3", "Label4", "Label6", "Label7", "Label12", "Label14"})
                texts.append(dialog.findChild<QLabel*>(QString::fromLatin1(control))->text());
            dialog.reject();
        });
        program.Press("CommandReturn");
        QCOMPARE(texts,
                 QStringList({QStringLiteral("T1"), QStringLiteral("1000"), QStringLiteral("$102510.00"),
                              QStringLiteral("0"), QStringLiteral("$379000.00"), QStringLiteral("269.7 %")}));
    }

    void thePageSetUpGivesThePageItsFormUnlessItIsCancelled() {
        PrintingProgram program("Feb.ddq");
        const auto pageBox = [&] {
            const Path file = program.folder / "page.pdf";
            DeleteOneFile(file);
            DialogHand hand([&](QDialog& dialog) {
                if (auto* box = qobject_cast<QMessageBox*>(&dialog)) return box->accept();
                EnterFile(dialog, file);
            });
            program.frame->Run("mnuFilePrint");
            const std::string pdf = BytesOrEmpty(file);
            const std::size_t at = pdf.find("/MediaBox");
            return pdf.substr(at, pdf.find(']', at) - at);
        };
        const std::string portrait = pageBox();
        const auto setUp = [&](bool accepts) {
            DialogHand hand([accepts](QDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), QStringLiteral("Page Setup"));
                QVERIFY(qobject_cast<QPageSetupDialog*>(&dialog));
                auto* landscape = dialog.findChild<QRadioButton*>(QStringLiteral("landscape"));
                QVERIFY(landscape);
                landscape->click();
                accepts ? dialog.accept() : dialog.reject();
            });
            program.frame->Run("mnuFilePageSetup");
            QCOMPARE(hand.seen, 1);
        };
        setUp(false);
        QCOMPARE(pageBox(), portrait);
        setUp(true);
        QCOMPARE(pageBox(), std::string("/MediaBox [0 0 842.000000 595.000000"));
    }

    void aPictureFillsThePageAsFarAsItsProportionsAllow() {
        const TempFolder folder;
        const Path file = folder / "page.pdf";
        struct Row {
            QPageLayout::Orientation page;
            QSize picture;
            QSizeF expected;  // in points; A4 is 595 by 842 of them
        };
        const Row rows[] = {
            {QPageLayout::Portrait, {200, 100}, {595, 297.5}},
            {QPageLayout::Landscape, {200, 100}, {842, 421}},
            {QPageLayout::Portrait, {100, 200}, {421, 842}},
            {QPageLayout::Landscape, {100, 200}, {297.5, 595}},
        };
        for (const Row& row : rows) {
            QImage picture(row.picture, QImage::Format_RGB32);
            picture.fill(Qt::green);
            QPdfWriter writer(ShownPath(file));
            writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), row.page, QMarginsF()));
            QVERIFY(PrintPictureToFit(writer, picture));
            const std::string pdf = BytesOrEmpty(file);
            QCOMPARE(PagesOf(pdf), 1);
            const QSizeF size = SizeOnPage(pdf);
            QVERIFY2(std::abs(size.width() - row.expected.width()) < 1,
                     qPrintable(QString::number(size.width())));
            QVERIFY2(std::abs(size.height() - row.expected.height()) < 1,
                     qPrintable(QString::number(size.height())));
        }
    }
};

WINDOW_TEST(PrintTest)
#include "print_test.moc"
