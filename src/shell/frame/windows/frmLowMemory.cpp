#include "shell/frame/windows/frmLowMemory.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <string_view>

#include "base/windows/display_text.h"
#include "base/windows/labels.h"
#include "shell/memory_status.h"

namespace brantlow {

namespace {

constexpr int kTextWidth = 420;
constexpr int kMargin = 18;
constexpr double kHeadingScale = 1.5;

QLabel* AddText(QVBoxLayout& layout, const QString& name, std::string_view words) {
    auto* text = new QLabel(Name(words));
    text->setObjectName(name);
    text->setWordWrap(true);
    text->setFixedWidth(kTextWidth);
    layout.addWidget(text);
    return text;
}

}  // namespace

frmLowMemory::frmLowMemory(RunControl& run, QWidget* frame) : QDialog(frame), run_(run) {
    setObjectName(QStringLiteral("frmLowMemory"));
    setWindowTitle(Name(kLowMemoryTitle));
    setModal(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin * 2 / 3);
    QLabel* heading = AddText(*layout, QStringLiteral("Label1"), kLowMemoryHeading);
    heading->setFont(HeadingFont(heading->font(), kHeadingScale));
    AddText(*layout, QStringLiteral("Label2"), kLowMemoryText);
    AddText(*layout, QStringLiteral("Label3"), kLowMemoryAdvice);
    auto* buttons = new QDialogButtonBox;
    auto* go = buttons->addButton(QStringLiteral("Continue"), QDialogButtonBox::AcceptRole);
    go->setObjectName(QStringLiteral("Command1"));
    go->setDefault(true);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(go, &QPushButton::clicked, this, &frmLowMemory::Continue);
    setEnabled(true);
}

void frmLowMemory::Continue() {
    run_.ProcessCommand = kStopRun;
    close();
}

}  // namespace brantlow
