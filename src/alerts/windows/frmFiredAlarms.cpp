#include "alerts/windows/frmFiredAlarms.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "base/windows/display_text.h"
#include "base/windows/screen_room.h"

namespace brantlow {

namespace {

constexpr QSize kWindow(800, 420);
constexpr int kTimeWidth = 140;
constexpr int kTickerWidth = 110;
constexpr int kPriceWidth = 90;
constexpr int kAlarmWidth = 100;
constexpr int kTableWidth = 150;
constexpr int kPlaceRole = Qt::UserRole;

enum Column { kTime, kTicker, kPrice, kAlarm, kTable, kState };

constexpr const char* kEmptyWords =
    "There is no fired alarm to be read.\n\n"
    "An alarm is set in the boxes High Alarm and Low Alarm above a quote table. When an update brings a "
    "price "
    "that reaches it, it is listed here until you have read it.";

QString AlarmText(const FiredAlarm& alarm) {
    const QString kind = alarm.kind == AlarmKind::High ? QStringLiteral("High ") : QStringLiteral("Low ");
    return kind + Shown(alarm.limit);
}

bool IsSameRow(const FiredAlarm& a, const FiredAlarm& b) {
    return a.when == b.when && a.ticker == b.ticker && a.kind == b.kind && a.limit == b.limit &&
           a.table == b.table;
}

QString StateText(const FiredAlarm& alarm, bool isRead) {
    QString text = isRead ? QStringLiteral("read") : QStringLiteral("unread");
    if (!isRead && alarm.mailing == AlarmMailing::Due) text += QStringLiteral(", not mailed yet");
    return text;
}

QTreeWidgetItem* ItemOf(const FiredAlarm& alarm, bool isRead) {
    auto* item =
        new QTreeWidgetItem(QStringList{Shown(alarm.when), Shown(alarm.ticker), Shown(alarm.price),
                                        AlarmText(alarm), Shown(alarm.table), StateText(alarm, isRead)});
    item->setTextAlignment(kPrice, Qt::AlignRight | Qt::AlignVCenter);
    QFont font = item->font(kTime);
    font.setBold(!isRead);
    for (int column = kTime; column <= kState; ++column) {
        item->setFont(column, font);
        item->setToolTip(column, Shown(AlarmSentence(alarm)));
    }
    return item;
}

QLabel* PlainLabel(const char* name) {
    auto* label = new QLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

}  // namespace

QString UnreadWords(std::size_t count) {
    return count == 1 ? QStringLiteral("1 unread alarm") : QStringLiteral("%1 unread alarms").arg(count);
}

frmFiredAlarms::frmFiredAlarms(Session& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      count_(PlainLabel("lblUnread")),
      mail_(PlainLabel("lblMail")),
      pages_(new QStackedWidget),
      list_(BuildList()) {
    setObjectName(QStringLiteral("frmFiredAlarms"));
    setWindowTitle(QStringLiteral("Fired Alarms"));
    resize(QSize(WidthForLetters(*this, kWindow.width()), kWindow.height()).boundedTo(RoomOnScreen(*this)));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(count_);
    auto* empty = PlainLabel("lblEmpty");
    empty->setText(QString::fromLatin1(kEmptyWords));
    empty->setAlignment(Qt::AlignCenter);
    pages_->addWidget(list_);
    pages_->addWidget(empty);
    layout->addWidget(pages_, 1);
    mail_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    mail_->hide();
    layout->addWidget(mail_);
    layout->addWidget(BuildButtons());
    Refresh();
    list_->setFocus();
}

QTreeWidget* frmFiredAlarms::BuildList() {
    auto* list = new QTreeWidget;
    list->setObjectName(QStringLiteral("lstAlarms"));
    list->setAccessibleName(QStringLiteral("Fired alarms"));
    list->setHeaderLabels({QStringLiteral("Time"), QStringLiteral("Ticker Symbol"), QStringLiteral("Price"),
                           QStringLiteral("Alarm"), QStringLiteral("Table"), QStringLiteral("State")});
    list->headerItem()->setTextAlignment(kPrice, Qt::AlignRight | Qt::AlignVCenter);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setAlternatingRowColors(true);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    const int widths[] = {kTimeWidth, kTickerWidth, kPriceWidth, kAlarmWidth, kTableWidth};
    for (int column = 0; column < static_cast<int>(std::size(widths)); ++column)
        list->setColumnWidth(column, WidthForLetters(*list, widths[column]));
    connect(list, &QTreeWidget::itemSelectionChanged, this, &frmFiredAlarms::EnableParts);
    connect(list, &QTreeWidget::itemActivated, this, &frmFiredAlarms::OpenChart);
    return list;
}

QPushButton* frmFiredAlarms::AddButton(const char* name, const QString& words, const QString& toolTip,
                                       void (frmFiredAlarms::*clicked)()) {
    auto* button = new QPushButton(words);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, clicked);
    return button;
}

QWidget* frmFiredAlarms::BuildButtons() {
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins({});
    read_ = AddButton("cmdRead", QStringLiteral("Mark as &Read"),
                      QStringLiteral("The selected alarms have been read and leave the list"),
                      &frmFiredAlarms::MarkSelected);
    readAll_ =
        AddButton("cmdReadAll", QStringLiteral("Mark A&ll as Read"),
                  QStringLiteral("All alarms have been read and leave the list"), &frmFiredAlarms::MarkAll);
    chart_ = AddButton("cmdChart", QStringLiteral("Open &Chart"),
                       QStringLiteral("Chart the ticker of the selected alarm (Return, or a double click)"),
                       &frmFiredAlarms::OpenChart);
    auto* mail = AddButton("cmdMail", QStringLiteral("&Mail Settings..."),
                           QStringLiteral("Have fired alarms mailed to you by a server of yours"),
                           &frmFiredAlarms::MailSettingsAsked);
    auto* close = AddButton("cmdClose", QStringLiteral("Close"), QStringLiteral("Close this window"),
                            &frmFiredAlarms::reject);
    for (QPushButton* button : {read_, readAll_, chart_, mail}) row->addWidget(button);
    row->addStretch();
    row->addWidget(close);
    return buttons;
}

void frmFiredAlarms::Refresh() {
    Failure failure;
    const std::vector<FiredAlarm> unread = LoadFiredAlarms(session_.DataFolder(), failure);
    const auto isUnread = [&](const Row& row) {
        return std::any_of(unread.begin(), unread.end(),
                           [&](const FiredAlarm& alarm) { return IsSameRow(alarm, row.alarm); });
    };
    std::erase_if(rows_, [&](const Row& row) { return !row.isRead && !isUnread(row); });
    // Rows keep their places beside those of the same moment.
    for (const FiredAlarm& alarm : unread) {
        const auto row = std::find_if(rows_.begin(), rows_.end(),
                                      [&](const Row& shown) { return IsSameRow(alarm, shown.alarm); });
        if (row == rows_.end()) {
            rows_.push_back({alarm, false});
        } else {
            *row = {alarm, false};
        }
    }
    std::stable_sort(rows_.begin(), rows_.end(),
                     [](const Row& a, const Row& b) { return a.alarm.when > b.alarm.when; });
    Fill();
    if (!failure) return;
    count_->setText(Shown(Sentence(failure)));
    count_->show();
}

void frmFiredAlarms::Fill() {
    {
        const QSignalBlocker quiet(list_);
        list_->clear();
        QTreeWidgetItem* first = nullptr;
        for (std::size_t place = 0; place < rows_.size(); ++place) {
            QTreeWidgetItem* const item = ItemOf(rows_[place].alarm, rows_[place].isRead);
            item->setData(kTime, kPlaceRole, QVariant::fromValue(place));
            list_->addTopLevelItem(item);
            if (!first && !rows_[place].isRead) first = item;
        }
        list_->setCurrentItem(first ? first : list_->topLevelItem(0));
    }
    pages_->setCurrentIndex(rows_.empty() ? 1 : 0);
    count_->setText(Unread() > 0 ? UnreadWords(Unread()) : QStringLiteral("No unread alarms"));
    count_->setVisible(!rows_.empty());
    EnableParts();
}

void frmFiredAlarms::EnableParts() {
    const std::vector<std::size_t> selected = SelectedRows();
    read_->setEnabled(std::any_of(selected.begin(), selected.end(),
                                  [&](std::size_t place) { return !rows_[place].isRead; }));
    readAll_->setEnabled(Unread() > 0);
    chart_->setEnabled(list_->currentItem() != nullptr);
}

void frmFiredAlarms::ShowMail(const QString& words) {
    mail_->setText(words);
    mail_->setVisible(!words.isEmpty());
}

std::size_t frmFiredAlarms::Unread() const {
    return static_cast<std::size_t>(
        std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return !row.isRead; }));
}

