// A label of one line that is shortened with dots where its space ends, and whose tool tip has all of it. It
// wants the space of its text and never asks its window to be wider.
#pragma once

#include <QLabel>
#include <QPainter>

namespace brantlow {

class ElidedLabel final : public QLabel {
  public:
    explicit ElidedLabel(QWidget* parent = nullptr) : QLabel(parent) { setTextFormat(Qt::PlainText); }

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

    void ShowLine(const QString& line) {
        setText(line);
        setToolTip(line);
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QFrame::paintEvent(event);
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(contentsRect(), static_cast<int>(alignment()),
                         fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
    }
};

}  // namespace brantlow
