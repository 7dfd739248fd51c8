// What the chart shows at one bar, in a few lines over the panels: that under the crosshair, else the
// newest. It is painted word by word: it changes with every step of the pointer, and a text that is laid out
// as a document would take longer than all else of such a step.
#pragma once

#include <QColor>
#include <QWidget>
#include <vector>

#include "chart/hover_values.h"

namespace brantlow {

class ValuesLine final : public QWidget {
    Q_OBJECT
  public:
    explicit ValuesLine(QWidget* parent = nullptr);

    // Names of series stand in the colours of their lines, on the ground of the panels.
    void ShowValues(const std::vector<HoverValue>& values, const ChartPalette& palette,
                    const QString& remark);
    // All of it: a name, a blank and a value, two blanks between them. Screen readers are told the same.
    QString Text() const;

  Q_SIGNALS:
    // It takes more lines than before, or fewer.
    void RoomChanged();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    // A name and its value are not torn apart at the end of a line. A remark is a name without a value.
    struct Pair {
        QString name;
        QString value;
        QColor nameColour;
        QColor valueColour;
        // Of the name's base line, and how wide name and value are, as Place left them.
        QPoint at = {};
        int nameWidth = 0;
        int valueWidth = 0;
    };
    void TakeRoom();
    // Gives the pairs their places in this width and this font.
    void Place();
    // The lines that the pairs take there.
    int Lines() const;

    std::vector<Pair> pairs_;
    QColor ground_;
    // The most lines that were needed since width and names are these.
    int lines_ = 0;
    QString names_;
    // Widths of the names in `names_`: these do not change from bar to bar.
    std::vector<int> nameWidths_;
    // Before that the width is no measure.
    bool isLaidOut_ = false;
};

}  // namespace brantlow
