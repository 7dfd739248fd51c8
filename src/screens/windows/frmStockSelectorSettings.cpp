#include "screens/windows/frmStockSelectorSettings.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProxyStyle>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "base/windows/buttons.h"
#include "base/windows/display_text.h"
#include "base/windows/screen_room.h"
#include "base/windows/undo_key.h"
#include "indicators/analysis.h"
#include "screens/windows/condition_overview.h"
#include "screens/windows/hit_counter.h"
#include "screens/windows/selector_panel_view.h"
#include "shell/session_change.h"
#include "shell/settings/settings_draft.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

constexpr QSize kEditorSize(1040, 720);
constexpr int kFrameMargin = 6;

constexpr std::string_view kNotApplied = "Changes are kept with Apply only.";
constexpr std::string_view kDropQuestion =
    "Changes to the conditions were not applied. Do you want to drop them?";
constexpr std::string_view kApplied = "Applied. The next Stock Selector run uses these conditions.";
constexpr std::string_view kPartlyInForce =
    "Applied. The set has changed its length: all of it counts from the next start of Brantlow, or after a "
    "Clear.";

// Ten tabs fit the width of a small screen where each gives up some of the air around its words.
class NarrowTabStyle final : public QProxyStyle {
  public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
        return metric == PM_TabBarTabHSpace ? pixels / 2 : pixels;
    }
};

QString UseOf(const SelectorPanel& panel) {
    const auto values = std::count_if(panel.slots.begin(), panel.slots.end(), [](const SelectorSlot& slot) {
        return slot.ticked && !slot.text.empty();
    });
    if (panel.selected.empty() && values == 0) return QStringLiteral("Empty: no ticker is marked");
    return QStringLiteral("%1: names %2, values %3")
        .arg(Name(panel.action))
        .arg(panel.selected.size())
        .arg(values);
}

}  // namespace

frmStockSelectorSettings::frmStockSelectorSettings(Session& session, QWidget* parent,
                                                   std::vector<std::string> tickers)
    : QDialog(parent),
      session_(session),
      panels_(OpenPanels(session.settings.SelectorSettings)),
      stored_(panels_),
      edits_(panels_),
      tbsOptions(new QTabWidget),
      state_(new QLabel),
      hitsLine_(new QLabel) {
    setObjectName(QStringLiteral("frmStockSelectorSettings"));
    setWindowTitle(QStringLiteral("Brantlow Stock Selector Settings"));
    setSizeGripEnabled(true);
    auto* layout = new QVBoxLayout(this);
    auto* frame = new QGroupBox(QStringLiteral("Conditional Analyses Settings"));
    auto* inFrame = new QVBoxLayout(frame);
    inFrame->setContentsMargins(kFrameMargin, kFrameMargin, kFrameMargin, kFrameMargin);
    inFrame->addWidget(tbsOptions);
    layout->addWidget(frame);
    BuildTabs();
    hitsLine_->setObjectName(QStringLiteral("Hits"));
    hitsLine_->setWordWrap(true);
    layout->addWidget(hitsLine_);
    if (!tickers.empty()) {
        hits_ = new HitCounter(HistoryOf(session), std::move(tickers), this);
        connect(hits_, &HitCounter::Counted, this, &frmStockSelectorSettings::ShowHits);
    }
    ShowHits();
    auto* row = new QHBoxLayout;
    BuildButtons(*row);
    layout->addLayout(row);
    AddKeys();
    picOptions_[0]->FocusFilter();
    resize(kEditorSize.boundedTo(RoomOnScreen(*this)));
}

void frmStockSelectorSettings::BuildTabs() {
    tbsOptions->setObjectName(QStringLiteral("tbsOptions"));
    auto* narrow = new NarrowTabStyle;
    narrow->setParent(this);
    tbsOptions->tabBar()->setStyle(narrow);
    for (std::size_t i = 0; i < kConditionCount; ++i) {
        auto* panel = new SelectorPanelView(panels_[i]);
        picOptions_[i] = panel;
        panel->ShowAll();
        tbsOptions->addTab(panel, QStringLiteral("Condition - %1").arg(i + 1));
        ShowUse(i);
        connect(panel, &SelectorPanelView::Edited, this, [this, i] { Edited(i, {}); });
    }
    ShowTab(0);
    connect(tbsOptions, &QTabWidget::currentChanged, this, &frmStockSelectorSettings::ShowTab);
}

