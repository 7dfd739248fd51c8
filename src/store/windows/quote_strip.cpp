#include "store/windows/quote_strip.h"

#include <QDoubleValidator>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>

#include "base/windows/display_text.h"
#include "base/windows/flow_layout.h"
#include "base/windows/undo_key.h"

namespace brantlow {

namespace {

constexpr int kStripGap = 6;
constexpr double kHighestPrice = 1e9;
constexpr int kPlaces = 6;

// Lets a price be typed as files hold it, with a point.
QDoubleValidator* PriceValidator(QWidget* owner) {
    auto* validator = new QDoubleValidator(0, kHighestPrice, kPlaces, owner);
    validator->setNotation(QDoubleValidator::StandardNotation);
    QLocale plain = QLocale::c();
    plain.setNumberOptions(QLocale::RejectGroupSeparator);
    validator->setLocale(plain);
    return validator;
}

}  // namespace

QuoteStrip::QuoteStrip(QWidget* parent) : QWidget(parent) {
    setLayout(new FlowLayout(nullptr, kStripGap));
    for (std::size_t index = 0; index < kStripBoxes.size(); ++index) AddBox(index);
    for (const StripButton& rule : kStripButtons) AddButton(rule);
}

void QuoteStrip::AddBox(std::size_t index) {
    const StripBox& rule = kStripBoxes[index];
    auto* frame = new QWidget;
    frame->setObjectName(Name(rule.frame));
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(0, 0, kStripGap, 0);
    row->setSpacing(kStripGap);
    auto* box = new QLineEdit;
    box->setObjectName(Name(rule.box));
    box->setToolTip(Name(rule.toolTip));
    box->setFixedWidth(rule.width);
    const bool isAlarm = rule.frame == "Frame2" || rule.frame == "Frame3";
    box->setClearButtonEnabled(!isAlarm);
    if (isAlarm) box->setValidator(PriceValidator(box));
    auto* words = new QLabel(Name(rule.words));
    words->setBuddy(box);
    LeaveUndoToWindow(*box);
    row->addWidget(words);
    row->addWidget(box);
    layout()->addWidget(frame);
    boxes_[index] = box;
}

void QuoteStrip::AddButton(const StripButton& rule) {
    auto* button = new QPushButton(Name(rule.words));
    button->setObjectName(Name(rule.id));
    button->setToolTip(Name(rule.toolTip));
    connect(button, &QPushButton::clicked, this, [this, &rule] { Q_EMIT Pressed(rule.command); });
    layout()->addWidget(button);
}

void QuoteStrip::ClearBoxes() {
    // Not clear(), which the box could undo.
    for (QLineEdit* box : {Symbol(), HighAlarm(), LowAlarm()}) box->setText({});
    Symbol()->setFocus();
}

void QuoteStrip::ApplyRules(OpenStates state, bool enabled) {
    for (const StripBox& rule : kStripBoxes) {
        findChild<QWidget*>(Name(rule.frame))->setVisible((rule.shown & state) != 0);
    }
    for (const StripButton& rule : kStripButtons) {
        auto* button = findChild<QPushButton*>(Name(rule.id));
        button->setVisible((rule.shown & state) != 0);
        button->setEnabled(enabled);
    }
}

}  // namespace brantlow
