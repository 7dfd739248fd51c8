// Terms, Conditions, and Disclaimer, to be read and accepted.
#pragma once

#include <QDialog>

class QCheckBox;

namespace brantlow {

class Person;

class frmDisclaimer final : public QDialog {
    Q_OBJECT
  public:
    // The person outlives the window.
    frmDisclaimer(Person& person, QWidget* parent);

  private:
    void Command1_Click();

    Person& person_;
    QCheckBox* Check1;
};

}  // namespace brantlow
