// A new user's way to a chart: the practice table, a list of one's own, a market's list, a file that is
// there; and every run over a live source at the windows.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>

#include "acquire/feeds/live/source_catalogue.h"
#include "acquire/feeds/windows/frmNewList.h"
#include "acquire/feeds/windows/frmSources.h"
#include "chart/windows/frmGraph.h"
#include "screens/windows/frmSetupWizard.h"
#include "source_fixture.h"
#include "store/windows/frmQuoteGrid.h"

using namespace brantlow;

namespace {

class StartScene : public SourceProgram {
  public:
    // As a fresh installation starts.
    StartScene() { Start("Practice.ddq"); }

    frmNewList* Open(const char* command) {
        frame->Commands().Entry(command)->trigger();
        window = frame->findChild<frmNewList*>();
        if (!window) qFatal("no window");
        return window;
    }
    void Type(const char* tickers) {
        Part<QPlainTextEdit>(window, "txtTickers")->setPlainText(QString::fromLatin1(tickers));
    }
    void ChooseSource(const char* card, const char* source) {
        auto* list = Part<QComboBox>(Part<QWidget>(window, card), "cboSource");
        const int index = list->findData(QString::fromLatin1(source));
        if (index < 0) qFatal("no %s", source);
        list->setCurrentIndex(index);
    }
    void EnterKey(const char* key) {
        Part<QLineEdit>(Part<QWidget>(window, "Prices"), "txtKey")->setText(QString::fromLatin1(key));
    }
    void WriteTable() { Write("Mine.ddq", "Ticker Symbol\tLast Price\r\nCL\t\r\nNFLX\t\r\n"); }
    // The same addresses without the mark of the practice market.
    void ForgetPracticeMarket() {
        std::string lines = Read("Hosts.ini");
        const std::string mark = "# practice market";
        lines.replace(lines.find(mark), mark.size(), "# mine");
        Write("Hosts.ini", lines);
    }
    // Opens Mine.ddq from the welcome page; the questions that came, each answered so.
    QStringList OpenFirst(QMessageBox::StandardButton answer) {
        QStringList asked;
        DialogHand hand([&](QDialog& dialog) {
            if (qobject_cast<QFileDialog*>(&dialog)) return EnterFile(dialog, session.DataFile("Mine.ddq"));
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                asked << box->text();
                PressButton(dialog, answer);
            }
        });
        Part<QPushButton>(frame.get(), "cmdWelcomeOpen")->click();
        QCoreApplication::processEvents();
        return asked;
    }
    void Create() { Part<QPushButton>(window, "cmdCreate")->click(); }
    QString Told() { return Part<QLabel>(window, "lblOutcome")->text(); }
    std::string LastRun() { return Read("Last Run.txt"); }
    QString Line() { return Find<QLabel>("Panel1")->text(); }

    frmNewList* window = nullptr;
};

void Wait() {
    QCoreApplication::processEvents();
}

// What the boxes say when a list of these tickers is made with a source that gives no price of them.
QString SaidWithoutPrices(StartScene& scene, const char* key, const char* tickers) {
    scene.Open("mnuFileNewMyList");
    scene.ChooseSource("Prices", "massive");
    scene.EnterKey(key);
    scene.Type(tickers);
    QStringList said;
    DialogHand hand([&](QDialog& dialog) {
        if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
            said << box->text();
            PressButton(dialog, QMessageBox::Ok);
        }
    });
    scene.Create();
    Wait();
    return said.join(QLatin1Char('|'));
}

QString NoPrice(const std::string& reason) {
    return QString::fromStdString("No price came for this table. " + reason +
                                  ".\r\n\r\nA click on the line in the status bar shows what became of each "
                                  "ticker. Settings, Quote Sources, tries a source.");
}

}  // namespace

class SourceStartTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aListOfOnesOwnLeadsToAChartFromEverySource() {
        struct Row {
            const char* source;
            const char* key;
        };
        const Row rows[] = {
            {"massive", "any"}, {"alpaca", "an-id:a-secret"}, {"yahoo", ""}, {"tiingo", "any"}};
        for (const Row& row : rows) {
            StartScene scene;
            scene.Open("mnuFileNewMyList");
            scene.Type("nflx, brk.b\nCL");
            scene.ChooseSource("Prices", row.source);
            if (*row.key != '\0') scene.EnterKey(row.key);
            DialogHand hand([](QDialog& dialog) { PressButton(dialog, QMessageBox::Yes); });
            scene.Create();
            Wait();
            QVERIFY2(hand.seen == (std::string_view(row.source) == "yahoo" ? 1 : 0), row.source);
            QVERIFY2(scene.frame->QuoteForm(), row.source);
            QCOMPARE(scene.session.CurrentFile, std::string("My List.ddq"));
            for (const char* file : {"NFLX.26", "BRK.B.26", "CL.26"}) {
                QVERIFY2(scene.History(file).find("\"11/20/26\"") != std::string::npos, file);
            }
            QVERIFY2(scene.frame->GraphForm(), row.source);
            QCOMPARE(scene.session.CurrentTicker, std::string("NFLX"));
            QVERIFY2(scene.LastRun().find("Update of My List.ddq") == 0, scene.LastRun().c_str());
            QVERIFY2(scene.Line().contains(QStringLiteral("3 of 3 from")), qPrintable(scene.Line()));
            QVERIFY(scene.Read("VTRSRCset.ini").starts_with("\"" + std::string(row.source) + "\"\r\n"));
        }
    }

    void historiesThatAreToStayAreKeptAndTheirChartIsShown() {
        StartScene scene;
        const Path folder = scene.session.AppPath / "Quotes" / "EOD";
        const std::string old = ",11/13/2026,4:00pm,150,149,151,100\r\n";
        for (const char* ticker : {"CL", "NFLX"}) {
            QVERIFY(!WriteWholeFile(folder / (std::string(ticker) + ".26"), ticker + old));
        }
        scene.Open("mnuFileNewMyList");
        scene.Type("WMT NFLX CL");
        scene.ChooseSource("Prices", "tiingo");
        scene.EnterKey("any");
        QStringList asked;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) asked << box->text();
            PressButton(dialog, QMessageBox::Cancel);
        });
        scene.Create();
        Wait();
        QCOMPARE(asked, QStringList(QStringLiteral("The stored history of 2 of 3 tickers is replaced by what "
                                                   "is downloaded now. Do you want to go on?")));
        QCOMPARE(scene.session.CurrentFile, std::string("My List.ddq"));
        QVERIFY(scene.frame->GraphForm());
        QVERIFY2(scene.frame->GraphForm()->windowTitle().startsWith(QStringLiteral("NFLX")),
                 qPrintable(scene.frame->GraphForm()->windowTitle()));
        QCOMPARE(scene.Find<QStatusBar>("sbStatusBar")->currentMessage(),
                 QStringLiteral("The stored histories stay as they are. Update Quotes (F5) fetches the days "
                                "since then."));
        for (const char* ticker : {"CL", "NFLX"}) {
            QCOMPARE(scene.History(std::string(ticker) + ".26"), ticker + old);
        }
        QCOMPARE(scene.History("WMT.26"), std::string());
    }

    void aMarketsListLeadsToAChartToo() {
        StartScene scene;
        scene.KeepKey("massive", "any");
        scene.Open("mnuFileNewFromMarket");
        QVERIFY(Part<QRadioButton>(scene.window, "optMarket")->isChecked());
        QVERIFY(!Part<QGroupBox>(scene.window, "fraFill")->isChecked());
        Part<QGroupBox>(scene.window, "fraFill")->setChecked(true);
        scene.ChooseSource("Prices", "massive");
        Part<QCheckBox>(scene.window, "chkExchange2")->setChecked(false);
        for (const char* other : {"chkExchange3", "chkExchange4", "chkExchange5", "chkExchange6"}) {
            Part<QCheckBox>(scene.window, other)->setChecked(false);
        }
        scene.Create();
        Wait();
        QCOMPARE(scene.session.CurrentFile, std::string("Market.ddq"));
        const QuoteTable& table = scene.frame->QuoteForm()->Table();
        QVERIFY(table.TickerCount() > 10);
        QCOMPARE(table.Ticker(1), std::string("ADBE"));
        QVERIFY(scene.frame->GraphForm());
    }

    void aMarketsListThatTakesLongIsFetchedOnlyWhenThePersonWantsThat() {
        for (const bool wanted : {false, true}) {
            StartScene scene;
            const std::string hosts = scene.Read("Hosts.ini");
            scene.KeepKey("massive", "any");
            scene.Write("Hosts.ini", hosts + "Limit.massive=1/60\r\n");
            scene.Open("mnuFileNewFromMarket");
            Part<QGroupBox>(scene.window, "fraFill")->setChecked(true);
            scene.ChooseSource("Prices", "massive");
            QStringList asked;
            DialogHand hand([&](QDialog& dialog) {
                auto* const box = qobject_cast<QMessageBox*>(&dialog);
                if (!box) return;
                asked << box->text();
                // Nobody waits for so long here.
                scene.Write("Hosts.ini", hosts);
                PressButton(dialog, wanted ? QMessageBox::Yes : QMessageBox::No);
            });
            scene.Create();
            Wait();
            QCOMPARE(asked,
                     QStringList(QStringLiteral("Market.ddq has 43 tickers; their histories and quotes take "
                                                "about 44 minutes at the limits of Massive. Do you want to "
                                                "fetch them now?")));
            QCOMPARE(scene.session.CurrentFile, std::string("Market.ddq"));
            QCOMPARE(scene.frame->GraphForm() != nullptr, wanted);
        }
    }

    void theWizardsSecondStepLeadsToTheSameThreeWays() {
        const auto open = [](StartScene& scene, const char* way) {
            scene.frame->Commands().Entry("SetupWizard")->trigger();
            auto* const wizard = scene.frame->findChild<frmSetupWizard*>();
            if (!wizard) qFatal("no wizard");
            Part<QPushButton>(wizard, "cmdNext")->click();
            Part<QPushButton>(wizard, way)->click();
            Wait();
            QVERIFY(!wizard->isVisible());
        };
        {
            StartScene scene;
            open(scene, "cmdWayPractice");
            QCOMPARE(scene.session.CurrentFile, std::string("Practice.ddq"));
            QVERIFY(scene.frame->GraphForm());
        }
        {
            StartScene scene;
            open(scene, "cmdWayList");
            auto* const list = scene.frame->findChild<frmNewList*>();
            QVERIFY(list && list->isVisible());
        }
        StartScene scene;
        scene.WriteTable();
        QVERIFY(!WriteWholeFile(scene.session.AppPath / "Quotes" / "EOD" / "NFLX.26",
                                "NFLX,11/20/2026,4:00pm,150,149,151,100\r\n"));
        DialogHand hand([&](QDialog& dialog) {
            if (qobject_cast<QFileDialog*>(&dialog)) EnterFile(dialog, scene.session.DataFile("Mine.ddq"));
        });
        open(scene, "cmdWayFile");
        QCOMPARE(scene.session.CurrentFile, std::string("Mine.ddq"));
        QVERIFY(scene.frame->GraphForm());
    }

    void aMarketsListAloneIsATableWithNames() {
        StartScene scene;
        scene.Open("mnuFileNewFromMarket");
        Part<QLineEdit>(scene.window, "txtMatch")->setText(QStringLiteral("corporation"));
        Part<QLineEdit>(scene.window, "txtName")->setText(QStringLiteral("Corporations"));
        scene.Create();
        Wait();
        QCOMPARE(scene.session.CurrentFile, std::string("Corporations.ddq"));
        QVERIFY(!scene.frame->GraphForm());
        QVERIFY(scene.Read("Corporations.ddq").find("Bank of America Corporation") != std::string::npos);
        QVERIFY(scene.Read("Corporations.ddq").find("Amgen") == std::string::npos);
    }

    // The hosts of the standard source are placeholders.
    void aFreshInstallationIsOfferedALiveSourceFirst() {
        StartScene scene;
        const auto offered = [&] {
            return Part<QComboBox>(Part<QWidget>(scene.Open("mnuFileNewMyList"), "Prices"), "cboSource")
                ->currentData()
                .toString();
        };
        QCOMPARE(offered(), QString());
        delete scene.window;
        DeleteOneFile(scene.session.DataFile("Hosts.ini"));
        QCOMPARE(offered(), QStringLiteral("massive"));
        delete scene.window;
        scene.Choose(ChosenForPrices({}, LoadSources({}).Find("tiingo")));
        QCOMPARE(offered(), QStringLiteral("tiingo"));
    }

    void theListOfSourcesTellsWhichHaveTheirKey() {
        StartScene scene;
        scene.KeepKey("tiingo", "any");
        const auto* list =
            Part<QComboBox>(Part<QWidget>(scene.Open("mnuFileNewMyList"), "Prices"), "cboSource");
        const auto text = [&](const char* source) {
            return list->itemText(list->findData(QString::fromLatin1(source)));
        };
        QCOMPARE(text("tiingo"), QStringLiteral("Tiingo (key present)"));
        QCOMPARE(text("massive"), QStringLiteral("Massive (needs a key)"));
        QCOMPARE(text("yahoo"), QStringLiteral("Yahoo (needs no key)"));
    }

    void whatIsMissingIsToldBeforeAnythingIsWritten() {
        StartScene scene;
        scene.Open("mnuFileNewMyList");
        scene.ChooseSource("Prices", "massive");
        scene.Create();
        QCOMPARE(scene.Told(), QStringLiteral("Enter a ticker first."));
        scene.Type("CL");
        scene.Create();
        QVERIFY2(scene.Told().startsWith(QStringLiteral("Massive needs a key: ")), qPrintable(scene.Told()));
        Part<QLineEdit>(scene.window, "txtName")->setText(QStringLiteral("Jan"));
        scene.Create();
        QCOMPARE(scene.Told(), QStringLiteral("Jan.ddq: exists already."));
        Part<QLineEdit>(scene.window, "txtName")->setText(QStringLiteral("New"));
        scene.ChooseSource("Prices", "yahoo");
        DialogHand hand([](QDialog& dialog) { PressButton(dialog, QMessageBox::No); });
        scene.Create();
        QVERIFY2(scene.Told().startsWith(QStringLiteral("Yahoo was not asked")), qPrintable(scene.Told()));
        Part<QRadioButton>(scene.window, "optMarket")->setChecked(true);
        for (int i = 1; i <= 6; ++i) {
            Part<QCheckBox>(scene.window, ("chkExchange" + std::to_string(i)).c_str())->setChecked(false);
        }
        scene.Create();
        QCOMPARE(scene.Told(), QStringLiteral("Choose an exchange first."));
        QVERIFY(!IsRegularFile(scene.session.DataFile("New.ddq")));
        QCOMPARE(scene.Read("VTRSRCset.ini"), std::string());
        QVERIFY(scene.window->isVisible());
    }

    void theTimeThatAListTakesIsTold() {
        StartScene scene;
        scene.Write("Hosts.ini", "# practice market\r\nLimit.massive=5/60\r\n");
        scene.Open("mnuFileNewMyList");
        scene.ChooseSource("Prices", "massive");
        scene.Type("A B C D E F G H I J");
        QCOMPARE(Part<QLabel>(Part<QWidget>(scene.window, "Prices"), "lblCardRemark")->text(),
                 QStringLiteral("10 tickers: about 3 minutes at the limits of Massive."));
    }

    void aKeyThatIsRefusedIsToldAndShowsNoChart() {
        StartScene scene;
        QCOMPARE(SaidWithoutPrices(scene, "wrong", "CL NFLX"),
                 NoPrice("Massive: bad key: Unknown API Key; nothing was changed"));
        QVERIFY(!scene.frame->GraphForm());
        QVERIFY2(scene.Line().contains(QStringLiteral("Unknown API Key")), qPrintable(scene.Line()));
    }

    void aSourceThatWantsToBeLeftAloneIsToldWithItsTime() {
        StartScene scene;
        const double until = SystemSourceTime().now() + 3 * 86400;
        SourceState(scene.session.DataFolder(), SystemSourceTime())
            .Block("massive", until, 900, "not so fast");
        QCOMPARE(SaidWithoutPrices(scene, "any", "CL NFLX"),
                 NoPrice("Massive: rate limited (by the hour, not before " + MomentText(until) +
                         "): not so fast; nothing was changed"));
        QVERIFY(!scene.frame->GraphForm());
    }

    void tickersThatNobodyKnowsAreNamed() {
        StartScene scene;
        QCOMPARE(SaidWithoutPrices(scene, "any", "ZZZZ QQQQ"),
                 NoPrice("0 of 2 from Massive, 2 tickers unknown: ZZZZ, QQQQ"));
        QVERIFY(!scene.frame->GraphForm());
    }

    void thePracticeTableAndAFileThatIsThereLeadToAChart() {
        StartScene scene;
        Part<QPushButton>(scene.frame.get(), "cmdWelcomePractice")->click();
        Wait();
        QCOMPARE(scene.session.CurrentFile, std::string("Practice.ddq"));
        QVERIFY(scene.frame->GraphForm());
        scene.frame->Run("mnuFileClose");
        scene.frame->Run("mnuFileClose");
        // One that is there already opens as a table.
        Part<QPushButton>(scene.frame.get(), "cmdWelcomePractice")->click();
        Wait();
        QVERIFY(scene.frame->QuoteForm());
        QVERIFY(!scene.frame->GraphForm());
    }

    void aFileWithAHistoryOpensWithItsChart() {
        StartScene scene;
        scene.WriteTable();
        QVERIFY(!WriteWholeFile(scene.session.AppPath / "Quotes" / "EOD" / "NFLX.26",
                                "NFLX,11/20/2026,4:00pm,150,149,151,100\r\n"));
        QCOMPARE(scene.OpenFirst(QMessageBox::No), QStringList());
        QCOMPARE(scene.session.CurrentFile, std::string("Mine.ddq"));
        QVERIFY(scene.frame->GraphForm());
        QVERIFY2(scene.frame->GraphForm()->windowTitle().startsWith(QStringLiteral("NFLX")),
                 qPrintable(scene.frame->GraphForm()->windowTitle()));
    }

    void aFileFromElsewhereIsCopiedAndLeadsToAChart() {
        StartScene scene;
        scene.WriteTable();
        const Path elsewhere = scene.folder / "Mine.ddq";
        std::filesystem::rename(scene.session.DataFile("Mine.ddq"), elsewhere);
        QVERIFY(!WriteWholeFile(scene.session.AppPath / "Quotes" / "EOD" / "CL.26",
                                "CL,11/20/2026,4:00pm,150,149,151,100\r\n"));
        QStringList asked;
        {
            DialogHand hand([&](QDialog& dialog) {
                if (qobject_cast<QFileDialog*>(&dialog)) return EnterFile(dialog, elsewhere);
                asked << qobject_cast<QMessageBox*>(&dialog)->text();
                for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
                    if (button->text().contains(QStringLiteral("Copy"))) button->click();
                }
            });
            Part<QPushButton>(scene.frame.get(), "cmdWelcomeOpen")->click();
            Wait();
        }
        QCOMPARE(asked, QStringList(QStringLiteral("Copy Mine.ddq into the data folder and open it?")));
        QVERIFY(IsRegularFile(scene.session.DataFile("Mine.ddq")));
        QVERIFY(scene.frame->GraphForm());
    }

    void anotherKindOfFileIsToldAndNothingIsOpened() {
        StartScene scene;
        scene.Write("List.txt", "KO\r\n");
        QStringList said;
        DialogHand hand([&](QDialog& dialog) {
            if (qobject_cast<QFileDialog*>(&dialog))
                return EnterFile(dialog, scene.session.DataFile("List.txt"));
            said << qobject_cast<QMessageBox*>(&dialog)->text();
            dialog.accept();
        });
        Part<QPushButton>(scene.frame.get(), "cmdWelcomeOpen")->click();
        Wait();
        QCOMPARE(said, QStringList(QStringLiteral("List.txt: only a quote file (.ddq) can be opened here")));
        QVERIFY(!scene.frame->QuoteForm());
    }

    void aFileWithoutAHistoryOffersToFetchItAndLeadsToAChart() {
        StartScene scene;
        scene.WriteTable();
        SourceChoices choices;
        choices.For(Capability::Quotes) = choices.For(Capability::History) = "tiingo";
        scene.Choose(choices);
        scene.KeepKey("tiingo", "practice");
        const QStringList said = scene.OpenFirst(QMessageBox::Yes);
        QCOMPARE(said, QStringList(QStringLiteral(
                           "No price history is stored for the tickers of Mine.ddq (2). Do you want to "
                           "fetch it now, from Tiingo?")));
        QVERIFY(!scene.History("CL.26").empty());
        QVERIFY(scene.frame->GraphForm());
    }

    void noFetchesNothingAndLeavesTheTable() {
        StartScene scene;
        scene.WriteTable();
        scene.OpenFirst(QMessageBox::No);
        QVERIFY(scene.frame->QuoteForm());
        QVERIFY(!scene.frame->GraphForm());
        QVERIFY(scene.History("CL.26").empty());
    }

    void aFileWithoutASourceLeadsOverTheChoiceOfOneToAChart() {
        StartScene scene;
        scene.WriteTable();
        scene.ForgetPracticeMarket();
        scene.KeepKey("tiingo", "practice");
        const QStringList said = scene.OpenFirst(QMessageBox::Yes);
        QCOMPARE(said, QStringList(QStringLiteral(
                           "No price history is stored for the tickers of Mine.ddq (2). Do you want to "
                           "choose a source now, and fetch it?")));
        auto* const sources = scene.frame->findChild<frmSources*>();
        QVERIFY(sources);
        sources->SelectSource("tiingo");
        Part<QPushButton>(sources, "cmdUse")->click();
        BoxesOf([&] {
            Part<QPushButton>(sources, "cmdApply")->click();
            QTRY_VERIFY_WITH_TIMEOUT(scene.frame->GraphForm(), kPatienceMs);
        });
        QVERIFY(!scene.History("CL.26").empty());
    }

    void withTablesToGoOnWithOpeningOneIsOpeningATable() {
        StartScene scene;
        scene.WriteTable();
        scene.OpenFirst(QMessageBox::No);
        scene.frame->Run("mnuFileClose");
        QCOMPARE(scene.OpenFirst(QMessageBox::No), QStringList());
        QVERIFY(scene.frame->QuoteForm());
        QVERIFY(!scene.frame->GraphForm());
    }
};

WINDOW_TEST(SourceStartTest)
#include "source_start_test.moc"
