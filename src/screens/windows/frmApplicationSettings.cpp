#include "screens/windows/frmApplicationSettings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

#include "base/windows/buttons.h"
#include "base/windows/display_text.h"
#include "base/windows/screen_room.h"
#include "screens/windows/settings_finder.h"
#include "screens/windows/settings_pages.h"

namespace brantlow {

namespace {

constexpr int kSmallestButtonWidth = 96;

// The captions with the letters that the tabs answer to.
constexpr std::array kMarkedCaptions = {"&Import / Export", "Data && A&utomation Settings",
                                        "&Graphics Display", "Grid &Column Display",
                                        "&Network and Web Settings"};
static_assert(kMarkedCaptions.size() == kSettingsTabs.size());

// A page in the width that there is; a screen too low for it scrolls it.
class PageArea final : public QScrollArea {
  protected:
    void resizeEvent(QResizeEvent* event) override {
        if (const int width = viewport()->width(); width != fitted_) {
            fitted_ = width;
            FitColumns(*widget(), width);
        }
        QScrollArea::resizeEvent(event);
    }

  private:
    int fitted_ = 0;
};

}  // namespace

frmApplicationSettings::frmApplicationSettings(Session& session, const Hosts& hosts, QWidget* parent)
    : QDialog(parent),
      session_(session),
      settings_(session, hosts),
      binder_(settings_, session.AppPath),
      TabStrip1(new QTabWidget),
      outcome_(new QLabel) {
    setObjectName(QStringLiteral("frmApplicationSettings"));
    setWindowTitle(QStringLiteral("Brantlow Settings"));
    auto* layout = new QVBoxLayout(this);
    TabStrip1->setObjectName(QStringLiteral("TabStrip1"));
    AddPages();
    layout->addWidget(new SettingsFinder(*TabStrip1));
    layout->addWidget(TabStrip1, 1);
    layout->addWidget(ButtonRow());
    connect(&binder_, &SettingsBinder::Entered, outcome_, &QLabel::clear);
    connect(TabStrip1, &QTabWidget::currentChanged, outcome_, &QLabel::clear);
    Form_Load();
    FitToScreen();
    TabStrip1->setFocus();
}

void frmApplicationSettings::AddPages() {
    for (std::size_t i = 0; i < kSettingsTabs.size(); ++i) {
        const TabRow& row = kSettingsTabs[i];
        QWidget* page = SettingsPage(row.tab, binder_);
        page->setObjectName(Name(row.control));
        auto* area = new PageArea;
        area->setWidget(page);
        area->setWidgetResizable(true);
        area->setFrameShape(QFrame::NoFrame);
        area->setFocusPolicy(Qt::NoFocus);
        const int index = TabStrip1->addTab(area, QLatin1String(kMarkedCaptions[i]));
        TabStrip1->setTabToolTip(index, Name(row.toolTip));
    }
    auto* schedule = TabStrip1->findChild<QPushButton*>(QLatin1String(kScheduleButton));
    connect(schedule, &QPushButton::clicked, this, &frmApplicationSettings::ScheduleAsked);
    auto* sources = TabStrip1->findChild<QPushButton*>(QLatin1String(kSourcesButton));
    connect(sources, &QPushButton::clicked, this, &frmApplicationSettings::SourcesAsked);
    auto* mail = TabStrip1->findChild<QPushButton*>(QLatin1String(kMailButton));
    connect(mail, &QPushButton::clicked, this, &frmApplicationSettings::MailAsked);
}

QWidget* frmApplicationSettings::ButtonRow() {
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    outcome_->setObjectName(QStringLiteral("lblOutcome"));
    row->addWidget(outcome_, 1);
    auto* apply = AddButton(*row, QStringLiteral("Command21"), QStringLiteral("&Apply"),
                            QStringLiteral("Save the settings of this tab"));
    auto* defaults =
        AddButton(*row, QStringLiteral("Command23"), QStringLiteral("&Default"),
                  QStringLiteral("Put the settings of this tab back to their defaults (can be undone)"));
    auto* exit = AddButton(*row, QStringLiteral("Command22"), QStringLiteral("E&xit"),
                           QStringLiteral("Close; what is not applied is not kept"));
    connect(apply, &QPushButton::clicked, this, &frmApplicationSettings::Command21_Click);
    connect(defaults, &QPushButton::clicked, this, &frmApplicationSettings::Command23_Click);
    connect(exit, &QPushButton::clicked, this, &QDialog::reject);
    return buttons;
}

void frmApplicationSettings::Form_Load() {
    settings_.Load();
    binder_.Refresh();
}

void frmApplicationSettings::ShowDailyRun() {
    settings_.ShowDailyRun();
    binder_.Refresh();
}

// As large as its largest page, or as the screen.
void frmApplicationSettings::FitToScreen() {
    QSize page;
    for (QScrollArea* area : TabStrip1->findChildren<QScrollArea*>()) {
        if (area->widget()->objectName().startsWith(QStringLiteral("Picture"))) {
            page = page.expandedTo(area->widget()->sizeHint());
        }
    }
    const QSize around = sizeHint() - TabStrip1->currentWidget()->sizeHint();
    resize((page + around).boundedTo(RoomOnScreen(*this)));
}

SettingsTab frmApplicationSettings::TabOnShow() const {
    return kSettingsTabs.at(static_cast<std::size_t>(TabStrip1->currentIndex())).tab;
}

void frmApplicationSettings::Command21_Click() {
    const SettingsOutcome outcome = settings_.Apply(TabOnShow());
    binder_.Refresh();
    Tell(outcome, QStringLiteral("The settings of this tab are saved."));
}

void frmApplicationSettings::Command23_Click() {
    const SettingsOutcome outcome = settings_.Default(TabOnShow());
    binder_.Refresh();
    Tell(outcome, QStringLiteral("The settings of this tab are back at their defaults."));
}

void frmApplicationSettings::Tell(const SettingsOutcome& outcome, const QString& done) {
    outcome_->setText(outcome.sentence.empty() ? done : QString());
    if (!outcome.sentence.empty()) session_.person.Say(outcome.sentence);
    if (outcome.rebuildColumns) Q_EMIT ColumnsChanged();
    if (outcome.openScheduler) Q_EMIT ScheduleAsked();
}

}  // namespace brantlow
