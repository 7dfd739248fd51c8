// The picture that greets the user while the program starts: name, version, legal notice. main() shows it for
// three seconds without blocking, or until the table is there.
#pragma once

#include <QWidget>

class QSvgRenderer;

namespace brantlow {

class frmSplash final : public QWidget {
    Q_OBJECT
  public:
    // `version` as a.b.c.
    explicit frmSplash(const QString& version);

    // Shows the window in the middle of its screen and lets window events run for `milliseconds`.
    void ShowFor(int milliseconds);
    // Shows it there until it is closed. A question that opens meanwhile closes it: it would lie behind.
    void ShowUntilClosed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void ShowCentred();

    QSvgRenderer* picture_;
};

}  // namespace brantlow
