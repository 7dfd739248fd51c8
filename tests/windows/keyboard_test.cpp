// Every window without a mouse: Escape closes it, the Tab key follows the eye, every control has a name that
// can be read out, no two underlined letters clash, and what has the focus can be seen.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabBar>
#include <QTextEdit>
#include <algorithm>
#include <map>

#include "all_windows.h"
#include "base/windows/button_keys.h"

using namespace brantlow;

namespace {

bool TakesTab(const QWidget& control) {
    return control.isVisible() && control.isEnabled() && (control.focusPolicy() & Qt::TabFocus) != 0 &&
           control.focusProxy() == nullptr && !control.objectName().startsWith(QStringLiteral("qt_"));
}

// The controls of a window in the order of the Tab key.
QList<QWidget*> TabOrder(QWidget& window) {
    QList<QWidget*> order;
    for (QWidget* next = window.nextInFocusChain(); next != &window; next = next->nextInFocusChain()) {
        if (next->window() == &window && TakesTab(*next)) order << next;
    }
    return order;
}

QRect PlaceOf(const QWidget& control) {
    return {control.mapTo(control.window(), QPoint()), control.size()};
}

// The scroll area that holds a control, null for none. What it has scrolled away is not where the eye looks
// for it.
const QWidget* ScrollAreaOf(const QWidget& control) {
    for (const QWidget* above = control.parentWidget(); above && !above->isWindow();
         above = above->parentWidget()) {
        if (qobject_cast<const QScrollArea*>(above)) return above;
    }
    return nullptr;
}

// False when the eye meets `next` before `control`: on the same lines and left of it, or above it and not to
// its right.
bool Follows(const QWidget& control, const QWidget& next) {
    const QWidget* const areas[] = {ScrollAreaOf(control), ScrollAreaOf(next)};
    const bool sameArea = areas[0] == areas[1];
    const QRect a = PlaceOf(areas[0] && !sameArea ? *areas[0] : control);
    const QRect b = PlaceOf(areas[1] && !sameArea ? *areas[1] : next);
    if (b.top() > a.bottom()) return true;
    return b.bottom() < a.top() ? b.left() >= a.right() : b.left() >= a.left();
}

QString Told(const QWidget& control) {
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return QStringLiteral("%1 %2 \"%3\"")
        .arg(QString::fromLatin1(control.metaObject()->className()), control.objectName(),
             button ? button->text() : QString());
}

// True for what shows a caret, the text that it scrolls or the link that Enter follows, for an empty list,
// which has no line to show the focus on, and for the button that Enter presses anyway: it is drawn like that
// all the time.
bool ShowsFocusByItself(const QWidget& control) {
    if (qobject_cast<const QTextEdit*>(&control) || qobject_cast<const QPlainTextEdit*>(&control))
        return true;
    if (qobject_cast<const QLabel*>(&control)) return true;
    if (const auto* list = qobject_cast<const QAbstractItemView*>(&control))
        return list->model()->rowCount() == 0;
    const auto* button = qobject_cast<const QPushButton*>(&control);
    return button && button->isDefault();
}

// The letter that a text answers to, in capitals; null without one.
QChar LetterOf(const QString& words) {
    const QKeySequence keys = QKeySequence::mnemonic(words);
    return keys.isEmpty() ? QChar() : QChar(static_cast<char16_t>(keys[0].key()));
}

class Letters {
  public:
    void Take(const QString& words) {
        const QChar letter = LetterOf(words);
        if (letter.isNull()) return;
        if (takers_.contains(letter)) clashes << takers_[letter] + QStringLiteral(" / ") + words;
        takers_[letter] = words;
    }
    QStringList clashes;

