#include "splits/windows/frmAdjustSplits.h"

#include <QLabel>
#include <QVBoxLayout>

#include "base/windows/display_text.h"
#include "splits/split_calendar.h"

namespace brantlow {

namespace {

constexpr int kMargin = 28;
// Wide enough for the title beside the buttons that a desktop may put there.
constexpr int kTextWidth = 300;
constexpr double kTextScale = 1.25;

}  // namespace

frmAdjustSplits::frmAdjustSplits(QWidget* frame)
    : QDialog(frame, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setObjectName(QStringLiteral("frmAdjustSplits"));
    setWindowTitle(Name(kAdjustSplitsText));
    setModal(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    auto* text = new QLabel(Name(kAdjustSplitsText));
    text->setObjectName(QStringLiteral("Label1"));
    QFont large = text->font();
    large.setPointSizeF(large.pointSizeF() * kTextScale);
    text->setFont(large);
    text->setAlignment(Qt::AlignCenter);
    text->setMinimumWidth(kTextWidth);
    layout->addWidget(text);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    setEnabled(true);
}

}  // namespace brantlow
