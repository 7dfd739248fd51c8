// The box above the settings' tabs that finds any setting by its words: what is typed lists the settings that
// hold it, and the chosen one is brought to the front with its tab.
#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QStringList>
#include <vector>

class QTabWidget;

namespace brantlow {

class FoundMark;

class SettingsFinder final : public QLineEdit {
    Q_OBJECT
  public:
    // `tabs` has its pages by now, and outlives this.
    explicit SettingsFinder(QTabWidget& tabs);
    ~SettingsFinder() override;

    // The words of all settings, each behind its tab and its group.
    const QStringList& Lines() const { return lines_; }
    // Brings the setting of this line to the front, marked until the next press; false for no line of
    // Lines().
    bool Find(const QString& line);

  private:
    void Collect(int tab);
    void FindTyped();

    QTabWidget& tabs_;
    QStringList lines_;
    std::vector<QPointer<QWidget>> controls_;
    QPointer<FoundMark> mark_;
};

}  // namespace brantlow
