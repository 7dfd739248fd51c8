// Every window on screens of several sizes, with usual letters and with letters half as large again, on a
// light and on a dark desktop: no text is cut, nothing lies outside of its window, no two controls lie on one
// another, the window fits the screen, and each text differs from its ground by 4.5 to 1.
#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QListView>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOption>
#include <QTableView>
#include <QToolButton>
#include <QToolTip>
#include <QTreeView>
#include <QTreeWidget>
#include <algorithm>
#include <sstream>
#include <utility>

#include "all_windows.h"
#include "base/windows/elided_label.h"
#include "base/windows/program_style.h"
#include "chart/chart_palette.h"
#include "check/windows/frmCheckDatabase.h"

using namespace brantlow;

namespace {

// What a window manager takes of the screen.
constexpr QSize kRoomForFrame(16, 48);

struct DesktopRow {
    const char* name;
    // In logical pixels: half of those of a screen at twice the scale.
    QSize screen;
    double letters;
    bool isDark;
};
constexpr DesktopRow kDesktops[] = {
    {"1024x768 light", {1024, 768}, 1, false},        {"1024x768 dark", {1024, 768}, 1, true},
    {"1400x950 light", {1400, 950}, 1, false},        {"1400x950 dark", {1400, 950}, 1, true},
    {"4K at 200 % light", {1920, 1080}, 1, false},    {"4K at 200 % dark", {1920, 1080}, 1, true},
    {"letters 150 % light", {1024, 768}, 1.5, false}, {"letters 150 % dark", {1024, 768}, 1.5, true},
};

QPalette DarkPalette(QPalette palette) {
    const QColor ground(42, 46, 50);
    const QColor ink(236, 238, 240);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                            QPalette::PlaceholderText})
        palette.setColor(role, ink);
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::Button, ground.lighter(115));
    palette.setColor(QPalette::ToolTipBase, ground);
    palette.setColor(QPalette::Base, ground.darker(140));
    palette.setColor(QPalette::AlternateBase, ground.darker(125));
    palette.setColor(QPalette::Link, QColor(100, 180, 250));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(140, 140, 140));
    return palette;
}

// The letters and colours of a desktop, for as long as it lives.
class DesktopLook {
  public:
    explicit DesktopLook(const DesktopRow& row)
        : font_(QApplication::font()), palette_(QApplication::palette()), room(row.screen - kRoomForFrame) {
        QFont font = font_;
        font.setPointSizeF(font_.pointSizeF() * row.letters);
        QApplication::setFont(font);
        if (row.isDark) QApplication::setPalette(DarkPalette(palette_));
    }
    ~DesktopLook() {
        QApplication::setFont(font_);
        QApplication::setPalette(palette_);
    }
    DesktopLook(const DesktopLook&) = delete;
    DesktopLook& operator=(const DesktopLook&) = delete;

  private:
    QFont font_;
    QPalette palette_;

  public:
    const QSize room;
};

QString Told(const QWidget& control, const QString& what) {
    return QStringLiteral("%1 %2 %3 (%4 x %5)")
        .arg(QString::fromLatin1(control.metaObject()->className()), control.objectName(), what)
        .arg(control.width())
        .arg(control.height());
}

// In a scroll area a control has the room that it wants.
const QWidget* ScrolledBy(const QWidget& control) {
    for (const QWidget* above = control.parentWidget(); above && !above->isWindow();
         above = above->parentWidget()) {
        // The area of the frame gives each of its windows the room that there is.
        if (qobject_cast<const QMdiArea*>(above)) return nullptr;
        if (qobject_cast<const QAbstractScrollArea*>(above)) return above;
    }
    return nullptr;
}

bool IsCut(const QLabel& label) {
    if (label.text().isEmpty() || dynamic_cast<const ElidedLabel*>(&label) != nullptr) return false;
    if (label.wordWrap()) return label.heightForWidth(label.width()) > label.height();
    return label.sizeHint().width() > label.width() || label.fontMetrics().height() > label.height();
}

