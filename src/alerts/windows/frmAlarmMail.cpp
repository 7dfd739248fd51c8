#include "alerts/windows/frmAlarmMail.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "base/text.h"
#include "base/windows/display_text.h"
#include "base/windows/wheel_guard.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_draft.h"

namespace brantlow {

namespace {

constexpr int kWidth = 560;
constexpr int kMostPort = 65535;
// By MailSecurity.
constexpr std::array kUsualPorts = {465, 587};
constexpr std::array kSecurityWords = {"TLS from the first byte (mostly port 465)",
                                       "STARTTLS (mostly port 587)"};

std::string Entered(const QLineEdit& line) {
    return std::string(Trim(line.text().toStdString()));
}

QString AsSentence(const std::string& words) {
    QString sentence = Shown(words);
    if (!sentence.isEmpty()) sentence[0] = sentence[0].toUpper();
    return sentence + QLatin1Char('.');
}

}  // namespace

frmAlarmMail::frmAlarmMail(Session& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      sending_(this),
      mails_(new QCheckBox(QStringLiteral("&Mail the alarms that fire in an update"))),
      outcome_(new QLabel) {
    setObjectName(QStringLiteral("frmAlarmMail"));
    setWindowTitle(QStringLiteral("Alarm Mail"));
    auto* layout = new QVBoxLayout(this);
    mails_->setObjectName(QStringLiteral("chkMails"));
    mails_->setToolTip(QStringLiteral("One mail after each update in which alarms fired, with all of them"));
    layout->addWidget(mails_);
    layout->addWidget(BuildFields());
    outcome_->setObjectName(QStringLiteral("lblOutcome"));
    outcome_->setTextFormat(Qt::PlainText);
    outcome_->setWordWrap(true);
    outcome_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    outcome_->setMinimumHeight(2 * fontMetrics().lineSpacing());
    outcome_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->addWidget(outcome_);
    layout->addStretch();
    layout->addWidget(BuildButtons());
    FillFields();
    ShowPasswordState();
    EnableParts();
    resize(kWidth, sizeHint().height());
}

QLineEdit* frmAlarmMail::AddLine(QFormLayout& form, const char* name, const QString& words,
                                 const QString& toolTip) {
    auto* line = new QLineEdit;
    line->setObjectName(QString::fromLatin1(name));
    line->setToolTip(toolTip);
    connect(line, &QLineEdit::textEdited, this, &frmAlarmMail::EnableParts);
    form.addRow(words, line);
    return line;
}

QWidget* frmAlarmMail::BuildFields() {
    auto* frame = new QGroupBox(QStringLiteral("Your mail server"));
    auto* form = new QFormLayout(frame);
    host_ = AddLine(*form, "txtHost", QStringLiteral("&Server:"),
                    QStringLiteral("The server by which your mail program sends, smtp.example.org"));
    host_->setPlaceholderText(QStringLiteral("smtp.example.org"));
    security_ = new QComboBox;
    GuardWheel(*security_);
    security_->setObjectName(QStringLiteral("cboSecurity"));
    security_->setToolTip(QStringLiteral("Nothing is sent over a connection that is not encrypted"));
    for (const char* words : kSecurityWords) security_->addItem(QString::fromLatin1(words));
    form->addRow(QStringLiteral("&Encryption:"), security_);
    port_ = new QSpinBox;
    port_->setObjectName(QStringLiteral("numPort"));
    port_->setToolTip(QStringLiteral("The server's port"));
    port_->setRange(1, kMostPort);
    form->addRow(QStringLiteral("P&ort:"), port_);
    user_ = AddLine(*form, "txtUser", QStringLiteral("&User:"),
                    QStringLiteral("The name that logs in; empty for a server that asks for none"));
    auto* password = BuildPassword();
    auto* label = new QLabel(QStringLiteral("&Password:"));
    label->setBuddy(password_);
    form->addRow(label, password);
    sender_ = AddLine(*form, "txtSender", QStringLiteral("&From:"),
                      QStringLiteral("The sender's address; empty for that of the first recipient"));
    sender_->setPlaceholderText(QStringLiteral("as the first recipient"));
    recipient_ = AddLine(*form, "txtRecipient", QStringLiteral("&Recipients:"),
                         QStringLiteral("The addresses that get the mails, commas between them"));
    recipient_->setPlaceholderText(QStringLiteral("you@example.org"));
    connect(security_, &QComboBox::currentIndexChanged, this, &frmAlarmMail::SuitPort);
    return frame;
}

QWidget* frmAlarmMail::BuildPassword() {
    auto* part = new QWidget;
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins({});
    auto* row = new QHBoxLayout;
    column->addLayout(row);
    password_ = new QLineEdit;
    password_->setObjectName(QStringLiteral("txtPassword"));
    password_->setAccessibleName(QStringLiteral("Password"));
    password_->setEchoMode(QLineEdit::Password);
    password_->setInputMethodHints(Qt::ImhSensitiveData | Qt::ImhNoPredictiveText);
    password_->setToolTip(
        QStringLiteral("It goes into Data/Keys.ini, which only you can read, and is never shown"));
    connect(password_, &QLineEdit::textEdited, this, &frmAlarmMail::EnableParts);
    row->addWidget(password_, 1);
    remove_ = new QPushButton(QStringLiteral("Remo&ve"));
    remove_->setObjectName(QStringLiteral("cmdRemovePassword"));
    remove_->setToolTip(QStringLiteral("Take the password out of Data/Keys.ini"));
    remove_->setAutoDefault(false);
    connect(remove_, &QPushButton::clicked, this, &frmAlarmMail::RemovePassword);
    row->addWidget(remove_);
    passwordState_ = new QLabel;
    passwordState_->setObjectName(QStringLiteral("lblPasswordState"));
    passwordState_->setTextFormat(Qt::PlainText);
    passwordState_->setWordWrap(true);
    column->addWidget(passwordState_);
    return part;
}

QWidget* frmAlarmMail::BuildButtons() {
    auto* part = new QWidget;
    auto* row = new QHBoxLayout(part);
    row->setContentsMargins({});
    test_ = new QPushButton;
    test_->setObjectName(QStringLiteral("cmdTest"));
    test_->setToolTip(QStringLiteral("Send a mail by what stands in the fields; nothing is kept"));
    test_->setAutoDefault(false);
    connect(test_, &QPushButton::clicked, this, &frmAlarmMail::Test);
    row->addWidget(test_);
    row->addStretch();
    auto* box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    box->button(QDialogButtonBox::Ok)->setToolTip(QStringLiteral("Keep the settings and close"));
    box->button(QDialogButtonBox::Cancel)->setToolTip(QStringLiteral("Close and keep nothing"));
    connect(box, &QDialogButtonBox::accepted, this, &frmAlarmMail::accept);
    connect(box, &QDialogButtonBox::rejected, this, &frmAlarmMail::reject);
    row->addWidget(box);
    return part;
}

void frmAlarmMail::FillFields() {
    const SettingsTables& settings = session_.settings;
    mails_->setChecked(Get(settings, kMailsAlarms));
    host_->setText(Shown(Get(settings, kMailHost)));
    security_->setCurrentIndex(static_cast<int>(Get(settings, kMailSecurity)));
    port_->setValue(static_cast<int>(Get(settings, kMailPort)));
    user_->setText(Shown(Get(settings, kMailUser)));
    sender_->setText(Shown(Get(settings, kMailSender)));
    recipient_->setText(Shown(Get(settings, kMailRecipient)));
}

void frmAlarmMail::SuitPort() {
    const int chosen = security_->currentIndex();
    if (port_->value() == kUsualPorts.at(static_cast<std::size_t>(1 - chosen))) {
        port_->setValue(kUsualPorts.at(static_cast<std::size_t>(chosen)));
    }
}

void frmAlarmMail::ShowPasswordState() {
    const char* const variable = SystemEnvironment()(KeyVariable(kMailKeyName).c_str());
    const bool isInEnvironment = variable != nullptr && *variable != '\0';
    const Environment none = [](const char*) -> const char* { return nullptr; };
    const bool isKept = !FindKey(session_.DataFolder(), kMailKeyName, none).empty();
    password_->setEnabled(!isInEnvironment);
    password_->setPlaceholderText(isKept ? QStringLiteral("(kept)") : QString());
    remove_->setEnabled(isKept);
    passwordState_->setText(
        isInEnvironment ? QStringLiteral("The environment variable %1 holds it; that one counts.")
                              .arg(Shown(KeyVariable(kMailKeyName)))
        : isKept ? QStringLiteral("A password is kept in Data/Keys.ini; one that is entered replaces it.")
                 : QStringLiteral("No password is kept. Many services want one made for programs."));
}

void frmAlarmMail::EnableParts() {
    const bool isTesting = sending_.IsUnderWay();
    test_->setText(isTesting ? QStringLiteral("S&top") : QStringLiteral("&Test"));
}

void frmAlarmMail::Tell(const QString& words) {
    outcome_->setText(words);
}

SettingsTables frmAlarmMail::Draft() const {
    SettingsTables draft = session_.settings;
    Set(draft, kMailsAlarms, mails_->isChecked());
    Set(draft, kMailHost, Entered(*host_));
    Set(draft, kMailPort, port_->value());
    Set(draft, kMailSecurity, static_cast<MailSecurity>(security_->currentIndex()));
    Set(draft, kMailUser, Entered(*user_));
    Set(draft, kMailSender, Entered(*sender_));
    Set(draft, kMailRecipient, Entered(*recipient_));
    return draft;
}

Environment frmAlarmMail::PasswordSource() const {
    if (password_->text().isEmpty()) return SystemEnvironment();
    return [password = password_->text().toStdString()](const char*) { return password.c_str(); };
}

QString frmAlarmMail::Wrong(const AlarmLetter& letter) const {
    if (letter.refusal.empty()) return {};
    if (!letter.fault.empty()) return AsSentence(letter.fault);
    if (letter.request.password.empty()) {
        return QStringLiteral("Enter the password of %1, or leave the user empty.").arg(user_->text());
    }
    return AsSentence(letter.refusal);
}

void frmAlarmMail::Test() {
    if (sending_.IsUnderWay()) return sending_.Stop();
    const AlarmLetter letter = TestLetter(session_, Draft(), PasswordSource());
    if (!letter.refusal.empty()) return Tell(Wrong(letter));
    const MailRequest& request = letter.request;
    Tell(QStringLiteral("Sending a mail by %1:%2 ...").arg(Shown(request.host)).arg(request.port));
    sending_.Send(request, [this, request](const MailReply& reply) {
        const MailTold told = ToldOf(request, reply);
        const QString done =
            QStringLiteral("The mail was sent to %1.").arg(Shown(request.recipients.front()));
        Tell(told.isSent       ? done
             : told.wasStopped ? QStringLiteral("The test was stopped.")
                               : Shown(told.failure));
        EnableParts();
    });
    EnableParts();
}

void frmAlarmMail::RemovePassword() {
    const std::error_code error = WriteSourceKey(session_.DataFolder(), kMailKeyName, {});
    Tell(error ? QStringLiteral("Data/Keys.ini: cannot be written: %1").arg(Shown(error.message()))
               : QStringLiteral("The password is no longer kept."));
    ShowPasswordState();
}

bool frmAlarmMail::KeepPassword() {
    const std::string password = password_->text().toStdString();
    if (password.empty()) return true;
    if (const std::string why = KeyTextRefusal(password); !why.empty()) {
        Tell(AsSentence("The password cannot be used: " + why));
        return false;
    }
    if (const std::error_code error = WriteSourceKey(session_.DataFolder(), kMailKeyName, password)) {
        Tell(QStringLiteral("Data/Keys.ini: cannot be written: %1").arg(Shown(error.message())));
        return false;
    }
    password_->clear();
    ShowPasswordState();
    return true;
}

void frmAlarmMail::accept() {
    const SettingsTables draft = Draft();
    if (mails_->isChecked()) {
        const QString wrong = Wrong(TestLetter(session_, draft, PasswordSource()));
        if (!wrong.isEmpty()) return Tell(wrong);
    }
    const std::string refusal = UnreadableSettings(SettingsFile::Mail, session_.AppPath, session_.settings);
    if (!refusal.empty()) return Tell(Shown(refusal));
    if (!KeepPassword()) return;
    const Failure fault =
        ApplySettings(draft, SettingsFile::Mail, OrdinaryChange(session_.AppPath), session_.settings);
    if (fault) return Tell(Shown(Sentence(fault)));
    QDialog::accept();
}

}  // namespace brantlow
