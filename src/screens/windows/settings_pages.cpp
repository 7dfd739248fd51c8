#include "screens/windows/settings_pages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/windows/display_text.h"
#include "base/windows/flow_layout.h"
#include "screens/windows/folder_picker.h"
#include "screens/windows/settings_binder.h"

namespace brantlow {

namespace {

using Controls = std::initializer_list<std::string_view>;

constexpr int kMarketColumns = 2;
constexpr int kFlowGap = 6;
// The name of the layouts whose parts stand beside each other or one below another.
constexpr const char* kColumnsLayout = "columns";

// A frame with its words; its layout stands in it.
template <class Layout>
Layout* Frame(const QString& words, QBoxLayout* in, int stretch = 0) {
    auto* frame = new QGroupBox(words);
    auto* layout = new Layout(frame);
    in->addWidget(frame, stretch);
    return layout;
}

void AddOptions(SettingsBinder& binder, QBoxLayout* layout, Controls options) {
    for (const std::string_view option : options) layout->addWidget(binder.Option(option));
    layout->addStretch();
}

// Columns side by side, which FitColumns puts one below another where a page is too wide.
QBoxLayout* Columns(QBoxLayout* in) {
    auto* columns = new QHBoxLayout;
    columns->setObjectName(QLatin1String(kColumnsLayout));
    in->addLayout(columns, 1);
    return columns;
}

// Controls with their words in a row, which goes on in the next one where the width ends.
FlowLayout* Flow(QBoxLayout* in) {
    auto* row = new QWidget;
    auto* flow = new FlowLayout(row, kFlowGap);
    flow->setContentsMargins(0, 0, 0, 0);
    in->addWidget(row);
    return flow;
}

// Options side by side in a frame of their own.
void OptionsFrame(SettingsBinder& binder, const QString& words, QBoxLayout* in, Controls options) {
    AddOptions(binder, Frame<QHBoxLayout>(words, in), options);
}

void FileTypes(SettingsBinder& binder, QBoxLayout* in, Controls options) {
    auto* grid = Frame<QGridLayout>(QStringLiteral("File Type"), in);
    int place = 0;
    for (const std::string_view option : options) {
        grid->addWidget(binder.Option(option), place / 2, place % 2);
        ++place;
    }
}

struct FileNames {
    std::string_view dir, path, name;
    QString nameWords;
};

// Where a file lies and what it is called.
void FilePlace(SettingsBinder& binder, QBoxLayout* in, const FileNames& names) {
    FolderPicker* folder = binder.Folder({}, names.dir, names.path);
    in->addWidget(binder.Label(QStringLiteral("Select Folder:"), folder->Dir()));
    in->addWidget(folder, 1);
    auto* form = new QFormLayout;
    // The picker's path stands beside its own words.
    form->addRow(binder.Label(QStringLiteral("Selected Path:"), folder->Text()), folder->Text());
    QLineEdit* name = binder.Text(names.name);
    form->addRow(binder.Label(names.nameWords, name), name);
    in->addLayout(form);
}

void AddDropDown(SettingsBinder& binder, FlowLayout* row, const QString& words, std::string_view control) {
    auto* both = new QWidget;
    auto* layout = new QHBoxLayout(both);
    layout->setContentsMargins(0, 0, 0, 0);
    QComboBox* list = binder.DropDown(control);
    layout->addWidget(binder.Label(words, list));
    layout->addWidget(list);
    row->addWidget(both);
}

void ExportFrame(SettingsBinder& binder, QBoxLayout* in) {
    auto* frame = Frame<QVBoxLayout>(QStringLiteral("Export a File from Quote Grid data"), in, 1);
    FileTypes(binder, frame, {"Option23", "Option24", "Option26", "Option27"});
    FilePlace(binder, frame, {"Dir1", "Text7", "Text21", QStringLiteral("Export File Name:")});
    frame->addWidget(
        binder.Lists("List2", QStringLiteral("Available:"), QStringLiteral("Selected Output Sequence:")), 2);
}

void ImportFrame(SettingsBinder& binder, QBoxLayout* in) {
    auto* frame = Frame<QVBoxLayout>(QStringLiteral("Import a File to Quote Database and Grid"), in, 1);
    FileTypes(binder, frame, {"Option33", "Option34", "Option28", "Option31"});
    FilePlace(binder, frame, {"Dir2", "Text8", "Text31", QStringLiteral("Import File Name:")});
    auto* form = Flow(frame);
    AddDropDown(binder, form, QStringLiteral("Headers:"), "Combo7");
    AddDropDown(binder, form, QStringLiteral("Footers:"), "Combo8");
    AddDropDown(binder, form, QStringLiteral("Date:"), "Combo10");
    frame->addWidget(
        binder.Lists("List4", QStringLiteral("Available:"), QStringLiteral("Selected Input Sequence:")), 2);
}

void ImportExportPage(SettingsBinder& binder, QBoxLayout* page) {
    QBoxLayout* const columns = Columns(page);
    ExportFrame(binder, columns);
    ImportFrame(binder, columns);
}

struct FolderNames {
    std::string_view check, drive, dir, text;
};

// A frame whose check box stands for the folder below it.
void FolderFrame(SettingsBinder& binder, const QString& words, QBoxLayout* in, const FolderNames& names) {
    auto* frame = Frame<QVBoxLayout>(words, in, 1);
    frame->addWidget(binder.Check(names.check));
    frame->addWidget(binder.Folder(names.drive, names.dir, names.text), 1);
}

void AddTime(SettingsBinder& binder, QBoxLayout* row, std::string_view control, const QString& words) {
    QComboBox* list = binder.DropDown(control);
    list->setAccessibleName(words);
    list->setToolTip(words);
    list->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    row->addWidget(list);
}

void CollectionFrame(SettingsBinder& binder, QBoxLayout* in, QPushButton* schedule) {
    auto* frame = Frame<QVBoxLayout>(QStringLiteral("Automatic Data Collection"), in);
    frame->addWidget(binder.Option("Option16"));
    auto* time = new QHBoxLayout;
    AddTime(binder, time, "Combo2", QStringLiteral("Hour of the daily run"));
    AddTime(binder, time, "Combo3", QStringLiteral("Minute of the daily run"));
    time->addWidget(binder.Note(kTimeNote.label), 1);
    time->addStretch();
    frame->addLayout(time);
    frame->addWidget(binder.Option("Option36"));
    frame->addWidget(schedule, 0, Qt::AlignLeft);
}

void HistoryFrame(SettingsBinder& binder, QBoxLayout* in) {
    auto* frame = Frame<QVBoxLayout>(QStringLiteral("Build Historical Database"), in);
    frame->addWidget(binder.Check(kHistoryCheck));
    auto* years = new QHBoxLayout;
    AddOptions(binder, years, {"Option9", "Option10", "Option11", "Option12"});
    frame->addLayout(years);
    frame->addWidget(binder.Note(kYearsNote.label));
}

void AlertsFrame(SettingsBinder& binder, QBoxLayout* in, QPushButton* mail) {
    auto* frame = Frame<QVBoxLayout>(QStringLiteral("E-mail Alerts"), in);
    auto* row = new QHBoxLayout;
    row->addWidget(binder.Check("Check2"));
    QLineEdit* address = binder.Text("Text1");
    row->addWidget(binder.Label(QStringLiteral("Address:"), address));
    row->addWidget(address, 1);
    frame->addLayout(row);
    frame->addWidget(mail, 0, Qt::AlignLeft);
}

void DataPage(SettingsBinder& binder, QBoxLayout* page) {
    QPushButton* const schedule =
        binder.Button(kScheduleButton, "Schedule...",
                      QStringLiteral("Choose the days on which the system starts Brantlow for the run"));
    QPushButton* const mail = binder.Button(kMailButton, "Mail by Your Own Server...",
                                            QStringLiteral("Have fired alarms mailed by a server of yours"));
    QBoxLayout* const columns = Columns(page);
    auto* left = new QVBoxLayout;
    auto* middle = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    for (QVBoxLayout* column : {left, middle, right}) columns->addLayout(column, 1);
    OptionsFrame(binder, QStringLiteral("Back Up Frequency"), left, {"Option4", "Option2", "Option3"});
    FolderFrame(binder, QStringLiteral("Back Up Application Files"), left,
                {"Check1", "Drive1", "Dir3", "Text2"});
    FolderFrame(binder, QStringLiteral("Back Up Quote Database"), left,
                {"Check3", "Drive2", "Dir4", "Text3"});
    CollectionFrame(binder, middle, schedule);
    AlertsFrame(binder, middle, mail);
    FolderFrame(binder, QStringLiteral("LAN Location of Quote Database"), middle,
                {"Check4", "Drive3", "Dir5", "Text4"});
    HistoryFrame(binder, right);
    OptionsFrame(binder, QStringLiteral("Save Quote File"), right, {"Option29", "Option30"});
    OptionsFrame(binder, QStringLiteral("Save to Local Database:"), right, {"Option13", "Option6"});
    OptionsFrame(binder, QStringLiteral("Run Stock Selector"), right, {"Option20", "Option5"});
    OptionsFrame(binder, QStringLiteral("Automatic Stock Split Adjustment"), right, {"Option18", "Option19"});
    Frame<QVBoxLayout>(QStringLiteral("Brantlow Updates"), right)->addWidget(binder.Check("Check12"));
    right->addStretch();
}

void GraphicsPage(SettingsBinder& binder, QBoxLayout* page) {
    auto* top = new QHBoxLayout;
    page->addLayout(top);
    OptionsFrame(binder, QStringLiteral("Graph Type"), top, {"Option21", "Option25"});
    FlowLayout* const conditions =
        Flow(Frame<QVBoxLayout>(QStringLiteral("Stock Selector Buy or Sell Conditions"), top, 1));
    AddDropDown(binder, conditions, QStringLiteral("Buy:"), "Combo14");
    AddDropDown(binder, conditions, QStringLiteral("Sell:"), "Combo15");
    auto* lists = Frame<QVBoxLayout>(QStringLiteral("Variables of the Graph"), page, 1);
    lists->addWidget(binder.Lists("List5", QStringLiteral("Available:"), QStringLiteral("Selected:")), 1);
    lists->addWidget(binder.Note(kVariablesNote.label));
}

void ColumnsPage(SettingsBinder& binder, QBoxLayout* page) {
    Frame<QVBoxLayout>(QStringLiteral("Columns of the Quote Table"), page, 1)
        ->addWidget(binder.Lists("List7", QStringLiteral("Available:"), QStringLiteral("Selected:")));
}

void DownloadsFrame(SettingsBinder& binder, QBoxLayout* in, QPushButton* sources) {
    auto* frame = Frame<QVBoxLayout>(QStringLiteral("Quote Downloads:"), in);
    FlowLayout* const options = Flow(frame);
    for (const char* const option : {"Option7", "Option8"}) options->addWidget(binder.Option(option));
    options->addWidget(sources);
    auto* addresses = new QFormLayout;
    QLineEdit* eod = binder.Text("Text11");
    addresses->addRow(binder.Label(QStringLiteral("EOD Quote URL String:"), eod), eod);
    QLineEdit* history = binder.Text("Text13");
    addresses->addRow(binder.Label(QStringLiteral("Hist. Quote URL String:"), history), history);
    frame->addLayout(addresses);
}

void FormatsFrame(SettingsBinder& binder, QBoxLayout* in) {
    auto* frame = Frame<QVBoxLayout>(QStringLiteral("Formats:"), in, 1);
    QBoxLayout* const lists = Columns(frame);
    const QString available = QStringLiteral("Available:");
    const QString sequence = QStringLiteral("Supplier Sequence:");
    Frame<QVBoxLayout>(QStringLiteral("End Of Day Quotes"), lists, 6)
        ->addWidget(binder.Lists("List12", available, sequence));
    Frame<QVBoxLayout>(QStringLiteral("Historical Quotes"), lists, 5)
        ->addWidget(binder.Lists("List16", available, sequence));
    FlowLayout* const numbers = Flow(frame);
    AddDropDown(binder, numbers, QStringLiteral("Quotes per String:"), "Combo6");
    AddDropDown(binder, numbers, QStringLiteral("Headers:"), "Combo11");
    AddDropDown(binder, numbers, QStringLiteral("Footers:"), "Combo12");
    AddDropDown(binder, numbers, QStringLiteral("Date:"), "Combo9");
    auto* separators = new QHBoxLayout;
    AddOptions(binder, separators, {"Option14", "Option15"});
    frame->addLayout(separators);
}

void BrokerageFrame(SettingsBinder& binder, QBoxLayout* in) {
    auto* frame = Frame<QVBoxLayout>(QStringLiteral("Brokerage Firm Address: www.broker.example"), in);
    QComboBox* addresses = binder.TypedDropDown("Combo1");
    frame->addWidget(binder.Label(QStringLiteral("Address Selection:"), addresses));
    frame->addWidget(addresses);
}

// The markets stand one below another.
void MarketFrame(SettingsBinder& binder, QBoxLayout* in) {
    auto* grid = Frame<QGridLayout>(QStringLiteral("Yahoo Primary Market and Language"), in, 1);
    const int rows = (static_cast<int>(kMarkets.size()) + kMarketColumns - 1) / kMarketColumns;
    int place = 0;
    for (const MarketRow& market : kMarkets) {
        grid->addWidget(binder.Option(market.control), place % rows, place / rows);
        ++place;
    }
    grid->setRowStretch(rows, 1);
}

void NetworkPage(SettingsBinder& binder, QBoxLayout* page) {
    QPushButton* const sources =
        binder.Button(kSourcesButton, "Live Sources...",
                      QStringLiteral("Choose a service of today for quotes, histories, splits and more"));
    QBoxLayout* const columns = Columns(page);
    auto* left = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    columns->addLayout(left, 3);
    columns->addLayout(right, 1);
    DownloadsFrame(binder, left, sources);
    FormatsFrame(binder, left);
    OptionsFrame(binder, QStringLiteral("Web Content Links"), right, {"Option1", "Option22"});
    BrokerageFrame(binder, right);
    MarketFrame(binder, right);
}

struct PageRow {
    SettingsTab tab;
    void (*fill)(SettingsBinder& binder, QBoxLayout* page);
};
constexpr std::array kPages = {
    PageRow{SettingsTab::ImportExport, ImportExportPage}, PageRow{SettingsTab::DataAutomation, DataPage},
    PageRow{SettingsTab::Graphics, GraphicsPage},         PageRow{SettingsTab::Columns, ColumnsPage},
    PageRow{SettingsTab::Network, NetworkPage},
};

}  // namespace

QWidget* SettingsPage(SettingsTab tab, SettingsBinder& binder) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    binder.BeginPage();
    for (const PageRow& row : kPages) {
        if (row.tab == tab) row.fill(binder, layout);
    }
    return page;
}

// What the parts of a page have remembered of their sizes is out of date.
static void ForgetSizes(QWidget& page) {
    for (QLayout* layout : page.findChildren<QLayout*>()) layout->invalidate();
    for (QWidget* part : page.findChildren<QWidget*>()) {
        if (part->layout()) part->updateGeometry();
    }
    page.layout()->invalidate();
}

void FitColumns(QWidget& page, int width) {
    const QList<QBoxLayout*> all = page.findChildren<QBoxLayout*>(QLatin1String(kColumnsLayout));
    for (QBoxLayout* columns : all) columns->setDirection(QBoxLayout::LeftToRight);
    ForgetSizes(page);
    for (QBoxLayout* columns : all) {
        if (page.layout()->minimumSize().width() <= width) return;
        columns->setDirection(QBoxLayout::TopToBottom);
        ForgetSizes(page);
    }
}

}  // namespace brantlow
