// A walk over the whole command catalogue at the frame: the menus and the buttons as they stand, what is
// enabled with each kind of table, and what each entry and each button does when it is used.
#include <QAction>
#include <QDesktopServices>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>

#include "catalogue_scene.h"
#include "support/catalogue_words.h"

using namespace brantlow;

namespace {

// Takes down what is handed to the desktop for the user's browser.
class OutsideWorld : public QObject {
    Q_OBJECT
  public:
    explicit OutsideWorld(QStringList& seen) : seen_(seen) {
        for (const char* scheme : {"http", "https", "file"})
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "Take");
    }
    ~OutsideWorld() override {
        for (const char* scheme : {"http", "https", "file"})
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }

  public Q_SLOTS:
    void Take(const QUrl& url) { seen_ << QStringLiteral("outside ") + url.toString(); }

  private:
    QStringList& seen_;
};

// What is seen when an entry is used with the table Jan.ddq open and its ticker T1 selected. `files` are the
// names that the file dialogs are given.
struct Walk {
    const char* entry;
    QStringList seen;
    QStringList files = {};
};

QStringList L(std::initializer_list<const char*> words) {
    QStringList list;
    for (const char* word : words) list << QString::fromUtf8(word);
    return list;
}

const std::vector<Walk>& Walks() {
    static const std::vector<Walk> walks = {
        {"mnuFileNewEODQuoteFile",
         L({"-first T1", "-frmQuoteGrid Jan.ddq", "+first ", "+frmQuoteGrid New EOD Quotes.db"})},
        {"mnuFileNewMyList", L({"dialog New List"})},
        {"mnuFileNewFromMarket", L({"dialog New List"})},
        {"mnuFileNewCreateMarketQuoteFile",
         L({"says The program that creates market quote files is not installed. It belongs in "
            "APP/BrantlowQuoteFiles."})},
        {"mnuFileOpenQuotesDB", L({"dialog Open", "-frmQuoteGrid Jan.ddq", "+frmQuoteGrid Feb.ddq"}),
         L({"Feb.ddq"})},
        {"mnuFileOpenEvaluationDB", L({"dialog Open", "-frmQuoteGrid Jan.ddq", "+frmQuoteGrid Old.dbe"}),
         L({"Old.dbe"})},
        {"mnuFileOpenExtendedFundamental",
         L({"dialog Open", "-frmQuoteGrid Jan.ddq", "+frmQuoteGrid Old.efq"}), L({"Old.efq"})},
        {"mnuFileClose", L({"-first T1", "-frmQuoteGrid Jan.ddq", "~Data/VTRMRUset.ini"})},
        {"mnuFileSave", L({"~Data/Jan.ddq", "~Data/VTRMRUset.ini"})},
        {"mnuFileSaveAs",
         L({"dialog Save As", "-frmQuoteGrid Jan.ddq", "+Data/Mine.ddq", "~Data/VTRMRUset.ini",
            "+frmQuoteGrid Mine.ddq"}),
         L({"Mine.ddq"})},
        {"mnuFilePopulate", L({"dialog Create and Populate Database"})},
        {"mnuFileImportQuotes",
         L({"-Data/In.Txt", "+Data/Last Run.txt", "~Quotes/EOD/QuoteList.ddq", "~Quotes/EOD/T1.26"})},
        {"mnuFileImportHistory", L({"dialog Import History"})},
        {"mnuFileExportQuotes", L({"+Data/Out.Txt"})},
        {"mnuFileExportCsv", L({"dialog Export as CSV", "+Data/Rows.csv"}), L({"Rows.csv"})},
        {"mnuFileUpdateQuotes",
         L({"web "
            "http://quote.test/d/quotes.txt?s=T1,T2,T3,,,,,,,,,,,,&f=sl1d1t1r1c1nxqabohdjkegrvr5e7pj1p5&e",
            "~Data/Jan.ddq", "+Data/Last Run.txt", "~Quotes/EOD/QuoteList.ddq", "~Quotes/EOD/T1.26",
            "+Quotes/EOD/T2.26", "+Quotes/EOD/T3.26"})},
        {"mnuFilePrint",
         L({"dialog Print", "says There is no printer. The page was written to APP/Data/Page.pdf",
            "+Data/Page.pdf"}),
         L({"Page.pdf"})},
        {"mnuFilePrintTable",
         L({"dialog Print Whole Table",
            "says There is no printer. The pages were written to APP/Data/Table.pdf", "+Data/Table.pdf"}),
         L({"Table.pdf"})},
        {"mnuFilePageSetup", L({"dialog Page Setup"})},
        {"mnuFileExit",
         L({"-first T1", "-frame", "-frmQuoteGrid Jan.ddq", "~Data/VTRMRUset.ini", "+config/Brantlow.ini"})},
        {"mnuEditUndo", L({})},
        {"mnuEditCopy", L({})},
        {"mnuEditSelectAll", L({})},
        {"mnuEditFind", L({})},
        {"mnuEditCopyPicture", L({"says To copy a picture, you will need to open a chart"})},
        {"mnuEditBackUpProgramFiles",
         L({"says Do you want back up program files?", "+Kept/Feb.ddq", "+Kept/In.Txt", "+Kept/Jan.ddq",
            "+Kept/New EOD Quotes.db", "+Kept/Old.dbe", "+Kept/Old.efq", "+Kept/VTRCOLset.ini",
            "+Kept/VTRDATAset.ini", "+Kept/VTRIMEXset.ini", "+Kept/VTRMRUset.ini", "+Kept/VTRNETset.ini"})},
        {"mnuEditBackUpQuoteDatabase",
         L({"says Do you want back up quote database?", "+KeptQuotes/QuoteList.ddq", "+KeptQuotes/T1.26"})},
        {"mnuEditRestoreProgramFiles", L({"says Do you want to restore program files?", "+Data/kept.ddq"})},
        {"mnuEditRestoreQuoteDatabase",
         L({"says Do you want to restore the quote database?", "+Quotes/EOD/kept.ddq"})},
        {"mnuEditSplitAdjustment", L({"dialog Split Adjustment"})},
        {"mnuEditEditQuoteFiles", L({"dialog Edit Quote File", "+window Jan.ddq[*]"}), L({"Jan.ddq"})},
        {"mnuEditEditDatabaseFiles", L({"dialog Edit Quote Database Files", "+window T1.26[*]"}),
         L({"../Quotes/EOD/T1.26"})},
        {"mnuEditCombineQuoteFiles",
         L({"dialog Select First File", "dialog Select File to Combine", "dialog Save As", "+Data/Both.ddq"}),
         L({"Jan.ddq", "Feb.ddq", "Both.ddq"})},
        {"mnuEditRemoveLastUpdate",
         L({"says Do you want to remove the last update from the database?", "~Quotes/EOD/T1.26"})},
        {"mnuEditCheckDatabase", L({"+window Check Database"})},
        {"mnuEditDelete", L({"dialog Delete File"})},
        {"mnuViewToolbar", L({"-buttons"})},
        {"mnuViewStatusBar", L({"-status bar"})},
        {"mnuViewFitChart", L({"+config/Brantlow.ini"})},
        {"mnuViewRememberWindowSize", L({"+config/Brantlow.ini"})},
        {"mnuViewDoubleClickChart", L({"+config/Brantlow.ini"})},
        {"mnuViewOpenWithoutWaiting", L({"+config/Brantlow.ini"})},
        {"mnuViewChartTimeAxis", L({"+config/Brantlow.ini"})},
        {"mnuViewChartRoundPrices", L({"+config/Brantlow.ini"})},
        {"mnuViewChartGrid", L({"+config/Brantlow.ini"})},
        {"mnuViewChartWideLines", L({"+config/Brantlow.ini"})},
        {"mnuViewChartDesktop", {}},
        {"mnuViewChartStandard", L({"+config/Brantlow.ini"})},
        {"mnuViewChartDistinct", L({"+config/Brantlow.ini"})},
        {"mnuViewChartDark", L({"+config/Brantlow.ini"})},
        {"mnuViewExplain", L({"says To explain a verdict, you will need to open a Stock Selector File and "
                              "select one of its cells"})},
        {"mnuSettingsApplication", L({"dialog Brantlow Settings"})},
        {"mnuSettingsStockSelector", L({"dialog Brantlow Stock Selector Settings"})},
        {"mnuSettingsSources", L({"dialog Quote Sources"})},
        {"mnuSettingsAlarmMail", L({"dialog Alarm Mail"})},
        {"mnuViewFiredAlarms", L({"+window Fired Alarms"})},
        {"mnuGraphicsHLC", L({"+frmGraph T1"})},
        {"mnuGraphicsCandleStick", L({"+frmGraph T1"})},
        {"mnuEvaluatePickStocks", L({"dialog Stock Selector Interval Selection", "+Data/Evaluations.dbe"})},
        {"mnuEvaluateStudy", L({"+frmStudy Study of the Conditions - Jan.ddq"})},
        {"mnuExtendedFundamentals",
         L({"web http://quote.test/q/ks?s=T1", "-frmQuoteGrid Jan.ddq", "+Data/ExtendedFundamentals.efq",
            "+Data/Last Run.txt", "+frmQuoteGrid 03-09-26.efq"})},
        {"mnuHelpFile", L({"+window Brantlow Help"})},
        {"mnuHelpIndex", L({"+window Brantlow Help"})},
        {"mnuHelpKeys", L({"dialog Keys"})},
        {"mnuHelpCommands", L({"dialog Commands and Tickers"})},
        {"SetupWizard", L({"dialog Cadrel' Setup Wizard"})},
        {"mnuHelpAbout", L({"dialog About Brantlow"})},
        {"mnuHelpDisclaimer", L({"dialog Terms, Conditions, and Disclaimer"})},
        {"mnuHelpBrantlowUpdates",
         L({"says No Updates are available.", "web http://vendor.test/Updates/brantlow/updateme.htm"})},
        {"mnuHelpUsersForum", L({"dialog User's Forum"})},
        {"FundamentalData",
         L({"web http://quote.test/q/ks?s=T1", "-frmQuoteGrid Jan.ddq", "+Data/ExtendedFundamentals.efq",
            "+Data/Last Run.txt", "+frmQuoteGrid 03-09-26.efq"})},
        {"SortAscending", {}},
        {"SortDescending", L({"-first T1", "+first T3"})},
        {"Graphics", L({"+frmGraph T1"})},
        {"mnuPopUpGraphicsHLC", L({"+frmGraph T1"})},
        {"mnuPopUpGraphicsCandleStick", L({"+frmGraph T1"})},
        {"mnuPopUpSplitAdjustmentMakeAdjustment", L({"dialog Split Adjustment"})},
        {"mnuPopUpSplitAdjustmentExit", {}},
        {"mnuPopUpExportHistQuotes", L({"says This function is not yet available."})},
    };
    return walks;
}

