#include "acquire/feeds/windows/frmImportHistory.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "acquire/feeds/archives/history_import.h"
#include "base/windows/display_text.h"
#include "base/windows/wheel_guard.h"

namespace brantlow {

namespace {

constexpr int kArchiveWidth = 520;
// Room for two lines, so that the window keeps its size while it tells.
constexpr int kToldLines = 3;
constexpr std::array<int, 5> kArchiveYears = {0, 2, 5, 10, 20};

constexpr const char* kBasis =
    "The prices of such archives are adjusted for splits and dividends. A history that comes takes the place "
    "of the stored one, and a live source whose prices are not adjusted so adds no days to it. Edit, Undo "
    "takes the import back.";

// Where a browser puts what it downloads, until something was chosen.
QString Downloads(const QLineEdit& from) {
    const QString chosen = from.text().trimmed();
    return chosen.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DownloadLocation) : chosen;
}

std::string Outlook(const ImportOutlook& outlook) {
    if (outlook.fault) return Sentence(outlook.fault) + '.';
    if (outlook.histories == 0) return "Nothing of these tickers is there.";
    std::string text = Counted(outlook.histories, "history is", "histories are") + " there";
    if (outlook.stored > 0) {
        text += ", for " + Counted(outlook.stored, "ticker that has", "tickers that have") +
                " a stored one already";
    }
    return text + '.';
}

}  // namespace

