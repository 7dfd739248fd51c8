#include "shell/frame/windows/alarm_commands.h"

#include <QIcon>
#include <QMainWindow>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>

#include "alerts/windows/frmAlarmMail.h"
#include "base/windows/display_text.h"
#include "chart/condition_series.h"
#include "shell/frame/windows/window_person.h"

namespace brantlow {

namespace {

constexpr int kClockMilliseconds = 1000;
constexpr const char* kShowsList = "Click to see the price alarms that fired";

}  // namespace

AlarmCommands::AlarmCommands(const FrameHands& frame) : frame_(frame) {
    QObject::connect(&notices_, &DesktopNotices::Pressed, &frame_.window, [this] {
        frame_.window.raise();
        frame_.window.activateWindow();
        ShowList();
    });
}

CommandRows AlarmCommands::Rows() {
    static constexpr SubjectRow<AlarmCommands> kRows[] = {
        {"mnuViewFiredAlarms", &AlarmCommands::ShowList},
        {"mnuSettingsAlarmMail", &AlarmCommands::AlarmMail},
    };
    return RowsOf(*this, kRows);
}

void AlarmCommands::Start() {
    auto* unread = new QToolButton;
    unread->setObjectName(QStringLiteral("cmdUnreadAlarms"));
    unread->setAutoRaise(true);
    unread->setIcon(QIcon(QStringLiteral(":/icons/alarm.svg")));
    unread->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QObject::connect(unread, &QToolButton::clicked, &frame_.window, [this] { ShowList(); });
    frame_.window.statusBar()->addPermanentWidget(unread);
    unread_ = unread;
    auto* clock = new QTimer(&frame_.window);
    clock->setObjectName(QStringLiteral("tmrAlarmMail"));
    clock->setInterval(kClockMilliseconds);
    QObject::connect(clock, &QTimer::timeout, &frame_.window, [this] { LookAtClock(); });
    clock_ = clock;
    ShowUnread();
}

void AlarmCommands::ShowUnread() {
    if (list_) {
        list_->Refresh();
        list_->ShowMail(Shown(trouble_));
    }
    if (!unread_) return;
    Failure failure;
    const std::size_t count = LoadFiredAlarms(frame_.session.DataFolder(), failure).size();
    QString words = UnreadWords(count);
    if (!trouble_.empty())
        words += retry_.IsWaiting() ? QStringLiteral(", mail waits") : QStringLiteral(", mail failed");
    unread_->setText(words);
    unread_->setToolTip(trouble_.empty() ? QString::fromLatin1(kShowsList) : Shown(trouble_));
    unread_->setVisible(count > 0);
}

void AlarmCommands::ShowList() {
    if (!list_) {
        list_ = new frmFiredAlarms(frame_.session, &frame_.window);
        list_->setAttribute(Qt::WA_DeleteOnClose);
        QObject::connect(list_, &frmFiredAlarms::ChartAsked, &frame_.window,
                         [this](const std::string& ticker) { OpenChart(ticker); });
        QObject::connect(list_, &frmFiredAlarms::MailSettingsAsked, &frame_.window,
                         [this] { OpenMail(list_); });
        QObject::connect(list_, &frmFiredAlarms::ReadMarked, &frame_.window, [this] { ShowUnread(); });
    }
    ShowUnread();
    list_->show();
    list_->raise();
    list_->activateWindow();
}

void AlarmCommands::OpenChart(const std::string& ticker) {
    if (frame_.person.InRun()) return frame_.notice("A chart can be opened once the run is over.");
    frame_.openChart({.ticker = ticker, .day = {}});
    frame_.window.activateWindow();
}

void AlarmCommands::AlarmMail() {
    OpenMail(&frame_.window);
}

void AlarmCommands::OpenMail(QWidget* asking) {
    auto* mail = new frmAlarmMail(frame_.session, asking);
    QObject::connect(mail, &QDialog::finished, mail, &QObject::deleteLater);
    // What was refused may go by other settings.
    QObject::connect(mail, &QDialog::accepted, &frame_.window, [this] { RetryWhatIsDue(); });
    mail->open();
}

void AlarmCommands::TakeRun(const std::vector<FiredAlarm>& fired, const MailTold& mail) {
    Note(mail);
    ShowUnread();
    ShowAlarms(fired, notices_.Doors());
}

void AlarmCommands::Note(const MailTold& told) {
    if (told.isSent) return EndRetry({});
    if (told.failure.empty() || told.wasStopped) return;
    if (!told.comesAgain) return EndRetry(told.failure);
    RetryWhatIsDue();
    trouble_ = Waiting(told.failure);
}

std::string AlarmCommands::Waiting(const std::string& failure) const {
    return failure + (retry_.IsWaiting() ? ". It is tried again at " + retry_.NextText() + "."
                                         : ". It goes with the next update.");
}

void AlarmCommands::RetryWhatIsDue() {
    Failure failure;
    if (IsMailing() || AlarmsToMail(frame_.session.DataFolder(), failure).empty()) return;
    retry_.Begin(frame_.session.clock);
    if (clock_) clock_->start();
}

void AlarmCommands::EndRetry(const std::string& trouble) {
    retry_.End();
    trouble_ = trouble;
    if (clock_) clock_->stop();
}

void AlarmCommands::LookAtClock() {
    if (!retry_.IsDue(frame_.session.clock) || IsMailing() || frame_.person.InRun()) return;
    MailAgain();
    ShowUnread();
}

// Nothing is due where the person has read the alarms meanwhile, or wants no mails any more.
void AlarmCommands::MailAgain() {
    const Session& session = frame_.session;
    Failure failure;
    const std::vector<FiredAlarm> due = AlarmsToMail(session.DataFolder(), failure);
    if (due.empty() || !MailsAlarms(session.settings)) return EndRetry(failure ? Sentence(failure) : "");
    const AlarmLetter letter = LetterOfAlarms(session, session.settings, SystemEnvironment(), due);
    if (!letter.refusal.empty()) return EndRetry(letter.refusal);
    sending_.Send(letter.request, [this, due, request = letter.request](const MailReply& reply) {
        TakeReply(due, ToldOf(request, reply));
    });
}

void AlarmCommands::TakeReply(const std::vector<FiredAlarm>& mailed, const MailTold& told) {
    if (told.isSent) {
        const Failure failure = MarkAlarmsMailed(frame_.session.DataFolder(), mailed);
        EndRetry(Sentence(failure));
        frame_.notice("The mail of the fired alarms was sent.");
        // A run that fired others meanwhile left them to this.
        if (!failure) RetryWhatIsDue();
    } else if (told.comesAgain) {
        retry_.PutOff(frame_.session.clock);
        trouble_ = Waiting(told.failure);
    } else {
        EndRetry(told.failure);
        frame_.notice(told.failure);
    }
    ShowUnread();
}

}  // namespace brantlow
