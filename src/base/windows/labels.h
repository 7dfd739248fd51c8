// Labels of sentences and headings, and their fonts.
#pragma once

#include <QFont>
#include <QLabel>

namespace brantlow {

inline QFont Bold(QFont font) {
    font.setBold(true);
    return font;
}

// Bold, and `scale` times as large.
inline QFont HeadingFont(QFont font, double scale) {
    font.setPointSizeF(font.pointSizeF() * scale);
    return Bold(font);
}

// An empty label for sentences that run over several lines, whose words can be copied and whose links open by
// mouse and keys.
inline QLabel* WrappedLabel(const char* name) {
    auto* label = new QLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextBrowserInteraction);
    return label;
}

}  // namespace brantlow
