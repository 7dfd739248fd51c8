#include "screens/windows/selector_panel_view.h"
#include "base/windows/wheel_guard.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

#include "base/windows/display_text.h"
#include "screens/windows/name_list.h"
#include "screens/windows/slot_grid.h"

namespace brantlow {

namespace {

// The shares of the width that names and values take.
constexpr int kNamesShare = 2;
constexpr int kValuesShare = 3;
// The shares of the height that the two lists take.
constexpr int kAvailableShare = 3;
constexpr int kSelectedShare = 2;

}  // namespace

SelectorPanelView::SelectorPanelView(SelectorPanel& panel)
    : panel_(panel),
      Combo1(new QComboBox),
      available_(new NameList(panel.available,
                              {QStringLiteral("Available:"), QStringLiteral("lst1Options"),
                               QStringLiteral("Double click or Enter selects a name"), true, false})),
      selected_(new NameList(
          panel.selected, {QStringLiteral("Selected:"), QStringLiteral("lst2Options"),
                           QStringLiteral("Double click, Enter or Delete takes a name out"), false, true})),
      meaning_(new QLabel),
      slots_(new SlotGrid(panel.slots)) {
    setObjectName(QStringLiteral("picOptions"));
    GuardWheel(*Combo1);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(BuildNames(), kNamesShare);
    layout->addWidget(BuildValues(), kValuesShare);
    connect(available_, &NameList::MoveAsked, this, &SelectorPanelView::Select);
    connect(selected_, &NameList::MoveAsked, this, &SelectorPanelView::Return);
    connect(available_, &NameList::SelectionChanged, this, &SelectorPanelView::ApplyRules);
    connect(selected_, &NameList::SelectionChanged, this, &SelectorPanelView::ApplyRules);
    for (const NameList* list : {available_, selected_})
        connect(list, &NameList::SelectionChanged, this, [this, list] { ShowMeaning(*list); });
    connect(slots_, &SlotGrid::Edited, this, &SelectorPanelView::Edited);
    connect(Combo1, &QComboBox::currentTextChanged, this, [this](const QString& action) {
        panel_.action = action.toStdString();
        Q_EMIT Edited();
    });
}

QWidget* SelectorPanelView::BuildNames() {
    auto* names = new QWidget;
    auto* layout = new QVBoxLayout(names);
    layout->setContentsMargins({});
    layout->addWidget(BuildAction());
    layout->addWidget(available_, kAvailableShare);
    auto* arrows = new QHBoxLayout;
    arrows->addStretch();
    Command5 = AddArrow(QStringLiteral("Command5"), QStringLiteral("Select the name"),
                        QStringLiteral("Select the name (Enter)"), QStyle::SP_ArrowDown);
    Command6 = AddArrow(QStringLiteral("Command6"), QStringLiteral("Take the name out"),
                        QStringLiteral("Take the name out (Delete)"), QStyle::SP_ArrowUp);
    arrows->addWidget(Command5);
    arrows->addWidget(Command6);
    arrows->addStretch();
    layout->addLayout(arrows);
    layout->addWidget(selected_, kSelectedShare);
    meaning_->setObjectName(QStringLiteral("NameMeaning"));
    meaning_->setAccessibleName(QStringLiteral("What the name in hand means"));
    meaning_->setWordWrap(true);
    layout->addWidget(meaning_);
    connect(Command5, &QPushButton::clicked, this, &SelectorPanelView::Select);
    connect(Command6, &QPushButton::clicked, this, &SelectorPanelView::Return);
    return names;
}

QWidget* SelectorPanelView::BuildAction() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    auto* words = new QLabel(QStringLiteral("A ticker that meets the condition is marked"));
    words->setWordWrap(true);
    layout->addWidget(words, 1);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setAccessibleName(words->text());
    for (const std::string_view action : kConditionActions) Combo1->addItem(Name(action));
    layout->addWidget(Combo1);
    return row;
}

QWidget* SelectorPanelView::BuildValues() {
    auto* values = new QWidget;
    auto* layout = new QVBoxLayout(values);
    layout->setContentsMargins({});
    layout->addWidget(new QLabel(QStringLiteral("Values:")));
    layout->addWidget(slots_);
    return values;
}

QPushButton* SelectorPanelView::AddArrow(const QString& name, const QString& words, const QString& toolTip,
                                         int picture) {
    auto* arrow = new QPushButton;
    arrow->setObjectName(name);
    arrow->setIcon(style()->standardIcon(static_cast<QStyle::StandardPixmap>(picture)));
    arrow->setAccessibleName(words);
    arrow->setToolTip(toolTip);
    arrow->setAutoDefault(false);
    return arrow;
}

void SelectorPanelView::ShowAll() {
    const QSignalBlocker shownOnly(Combo1);
    Combo1->setCurrentText(Name(panel_.action));
    available_->ShowAll();
    selected_->ShowAll();
    slots_->ShowAll();
}

void SelectorPanelView::FocusFilter() {
    available_->FocusFilter();
}

void SelectorPanelView::Select() {
    const std::optional<std::size_t> entry = available_->Selected();
    if (!entry || !SelectName(panel_, *entry)) return;
    available_->NameRemoved(*entry);
    selected_->NameAdded();
    Q_EMIT Edited();
}

void SelectorPanelView::Return() {
    const std::optional<std::size_t> entry = selected_->Selected();
    if (!entry || !ReturnName(panel_, *entry)) return;
    selected_->NameRemoved(*entry);
    available_->NameAdded();
    Q_EMIT Edited();
}

// Of the name in hand: its meaning, its formula and what should be known of it.
void SelectorPanelView::ShowMeaning(const NameList& list) {
    const std::string name = list.SelectedName();
    if (name.empty()) return;
    meaning_->setText(Name(NameMeaning(name) + "\n" + std::string(NameRemark(name))).trimmed());
}

void SelectorPanelView::ApplyRules() {
    Command5->setEnabled(available_->Selected().has_value());
    Command6->setEnabled(selected_->Selected().has_value());
}

}  // namespace brantlow
