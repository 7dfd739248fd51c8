// The window of the live sources: its list, keys, the test of a source, copies to edit, and who is asked.
#include <sys/stat.h>

#include <QAction>
#include <QComboBox>
#include <QInputDialog>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>

#include "acquire/feeds/live/source_catalogue.h"
#include "acquire/feeds/windows/frmSources.h"
#include "base/windows/text_editor.h"
#include "screens/windows/frmApplicationSettings.h"
#include "source_fixture.h"

using namespace brantlow;

namespace {

class SourcesScene : public SourceProgram {
  public:
    SourcesScene() { Start("Jan.ddq"); }

    frmSources* Open() {
        frame->Commands().Entry("mnuSettingsSources")->trigger();
        window = frame->findChild<frmSources*>();
        if (!window) qFatal("no window");
        return window;
    }
    void Select(const char* source) { window->SelectSource(source); }
    void Press(const char* button) { Part<QPushButton>(window, button)->click(); }
    bool IsEnabled(const char* button) { return Part<QPushButton>(window, button)->isEnabled(); }
    QString Outcome() { return Part<QLabel>(window, "lblOutcome")->text(); }
    QString Result() { return Part<QPlainTextEdit>(window, "txtResult")->toPlainText(); }
    // The cells of a source's row.
    QStringList Row(const char* title) {
        auto* list = Part<QTreeWidget>(window, "lstSources");
        for (QTreeWidgetItem* row : list->findItems(QString::fromLatin1(title), Qt::MatchExactly)) {
            QStringList cells;
            for (int column = 0; column < list->columnCount(); ++column) cells << row->text(column);
            return cells;
        }
        return {};
    }
    void EnterKey(const char* key, const char* secret = "") {
        Part<QLineEdit>(window, "txtKey")->setText(QString::fromLatin1(key));
        Part<QLineEdit>(window, "txtSecret")->setText(QString::fromLatin1(secret));
        Q_EMIT Part<QLineEdit>(window, "txtKey")->textEdited({});
    }
    void ChooseIn(const char* list, const char* source) {
        auto* box = Part<QComboBox>(window, list);
        box->setCurrentIndex(box->findData(QString::fromLatin1(source)));
    }

    frmSources* window = nullptr;
};

}  // namespace

class SourceWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theListTellsHowItStandsWithEachSource() {
        SourcesScene scene;
        scene.KeepKey("alpaca", "an-id:a-secret");
        SourceState(scene.session.DataFolder(), SystemSourceTime())
            .Block("nasdaq", SystemSourceTime().now() + 3 * 86400, 900, "not so fast");
        scene.Open();
        QCOMPARE(Part<QTreeWidget>(scene.window, "lstSources")->topLevelItemCount(), 10);
        QCOMPARE(scene.Row("Massive"),
                 Words({"Massive", "quotes, history, splits, symbols", "missing", "", "needs its key"}));
        QCOMPARE(scene.Row("Alpaca"), Words({"Alpaca", "quotes, history, splits", "present", "", "ready"}));
        QCOMPARE(scene.Row("Yahoo"), Words({"Yahoo", "quotes, history", "none needed", "", "ready"}));
        const QStringList nasdaq = scene.Row("Nasdaq");
        QVERIFY2(nasdaq.at(4).startsWith(QStringLiteral("left alone until 20")), qPrintable(nasdaq.at(4)));
    }

    void theWindowOpensWithTheSourceInUse() {
        SourcesScene scene;
        const auto selected = [&] {
            return Part<QTreeWidget>(scene.Open(), "lstSources")->currentItem()->text(0);
        };
        QCOMPARE(selected(), QStringLiteral("Alpaca"));
        delete scene.window;
        scene.Choose(ChosenForPrices({}, LoadSources({}).Find("tiingo")));
        QCOMPARE(selected(), QStringLiteral("Tiingo"));
    }

    void theSelectedSourceShowsItsTermsLimitsAndField() {
        SourcesScene scene;
        scene.Open();
        scene.Select("alpaca");
        QVERIFY(!Part<QLineEdit>(scene.window, "txtSecret")->isHidden());
        QCOMPARE(Part<QLineEdit>(scene.window, "txtKey")->echoMode(), QLineEdit::Password);
        scene.Select("massive");
        QVERIFY(
            Part<QLabel>(scene.window, "lblTerms")->text().startsWith(QStringLiteral("For your own use")));
        QCOMPARE(Part<QLabel>(scene.window, "lblLimits")->text(), QStringLiteral("Requests: 1000 a second."));
        QVERIFY(Part<QLineEdit>(scene.window, "txtSecret")->isHidden());
        scene.Select("sec");
        QCOMPARE(Part<QLineEdit>(scene.window, "txtKey")->echoMode(), QLineEdit::Normal);
        scene.Select("yahoo");
        QVERIFY(Part<QWidget>(scene.window, "KeyField")->isHidden());
        QVERIFY(Part<QPushButton>(scene.window, "cmdSaveKey")->isHidden());
    }

    void aKeyGoesIntoItsFileAndIsShownNowhere() {
        SourcesScene scene;
        scene.Open();
        scene.Select("massive");
        QVERIFY(!scene.IsEnabled("cmdSaveKey"));
        scene.EnterKey("  my-own-key ");
        QVERIFY(scene.IsEnabled("cmdSaveKey"));
        scene.Press("cmdSaveKey");
        QCOMPARE(scene.Read("Keys.ini"), std::string("massive=my-own-key\r\n"));
        struct stat state {};
        QCOMPARE(stat((scene.session.DataFolder() / "Keys.ini").c_str(), &state), 0);
        QCOMPARE(state.st_mode & 0777, mode_t{0600});
        QCOMPARE(scene.Row("Massive").at(2), QStringLiteral("present"));
        QVERIFY(Part<QLineEdit>(scene.window, "txtKey")->text().isEmpty());
        for (QWidget* part : scene.window->findChildren<QWidget*>()) {
            for (const char* property : {"text", "plainText", "placeholderText", "toolTip"}) {
                QVERIFY(!part->property(property).toString().contains(QStringLiteral("my-own-key")));
            }
        }
        scene.Press("cmdRemoveKey");
        QCOMPARE(scene.Read("Keys.ini"), std::string());
        QCOMPARE(scene.Row("Massive").at(2), QStringLiteral("missing"));
        QVERIFY(!scene.IsEnabled("cmdRemoveKey"));
    }

    void theLineBelowTheFieldFollowsTheTyping() {
        SourcesScene scene;
        scene.Open();
        const auto state = [&] { return Part<QLabel>(scene.window, "lblKeyState")->text(); };
        const auto type = [&](const char* field, const char* text) {
            QTest::keyClicks(Part<QLineEdit>(scene.window, field), QString::fromLatin1(text));
        };
        const QString missing =
            QStringLiteral("Missing: a paper-trading account at alpaca.markets gives both.");
        const QString incomplete =
            QStringLiteral("Cannot be kept yet: the key has two parts, written id:secret.");
        scene.Select("alpaca");
        QCOMPARE(state(), missing);
        type("txtKey", "id");
        QCOMPARE(state(), incomplete);
        type("txtSecret", "s");
        QCOMPARE(state(), QStringLiteral("Entered, not kept yet."));
        Part<QLineEdit>(scene.window, "txtSecret")->clear();
        QCOMPARE(state(), incomplete);
        Part<QLineEdit>(scene.window, "txtKey")->clear();
        QCOMPARE(state(), missing);
        type("txtKey", " ");
        QCOMPARE(state(), missing);
        type("txtKey", "id:s");
        scene.Press("cmdSaveKey");
        QCOMPARE(state(), QStringLiteral("A key is kept in Data/Keys.ini; one that is entered replaces it."));
        type("txtKey", "id:t");
        QCOMPARE(state(), QStringLiteral("Entered, not kept yet; it will replace the one in Data/Keys.ini."));
        scene.Select("sec");
        QCOMPARE(state(),
                 QStringLiteral("Missing: your e-mail address, which is sent along with each request."));
        type("txtKey", "me");
        QCOMPARE(state(), QStringLiteral("Cannot be kept yet: it wants to be told an e-mail address."));
        type("txtKey", "@example.org");
        QCOMPARE(state(), QStringLiteral("Entered, not kept yet."));
    }

    void aPairHasTwoPartsOrIsPastedWhole() {
        SourcesScene scene;
        scene.Open();
        scene.Select("alpaca");
        scene.EnterKey("only-one-part");
        scene.Press("cmdSaveKey");
        QCOMPARE(scene.Outcome(), QStringLiteral("Alpaca: the key has two parts, written id:secret"));
        QCOMPARE(scene.Read("Keys.ini"), std::string());
        scene.EnterKey("the-id", "the-secret");
        scene.Press("cmdSaveKey");
        QCOMPARE(scene.Read("Keys.ini"), std::string("alpaca=the-id:the-secret\r\n"));
        scene.EnterKey("an-id:pasted");
        scene.Press("cmdSaveKey");
        QCOMPARE(scene.Read("Keys.ini"), std::string("alpaca=an-id:pasted\r\n"));
    }

    void theTestBeginsWithTheTickerInWork() {
        for (const char* ticker : {"", "BRK.B"}) {
            SourcesScene scene;
            scene.session.CurrentTicker = ticker;
            scene.Open();
            const QString offered = *ticker == '\0' ? QStringLiteral("AAPL") : QString::fromLatin1(ticker);
            QCOMPARE(Part<QLineEdit>(scene.window, "txtTicker")->text(), offered);
        }
    }

    void theTestShowsRowsOfEverythingThatASourceGives() {
        SourcesScene scene;
        scene.KeepKey("massive", "any");
        scene.Open();
        scene.Select("massive");
        Part<QLineEdit>(scene.window, "txtTicker")->setText(QStringLiteral("CL"));
        scene.Press("cmdTest");
        QCOMPARE(scene.Outcome(), QStringLiteral("Massive answered."));
        const QString result = scene.Result();
        QVERIFY2(result.contains(QStringLiteral("\n    ...\n")), qPrintable(result));
        QVERIFY2(result.startsWith(QStringLiteral("quotes: ")), qPrintable(result));
        for (const char* line : {"history: ", "splits: ", "symbols: "}) {
            QVERIFY2(result.contains(QLatin1Char('\n') + QString::fromLatin1(line)), line);
        }
        QVERIFY(!result.contains(QStringLiteral("reply:")));
    }

    void theTestTellsARefusalInTheServersWords() {
        SourcesScene scene;
        scene.KeepKey("massive", "wrong");
        scene.Open();
        scene.Select("massive");
        scene.Press("cmdTest");
        QCOMPARE(scene.Outcome(), QStringLiteral("4 of 4 questions failed."));
        QVERIFY2(
            scene.Result().startsWith(QStringLiteral("quotes: bad key: Unknown API Key\n    asked: http://")),
            qPrintable(scene.Result()));
        QVERIFY(scene.Result().contains(QStringLiteral("reply: {\"status\":\"ERROR\"")));
        QVERIFY(scene.IsEnabled("cmdApply"));
    }

    void aKeyThatIsStillInItsFieldIsTriedAndKept() {
        SourcesScene scene;
        scene.Open();
        scene.Select("tiingo");
        scene.EnterKey("a-token");
        scene.Press("cmdTest");
        QCOMPARE(scene.Read("Keys.ini"), std::string("tiingo=a-token\r\n"));
        QCOMPARE(scene.Outcome(), QStringLiteral("Tiingo answered."));
    }

    void termsAreAskedOnceBeforeTheFirstUse() {
        SourcesScene scene;
        scene.Open();
        scene.Select("yahoo");
        const auto answer = [&](QMessageBox::StandardButton button) {
            QString asked;
            DialogHand hand([&](QDialog& dialog) {
                if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                    asked = box->text();
                    PressButton(dialog, button);
                }
            });
            scene.Press("cmdTest");
            return asked;
        };
        const QString asked = answer(QMessageBox::No);
        QVERIFY2(asked.startsWith(QStringLiteral("Yahoo's terms allow neither")), qPrintable(asked));
        QVERIFY(scene.Result().isEmpty());
        QVERIFY(scene.Outcome().startsWith(QStringLiteral("Yahoo was not asked")));
        QVERIFY(!answer(QMessageBox::Yes).isEmpty());
        QCOMPARE(scene.Outcome(), QStringLiteral("Yahoo answered."));
        QVERIFY(answer(QMessageBox::No).isEmpty());
        QCOMPARE(scene.Outcome(), QStringLiteral("Yahoo answered."));
    }

    void whoIsAskedIsKeptByApplyAlone() {
        SourcesScene scene;
        scene.Open();
        scene.Select("massive");
        scene.Press("cmdUse");
        scene.ChooseIn("cboFundamentals", "sec");
        scene.ChooseIn("cboFallback", "tiingo");
        QCOMPARE(scene.Read("VTRSRCset.ini"), std::string());
        scene.Press("cmdApply");
        QCOMPARE(
            scene.Read("VTRSRCset.ini"),
            std::string(
                "\"massive\"\r\n\"massive\"\r\n\"massive\"\r\n\"sec\"\r\n\"massive\"\r\n\"tiingo\"\r\n"));
        QCOMPARE(scene.Row("Massive").at(3), QStringLiteral("quotes, history, splits, symbols"));
        QCOMPARE(scene.Row("Tiingo").at(3), QStringLiteral("unknown tickers"));
        QCOMPARE(scene.Outcome(), QStringLiteral("The choice is kept."));
    }

    void aSourceWhoseTermsAreRefusedIsNotChosen() {
        SourcesScene scene;
        scene.Open();
        scene.ChooseIn("cboFallback", "yahoo");
        DialogHand hand([](QDialog& dialog) { PressButton(dialog, QMessageBox::No); });
        scene.Press("cmdApply");
        QCOMPARE(scene.Read("VTRSRCset.ini"), std::string());
        QCOMPARE(scene.Outcome(), QStringLiteral("Nothing was kept: the terms of Yahoo were not agreed to."));
    }

    void aChoiceOfASourceThatIsGoneIsShownAndStays() {
        SourcesScene scene;
        SourceChoices choices;
        choices.For(Capability::Quotes) = "gone";
        scene.Choose(choices);
        scene.Open();
        QCOMPARE(Part<QComboBox>(scene.window, "cboQuotes")->currentText(),
                 QStringLiteral("gone (not known here)"));
        scene.Press("cmdApply");
        QVERIFY(scene.Read("VTRSRCset.ini").starts_with("\"gone\"\r\n"));
    }

    void aCopyIsMadeUnderAFreeNameAndOpenedForEditing() {
        SourcesScene scene;
        scene.Open();
        scene.Select("massive");
        QVERIFY(!scene.IsEnabled("cmdEdit"));
        const auto copyAs = [&](const char* name) {
            QStringList said;
            DialogHand hand([&](QDialog& dialog) {
                if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                    said << box->text();
                    return PressButton(dialog, QMessageBox::Ok);
                }
                if (auto* question = qobject_cast<QInputDialog*>(&dialog)) {
                    question->setTextValue(QString::fromLatin1(name));
                    return question->accept();
                }
                dialog.reject();
            });
            scene.Press("cmdCopy");
            return said.join(QLatin1Char('|'));
        };
        QCOMPARE(copyAs("My Source"),
                 QStringLiteral("a source's name has small letters, digits and hyphens, at most 40 of them"));
        QCOMPARE(copyAs("my-source"), QString());
        QVERIFY(!scene.Read("Sources/my-source.json").empty());
        QCOMPARE(scene.Row("Massive (my-source)").at(4), QStringLiteral("needs its key"));
        QVERIFY(scene.IsEnabled("cmdEdit"));
        auto* editor = scene.window->findChild<TextEditor*>();
        QVERIFY(editor && editor->windowTitle().contains(QStringLiteral("my-source.json")));
    }

    void aDefinitionThatDoesNotFitIsListedWithPlaceAndReason() {
        SourcesScene scene;
        std::filesystem::create_directories(scene.session.DataFile("Sources"));
        scene.Write("Sources/bad.json", "{\"name\": \"bad\", \"title\": \"Bad\"}");
        scene.Write("Sources/worse.json", "{");
        scene.Open();
        QCOMPARE(scene.Row("Data/Sources/bad.json").value(4), QStringLiteral("refused"));
        auto* list = Part<QTreeWidget>(scene.window, "lstSources");
        list->setCurrentItem(
            list->findItems(QStringLiteral("Data/Sources/bad.json"), Qt::MatchExactly).constFirst());
        const QString told = Part<QLabel>(scene.window, "lblTerms")->text();
        QVERIFY2(told.startsWith(QStringLiteral("This definition does not fit: Data/Sources/bad.json: /")),
                 qPrintable(told));
        QVERIFY(!scene.IsEnabled("cmdTest"));
        QVERIFY(scene.IsEnabled("cmdEdit"));
        scene.Press("cmdEdit");
        QVERIFY(scene.window->findChild<TextEditor*>());
    }

    void theSettingsDialogLeadsThere() {
        SourcesScene scene;
        scene.frame->Commands().Entry("mnuSettingsApplication")->trigger();
        auto* settings = scene.frame->findChild<frmApplicationSettings*>();
        QVERIFY(settings);
        Part<QPushButton>(settings, "CommandSources")->click();
        QVERIFY(settings->findChild<frmSources*>());
    }
};

WINDOW_TEST(SourceWindowTest)
#include "source_window_test.moc"
