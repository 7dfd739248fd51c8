// The setup wizard at its window: the six forms, what Next writes on each, and that Back writes nothing.
#include "screens/windows/frmSetupWizard.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>

#include "acquire/schedule/windows/frmSchedule.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

constexpr const char* kNet = "VTRNETset.ini";
constexpr const char* kLang = "VTRLANGset.ini";
constexpr const char* kData = "VTRDATAset.ini";

const std::string kNetText =
    "\"NASDAQ\"\r\n\"\"\r\n\"User Selected "
    "String\"\r\nhttp://q.example/\r\nhttp://h.example/\r\n15\r\n0\r\n0\r\n"
    "\"01/02/04\"\r\n\"Comma\"\r\n\"StartEOD\"\r\n\"Last Price\"\r\n\"EndEOD\"\r\n\"StartH\"\r\n"
    "\"Trade Date\"\r\n\"EndH\"\r\n";
const std::string kDataText =
    "\"Weekly\"\r\n\"True\"\r\n\"Back\"\r\n\"False\"\r\n\"Back2\"\r\n10\r\n\"Automatic Save\"\r\n"
    "\"Manual Save\"\r\n\"None\"\r\n\"\"\r\n\"\"\r\n\"Manual Updates\"\r\n#2004-01-02#\r\n\"None\"\r\n"
    "\"\"\r\n\"Manual\"\r\n\"False\"\r\n\"Quotes\\EOD\"\r\n\"Automatic\"\r\n";

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    if (at == std::string::npos) qFatal("nothing to replace: %s", from.c_str());
    return text.replace(at, from.size(), to);
}

// The step whose head the window shows, from 1; 0 for none.
std::size_t StepOf(const frmSetupWizard& wizard) {
    const QString head = wizard.findChild<QLabel*>(QStringLiteral("Head"))->text();
    for (std::size_t step = 1; step <= kWizardSteps.size(); ++step) {
        if (head == Name(kWizardSteps[step - 1].head)) return step;
    }
    return 0;
}

// A frame over these settings, and a wizard on it that asks nobody for a schedule.
class WizardProgram : public Program {
  public:
    explicit WizardProgram(const std::string& data = kDataText) {
        Write(kNet, kNetText);
        Write(kData, data);
        Start("Jan.ddq");
        wizard = std::make_unique<frmSetupWizard>(session, hosts, frame.get());
        wizard->open();
        QCoreApplication::processEvents();
    }

    std::size_t Step() { return StepOf(*wizard); }
    template <class Widget>
    Widget* Part(const char* name) {
        auto* found = wizard->findChild<Widget*>(QString::fromLatin1(name));
        if (!found) qFatal("no %s", name);
        return found;
    }
    void Press(const char* button) {
        auto* found = Part<QPushButton>(button);
        QVERIFY2(found->isVisible(), button);
        QTest::mouseClick(found, Qt::LeftButton);
    }
    void GoTo(std::size_t step) {
        while (Step() < step) Press("cmdNext");
        QCOMPARE(Step(), step);
    }
    QString Texts() {
        QStringList texts;
        for (const QLabel* label : wizard->findChildren<QLabel*>()) texts << label->text();
        return texts.join(QLatin1Char('\n'));
    }
    std::string Everything() { return Read(kNet) + Read(kLang) + Read(kData); }

    std::unique_ptr<frmSetupWizard> wizard;
};

}  // namespace

class SetupWizardTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theHelpMenuOpensTheFirstStep() {
        Program program;
        program.Start("Jan.ddq");
        program.frame->Commands().Entry("SetupWizard")->trigger();
        auto* wizard = program.frame->findChild<frmSetupWizard*>();
        QVERIFY(wizard && wizard->isVisible());
        QCOMPARE(wizard->windowTitle(), QStringLiteral("Cadrel' Setup Wizard"));
        QCOMPARE(StepOf(*wizard), std::size_t{1});
        wizard->findChild<QPushButton*>(QStringLiteral("cmdCancel"))->click();
        QVERIFY(!wizard->isVisible());
    }

    void everyStepHasItsHeadAndItsButtons() {
        WizardProgram program;
        for (std::size_t step = 1; step <= 6; ++step) {
            QCOMPARE(program.Step(), step);
            QVERIFY(program.Part<QWidget>(("frmSetupWizard" + std::to_string(step)).c_str())->isVisible());
            QCOMPARE(program.Part<QLabel>("Head")->text(), Name(kWizardSteps[step - 1].head));
            QVERIFY(program.Texts().contains(QStringLiteral("Brantlow Setup Wizard")));
            QCOMPARE(program.Part<QPushButton>("cmdBack")->isVisible(), step > 1);
            QCOMPARE(program.Part<QPushButton>("cmdNext")->isVisible(), step < 6);
            QCOMPARE(program.Part<QPushButton>("cmdFinish")->isVisible(), step == 6);
            if (step < 6) program.Press("cmdNext");
        }
        QCOMPARE(program.Part<QPushButton>("cmdBack")->text().remove(QLatin1Char('&')),
                 QStringLiteral("<<Back"));
        QCOMPARE(program.Part<QPushButton>("cmdNext")->text().remove(QLatin1Char('&')),
                 QStringLiteral("Next>>"));
        QCOMPARE(program.Part<QPushButton>("cmdFinish")->text().remove(QLatin1Char('&')),
                 QStringLiteral("Finish"));
        program.Press("cmdFinish");
        QVERIFY(!program.wizard->isVisible());
    }

    void theFormsHaveTheirTexts() {
        const char* const texts[][6] = {
            {"Welcome to Brantlow Setup Wizard",
             "Brantlow may be set up to be totally automated, so that it will do everything except placing "
             "the trade.",
             "POPULATE DATABASE", "18,000 stocks", "Buy, Sell, or Hold"},
            {"Quotes may be collected by one of two ways: (1) Accessing quote data from the internet, or (2) "
             "Importing a file.",
             "only addresses the first", "\"Yahoo\" requires no additional setup", "\"User Selected\" does"},
            {"market"},
            {"Would you like to set up or use a centralized quote database on your local area network?"},
            {"keep the end of day quote database current and up to date", "select Yes and the time",
             "Monday through Friday", "approximately 5 minutes earlier than the time entered",
             "the most recently used quote file is opened and updated"},
            {"basic setup is complete", "build (populate) the quote database as soon as possible",
             "\"Settings\""},
        };
        WizardProgram program;
        for (std::size_t step = 1; step <= 6; ++step) {
            for (const char* text : texts[step - 1]) {
                if (text) QVERIFY2(program.Texts().contains(QString::fromLatin1(text)), text);
            }
            if (step < 6) program.Press("cmdNext");
        }
    }

    void stepTwoShowsAndWritesTheSupplier() {
        WizardProgram program;
        program.GoTo(2);
        QCOMPARE(program.wizard->findChild<QGroupBox*>()->title(), QStringLiteral("Quote Downloads:"));
        QCOMPARE(program.Part<QRadioButton>("Option7")->text(), QStringLiteral("Yahoo"));
        QCOMPARE(program.Part<QRadioButton>("Option8")->text(), QStringLiteral("User Selected"));
        QVERIFY(program.Part<QRadioButton>("Option8")->isChecked());
        program.Part<QRadioButton>("Option7")->click();
        QCOMPARE(program.Read(kNet), kNetText);
        program.Press("cmdNext");
        QCOMPARE(program.Read(kNet), Replaced(kNetText, "\"User Selected String\"", "\"Yahoo\""));
        QCOMPARE(program.session.settings.NetSettings.Text(3), std::string("Yahoo"));
        program.Press("cmdBack");
        QVERIFY(program.Part<QRadioButton>("Option7")->isChecked());
        program.Part<QRadioButton>("Option8")->click();
        program.Press("cmdNext");
        QCOMPARE(program.Read(kNet), kNetText);
    }

    void stepTwoOffersTheLiveSourcesBesideItsOptions() {
        WizardProgram program;
        program.GoTo(2);
        auto* list = program.Part<QComboBox>("cboSource");
        QCOMPARE(list->currentText(), QStringLiteral("None, as chosen above"));
        list->setCurrentIndex(list->findData(QStringLiteral("massive")));
        QVERIFY(program.Part<QLabel>("lblCardTerms")->text().startsWith(QStringLiteral("For your own use")));
        const QStringList told = BoxesOf([&] { program.Press("cmdNext"); });
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().startsWith(QStringLiteral("Massive needs a key: ")),
                 qPrintable(told.constFirst()));
        QCOMPARE(program.Step(), std::size_t{2});
        QCOMPARE(program.Read("VTRSRCset.ini"), std::string());
        program.Part<QLineEdit>("txtKey")->setText(QStringLiteral("a-key"));
        program.Press("cmdNext");
        QCOMPARE(program.Step(), std::size_t{3});
        QCOMPARE(program.Read("Keys.ini"), std::string("massive=a-key\r\n"));
        const std::string chosen = "\"massive\"\r\n\"massive\"\r\n\"massive\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n";
        QCOMPARE(program.Read("VTRSRCset.ini"), chosen);
        program.Press("cmdBack");
        list = program.Part<QComboBox>("cboSource");
        QCOMPARE(list->currentData().toString(), QStringLiteral("massive"));
        list->setCurrentIndex(0);
        program.Press("cmdNext");
        QVERIFY(program.Read("VTRSRCset.ini").starts_with("\"\"\r\n\"\"\r\n"));
    }

    void everySourceHasRoomOnTheSecondStep() {
        WizardProgram program;
        program.wizard->show();
        program.GoTo(2);
        auto* form = program.Part<QWidget>("frmSetupWizard2");
        auto* list = program.Part<QComboBox>("cboSource");
        for (int i = 0; i < list->count(); ++i) {
            list->setCurrentIndex(i);
            QCoreApplication::processEvents();
            QVERIFY2(form->layout()->totalHeightForWidth(form->width()) <= form->height(),
                     qPrintable(list->currentText()));
        }
    }

    void aWayToAFirstTableKeepsTheStepAndLeavesTheWizard() {
        WizardProgram program;
        program.GoTo(2);
        QSignalSpy begun(program.wizard.get(), &frmSetupWizard::BeginAsked);
        auto* list = program.Part<QComboBox>("cboSource");
        list->setCurrentIndex(list->findData(QStringLiteral("massive")));
        const QStringList told = BoxesOf([&] {
            program.Press("cmdWayPractice");
            QCoreApplication::processEvents();
        });
        QCOMPARE(told.size(), 1);
        QCOMPARE(begun.size(), 0);
        QCOMPARE(program.Step(), std::size_t{2});
        program.Part<QLineEdit>("txtKey")->setText(QStringLiteral("a-key"));
        program.Press("cmdWayPractice");
        QCoreApplication::processEvents();
        QCOMPARE(begun.size(), 1);
        QVERIFY(!program.wizard->isVisible());
        QCOMPARE(program.Read("Keys.ini"), std::string("massive=a-key\r\n"));
        QVERIFY(program.Read("VTRSRCset.ini").starts_with("\"massive\"\r\n"));
    }

    void backWritesNothing() {
        WizardProgram program;
        program.GoTo(2);
        program.Part<QRadioButton>("Option7")->click();
        program.Press("cmdBack");
        QCOMPARE(program.Read(kNet), kNetText);
        program.GoTo(5);
        const std::string before = program.Everything();
        program.Part<QCheckBox>("Check1")->click();
        program.Part<QComboBox>("Combo4")->setCurrentIndex(3);
        program.Part<QComboBox>("Combo5")->setCurrentIndex(3);
        program.Press("cmdBack");
        QCOMPARE(program.Step(), std::size_t{4});
        QCOMPARE(program.Everything(), before);
        QCOMPARE(program.session.settings.DataSettings.Text(9), std::string("None"));
        program.Press("cmdNext");
        QVERIFY(program.Part<QCheckBox>("Check2")->isChecked());
    }

    void stepThreeShowsAndWritesMarketAndContent() {
        WizardProgram program;
        program.GoTo(3);
        QVERIFY(program.Part<QRadioButton>("Option70")->isChecked());
        QVERIFY(program.Part<QRadioButton>("Option22")->isChecked());
        for (const MarketRow& market : kMarkets) {
            auto* option = program.Part<QRadioButton>(std::string(market.control).c_str());
            QCOMPARE(option->text(), Name(market.name));
            option->click();
            program.Part<QRadioButton>("Option1")->click();
            program.Press("cmdNext");
            QCOMPARE(program.Read(kLang), "\"" + std::string(market.builtIn) + "\"\r\n");
            QCOMPARE(program.Read(kNet), Replaced(kNetText, "\"NASDAQ\"", "\"Yahoo\""));
            QCOMPARE(program.session.settings.QuoteHost, std::string(market.builtIn));
            program.Press("cmdBack");
            QVERIFY(program.Part<QRadioButton>(std::string(market.control).c_str())->isChecked());
        }
    }

    void stepFourWritesTheLocation() {
        WizardProgram program;
        program.GoTo(4);
        QVERIFY(program.Part<QRadioButton>("Option2")->isChecked());
        QVERIFY(!program.Part<QLineEdit>("Text4")->isEnabled());
        program.Part<QRadioButton>("Option1")->click();
        auto* location = program.Part<QLineEdit>("Text4");
        QVERIFY(location->isEnabled());
        location->clear();
        QTest::keyClicks(location, QStringLiteral("/lan/quotes"));
        program.Press("cmdNext");
        QCOMPARE(program.Read(kData),
                 Replaced(kDataText, "\"False\"\r\n\"Quotes\\EOD\"", "\"True\"\r\n\"/lan/quotes\""));
        QCOMPARE(program.session.settings.QuoteFolder, std::string("/lan/quotes/"));
        program.Press("cmdBack");
        QVERIFY(program.Part<QRadioButton>("Option1")->isChecked());
        QCOMPARE(program.Part<QLineEdit>("Text4")->text(), QStringLiteral("/lan/quotes"));
        program.Part<QRadioButton>("Option2")->click();
        program.Press("cmdNext");
        const std::string own = (program.session.AppPath / "Quotes/EOD").string();
        QCOMPARE(program.Read(kData), Replaced(kDataText, "Quotes\\EOD", own));
        QCOMPARE(program.session.settings.QuoteFolder, own + "/");
    }

    void stepFourKeepsTheBytesOfTheLocation() {
        const std::string data =
            Replaced(kDataText, "\"False\"\r\n\"Quotes\\EOD\"", "\"True\"\r\n\"/l\xe4n\"");
        WizardProgram program(data);
        program.GoTo(5);
        QCOMPARE(program.Read(kData), data);
    }

    void stepFiveWantsATime() {
        WizardProgram program;
        program.GoTo(5);
        const std::string before = program.Everything();
        program.Part<QCheckBox>("Check1")->click();
        QVERIFY(!program.Part<QCheckBox>("Check2")->isChecked());
        const QString told = BoxesOf([&] { program.Press("cmdNext"); }).join(u'\n');
        QCOMPARE(told,
                 QStringLiteral("You must select a time. Please enter the time you want Brantlow to begin "
                                "collecting data."));
        QCOMPARE(program.Step(), std::size_t{5});
        QCOMPARE(program.Everything(), before);
    }

    void stepFiveTurnsTheRunOnOnceAndOff() {
        WizardProgram program;
        QSignalSpy scheduleAsked(program.wizard.get(), &frmSetupWizard::ScheduleAsked);
        program.GoTo(5);
        const std::string off = program.Read(kData);
        QCOMPARE(program.Part<QComboBox>("Combo4")->count(), 24);
        QCOMPARE(program.Part<QComboBox>("Combo4")->itemText(0), QStringLiteral("00"));
        QCOMPARE(program.Part<QComboBox>("Combo5")->itemText(59), QStringLiteral("59"));
        QVERIFY(!program.Part<QComboBox>("Combo4")->isEnabled());
        program.Part<QCheckBox>("Check1")->click();
        program.Part<QComboBox>("Combo4")->setCurrentText(QStringLiteral("09"));
        program.Part<QComboBox>("Combo5")->setCurrentText(QStringLiteral("30"));
        program.Press("cmdNext");
        QCOMPARE(program.Step(), std::size_t{6});
        QCOMPARE(scheduleAsked.count(), 1);
        const std::string on = Replaced(off, "\"None\"\r\n\"\"\r\n\"\"", "\"EOD\"\r\n\"09\"\r\n\"30\"");
        QCOMPARE(program.Read(kData), on);

        program.Press("cmdBack");
        QVERIFY(program.Part<QCheckBox>("Check1")->isChecked());
        QCOMPARE(program.Part<QComboBox>("Combo4")->currentText(), QStringLiteral("09"));
        QCOMPARE(program.Part<QComboBox>("Combo5")->currentText(), QStringLiteral("30"));
        program.Press("cmdNext");
        QCOMPARE(scheduleAsked.count(), 1);
        QCOMPARE(program.Read(kData), on);

        program.Press("cmdBack");
        program.Part<QCheckBox>("Check2")->click();
        QVERIFY(!program.Part<QCheckBox>("Check1")->isChecked());
        QVERIFY(!program.Part<QComboBox>("Combo4")->isEnabled());
        program.Press("cmdNext");
        QCOMPARE(scheduleAsked.count(), 1);
        QCOMPARE(program.Read(kData), off);
    }

    void theScheduleOpensOverTheWizard() {
        // Without the system's programs there is no schedule of this machine's to be seen or touched.
        qputenv("PATH", "");
        Program program;
        program.Write(kNet, kNetText);
        program.Write(kData, kDataText);
        program.Start("Jan.ddq");
        program.frame->Run("SetupWizard");
        auto* wizard = program.frame->findChild<frmSetupWizard*>();
        auto* next = wizard->findChild<QPushButton*>(QStringLiteral("cmdNext"));
        while (StepOf(*wizard) < 5) next->click();
        wizard->findChild<QCheckBox*>(QStringLiteral("Check1"))->click();
        wizard->findChild<QComboBox*>(QStringLiteral("Combo4"))->setCurrentText(QStringLiteral("17"));
        wizard->findChild<QComboBox*>(QStringLiteral("Combo5"))->setCurrentText(QStringLiteral("30"));
        next->click();
        auto* schedule = wizard->findChild<frmSchedule*>();
        QVERIFY(schedule && schedule->isVisible());
        QCOMPARE(schedule->Chosen().minute, 17 * 60 + 30);
        QCOMPARE(schedule->Chosen().days, kMondayToFriday);
        schedule->reject();
        QCOMPARE(StepOf(*wizard), std::size_t{6});
        QVERIFY(wizard->isVisible());
    }

    void leavingHalfWayKeepsWhatWasDone() {
        WizardProgram program;
        program.GoTo(2);
        program.Part<QRadioButton>("Option7")->click();
        program.Press("cmdNext");
        const std::string done = program.Everything();
        program.Part<QRadioButton>("Option75")->click();
        QTest::keyClick(program.wizard.get(), Qt::Key_Escape);
        QVERIFY(!program.wizard->isVisible());
        QCOMPARE(program.Everything(), done);
        QVERIFY(done.find("\"User Selected String\"") == std::string::npos);
    }

    void aFileThatCannotBeWrittenIsToldAndTheWizardGoesOn() {
        WizardProgram program;
        program.GoTo(2);
        std::filesystem::remove(program.session.DataFile(kNet));
        std::filesystem::create_directories(program.session.DataFile(kNet) / "in the way");
        const QString told = BoxesOf([&] { program.Press("cmdNext"); }).join(u'\n');
        QVERIFY2(told.startsWith(QStringLiteral("VTRNETset.ini: cannot be saved (")), qPrintable(told));
        QCOMPARE(program.Step(), std::size_t{3});
        QCOMPARE(program.session.settings.NetSettings.Text(3), std::string("User Selected String"));
    }
};

WINDOW_TEST(SetupWizardTest)
#include "frmSetupWizard_test.moc"
