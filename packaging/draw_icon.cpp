// Draws the program's icon in one size, for an icon theme: draw_icon PICTURE.svg SIZE FILE.png
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdlib>
#include <iostream>

int main(int count, char** arguments) {
    constexpr int kArguments = 4;
    if (count != kArguments) {
        std::cerr << "draw_icon PICTURE.svg SIZE FILE.png\n";
        return EXIT_FAILURE;
    }
    const int size = std::atoi(arguments[2]);
    QSvgRenderer picture(QString::fromLocal8Bit(arguments[1]));
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    return picture.isValid() && image.save(QString::fromLocal8Bit(arguments[3]), "PNG") ? EXIT_SUCCESS
                                                                                        : EXIT_FAILURE;
}