  private:
    std::map<QChar, QString> takers_;
};

QStringList ClashesOf(const QWidget& window) {
    Letters letters;
    for (const QWidget* part : window.findChildren<QWidget*>()) {
        if (!part->isVisible() || part->window() != &window) continue;
        if (const auto* button = qobject_cast<const QAbstractButton*>(part)) letters.Take(button->text());
        if (const auto* label = qobject_cast<const QLabel*>(part); label && label->buddy())
            letters.Take(label->text());
        if (const auto* box = qobject_cast<const QGroupBox*>(part)) letters.Take(box->title());
        if (const auto* tabs = qobject_cast<const QTabBar*>(part)) {
            for (int i = 0; i < tabs->count(); ++i) letters.Take(tabs->tabText(i));
        }
        if (const auto* bar = qobject_cast<const QMenuBar*>(part)) {
            for (const QAction* entry : bar->actions()) letters.Take(entry->text());
        }
    }
    return letters.clashes;
}

}  // namespace

class KeyboardTest : public QObject {
    Q_OBJECT

    // The window of a row, in sight and active.
    static std::unique_ptr<QWidget> Opened(const WindowRow& row, Ground& ground) {
        std::unique_ptr<QWidget> window(row.make(ground));
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window.get())) qFatal("%s does not become active", row.name);
        return window;
    }

    // Collects what is wrong with any window, so that one run tells all.
    static QStringList WrongIn(const std::function<void(QWidget&, const QString&, QStringList&)>& check) {
        QStringList wrong;
        for (const WindowRow& row : Windows()) {
            Ground ground;
            const std::unique_ptr<QWidget> window = Opened(row, ground);
            ForEachState(*window, [&](const QString& state) { check(*window, state, wrong); });
            window->hide();
        }
        return wrong;
    }

    // The button that Enter presses.
    static QString DefaultOf(const QWidget& window) {
        QString words;
        for (const QPushButton* button : window.findChildren<QPushButton*>()) {
            if (button->isDefault() && button->isVisible()) words += button->text().remove(u'&');
        }
        return words;
    }

  private Q_SLOTS:
    void escapeCloses() {
        for (const WindowRow& row : Windows()) {
            Ground ground;
            const std::unique_ptr<QWidget> window = Opened(row, ground);
            QWidget* const focus = window->focusWidget() ? window->focusWidget() : window.get();
            QTest::keyClick(focus, Qt::Key_Escape);
            // A run is not ended by one key.
            if (window->objectName() == QStringLiteral("frmEnable")) {
                auto* question = window->findChild<QMessageBox*>();
                QVERIFY(question && question->isVisible());
                QTest::keyClick(question, Qt::Key_Escape);
                QVERIFY(window->isVisible());
                QVERIFY(ground.session.run.ProcessCommand != kStopRun);
                continue;
            }
            QVERIFY2(!window->isVisible(), row.name);
        }
    }

    void theTabKeyFollowsTheEye() {
        const QStringList wrong = WrongIn([](QWidget& window, const QString& state, QStringList& told) {
            const QList<QWidget*> order = TabOrder(window);
            QStringList back;
            for (qsizetype i = 0; i < order.size(); ++i) {
                QWidget* const next = order[(i + 1) % order.size()];
                if (!Follows(*order[i], *next))
                    back << state + Told(*order[i]) + QStringLiteral(" -> ") + Told(*next);
            }
            // One step leads from the end of the window to its beginning.
            if (back.size() > 1) told << back;
        });
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
    }

    void everyControlCanBeReadOut() {
        const QStringList wrong = WrongIn([](QWidget& window, const QString& state, QStringList& told) {
            for (QWidget* control : TabOrder(window)) {
                const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(control);
                if (!spoken || spoken->text(QAccessible::Name).isEmpty()) told << state + Told(*control);
            }
        });
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
    }

    // None stands for two. A button with an arrow for its words has nothing to underline.
    void everyButtonOfADialogGetsALetter() {
        const QStringList wrong = WrongIn([](QWidget& window, const QString& state, QStringList& told) {
            if (!qobject_cast<QDialog*>(&window)) return;
            GiveButtonsKeys(window);
            for (const QPushButton* button : window.findChildren<QPushButton*>()) {
                const QString words = button->text().toUpper();
                const bool hasLetters =
                    std::any_of(words.begin(), words.end(), [](QChar letter) { return letter.isLetter(); });
                if (button->isVisible() && hasLetters && LetterOf(words).isNull())
                    told << state + Told(*button);
            }
            told << ClashesOf(window);
        });
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
    }

    void aDialogGetsItsLettersAsItIsShown() {
        ButtonKeys keys;
        qApp->installEventFilter(&keys);
        RunControl run;
        frmEnable window(run, RunStop::KeepsWhatIsDone, nullptr);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCOMPARE(window.findChild<QPushButton*>(QStringLiteral("Command2"))->text(),
                 QStringLiteral("&Pause"));
        QTest::keyClick(&window, Qt::Key_P, Qt::AltModifier);
        QTRY_COMPARE(run.ProcessCommand, std::string(kPauseRun));
    }

    void noTwoLettersClash() {
        const QStringList wrong = WrongIn([](QWidget& window, const QString& state, QStringList& told) {
            for (const QString& clash : ClashesOf(window)) told << state + clash;
        });
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
    }

    // With the table in front, with the chart and with the study.
    void theFrameItsMenusAndItsChildrenKeepToTheSame() {
        SceneProgram program;
        QStringList wrong;
        for (const char* front : {"mnuFileSave", "mnuGraphicsHLC", "mnuEvaluateStudy"}) {
            program.Choose(front);
            QCoreApplication::processEvents();
            wrong << ClashesOf(*program.frame);
            for (QWidget* control : program.frame->findChildren<QWidget*>()) {
                const bool isButton = qobject_cast<QAbstractButton*>(control) && control->isVisible();
                if (!isButton && !TakesTab(*control)) continue;
                // The title bar's own, and those that the style makes.
                if (control->objectName().isEmpty()) continue;
                const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(control);
                if (!spoken || spoken->text(QAccessible::Name).isEmpty()) wrong << Told(*control);
            }
        }
        for (const QMenu* menu : program.frame->findChildren<QMenu*>()) {
            Letters letters;
            for (const QAction* entry : menu->actions()) letters.Take(entry->text());
            wrong << letters.clashes;
        }
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
    }

    void enterPressesTheButtonThatIsMeant() {
        QStringList wrong;
        for (const WindowRow& row : Windows()) {
            Ground ground;
            const std::unique_ptr<QWidget> window = Opened(row, ground);
            QString found = DefaultOf(*window);
            // The button that the focus visits takes the key, and gives it back to the window's own.
            for (QWidget* control : TabOrder(*window)) control->setFocus(Qt::TabFocusReason);
            for (QWidget* control : TabOrder(*window)) {
                if (qobject_cast<QPushButton*>(control)) continue;
                control->setFocus(Qt::TabFocusReason);
                if (DefaultOf(*window) != found) found += QStringLiteral(", later ") + DefaultOf(*window);
                break;
            }
            if (found != QString::fromLatin1(row.defaultButton))
                wrong << QStringLiteral("%1: \"%2\"").arg(QString::fromLatin1(row.name), found);
        }
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
    }

    // A window opens with the focus somewhere, and each control looks different when it has it.
    void theFocusIsSeen() {
        const QStringList wrong = WrongIn([](QWidget& window, const QString& state, QStringList& told) {
            const QList<QWidget*> order = TabOrder(window);
            if (!order.isEmpty() && !window.focusWidget()) told << state + QStringLiteral("no focus");
            if (order.size() < 2) return;
            window.setAttribute(Qt::WA_KeyboardFocusChange);
            for (qsizetype i = 0; i < order.size(); ++i) {
                if (ShowsFocusByItself(*order[i])) continue;
                order[i]->setFocus(Qt::TabFocusReason);
                const QImage with = order[i]->grab().toImage();
                order[i == 0 ? 1 : 0]->setFocus(Qt::TabFocusReason);
                if (order[i]->grab().toImage() == with) told << state + Told(*order[i]);
            }
        });
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
    }
};

WINDOW_TEST(KeyboardTest)
#include "keyboard_test.moc"
