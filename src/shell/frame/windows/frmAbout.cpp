#include "shell/frame/windows/frmAbout.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QSysInfo>
#include <array>

#include "acquire/version/version_check.h"
#include "base/windows/display_text.h"
#include "base/windows/labels.h"
#include "shell/frame/licences.h"
#include "shell/memory_status.h"

namespace brantlow {

namespace {

constexpr int kPicturePixels = 64;
constexpr int kAboutWidth = 380;
constexpr double kNameScale = 1.7;

constexpr std::string_view kAboutText =
    "Brantlow performs Fundemental and Technical analyses of quote data stored in the local data base to "
    "generate Stock Picks.";

// The information tools of the desktops; the first that is there is started.
struct SystemTool {
    const char* program;
    const char* argument;
};
constexpr std::array<SystemTool, 4> kSystemTools = {{{"kinfocenter", ""},
                                                     {"gnome-control-center", "info-overview"},
                                                     {"hardinfo", ""},
                                                     {"mate-system-monitor", "--show-system-tab"}}};

bool StartSystemTool() {
    for (const SystemTool& tool : kSystemTools) {
        const QString program = QStandardPaths::findExecutable(QString::fromLatin1(tool.program));
        QStringList arguments;
        if (*tool.argument != '\0') arguments << QString::fromLatin1(tool.argument);
        if (!program.isEmpty() && QProcess::startDetached(program, arguments)) return true;
    }
    return false;
}

// Where the desktop has no tool, its main facts are told here.
QString SystemFacts() {
    constexpr double kKilobytesInGigabyte = 1024.0 * 1024;
    QString facts = QStringLiteral("System: %1\nKernel: %2 %3\nProcessor: %4\nQt: %5")
                        .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
                             QSysInfo::currentCpuArchitecture(), QString::fromLatin1(qVersion()));
    if (const auto memory = ParseMemoryStatus(ReadMemoryInfo())) {
        facts += QStringLiteral("\nMemory and swap space: %1 GB, %2 GB of them free")
                     .arg(static_cast<double>(memory->totalPageFile) / kKilobytesInGigabyte, 0, 'f', 1)
                     .arg(static_cast<double>(memory->availablePageFile) / kKilobytesInGigabyte, 0, 'f', 1);
    }
    return facts;
}

QString LicencesText() {
    QString text = Shown(kOwnLicence) + QStringLiteral("\n");
    for (const LicenceRow& row : kLicences)
        text += QStringLiteral("\n%1: %2").arg(Name(row.library), Name(row.licence));
    return text;
}

QLabel* Line(const char* name, const QString& words) {
    auto* label = new QLabel(words);
    label->setObjectName(QString::fromLatin1(name));
    label->setWordWrap(true);
    label->setFixedWidth(kAboutWidth);
    return label;
}

}  // namespace

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("About Brantlow"));
    auto* layout = new QGridLayout(this);
    auto* picture = new QLabel;
    picture->setPixmap(QIcon(QStringLiteral(":/icons/brantlow.svg"))
                           .pixmap(QSize(kPicturePixels, kPicturePixels), devicePixelRatioF()));
    layout->addWidget(picture, 0, 0, 3, 1, Qt::AlignTop);
    QLabel* title = Line("lblTitle", QStringLiteral("Brantlow"));
    title->setFont(HeadingFont(title->font(), kNameScale));
    layout->addWidget(title, 0, 1);
    layout->addWidget(Line("lblVersion", Shown(RunningVersion())), 1, 1);
    layout->addWidget(Line("lblDescription", Name(kAboutText)), 2, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    auto* licences = buttons->addButton(QStringLiteral("&Licences..."), QDialogButtonBox::ActionRole);
    licences->setObjectName(QStringLiteral("cmdLicences"));
    connect(licences, &QPushButton::clicked, this, &frmAbout::cmdLicences_Click);
    auto* info = buttons->addButton(QStringLiteral("&System Info..."), QDialogButtonBox::ActionRole);
    info->setObjectName(QStringLiteral("cmdSysInfo"));
    connect(info, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons, 3, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void frmAbout::cmdLicences_Click() {
    QMessageBox::information(this, QStringLiteral("Licences"), LicencesText());
}

void frmAbout::cmdSysInfo_Click() {
    if (StartSystemTool()) return;
    QMessageBox::information(this, QStringLiteral("System Info"), SystemFacts());
}

}  // namespace brantlow
