#include "screens/windows/settings_finder.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QShortcut>
#include <QStringListModel>
#include <QTabWidget>

#include "screens/windows/found_mark.h"

namespace brantlow {

namespace {

constexpr int kFoundRows = 14;

// The words that a control shows, without the mark of its letter; empty for one that shows none of its own.
QString WordsOf(const QWidget& control) {
    QString words;
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) words = button->text();
    if (const auto* label = qobject_cast<const QLabel*>(&control)) words = label->text();
    if (qobject_cast<const QComboBox*>(&control) || qobject_cast<const QAbstractItemView*>(&control))
        words = control.accessibleName();
    QString plain;
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (words.at(i) == u'&' && i + 1 < words.size()) ++i;
        plain += words.at(i);
    }
    return plain.simplified();
}

// The title of the group around a control; the colon behind some is put behind each.
QString GroupOf(const QWidget& control) {
    for (const QWidget* above = control.parentWidget(); above; above = above->parentWidget()) {
        const auto* group = qobject_cast<const QGroupBox*>(above);
        if (!group) continue;
        QString title = group->title().remove(u'&');
        if (title.endsWith(u':')) title.chop(1);
        return title;
    }
    return {};
}

// Where the keyboard goes for a control: to what a label stands for.
QWidget& Meant(QWidget& control) {
    const auto* label = qobject_cast<const QLabel*>(&control);
    return label && label->buddy() ? *label->buddy() : control;
}

}  // namespace

SettingsFinder::SettingsFinder(QTabWidget& tabs) : tabs_(tabs) {
    setObjectName(QStringLiteral("txtFindSetting"));
    setPlaceholderText(QStringLiteral("Find a setting (Ctrl+F)"));
    setAccessibleName(QStringLiteral("Find a setting by its words"));
    setToolTip(QStringLiteral("Type a word of the setting and choose it in the list"));
    setClearButtonEnabled(true);
    for (int tab = 0; tab < tabs.count(); ++tab) Collect(tab);
    auto* completer = new QCompleter(lines_, this);
    completer->setFilterMode(Qt::MatchContains);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setMaxVisibleItems(kFoundRows);
    setCompleter(completer);
    auto* const find = new QShortcut(QKeySequence(QKeySequence::Find), this);
    connect(find, &QShortcut::activated, this, [this] {
        setFocus();
        selectAll();
    });
    connect(completer, qOverload<const QString&>(&QCompleter::activated), this,
            [this](const QString& line) { Find(line); });
    connect(this, &QLineEdit::returnPressed, this, &SettingsFinder::FindTyped);
}

SettingsFinder::~SettingsFinder() = default;

// Enter behind a word without a choice in the list means the first that it offers.
void SettingsFinder::FindTyped() {
    if (text().isEmpty() || Find(text())) return;
    const QStringList found = lines_.filter(text(), Qt::CaseInsensitive);
    if (!found.isEmpty()) Find(found.constFirst());
}

void SettingsFinder::Collect(int tab) {
    const QString caption =
        tabs_.tabText(tab).replace(QStringLiteral("&&"), QStringLiteral("\n")).remove(u'&');
    for (QWidget* control : tabs_.widget(tab)->findChildren<QWidget*>()) {
        const QString words = WordsOf(*control);
        // Those that the style makes for itself have names of its own.
        if (words.isEmpty() || control->objectName().startsWith(QStringLiteral("qt_"))) continue;
        const QString group = GroupOf(*control);
        QString line = QString(caption).replace(u'\n', u'&') + QStringLiteral(": ");
        if (!group.isEmpty()) line += group + QStringLiteral(": ");
        line += words;
        if (lines_.contains(line)) continue;
        lines_ << line;
        controls_.emplace_back(control);
    }
}

bool SettingsFinder::Find(const QString& line) {
    const qsizetype place = lines_.indexOf(line);
    QWidget* const control = place < 0 ? nullptr : controls_[static_cast<std::size_t>(place)].data();
    if (!control) return false;
    for (int tab = 0; tab < tabs_.count(); ++tab) {
        if (tabs_.widget(tab)->isAncestorOf(control)) tabs_.setCurrentIndex(tab);
    }
    if (auto* area = qobject_cast<QScrollArea*>(tabs_.currentWidget())) area->ensureWidgetVisible(control);
    Meant(*control).setFocus(Qt::TabFocusReason);
    delete mark_;
    mark_ = new FoundMark(*control, Meant(*control));
    return true;
}

}  // namespace brantlow
