#include "screens/windows/wizard_forms.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <memory>

#include "acquire/feeds/windows/source_card.h"
#include "acquire/web/curl_web.h"
#include "base/windows/buttons.h"
#include "base/windows/display_text.h"
#include "base/windows/wheel_guard.h"
#include "screens/control_loading.h"
#include "screens/windows/folder_picker.h"

namespace brantlow {

namespace {

constexpr int kMarketRows = 6;
constexpr int kParagraphGap = 10;

struct FormTools {
    Session& session;
    SettingsControls controls;
    WizardBegin begin;
};

QVBoxLayout* NewForm(WizardForm& form) {
    form.widget = new QWidget;
    auto* layout = new QVBoxLayout(form.widget);
    layout->setContentsMargins({});
    layout->setSpacing(kParagraphGap);
    form.next = [] { return WizardOutcome{}; };
    return layout;
}

void AddText(QVBoxLayout& layout, const QString& words, bool heading = false) {
    auto* label = new QLabel(words);
    label->setWordWrap(true);
    if (heading) {
        QFont font = label->font();
        font.setBold(true);
        label->setFont(font);
    }
    layout.addWidget(label);
}

QRadioButton* NewOption(std::string_view control, const QString& words, const SettingsControls& controls) {
    auto* option = new QRadioButton(words);
    option->setObjectName(Name(control));
    const auto shown = controls.find(control);
    option->setChecked(shown != controls.end() && shown->second.on);
    return option;
}

// The options of one settings line in a frame of its own, named as in the settings dialog.
template <std::size_t kCount>
QButtonGroup* AddOptions(QVBoxLayout& layout, const QString& title,
                         const std::array<std::string_view, kCount>& options,
                         const SettingsControls& controls) {
    auto* frame = new QGroupBox(title);
    auto* inFrame = new QHBoxLayout(frame);
    auto* group = new QButtonGroup(frame);
    for (const std::string_view control : options) {
        QRadioButton* option = NewOption(control, Name(FindOption(control)->words), controls);
        group->addButton(option);
        inFrame->addWidget(option);
    }
    inFrame->addStretch();
    layout.addWidget(frame);
    return group;
}

std::string CheckedName(const QButtonGroup& group) {
    const QAbstractButton* checked = group.checkedButton();
    return checked ? checked->objectName().toStdString() : std::string();
}

WizardForm Overview(const FormTools&) {
    WizardForm form;
    QVBoxLayout* layout = NewForm(form);
    AddText(*layout, QStringLiteral("Welcome to Brantlow Setup Wizard"), true);
    AddText(*layout,
            QStringLiteral("Brantlow may be set up to be totally automated, so that it will do everything "
                           "except placing the trade."));
    AddText(*layout,
            QStringLiteral("The first thing to do is to build the database: open one of the existing quote "
                           "files and choose Populate Database in the File menu (POPULATE DATABASE). "
                           "Brantlow then collects years of quotes for every ticker symbol of the file."));
    AddText(*layout,
            QStringLiteral("End of Day Graphics and Stock Selector both work on this database. Stock "
                           "Selector analyses up to 18,000 stocks and gives Buy, Sell, or Hold "
                           "recommendations."));
    AddText(*layout,
            QStringLiteral("The next steps ask where quotes come from, where the database lies and when it "
                           "is to be updated. Each step is kept as soon as you press Next."));
    layout->addStretch();
    return form;
}

// The live sources with a web that nobody asks here.
struct WizardSources {
    explicit WizardSources(Session& session) : web(session.person), desk(session, web) {}
    CurlWeb web;
    SourceDesk desk;
};

// A service of today in the place of both.
SourceCard* AddLiveSource(QVBoxLayout& layout, SourceDesk& desk) {
    auto* frame = new QGroupBox(QStringLiteral("Or a live source:"));
    auto* card = new SourceCard(desk, Capability::Quotes, QStringLiteral("&Live source:"),
                                QStringLiteral("None, as chosen above"));
    card->Select(desk.Choices().For(Capability::Quotes));
    (new QVBoxLayout(frame))->addWidget(card);
    layout.addWidget(frame);
    return card;
}

struct WayButton {
    StartWay way;
    const char* name;
    const char* words;
    const char* toolTip;
};
constexpr std::array<WayButton, 3> kWayButtons = {
    {{StartWay::List, "cmdWayList", "&My List...",
      "Keep this step, leave the wizard, and type or paste your tickers, or take a market's list"},
     {StartWay::File, "cmdWayFile", "&Open a Quote File...",
      "Keep this step, leave the wizard, and choose a quote file that you have"},
     {StartWay::PracticeTable, "cmdWayPractice", "&Practice Table",
      "Keep this step, leave the wizard, and look around in made-up prices"}}};

void AddWays(QVBoxLayout& layout, const WizardBegin& begin) {
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("Or begin now with:")));
    for (const WayButton& each : kWayButtons) {
        QPushButton* const button = AddButton(*row, Name(each.name), Name(each.words), Name(each.toolTip));
        // Later: it takes the form away.
        QObject::connect(
            button, &QPushButton::clicked, button, [begin, way = each.way] { begin(way); },
            Qt::QueuedConnection);
    }
    row->addStretch();
    layout.addLayout(row);
}

