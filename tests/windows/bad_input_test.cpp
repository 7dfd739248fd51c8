// What a person or a machine can do to the files under an open program: settings rewritten by hand, a table
// moved away, folders that cannot be written, a disk that is full.
#include <sys/resource.h>

#include <QAction>
#include <QMdiSubWindow>
#include <QPushButton>
#include <csignal>

#include "catalogue_scene.h"
#include "shell/frame/windows/frmEnable.h"

using namespace brantlow;

namespace {

// No file can grow while it lives, as on a disk that is full.
class FullDisk {
  public:
    FullDisk() {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit none{0, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
};

std::string Lines(const std::string& line, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += line + "\r\n";
    return text;
}

// What a hand or a bad disk leaves in a settings file.
struct Junk {
    const char* name;
    std::string bytes;
};
const std::vector<Junk>& Junks() {
    static const std::vector<Junk> junks = {
        {"empty", ""},
        {"numbers", Lines("-17.5\r\n1e999", 30)},
        {"words", Lines("\"words, and more\"\r\nTrue #NULL# 12abc", 30)},
        {"a quote left open", "\"Yahoo\r\n\"\"\"\r\n\"" + std::string(4000, 'x')},
        {"bytes", std::string("\0\xff\xfe\r\0\n\"\0\"\r\n", 12) + std::string(300, '\xe4')},
        {"too many lines", Lines("\"x\"", 19000)},
    };
    return junks;
}

}  // namespace

class BadInputTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { std::signal(SIGXFSZ, SIG_IGN); }

