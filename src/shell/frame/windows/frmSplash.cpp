#include "shell/frame/windows/frmSplash.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QEventLoop>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>
#include <QTimer>
#include <QVBoxLayout>

namespace brantlow {

namespace {

constexpr QSize kPictureSize(560, 330);
constexpr int kSplashMargin = 28;
constexpr int kNamePixels = 46;
constexpr int kTextPixels = 15;
constexpr int kNoticePixels = 11;

QLabel* AddLine(QVBoxLayout* layout, const QString& name, const QString& words, int pixels, bool bold) {
    auto* line = new QLabel(words);
    line->setObjectName(name);
    line->setWordWrap(true);
    QFont font = line->font();
    font.setPixelSize(pixels);
    font.setBold(bold);
    line->setFont(font);
    QPalette palette = line->palette();
    palette.setColor(QPalette::WindowText, Qt::white);
    line->setPalette(palette);
    layout->addWidget(line);
    return line;
}

}  // namespace

frmSplash::frmSplash(const QString& version)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      picture_(new QSvgRenderer(QStringLiteral(":/icons/splash.svg"), this)) {
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QStringLiteral("Brantlow"));
    setFixedSize(kPictureSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kSplashMargin, kSplashMargin, kSplashMargin, kSplashMargin / 2);
    AddLine(layout, QStringLiteral("lblProductName"), QStringLiteral("Brantlow"), kNamePixels, true);
    AddLine(layout, QStringLiteral("lblPurpose"),
            QStringLiteral("Quotes, indicators and stock selection for the private investor"), kTextPixels,
            false);
    AddLine(layout, QStringLiteral("lblVersion"), QStringLiteral("Version: ") + version, kTextPixels, false);
    layout->addStretch();
    AddLine(
        layout, QStringLiteral("lblWarning"),
        QStringLiteral("For your own research only. Nothing that this program shows is investment advice; "
                       "quotes may be late or wrong, and all decisions are your own."),
        kNoticePixels, false);
}

void frmSplash::ShowUntilClosed() {
    ShowCentred();
    QCoreApplication::instance()->installEventFilter(this);
    // It is painted before whatever keeps the program busy next.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

bool frmSplash::eventFilter(QObject* watched, QEvent* event) {
    const auto* const dialog = event->type() == QEvent::Show ? qobject_cast<QDialog*>(watched) : nullptr;
    if (dialog != nullptr && dialog->isModal()) close();
    return false;
}

// The program goes on without it for hours.
void frmSplash::hideEvent(QHideEvent* event) {
    QCoreApplication::instance()->removeEventFilter(this);
    QWidget::hideEvent(event);
}

void frmSplash::ShowCentred() {
    move(screen()->availableGeometry().center() - rect().center());
    show();
}

void frmSplash::ShowFor(int milliseconds) {
    ShowCentred();
    QEventLoop wait;
    QTimer::singleShot(milliseconds, &wait, &QEventLoop::quit);
    wait.exec();
}

void frmSplash::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    picture_->render(&painter, QRectF(rect()));
}

}  // namespace brantlow
