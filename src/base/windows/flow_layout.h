// Lays widgets out in a row and goes on in the next row where the width ends, so that a strip of buttons can
// be used whole in a narrow window.
#pragma once

#include <QLayout>
#include <QList>

namespace brantlow {

class FlowLayout final : public QLayout {
  public:
    // `gap` in pixels stands between widgets and between rows.
    FlowLayout(QWidget* parent, int gap);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    void setGeometry(const QRect& area) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;

  private:
    int Place(const QRect& area, bool move) const;

    QList<QLayoutItem*> items_;
    int gap_;
};

}  // namespace brantlow
