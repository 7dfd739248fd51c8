// A settings file that is there and cannot be read: the start says so, and what goes by it is refused until
// it can be read. A folder in a file's place cannot be read by anybody.
#include <QLabel>

#include "shell/frame/run_settings.h"
#include "shell/frame/windows/update_commands.h"
#include "store/windows/frmQuoteGrid.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

class SpoiltProgram : public Program {
  public:
    explicit SpoiltProgram(const char* name) : name_(name) {
        Write("Evaluations.dbe", "Ticker Symbol\tCondition 1\r\nT1\tBuy\r\n");
        std::filesystem::remove(session.DataFile(name));
        std::filesystem::create_directories(session.DataFile(name));
        Start("Jan.ddq");
    }
    QString Sentence() const {
        return Shown(session.DataFile(name_).string() + ": cannot be read (Is a directory)");
    }
    void Mend() {
        std::filesystem::remove(session.DataFile(name_));
        Write(name_, "");
    }

  private:
    std::string name_;
};

}  // namespace

class UnreadableSettingsTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theStartTellsItWithoutABox() {
        SpoiltProgram program("VTRSELset.ini");
        QCOMPARE(program.Find<QLabel>("Panel1")->text(),
                 QStringLiteral(" %1. Runs that go by it are refused until it can be read")
                     .arg(program.Sentence()));
    }

    void nothingIsToldWhereAllCanBeRead() {
        Program program;
        program.Start("Jan.ddq");
        QVERIFY(!program.Find<QLabel>("Panel1")->text().contains(QStringLiteral("cannot be read")));
    }

    void aRunThatGoesByItIsRefusedAndWritesNothing() {
        SpoiltProgram program("VTRSELset.ini");
        const std::string before = program.Read("Evaluations.dbe");
        QCOMPARE(BoxesOf([&] { program.frame->Run("mnuEvaluatePickStocks"); }),
                 QStringList{program.Sentence()});
        QCOMPARE(program.Read("Evaluations.dbe"), before);
        QCOMPARE(program.session.CurrentFile, std::string("Jan.ddq"));
    }

    void everyCommandOfTheTableIsRefused() {
        for (const RunSettings& row : kRunSettings) {
            SpoiltProgram program("VTRDATAset.ini");
            QCOMPARE(BoxesOf([&] { program.frame->Run(row.command); }), QStringList{program.Sentence()});
            QVERIFY2(program.web.Addresses.empty(), std::string(row.command).c_str());
        }
    }

    void aFileThatWasMendedCountsAtOnce() {
        SpoiltProgram program("VTRSELset.ini");
        program.Mend();
        DialogHand hand([](QDialog& dialog) {
            QCOMPARE(dialog.objectName(), QStringLiteral("frmSelectorSelection"));
            dialog.reject();
        });
        program.frame->Run("mnuEvaluatePickStocks");
        QTRY_COMPARE_WITH_TIMEOUT(hand.seen, 1, kPatienceMs);
    }
};

WINDOW_TEST(UnreadableSettingsTest)
#include "unreadable_settings_test.moc"
