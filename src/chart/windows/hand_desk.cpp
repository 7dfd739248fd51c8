#include "chart/windows/hand_desk.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "base/windows/display_text.h"
#include "chart/windows/chart_panel.h"
#include "shell/display.h"

namespace brantlow {

namespace {

// How near the pointer has to come, in pixels.
constexpr double kReachPixels = 6;
constexpr int kWordsWidthInLetters = 24;
constexpr std::string_view kBusy = "Nothing can be drawn while a run is under way";
constexpr std::string_view kNothingToUndo = "Nothing was drawn or changed in this chart";

// What the status bar says when a tool is taken, in the order of HandKind.
constexpr std::array<std::string_view, kHandForms.size()> kHints = {
    "Trend line: drag from one place to the other, or click each. Ctrl places freely",
    "Horizontal line: click its price. Ctrl places freely",
    "Channel: drag along its first line, then click where the second one runs",
    "Text: click its place",
};

}  // namespace

HandDesk::HandDesk(const ChartContext& context, ChartScene& scene, ChartPanel& price)
    : QObject(&price),
      context_(context),
      scene_(scene),
      price_(price),
      button_(new QToolButton),
      menu_(new QMenu(button_)),
      words_(new QLineEdit(&price)) {
    button_->setObjectName(QStringLiteral("btnDraw"));
    button_->setText(QStringLiteral("Draw"));
    button_->setAccessibleName(QStringLiteral("Draw into the chart"));
    button_->setPopupMode(QToolButton::InstantPopup);
    button_->setMenu(menu_);
    button_->setFocusPolicy(Qt::StrongFocus);
    BuildMenu();
    words_->setObjectName(QStringLiteral("txtWords"));
    words_->setAccessibleName(QStringLiteral("Words at this place of the chart"));
    words_->setPlaceholderText(QStringLiteral("Text, then Enter"));
    words_->setMaxLength(static_cast<int>(kLongestHandText));
    words_->hide();
    words_->installEventFilter(this);
    connect(words_, &QLineEdit::editingFinished, this, &HandDesk::EnterWords);
    ConnectMouse();
    Load();
}

QAction* HandDesk::AddEntry(const QString& words, const QString& key, void (HandDesk::*act)()) {
    // The key stands there to be read: it is the chart's while that has the focus, and no shortcut.
    QAction* const action = menu_->addAction(key.isEmpty() ? words : words + u'\t' + key);
    connect(action, &QAction::triggered, this, [this, act] { (this->*act)(); });
    return action;
}

void HandDesk::BuildMenu() {
    AddEntry(QStringLiteral("&Trend Line"), QStringLiteral("T"), &HandDesk::TakeTrend);
    AddEntry(QStringLiteral("&Horizontal Line"), QStringLiteral("H"), &HandDesk::TakeHorizontal);
    AddEntry(QStringLiteral("&Channel"), QStringLiteral("C"), &HandDesk::TakeChannel);
    AddEntry(QStringLiteral("Te&xt"), QStringLiteral("X"), &HandDesk::TakeText);
    menu_->addSeparator();
    pull_ =
        AddEntry(QStringLiteral("&Snap to High, Low and Close"), QStringLiteral("S"), &HandDesk::SwitchPull);
    pull_->setCheckable(true);
    pull_->setChecked(true);
    menu_->addSeparator();
    next_ = AddEntry(QStringLiteral("Choose the &Next"), QStringLiteral("N"), &HandDesk::ChooseNext);
    editText_ = AddEntry(QStringLiteral("&Edit Text"), QStringLiteral("F2"), &HandDesk::EditText);
    delete_ = AddEntry(QStringLiteral("&Delete"), QStringLiteral("Del"), &HandDesk::DeleteChosen);
    deleteAll_ = AddEntry(QStringLiteral("Delete &All"), {}, &HandDesk::DeleteAll);
    menu_->addSeparator();
    undo_ = AddEntry(QStringLiteral("&Undo"), QStringLiteral("Ctrl+Z"), &HandDesk::Undo);
    redo_ = AddEntry(QStringLiteral("&Redo"), QStringLiteral("Ctrl+Y"), &HandDesk::Redo);
    connect(menu_, &QMenu::aboutToShow, this, &HandDesk::ShowState);
}

void HandDesk::ConnectMouse() {
    HandMouse mouse;
    mouse.press = [this](ChartPoint at, bool freely) {
        if (words_->isVisible()) EnterWords();
        Load();
        HandEditor& hand = scene_.Hand();
        if ((hand.Tool() || !hand.Kept().empty()) && !MayDraw()) return false;
        const bool isTaken = hand.Press(scene_.Sheet(), at, Reach(), freely);
        Done();
        return isTaken;
    };
    mouse.move = [this](ChartPoint at, bool freely) {
        if (scene_.Hand().Move(scene_.Sheet(), at, Reach(), freely)) Done();
        const HandDrawings& kept = scene_.Hand().Kept();
        const bool isOver =
            !scene_.Hand().Tool() && std::any_of(kept.begin(), kept.end(), [&](const HandDrawing& drawing) {
                return scene_.Sheet().IsOn(drawing, at, Reach());
            });
        const Qt::CursorShape shape = isOver ? Qt::PointingHandCursor : Qt::CrossCursor;
        if (price_.cursor().shape() != shape) price_.setCursor(shape);
    };
    mouse.release = [this](ChartPoint at, bool freely) {
        scene_.Hand().Release(scene_.Sheet(), at, Reach(), freely);
        Done();
        AskWords();
    };
    mouse.doubleClick = [this](ChartPoint at) {
        if (scene_.Hand().Tool() || !scene_.Hand().Choose(scene_.Sheet(), at, Reach())) return false;
        EditText();
        return true;
    };
    price_.GiveHand(std::move(mouse));
}

HandReach HandDesk::Reach() const {
    const QFontMetrics metrics = price_.fontMetrics();
    return {price_.TwipsAcross(kReachPixels), price_.TwipsDown(kReachPixels),
            price_.TwipsAcross(metrics.averageCharWidth()), price_.TwipsDown(metrics.height())};
}

void HandDesk::Load() {
    const std::string& ticker = context_.chart.SelectorTicker;
    KeptDrawings kept = LoadHandDrawings(context_.session.DataFolder(), ticker);
    if (ticker == ticker_ && kept.bytes == bytes_ && kept.failure == failure_) return;
    const bool isToBeTold = kept.failure && kept.failure != failure_;
    words_->hide();
    ticker_ = ticker;
    bytes_ = std::move(kept.bytes);
    failure_ = kept.failure;
    scene_.Hand().Load(std::move(kept.drawings));
    Done();
    if (isToBeTold) context_.session.person.Say(Sentence(failure_));
}

bool HandDesk::MayDraw() {
    if (isBusy_ && isBusy_()) {
        Q_EMIT Told(std::string(kBusy));
        return false;
    }
    if (failure_) context_.session.person.Say(Sentence(failure_));
    return !failure_;
}

void HandDesk::Done() {
    // What to do with a tool is told for as long as it is in hand.
    if (!scene_.Hand().Tool() && std::exchange(showsHint_, false)) Q_EMIT Told({});
    Keep();
    scene_.ShowHand();
    ShowState();
    price_.Redraw();
}

void HandDesk::Keep() {
    if (failure_) return;
    HandEditor& hand = scene_.Hand();
    const std::string bytes = hand.Kept().empty() ? std::string() : TextOfHandDrawings(hand.Kept());
    // A file that came from elsewhere may say the same in other words.
    std::string ignored;
    if (bytes == bytes_ || (!bytes_.empty() && hand.Kept() == ReadHandDrawings(bytes_, ignored))) return;
    const Failure failure = SaveHandDrawings(context_.session.DataFolder(), ticker_, hand.Kept(), bytes_);
    if (!failure) {
        bytes_ = bytes;
        return;
    }
    hand.TakeBack();
    context_.session.person.Say(Sentence(failure));
    Load();
}

void HandDesk::ShowState() {
    const HandEditor& hand = scene_.Hand();
    const bool hasAny = !hand.Kept().empty();
    const bool isText = hand.Chosen() && hand.Kept()[*hand.Chosen()].kind == HandKind::Text;
    pull_->setChecked(hand.Pulls());
    next_->setEnabled(hasAny);
    editText_->setEnabled(isText);
    delete_->setEnabled(hand.Chosen().has_value());
    deleteAll_->setEnabled(hasAny);
    undo_->setEnabled(hand.CanUndo());
    redo_->setEnabled(hand.CanRedo());
    button_->setDown(hand.Tool().has_value());
    button_->setToolTip(failure_ ? Shown(Sentence(failure_))
                                 : QStringLiteral("Draw lines and words into the chart"));
}

void HandDesk::AskWords() {
    const std::optional<HandPoint>& place = scene_.Hand().TextPlace();
    if (!place) return;
    const ChartPoint at = scene_.Sheet().PlaceOf(*place);
    const int width = price_.fontMetrics().averageCharWidth() * kWordsWidthInLetters;
    const int height = words_->sizeHint().height();
    const int x =
        std::clamp(static_cast<int>(at.x / price_.TwipsAcross(1)), 0, std::max(0, price_.width() - width));
    const int y = std::clamp(static_cast<int>(at.y / price_.TwipsDown(1)) - height, 0,
                             std::max(0, price_.height() - height));
    words_->setGeometry(x, y, width, height);
    words_->setText(Shown(scene_.Hand().TextWords()));
    words_->selectAll();
    words_->show();
    words_->setFocus();
}

void HandDesk::EnterWords() {
    if (!words_->isVisible()) return;
    const std::string words = words_->text().toStdString();
    words_->hide();
    scene_.Hand().EnterText(words);
    Done();
    Q_EMIT FocusWanted();
}

void HandDesk::Take(HandKind kind) {
    Load();
    if (!MayDraw()) return;
    scene_.Hand().TakeTool(kind);
    Done();
    Q_EMIT Told(std::string(kHints[static_cast<std::size_t>(kind)]));
    showsHint_ = true;
    Q_EMIT FocusWanted();
}

void HandDesk::SwitchPull() {
    scene_.Hand().SetPulls(!scene_.Hand().Pulls());
    ShowState();
    Q_EMIT Told(scene_.Hand().Pulls() ? "Places snap to high, low and close"
                                      : "Places stand where they are put");
}

void HandDesk::ChooseNext() {
    Load();
    if (scene_.Hand().ChooseNext()) Done();
}

void HandDesk::EditText() {
    if (MayDraw() && scene_.Hand().EditText()) AskWords();
    Done();
}

void HandDesk::DeleteChosen() {
    Load();
    if (MayDraw() && scene_.Hand().DeleteChosen()) Done();
}

void HandDesk::DeleteAll() {
    Load();
    if (MayDraw() && scene_.Hand().DeleteAll()) Done();
}

void HandDesk::Undo() {
    Load();
    if (!MayDraw()) return;
    if (!scene_.Hand().Undo()) Q_EMIT Told(std::string(kNothingToUndo));
    Done();
}

void HandDesk::Redo() {
    Load();
    if (MayDraw() && scene_.Hand().Redo()) Done();
}

struct HandDesk::KeyRow {
    int key;
    Qt::KeyboardModifiers modifiers;
    void (HandDesk::*act)();
};
const HandDesk::KeyRow HandDesk::kKeys[] = {
    {Qt::Key_T, Qt::NoModifier, &HandDesk::TakeTrend},
    {Qt::Key_H, Qt::NoModifier, &HandDesk::TakeHorizontal},
    {Qt::Key_C, Qt::NoModifier, &HandDesk::TakeChannel},
    {Qt::Key_X, Qt::NoModifier, &HandDesk::TakeText},
    {Qt::Key_S, Qt::NoModifier, &HandDesk::SwitchPull},
    {Qt::Key_N, Qt::NoModifier, &HandDesk::ChooseNext},
    {Qt::Key_F2, Qt::NoModifier, &HandDesk::EditText},
    {Qt::Key_Delete, Qt::NoModifier, &HandDesk::DeleteChosen},
    {Qt::Key_Z, Qt::ControlModifier, &HandDesk::Undo},
    {Qt::Key_Y, Qt::ControlModifier, &HandDesk::Redo},
    {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, &HandDesk::Redo},
};

bool HandDesk::IsOwn(const QKeyEvent& key) {
    return std::any_of(std::begin(kKeys), std::end(kKeys), [&](const KeyRow& row) {
        return row.key == key.key() && row.modifiers == key.modifiers();
    });
}

bool HandDesk::TakeKey(const QKeyEvent& key, std::size_t crosshair) {
    if (key.modifiers() == Qt::NoModifier) {
        if (key.key() == Qt::Key_Escape && scene_.Hand().Cancel()) {
            words_->hide();
            Done();
            return true;
        }
        if ((key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) && Place(crosshair)) return true;
        if (MoveChosen(key.key())) return true;
    }
    const auto* const found = std::find_if(std::begin(kKeys), std::end(kKeys), [&](const KeyRow& row) {
        return row.key == key.key() && row.modifiers == key.modifiers();
    });
    if (found == std::end(kKeys)) return false;
    (this->*found->act)();
    return true;
}

// By a bar to the side, by a pixel up and down.
bool HandDesk::MoveChosen(int key) {
    struct Step {
        int key;
        int bars;
        int pixels;
    };
    static constexpr Step kSteps[] = {
        {Qt::Key_Left, -1, 0}, {Qt::Key_Right, 1, 0}, {Qt::Key_Up, 0, -1}, {Qt::Key_Down, 0, 1}};
    const auto* const step =
        std::find_if(std::begin(kSteps), std::end(kSteps), [&](const Step& row) { return row.key == key; });
    if (step == std::end(kSteps) || !scene_.Hand().Chosen()) return false;
    Load();
    if (!scene_.Hand().Chosen() || !MayDraw()) return true;
    scene_.Hand().MoveChosen(scene_.Sheet(), step->bars, price_.TwipsDown(step->pixels));
    Done();
    return true;
}

// A place at the close of the bar under the crosshair, as a click there.
bool HandDesk::Place(std::size_t bar) {
    if (!scene_.Hand().Tool() || bar == 0 || !MayDraw()) return false;
    const ChartPoint at = scene_.Sheet().CloseOf(bar);
    scene_.Hand().Press(scene_.Sheet(), at, Reach(), false);
    scene_.Hand().Release(scene_.Sheet(), at, Reach(), false);
    Done();
    AskWords();
    return true;
}

void HandDesk::FollowCrosshair(std::size_t bar) {
    if (!scene_.Hand().Tool() || bar == 0) return;
    if (scene_.Hand().Move(scene_.Sheet(), scene_.Sheet().CloseOf(bar), Reach(), false)) Done();
}

// Escape in the box for words gives them up.
bool HandDesk::eventFilter(QObject* watched, QEvent* event) {
    if (watched == words_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        words_->hide();
        scene_.Hand().Cancel();
        Done();
        Q_EMIT FocusWanted();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace brantlow
