#include "acquire/feeds/windows/frmPopulate.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <string_view>

#include "acquire/feeds/history_download.h"
#include "acquire/feeds/live/chosen_sources.h"
#include "acquire/feeds/live/live_world.h"
#include "acquire/feeds/live/source_standing.h"
#include "base/windows/display_text.h"
#include "shell/run_report.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_draft.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr int kTextWidth = 420;

struct YearsOption {
    std::string_view control;
    std::string_view words;
    double years;
};
constexpr std::array<YearsOption, 4> kYearsOptions = {{
    {"Option1", "2 Years", 2},
    {"Option2", "5 Years", 5},
    {"Option3", "10Years", 10},
    {"Option4", "20 Years", 20},
}};

constexpr std::string_view kExplanation =
    "This function is used to build a historical database of quote data. This data will be used for end of "
    "day Graphics, Analysis, and generating Stock Picks. Once the Database is built for the quote file you "
    "have open, this function is no longer needed for this quote file. To keep end the database current, all "
    "you need to do is simply update the quote file daily. This can be totally automated by selecting Help "
    "and Setup Wizard.";

}  // namespace

frmPopulate::frmPopulate(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), source_(new QLabel) {
    setObjectName(QStringLiteral("frmPopulate"));
    setWindowTitle(QStringLiteral("Create and Populate Database"));
    auto* layout = new QVBoxLayout(this);
    auto* text = new QLabel(Name(kExplanation));
    text->setObjectName(QStringLiteral("Label1"));
    text->setWordWrap(true);
    text->setFixedWidth(kTextWidth);
    layout->addWidget(text);
    auto* frame = new QGroupBox(QStringLiteral("Build Historical Database"));
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* options = new QVBoxLayout(frame);
    const double years = Get(session_.settings, kHistoryYears);
    for (std::size_t i = 0; i < kYearsOptions.size(); ++i) {
        options_[i] = new QRadioButton(Name(kYearsOptions[i].words));
        options_[i]->setObjectName(Name(kYearsOptions[i].control));
        options_[i]->setChecked(kYearsOptions[i].years == years);
        options->addWidget(options_[i]);
    }
    layout->addWidget(frame);
    source_->setObjectName(QStringLiteral("lblSource"));
    source_->setWordWrap(true);
    source_->setFixedWidth(kTextWidth);
    source_->hide();
    layout->addWidget(source_);
    for (QRadioButton* option : options_) {
        connect(option, &QRadioButton::toggled, this, &frmPopulate::ShowWhoIsAsked);
    }
    auto* buttons = new QDialogButtonBox(this);
    auto* populate = buttons->addButton(QStringLiteral("Populate"), QDialogButtonBox::ActionRole);
    populate->setObjectName(QStringLiteral("Command1"));
    populate->setToolTip(QStringLiteral(
        "Download the history of every ticker of the open quote file; it replaces the stored one"));
    populate->setDefault(true);
    auto* exit = buttons->addButton(QStringLiteral("Exit"), QDialogButtonBox::RejectRole);
    exit->setObjectName(QStringLiteral("Command2"));
    exit->setToolTip(QStringLiteral("Leave the database as it is"));
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(populate, &QPushButton::clicked, this, &frmPopulate::Populate);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

double frmPopulate::ChosenYears() const {
    for (std::size_t i = 0; i < kYearsOptions.size(); ++i) {
        if (options_[i]->isChecked()) return kYearsOptions[i].years;
    }
    return 0;
}

void frmPopulate::ShowSource(std::size_t tickers, Web& web) {
    tickers_ = tickers;
    web_ = &web;
    ShowWhoIsAsked();
}

void frmPopulate::ShowWhoIsAsked() {
    if (!web_ || ChosenName(session_.settings, Capability::History).empty()) return source_->hide();
    const SourceCatalogue catalogue = LoadSources(session_.DataFolder());
    const ChosenSource chosen = SourceOf(session_.settings, catalogue, Capability::History);
    source_->show();
    if (chosen.source == nullptr) return source_->setText(Shown(chosen.refusal));
    LiveWorld live(session_, *web_);
    const double seconds = SecondsOfPopulate(live.World(), *chosen.source, tickers_, ChosenYears());
    source_->setText(QStringLiteral("The histories come from %1. %2: %3 at its limits.")
                         .arg(Shown(AskedWords(session_, Capability::History)),
                              Shown(CountedTickers(tickers_)), Shown(DurationWords(seconds))));
}

void frmPopulate::Populate() {
    for (std::size_t i = 0; i < options_.size(); ++i) {
        if (!options_[i]->isChecked()) continue;
        SettingsTables draft = session_.settings;
        Set(draft, kHistoryYears, kYearsOptions[i].years);
        const Failure fault =
            ApplySettings(draft, SettingsFile::Data, OrdinaryChange(session_.AppPath), session_.settings);
        if (fault) {
            session_.person.Say(Sentence(fault));
            return;
        }
        accept();
        Q_EMIT PopulateAsked();
        return;
    }
    session_.person.Say(kSelectTimeFrame);
}

}  // namespace brantlow
