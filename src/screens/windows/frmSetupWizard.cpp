#include "screens/windows/frmSetupWizard.h"

#include <QDialogButtonBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "base/windows/buttons.h"
#include "base/windows/display_text.h"
#include "base/windows/screen_room.h"

namespace brantlow {

namespace {

// Room for the largest form, so that the window keeps its size from step to step; with letters of this
// height.
constexpr QSize kWizardSize(640, 560);
constexpr double kUsualLetters = 14;
constexpr int kMargin = 14;
constexpr int kPicturePixels = 40;
constexpr double kTitleScale = 1.3;

QLabel* NewTitle() {
    auto* title = new QLabel(Name(kWizardHead));
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * kTitleScale);
    title->setFont(font);
    return title;
}

}  // namespace

frmSetupWizard::frmSetupWizard(Session& session, const Hosts& hosts, QWidget* parent)
    : QDialog(parent), session_(session), hosts_(hosts), head_(new QLabel), place_(new QVBoxLayout) {
    setObjectName(QStringLiteral("frmSetupWizard"));
    setWindowTitle(Name(kWizardTitle));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(BuildHead());
    place_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addLayout(place_, 1);
    layout->addWidget(BuildButtons());
    const double larger = std::max(1.0, fontMetrics().height() / kUsualLetters);
    resize((kWizardSize * larger).boundedTo(RoomOnScreen(*this)));
    driver_.Start();
    ShowStep();
}

QWidget* frmSetupWizard::BuildHead() {
    auto* head = new QFrame;
    head->setBackgroundRole(QPalette::Base);
    head->setAutoFillBackground(true);
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    auto* picture = new QLabel;
    picture->setPixmap(QIcon(QStringLiteral(":/icons/brantlow.svg"))
                           .pixmap(QSize(kPicturePixels, kPicturePixels), devicePixelRatioF()));
    row->addWidget(picture);
    auto* words = new QVBoxLayout;
    words->addWidget(NewTitle());
    head_->setObjectName(QStringLiteral("Head"));
    head_->setTextFormat(Qt::PlainText);
    words->addWidget(head_);
    row->addLayout(words, 1);
    return head;
}

QWidget* frmSetupWizard::BuildButtons() {
    auto* foot = new QWidget;
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(kMargin, 0, kMargin, kMargin);
    row->addStretch();
    back_ = AddButton(*row, QStringLiteral("cmdBack"), QStringLiteral("<<&Back"),
                      QStringLiteral("Go to the step before; nothing of this step is kept"));
    next_ = AddButton(*row, QStringLiteral("cmdNext"), QStringLiteral("&Next>>"),
                      QStringLiteral("Keep this step and go on"));
    finish_ = AddButton(*row, QStringLiteral("cmdFinish"), QStringLiteral("&Finish"),
                        QStringLiteral("Close the wizard"));
    cancel_ = AddButton(*row, QStringLiteral("cmdCancel"), QStringLiteral("&Cancel"),
                        QStringLiteral("Leave the wizard; the steps done so far are kept"));
    connect(back_, &QPushButton::clicked, this, &frmSetupWizard::Back);
    connect(next_, &QPushButton::clicked, this, &frmSetupWizard::Next);
    connect(finish_, &QPushButton::clicked, this, &frmSetupWizard::Finish);
    connect(cancel_, &QPushButton::clicked, this, &frmSetupWizard::reject);
    return foot;
}

// Unloads the form that is shown and loads the one whose turn it is.
void frmSetupWizard::ShowStep() {
    const std::size_t step = driver_.StepToShow().value_or(1);
    delete form_.widget;
    form_ = MakeWizardForm(step, session_, hosts_, [this](StartWay way) { Begin(way); });
    place_->addWidget(form_.widget);
    form_.widget->show();
    head_->setText(Name(kWizardSteps[step - 1].head));
    const bool isLast = step == kWizardSteps.size();
    back_->setVisible(step > 1);
    next_->setVisible(!isLast);
    finish_->setVisible(isLast);
    cancel_->setVisible(!isLast);
    QPushButton* onward = isLast ? finish_ : next_;
    onward->setDefault(true);
    QWidget* first = form_.widget->focusProxy();
    (first ? first : onward)->setFocus();
}

std::optional<WizardOutcome> frmSetupWizard::Keep() {
    WizardOutcome outcome = form_.next();
    if (!outcome.sentence.empty()) session_.person.Say(outcome.sentence);
    if (outcome.stays) return std::nullopt;
    return outcome;
}

void frmSetupWizard::Next() {
    const std::optional<WizardOutcome> outcome = Keep();
    if (!outcome) return;
    driver_.Next();
    ShowStep();
    if (outcome->openScheduler) Q_EMIT ScheduleAsked();
}

void frmSetupWizard::Begin(StartWay way) {
    if (!Keep()) return;
    Finish();
    Q_EMIT BeginAsked(way);
}

void frmSetupWizard::Back() {
    driver_.Back();
    ShowStep();
}

void frmSetupWizard::Finish() {
    driver_.End();
    accept();
}

void frmSetupWizard::reject() {
    driver_.End();
    QDialog::reject();
}

}  // namespace brantlow
