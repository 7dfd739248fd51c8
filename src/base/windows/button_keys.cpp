#include "base/windows/button_keys.h"

#include <QAbstractButton>
#include <QDialog>
#include <QEvent>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>

#include "base/windows/mnemonics.h"

namespace brantlow {

namespace {

void Take(const QString& words, QString& taken) {
    const QKeySequence keys = QKeySequence::mnemonic(words);
    if (!keys.isEmpty()) taken += QChar(static_cast<char16_t>(keys[0].key()));
}

// The letters that the window answers to by now, in capitals.
QString TakenIn(const QWidget& window) {
    QString taken;
    for (const QWidget* part : window.findChildren<QWidget*>()) {
        if (const auto* button = qobject_cast<const QAbstractButton*>(part)) Take(button->text(), taken);
        if (const auto* box = qobject_cast<const QGroupBox*>(part)) Take(box->title(), taken);
        const auto* const label = qobject_cast<const QLabel*>(part);
        if (label && label->buddy()) Take(label->text(), taken);
        const auto* const tabs = qobject_cast<const QTabBar*>(part);
        for (int tab = 0; tabs && tab < tabs->count(); ++tab) Take(tabs->tabText(tab), taken);
    }
    return taken;
}

}  // namespace

void GiveButtonsKeys(QWidget& window) {
    Mnemonics letters(TakenIn(window));
    for (QPushButton* button : window.findChildren<QPushButton*>()) {
        const QString words = button->text();
        if (!QKeySequence::mnemonic(words).isEmpty()) continue;
        button->setText(letters.Mark(QString(words).replace(QStringLiteral("&&"), QStringLiteral("&"))));
    }
}

bool ButtonKeys::eventFilter(QObject* watched, QEvent* event) {
    auto* const dialog = event->type() == QEvent::Show ? qobject_cast<QDialog*>(watched) : nullptr;
    if (dialog) GiveButtonsKeys(*dialog);
    return QObject::eventFilter(watched, event);
}

}  // namespace brantlow
