#include "window_fixture.h"

namespace brantlow {

Program::Program() {
    std::filesystem::create_directories(session.DataFolder());
    std::filesystem::create_directories(session.AppPath / "Quotes" / "EOD");
    Write(std::string(kNewTableName), QuoteHeader() + "\r\n");
    Write("VTRCOLset.ini", "\"Last Price\"\r\n\"Change\"\r\n\"Name\"\r\n\"\"\r\n");
    Write("Jan.ddq", QuoteTableText(3));
    Write("Feb.ddq", QuoteTableText(40));
}

Program::~Program() = default;

std::string Program::QuoteTableText(int tickers) {
    std::string text = QuoteHeader() + "\r\n";
    for (int i = 1; i <= tickers; ++i) {
        text.append("T").append(std::to_string(i)).append("\t");
        text.append(std::to_string(10 + i)).append(".000\t");
        text.append(i % 3 == 0 ? "-1.000\r\n" : "1.000\r\n");
    }
    return text;
}

void Program::Write(const std::string& name, const std::string& bytes) {
    const std::error_code error = WriteWholeFile(session.DataFile(name), bytes);
    if (error) qFatal("cannot write %s", name.c_str());
}

std::string Program::Read(const std::string& name) {
    return BytesOrEmpty(session.DataFile(name));
}

void Program::SetRecent(const std::string& first) {
    Write("VTRMRUset.ini", "\"" + first + "\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n");
}

void Program::Start(const std::string& recent) {
    SetRecent(recent);
    frame->Load();
    QCoreApplication::processEvents();
    // The start's own look for a newer version is not what a test is about.
    web.Addresses.clear();
}

QString Program::StatusWord() {
    return Find<QLabel>("Panel2")->text();
}

QString Program::TickerCount() {
    return Find<QLabel>("Panel3")->text();
}

void Program::Click(const char* button) {
    auto* found = Find<QAbstractButton>(button);
    QVERIFY2(found, button);
    QTest::mouseClick(found, Qt::LeftButton);
    QCoreApplication::processEvents();
}

DialogHand::DialogHand(std::function<void(QDialog&)> answer) : answer_(std::move(answer)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
    timer_.start(5);
}

void DialogHand::Look() {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog) return;
    if (dialog == last_) {
        if (patience_.hasExpired()) dialog->reject();
        return;
    }
    last_ = dialog;
    patience_.setRemainingTime(kPatienceMs);
    ++seen;
    answer_(*dialog);
}

QStringList BoxesOf(const std::function<void()>& act) {
    QStringList told;
    DialogHand hand([&](QDialog& dialog) {
        if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
            told << box->text();
            box->button(QMessageBox::Ok)->click();
        }
    });
    act();
    return told;
}

RunWatcher::RunWatcher(std::vector<std::function<bool()>> steps) : steps_(std::move(steps)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
        if (next < steps_.size() && steps_[next]()) ++next;
    });
    timer_.start(0);
}

void PressButton(QDialog& dialog, QMessageBox::StandardButton button) {
    if (auto* box = qobject_cast<QMessageBox*>(&dialog)) box->button(button)->click();
}

void EnterFile(QDialog& dialog, const Path& file) {
    auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    QVERIFY2(name, "the file dialog has a name field");
    QTimer::singleShot(0, name, [name, file] {
        name->setText(ShownPath(file));
        QTest::keyClick(name, Qt::Key_Return);
    });
}

}  // namespace brantlow
