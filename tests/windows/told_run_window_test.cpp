// What a run did, at the window: the status bar's first field, the list behind it, the file, and the question
// before several histories are replaced.
#include <QHeaderView>
#include <QRadioButton>
#include <QStatusBar>
#include <QTreeWidget>

#include "acquire/feeds/windows/frmPopulate.h"
#include "base/windows/elided_label.h"
#include "shell/frame/windows/frmLastRun.h"
#include "update_window_fixture.h"

using namespace brantlow;

namespace {

// Populates by the dialog; the box that asks, where one comes, is answered by `button`.
struct Populated {
    QString question;
    QString defaultButton;
};

Populated Populate(UpdateProgram& program, const QString& button) {
    program.frame->Commands().Entry("mnuFilePopulate")->trigger();
    auto* dialog = program.frame->findChild<frmPopulate*>();
    Populated told;
    DialogHand hand([&](QDialog& opened) {
        auto* box = qobject_cast<QMessageBox*>(&opened);
        if (!box) return;
        told = {box->text(), box->defaultButton()->text()};
        for (QAbstractButton* each : box->buttons()) {
            if (each->text().remove(QLatin1Char('&')) == button) each->click();
        }
    });
    dialog->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
    return told;
}

}  // namespace

class ToldRunWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theFirstFieldTellsWhatAnUpdateDid() {
        UpdateProgram program;
        program.StartMine();
        auto* field = program.Find<QLabel>("Panel1");
        QVERIFY(field->text().contains(QStringLiteral("2026")));
        QTest::mouseClick(field, Qt::LeftButton);
        QVERIFY(!program.frame->findChild<frmLastRun*>());
        program.Update();
        QCOMPARE(field->text(), QStringLiteral(" 3 of 3 quotes"));
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QVERIFY(program.Read("Last Run.txt").starts_with("Update of Mine.ddq, 03/09/26"));
        QVERIFY(program.Read("Last Run.txt").ends_with("\r\nT1: stored\r\nT2: stored\r\nT3: stored\r\n"));
    }

    void aClickOnTheLineOpensTheListOfTickers() {
        UpdateProgram program;
        program.quotesFail = true;
        program.StartMine();
        program.Update();
        auto* field = program.Find<QLabel>("Panel1");
        QVERIFY2(field->text().endsWith(QStringLiteral("could not connect; nothing was changed")),
                 qPrintable(field->text()));
        QTest::mouseClick(field, Qt::LeftButton);
        auto* list = program.frame->findChild<frmLastRun*>();
        QVERIFY(list && list->isVisible() && !list->isModal());
        QCOMPARE(list->windowTitle(), QStringLiteral("Update of Mine.ddq"));
        auto* tickers = list->findChild<QTreeWidget*>();
        QCOMPARE(tickers->topLevelItemCount(), 3);
        QCOMPARE(tickers->topLevelItem(0)->text(0), QStringLiteral("T1"));
        QCOMPARE(tickers->topLevelItem(0)->text(1), QStringLiteral("failed"));
        QVERIFY(tickers->topLevelItem(0)->text(2).contains(QStringLiteral("could not connect")));
        for (int column = 0; column < 2; ++column) {
            QVERIFY(tickers->columnWidth(column) >= tickers->header()->sectionSizeHint(column));
        }
    }

    void aRunWithoutSingleTickersShowsItsLineAlone() {
        RunReport report("Stock Selector over Mine.ddq", "tickers");
        report.SetHeadline("43 tickers, 61 hits");
        const frmLastRun window(report, nullptr);
        QCOMPARE(window.findChild<QLabel*>(QStringLiteral("lblLines"))->text(),
                 QStringLiteral("43 tickers, 61 hits"));
        QVERIFY(!window.findChild<QTreeWidget*>());
    }

    void aLongLineIsShortenedWithDotsInMostOfTheBar() {
        UpdateProgram program;
        program.StartMine();
        program.Update();
        auto* field = dynamic_cast<ElidedLabel*>(program.Find<QLabel>("Panel1"));
        QVERIFY(field);
        QVERIFY2(field->width() > program.Find<QLabel>("Panel4")->width(),
                 qPrintable(QString::number(field->width())));
    }

    void theTipOfTheEntryThatBeganARunMakesRoomForItsLine() {
        UpdateProgram program;
        program.StartMine();
        QStatusBar* const bar = program.frame->statusBar();
        QAction* const entry = program.frame->Commands().Entry("mnuFileUpdateQuotes");
        // As the mouse over the entry does it; the run shuts the entry, and no mouse leaves it.
        QVERIFY(entry->showStatusText(program.frame.get()));
        QCOMPARE(bar->currentMessage(), entry->statusTip());
        program.Update();
        QCOMPARE(bar->currentMessage(), QString());
        QVERIFY(program.Find<QLabel>("Panel1")->isVisible());

        program.frame->ShowNotice("the company files are old");
        program.Update();
        QCOMPARE(bar->currentMessage(), QStringLiteral("the company files are old"));
    }

    void aNoticeCanBeReadBesideTheRows() {
        UpdateProgram program;
        program.StartMine();
        QStatusBar* const bar = program.frame->statusBar();
        auto* const notice = program.Find<QLabel>("lblNotice");
        auto* const rows = program.Find<QLabel>("Panel4");
        QVERIFY(notice->isHidden());
        // The bar leaves no room in front of it for writing of its own.
        const int left = program.Find<QLabel>("Panel1")->x();
        const auto seen = [&](const char* words) {
            bar->showMessage(QString::fromLatin1(words));
            QCoreApplication::processEvents();
            return bar->grab().toImage();
        };
        const QImage former = seen("another notice");
        QVERIFY(seen("T1: 2 days before the split are restated") != former);
        QVERIFY(notice->isVisible() && rows->isVisible());
        for (const QLabel* label : {notice, rows}) {
            QVERIFY(label->width() >= label->fontMetrics().horizontalAdvance(label->text()));
        }
        QCOMPARE(notice->x(), left);
        QVERIFY(notice->geometry().right() < rows->geometry().left());
        QCOMPARE(rows->text(), QStringLiteral("3 rows"));
        QVERIFY(program.Find<QLabel>("Panel1")->isHidden());
        bar->clearMessage();
        QVERIFY(notice->isHidden() && rows->isVisible() && program.Find<QLabel>("Panel1")->isVisible());
    }

    void aNoticeThatIsTooLongEndsWithDotsAndLeavesTheRows() {
        UpdateProgram program;
        program.StartMine();
        QStatusBar* const bar = program.frame->statusBar();
        auto* const notice = dynamic_cast<ElidedLabel*>(program.Find<QLabel>("lblNotice"));
        auto* const rows = program.Find<QLabel>("Panel4");
        const auto seen = [&] {
            QCoreApplication::processEvents();
            return bar->grab(notice->geometry()).toImage();
        };
        const std::string words = "Saved as " + std::string(400, 'x');
        program.frame->ShowNotice(words);
        const QImage shown = seen();
        QCOMPARE(notice->toolTip(), bar->currentMessage());
        QVERIFY(notice->width() < notice->fontMetrics().horizontalAdvance(notice->text()));
        QVERIFY(rows->width() >= rows->fontMetrics().horizontalAdvance(rows->text()));
        // The bar's own writing does not stand under the label's.
        bar->clearMessage();
        program.Find<QLabel>("Panel1")->hide();
        notice->ShowLine(Shown(words));
        notice->show();
        QCOMPARE(seen(), shown);
    }

    void populateAsksBeforeItReplacesTheHistoryOfSeveralTickers() {
        UpdateProgram program;
        program.StartMine();
        for (const char* file : {"T1.25", "T2.25"}) program.WriteHistory(file, "old");
        const Populated told = Populate(program, QStringLiteral("Cancel"));
        QCOMPARE(told.question, QStringLiteral("The stored history of 2 of 3 tickers is replaced by what is "
                                               "downloaded now. Do you want to go on?"));
        QCOMPARE(QString(told.defaultButton).remove(QLatin1Char('&')), QStringLiteral("Cancel"));
        QVERIFY(program.web.Addresses.empty());
        QCOMPARE(program.History("T1.25"), std::string("old"));
        Populate(program, QStringLiteral("Populate"));
        QCOMPARE(program.web.Addresses.size(), std::size_t{3});
    }

    void populateAsksNothingForTheHistoryOfOne() {
        UpdateProgram program;
        program.StartMine();
        program.WriteHistory("T1.25", "old");
        QCOMPARE(Populate(program, QString()).question, QString());
        QCOMPARE(program.web.Addresses.size(), std::size_t{3});
    }
};

WINDOW_TEST(ToldRunWindowTest)
#include "told_run_window_test.moc"