WizardForm QuoteSupplier(const FormTools& tools) {
    WizardForm form;
    QVBoxLayout* layout = NewForm(form);
    AddText(*layout, QStringLiteral("Quotes may be collected by one of two ways: (1) Accessing quote data "
                                    "from the internet, or (2) Importing a file."));
    AddText(*layout, QStringLiteral("This setup only addresses the first one."));
    AddText(*layout, QStringLiteral(
                         "\"Yahoo\" requires no additional setup. \"User Selected\" does: the addresses and "
                         "the formats of your supplier are entered under Settings, Application, Network "
                         "and Web Settings."));
    constexpr std::array<std::string_view, 2> kSuppliers = {"Option7", "Option8"};
    QButtonGroup* group = AddOptions(*layout, QStringLiteral("Quote Downloads:"), kSuppliers, tools.controls);
    const auto sources = std::make_shared<WizardSources>(tools.session);
    SourceCard* const card = AddLiveSource(*layout, sources->desk);
    AddWays(*layout, tools.begin);
    layout->addStretch();
    form.widget->setFocusProxy(group->checkedButton());
    form.next = [&session = tools.session, group, card, sources] {
        std::string refusal = card->Accept();
        if (refusal.empty()) refusal = sources->desk.ChooseForPrices(card->Source());
        if (!refusal.empty()) return WizardOutcome{.sentence = refusal, .stays = true};
        return SaveQuoteSupplier(CheckedName(*group), session.AppPath, session.settings);
    };
    return form;
}

// Column by column, as the markets are listed.
QButtonGroup* AddMarkets(QVBoxLayout& layout, const SettingsControls& controls) {
    auto* frame = new QGroupBox(QStringLiteral("Yahoo Primary Market and Language"));
    auto* grid = new QGridLayout(frame);
    auto* group = new QButtonGroup(frame);
    for (std::size_t i = 0; i < kMarkets.size(); ++i) {
        QRadioButton* option = NewOption(kMarkets[i].control, Name(kMarkets[i].name), controls);
        const int place = static_cast<int>(i);
        group->addButton(option, place);
        grid->addWidget(option, place % kMarketRows, place / kMarketRows);
    }
    layout.addWidget(frame);
    return group;
}

WizardForm MarketAndContent(const FormTools& tools) {
    WizardForm form;
    QVBoxLayout* layout = NewForm(form);
    AddText(*layout, QStringLiteral("Select the market in which most of your stocks are traded: quotes come "
                                    "from its pages, in its language."));
    QButtonGroup* markets = AddMarkets(*layout, tools.controls);
    AddText(*layout, QStringLiteral("The research pages of the View menu come from one of two providers."));
    constexpr std::array<std::string_view, 2> kProviders = {"Option1", "Option22"};
    QButtonGroup* providers =
        AddOptions(*layout, QStringLiteral("Web Content Links:"), kProviders, tools.controls);
    layout->addStretch();
    QAbstractButton* chosen = markets->checkedButton();
    form.widget->setFocusProxy(chosen ? chosen : markets->button(0));
    form.next = [&session = tools.session, markets, providers] {
        const int market = markets->checkedId();
        return SaveMarketAndContent(
            CheckedName(*providers),
            market < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(market)), session.AppPath,
            session.settings);
    };
    return form;
}

WizardForm LanSettings(const FormTools& tools) {
    WizardForm form;
    QVBoxLayout* layout = NewForm(form);
    AddText(*layout, QStringLiteral("Would you like to set up or use a centralized quote database on your "
                                    "local area network?"));
    const bool elsewhere = tools.controls.at("Check4").on;
    auto* yes = new QRadioButton(QStringLiteral("&Yes"));
    yes->setObjectName(QStringLiteral("Option1"));
    auto* no = new QRadioButton(QStringLiteral("N&o"));
    no->setObjectName(QStringLiteral("Option2"));
    layout->addWidget(yes);
    layout->addWidget(no);
    auto* frame = new QGroupBox(QStringLiteral("Location:"));
    auto* picker = new FolderPicker(
        tools.session.AppPath, {QStringLiteral("Drive3"), QStringLiteral("Dir5"), QStringLiteral("Text4")});
    (new QVBoxLayout(frame))->addWidget(picker);
    layout->addWidget(frame, 1);
    (elsewhere ? yes : no)->setChecked(true);
    form.widget->setFocusProxy(elsewhere ? yes : no);
    frame->setEnabled(elsewhere);
    QObject::connect(yes, &QRadioButton::toggled, frame, &QWidget::setEnabled);
    // The bytes of the line, until another folder is entered.
    const auto folder = std::make_shared<std::string>(tools.controls.at("Text4").text);
    picker->ShowFolder(Shown(*folder));
    QObject::connect(picker, &FolderPicker::FolderEntered, picker,
                     [folder](const QString& text) { *folder = text.toStdString(); });
    form.next = [&session = tools.session, yes, folder] {
        return SaveDatabasePlace(yes->isChecked() ? std::optional(*folder) : std::nullopt, session.AppPath,
                                 session.settings);
    };
    return form;
}