// The entries that lead to a page, with the first provider's addresses and the ticker T1.
struct PageWalk {
    const char* entry;
    const char* seen;
};
constexpr PageWalk kPages[] = {
    {"mnuViewAdvanceDecline", "browser http://quote.test/m0?u"},
    {"mnuViewDowngrades", "browser http://quote.test/mrd"},
    {"mnuViewEconomicCalander", "browser http://biz.test/c/e.html"},
    {"mnuViewEarnings", "browser http://biz.test/research/earncal/today.html"},
    {"mnuViewInPlay", "browser http://quote.test/mp?u"},
    {"mnuViewIPOs", "browser http://biz.test/ipo/"},
    {"mnuViewMarketOverview", "browser http://quote.test/mt?u"},
    {"mnuViewMostActiveAMEX", "browser http://quote.test/mnvl?e=aq"},
    {"mnuViewMostActiveNYSE", "browser http://quote.test/mnvl?e=nq"},
    {"mnuViewMostActiveNasdq", "browser http://quote.test/mnvl?e=o"},
    {"mnuViewSplits", "browser http://biz.test/c/s.html"},
    {"mnuViewStockScreener", "browser http://screen.test/stocks.html"},
    {"mnuViewSymbolSearch", "browser http://quote.test/l"},
    {"mnuViewUSIndices", "browser http://quote.test/m1?u"},
    {"mnuViewUpgrades", "browser http://quote.test/mru?u"},
    {"mnuViewWorldIndices", "browser http://quote.test/m2?u"},
    {"mnuViewBrokererageFirm", "outside http://broker.test/"},
    {"mnuHelpQuestions", "outside http://vendor.test/questions.htm"},
    {"mnuHelpSupport", "outside http://vendor.test/feedback.htm"},
    {"mnuPopUpTrade", "outside http://broker.test/"},
    {"mnuPopUpAnalyst", "browser http://biz.test/a/r/T/T1.html"},
    {"mnuPopUpChart", "browser http://quote.test/q?s=T1&d=c"},
    {"mnuPopUpCompetitors", "browser http://quote.test/q/co?s=T1"},
    {"mnuPopUpDetailedQuote", "browser http://quote.test/q?s=T1&d=t"},
    {"mnuPopUpFinancials", "browser http://biz.test/fin/l/T/T1.html"},
    {"mnuPopUpKeyStatistics", "browser http://quote.test/q/ks?s=T1"},
    {"mnuPopUpIndustry", "browser http://biz.test/ic/T/T1.html"},
    {"mnuPopUpInsiderTrading", "browser http://biz.test/t/T/T1.html"},
    {"mnuPopUpMessageBoard", "browser http://quote.test/q/mb?s=T1"},
    {"mnuPopUpNews", "browser http://quote.test/q/h?s=T1"},
    {"mnuPopUpProfile", "browser http://biz.test/p/T/T1.html"},
    {"mnuPopUpOptions", "browser http://quote.test/q?s=T1&d=o"},
    {"mnuPopUpOwnership", "browser http://biz.test/hd/T/T1.html"},
    {"mnuPopUpRealTimeQuote", "browser http://quote.test/q?s=T1&d=e"},
    {"mnuPopUpReports", "browser http://screen.test/d?vw=0&db=reports&z=dat&tk=T1"},
    {"mnuPopUpResearch", "browser http://biz.test/z/a/T/T1.html"},
    {"mnuPopUpSECFilings", "browser http://biz.test/e/l/T/T1.html"},
};

