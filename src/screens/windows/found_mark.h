// The frame around a setting that was found, so that the eye finds it too. It lies over the page, lets the
// mouse through, moves with the control, and goes with the next press of a key or of a mouse button.
#pragma once

#include <QPointer>
#include <QRect>
#include <QWidget>

namespace brantlow {

class FoundMark final : public QWidget {
    Q_OBJECT
  public:
    // Around `control` and what it stands for, which may be the same. Belongs to the parent of `control`.
    FoundMark(QWidget& control, QWidget& meant);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void Follow();
    void GoWithNextPress();

    QPointer<QWidget> control_;
    QPointer<QWidget> meant_;
};

}  // namespace brantlow
