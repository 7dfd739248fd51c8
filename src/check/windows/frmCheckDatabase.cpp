#include "check/windows/frmCheckDatabase.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "base/windows/buttons.h"
#include "base/windows/display_text.h"
#include "base/windows/screen_room.h"
#include "base/windows/wrapped_cells.h"

namespace brantlow {

namespace {

constexpr QSize kWindow(980, 480);
constexpr int kFileWidth = 180;
constexpr int kLineWidth = 60;
constexpr int kGradeWidth = 60;
constexpr int kMendWidth = 120;
constexpr int kWordsColumn = 3;
constexpr int kPercent = 100;
constexpr std::chrono::milliseconds kGlance{50};

QString MendText(Mend mend) {
    switch (mend) {
        case Mend::Possible:
            return QStringLiteral("can be repaired");
        case Mend::Done:
            return QStringLiteral("repaired");
        case Mend::None:
            break;
    }
    return {};
}

QTreeWidgetItem* RowOfFinding(const Finding& finding, const Path& appPath) {
    const QString line = finding.line > 0 ? QString::number(finding.line) : QString();
    auto* row =
        new QTreeWidgetItem(QStringList{Shown(ShownFile(finding, appPath)), line,
                                        IsFault(finding) ? QStringLiteral("Fault") : QStringLiteral("Note"),
                                        Shown(WordsOf(finding)), MendText(finding.mend)});
    row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    for (const int column : {0, kWordsColumn}) row->setToolTip(column, row->text(column));
    return row;
}

QTreeWidget* FindingList() {
    auto* list = new QTreeWidget;
    list->setObjectName(QStringLiteral("lstFindings"));
    list->setAccessibleName(QStringLiteral("What was found"));
    list->setHeaderLabels({QStringLiteral("File"), QStringLiteral("Line"), QStringLiteral("Kind"),
                           QStringLiteral("What is wrong"), QStringLiteral("Repair")});
    list->setRootIsDecorated(false);
    list->setAlternatingRowColors(true);
    list->setToolTip(QStringLiteral("A double click opens the file at the line"));
    const int widths[] = {kFileWidth, kLineWidth, kGradeWidth, kMendWidth, kMendWidth};
    for (int column = 0; column < static_cast<int>(std::size(widths)); ++column)
        list->setColumnWidth(column, WidthForLetters(*list, widths[column]));
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(kWordsColumn, QHeaderView::Stretch);
    WrapCells(*list, {kWordsColumn});
    return list;
}

}  // namespace

frmCheckDatabase::frmCheckDatabase(CheckOperations operations, Path appPath, QWidget* parent)
    : QDialog(parent),
      operations_(std::move(operations)),
      appPath_(std::move(appPath)),
      told_(new QLabel),
      list_(FindingList()),
      progress_(new QProgressBar),
      timer_(new QTimer(this)) {
    setObjectName(QStringLiteral("frmCheckDatabase"));
    setWindowTitle(QStringLiteral("Check Database"));
    resize(QSize(WidthForLetters(*this, kWindow.width()), kWindow.height()).boundedTo(RoomOnScreen(*this)));
    told_->setObjectName(QStringLiteral("lblTold"));
    told_->setWordWrap(true);
    told_->setTextFormat(Qt::PlainText);
    progress_->setObjectName(QStringLiteral("pgbCheck"));
    progress_->setRange(0, kPercent);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(told_);
    layout->addWidget(list_, 1);
    layout->addWidget(progress_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    repair_ = AddButton(*buttons, QStringLiteral("cmdRepair"), QStringLiteral("&Repair"),
                        QStringLiteral("Repair what needs no guess; Edit, Undo brings the files back"));
    again_ = AddButton(*buttons, QStringLiteral("cmdAgain"), QStringLiteral("Check &Again"),
                       QStringLiteral("Look through all files once more"));
    stop_ = AddButton(*buttons, QStringLiteral("cmdStop"), QStringLiteral("&Stop"),
                      QStringLiteral("End the check with what it has found so far"));
    copy_ = AddButton(*buttons, QStringLiteral("cmdCopy"), QStringLiteral("&Copy"),
                      QStringLiteral("Copy the list to the clipboard, a line a finding"));
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &frmCheckDatabase::reject);
    connect(repair_, &QPushButton::clicked, this, &frmCheckDatabase::Repair);
    connect(again_, &QPushButton::clicked, this, &frmCheckDatabase::Check);
    connect(stop_, &QPushButton::clicked, this, [this] { operations_.stop(); });
    connect(copy_, &QPushButton::clicked, this, &frmCheckDatabase::CopyList);
    connect(list_, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem* item) { Open(list_->indexOfTopLevelItem(item)); });
    connect(timer_, &QTimer::timeout, this,
            [this] { progress_->setValue(static_cast<int>(operations_.share() * kPercent)); });
    ShowState();
}

void frmCheckDatabase::Check() {
    Run(CheckMode::Look);
}

void frmCheckDatabase::Repair() {
    Run(CheckMode::Repair);
}

void frmCheckDatabase::Run(CheckMode mode) {
    if (isRunning_) return;
    isRunning_ = true;
    report_ = {};
    list_->clear();
    told_->setText(mode == CheckMode::Repair
                       ? QStringLiteral("Repairing...")
                       : QStringLiteral("Looking through settings, tables and the quote "
                                        "database..."));
    progress_->setValue(0);
    timer_->start(kGlance);
    ShowState();
    report_ = operations_.run(mode);
    timer_->stop();
    isRunning_ = false;
    ShowReport(report_);
    ShowState();
    if (isClosing_) return QDialog::reject();
    // The end of a run gives the frame its keys back; they are for the list that has just come.
    activateWindow();
    list_->setFocus();
}

void frmCheckDatabase::ShowReport(const CheckReport& report) {
    QString text = Shown(CheckSentence(report));
    if (report.findings.empty() && !report.stopped) text = QStringLiteral("Everything is in order: ") + text;
    if (report.fault) text = Shown(ChangeSentence(kRepairChange, report.fault));
    told_->setText(text);
    QList<QTreeWidgetItem*> rows;
    for (const Finding& finding : report.findings) rows.append(RowOfFinding(finding, appPath_));
    list_->addTopLevelItems(rows);
    // The words take what the others leave.
    for (int column = 0; !rows.isEmpty() && column < list_->columnCount(); ++column) {
        if (column != kWordsColumn) list_->resizeColumnToContents(column);
    }
}

void frmCheckDatabase::ShowState() {
    progress_->setVisible(isRunning_);
    stop_->setVisible(isRunning_);
    again_->setEnabled(!isRunning_);
    repair_->setEnabled(!isRunning_ && report_.Count(Mend::Possible) > 0);
    copy_->setEnabled(!isRunning_ && !report_.findings.empty());
}

void frmCheckDatabase::Open(int row) {
    if (isRunning_ || row < 0) return;
    operations_.open(report_.findings[static_cast<std::size_t>(row)]);
}

void frmCheckDatabase::CopyList() const {
    QString text;
    for (const Finding& finding : report_.findings)
        text += Shown(FindingLine(finding, appPath_)) + QLatin1Char('\n');
    QGuiApplication::clipboard()->setText(text);
}

void frmCheckDatabase::reject() {
    if (!isRunning_) return QDialog::reject();
    isClosing_ = true;
    operations_.stop();
}

}  // namespace brantlow
