// The window "Alarm Mail": the server, the login and the addresses by which fired alarms are mailed, the
// lines of VTRMAILset.ini, and the trial of what stands in the fields. The password is never shown and goes
// into Data/Keys.ini alone. The Settings menu, the settings screen and the list of fired alarms open it.
#pragma once

#include <QDialog>
#include <string>

#include "alerts/alarm_mail.h"
#include "alerts/windows/mail_sending.h"
#include "shell/session.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QWidget;

namespace brantlow {

class frmAlarmMail final : public QDialog {
    Q_OBJECT
  public:
    // The session outlives the window. The fields are filled from the settings in force.
    frmAlarmMail(Session& session, QWidget* parent);

    // Keeps what stands in the fields, unless alarms are to be mailed and cannot be by it.
    void accept() override;

  private:
    QLineEdit* AddLine(QFormLayout& form, const char* name, const QString& words, const QString& toolTip);
    QWidget* BuildFields();
    QWidget* BuildPassword();
    QWidget* BuildButtons();
    void FillFields();
    void EnableParts();
    void ShowPasswordState();
    // The port that goes with the encryption, where the other's usual one stands.
    void SuitPort();

    // The settings as the fields have them.
    SettingsTables Draft() const;
    // Where a letter takes its password from: the field first.
    Environment PasswordSource() const;
    // What is wrong with the fields, empty where a mail can be sent by them.
    QString Wrong(const AlarmLetter& letter) const;
    void Test();
    void RemovePassword();
    bool KeepPassword();
    void Tell(const QString& words);

    Session& session_;
    MailSending sending_;
    QCheckBox* mails_;
    QLineEdit* host_ = nullptr;
    QSpinBox* port_ = nullptr;
    QComboBox* security_ = nullptr;
    QLineEdit* user_ = nullptr;
    QLineEdit* password_ = nullptr;
    QLabel* passwordState_ = nullptr;
    QLineEdit* sender_ = nullptr;
    QLineEdit* recipient_ = nullptr;
    QLabel* outcome_;
    QPushButton* remove_ = nullptr;
    QPushButton* test_ = nullptr;
};

}  // namespace brantlow
