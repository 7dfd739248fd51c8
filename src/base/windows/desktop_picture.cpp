#include "base/windows/desktop_picture.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>
#include <map>
#include <tuple>
#include <utility>

#include "base/windows/colours.h"

namespace brantlow {

namespace {

// Lines on the open ground, and what takes their place on a dark one. Surfaces keep their colours.
struct LineColour {
    const char* light;
    const char* dark;
};
constexpr LineColour kLineColours[] = {
    {"#24507f", "#8ab8e8"}, {"#44546a", "#a9b6c8"}, {"#1f6fb2", "#5aa5e6"},
    {"#2e7d32", "#5cb860"}, {"#c0392b", "#e8705f"},
};

bool IsDarkDesktop() {
    return IsDark(QApplication::palette().color(QPalette::Window));
}

class PictureEngine final : public QIconEngine {
  public:
    explicit PictureEngine(const QString& name) : name_(name) {}

    QIconEngine* clone() const override { return new PictureEngine(name_); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        painter->drawPixmap(rect, pixmap(rect.size() * painter->device()->devicePixelRatio(), mode, state));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        const bool isDark = IsDarkDesktop();
        if (std::exchange(wasDark_, isDark) != isDark) drawn_.clear();
        QPixmap& picture = drawn_[{size.width(), size.height(), static_cast<int>(mode)}];
        if (picture.isNull()) picture = Drawn(size, mode, isDark);
        return picture;
    }

  private:
    QPixmap Drawn(const QSize& size, QIcon::Mode mode, bool isDark) const {
        QFile file(QStringLiteral(":/icons/%1.svg").arg(name_));
        if (!file.open(QIODevice::ReadOnly)) return {};
        QByteArray text = file.readAll();
        if (isDark) {
            for (const LineColour& colour : kLineColours)
                text.replace(QByteArray("stroke=\"") + colour.light, QByteArray("stroke=\"") + colour.dark);
        }
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        QSvgRenderer renderer(text);
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(&painter);
        painter.end();
        if (mode == QIcon::Normal) return picture;
        QStyleOption option;
        option.palette = QApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, picture, &option);
    }

    QString name_;
    bool wasDark_ = false;
    // By width, height and mode.
    std::map<std::tuple<int, int, int>, QPixmap> drawn_;
};

}  // namespace

QIcon DesktopPicture(const QString& name) {
    return QIcon(new PictureEngine(name));
}

}  // namespace brantlow