// The entries that arrange the children have a test of their own; this one needs a page in front.
constexpr const char* kArranging[] = {"mnuWindowCascade", "mnuWindowTileHorizontal", "mnuWindowTileVertical",
                                      "mnuWindowArrangeIcons"};
constexpr const char* kOfThePage = "mnuFilePrintPreview";

QString RowOf(const QString& parent, const QString& name, const QString& words) {
    return QStringLiteral("%1/%2: %3").arg(parent, name, words);
}

// The rows of a menu and of those below it. A recent file is named by its place and stands as one row.
void AddRows(const QString& parent, const QList<QAction*>& actions, QStringList& rows) {
    for (const QAction* action : actions) {
        if (action->isSeparator()) continue;
        const QMenu* const below = action->menu();
        QString name = below ? below->objectName() : action->objectName();
        if (name == QStringLiteral("mnuFileMRU1")) {
            rows << RowOf(parent, QStringLiteral("mnuFileMRU"), QString());
        }
        if (name.startsWith(QStringLiteral("mnuFileMRU"))) continue;
        rows << RowOf(parent, name, below ? below->title() : action->text());
        if (below) AddRows(name, below->actions(), rows);
    }
}

}  // namespace

class CatalogueWalkTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { qputenv("PATH", "/nowhere"); }

    void theMenusHoldEveryRowInOrder() {
        SceneProgram program;
        QStringList rows;
        AddRows(QString(), program.frame->menuBar()->actions(), rows);
        QMenu& popUp = program.frame->Commands().PopUpMenu();
        rows << RowOf(QString(), popUp.objectName(), popUp.title());
        AddRows(popUp.objectName(), popUp.actions(), rows);
        QStringList expected;
        for (const MenuWords& row : kMenuWords)
            expected << RowOf(Name(row.parent), Name(row.id), Name(row.words));
        QCOMPARE(rows, expected);
    }

    void theButtonsHaveTheirToolTipsAndNames() {
        SceneProgram program;
        const auto buttons =
            program.Find<QToolBar>("tbToolBar")
                ->findChildren<QAbstractButton*>(QRegularExpression(QStringLiteral("^Command\\d+$")));
        QCOMPARE(static_cast<std::size_t>(buttons.size()), std::size(kButtonWords));
        for (const ButtonWords& row : kButtonWords) {
            auto* button = program.frame->findChild<QAbstractButton*>(Name(row.id));
            QVERIFY2(button, row.id.data());
            QCOMPARE(button->toolTip().section(QStringLiteral(" ("), 0, 0), Name(row.toolTip));
            QCOMPARE(button->text(), Name(row.toolTip));
        }
    }

    void noEntryIsLeftOut() {
        QStringList walked;
        for (const Walk& walk : Walks()) walked << QString::fromLatin1(walk.entry);
        for (const PageWalk& page : kPages) walked << QString::fromLatin1(page.entry);
        for (const char* entry : kArranging) walked << QString::fromLatin1(entry);
        walked << QString::fromLatin1(kOfThePage);
        for (const MenuEntry& command : kMenu) {
            const bool isEntry = command.row == MenuRow::Entry || command.row == MenuRow::CheckedEntry ||
                                 command.row == MenuRow::ButtonOnly;
            QVERIFY2(!isEntry || walked.count(Name(command.id)) == 1, command.id.data());
        }
    }

    void eachEntryDoesItsThing_data() {
        QTest::addColumn<int>("row");
        for (std::size_t i = 0; i < Walks().size(); ++i)
            QTest::newRow(Walks()[i].entry) << static_cast<int>(i);
    }
    void eachEntryDoesItsThing() {
        QFETCH(int, row);
        const Walk& walk = Walks()[static_cast<std::size_t>(row)];
        SceneProgram program;
        const OutsideWorld outside(program.seen);
        QVERIFY(program.frame->Commands().Entry(walk.entry)->isEnabled());
        QCOMPARE(program.SeenBy([&] { program.Choose(walk.entry); }, walk.files).join(u'\n'),
                 walk.seen.join(u'\n'));
    }

    // As its button, which stands for an entry: the same is seen.
    void eachButtonDoesWhatItsEntryDoes_data() {
        QTest::addColumn<int>("row");
        for (std::size_t i = 0; i < std::size(kButtonWords); ++i) {
            QTest::newRow(kButtonWords[i].id.data()) << static_cast<int>(i);
        }
    }
    void eachButtonDoesWhatItsEntryDoes() {
        QFETCH(int, row);
        const ButtonWords& button = kButtonWords[row];
        SceneProgram program;
        if (button.command == kOfThePage) return CheckButtonOfThePage(program, button);
        const auto click = [&] { program.Click(button.id.data()); };
        for (const PageWalk& page : kPages) {
            if (page.entry == button.command) {
                QCOMPARE(program.SeenBy(click).constFirst(), QString::fromLatin1(page.seen));
                return;
            }
        }
        const auto walk = std::find_if(Walks().begin(), Walks().end(),
                                       [&](const Walk& other) { return other.entry == button.command; });
        QVERIFY(walk != Walks().end());
        QCOMPARE(program.SeenBy(click, walk->files).join(u'\n'), walk->seen.join(u'\n'));
    }

    void eachPageOpensInItsBrowser() {
        SceneProgram program;
        const OutsideWorld outside(program.seen);
        for (const PageWalk& page : kPages) {
            const QStringList seen = program.SeenBy([&] { program.Choose(page.entry); });
            QCOMPARE(seen.value(0), QString::fromLatin1(page.seen));
        }
    }

    void thePageInFrontIsPrintedSavedAndClosed() {
        SceneProgram program;
        program.Choose("mnuViewIPOs");
        const std::pair<const char*, const char*> rows[] = {{"mnuFilePrintPreview", "the page is previewed"},
                                                            {"mnuFilePrint", "the page is printed"},
                                                            {"mnuFileSave", "the page is saved"},
                                                            {"mnuFileSaveAs", "the page is saved as"},
                                                            {"mnuFileClose", "-frmBrowser "}};
        for (const auto& [entry, seen] : rows) {
            QVERIFY2(program.frame->Commands().Entry(entry)->isEnabled(), entry);
            QCOMPARE(program.SeenBy([&] { program.Choose(entry); }), L({seen}));
        }
    }

    void theWindowMenuArrangesTheTableAndTheChart() {
        SceneProgram program;
        program.Choose("mnuGraphicsHLC");
        program.Choose("mnuWindowTileHorizontal");
        QCOMPARE(Places(program), QList<QRect>({{0, 0, 100, 50}, {0, 50, 100, 50}}));
        program.Choose("mnuWindowTileVertical");
        QCOMPARE(Places(program), QList<QRect>({{0, 0, 50, 100}, {50, 0, 50, 100}}));
        program.Choose("mnuWindowCascade");
        const QList<QRect> cascade = Places(program);
        QCOMPARE(cascade[0], QRect(0, 0, 80, 80));
        QCOMPARE(cascade[1].size(), QSize(80, 80));
        QVERIFY(cascade[1].x() > 0 && cascade[1].y() > 0);
        for (QMdiSubWindow* child : program.Area().subWindowList()) child->showMinimized();
        program.Choose("mnuWindowArrangeIcons");
        int left = 0;
        for (const QMdiSubWindow* child : program.Area().subWindowList()) {
            QCOMPARE(child->geometry().bottom() + 1, program.Area().viewport()->height());
            QCOMPARE(child->x(), left);
            left += child->width();
        }
    }

    void withNothingOpenTheEntriesSpeakOrDoNothing() {
        SceneProgram program;
        program.Choose("mnuFileClose");
        const QString needsTicker = QStringLiteral("says You must select a ticker symbol to obtain a graph.");
        const std::pair<const char*, QString> rows[] = {
            {"mnuGraphicsHLC", needsTicker},
            {"mnuGraphicsCandleStick", needsTicker},
            {"Graphics", needsTicker},
            {"mnuPopUpGraphicsHLC", needsTicker},
            {"mnuPopUpGraphicsCandleStick", needsTicker},
            {"mnuEvaluatePickStocks",
             QStringLiteral("says To run Stock Selector, you will need to open an End of Day Quote File")},
            {"FundamentalData", QStringLiteral("says To run Extended Fundamentals, you will need to open an "
                                               "End of Day Quote File")},
            {"mnuFileImportQuotes",
             QStringLiteral("says First, open an existing EOD Quote File or a New EOD Quote File you wish to "
                            "Import data. An Existing Quote file will import the data for the ticker "
                            "sysmbols contained in the quote file. A New Quote file will accept all data in "
                            "the file you wish to import.")},
            {"mnuFileExportQuotes", QStringLiteral("says Export is only supported for End of Day, Stock "
                                                   "Selector, and Extended Fundamental files")},
            {"mnuPopUpNews", QString()},
            {"mnuWindowCascade", QString()},
            {"mnuWindowArrangeIcons", QString()},
        };
        for (const auto& [entry, seen] : rows) {
            QVERIFY2(program.frame->Commands().Entry(entry)->isEnabled(), entry);
            QCOMPARE(program.SeenBy([&] { program.Choose(entry); }).join(u'\n'), seen);
        }
    }

    // One row an entry whose state follows the kind: with .ddq, .db, .dbe, .efq, and with nothing open.
    void enablingFollowsTheKind() {
        struct Row {
            const char* entry;
            std::array<bool, 5> enabled;
        };
        const Row rows[] = {
            {"mnuFileExportQuotes", {true, false, true, true, true}},
            {"mnuFileImportQuotes", {true, false, false, false, true}},
            {"mnuFilePopulate", {true, false, false, false, false}},
            {"mnuExtendedFundamentals", {true, false, false, false, false}},
            {"mnuEvaluatePickStocks", {true, false, false, false, true}},
            {"mnuFileUpdateQuotes", {true, true, false, false, false}},
        };
        SceneProgram program;
        for (std::size_t kind = 0; kind < std::size(kKinds); ++kind) {
            OpenKind(program, kKinds[kind]);
            for (const Row& row : rows) {
                const bool enabled = program.frame->Commands().Entry(row.entry)->isEnabled();
                QVERIFY2(enabled == row.enabled[kind], row.entry);
            }
            for (const char* button : {"Command4", "Command23"}) {
                QVERIFY2(program.Find<QAbstractButton>(button)->isVisible(), button);
                QVERIFY2(program.Find<QAbstractButton>(button)->isEnabled(), button);
            }
        }
    }

    void theStripFollowsTheKind() {
        struct Row {
            const char* control;
            std::array<bool, 4> shown;
        };
        constexpr std::array<bool, 4> kQuotes = {true, true, false, false};
        constexpr std::array<bool, 4> kAll = {true, true, true, true};
        const Row rows[] = {{"CmdUpdateQuotes", kQuotes}, {"CmdAdd", kQuotes},        {"CmdAlarm", kQuotes},
                            {"CmdDelete", kQuotes},       {"CommandImport", kQuotes}, {"Text2", kQuotes},
                            {"Text3", kQuotes},           {"Frame2", kQuotes},        {"Frame3", kQuotes},
                            {"CommandExport", kAll}};
        SceneProgram program;
        for (std::size_t kind = 0; kind < 4; ++kind) {
            OpenKind(program, kKinds[kind]);
            for (const Row& row : rows) {
                auto* control =
                    program.frame->QuoteForm()->findChild<QWidget*>(QString::fromLatin1(row.control));
                QVERIFY2(control, row.control);
                QVERIFY2(control->isVisible() == row.shown[kind], row.control);
            }
        }
    }

  private:
    static constexpr const char* kKinds[] = {"Jan.ddq", "New EOD Quotes.db", "Old.dbe", "Old.efq", ""};

    static void OpenKind(SceneProgram& program, const char* name) {
        if (*name != 0) return program.Open(name);
        program.Choose("mnuFileClose");
        QVERIFY(!program.frame->QuoteForm());
    }

    static void CheckButtonOfThePage(SceneProgram& program, const ButtonWords& button) {
        QVERIFY(!program.Find<QAbstractButton>(button.id.data())->isEnabled());
        program.Choose("mnuViewIPOs");
        QCOMPARE(program.SeenBy([&] { program.Click(button.id.data()); }), L({"the page is previewed"}));
    }

    // The children's places in hundredths of the area.
    static QList<QRect> Places(SceneProgram& program) {
        QList<QRect> places;
        const QSize whole = program.Area().viewport()->size();
        const auto share = [](int part, int of) { return qRound(100.0 * part / of); };
        for (const QMdiSubWindow* child : program.Area().subWindowList()) {
            const QRect place = child->geometry();
            places << QRect(share(place.x(), whole.width()), share(place.y(), whole.height()),
                            share(place.width(), whole.width()), share(place.height(), whole.height()));
        }
        return places;
    }
};

WINDOW_TEST(CatalogueWalkTest)
#include "catalogue_walk_test.moc"
