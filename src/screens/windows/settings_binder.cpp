#include "screens/windows/settings_binder.h"
#include "base/windows/wheel_guard.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "screens/windows/folder_picker.h"

namespace brantlow {

namespace {

constexpr int kVisibleEntries = 5;
constexpr int kFewestLetters = 15;
constexpr int kArrowWidthLetters = 6;
constexpr QChar kSelectArrow(0x2192);
constexpr QChar kReturnArrow(0x2190);

std::string_view OptionWords(std::string_view control) {
    for (const OptionRow& row : kOptionRows) {
        if (row.control == control) return row.words;
    }
    for (const MarketRow& row : kMarkets) {
        if (row.control == control) return row.name;
    }
    return {};
}

std::string_view CheckWords(std::string_view control) {
    for (const CheckRow& row : kCheckRows) {
        if (row.control == control) return row.words;
    }
    return kHistoryCheckWords;
}

const ListRow& RowOfList(std::string_view selected) {
    for (const ListRow& row : kListRows) {
        if (row.selected == selected) return row;
    }
    return kListRows.front();
}

QStringList ShownAll(const std::vector<std::string>& items) {
    QStringList shown;
    for (const std::string& item : items) shown.append(Shown(item));
    return shown;
}

QStringList ItemsOf(const QListWidget& list) {
    QStringList items;
    for (int row = 0; row < list.count(); ++row) items.append(list.item(row)->text());
    return items;
}

void ShowItems(QListWidget& list, const QStringList& items) {
    if (ItemsOf(list) == items) return;
    const int row = list.currentRow();
    list.clear();
    list.addItems(items);
    list.setCurrentRow(std::min(row, list.count() - 1));
}

void ShowChoice(QComboBox& list, const SettingsControl& control) {
    const QSignalBlocker quiet(list);
    QStringList items;
    for (int row = 0; row < list.count(); ++row) items.append(list.itemText(row));
    const QStringList offered = ShownAll(control.items);
    if (items != offered) {
        list.clear();
        list.addItems(offered);
    }
    const QString text = Shown(control.text);
    if (!list.isEditable()) return list.setCurrentIndex(list.findText(text));
    if (list.currentText() != text) list.setEditText(text);
}

// The tab key goes to the option that is on, the arrow keys from there to the others.
void LetTabReachTheChosen(const QButtonGroup& group) {
    for (QAbstractButton* option : group.buttons()) {
        const bool reached = option->isChecked() || group.checkedButton() == nullptr;
        option->setFocusPolicy(reached ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

}  // namespace

SettingsBinder::SettingsBinder(ApplicationSettings& settings, Path appPath)
    : settings_(settings), appPath_(std::move(appPath)), mnemonics_(Name(kLettersOfDialog)) {}

QString SettingsBinder::Mark(std::string_view words) {
    return mnemonics_.Mark(Name(words));
}

void SettingsBinder::Refresh() {
    for (const auto& refresh : refreshers_) refresh();
    for (const QButtonGroup* group : groups_) LetTabReachTheChosen(*group);
}

void SettingsBinder::Done() {
    Refresh();
    Q_EMIT Entered();
}

void SettingsBinder::Show(std::string_view control, QWidget* widget,
                          std::function<void(const SettingsControl&)> show) {
    widget->setObjectName(Name(control));
    refreshers_.push_back([this, control, widget, show = std::move(show)] {
        const SettingsControl& state = settings_.Control(control);
        widget->setEnabled(state.enabled);
        show(state);
    });
}

QPushButton* SettingsBinder::Button(const char* name, std::string_view words, const QString& toolTip) {
    auto* button = new QPushButton(Mark(words));
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    return button;
}

// Options of one line exclude each other; so do the markets.
QButtonGroup* SettingsBinder::GroupOf(std::string_view control) {
    QString key;
    for (const OptionRow& row : kOptionRows) {
        if (row.control == control) key = Name(row.line->name);
    }
    QButtonGroup*& group = groups_[key];
    if (!group) group = new QButtonGroup(this);
    return group;
}

QRadioButton* SettingsBinder::Option(std::string_view control) {
    auto* option = new QRadioButton(Mark(OptionWords(control)));
    QButtonGroup* group = GroupOf(control);
    group->addButton(option);
    Show(control, option, [option, group](const SettingsControl& state) {
        // A group that excludes never lets go of its last option.
        group->setExclusive(false);
        option->setChecked(state.on);
        group->setExclusive(true);
    });
    connect(option, &QRadioButton::clicked, this, [this, control] {
        settings_.Choose(control);
        Done();
    });
    return option;
}

QCheckBox* SettingsBinder::Check(std::string_view control) {
    auto* check = new QCheckBox(Mark(CheckWords(control)));
    Show(control, check, [check](const SettingsControl& state) { check->setChecked(state.on); });
    connect(check, &QCheckBox::clicked, this, [this, control](bool on) {
        settings_.Check(control, on);
        Done();
    });
    return check;
}

QLineEdit* SettingsBinder::Text(std::string_view control) {
    auto* text = new QLineEdit;
    Show(control, text, [text](const SettingsControl& state) {
        const QString shown = Shown(state.text);
        if (text->text() != shown) text->setText(shown);
    });
    connect(text, &QLineEdit::textEdited, this, [this, control](const QString& entered) {
        settings_.SetText(control, entered.toStdString());
        Done();
    });
    return text;
}

QComboBox* SettingsBinder::DropDown(std::string_view control) {
    auto* list = new QComboBox;
    GuardWheel(*list);
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    Show(control, list, [list](const SettingsControl& state) { ShowChoice(*list, state); });
    connect(list, &QComboBox::textActivated, this, [this, control](const QString& chosen) {
        settings_.SetText(control, chosen.toStdString());
        Done();
    });
    return list;
}

QComboBox* SettingsBinder::TypedDropDown(std::string_view control) {
    QComboBox* list = DropDown(control);
    list->setEditable(true);
    list->setInsertPolicy(QComboBox::NoInsert);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(kFewestLetters);
    connect(list->lineEdit(), &QLineEdit::textEdited, this, [this, control](const QString& entered) {
        settings_.SetText(control, entered.toStdString());
        Done();
    });
    return list;
}

FolderPicker* SettingsBinder::Folder(std::string_view drive, std::string_view dir, std::string_view text) {
    auto* picker = new FolderPicker(appPath_, {Name(drive), Name(dir), Name(text)});
    const auto nothing = [](const SettingsControl&) {};
    if (picker->Drive()) Show(drive, picker->Drive(), nothing);
    Show(dir, picker->Dir(), nothing);
    Show(text, picker->Text(),
         [picker](const SettingsControl& state) { picker->ShowFolder(Shown(state.text)); });
    connect(picker, &FolderPicker::FolderEntered, this, [this, text](const QString& entered) {
        settings_.SetText(text, entered.toStdString());
        Done();
    });
    return picker;
}

QLabel* SettingsBinder::Label(const QString& words, QWidget* control) {
    auto* label = new QLabel(mnemonics_.Mark(words));
    label->setBuddy(control);
    return label;
}

QLabel* SettingsBinder::Note(std::string_view label) {
    auto* note = new QLabel;
    note->setObjectName(Name(label));
    note->setWordWrap(true);
    refreshers_.push_back([this, label, note] {
        note->setText(Name(settings_.Note(label)));
        note->setVisible(!note->text().isEmpty());
    });
    return note;
}

QListWidget* SettingsBinder::List(std::string_view control, std::string_view arrow) {
    auto* list = new QListWidget;
    const QFontMetrics metrics = list->fontMetrics();
    list->setMinimumHeight(kVisibleEntries * metrics.height());
    list->setMinimumWidth(kFewestLetters * metrics.averageCharWidth());
    Show(control, list, [list](const SettingsControl& state) { ShowItems(*list, ShownAll(state.items)); });
    connect(list, &QListWidget::itemActivated, this, [this, arrow, list] { Move(arrow, list); });
    return list;
}

QAbstractButton* SettingsBinder::Arrow(std::string_view arrow, bool selects, QListWidget* from) {
    auto* button = new QPushButton(QString(selects ? kSelectArrow : kReturnArrow));
    const QString words =
        selects ? QStringLiteral("Select the entry") : QStringLiteral("Take the entry back");
    button->setToolTip(words + QStringLiteral(" (Enter in the list)"));
    button->setAccessibleName(words);
    button->setAutoDefault(false);
    button->setFixedWidth(kArrowWidthLetters * button->fontMetrics().averageCharWidth());
    Show(arrow, button, [](const SettingsControl&) {});
    connect(button, &QPushButton::clicked, this, [this, arrow, from] { Move(arrow, from); });
    return button;
}

void SettingsBinder::Move(std::string_view arrow, QListWidget* from) {
    if (from->currentRow() < 0) return;
    settings_.Move(arrow, static_cast<std::size_t>(from->currentRow()));
    Done();
}

QWidget* SettingsBinder::Lists(std::string_view selectedList, const QString& availableWords,
                               const QString& selectedWords) {
    const ListRow& row = RowOfList(selectedList);
    auto* both = new QWidget;
    auto* grid = new QGridLayout(both);
    grid->setContentsMargins(0, 0, 0, 0);
    QListWidget* available = List(row.available, row.selectArrow);
    QListWidget* selected = List(row.selected, row.returnArrow);
    available->setAccessibleName(availableWords);
    selected->setAccessibleName(selectedWords);
    QAbstractButton* select = Arrow(row.selectArrow, true, available);
    QAbstractButton* takeBack = Arrow(row.returnArrow, false, selected);
    auto* arrows = new QVBoxLayout;
    arrows->addStretch();
    arrows->addWidget(select);
    arrows->addWidget(takeBack);
    arrows->addStretch();
    grid->addWidget(Label(availableWords, available), 0, 0);
    grid->addWidget(Label(selectedWords, selected), 0, 2);
    grid->addWidget(available, 1, 0);
    grid->addLayout(arrows, 1, 1);
    grid->addWidget(selected, 1, 2);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);
    QWidget::setTabOrder(available, select);
    QWidget::setTabOrder(select, takeBack);
    QWidget::setTabOrder(takeBack, selected);
    return both;
}

}  // namespace brantlow
