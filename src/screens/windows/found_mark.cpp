#include "screens/windows/found_mark.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPainter>

namespace brantlow {

namespace {

constexpr int kDistance = 4;
constexpr double kLineWidth = 2;
constexpr double kRadius = 4;
constexpr int kGroundAlpha = 36;

}  // namespace

FoundMark::FoundMark(QWidget& control, QWidget& meant)
    : QWidget(control.parentWidget()), control_(&control), meant_(&meant) {
    setObjectName(QStringLiteral("FoundMark"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    control.installEventFilter(this);
    meant.installEventFilter(this);
    Follow();
    raise();
    show();
    // The press that led here may still be on its way through the windows.
    QMetaObject::invokeMethod(this, &FoundMark::GoWithNextPress, Qt::QueuedConnection);
}

void FoundMark::GoWithNextPress() {
    QCoreApplication::instance()->installEventFilter(this);
}

// What a label stands for can lie in another part of the page.
void FoundMark::Follow() {
    if (!control_ || !meant_) return;
    QRect place = control_->geometry();
    if (meant_->parentWidget() == parentWidget()) place |= meant_->geometry();
    const QRect around = place.adjusted(-kDistance, -kDistance, kDistance, kDistance);
    setGeometry(around & parentWidget()->rect());
}

bool FoundMark::eventFilter(QObject* watched, QEvent* event) {
    const bool isMarked = watched == control_ || watched == meant_;
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::ShortcutOverride:
        case QEvent::MouseButtonPress:
        case QEvent::TouchBegin:
            hide();
            deleteLater();
            break;
        case QEvent::Move:
        case QEvent::Resize:
            if (isMarked) Follow();
            break;
        default:
            break;
    }
    return false;
}

void FoundMark::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor colour = palette().color(QPalette::Active, QPalette::Highlight);
    painter.setPen(QPen(colour, kLineWidth));
    colour.setAlpha(kGroundAlpha);
    painter.setBrush(colour);
    const double inset = kLineWidth / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kRadius, kRadius);
}

}  // namespace brantlow