bool IsCut(const QAbstractButton& button) {
    const auto* const tool = qobject_cast<const QToolButton*>(&button);
    if (button.text().isEmpty() || (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly)) return false;
    // One that is pressed may have less of a rim than it wants; one that is ticked has its box beside the
    // text.
    const bool isPressed =
        qobject_cast<const QPushButton*>(&button) || qobject_cast<const QToolButton*>(&button);
    const int words = button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width();
    return (isPressed ? words : button.minimumSizeHint().width()) > button.width() ||
           button.fontMetrics().height() > button.height();
}

// What is longer can be scrolled in its box, or is read in the opened list.
constexpr int kLettersOfABox = 24;
constexpr int kLettersOfAChoice = 48;

bool IsCut(const QLineEdit& box) {
    QStyleOptionFrame option;
    option.initFrom(&box);
    option.lineWidth = box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &box);
    const int room = box.style()->subElementRect(QStyle::SE_LineEditContents, &option, &box).width();
    const bool isLong = box.text().size() > kLettersOfABox;
    return box.fontMetrics().height() > box.height() ||
           (!isLong && box.fontMetrics().horizontalAdvance(box.text()) > room);
}

bool IsCut(const QComboBox& list) {
    QStyleOptionComboBox option;
    option.initFrom(&list);
    option.editable = list.isEditable();
    option.frame = list.hasFrame();
    const int room = list.style()
                         ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &list)
                         .width();
    const bool isLong = list.currentText().size() > (list.isEditable() ? kLettersOfABox : kLettersOfAChoice);
    return list.fontMetrics().height() > list.height() ||
           (!isLong && list.fontMetrics().horizontalAdvance(list.currentText()) > room);
}

// The texts in a list's columns, and above them, that end in dots.
QStringList CutIn(const QTreeView& list) {
    QStringList cut;
    const QAbstractItemModel& model = *list.model();
    const int margin = 2 * (list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1);
    for (int column = 0; column < model.columnCount(); ++column) {
        const QString heading = model.headerData(column, Qt::Horizontal).toString();
        const int room = list.columnWidth(column) - margin;
        if (!list.isHeaderHidden() && list.header()->fontMetrics().horizontalAdvance(heading) > room)
            cut << heading;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex index = model.index(row, column);
            const QString words = index.data().toString();
            const int height = list.visualRect(index).height();
            const QRect space(0, 0, list.wordWrap() ? room : QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
            const QSize needed = list.fontMetrics().boundingRect(space, Qt::TextWordWrap, words).size();
            // Of what is broken a word alone can be too wide, or the lines too many.
            if (height > 0 && (needed.width() > room || needed.height() > height)) cut << words;
        }
    }
    return cut;
}

// The texts of a list without columns that end in dots, or whose end cannot be scrolled to.
QStringList CutIn(const QListView& list) {
    QStringList cut;
    const QAbstractItemModel& model = *list.model();
    const int margin = 2 * (list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1);
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, 0);
        const QRect line = list.visualRect(index);
        const QString words = index.data().toString();
        const bool isScrolled = list.horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
        const int room = (isScrolled ? line.width() : list.viewport()->width()) - margin;
        const QRect space(0, 0, list.wordWrap() ? room : QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        const QSize needed = list.fontMetrics().boundingRect(space, Qt::TextWordWrap, words).size();
        if (needed.width() > room || needed.height() > line.height()) cut << words;
    }
    return cut;
}

