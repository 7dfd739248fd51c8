// Keeping pages of the browser window: saving, printing, downloading.
#include <QPrinter>

#include "browser_fixture.h"
#include "research/windows/page_printing.h"

using namespace brantlow;

class BrowserSavingTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void savingWritesThePagesSourceUnderItsTitle() {
        Pages pages({{"/page", "<title>../News: IBM</title><p>caf\xc3\xa9</p>"}});
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("../News: IBM")));
        window.form->SavePage();
        const Path file = window.folder / "Images" / "News IBM.htm";
        QVERIFY(WaitFor([&] { return IsRegularFile(file); }, kPatienceMs));
        const std::string source = BytesOrEmpty(file);
        QVERIFY(source.starts_with("\xEF\xBB\xBF<"));
        QVERIFY(source.find("<p>caf\xc3\xa9</p>") != std::string::npos);
        QCOMPARE(FileNamesIn(window.folder / "Images").size(), std::size_t{1});
        QVERIFY(WaitFor([&] { return !window.notices.empty(); }, kPatienceMs));
        QCOMPARE(window.notices, std::vector<std::string>{"Saved as " + file.string()});
    }

    void savingAgainReplacesTheFile() {
        Pages pages({{"/page", "<title>News</title><p>new</p>"}});
        Window window(pages.Address("/page"));
        const Path file = window.folder / "Images" / "News.htm";
        QVERIFY(!WriteWholeFile(file, "old"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        window.form->SavePage();
        QVERIFY(
            WaitFor([&] { return BytesOrEmpty(file).find("<p>new</p>") != std::string::npos; }, kPatienceMs));
    }

    void aPageThatIsStillLoadingIsNotSaved() {
        Pages pages({{"/held", "<title>Slow</title>late"}});
        Window window(pages.Address("/held"));
        QVERIFY(WaitFor([&] { return window.form->Busy(); }, kPatienceMs));
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        window.form->SavePage();
        window.form->SavePageAs();
        pages.released = true;
        QVERIFY(window.Shows(QStringLiteral("Slow")));
        QCOMPARE(hand.seen, 0);
        QCOMPARE(FileNamesIn(window.folder / "Images").size(), std::size_t{0});
    }

    void aFolderThatIsMissingIsTold() {
        Pages pages({{"/page", "<title>News</title>"}});
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        std::filesystem::remove_all(window.folder / "Images");
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            told = qobject_cast<QMessageBox*>(&dialog)->text();
            PressButton(dialog, QMessageBox::Ok);
        });
        window.form->SavePage();
        QVERIFY(WaitFor([&] { return !told.isEmpty(); }, kPatienceMs));
        QVERIFY(told.startsWith(ShownPath(window.folder / "Images" / "News.htm") +
                                QStringLiteral(": cannot be saved (")));
    }

    void saveAsAsksForTheNameAndAddsTheEnding() {
        Pages pages({{"/page", "<title>News v1.2</title><p>text</p>"}});
        for (const char* name : {"mine", "mine.htm", "News v1.2"}) {
            Window window(pages.Address("/page"));
            QVERIFY(window.Shows(QStringLiteral("News v1.2")));
            DialogHand hand([&](QDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), QStringLiteral("Save As"));
                auto* files = qobject_cast<QFileDialog*>(&dialog);
                QVERIFY(files);
                QCOMPARE(files->nameFilters(), QStringList{QStringLiteral("All Files (*.htm)")});
                QCOMPARE(files->directory().path(), ShownPath(window.folder / "Images"));
                QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                         QStringLiteral("News v1.2"));
                EnterFile(dialog, window.folder / "Images" / name);
            });
            window.form->SavePageAs();
            QCOMPARE(hand.seen, 1);
            const std::string expected = std::string(name) == "mine.htm" ? name : std::string(name) + ".htm";
            const Path file = window.folder / "Images" / expected;
            QVERIFY2(WaitFor([&] { return IsRegularFile(file); }, kPatienceMs), name);
            QVERIFY(BytesOrEmpty(file).find("<p>text</p>") != std::string::npos);
        }
    }

    void aCancelledSaveAsWritesNothing() {
        Pages pages({{"/page", "<title>News</title>"}});
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        window.form->SavePageAs();
        QCOMPARE(hand.seen, 1);
        QCOMPARE(FileNamesIn(window.folder / "Images").size(), std::size_t{0});
    }

    void aPageIsPrinted() {
        Market market;
        Window window(market.Address("/q?s=NFLX&d=t"));
        QVERIFY(window.IsAt(market.Address("/q?s=NFLX&d=t")));
        QPrinter printer;
        const Path file = window.folder / "page.pdf";
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(ShownPath(file));
        QVERIFY(PrintPageTo(window.View(), printer));
        QVERIFY(BytesOrEmpty(file).starts_with("%PDF"));
    }

    void printAsksForThePrinterAndPreviewShowsThePages() {
        Pages pages({{"/page", "<title>News</title>text"}});
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        QStringList dialogs;
        DialogHand hand([&](QDialog& dialog) {
            dialogs.append(QString::fromLatin1(dialog.metaObject()->className()));
            QTimer::singleShot(0, &dialog, &QDialog::reject);
        });
        window.operations.print(*window.form);
        window.operations.printPreview(*window.form);
        QCOMPARE(dialogs,
                 (QStringList{QStringLiteral("QPrintDialog"), QStringLiteral("QPrintPreviewDialog")}));
        QVERIFY(window.Shows(QStringLiteral("News")));
    }

    void aDownloadAsksWhereItGoes() {
        Pages pages({{"/page", "<title>News</title>"}, {"/file.bin", "some bytes"}});
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        const Path file = window.folder / "got.bin";
        DialogHand hand([&](QDialog& dialog) {
            QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                     QStringLiteral("file.bin"));
            EnterFile(dialog, file);
        });
        window.Type(pages.Address("/file.bin"));
        QVERIFY(WaitFor([&] { return BytesOrEmpty(file) == "some bytes"; }, kPatienceMs));
        QCOMPARE(hand.seen, 1);
    }

    void aCancelledDownloadFetchesNothing() {
        Pages pages({{"/page", "<title>News</title>"}, {"/file.bin", "some bytes"}});
        Window window(pages.Address("/page"));
        QVERIFY(window.Shows(QStringLiteral("News")));
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        window.Type(pages.Address("/file.bin"));
        QVERIFY(WaitFor([&] { return hand.seen == 1; }, kPatienceMs));
        QVERIFY(window.Shows(QStringLiteral("News")));
    }

    void operationsLeaveOtherWindowsAlone() {
        Browser browser;
        const BrowserOperations operations = browser.Operations();
        QWidget other;
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        for (const auto& operation :
             {operations.print, operations.printPreview, operations.savePage, operations.savePageAs})
            operation(other);
        QCOMPARE(hand.seen, 0);
    }
};

WINDOW_TEST(BrowserSavingTest)
#include "browser_saving_test.moc"