void frmStockSelectorSettings::Edited(std::size_t panel, const std::string& what) {
    edits_.Note(panels_, what);
    ShowUse(panel);
    ShowHits();
    ShowUndo();
    ShowState(kNotApplied);
}

std::size_t frmStockSelectorSettings::OnShow() const {
    return static_cast<std::size_t>(tbsOptions->currentIndex());
}

void frmStockSelectorSettings::ShowState(std::string_view words) {
    state_->setText(Name(words));
}

void frmStockSelectorSettings::ShowUndo() {
    const std::string words = edits_.Words();
    undo_->setEnabled(edits_.CanUndo());
    undo_->setToolTip(words.empty() ? QStringLiteral("Nothing was changed yet") : Name(words + " (Ctrl+Z)"));
}

// The other panels lie out of sight and take no key.
void frmStockSelectorSettings::ShowTab(int tab) {
    for (std::size_t i = 0; i < kConditionCount; ++i) {
        picOptions_[i]->setEnabled(static_cast<int>(i) == tab);
    }
    ShowHits();
}

// How many tickers the condition in hand finds now, and what each of its lines leaves.
void frmStockSelectorSettings::ShowHits() {
    hitsLine_->setVisible(hits_ != nullptr);
    if (!hits_) return;
    hitsLine_->setText(hits_->Sentence(ConditionOf(panels_[OnShow()])));
}

void frmStockSelectorSettings::ShowUse(std::size_t panel) {
    tbsOptions->setTabToolTip(static_cast<int>(panel), UseOf(panels_[panel]));
}

void frmStockSelectorSettings::BuildButtons(QHBoxLayout& row) {
    state_->setObjectName(QStringLiteral("State"));
    state_->setWordWrap(true);
    row.addWidget(state_, 1);
    auto* overview = AddButton(row, QStringLiteral("Overview"), QStringLiteral("&Overview"),
                               QStringLiteral("All ten conditions with their lines and what they find"));
    FillCopyMenu(*AddButton(row, QStringLiteral("CopyTo"), QStringLiteral("Copy &To"),
                            QStringLiteral("Put this condition in place of another one (can be undone)")));
    undo_ = AddButton(row, QStringLiteral("Undo"), QStringLiteral("&Undo"), {});
    ShowUndo();
    connect(overview, &QPushButton::clicked, this, &frmStockSelectorSettings::ShowOverview);
    connect(undo_, &QPushButton::clicked, this, &frmStockSelectorSettings::Undo);
    auto* apply = AddButton(row, QStringLiteral("Command1"), QStringLiteral("&Apply"),
                            QStringLiteral("Save all ten conditions (Ctrl+S)"));
    auto* clear = AddButton(row, QStringLiteral("Command3"), QStringLiteral("&Clear"),
                            QStringLiteral("Empty the condition on show and save all ten (can be undone)"));
    auto* exit = AddButton(row, QStringLiteral("Command2"), QStringLiteral("E&xit"),
                           QStringLiteral("Close; asks before it drops what was not applied (Esc)"));
    connect(apply, &QPushButton::clicked, this, &frmStockSelectorSettings::Apply);
    connect(clear, &QPushButton::clicked, this, &frmStockSelectorSettings::Clear);
    connect(exit, &QPushButton::clicked, this, &QDialog::reject);
}

