// Drawing by hand in the chart's window: the Draw button with its menu, the mouse over the price panel, the
// keys and the box for words. What changes is kept at once; what cannot be kept is told and taken back.
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <string>

#include "chart/chart_scene.h"

class QAction;
class QKeyEvent;
class QLineEdit;
class QMenu;
class QToolButton;

namespace brantlow {

class ChartPanel;

class HandDesk final : public QObject {
    Q_OBJECT
  public:
    // All outlive the desk; `price` is the panel that is drawn on.
    HandDesk(const ChartContext& context, ChartScene& scene, ChartPanel& price);

    QToolButton* Button() const { return button_; }
    // While this is true nothing can be drawn: a run may be about to restate what is kept.
    void AskBefore(std::function<bool()> isBusy) { isBusy_ = std::move(isBusy); }

    // The ticker's drawings as they are kept now, where they are others than those shown.
    void Load();
    // Whether the key is the desk's before it is a shortcut of the menu.
    static bool IsOwn(const QKeyEvent& key);
    // `crosshair` is the bar under it, 0 for none. False for a key that the desk has no use for.
    bool TakeKey(const QKeyEvent& key, std::size_t crosshair);
    // The crosshair has come to this bar by a key: what is being made goes along.
    void FollowCrosshair(std::size_t bar);

  Q_SIGNALS:
    // A line for the status bar.
    void Told(const std::string& sentence);
    // The next keys are for the chart.
    void FocusWanted();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct KeyRow;
    static const KeyRow kKeys[];

    void BuildMenu();
    QAction* AddEntry(const QString& words, const QString& key, void (HandDesk::*act)());
    void ConnectMouse();
    HandReach Reach() const;
    bool MayDraw();
    // Shows what the editor has come to, and keeps it.
    void Done();
    void Keep();
    void ShowState();
    void AskWords();
    void EnterWords();
    void Take(HandKind kind);
    void TakeTrend() { Take(HandKind::Trend); }
    void TakeHorizontal() { Take(HandKind::Horizontal); }
    void TakeChannel() { Take(HandKind::Channel); }
    void TakeText() { Take(HandKind::Text); }
    void SwitchPull();
    void ChooseNext();
    void EditText();
    void DeleteChosen();
    void DeleteAll();
    void Undo();
    void Redo();
    bool MoveChosen(int key);
    bool Place(std::size_t bar);

    ChartContext context_;
    ChartScene& scene_;
    ChartPanel& price_;
    QToolButton* button_;
    QMenu* menu_;
    QAction* pull_ = nullptr;
    QAction* next_ = nullptr;
    QAction* editText_ = nullptr;
    QAction* delete_ = nullptr;
    QAction* deleteAll_ = nullptr;
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    QLineEdit* words_;
    bool showsHint_ = false;
    std::function<bool()> isBusy_;
    // As the ticker's file holds them.
    std::string ticker_;
    std::string bytes_;
    Failure failure_;
};

}  // namespace brantlow
