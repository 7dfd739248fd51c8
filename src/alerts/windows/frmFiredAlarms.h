// The window "Fired Alarms": the price alarms that updates noticed, newest first, until a person has read
// them. It stands beside the work and blocks nothing. The View menu, the status bar's count of unread alarms
// and a press on the desktop's bubble open it.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "alerts/fired_alarms.h"
#include "shell/session.h"

class QLabel;
class QPushButton;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace brantlow {

// "1 unread alarm", "3 unread alarms".
QString UnreadWords(std::size_t count);

class frmFiredAlarms final : public QDialog {
    Q_OBJECT
  public:
    // The session outlives the window.
    frmFiredAlarms(Session& session, QWidget* parent);

    // Reads the list anew; what was marked as read in this window stays in it until it is closed.
    void Refresh();
    // Tells how it stands with the mail of the alarms; nothing for an empty text.
    void ShowMail(const QString& words);

  Q_SIGNALS:
    void ChartAsked(const std::string& ticker);
    void MailSettingsAsked();
    // The list has fewer unread alarms than before.
    void ReadMarked();

  private:
    struct Row {
        FiredAlarm alarm;
        bool isRead = false;
    };

    QTreeWidget* BuildList();
    QWidget* BuildButtons();
    QPushButton* AddButton(const char* name, const QString& words, const QString& toolTip,
                           void (frmFiredAlarms::*clicked)());
    void Fill();
    void EnableParts();
    std::size_t Unread() const;
    std::vector<std::size_t> SelectedRows() const;
    void MarkSelected();
    void MarkAll();
    // Marks these rows, by their places in rows_.
    void MarkAsRead(const std::vector<std::size_t>& places);
    void OpenChart();

    Session& session_;
    std::vector<Row> rows_;  // newest first
    QLabel* count_;
    QLabel* mail_;
    QStackedWidget* pages_;
    QTreeWidget* list_;
    QPushButton* read_ = nullptr;
    QPushButton* readAll_ = nullptr;
    QPushButton* chart_ = nullptr;
};

}  // namespace brantlow