void frmStockSelectorSettings::AddKeys() {
    auto* find = new QShortcut(QKeySequence(QKeySequence::Find), this);
    connect(find, &QShortcut::activated, this, [this] { picOptions_[OnShow()]->FocusFilter(); });
    auto* save = new QShortcut(QKeySequence(QKeySequence::Save), this);
    connect(save, &QShortcut::activated, this, &frmStockSelectorSettings::Apply);
    auto* undo = new QShortcut(QKeySequence(QKeySequence::Undo), this);
    connect(undo, &QShortcut::activated, this, &frmStockSelectorSettings::Undo);
    for (QLineEdit* const box : findChildren<QLineEdit*>()) LeaveUndoToWindow(*box);
    const std::pair<Qt::Key, int> steps[] = {{Qt::Key_PageDown, 1},
                                             {Qt::Key_PageUp, static_cast<int>(kConditionCount) - 1}};
    for (const auto& [key, step] : steps) {
        auto* turn = new QShortcut(QKeySequence(Qt::CTRL | key), this);
        connect(turn, &QShortcut::activated, this, [this, forward = step] {
            tbsOptions->setCurrentIndex((tbsOptions->currentIndex() + forward) % tbsOptions->count());
        });
    }
}

void frmStockSelectorSettings::Apply() {
    if (!Written(ApplyPanels(panels_, session_.AppPath, session_.settings))) return;
    stored_ = panels_;
    ShowState(IsWholeSetInForce(panels_, session_.settings) ? kApplied : kPartlyInForce);
}

void frmStockSelectorSettings::FillCopyMenu(QPushButton& button) {
    auto* menu = new QMenu(&button);
    for (std::size_t i = 0; i < kConditionCount; ++i) {
        QAction* const to = menu->addAction(QStringLiteral("Condition - %1").arg(i + 1));
        connect(to, &QAction::triggered, this, [this, i] { Copy(i); });
    }
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        for (int i = 0; i < menu->actions().size(); ++i)
            menu->actions().at(i)->setEnabled(i != tbsOptions->currentIndex());
    });
    button.setMenu(menu);
}

void frmStockSelectorSettings::Copy(std::size_t to) {
    const std::size_t from = OnShow();
    CopyPanel(panels_, from, to);
    picOptions_[to]->ShowAll();
    Edited(to, "copy of Condition " + std::to_string(from + 1) + " to Condition " + std::to_string(to + 1));
    tbsOptions->setCurrentIndex(static_cast<int>(to));
}

// The window alone goes a step back: what Clear wrote stays written until the next Apply.
void frmStockSelectorSettings::Undo() {
    const std::optional<std::size_t> panel = edits_.Undo(panels_);
    if (!panel) return;
    picOptions_[*panel]->ShowAll();
    tbsOptions->setCurrentIndex(static_cast<int>(*panel));
    Edited(*panel, {});
    if (!AreOther(panels_, stored_)) ShowState({});
}

void frmStockSelectorSettings::ShowOverview() {
    auto* overview = new ConditionOverview(
        panels_, [this](const Condition& condition) { return hits_ ? hits_->Hits(condition) : std::nullopt; },
        this);
    overview->setAttribute(Qt::WA_DeleteOnClose);
    if (hits_) connect(hits_, &HitCounter::Counted, overview, &ConditionOverview::ShowAll);
    connect(overview, &ConditionOverview::ConditionChosen, tbsOptions, &QTabWidget::setCurrentIndex);
    overview->open();
    overview->Select(OnShow());
}

void frmStockSelectorSettings::reject() {
    if (AreOther(panels_, stored_) &&
        !session_.person.AskBeforeLoss(kDropQuestion, "Drop the Changes?", "Drop"))
        return;
    QDialog::reject();
}

void frmStockSelectorSettings::Clear() {
    const std::size_t panel = OnShow();
    if (!Written(ClearPanel(panels_, panel, ChangePlaceOf(session_), session_.settings))) return;
    stored_ = panels_;
    picOptions_[panel]->ShowAll();
    Edited(panel, "Clear of Condition " + std::to_string(panel + 1));
    ShowState(kApplied);
}

bool frmStockSelectorSettings::Written(const Failure& fault) {
    if (fault) session_.person.Say(Sentence(fault));
    return !fault;
}

}  // namespace brantlow
