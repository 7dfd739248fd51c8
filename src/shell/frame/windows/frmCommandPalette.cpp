#include "shell/frame/windows/frmCommandPalette.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/windows/display_text.h"

namespace brantlow {

namespace {

constexpr std::size_t kMostFound = 200;
constexpr int kPaletteLetters = 64;
constexpr int kPaletteLines = 16;

QString WordsOf(const PaletteRow& row) {
    if (!row.command) return QStringLiteral("Chart of %1").arg(Shown(row.words));
    const QKeySequence keys(Name(row.command->shortcut), QKeySequence::PortableText);
    if (keys.isEmpty()) return Shown(row.words);
    return QStringLiteral("%1   (%2)").arg(Shown(row.words), keys.toString(QKeySequence::NativeText));
}

}  // namespace

frmCommandPalette::frmCommandPalette(PaletteStart start, QWidget* parent)
    : QDialog(parent),
      start_(std::move(start)),
      typed_(new QLineEdit),
      list_(new QListWidget),
      told_(new QLabel) {
    setObjectName(QStringLiteral("frmCommandPalette"));
    setWindowTitle(QStringLiteral("Commands and Tickers"));
    auto* layout = new QVBoxLayout(this);
    typed_->setObjectName(QStringLiteral("txtTyped"));
    typed_->setPlaceholderText(QStringLiteral("Type a command or a ticker"));
    typed_->setAccessibleName(QStringLiteral("Command or ticker"));
    typed_->setClearButtonEnabled(true);
    typed_->installEventFilter(this);
    layout->addWidget(typed_);
    list_->setObjectName(QStringLiteral("lstFound"));
    list_->setAccessibleName(QStringLiteral("Commands and tickers found"));
    list_->setUniformItemSizes(true);
    layout->addWidget(list_, 1);
    told_->setObjectName(QStringLiteral("lblTold"));
    told_->setWordWrap(true);
    told_->setTextFormat(Qt::PlainText);
    layout->addWidget(told_);
    connect(typed_, &QLineEdit::textChanged, this, &frmCommandPalette::Show);
    connect(typed_, &QLineEdit::returnPressed, this, &frmCommandPalette::Choose);
    connect(list_, &QListWidget::itemActivated, this, [this] { Choose(); });
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
        const bool isCommand = row >= 0 && shown_[static_cast<std::size_t>(row)].command != nullptr;
        told_->setText(isCommand ? Name(shown_[static_cast<std::size_t>(row)].command->toolTip) : QString());
    });
    resize(fontMetrics().averageCharWidth() * kPaletteLetters, fontMetrics().height() * kPaletteLines);
    Show({});
    typed_->setFocus();
}

void frmCommandPalette::Show(const QString& typed) {
    shown_ = PaletteMatches(start_.commands, start_.tickers, typed.toStdString(), kMostFound);
    list_->clear();
    for (const PaletteRow& row : shown_) list_->addItem(WordsOf(row));
    list_->setCurrentRow(shown_.empty() ? -1 : 0);
    if (shown_.empty())
        told_->setText(QStringLiteral("No command and no ticker of the open table is called so."));
}

// What is chosen may open a window of its own: this one is gone by then.
void frmCommandPalette::Choose() {
    const int row = list_->currentRow();
    if (row < 0) return;
    const PaletteRow chosen = shown_[static_cast<std::size_t>(row)];
    accept();
    start_.choose(chosen);
}

// The list is walked through while the box is typed into.
bool frmCommandPalette::eventFilter(QObject* object, QEvent* event) {
    if (object == typed_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_PageDown || key == Qt::Key_PageUp) {
            const int step = key == Qt::Key_Down       ? 1
                             : key == Qt::Key_Up       ? -1
                             : key == Qt::Key_PageDown ? 8
                                                       : -8;
            list_->setCurrentRow(std::clamp(list_->currentRow() + step, 0, std::max(0, list_->count() - 1)));
            return true;
        }
    }
    return QDialog::eventFilter(object, event);
}

}  // namespace brantlow
