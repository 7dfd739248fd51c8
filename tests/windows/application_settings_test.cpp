// The settings dialog at the windows: every control is clicked, and the file shows it.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QWheelEvent>
#include <set>

#include "acquire/schedule/windows/frmSchedule.h"
#include "screens/windows/folder_picker.h"
#include "screens/windows/frmApplicationSettings.h"
#include "screens/windows/settings_pages.h"
#include "store/windows/frmQuoteGrid.h"
#include "support/source_folder.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// A frame with the shipped settings, the table Jan.ddq and the dialog open.
class SettingsProgram : public Program {
  public:
    SettingsProgram() {
        for (const SettingsFileForm& form : kSettingsFiles) {
            const std::string name(form.fileName);
            Write(name, BytesOrEmpty(SourceFolder() / "assets/Data" / name));
        }
        Start("Jan.ddq");
        Open();
    }

    void Open() {
        frame->Commands().Entry("mnuSettingsApplication")->trigger();
        dialog = frame->findChild<frmApplicationSettings*>();
        if (!dialog) qFatal("the settings dialog does not open");
    }
    void Reopen() {
        Press("Command22");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Open();
    }

    template <class Widget>
    Widget* Part(const std::string& name) {
        auto* widget = dialog->findChild<Widget*>(QString::fromStdString(name));
        if (!widget) qFatal("no control %s", name.c_str());
        return widget;
    }
    QTabWidget* Tabs() { return Part<QTabWidget>("TabStrip1"); }
    void Show(SettingsTab tab) { Tabs()->setCurrentIndex(static_cast<int>(tab) - 1); }
    void Press(const std::string& name) { Part<QAbstractButton>(name)->click(); }
    void Type(const std::string& name, const QString& text) {
        auto* edit = Part<QLineEdit>(name);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
    }
    void Pick(const std::string& name, int row) {
        auto* list = Part<QComboBox>(name);
        list->setFocus();
        list->setCurrentIndex(row);
        Q_EMIT list->textActivated(list->itemText(row));
        Q_EMIT list->activated(row);
    }
    void Apply(SettingsTab tab) {
        Show(tab);
        Press("Command21");
    }
    std::string Line(const std::string& file, std::size_t line) {
        LineReader reader(bytes_ = Read(file));
        std::string_view text;
        for (std::size_t i = 0; i < line; ++i) {
            if (!reader.Next(text)) return "(no such line)";
        }
        return std::string(text);
    }

    frmApplicationSettings* dialog = nullptr;

  private:
    std::string bytes_;
};

std::string TabFile(SettingsTab tab) {
    switch (tab) {
        case SettingsTab::ImportExport:
            return "VTRIMEXset.ini";
        case SettingsTab::DataAutomation:
            return "VTRDATAset.ini";
        case SettingsTab::Graphics:
            return "VTRGRAPHset.ini";
        case SettingsTab::Columns:
            return "VTRCOLset.ini";
        case SettingsTab::Network:
            break;
    }
    return "VTRNETset.ini";
}

SettingsTab TabOf(SettingsFile file) {
    for (const TabRow& tab : kSettingsTabs) {
        if (TabFile(tab.tab) == FormOf(file).fileName) return tab.tab;
    }
    return SettingsTab::Network;
}

SettingsTab TabOfList(const ListRow& row) {
    if (!row.list) return SettingsTab::Graphics;
    switch (*row.list) {
        case FieldList::Export:
        case FieldList::Import:
            return SettingsTab::ImportExport;
        case FieldList::Columns:
            return SettingsTab::Columns;
        case FieldList::SourceQuotes:
        case FieldList::SourceHistory:
            break;
    }
    return SettingsTab::Network;
}

QString Unmarked(QString words) {
    words.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    words.remove(QLatin1Char('&'));
    return words.replace(QStringLiteral("\x01"), QStringLiteral("&"));
}

}  // namespace

class ApplicationSettingsTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theDialogHasItsTabsButtonsAndFrames() {
        SettingsProgram program;
        QCOMPARE(program.dialog->windowTitle(), QStringLiteral("Brantlow Settings"));
        QTabWidget* tabs = program.Tabs();
        QCOMPARE(tabs->count(), 5);
        for (int i = 0; i < 5; ++i) {
            const TabRow& row = kSettingsTabs.at(static_cast<std::size_t>(i));
            QCOMPARE(Unmarked(tabs->tabText(i)), Name(row.caption));
            QCOMPARE(tabs->tabToolTip(i), Name(row.toolTip));
            QVERIFY(tabs->widget(i)->findChild<QWidget*>(Name(row.control)));
        }
        const std::pair<const char*, const char*> buttons[] = {
            {"Command21", "Apply"}, {"Command23", "Default"}, {"Command22", "Exit"}};
        for (const auto& [name, words] : buttons) {
            QCOMPARE(Unmarked(program.Part<QPushButton>(name)->text()), QString::fromLatin1(words));
        }
        std::set<QString> frames;
        for (QGroupBox* frame : program.dialog->findChildren<QGroupBox*>()) frames.insert(frame->title());
        for (const char* title : {"Export a File from Quote Grid data",
                                  "Import a File to Quote Database and Grid",
                                  "File Type",
                                  "Back Up Frequency",
                                  "Back Up Application Files",
                                  "Back Up Quote Database",
                                  "Build Historical Database",
                                  "Save Quote File",
                                  "Save to Local Database:",
                                  "Automatic Data Collection",
                                  "Brantlow Updates",
                                  "E-mail Alerts",
                                  "Run Stock Selector",
                                  "LAN Location of Quote Database",
                                  "Automatic Stock Split Adjustment",
                                  "Graph Type",
                                  "Stock Selector Buy or Sell Conditions",
                                  "Web Content Links",
                                  "Quote Downloads:",
                                  "Formats:",
                                  "End Of Day Quotes",
                                  "Historical Quotes",
                                  "Yahoo Primary Market and Language"}) {
            QVERIFY2(frames.contains(QString::fromLatin1(title)), title);
        }
        QVERIFY(std::any_of(frames.begin(), frames.end(), [](const QString& title) {
            return title.startsWith(QStringLiteral("Brokerage Firm Address:"));
        }));
    }

    void theLabelsHaveTheirWordsAndLeadToTheirControls() {
        SettingsProgram program;
        const std::pair<const char*, const char*> rows[] = {{"Dir1", "Select Folder:"},
                                                            {"Text7", "Selected Path:"},
                                                            {"Text21", "Export File Name:"},
                                                            {"List1", "Available:"},
                                                            {"List2", "Selected Output Sequence:"},
                                                            {"Dir2", "Select Folder:"},
                                                            {"Text8", "Selected Path:"},
                                                            {"Text31", "Import File Name:"},
                                                            {"Combo7", "Headers:"},
                                                            {"Combo8", "Footers:"},
                                                            {"Combo10", "Date:"},
                                                            {"List3", "Available:"},
                                                            {"List4", "Selected Input Sequence:"},
                                                            {"Text1", "Address:"},
                                                            {"List5", "Selected:"},
                                                            {"List6", "Available:"},
                                                            {"Combo14", "Buy:"},
                                                            {"Combo15", "Sell:"},
                                                            {"List7", "Selected:"},
                                                            {"List8", "Available:"},
                                                            {"Combo1", "Address Selection:"},
                                                            {"Text11", "EOD Quote URL String:"},
                                                            {"Text13", "Hist. Quote URL String:"},
                                                            {"List11", "Available:"},
                                                            {"List12", "Supplier Sequence:"},
                                                            {"List15", "Available:"},
                                                            {"List16", "Supplier Sequence:"},
                                                            {"Combo6", "Quotes per String:"},
                                                            {"Combo11", "Headers:"},
                                                            {"Combo12", "Footers:"},
                                                            {"Combo9", "Date:"}};
        for (const auto& [control, words] : rows) {
            QWidget* widget = program.Part<QWidget>(control);
            QString found;
            for (QLabel* label : program.dialog->findChildren<QLabel*>()) {
                if (label->buddy() == widget) found = Unmarked(label->text());
            }
            QCOMPARE(found, QString::fromLatin1(words));
        }
    }

    void theWheelTurnsOnlyTheListThatHasTheFocus() {
        SettingsProgram program;
        program.Show(SettingsTab::ImportExport);
        auto* const list = program.Part<QComboBox>("Combo7");
        const auto turn = [list] {
            QWheelEvent wheel({5, 5}, list->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(list, &wheel);
        };
        const int before = list->currentIndex();
        program.Part<QLineEdit>("Text21")->setFocus();
        turn();
        QCOMPARE(list->currentIndex(), before);
        QVERIFY(!list->hasFocus());
        list->setFocus();
        QTRY_VERIFY_WITH_TIMEOUT(list->hasFocus(), kPatienceMs);
        turn();
        QCOMPARE(list->currentIndex(), before + 1);
    }

    void everyOptionReachesItsFile() {
        SettingsProgram program;
        program.Press("Option8");
        for (const OptionRow& row : kOptionRows) {
            auto* option = program.Part<QRadioButton>(std::string(row.control));
            QCOMPARE(Unmarked(option->text()), Name(row.words));
            QCOMPARE(option->isEnabled(), !row.words.starts_with("MetaStock"));
            if (!option->isEnabled()) continue;
            option->click();
            QVERIFY(option->isChecked());
            program.Apply(TabOf(row.line->file));
            const std::string value(row.Value());
            const std::string written = row.line->form == LineForm::Number ? value : "\"" + value + "\"";
            QCOMPARE(program.Line(TabFile(TabOf(row.line->file)), row.line->number), written);
            if (row.control == "Option7") program.Press("Option8");
        }
    }

    void everyMarketReachesItsFile() {
        SettingsProgram program;
        for (const MarketRow& market : kMarkets) {
            auto* option = program.Part<QRadioButton>(std::string(market.control));
            QCOMPARE(Unmarked(option->text()), Name(market.name));
            option->click();
            program.Apply(SettingsTab::Network);
            QCOMPARE(program.Read("VTRLANGset.ini"), "\"" + std::string(market.builtIn) + "\"\r\n");
        }
    }

    void everyCheckBoxReachesItsFile() {
        SettingsProgram program;
        for (const CheckRow& row : kCheckRows) {
            auto* check = program.Part<QCheckBox>(std::string(row.control));
            QCOMPARE(Unmarked(check->text()), Name(row.words));
            for (int click = 0; click < 2; ++click) {
                check->click();
                program.Apply(SettingsTab::DataAutomation);
                const LineRow& line = *row.line.row;
                QCOMPARE(program.Line("VTRDATAset.ini", line.number),
                         "\"" + std::string(line.choices[check->isChecked() ? 0 : 1]) + "\"");
            }
        }
        program.Press("Check11");
        program.Apply(SettingsTab::DataAutomation);
        QCOMPARE(program.Line("VTRDATAset.ini", 6), std::string("\"\""));
        QVERIFY(!program.Part<QRadioButton>("Option11")->isEnabled());
        program.Press("Check11");
        for (const char* option : {"Option9", "Option10", "Option11", "Option12"}) {
            QVERIFY(program.Part<QRadioButton>(option)->isEnabled());
            QVERIFY(!program.Part<QRadioButton>(option)->isChecked());
        }
        QCOMPARE(program.Part<QLabel>("lblYearsNote")->text(), QStringLiteral("Choose the number of years."));
    }

    void everyTextReachesItsFile() {
        SettingsProgram program;
        program.Press("Option8");
        for (const char* check : {"Check2", "Check4"}) program.Press(check);
        for (const TextRow& row : kTextRows) {
            if (row.control == "Combo1") continue;
            const QString text = QStringLiteral("/typed/%1").arg(Name(row.control));
            program.Type(std::string(row.control), text);
            const LineRow& line = *row.line.row;
            program.Apply(TabOf(line.file));
            const std::string bytes = text.toStdString();
            QCOMPARE(program.Line(TabFile(TabOf(line.file)), line.number),
                     line.form == LineForm::Printed ? bytes : "\"" + bytes + "\"");
        }
        auto* address = program.Part<QComboBox>("Combo1");
        QTest::keyClicks(address->lineEdit(), QStringLiteral("https://mine.example"));
        program.Apply(SettingsTab::Network);
        QCOMPARE(program.Line("VTRNETset.ini", 2), std::string("\"https://mine.example\""));
    }

    void everyDropDownListReachesItsFile() {
        SettingsProgram program;
        program.Press("Option8");
        program.Press("Option16");
        struct Row {
            const char* control;
            SettingsTab tab;
            std::size_t line;
            int entry;
            const char* written;
        };
        const Row rows[] = {{"Combo7", SettingsTab::ImportExport, 7, 3, "3"},
                            {"Combo8", SettingsTab::ImportExport, 8, 15, "15"},
                            {"Combo10", SettingsTab::ImportExport, 9, 2, "\"20040102\""},
                            {"Combo2", SettingsTab::DataAutomation, 10, 7, "\"07\""},
                            {"Combo3", SettingsTab::DataAutomation, 11, 59, "\"59\""},
                            {"Combo14", SettingsTab::Graphics, 9, 0, "\"None\""},
                            {"Combo15", SettingsTab::Graphics, 10, 0, "\"None\""},
                            {"Combo1", SettingsTab::Network, 2, 0, "\"https://www.ajbell.co.uk\""},
                            {"Combo6", SettingsTab::Network, 6, 0, "10"},
                            {"Combo11", SettingsTab::Network, 7, 1, "1"},
                            {"Combo12", SettingsTab::Network, 8, 2, "2"},
                            {"Combo9", SettingsTab::Network, 9, 3, "\"040102\""}};
        for (const Row& row : rows) {
            program.Pick(row.control, row.entry);
            program.Apply(row.tab);
            QCOMPARE(program.Line(TabFile(row.tab), row.line), std::string(row.written));
        }
    }

    void everyArrowAndEveryListMovesItsEntry() {
        SettingsProgram program;
        program.Press("Option8");
        for (const ListRow& row : kListRows) {
            auto* selected = program.Part<QListWidget>(std::string(row.selected));
            auto* available = program.Part<QListWidget>(std::string(row.available));
            const int count = selected->count();
            const QString name = selected->item(1)->text();
            selected->setCurrentRow(1);
            program.Press(std::string(row.returnArrow));
            QCOMPARE(selected->count(), count - 1);
            QCOMPARE(selected->currentRow(), 1);
            QCOMPARE(available->item(available->count() - 1)->text(), name);
            available->setCurrentRow(available->count() - 1);
            program.Press(std::string(row.selectArrow));
            QCOMPARE(selected->count(), count);
            QCOMPARE(selected->item(count - 1)->text(), name);
            // Enter on an entry does the same.
            selected->setCurrentRow(count - 1);
            program.Show(TabOfList(row));
            selected->setFocus();
            QTest::keyClick(selected, Qt::Key_Return);
            QCOMPARE(selected->count(), count - 1);
            program.Apply(TabOfList(row));
            QVERIFY(program.dialog->isVisible());
        }
        QVERIFY(program.Read("VTRCOLset.ini").find("\"Change\"") == std::string::npos);
        QVERIFY(program.Read("VTRGRAPHset.ini").find("\"LR T.CL\"") == std::string::npos);
        QVERIFY(!program.Part<QLabel>("lblVariablesNote")->text().isEmpty());
    }

    void aSeventhVariableIsRefusedInABox() {
        SettingsProgram program;
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                told = box->text();
                PressButton(dialog, QMessageBox::Ok);
            }
        });
        program.Part<QListWidget>("List6")->setCurrentRow(0);
        program.Press("Command2");
        QCOMPARE(told, QStringLiteral("Maximum of 6 Variables on Graphics"));
        QCOMPARE(program.Part<QListWidget>("List5")->count(), 6);
    }

    void enablingFollowsTheClicks() {
        SettingsProgram program;
        const auto enabled = [&](const char* control) { return program.Part<QWidget>(control)->isEnabled(); };
        for (const EnablingRow& row : kEnablingRows) {
            if (row.whileOn.empty()) continue;
            auto* governor = program.Part<QAbstractButton>(std::string(row.whileOn));
            QCOMPARE(enabled(std::string(row.control).c_str()), governor->isChecked());
        }
        program.Press("Option8");
        QVERIFY(enabled("List12") && enabled("Text11") && enabled("Command33"));
        program.Press("Option7");
        QVERIFY(!enabled("List12") && !enabled("Text11") && !enabled("Command33"));
        program.Press("Option16");
        program.Pick("Combo2", 3);
        QVERIFY(!program.Part<QLabel>("lblTimeNote")->text().isEmpty());
        program.Press("Option36");
        QVERIFY(!enabled("Combo2"));
        QCOMPARE(program.Part<QComboBox>("Combo2")->currentText(), QString());
    }

    void foldersAreChosenFromPlacesAndLists() {
        SettingsProgram program;
        std::filesystem::create_directories(program.folder / "Out/Deep");
        struct Row {
            const char *drive, *dir, *text;
        };
        program.Press("Check4");
        for (const Row& row : {Row{"Drive1", "Dir3", "Text2"}, Row{"Drive2", "Dir4", "Text3"},
                               Row{"Drive3", "Dir5", "Text4"}}) {
            program.Show(SettingsTab::DataAutomation);
            program.Pick(row.drive, 0);
            const QString app = ShownPath(program.folder.Get());
            QCOMPARE(program.Part<QLineEdit>(row.text)->text(), app);
            auto* folders = program.Part<QListWidget>(row.dir);
            for (const char* step : {"Out", "Deep"}) {
                QListWidgetItem* found = nullptr;
                for (int i = 0; i < folders->count(); ++i) {
                    if (folders->item(i)->text().trimmed() == QLatin1String(step)) found = folders->item(i);
                }
                QVERIFY2(found, step);
                folders->setCurrentItem(found);
                folders->setFocus();
                QTest::keyClick(folders, Qt::Key_Return);
            }
            QCOMPARE(program.Part<QLineEdit>(row.text)->text(), app + QStringLiteral("/Out/Deep"));
        }
        program.Apply(SettingsTab::DataAutomation);
        const std::string deep = "\"" + (program.folder / "Out/Deep").string() + "\"";
        QCOMPARE(program.Line("VTRDATAset.ini", 3), deep);
        QCOMPARE(program.Line("VTRDATAset.ini", 5), deep);
        QCOMPARE(program.Line("VTRDATAset.ini", 18), deep);
        QCOMPARE(program.session.settings.QuoteFolder, (program.folder / "Out/Deep").string() + "/");
    }

    void theExportFolderIsChosenFromItsList() {
        SettingsProgram program;
        program.Show(SettingsTab::ImportExport);
        for (const auto& [dir, text] : {std::pair("Dir1", "Text7"), std::pair("Dir2", "Text8")}) {
            auto* folders = program.Part<QListWidget>(dir);
            // The shipped folder is Data in the application folder; the row above it is that folder.
            folders->setCurrentRow(folders->currentRow() - 1);
            folders->setFocus();
            QTest::keyClick(folders, Qt::Key_Return);
            QCOMPARE(program.Part<QLineEdit>(text)->text(), ShownPath(program.folder.Get()));
        }
        program.Apply(SettingsTab::ImportExport);
        QCOMPARE(program.Line("VTRIMEXset.ini", 2), "\"" + program.folder.Get().string() + "\"");
    }

    void columnsChangeInTheOpenTableAtOnce() {
        SettingsProgram program;
        QuoteTable& table = program.frame->QuoteForm()->Table();
        const std::size_t columns = table.ColumnCount();
        const std::string ask = table.Text(2, *table.ColumnOf("Last Price"));
        auto* selected = program.Part<QListWidget>("List7");
        program.Show(SettingsTab::Columns);
        while (selected->count() > 0) {
            selected->setCurrentRow(0);
            program.Press("Command15");
        }
        auto* available = program.Part<QListWidget>("List8");
        for (const char* name : {"Volume", "Last Price"}) {
            available->setCurrentItem(available->findItems(QLatin1String(name), Qt::MatchExactly).front());
            program.Press("Command14");
        }
        QVERIFY(table.Width(*table.ColumnOf("Change")) > 0);
        program.Press("Command21");
        QCOMPARE(table.Header(1), std::string("Volume"));
        QCOMPARE(table.Header(2), std::string("Last Price"));
        QCOMPARE(table.Width(*table.ColumnOf("Change")), 0);
        QCOMPARE(table.Text(2, 2), ask);
        QCOMPARE(table.ColumnCount(), columns);
        program.Press("Command23");
        QCOMPARE(table.Header(1), std::string("Last Price"));
        QVERIFY(table.Width(*table.ColumnOf("Change")) > 0);
        QCOMPARE(selected->count(), 34);
    }

    void defaultPutsTheTabOnShowBack() {
        for (const TabRow& tab : kSettingsTabs) {
            SettingsProgram program;
            const std::string shipped = program.Read(TabFile(tab.tab));
            program.Press("Option24");
            program.Press("Option2");
            program.Press("Option25");
            program.Part<QListWidget>("List7")->setCurrentRow(0);
            program.Press("Command15");
            program.Press("Option8");
            program.Pick("Combo6", 0);
            program.Press("Option7");
            program.Press("Option8");
            program.Apply(tab.tab);
            QVERIFY(program.Read(TabFile(tab.tab)) != shipped);
            program.Press("Command23");
            std::string expected = shipped;
            if (tab.tab == SettingsTab::DataAutomation) {
                // The day of the defaults, and the place of the database as it was shown.
                const auto put = [&](const std::string& old, const std::string& text) {
                    expected.replace(expected.find(old), old.size(), text);
                };
                put("#2026-01-02#", "#2026-03-09#");
                put("Quotes\\EOD", (program.folder / "Quotes/EOD").string());
            }
            if (tab.tab == SettingsTab::Network) {
                expected.replace(expected.rfind("\"Yahoo\""), 7, "\"User Selected String\"");
            }
            QCOMPARE(program.Read(TabFile(tab.tab)), expected);
            QVERIFY(!program.Part<QLabel>("lblOutcome")->text().isEmpty());
        }
    }

    void theScheduleIsAskedForWhenTheRunIsTurnedOnAndByItsButton() {
        SettingsProgram program;
        frmApplicationSettings dialog(program.session, program.hosts, nullptr);
        int asked = 0;
        connect(&dialog, &frmApplicationSettings::ScheduleAsked, this, [&asked] { ++asked; });
        dialog.findChild<QPushButton*>(QLatin1String(kScheduleButton))->click();
        QCOMPARE(asked, 1);
        dialog.findChild<QTabWidget*>()->setCurrentIndex(1);
        auto* apply = dialog.findChild<QPushButton*>(QStringLiteral("Command21"));
        apply->click();
        QCOMPARE(asked, 1);
        dialog.findChild<QRadioButton*>(QStringLiteral("Option16"))->click();
        for (const char* name : {"Combo2", "Combo3"}) {
            auto* list = dialog.findChild<QComboBox*>(QLatin1String(name));
            list->setCurrentIndex(5);
            Q_EMIT list->textActivated(list->currentText());
        }
        apply->click();
        QCOMPARE(asked, 2);
        apply->click();
        QCOMPARE(asked, 2);
    }

    void theScheduleOpensOverTheDialog() {
        SettingsProgram program;
        program.Show(SettingsTab::DataAutomation);
        program.Press(kScheduleButton);
        auto* schedule = program.dialog->findChild<frmSchedule*>();
        QVERIFY(schedule && schedule->isVisible());
        program.session.settings.DataSettings.Set(9, Value::OfText("EOD"));
        program.session.settings.DataSettings.Set(10, Value::OfText("17"));
        program.session.settings.DataSettings.Set(11, Value::OfText("05"));
        schedule->reject();
        QVERIFY(program.Part<QRadioButton>("Option16")->isChecked());
        QCOMPARE(program.Part<QComboBox>("Combo2")->currentText(), QStringLiteral("17"));
        QVERIFY(program.dialog->isVisible());
    }

    void aFileThatCannotBeWrittenIsToldAndTheEditsStay() {
        SettingsProgram program;
        std::filesystem::remove(program.session.DataFile("VTRGRAPHset.ini"));
        std::filesystem::create_directory(program.session.DataFile("VTRGRAPHset.ini"));
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                told = box->text();
                PressButton(dialog, QMessageBox::Ok);
            }
        });
        program.Press("Option25");
        program.Apply(SettingsTab::Graphics);
        QCOMPARE(told, QStringLiteral("VTRGRAPHset.ini: cannot be saved (Is a directory)"));
        QVERIFY(program.dialog->isVisible());
        QVERIFY(program.Part<QRadioButton>("Option25")->isChecked());
        QVERIFY(program.Part<QLabel>("lblOutcome")->text().isEmpty());
    }

    void bytesThatAreNoTextStayAsTheyAre() {
        SettingsProgram program;
        program.Write("VTRIMEXset.ini", "\"Tab Delimited\"\r\n\"/out\xE4\xFF\"\r\n\"caf\xE9.txt\"\r\n");
        program.Reopen();
        QCOMPARE(program.Part<QLineEdit>("Text21")->text(), QString::fromUtf8("caf\xC3\xA9.txt"));
        program.Apply(SettingsTab::ImportExport);
        QCOMPARE(program.Line("VTRIMEXset.ini", 2), std::string("\"/out\xE4\xFF\""));
        QCOMPARE(program.Line("VTRIMEXset.ini", 3), std::string("\"caf\xE9.txt\""));
    }

    void aFileOfEighteenThousandLinesOpens() {
        SettingsProgram program;
        std::string bytes;
        for (int i = 0; i < 18000; ++i) bytes += i == 10 ? "\"StartEOD\"\r\n" : "\"Volume\"\r\n";
        bytes += "\"EndEOD\"\r\n";
        for (const TabRow& tab : kSettingsTabs) program.Write(TabFile(tab.tab), bytes);
        program.Reopen();
        QCOMPARE(program.Part<QListWidget>("List7")->count(), 1);
        for (const TabRow& tab : kSettingsTabs) program.Apply(tab.tab);
        QCOMPARE(program.Line("VTRGRAPHset.ini", 2), std::string("\"Price\""));
        QCOMPARE(program.Line("VTRNETset.ini", 12), std::string("\"EndEOD\""));
    }

    void exitAndEscapeCloseWithoutSaving() {
        SettingsProgram program;
        const std::string before = program.Read("VTRIMEXset.ini");
        program.Press("Option24");
        program.Reopen();
        QVERIFY(program.Part<QRadioButton>("Option23")->isChecked());
        program.Press("Option24");
        QTest::keyClick(program.dialog, Qt::Key_Escape);
        QVERIFY(!program.dialog->isVisible());
        QCOMPARE(program.Read("VTRIMEXset.ini"), before);
    }

    void everyPageGivesEachLetterOnce() {
        SettingsProgram program;
        std::set<QChar> dialogLetters;
        const auto letterOf = [](const QString& words) {
            QString text = words;
            text.remove(QStringLiteral("&&"));
            const qsizetype mark = text.indexOf(QLatin1Char('&'));
            return mark < 0 ? QChar() : text.at(mark + 1).toUpper();
        };
        for (int i = 0; i < 5; ++i) {
            QVERIFY(dialogLetters.insert(letterOf(program.Tabs()->tabText(i))).second);
        }
        for (const char* button : {"Command21", "Command22", "Command23"}) {
            QVERIFY(dialogLetters.insert(letterOf(program.Part<QPushButton>(button)->text())).second);
        }
        for (const TabRow& tab : kSettingsTabs) {
            std::set<QChar> letters = dialogLetters;
            auto* page = program.Part<QWidget>(std::string(tab.control));
            for (QAbstractButton* button : page->findChildren<QAbstractButton*>()) {
                const QChar letter = letterOf(button->text());
                QVERIFY2(letter.isNull() || letters.insert(letter).second, qPrintable(button->text()));
            }
            for (QLabel* label : page->findChildren<QLabel*>()) {
                const QChar letter = label->buddy() ? letterOf(label->text()) : QChar();
                QVERIFY2(letter.isNull() || letters.insert(letter).second, qPrintable(label->text()));
            }
        }
    }

    void theTabKeyFollowsTheEye() {
        SettingsProgram program;
        const std::pair<SettingsTab, std::vector<const char*>> rows[] = {
            {SettingsTab::ImportExport,
             {"Option23", "Dir1",      "Text7", "Text21",    "List1",     "Command5", "Command6", "List2",
              "Option33", "Dir2",      "Text8", "Text31",    "Combo7",    "Combo8",   "Combo10",  "List3",
              "Command9", "Command10", "List4", "Command21", "Command23", "Command22"}},
            {SettingsTab::Graphics,
             {"Option21", "Combo14", "Combo15", "List6", "Command2", "Command3", "List5", "Command21"}},
            {SettingsTab::Columns, {"List8", "Command14", "Command15", "List7", "Command21"}},
        };
        for (const auto& [tab, names] : rows) {
            program.Show(tab);
            program.Part<QWidget>(names.front())->setFocus();
            for (const char* name : names) {
                QCOMPARE(program.dialog->focusWidget()->objectName(), QLatin1String(name));
                QTest::keyClick(program.dialog->focusWidget(), Qt::Key_Tab);
            }
        }
    }

    // On the smallest screen every page is seen whole.
    void nothingIsCutOnASmallScreen() {
        SettingsProgram program;
        program.dialog->resize(1024 - 16, 768 - 48);
        for (const TabRow& tab : kSettingsTabs) {
            program.Show(tab.tab);
            QCoreApplication::processEvents();
            auto* page = program.Part<QWidget>(std::string(tab.control));
            auto* area = static_cast<QScrollArea*>(program.Tabs()->currentWidget());
            QVERIFY2(page->minimumSizeHint().width() <= area->viewport()->width(),
                     qPrintable(QStringLiteral("%1: %2 wide in %3")
                                    .arg(Name(tab.control))
                                    .arg(page->minimumSizeHint().width())
                                    .arg(area->viewport()->width())));
            QVERIFY2(page->minimumSizeHint().height() <= area->viewport()->height(),
                     qPrintable(QStringLiteral("%1: %2 high in %3")
                                    .arg(Name(tab.control))
                                    .arg(page->minimumSizeHint().height())
                                    .arg(area->viewport()->height())));
        }
    }
};

WINDOW_TEST(ApplicationSettingsTest)
#include "application_settings_test.moc"