std::vector<std::size_t> frmFiredAlarms::SelectedRows() const {
    std::vector<std::size_t> places;
    for (const QTreeWidgetItem* item : list_->selectedItems()) {
        places.push_back(item->data(kTime, kPlaceRole).value<std::size_t>());
    }
    return places;
}

void frmFiredAlarms::MarkSelected() {
    MarkAsRead(SelectedRows());
}

void frmFiredAlarms::MarkAll() {
    std::vector<std::size_t> all(rows_.size());
    for (std::size_t place = 0; place < all.size(); ++place) all[place] = place;
    MarkAsRead(all);
}

void frmFiredAlarms::MarkAsRead(const std::vector<std::size_t>& places) {
    std::vector<FiredAlarm> read;
    for (const std::size_t place : places) {
        if (!rows_[place].isRead) read.push_back(rows_[place].alarm);
    }
    if (read.empty()) return;
    if (const Failure failure = MarkAlarmsRead(session_.DataFolder(), read)) {
        session_.person.Say(Sentence(failure));
        return;
    }
    for (const std::size_t place : places) rows_[place].isRead = true;
    Fill();
    Q_EMIT ReadMarked();
}

void frmFiredAlarms::OpenChart() {
    const QTreeWidgetItem* const item = list_->currentItem();
    if (!item) return;
    const auto place = item->data(kTime, kPlaceRole).value<std::size_t>();
    Q_EMIT ChartAsked(rows_[place].alarm.ticker);
}

}  // namespace brantlow
