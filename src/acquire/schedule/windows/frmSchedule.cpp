#include "acquire/schedule/windows/frmSchedule.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimeEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>

#include "acquire/schedule/update_schedule.h"
#include "base/dates.h"
#include "base/windows/display_text.h"

namespace brantlow {

namespace {

constexpr int kTextWidth = 460;
constexpr int kMargin = 16;
constexpr int kDayColumns = 5;
constexpr int kMinutesPerHour = 60;
// After the close of the market at home, where nothing else was chosen yet.
constexpr int kUsualMinute = 17 * kMinutesPerHour;

constexpr std::string_view kExplanation =
    "Your system can start Brantlow a little before the daily update. Brantlow then opens the last quote "
    "file by itself, waits for the time of the update and collects the quotes.";

struct DayWords {
    std::string_view box;  // with its mnemonic
    std::string_view name;
};
constexpr std::array<DayWords, kDaysInWeek> kDayWords = {{{"&Monday", "Monday"},
                                                          {"T&uesday", "Tuesday"},
                                                          {"&Wednesday", "Wednesday"},
                                                          {"T&hursday", "Thursday"},
                                                          {"&Friday", "Friday"},
                                                          {"&Saturday", "Saturday"},
                                                          {"Su&nday", "Sunday"}}};

struct KeeperWords {
    StartKeeper keeper;
    std::string_view words;
};
constexpr std::array<KeeperWords, 2> kKeeperWords = {
    {{StartKeeper::Systemd, "by a timer of your system (systemd)"},
     {StartKeeper::Crontab, "by a line of your crontab"}}};

std::string DaysText(const std::array<bool, kDaysInWeek>& days) {
    if (days == kMondayToFriday) return "Monday to Friday";
    if (std::count(days.begin(), days.end(), true) == static_cast<int>(kDaysInWeek)) return "Every day";
    std::string text;
    for (std::size_t i = 0; i < kDaysInWeek; ++i) {
        if (days[i]) text.append(text.empty() ? "" : ", ").append(kDayWords[i].name);
    }
    return text;
}

std::string InstalledText(const std::optional<InstalledStart>& installed) {
    if (!installed) return "No start is installed. Brantlow updates at the chosen time when it is open then.";
    std::string text = DaysText(installed->start.days) + " at " + FormatTime(installed->start.minute);
    for (const KeeperWords& row : kKeeperWords) {
        if (row.keeper == installed->keeper) text.append(", ").append(row.words);
    }
    return text + ".";
}

QLabel* WrappedLabel(const QString& name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setWordWrap(true);
    return label;
}

QPushButton* AddButton(QDialogButtonBox& box, const QString& name, const QString& words,
                       QDialogButtonBox::ButtonRole role, const QString& toolTip) {
    QPushButton* button = box.addButton(words, role);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    return button;
}

}  // namespace

frmSchedule::frmSchedule(Session& session, ScheduleSystem system, StartedProgram started, QWidget* parent)
    : QDialog(parent),
      session_(session),
      system_(std::move(system)),
      started_(std::move(started)),
      time_(new QTimeEdit),
      start_(WrappedLabel(QStringLiteral("Label2"))),
      installed_(WrappedLabel(QStringLiteral("Label3"))),
      remove_(nullptr) {
    setObjectName(QStringLiteral("frmSchedule"));
    setWindowTitle(QStringLiteral("Scheduled Start"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin * 2 / 3);
    QLabel* explanation = WrappedLabel(QStringLiteral("Label1"));
    explanation->setText(Name(kExplanation));
    // It takes all the width that there is: of a narrower text the window would count too few lines.
    explanation->setMinimumWidth(kTextWidth);
    QSizePolicy policy = explanation->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Ignored);
    explanation->setSizePolicy(policy);
    layout->addWidget(explanation);
    layout->addWidget(DaysBox());
    layout->addLayout(TimeRow());
    layout->addWidget(start_);
    layout->addWidget(InstalledBox());
    layout->addWidget(Buttons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ShowInstalled();
    ShowStart();
}

QWidget* frmSchedule::DaysBox() {
    auto* box = new QGroupBox(QStringLiteral("Days of the update"));
    box->setObjectName(QStringLiteral("Frame1"));
    auto* grid = new QGridLayout(box);
    const auto installed = FindScheduledStart(system_);
    const auto days = installed ? ChosenTimeOf(installed->start).days : kMondayToFriday;
    for (std::size_t i = 0; i < kDaysInWeek; ++i) {
        days_[i] = new QCheckBox(Name(kDayWords[i].box));
        days_[i]->setObjectName(QStringLiteral("Check%1").arg(i + 1));
        days_[i]->setChecked(days[i]);
        connect(days_[i], &QCheckBox::toggled, this, &frmSchedule::ShowStart);
        const int place = static_cast<int>(i);
        grid->addWidget(days_[i], place / kDayColumns, place % kDayColumns);
    }
    const auto minute = installed ? ChosenTimeOf(installed->start).minute
                                  : DailyRunMinute(session_.settings).value_or(kUsualMinute);
    time_->setTime(QTime(minute / kMinutesPerHour, minute % kMinutesPerHour));
    return box;
}

QLayout* frmSchedule::TimeRow() {
    time_->setObjectName(QStringLiteral("TimeOfUpdate"));
    time_->setDisplayFormat(QStringLiteral("HH:mm"));
    connect(time_, &QTimeEdit::timeChanged, this, &frmSchedule::ShowStart);
    auto* words = new QLabel(QStringLiteral("&Time of the update"));
    words->setBuddy(time_);
    auto* row = new QHBoxLayout;
    row->addWidget(words);
    row->addWidget(time_);
    row->addStretch();
    return row;
}

QWidget* frmSchedule::InstalledBox() {
    auto* box = new QGroupBox(QStringLiteral("Installed start"));
    box->setObjectName(QStringLiteral("Frame2"));
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(installed_);
    return box;
}

QWidget* frmSchedule::Buttons() {
    auto* box = new QDialogButtonBox(this);
    QPushButton* install = AddButton(
        *box, QStringLiteral("Command1"), QStringLiteral("&Install"), QDialogButtonBox::ActionRole,
        QStringLiteral("Have the system start Brantlow on these days, in place of any earlier start"));
    install->setDefault(true);
    remove_ = AddButton(*box, QStringLiteral("Command2"), QStringLiteral("&Remove"),
                        QDialogButtonBox::ActionRole, QStringLiteral("Remove the start that is installed"));
    AddButton(*box, QStringLiteral("Command3"), QStringLiteral("Close"), QDialogButtonBox::RejectRole,
              QStringLiteral("Leave everything as it is installed"));
    connect(install, &QPushButton::clicked, this, &frmSchedule::Install);
    connect(remove_, &QPushButton::clicked, this, &frmSchedule::Remove);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return box;
}

WeeklyTime frmSchedule::Chosen() const {
    WeeklyTime chosen;
    for (std::size_t i = 0; i < kDaysInWeek; ++i) chosen.days[i] = days_[i]->isChecked();
    chosen.minute = time_->time().hour() * kMinutesPerHour + time_->time().minute();
    return chosen;
}

void frmSchedule::ShowStart() {
    const WeeklyTime chosen = Chosen();
    const WeeklyTime start = StartTimeFor(chosen);
    std::string text = "The system will start Brantlow 5 minutes earlier, at " + FormatTime(start.minute);
    text += start.minute > chosen.minute ? " on the day before." : ".";
    start_->setText(Shown(text));
}

void frmSchedule::ShowInstalled() {
    const auto installed = FindScheduledStart(system_);
    installed_->setText(Shown(InstalledText(installed)));
    remove_->setEnabled(installed.has_value());
}

void frmSchedule::Install() {
    const WeeklyTime chosen = Chosen();
    if (chosen.days == std::array<bool, kDaysInWeek>{}) {
        session_.person.Say("You must select at least one day.", "Scheduled Start");
        return;
    }
    const std::string refusal = ScheduleDailyRun(system_, chosen, started_, session_.settings);
    ShowInstalled();
    if (!refusal.empty()) session_.person.Say(refusal, "Scheduled Start");
}

void frmSchedule::Remove() {
    const std::string refusal = RemoveScheduledStart(system_);
    ShowInstalled();
    if (!refusal.empty()) session_.person.Say(refusal, "Scheduled Start");
}

}  // namespace brantlow