frmImportHistory::frmImportHistory(const Session& session, std::vector<std::string> tickers, QWidget* parent)
    : QDialog(parent),
      session_(session),
      tickers_(std::move(tickers)),
      from_(new QLineEdit),
      ofTable_(new QRadioButton),
      ofAll_(new QRadioButton(QStringLiteral("A&ll that are there"))),
      years_(new QComboBox),
      newer_(new QCheckBox(QStringLiteral("Replace histories too whose days are ne&wer"))),
      told_(new QLabel) {
    setObjectName(QStringLiteral("frmImportHistory"));
    setWindowTitle(QStringLiteral("Import History"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildFrom());
    layout->addWidget(BuildTickers());
    auto* basis = new QLabel(QString::fromLatin1(kBasis));
    basis->setObjectName(QStringLiteral("lblBasis"));
    basis->setWordWrap(true);
    layout->addWidget(basis);
    told_->setObjectName(QStringLiteral("lblOutlook"));
    told_->setTextFormat(Qt::PlainText);
    told_->setWordWrap(true);
    told_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    told_->setMinimumHeight(kToldLines * told_->fontMetrics().lineSpacing());
    layout->addWidget(told_);
    layout->addStretch();
    layout->addWidget(BuildButtons());
    setMinimumWidth(kArchiveWidth);
    Look();
}

QWidget* frmImportHistory::BuildFrom() {
    auto* frame = new QGroupBox(QStringLiteral("Downloaded archive or folder"));
    auto* layout = new QVBoxLayout(frame);
    from_->setObjectName(QStringLiteral("txtFrom"));
    from_->setPlaceholderText(QStringLiteral("d_us_txt.zip"));
    from_->setToolTip(
        QStringLiteral("A zip archive, or a folder, with a text file a ticker, such as aapl.us.txt"));
    from_->setAccessibleName(QStringLiteral("Archive or folder"));
    layout->addWidget(from_);
    auto* row = new QHBoxLayout;
    auto* archive = new QPushButton(QStringLiteral("Choose A&rchive..."));
    archive->setObjectName(QStringLiteral("cmdArchive"));
    archive->setToolTip(QStringLiteral("Choose a zip archive, or one text file"));
    auto* folder = new QPushButton(QStringLiteral("Choose &Folder..."));
    folder->setObjectName(QStringLiteral("cmdFolder"));
    folder->setToolTip(QStringLiteral("Choose the folder into which an archive was unpacked"));
    for (QPushButton* button : {archive, folder}) {
        button->setAutoDefault(false);
        row->addWidget(button);
    }
    row->addStretch();
    layout->addLayout(row);
    connect(from_, &QLineEdit::editingFinished, this, &frmImportHistory::Look);
    connect(archive, &QPushButton::clicked, this, &frmImportHistory::ChooseArchive);
    connect(folder, &QPushButton::clicked, this, &frmImportHistory::ChooseFolder);
    return frame;
}

QWidget* frmImportHistory::BuildTickers() {
    auto* frame = new QGroupBox(QStringLiteral("Tickers"));
    auto* layout = new QVBoxLayout(frame);
    ofTable_->setObjectName(QStringLiteral("optTable"));
    ofTable_->setText(tickers_.empty() ? QStringLiteral("Those of the open &table")
                                       : QStringLiteral("Those of the open &table, %1").arg(tickers_.size()));
    ofTable_->setEnabled(!tickers_.empty());
    ofAll_->setObjectName(QStringLiteral("optAll"));
    (tickers_.empty() ? ofAll_ : ofTable_)->setChecked(true);
    layout->addWidget(ofTable_);
    layout->addWidget(ofAll_);
    auto* form = new QFormLayout;
    GuardWheel(*years_);
    years_->setObjectName(QStringLiteral("cboYears"));
    for (const int years : kArchiveYears) {
        years_->addItem(years == 0 ? QStringLiteral("all years") : QStringLiteral("%1 years").arg(years),
                        years);
    }
    years_->setToolTip(QStringLiteral("How far back the histories go"));
    form->addRow(QStringLiteral("Hi&story of:"), years_);
    layout->addLayout(form);
    newer_->setObjectName(QStringLiteral("chkNewer"));
    newer_->setToolTip(
        QStringLiteral("Without it a history stays that goes on after the end of the one that comes"));
    layout->addWidget(newer_);
    connect(ofTable_, &QRadioButton::toggled, this, &frmImportHistory::Look);
    return frame;
}

QWidget* frmImportHistory::BuildButtons() {
    auto* buttons = new QDialogButtonBox;
    QPushButton* const begin = buttons->addButton(QStringLiteral("&Import"), QDialogButtonBox::ActionRole);
    begin->setObjectName(QStringLiteral("cmdImport"));
    begin->setToolTip(QStringLiteral("Put the histories into the quote database"));
    begin->setDefault(true);
    QPushButton* const exit = buttons->addButton(QStringLiteral("Exit"), QDialogButtonBox::RejectRole);
    exit->setObjectName(QStringLiteral("cmdExit"));
    exit->setToolTip(QStringLiteral("Leave the database as it is"));
    exit->setAutoDefault(false);
    connect(begin, &QPushButton::clicked, this, &frmImportHistory::Import);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

void frmImportHistory::SetFrom(const QString& from) {
    from_->setText(from);
    Look();
}

void frmImportHistory::ChooseArchive() {
    const QString file = QFileDialog::getOpenFileName(
        this, QStringLiteral("Import History"), Downloads(*from_),
        QStringLiteral("Archives and histories (*.zip *.txt *.csv);;All files (*)"));
    if (!file.isEmpty()) SetFrom(file);
}

void frmImportHistory::ChooseFolder() {
    const QString folder =
        QFileDialog::getExistingDirectory(this, QStringLiteral("Import History"), Downloads(*from_));
    if (!folder.isEmpty()) SetFrom(folder);
}

HistoryImportChoice frmImportHistory::Choice() const {
    HistoryImportChoice choice;
    choice.from = from_->text().trimmed().toStdString();
    if (ofTable_->isChecked()) choice.tickers = tickers_;
    choice.years = years_->currentData().toInt();
    choice.replacesNewer = newer_->isChecked();
    return choice;
}

void frmImportHistory::Look() {
    outlook_ = {};
    const HistoryImportChoice choice = Choice();
    if (choice.from.empty()) {
        told_->setText(QStringLiteral("Choose the archive, or the folder, that you have downloaded."));
    } else {
        outlook_ = LookIntoArchive(session_, choice);
        told_->setText(Shown(Outlook(outlook_)));
    }
}

void frmImportHistory::Import() {
    Look();
    if (outlook_.histories == 0) return;
    accept();
    Q_EMIT ImportAsked(Choice(), outlook_);
}

}  // namespace brantlow
