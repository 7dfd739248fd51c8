#include "acquire/feeds/windows/source_card.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "acquire/feeds/live/source_consent.h"
#include "acquire/feeds/live/source_standing.h"
#include "acquire/feeds/windows/source_key_field.h"
#include "base/windows/display_text.h"
#include "base/windows/labels.h"
#include "base/windows/wheel_guard.h"

namespace brantlow {

namespace {

QLabel* PassedOverLabel(const char* name) {
    QLabel* label = WrappedLabel(name);
    label->setFocusPolicy(Qt::NoFocus);
    return label;
}

QString KeyNeed(KeyStanding key) {
    if (key == KeyStanding::NotNeeded) return QStringLiteral("needs no key");
    return key == KeyStanding::Missing ? QStringLiteral("needs a key") : QStringLiteral("key present");
}

}  // namespace

QString TermsText(const SourceDefinition& source) {
    const QString home = Shown(source.home);
    // What comes before the name of the host would only break the line.
    const QString shown = home.section(QStringLiteral("://"), -1);
    return QStringLiteral("%1 <a href=\"%2\">%3</a>")
        .arg(Shown(source.terms).toHtmlEscaped(), home.toHtmlEscaped(), shown.toHtmlEscaped());
}

SourceCard::SourceCard(SourceDesk& desk, Capability needed, const QString& words, const QString& none)
    : desk_(desk),
      list_(new QComboBox),
      terms_(PassedOverLabel("lblCardTerms")),
      remark_(PassedOverLabel("lblCardRemark")),
      key_(new SourceKeyField) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    auto* row = new QHBoxLayout;
    auto* label = new QLabel(words);
    label->setBuddy(list_);
    row->addWidget(label);
    GuardWheel(*list_);
    list_->setObjectName(QStringLiteral("cboSource"));
    list_->setToolTip(QStringLiteral("The service of the web that is asked"));
    if (!none.isEmpty()) list_->addItem(none, QString());
    for (const SourceDefinition& source : desk_.Catalogue().sources) {
        if (source.Form(needed) == nullptr) continue;
        const KeyStanding key = StandingOf(desk_.World(), source).key;
        list_->addItem(QStringLiteral("%1 (%2)").arg(Shown(source.title), KeyNeed(key)), Shown(source.name));
    }
    row->addWidget(list_, 1);
    layout->addLayout(row);
    terms_->setOpenExternalLinks(true);
    layout->addWidget(terms_);
    layout->addWidget(key_);
    layout->addWidget(remark_);
    connect(list_, &QComboBox::currentIndexChanged, this, [this] {
        ShowSource();
        Q_EMIT Changed();
    });
    ShowSource();
}

const SourceDefinition* SourceCard::Source() const {
    return desk_.Catalogue().Find(list_->currentData().toString().toStdString());
}

void SourceCard::Select(std::string_view name) {
    const int index = list_->findData(Shown(name));
    if (index >= 0) list_->setCurrentIndex(index);
}

void SourceCard::ShowRemark(const QString& text) {
    remark_->setText(text);
    remark_->setVisible(!text.isEmpty());
}

void SourceCard::ShowSource() {
    const SourceDefinition* const source = Source();
    terms_->setVisible(source != nullptr);
    remark_->setVisible(false);
    if (!source) return key_->hide();
    terms_->setText(TermsText(*source));
    key_->ShowSource(*source, StandingOf(desk_.World(), *source).key);
}

std::string SourceCard::Accept() {
    const SourceDefinition* const source = Source();
    if (!source) return {};
    const std::string refusal = key_->Keep(desk_.World().session.DataFolder(), *source);
    if (!refusal.empty()) return refusal;
    const KeyStanding key = StandingOf(desk_.World(), *source).key;
    key_->ShowSource(*source, key);
    if (key == KeyStanding::Missing) return source->title + " needs " + NeedWords(*source) + ".";
    return MayBeAsked(desk_.World(), *source) ? std::string() : ConsentRefusal(*source) + ".";
}

}  // namespace brantlow
