#include "shell/frame/windows/frame_area.h"

#include <QIcon>
#include <QMdiSubWindow>
#include <QPainter>

namespace brantlow {

namespace {

constexpr int kLogoPixels = 72;
constexpr int kGap = 18;
constexpr QRgb kGround = 0xffe4e9ef;
constexpr QRgb kInk = 0xff4a5a6b;
constexpr double kNameScale = 1.6;

// Ctrl is what the catalogue binds these entries to.
const char* const kHowToBegin =
    "Ctrl+O  opens an end of day quote file\n"
    "Ctrl+N  creates a new one\n"
    "Ctrl+Shift+O  opens the results of the Stock Selector";

}  // namespace

FrameArea::FrameArea() {
    setBackground(QColor::fromRgb(kGround));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void FrameArea::paintEvent(QPaintEvent* event) {
    QMdiArea::paintEvent(event);
    if (!subWindowList().isEmpty()) return;
    QPainter painter(viewport());
    const QRect whole = viewport()->rect();
    const QRect logo(whole.center().x() - kLogoPixels / 2, whole.height() / 2 - kLogoPixels - kGap * 3,
                     kLogoPixels, kLogoPixels);
    QIcon(QStringLiteral(":/icons/brantlow.svg")).paint(&painter, logo);
    painter.setPen(QColor::fromRgb(kInk));
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * kNameScale);
    painter.setFont(large);
    QRect text(0, logo.bottom() + kGap / 2, whole.width(), painter.fontMetrics().height());
    painter.drawText(text, Qt::AlignCenter, QStringLiteral("No file is open"));
    painter.setFont(font());
    text = QRect(0, text.bottom() + kGap / 2, whole.width(), whole.height() - text.bottom());
    painter.drawText(text, Qt::AlignHCenter | Qt::AlignTop, QString::fromLatin1(kHowToBegin));
}

}  // namespace brantlow
