// Shows one picture given as SVG text, as large as there is room, its shape kept.
#pragma once

#include <QWidget>
#include <string>

class QSvgRenderer;

namespace brantlow {

class SvgView final : public QWidget {
    Q_OBJECT
  public:
    explicit SvgView(const QString& accessibleName);

    // Empty text shows nothing.
    void Show(const std::string& svg);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QSvgRenderer* renderer_;
};

}  // namespace brantlow
