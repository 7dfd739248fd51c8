#include "study/windows/svg_view.h"

#include <QPainter>
#include <QSvgRenderer>

namespace brantlow {

namespace {

constexpr QSize kSmallest(320, 150);
constexpr QSize kUsual(426, 200);

}  // namespace

SvgView::SvgView(const QString& accessibleName) : renderer_(new QSvgRenderer(this)) {
    setAccessibleName(accessibleName);
    setMinimumSize(kSmallest);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SvgView::Show(const std::string& svg) {
    renderer_->load(QByteArray::fromStdString(svg));
    update();
}

QSize SvgView::sizeHint() const {
    return kUsual;
}

void SvgView::paintEvent(QPaintEvent*) {
    if (!renderer_->isValid()) return;
    QPainter painter(this);
    const QSizeF room = renderer_->defaultSize().scaled(size(), Qt::KeepAspectRatio);
    renderer_->render(&painter, QRectF(QPointF(0, 0), room));
}

}  // namespace brantlow
