// Runs over live sources at the windows: populating, a missed week, splits, fundamentals, tickers that the
// first source does not know, the daily run, and who is asked.
#include <QAction>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <set>

#include "acquire/feeds/windows/frmPopulate.h"
#include "shell/frame/windows/frame_subjects.h"
#include "source_fixture.h"
#include "store/windows/frmQuoteGrid.h"

using namespace brantlow;

namespace {

constexpr double kEvening = 23.5 * 3600;

Date November(unsigned day) {
    return Date{std::chrono::year{2026}, std::chrono::November, std::chrono::day{day}};
}

constexpr const char* kBeforeTheSplit =
    "\"11/10/26\",\"\",658.64,646,668,21573300,0,0,0,0,0,\"\",\"\",0,0,0,0,0,658\r\n"
    "\"11/11/26\",\"\",654.549,646,658,12990600,0,0,0,0,0,\"\",\"\",0,0,0,0,0,654\r\n";

SourceChoices From(const std::string& source) {
    SourceChoices choices;
    choices.For(Capability::Quotes) = source;
    choices.For(Capability::History) = source;
    if (source == "massive" || source == "alpaca") choices.For(Capability::Splits) = source;
    return choices;
}

// A frame with a table of its own, everything saved by itself, and a key for every source.
class RunScene : public SourceProgram {
  public:
    explicit RunScene(const SourceChoices& choices, const std::string& tickers = "CL NFLX") {
        const char* const lines[] = {
            "Manually", "False", "", "False", "",     "2", "Automatic Save", "Automatic Save", "EOD",
            "23",       "40",    "", "",      "None", "",  "Manual",         "False",          "",
            "Automatic"};
        std::string data;
        for (const char* line : lines) data += "\"" + std::string(line) + "\"\r\n";
        Write("VTRDATAset.ini", data);
        std::string table = QuoteHeader() + "\r\n";
        for (const std::string_view ticker : SplitAt(tickers, ' ')) table += std::string(ticker) + "\r\n";
        Write("Mine.ddq", table);
        Choose(choices);
        for (const char* source : {"massive", "tiingo"}) KeepKey(source, "any");
        KeepKey("alpaca", "an-id:a-secret");
        KeepKey("sec", "me@example.org");
        Agree("yahoo");
        Start("Mine.ddq");
        Find<QTimer>("tmrDailyRun")->stop();
    }
    void On(unsigned day) { clock.Set(November(day), kEvening); }
    void Populate() {
        frame->Commands().Entry("mnuFilePopulate")->trigger();
        Part<QPushButton>(frame->findChild<frmPopulate*>(), "Command1")->click();
    }
    std::size_t AskedStandardSource() {
        std::size_t count = 0;
        for (const std::string& address : web.Addresses) {
            const bool isStandard = address.find("/d/quotes.txt") != std::string::npos ||
                                    address.find("/table.txt") != std::string::npos;
            if (isStandard) ++count;
        }
        return count;
    }
    QString Line() { return Find<QLabel>("Panel1")->text().trimmed(); }
    std::string Cell(const char* ticker, const char* header) {
        const QuoteTable& table = frame->QuoteForm()->Table();
        for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
            for (std::size_t column = 1; column < table.ColumnCount(); ++column) {
                if (table.Ticker(row) == ticker && table.Header(column) == header)
                    return table.Text(row, column);
            }
        }
        return "no such cell";
    }
};

std::size_t CountOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

}  // namespace

class SourceRunsTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // What is counted is at which rows the loop turned.
    void populatingAndUpdatingFromASourceTurnTheLoopAtEachTicker() {
        RunScene scene(From("tiingo"), "A AMD CL KO NFLX");
        std::set<std::size_t> rows;
        std::set<std::string> tickers;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] {
            if (!scene.person.InRun()) return;
            rows.insert(scene.session.run.CurrentRow);
            tickers.insert(scene.session.CurrentTicker);
        });
        watch.start(0);
        scene.On(11);
        scene.Populate();
        rows.erase(0);
        QCOMPARE(rows, (std::set<std::size_t>{1, 2, 3, 4, 5}));
        rows.clear();
        tickers.clear();
        const std::string selected = scene.session.CurrentTicker;
        scene.On(20);
        scene.Click("CmdUpdateQuotes");
        rows.erase(0);
        QCOMPARE(rows, (std::set<std::size_t>{1, 2, 3, 4, 5}));
        // Each is named in its turn, and the selected one again afterwards.
        QCOMPARE(tickers, (std::set<std::string>{"A", "AMD", "CL", "KO", "NFLX"}));
        QCOMPARE(scene.session.CurrentTicker, selected);
    }

    // NFLX splits 7 for 1 on the 18th, in the week that is missed. The market plays the 20th all the time, so
    // that the prices of the 11th that it would tell are past the split already.
    void aMissedWeekAndItsSplitAreMadeUpFromEverySource() {
        for (const char* source : {"alpaca", "massive", "yahoo", "tiingo"}) {
            RunScene scene(From(source));
            scene.On(11);
            scene.Populate();
            QVERIFY2(scene.Line().startsWith(QStringLiteral("2 of 2 from ")), qPrintable(scene.Line()));
            QVERIFY2(scene.Read("Last Run.txt").starts_with("Populate of Mine.ddq"), source);
            const std::string before = scene.History("CL.26");
            QVERIFY2(before.find("\"11/11/26\"") != std::string::npos, source);
            QVERIFY2(before.find("\"11/12/26\"") == std::string::npos, source);
            QVERIFY(!WriteWholeFile(scene.session.AppPath / "Quotes/EOD/NFLX.26", kBeforeTheSplit));
            scene.On(20);
            scene.Click("CmdUpdateQuotes");
            const std::string after = scene.History("CL.26");
            for (const char* day :
                 {"11/12/26", "11/13/26", "11/16/26", "11/17/26", "11/18/26", "11/19/26", "11/20/26"}) {
                QVERIFY2(CountOf(after, "\"" + std::string(day) + "\"") == 1,
                         (std::string(source) + ' ' + day).c_str());
            }
            QVERIFY2(after.starts_with(before), source);
            const std::string splits = scene.Read("Source Splits.txt");
            QVERIFY2(splits.starts_with("2026-11-18 NFLX 7 "), (source + splits).c_str());
            QCOMPARE(CountOf(splits, "\n"), std::size_t{1});
            const std::string split = scene.History("NFLX.26");
            for (const char* line :
                 {"\"11/11/26\",\"\",93.507,", "\"11/17/26\",\"\",100.371,", "\"11/18/26\",\"\",98.13,"}) {
                QVERIFY2(split.find(line) != std::string::npos, (std::string(source) + '\n' + split).c_str());
            }
            QCOMPARE(scene.Cell("CL", "Trade Date"), std::string("11/20/26"));
            scene.Click("CmdUpdateQuotes");
            QCOMPARE(scene.History("CL.26"), after);
            QCOMPARE(scene.Read("Source Splits.txt"), splits);
        }
    }

    void theFallbackIsAskedForTickersThatTheFirstDoesNotKnow() {
        SourceChoices choices = From("massive");
        choices.names[kCapabilityCount] = "tiingo";
        RunScene scene(choices, "CL ZZZZ");
        scene.Populate();
        QVERIFY2(scene.Line().startsWith(QStringLiteral("1 of 2 from Massive and Tiingo")),
                 qPrintable(scene.Line()));
        QVERIFY2(scene.Line().contains(QStringLiteral("ZZZZ")), qPrintable(scene.Line()));
        QVERIFY2(scene.Read("Last Run.txt").find("ZZZZ: unknown") != std::string::npos,
                 scene.Read("Last Run.txt").c_str());
    }

    void fundamentalsFollowAnUpdateAndKeepUpWithThePrice() {
        SourceChoices choices = From("alpaca");
        choices.For(Capability::Fundamentals) = "sec";
        RunScene scene(choices);
        scene.On(19);
        scene.Populate();
        scene.Click("CmdUpdateQuotes");
        QVERIFY2(scene.Read("Last Run.txt").find("\r\nCL: nothing new: derived from filings to ") !=
                     std::string::npos,
                 scene.Read("Last Run.txt").c_str());
        const std::string earnings = scene.Cell("CL", "EPS ttm.");
        const std::string ratio = scene.Cell("CL", "P/E ttm.");
        QVERIFY(!earnings.empty() && !ratio.empty());
        scene.On(20);
        scene.Click("CmdUpdateQuotes");
        QCOMPARE(scene.Cell("CL", "EPS ttm."), earnings);
        const double price = std::stod(scene.Cell("CL", "Last Price"));
        QVERIFY(std::abs(std::stod(scene.Cell("CL", "P/E ttm.")) - price / std::stod(earnings)) < 0.01);
        QVERIFY(scene.Cell("CL", "P/E ttm.") != ratio);
    }

    void aCellThatAPersonFilledStays() {
        SourceChoices choices = From("alpaca");
        choices.For(Capability::Fundamentals) = "sec";
        RunScene scene(choices);
        QuoteTable& table = scene.frame->QuoteForm()->Table();
        for (std::size_t column = 1; column < table.ColumnCount(); ++column) {
            if (table.Header(column) == "EPS ttm.") table.SetText(1, column, "9.87");
        }
        scene.Click("CmdUpdateQuotes");
        QCOMPARE(scene.Cell("CL", "EPS ttm."), std::string("9.87"));
    }

    void theDailyRunAsksTheLiveSourceWhateverIsOpen() {
        RunScene scene(From("massive"));
        scene.frame->Run("mnuFileNewEODQuoteFile");
        for (double second = 23.6 * 3600; second < 23.7 * 3600; second += 20) {
            scene.clock.Set(kFriday, second);
            scene.frame->Subjects().daily.WaitForDailyRun();
        }
        QVERIFY2(scene.Read("Last Run.txt").starts_with("Update of Mine.ddq"),
                 scene.Read("Last Run.txt").c_str());
        QVERIFY(scene.History("CL.26").find("\"11/20/26\"") != std::string::npos);
        QCOMPARE(scene.AskedStandardSource(), std::size_t{0});
    }

    void aDailyRunAsksNobodyForAgreement() {
        RunScene scene(From("yahoo"));
        DeleteOneFile(scene.session.DataFile("Source State.json"));
        for (double second = 23.6 * 3600; second < 23.7 * 3600; second += 20) {
            scene.clock.Set(kFriday, second);
            scene.frame->Subjects().daily.WaitForDailyRun();
        }
        QVERIFY2(scene.Read("Last Run.txt").empty(), scene.Read("Last Run.txt").c_str());
        QVERIFY2(scene.Line().startsWith(QStringLiteral("Yahoo was not asked: its terms")),
                 qPrintable(scene.Line()));
        QVERIFY(scene.History("CL.26").empty());
        QCOMPARE(scene.AskedStandardSource(), std::size_t{0});
    }

    void aChoiceThatDoesNotHoldStopsTheRun() {
        RunScene scene(From("massive"));
        SourceChoices choices;
        choices.For(Capability::Quotes) = "gone";
        choices.For(Capability::History) = "gone";
        scene.Choose(choices);
        const QString refusal = QStringLiteral("VTRSRCset.ini: 'gone' is no source that is known here");
        QCOMPARE(BoxesOf([&] { scene.Click("CmdUpdateQuotes"); }), QStringList(refusal));
        QVERIFY2(scene.Line().startsWith(refusal), qPrintable(scene.Line()));
        QCOMPARE(BoxesOf([&] { scene.Populate(); }), QStringList(refusal));
        QVERIFY2(scene.Line().startsWith(refusal), qPrintable(scene.Line()));
        QCOMPARE(scene.AskedStandardSource(), std::size_t{0});
    }

    void thePopulateWindowAndTheFileMenuTellWhoIsAsked() {
        SourceChoices choices = From("massive");
        choices.names[kCapabilityCount] = "yahoo";
        RunScene scene(choices);
        scene.frame->Commands().Entry("mnuFilePopulate")->trigger();
        QCOMPARE(Part<QLabel>(scene.frame->findChild<frmPopulate*>(), "lblSource")->text(),
                 QStringLiteral(
                     "The histories come from Massive, for tickers unknown there Yahoo. 2 tickers: a moment "
                     "at its limits."));
        Q_EMIT scene.frame->Commands().Menu("mnuFile")->aboutToShow();
        QVERIFY(scene.frame->Commands()
                    .Entry("mnuFileUpdateQuotes")
                    ->toolTip()
                    .endsWith(QStringLiteral(", from Massive, for tickers unknown there Yahoo")));
        scene.Choose({});
        Q_EMIT scene.frame->Commands().Menu("mnuFile")->aboutToShow();
        QVERIFY(!scene.frame->Commands()
                     .Entry("mnuFileUpdateQuotes")
                     ->toolTip()
                     .contains(QStringLiteral("from")));
    }
};

WINDOW_TEST(SourceRunsTest)
#include "source_runs_test.moc"
