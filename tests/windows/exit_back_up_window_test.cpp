// The back-up at the end of the program.
#include <QProgressBar>

#include "window_fixture.h"

using namespace brantlow;

namespace {

// A frame whose settings have a back-up of both kinds.
class BackUpProgram : public Program {
  public:
    BackUpProgram(const std::string& frequency, const std::string& last,
                  const std::string& applicationSwitch = "True", const std::string& databaseFolder = "") {
        const std::string database = databaseFolder.empty() ? Target("Quotes").string() : databaseFolder;
        const std::string lines[] = {frequency,
                                     applicationSwitch,
                                     Target("Data").string(),
                                     "True",
                                     database,
                                     "10",
                                     "",
                                     "",
                                     "None",
                                     "",
                                     "",
                                     "",
                                     last};
        std::string data;
        for (const std::string& line : lines) data += "\"" + line + "\"\r\n";
        Write("VTRDATAset.ini", data);
        if (WriteWholeFile(session.AppPath / "Quotes" / "EOD" / "T1.26", "history")) qFatal("no history");
        std::filesystem::create_directories(session.AppPath / "Back Up");
        Start("Jan.ddq");
    }

    Path Target(const std::string& name) { return session.AppPath / "Back Up" / name; }
    bool HasCopied(const std::string& name) { return IsRegularFile(session.AppPath / "Back Up" / name); }
};

}  // namespace

class ExitBackUpWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aWeekAfterTheLastOneBothFoldersAreCopied() {
        BackUpProgram program("Weekly", "03/02/26");
        program.frame->Run("mnuFileExit");
        QVERIFY(!program.frame->isVisible());
        QVERIFY(program.HasCopied("Data/Jan.ddq"));
        QVERIFY(program.HasCopied("Quotes/T1.26"));
        QVERIFY2(program.Read("VTRDATAset.ini").find("\r\n#2026-03-09#\r\n") != std::string::npos,
                 program.Read("VTRDATAset.ini").c_str());
    }

    void sixDaysAfterTheLastOneNothingIsCopied() {
        BackUpProgram program("Weekly", "03/03/26");
        const std::string before = program.Read("VTRDATAset.ini");
        program.frame->close();
        QVERIFY(!program.HasCopied("Data/Jan.ddq"));
        QVERIFY(!program.HasCopied("Quotes/T1.26"));
        QCOMPARE(program.Read("VTRDATAset.ini"), before);
    }

    void manuallyNothingIsCopied() {
        BackUpProgram program("Manually", "01/01/20");
        program.frame->close();
        QVERIFY(!program.HasCopied("Data/Jan.ddq"));
    }

    void monthlyTakesThirtyDays() {
        {
            BackUpProgram program("Monthly", "02/08/26");
            program.frame->close();
            QVERIFY(!program.HasCopied("Data/Jan.ddq"));
        }
        BackUpProgram program("Monthly", "02/07/26");
        program.frame->close();
        QVERIFY(program.HasCopied("Data/Jan.ddq"));
    }

    void onlyTheDatabaseIsCopiedWhereOnlyItIsChosenAndTheDateIsWrittenStill() {
        BackUpProgram program("Weekly", "03/02/26", "False");
        const std::string before = program.Read("VTRDATAset.ini");
        program.frame->close();
        QVERIFY(!program.HasCopied("Data/Jan.ddq"));
        QVERIFY(program.HasCopied("Quotes/T1.26"));
        QVERIFY(program.Read("VTRDATAset.ini") != before);
    }

    void aFolderOnAMissingDriveFailsQuietlyAndTheDateIsWritten() {
        BackUpProgram program("Weekly", "03/02/26", "False", "/no such drive/folder");
        const std::string before = program.Read("VTRDATAset.ini");
        QCOMPARE(BoxesOf([&] { program.frame->close(); }), QStringList());
        QVERIFY(!program.frame->isVisible());
        QVERIFY(program.Read("VTRDATAset.ini") != before);
    }

    void theProgressBarTellsOfIt() {
        BackUpProgram program("Weekly", "03/02/26");
        bool shown = false;
        int value = 0;
        auto* bar = program.Find<QProgressBar>("ProgressBar1");
        QObject::connect(bar, &QProgressBar::valueChanged, bar, [&](int now) {
            shown = shown || bar->isVisible();
            value = std::max(value, now);
        });
        program.frame->close();
        QVERIFY(shown);
        QVERIFY(value >= 50);
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
    }

    void withNothingOpenItRunsToo() {
        BackUpProgram program("Weekly", "03/02/26");
        program.frame->Run("mnuFileClose");
        program.frame->close();
        QVERIFY(program.HasCopied("Data/Jan.ddq"));
    }
};

WINDOW_TEST(ExitBackUpWindowTest)
#include "exit_back_up_window_test.moc"
