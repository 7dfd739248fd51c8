// About Brantlow: name, version, what the program is for, the licences, and the way to the
// system's information.
#pragma once

#include <QDialog>

namespace brantlow {

class frmAbout final : public QDialog {
    Q_OBJECT
  public:
    explicit frmAbout(QWidget* parent);

  private:
    void cmdLicences_Click();
    void cmdSysInfo_Click();
};

}  // namespace brantlow