// What the tool tip of a cell shows.
QString TipOf(const QTableView& grid, const QModelIndex& cell) {
    QToolTip::hideText();
    const QPoint place = grid.visualRect(cell).center();
    QHelpEvent help(QEvent::ToolTip, place, grid.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(grid.viewport(), &help);
    return QToolTip::text();
}

// The headers of a grid that are not read whole, the numbers that are not, and the words that end in dots
// without a tool tip that has them.
QStringList CutIn(QTableView& grid) {
    QStringList cut;
    const QAbstractItemModel& model = *grid.model();
    const QHeaderView& header = *grid.horizontalHeader();
    const int margin = 2 * (grid.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &grid) + 1);
    for (int column = 0; column < model.columnCount(); ++column) {
        if (grid.isColumnHidden(column)) continue;
        const QString heading = model.headerData(column, Qt::Horizontal).toString();
        // Some have a line break.
        const int wide = header.fontMetrics().size(0, heading).width();
        if (wide + margin > header.sectionSize(column)) cut << heading;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex cell = model.index(row, column);
            const QVariant font = cell.data(Qt::FontRole);
            const QFontMetrics metrics =
                font.isValid() ? QFontMetrics(font.value<QFont>()) : grid.fontMetrics();
            const QString words = cell.data().toString();
            if (metrics.height() > grid.rowHeight(row)) cut << words;
            if (metrics.horizontalAdvance(words) + margin <= grid.columnWidth(column)) continue;
            grid.scrollTo(cell);
            const bool isNumber = cell.data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight;
            if (isNumber || TipOf(grid, cell) != words) cut << words;
        }
    }
    return cut;
}

QStringList CutIn(QWidget& control) {
    if (const auto* list = qobject_cast<const QTreeView*>(&control)) return CutIn(*list);
    if (const auto* list = qobject_cast<const QListView*>(&control)) return CutIn(*list);
    if (auto* grid = qobject_cast<QTableView*>(&control)) return CutIn(*grid);
    return {};
}

// What is scrolled is scrolled in one direction.
bool IsScrolledSideways(const QWidget& control) {
    const auto* const area = qobject_cast<const QScrollArea*>(&control);
    return area && area->horizontalScrollBar()->maximum() > 0;
}

// True where the text of a control is not seen whole.
bool CutsItsText(const QWidget& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control)) return IsCut(*label);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) return IsCut(*button);
    if (const auto* box = qobject_cast<const QGroupBox*>(&control))
        return box->fontMetrics().horizontalAdvance(box->title()) > box->width();
    if (const auto* box = qobject_cast<const QLineEdit*>(&control)) return IsCut(*box);
    if (const auto* list = qobject_cast<const QComboBox*>(&control)) return IsCut(*list);
    if (const auto* box = qobject_cast<const QAbstractSpinBox*>(&control))
        return box->minimumSizeHint().width() > box->width() || box->fontMetrics().height() > box->height();
    return false;
}

// Of the windows in the frame's area the one in front covers the others.
bool IsCovered(const QWidget& control) {
    for (const QWidget* above = &control; above; above = above->parentWidget()) {
        const auto* const child = qobject_cast<const QMdiSubWindow*>(above);
        if (child && child->mdiArea() && child->mdiArea()->activeSubWindow() != child) return true;
    }
    return false;
}

bool IsLookedAt(const QWidget& control, const QWidget& window) {
    if (IsCovered(control)) return false;
    return control.isVisible() && control.window() == &window &&
           !control.objectName().startsWith(QStringLiteral("qt_")) &&
           qobject_cast<const QTabBar*>(control.parentWidget()) == nullptr;
}

bool IsControl(const QWidget& control) {
    return qobject_cast<const QAbstractButton*>(&control) || qobject_cast<const QLineEdit*>(&control) ||
           qobject_cast<const QComboBox*>(&control);
}