QComboBox* AddTime(QHBoxLayout& row, const QString& name, const QString& words,
                   const SettingsControl& shown) {
    auto* list = new QComboBox;
    GuardWheel(*list);
    list->setObjectName(name);
    list->setAccessibleName(words);
    list->setPlaceholderText(words);
    for (const std::string& number : shown.items) list->addItem(Shown(number));
    list->setCurrentIndex(list->findText(Shown(shown.text)));
    row.addWidget(list);
    return list;
}

// Yes and No, one of which is always ticked.
QCheckBox* AddAnswer(QVBoxLayout& layout, QButtonGroup& group, const QString& name, const QString& words) {
    auto* answer = new QCheckBox(words);
    answer->setObjectName(name);
    group.addButton(answer);
    layout.addWidget(answer);
    return answer;
}

WizardForm DatabaseUpdates(const FormTools& tools) {
    WizardForm form;
    QVBoxLayout* layout = NewForm(form);
    AddText(*layout, QStringLiteral("Would you like Brantlow to keep the end of day quote database current "
                                    "and up to date? If so, select Yes and the time of the daily update."));
    auto* answers = new QButtonGroup(form.widget);
    QCheckBox* yes = AddAnswer(*layout, *answers, QStringLiteral("Check1"), QStringLiteral("&Yes"));
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("Time (hh:mm):")));
    QComboBox* hour =
        AddTime(*row, QStringLiteral("Combo4"), QStringLiteral("hh"), tools.controls.at("Combo2"));
    row->addWidget(new QLabel(QStringLiteral(":")));
    QComboBox* minute =
        AddTime(*row, QStringLiteral("Combo5"), QStringLiteral("mm"), tools.controls.at("Combo3"));
    row->addStretch();
    layout->addLayout(row);
    QCheckBox* no = AddAnswer(*layout, *answers, QStringLiteral("Check2"), QStringLiteral("N&o"));
    AddText(*layout,
            QStringLiteral("Your system opens Brantlow in time for the update. When the update is turned on, "
                           "a window asks for the days and the time: choose Monday through Friday. Brantlow "
                           "is then opened approximately 5 minutes earlier than the time entered."));
    AddText(*layout, QStringLiteral("When the system opens Brantlow, the most recently used quote file is "
                                    "opened and updated."));
    layout->addStretch();
    const bool on = tools.controls.at("Option16").on;
    (on ? yes : no)->setChecked(true);
    form.widget->setFocusProxy(on ? yes : no);
    for (QComboBox* list : {hour, minute}) {
        list->setEnabled(on);
        QObject::connect(yes, &QCheckBox::toggled, list, [list](bool chosen) {
            list->setEnabled(chosen);
            if (!chosen) list->setCurrentIndex(-1);
        });
    }
    form.next = [&session = tools.session, yes, hour, minute] {
        return SaveDailyRun(yes->isChecked(), hour->currentText().toStdString(),
                            minute->currentText().toStdString(), session.AppPath, session.settings);
    };
    return form;
}

WizardForm SetupComplete(const FormTools&) {
    WizardForm form;
    QVBoxLayout* layout = NewForm(form);
    AddText(*layout, QStringLiteral("The basic setup is complete."), true);
    AddText(*layout, QStringLiteral("It is recommended to build (populate) the quote database as soon as "
                                    "possible: open a quote file and choose Populate Database in the File "
                                    "menu."));
    AddText(*layout,
            QStringLiteral("\"Settings\" in the menu holds the further features: columns of the quote "
                           "table, import and export, back-ups, e-mail alerts, graphics, and the "
                           "conditions of the Stock Selector."));
    layout->addStretch();
    return form;
}

constexpr std::array<WizardForm (*)(const FormTools&), kWizardSteps.size()> kForms = {
    Overview, QuoteSupplier, MarketAndContent, LanSettings, DatabaseUpdates, SetupComplete};

}  // namespace

WizardForm MakeWizardForm(std::size_t step, Session& session, const Hosts& hosts, WizardBegin begin) {
    WizardForm form = kForms.at(step - 1)({session, LoadControls(session.settings, hosts), std::move(begin)});
    form.widget->setObjectName(Name(kWizardSteps[step - 1].form));
    return form;
}

}  // namespace brantlow
