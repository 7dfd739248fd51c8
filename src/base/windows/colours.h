// What the colours of a widget say, and those of widgets that a long run disables without meaning to hide
// them.
#pragma once

#include <QColor>
#include <QPalette>
#include <QWidget>

namespace brantlow {

// Whether light letters are meant for this ground.
inline bool IsDark(const QColor& ground) {
    constexpr int kMiddleLightness = 128;
    return ground.lightness() < kMiddleLightness;
}

// A disabled widget looks as it does enabled: the results of a run are read while the frame is disabled.
inline void KeepColoursWhenDisabled(QWidget& widget) {
    QPalette palette = widget.palette();
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
        const auto colorRole = static_cast<QPalette::ColorRole>(role);
        palette.setBrush(QPalette::Disabled, colorRole, palette.brush(QPalette::Active, colorRole));
    }
    widget.setPalette(palette);
}

}  // namespace brantlow