    void settingsRewrittenByHandAreLivedWith_data() {
        QTest::addColumn<int>("file");
        QTest::addColumn<int>("junk");
        for (std::size_t file = 0; file < kSettingsFiles.size(); ++file) {
            for (std::size_t junk = 0; junk < Junks().size(); ++junk) {
                const QString name = Name(kSettingsFiles[file].fileName) + QStringLiteral(": ") +
                                     QString::fromLatin1(Junks()[junk].name);
                QTest::newRow(qPrintable(name)) << static_cast<int>(file) << static_cast<int>(junk);
            }
        }
    }
    // The program starts; a table opens and is kept as it was; charts, settings and the selector's conditions
    // open.
    void settingsRewrittenByHandAreLivedWith() {
        QFETCH(int, file);
        QFETCH(int, junk);
        SceneProgram program;
        const std::string name(kSettingsFiles[static_cast<std::size_t>(file)].fileName);
        program.Choose("mnuFileSave");
        const std::string saved = program.Read("Jan.ddq");
        program.frame->close();
        program.Write(name, Junks()[static_cast<std::size_t>(junk)].bytes);
        QStringList seen = program.SeenBy([&] { program.frame->Load(); });
        QVERIFY(program.frame->isVisible());
        program.Open("Jan.ddq");
        QVERIFY(program.frame->QuoteForm());
        QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), std::size_t{3});
        for (const char* entry : {"mnuSettingsApplication", "mnuSettingsStockSelector",
                                  "mnuEvaluatePickStocks", "mnuFilePopulate", "SetupWizard"}) {
            seen = program.SeenBy([&] { program.Choose(entry); });
            QVERIFY2(seen.value(0).startsWith(QStringLiteral("dialog ")), entry);
        }
        program.SeenBy([&] { program.Choose("mnuGraphicsHLC"); });
        QVERIFY(program.frame->GraphForm());
        program.Choose("mnuFileClose");
        QCOMPARE(program.SeenBy([&] { program.Choose("mnuFileSave"); }).value(0),
                 QStringLiteral("~Data/Jan.ddq"));
        QCOMPARE(program.Read("Jan.ddq"), saved);
    }

    // The open table is what the window holds; its file comes back under the name that it was opened by.
    void aTableThatIsRenamedOrDeletedWhileItIsOpenIsSavedAnew() {
        for (const bool renamed : {true, false}) {
            for (const char* entry : {"mnuFileSave", "mnuFileUpdateQuotes"}) {
                SceneProgram program;
                const Path file = program.session.DataFile("Jan.ddq");
                if (renamed) {
                    std::filesystem::rename(file, program.session.DataFile("Moved.ddq"));
                } else {
                    std::filesystem::remove(file);
                }
                const QStringList seen = program.SeenBy([&] { program.Choose(entry); });
                QVERIFY2(seen.contains(QStringLiteral("+Data/Jan.ddq")), entry);
                QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Jan.ddq"));
                if (renamed) QCOMPARE(program.Read("Moved.ddq"), Program::QuoteTableText(3));
            }
        }
    }

    void aTableThatIsGoneClosesAndIsToldWhenItIsOpenedAgain() {
        SceneProgram program;
        std::filesystem::remove(program.session.DataFile("Jan.ddq"));
        QCOMPARE(program.SeenBy([&] { program.Choose("mnuFileClose"); }).join(u'\n'),
                 QStringLiteral("-first T1\n-frmQuoteGrid Jan.ddq\n~Data/VTRMRUset.ini"));
        const QStringList seen = program.SeenBy([&] { program.Find<QAction>("mnuFileMRU1")->trigger(); });
        QCOMPARE(seen.size(), 1);
        QVERIFY2(seen[0].startsWith(QStringLiteral("says Jan.ddq: ")), qPrintable(seen[0]));
        QVERIFY(!program.frame->QuoteForm());
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
    }

    void aFullDiskLeavesTheOldTableAndIsTold() {
        SceneProgram program;
        program.SeenBy([&] { program.Choose("SortDescending"); });
        QStringList seen;
        {
            const FullDisk full;
            seen = program.SeenBy([&] { program.Choose("mnuFileSave"); });
        }
        QCOMPARE(seen.join(u'\n'), QStringLiteral("says Jan.ddq: cannot be saved (File too large)"));
        QCOMPARE(program.Read("Jan.ddq"), Program::QuoteTableText(3));
        QCOMPARE(program.frame->QuoteForm()->Table().Ticker(1), std::string("T3"));
        // With room again the same table is saved.
        program.SeenBy([&] { program.Choose("mnuFileSave"); });
        QVERIFY(program.Read("Jan.ddq").find("T3") < program.Read("Jan.ddq").find("T1"));
    }

    void aFullDiskEndsEveryCommandThatWritesWithASentence() {
        const std::pair<const char*, const char*> rows[] = {
            {"mnuFileSave", "says Jan.ddq: cannot be saved (File too large)"},
            {"mnuFileUpdateQuotes", "says APP/Temp.txt: cannot be saved (File too large)"},
            {"mnuFileExportQuotes", "says APP/Data/Out.Txt: cannot be saved (File too large)"},
            {"mnuEvaluatePickStocks",
             "says Stock Selector failed: APP/Data/Evaluations.dbe: cannot be saved (File too large); "
             "nothing was "
             "changed"},
            {"mnuExtendedFundamentals",
             "says Extended Fundamentals failed: APP/Data/ExtendedFundamentals.efq: cannot be saved (File "
             "too large); "
             "nothing was changed"},
            {"mnuEditBackUpQuoteDatabase",
             "says Copying 2 files to APP/KeptQuotes failed: APP/KeptQuotes/QuoteList.ddq: cannot be saved "
             "(File too "
             "large)"},
        };
        QStringList missed;
        for (const auto& [entry, sentence] : rows) {
            SceneProgram program;
            QStringList seen;
            {
                const FullDisk full;
                seen = program.SeenBy([&] { program.Choose(entry); });
            }
            if (!seen.contains(QString::fromLatin1(sentence))) missed << QString::fromLatin1(entry) << seen;
            QCOMPARE(program.Read("Jan.ddq"), Program::QuoteTableText(3));
            QVERIFY2(program.frame->isEnabled(), entry);
            QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        }
        QVERIFY2(missed.isEmpty(), qPrintable(missed.join(u'\n')));
    }

    // A folder stands where the file belongs: no user, root included, can write it.
    void whatCannotBeWrittenAtTheEndIsToldAndTheFrameGoes() {
        SceneProgram program;
        std::filesystem::remove(program.session.DataFile("VTRMRUset.ini"));
        std::filesystem::create_directories(program.session.DataFile("VTRMRUset.ini") / "in the way");
        const QStringList seen = program.SeenBy([&] { program.Choose("mnuFileExit"); });
        QVERIFY2(seen.value(0).startsWith(QStringLiteral("says VTRMRUset.ini: cannot be saved (")),
                 qPrintable(seen.join(u'\n')));
        QVERIFY(!program.frame->isVisible());
    }

    void aDataFolderThatIsTakenAwayIsToldAndTheTableStays() {
        SceneProgram program;
        program.Choose("mnuFileSave");
        const std::string saved = program.Read("Jan.ddq");
        std::filesystem::rename(program.session.DataFolder(), program.folder / "elsewhere");
        const QStringList seen = program.SeenBy([&] { program.Choose("mnuFileSave"); });
        QCOMPARE(seen.value(0), QStringLiteral("says Jan.ddq: cannot be saved (No such file or directory)"));
        QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), std::size_t{3});
        std::filesystem::rename(program.folder / "elsewhere", program.session.DataFolder());
        program.SeenBy([&] { program.Choose("mnuFileSave"); });
        QCOMPARE(program.Read("Jan.ddq"), saved);
    }

    void aMissingBackUpFolderIsMadeOrToldAbout() {
        SceneProgram program;
        for (const char* folder : {"Kept", "KeptQuotes"})
            std::filesystem::remove_all(program.session.AppPath / folder);
        QCOMPARE(program.SeenBy([&] { program.Choose("mnuEditRestoreProgramFiles"); }).value(1),
                 QStringLiteral("says There are no files in APP/Kept."));
        QCOMPARE(program.SeenBy([&] { program.Choose("mnuEditRestoreQuoteDatabase"); }).value(1),
                 QStringLiteral("says There are no files in APP/KeptQuotes."));
        program.SeenBy([&] { program.Choose("mnuEditBackUpQuoteDatabase"); });
        QVERIFY(IsRegularFile(program.session.AppPath / "KeptQuotes/T1.26"));
        // A file stands where the folder belongs.
        if (WriteWholeFile(program.session.AppPath / "Kept", "a file")) qFatal("no file");
        const QStringList seen = program.SeenBy([&] { program.Choose("mnuEditBackUpProgramFiles"); });
        QVERIFY2(seen.value(1).contains(QStringLiteral(" to APP/Kept failed: ")),
                 qPrintable(seen.join(u'\n')));
        QCOMPARE(BytesOrEmpty(program.session.AppPath / "Kept"), std::string("a file"));
    }

    // The other runs have their like beside their own tests.
    void closingTheFrameInMidPopulateKeepsWhatCameAndGoes() {
        SceneProgram program;
        int asked = 0;
        program.web.AnswerWith([&](const WebRequest&) {
            program.person.PumpEvents();
            if (++asked == 1) program.frame->close();
            return MemoryWeb::Page("Date,Open,High,Low,Close,Volume,Adj\n2026-03-06,10,12,9,11,500,11\n");
        });
        program.Choose("mnuFilePopulate");
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        dialog->findChild<QAbstractButton*>(QStringLiteral("Option1"))->click();
        dialog->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        QTRY_VERIFY_WITH_TIMEOUT(!program.frame->isVisible(), kPatienceMs);
        QVERIFY(!program.frame->findChild<frmEnable*>());
        QVERIFY(BytesOrEmpty(program.session.AppPath / "Quotes/EOD/T1.26").find("03/06/26") !=
                std::string::npos);
        QVERIFY(!IsRegularFile(program.session.AppPath / "Quotes/EOD/T3.26"));
    }
};

WINDOW_TEST(BadInputTest)
#include "bad_input_test.moc"
