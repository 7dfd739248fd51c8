#include "acquire/feeds/windows/source_key_field.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "acquire/feeds/live/source_keys.h"
#include "base/text.h"
#include "base/windows/display_text.h"

namespace brantlow {

namespace {

// By KeyKind.
struct KeyWords {
    const char* label;
    const char* first;
    const char* second;
};
constexpr std::array<KeyWords, 4> kKeyWords = {
    {{"", "", ""}, {"&Key:", "Key", ""}, {"&Key:", "Id", "Secret"}, {"E-mail &address:", "Address", ""}}};

QString StateText(const SourceDefinition& source, KeyStanding standing) {
    const bool isContact = source.key.kind == KeyKind::Contact;
    switch (standing) {
        case KeyStanding::InFile:
            return isContact
                       ? QStringLiteral(
                             "An address is kept in Data/Keys.ini; one that is entered replaces it.")
                       : QStringLiteral("A key is kept in Data/Keys.ini; one that is entered replaces it.");
        case KeyStanding::InEnvironment:
            return QStringLiteral("The environment variable %1 holds it; that one counts.")
                .arg(Shown(KeyVariable(source.name)));
        default:
            return QStringLiteral("Missing: %1.").arg(Shown(source.key.hint));
    }
}

// Of what stands in the field and is kept by a button elsewhere.
QString EntryText(const SourceDefinition& source, KeyStanding standing, const std::string& entry) {
    const std::string refusal = KeyRefusal(source, entry);
    if (!refusal.empty()) return QStringLiteral("Cannot be kept yet: %1.").arg(Shown(refusal));
    return standing == KeyStanding::InFile
               ? QStringLiteral("Entered, not kept yet; it will replace the one in Data/Keys.ini.")
               : QStringLiteral("Entered, not kept yet.");
}

}  // namespace

SourceKeyField::SourceKeyField()
    : words_(new QLabel), first_(AddLine("txtKey")), second_(AddLine("txtSecret")), state_(new QLabel) {
    setObjectName(QStringLiteral("KeyField"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    auto* row = new QHBoxLayout;
    words_->setBuddy(first_);
    row->addWidget(words_);
    row->addWidget(first_, 1);
    row->addWidget(second_, 1);
    layout->addLayout(row);
    state_->setObjectName(QStringLiteral("lblKeyState"));
    state_->setTextFormat(Qt::PlainText);
    state_->setWordWrap(true);
    layout->addWidget(state_);
}

QLineEdit* SourceKeyField::AddLine(const char* name) {
    auto* line = new QLineEdit;
    line->setObjectName(QString::fromLatin1(name));
    line->setInputMethodHints(Qt::ImhSensitiveData | Qt::ImhNoPredictiveText);
    connect(line, &QLineEdit::textChanged, this, &SourceKeyField::ShowState);
    connect(line, &QLineEdit::textEdited, this, &SourceKeyField::Entered);
    connect(line, &QLineEdit::returnPressed, this, &SourceKeyField::ReturnPressed);
    return line;
}

void SourceKeyField::ShowSource(const SourceDefinition& source, KeyStanding standing) {
    source_ = source;
    standing_ = standing;
    const KeyKind kind = source.key.kind;
    const KeyWords& words = kKeyWords.at(static_cast<std::size_t>(kind));
    setVisible(kind != KeyKind::None);
    words_->setText(QString::fromLatin1(words.label));
    second_->setVisible(kind == KeyKind::Pair);
    const bool isSecret = kind != KeyKind::Contact;
    for (QLineEdit* line : {first_, second_}) {
        line->clear();
        line->setEchoMode(isSecret ? QLineEdit::Password : QLineEdit::Normal);
        line->setEnabled(standing != KeyStanding::InEnvironment);
    }
    const QString kept = standing == KeyStanding::InFile ? QStringLiteral(" (kept)") : QString();
    first_->setPlaceholderText(QString::fromLatin1(words.first) + kept);
    second_->setPlaceholderText(QString::fromLatin1(words.second) + kept);
    const QString title = Shown(source.title);
    first_->setToolTip(
        QStringLiteral("What %1 gave you; it goes into Data/Keys.ini, which only you can read").arg(title));
    second_->setToolTip(first_->toolTip());
    first_->setAccessibleName(title + QLatin1Char(' ') + QString::fromLatin1(words.first));
    second_->setAccessibleName(title + QLatin1Char(' ') + QString::fromLatin1(words.second));
    ShowState();
}

void SourceKeyField::ShowState() {
    const std::string entry = Entry();
    state_->setText(entry.empty() ? StateText(source_, standing_) : EntryText(source_, standing_, entry));
}

bool SourceKeyField::HasEntry() const {
    return !Entry().empty();
}

// A pair may be pasted whole into its first part.
std::string SourceKeyField::Entry() const {
    const std::string first(Trim(first_->text().toStdString()));
    const std::string second(Trim(second_->text().toStdString()));
    return second.empty() ? first : first + ':' + second;
}

std::string SourceKeyField::Keep(const Path& dataFolder, const SourceDefinition& source) {
    const std::string entry = Entry();
    if (entry.empty()) return {};
    const std::string refusal = KeyRefusal(source, entry);
    if (!refusal.empty()) return source.title + ": " + refusal;
    if (const std::error_code error = WriteSourceKey(dataFolder, source.name, entry)) {
        return "Data/" + std::string(kKeysFileName) + ": cannot be written: " + error.message();
    }
    first_->clear();
    second_->clear();
    return {};
}

}  // namespace brantlow