Rgb RgbOf(const QColor& colour) {
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

// How much the words of a label or a button differ from what is behind them; marked-up words have colours of
// their own, and what is off is not to be read.
double ContrastOf(const QWidget& control) {
    const auto* const label = qobject_cast<const QLabel*>(&control);
    const auto* const button = qobject_cast<const QAbstractButton*>(&control);
    const bool hasWords = (label && !label->text().isEmpty() && !Qt::mightBeRichText(label->text())) ||
                          (button && !button->text().isEmpty());
    // What paints a ground of its own has colours for it, which the tests of the palettes compare.
    const bool isOnOwnGround = control.parentWidget()->testAttribute(Qt::WA_OpaquePaintEvent);
    if (!hasWords || !control.isEnabled() || isOnOwnGround) return kLegibleContrast;
    return Contrast(RgbOf(control.palette().color(control.foregroundRole())),
                    RgbOf(control.palette().color(control.backgroundRole())));
}

void LookAt(QWidget& window, QSize room, const QString& state, QStringList& told) {
    if (window.width() > room.width() || window.height() > room.height()) {
        told << state + Told(window, QStringLiteral("is larger than the screen"));
        for (const QWidget* part : window.findChildren<QWidget*>()) {
            const QSize least = part->minimumSizeHint().expandedTo(part->minimumSize());
            if (part->isVisible() && (least.width() > room.width() / 3 || least.height() > room.height() / 2))
                told << state +
                            Told(*part,
                                 QStringLiteral("asks for %1 x %2").arg(least.width()).arg(least.height()));
        }
    }
    QList<QWidget*> controls;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (!IsLookedAt(*control, window)) continue;
        if (CutsItsText(*control)) {
            const auto* label = qobject_cast<QLabel*>(control);
            const auto* button = qobject_cast<QAbstractButton*>(control);
            told << state + Told(*control, QStringLiteral("cuts \"%1\"")
                                               .arg(label    ? label->text()
                                                    : button ? button->text()
                                                             : QString()));
        }
        if (IsScrolledSideways(*control))
            told << state + Told(*control, QStringLiteral("is scrolled sideways"));
        for (const QString& words : CutIn(*control))
            told << state + Told(*control, QStringLiteral("cuts the line \"%1\"").arg(words));
        if (ContrastOf(*control) < kLegibleContrast)
            told << state + Told(*control, QStringLiteral("can hardly be read"));
        const QRect place(control->mapTo(&window, QPoint()), control->size());
        if (!ScrolledBy(*control) && !window.rect().contains(place))
            told << state + Told(*control, QStringLiteral("lies outside of the window"));
        if (!IsControl(*control)) continue;
        for (const QWidget* other : controls) {
            if (control->parentWidget() == other->parentWidget() &&
                control->geometry().intersects(other->geometry()))
                told << state + Told(*control, QStringLiteral("lies on ") + other->objectName());
        }
        controls << control;
    }
}

// A window that goes on changing is compared as it is then.
constexpr int kMostTurns = 50;
// Twips.
constexpr int kNarrowColumn = 300;

// A row with the longest text of each column: a name of forty letters, the numbers of the dearest share.
std::string WideLine(const std::string& header) {
    std::string line;
    std::istringstream columns(header);
    for (std::string column; std::getline(columns, column, '\t');) {
        if (!line.empty()) line += '\t';
        if (column == "Name") {
            line += "The Western Alliance Bancorporation Trust";
        } else if (column == "Exchange") {
            line += "NasdaqGS";
        } else {
            line += line.empty() ? "BRK.PRA" : column == "Volume" ? "1234567890" : "-123456.789";
        }
    }
    return line;
}

}  // namespace

class EveryDesktopTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void everyWindowCanBeRead_data() { AddDesktops(); }
    void everyWindowCanBeRead() {
        const DesktopLook desktop(Row());
        QStringList wrong;
        for (const WindowRow& row : Windows()) {
            Ground ground;
            const std::unique_ptr<QWidget> window(row.make(ground));
            window->setAttribute(Qt::WA_DeleteOnClose, false);
            window->show();
            // As the screen would have it; a window that cannot be so small shows that here.
            window->resize(window->size().boundedTo(desktop.room));
            QCoreApplication::processEvents();
            ForEachState(*window, [&](const QString& state) { LookAt(*window, desktop.room, state, wrong); });
            window->hide();
        }
        Tell(wrong);
    }

    // A window that is open while the desktop turns dark, or light, looks like one that is opened then.
    void everyWindowFollowsTheDesktopAtOnce_data() {
        QTest::addColumn<bool>("turnsDark");
        QTest::newRow("dark") << true;
        QTest::newRow("light") << false;
    }
    void everyWindowFollowsTheDesktopAtOnce() {
        QFETCH(bool, turnsDark);
        const QPalette usual = QApplication::palette();
        const QPalette dark = DarkPalette(usual);
        QStringList wrong;
        const QPalette& then = turnsDark ? dark : usual;
        // Laid out to its end: a scroll bar that comes narrows a page, whose rows break elsewhere then.
        const auto settled = [](QWidget& window) {
            QImage before;
            QImage picture = window.grab().toImage();
            for (int turn = 0; turn < kMostTurns && picture != before; ++turn) {
                QTest::qWait(1);
                before = std::exchange(picture, window.grab().toImage());
            }
            return picture;
        };
        const auto seen = [&](QWidget& window) {
            window.setAttribute(Qt::WA_DeleteOnClose, false);
            window.show();
            // The keys come to a window that is active, and their place blinks.
            const bool isActive = QTest::qWaitFor([&window] {
                window.activateWindow();
                return window.isActiveWindow();
            });
            if (!isActive) wrong << window.objectName() + QStringLiteral(" does not become active");
            if (QWidget* const focus = window.focusWidget()) focus->clearFocus();
            settled(window);
            QApplication::setPalette(then);
            return settled(window);
        };
        // Made in these colours, and seen in those of `then`.
        const auto windowSeen = [&](const WindowRow& row, Ground& ground, const QPalette& colours) {
            QApplication::setPalette(colours);
            const std::unique_ptr<QWidget> window(row.make(ground));
            const QImage picture = seen(*window);
            window->hide();
            // Another window becomes active in its place, which is not to happen while the next one is seen.
            QCoreApplication::processEvents();
            return picture;
        };
        const auto welcomeSeen = [&](const QPalette& colours) {
            QApplication::setPalette(colours);
            Ground ground;
            ground.frame->Run("mnuFileClose");
            return seen(*ground.frame);
        };
        const QPalette& before = turnsDark ? usual : dark;
        const QString style = QApplication::style()->name();
        QApplication::setStyle(new ProgramStyle);
        // A window that is shown gives a field the focus, whose caret would be seen in one picture and not in
        // the other.
        const int blink = QApplication::cursorFlashTime();
        QApplication::setCursorFlashTime(0);
        for (const WindowRow& row : Windows()) {
            Ground ground;
            if (windowSeen(row, ground, then) != windowSeen(row, ground, before))
                wrong << QString::fromLatin1(row.name) + QStringLiteral(" keeps colours of before");
        }
        if (welcomeSeen(then) != welcomeSeen(before))
            wrong << QStringLiteral("The welcome page keeps colours");
        QApplication::setCursorFlashTime(blink);
        QApplication::setStyle(style);
        QApplication::setPalette(usual);
        Tell(wrong);
    }

    // Nor where they are as large as the screen.
    void noPageOfTheSettingsIsScrolledSideways_data() { AddDesktops(); }
    void noPageOfTheSettingsIsScrolledSideways() {
        const DesktopLook desktop(Row());
        Ground ground;
        frmApplicationSettings window(ground.session, ground.hosts, ground.Frame());
        window.show();
        window.resize(desktop.room);
        QStringList wrong;
        ForEachState(window, [&](const QString& state) {
            for (QScrollArea* area : window.findChildren<QScrollArea*>()) {
                if (area->isVisible() && IsScrolledSideways(*area))
                    wrong << state + Told(*area->widget(), QStringLiteral("is scrolled sideways"));
            }
        });
        Tell(wrong);
    }

    // With each of its children in front.
    void theMainFrameCanBeRead_data() { AddDesktops(); }
    void theMainFrameCanBeRead() {
        const DesktopLook desktop(Row());
        SceneProgram program;
        program.frame->showNormal();
        program.frame->resize(desktop.room);
        QStringList wrong;
        for (const char* front : {"mnuFileSave", "mnuGraphicsHLC", "mnuEvaluateStudy", "mnuFileClose"}) {
            program.Choose(front);
            QCoreApplication::processEvents();
            LookAt(*program.frame, desktop.room, QString::fromLatin1(front) + QStringLiteral(": "), wrong);
        }
        Tell(wrong);
    }

    // With a finding of many words.
    void theCheckOfTheDatabaseCanBeRead_data() { AddDesktops(); }
    void theCheckOfTheDatabaseCanBeRead() {
        const DesktopLook desktop(Row());
        SceneProgram program;
        std::string history;
        for (const char* day : {"03/04/26", "03/05/26", "03/06/26"})
            history += "\"" + std::string(day) +
                       "\",\"\",120.125,9.5,11.25,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,120.125\r\n";
        QVERIFY(!WriteWholeFile(program.session.AppPath / "Quotes" / "EOD" / "T1.26", history));
        program.frame->Run("mnuEditCheckDatabase");
        auto* const window = program.frame->findChild<frmCheckDatabase*>();
        QVERIFY(window && QTest::qWaitFor([&] { return !program.person.InRun(); }));
        const auto found = window->findChild<QTreeWidget*>()->findItems(QStringLiteral("further lines"),
                                                                        Qt::MatchContains, 3);
        QVERIFY(std::any_of(found.begin(), found.end(),
                            [](const QTreeWidgetItem* row) { return row->text(3).size() > 55; }));
        QStringList wrong;
        LookAt(*window, desktop.room, {}, wrong);
        Tell(wrong);
    }

    // All columns of all kinds of tables, with the longest that such a column holds.
    void theGridOfATableCanBeRead_data() { AddDesktops(); }
    void theGridOfATableCanBeRead() {
        const DesktopLook desktop(Row());
        SceneProgram program;
        program.frame->showNormal();
        program.frame->resize(desktop.room);
        QStringList wrong;
        for (const auto& [name, header] : {std::pair{"Wide.ddq", QuoteHeader()},
                                           {"Wide.dbe", EvaluationHeader()},
                                           {"Wide.efq", EfqHeader()}}) {
            program.Write(name, header + "\r\n" + WideLine(header) + "\r\n");
            program.Open(name);
            frmQuoteGrid& grid = *program.frame->QuoteForm();
            for (std::size_t i = 1; i < grid.Table().ColumnCount(); ++i) {
                if (grid.Table().Width(i) == 0) grid.Table().SetWidth(i, kNarrowColumn);
            }
            grid.TableChanged();
            QCoreApplication::processEvents();
            LookAt(*program.frame, desktop.room, QString::fromLatin1(name) + QStringLiteral(": "), wrong);
        }
        Tell(wrong);
    }

    // Where it can go through hits of conditions, too; a chart that is scrolled is one that is cut.
    void theChartFitsWithItsWalks_data() { AddDesktops(); }
    void theChartFitsWithItsWalks() {
        const DesktopLook desktop(Row());
        SceneProgram program;
        program.frame->showNormal();
        program.frame->resize(desktop.room);
        program.Choose("mnuGraphicsHLC");
        auto* const chart = program.frame->findChild<frmGraph*>();
        chart->OfferWalks({1, 10});
        auto* const walk = chart->findChild<QComboBox*>(QStringLiteral("cboWalk"));
        auto* const scroll = chart->findChild<QScrollArea*>();
        QStringList wrong;
        for (int choice = 0; choice < walk->count(); ++choice) {
            walk->setCurrentIndex(choice);
            QCoreApplication::processEvents();
            LookAt(*program.frame, desktop.room, walk->currentText() + QStringLiteral(": "), wrong);
            for (const QScrollBar* bar : {scroll->horizontalScrollBar(), scroll->verticalScrollBar()}) {
                if (bar->isVisible()) wrong << Told(*bar, QStringLiteral("scrolls the chart"));
            }
        }
        Tell(wrong);
    }

  private:
    static void AddDesktops() {
        QTest::addColumn<int>("row");
        for (int i = 0; i < static_cast<int>(std::size(kDesktops)); ++i)
            QTest::newRow(kDesktops[i].name) << i;
    }
    static const DesktopRow& Row() {
        QFETCH(int, row);
        return kDesktops[row];
    }
    static void Tell(const QStringList& wrong) {
        for (const QString& line : wrong) qWarning().noquote() << line;
        QVERIFY(wrong.isEmpty());
    }
};

WINDOW_TEST(EveryDesktopTest)
#include "every_desktop_test.moc"
