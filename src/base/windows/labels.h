// Labels of sentences and headings, and their fonts.
#pragma once

#include <QEvent>
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

// A label whose links follow the colours of the desktop: a text gives them theirs when it is set.
class LinkLabel final : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void changeEvent(QEvent* event) override {
        QLabel::changeEvent(event);
        if (event->type() != QEvent::PaletteChange || text().isEmpty()) return;
        const QString words = text();
        setText({});
        setText(words);
    }
};

// An empty label for sentences that run over several lines, whose words can be copied and whose links open by
// mouse and keys.
inline QLabel* WrappedLabel(const char* name) {
    auto* label = new LinkLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextBrowserInteraction);
    return label;
}

}  // namespace brantlow
