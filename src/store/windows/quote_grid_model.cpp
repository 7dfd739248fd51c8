#include "store/windows/quote_grid_model.h"

#include <QFont>
#include <QGuiApplication>
#include <algorithm>

#include "base/windows/display_text.h"
#include "base/windows/readable.h"
#include "store/table_figures.h"

namespace brantlow {

namespace {

// Columns of words stand at the left; all others hold numbers and dates.
constexpr std::array<std::string_view, 4> kWordColumns = {"Ticker Symbol", "Symbol", "Name", "Exchange"};

QVariant Background(CellStyle style) {
    const Colour& ground = ColoursOf(style).background;
    if (ground.source == ColourSource::Window) return {};
    return ScreenColour(ground, QPalette::Base, QGuiApplication::palette());
}

QVariant Foreground(CellStyle style) {
    if (style == CellStyle::Plain) return {};
    return WordsOf(style, QGuiApplication::palette());
}

QVariant Bold(CellStyle style) {
    if (!ColoursOf(style).bold) return {};
    QFont font = QGuiApplication::font();
    font.setBold(true);
    return font;
}

}  // namespace

QColor ScreenColour(const Colour& colour, QPalette::ColorRole window, const QPalette& palette) {
    switch (colour.source) {
        case ColourSource::Window:
            return palette.color(QPalette::Active, window);
        case ColourSource::ButtonFace:
            return palette.color(QPalette::Active, QPalette::Button);
        case ColourSource::Style:
            break;
    }
    return {colour.rgb.red, colour.rgb.green, colour.rgb.blue};
}

QColor WordsOf(CellStyle style, const QPalette& palette) {
    const StyleColours& colours = ColoursOf(style);
    const QColor ground = ScreenColour(colours.background, QPalette::Base, palette);
    const bool isVerdict =
        colours.background.source == ColourSource::Style && colours.foreground.source == ColourSource::Window;
    if (isVerdict) return FurthestFrom(ground);
    return ReadableOn(ground, ScreenColour(colours.foreground, QPalette::Text, palette));
}

QuoteGridModel::QuoteGridModel(const QuoteTable& table, QObject* parent)
    : QAbstractTableModel(parent), table_(table) {}

void QuoteGridModel::Reload(FileKind kind, Summaries summaries) {
    beginResetModel();
    kind_ = kind;
    shown_.reset();
    summaries_ = std::move(summaries);
    endResetModel();
}

void QuoteGridModel::CellsChanged() {
    if (columnCount() == 0) return;
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    if (rowCount() > 0) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void QuoteGridModel::ShowRows(std::optional<std::vector<std::size_t>> rows) {
    beginResetModel();
    shown_ = std::move(rows);
    endResetModel();
}

std::size_t QuoteGridModel::TableRow(int row) const {
    const auto place = static_cast<std::size_t>(row);
    if (!shown_) return place + 1;
    return place < shown_->size() ? (*shown_)[place] : 0;
}

int QuoteGridModel::ModelRow(std::size_t tableRow) const {
    if (!shown_) return static_cast<int>(tableRow) - 1;
    const auto place = std::lower_bound(shown_->begin(), shown_->end(), tableRow);
    if (place == shown_->end() || *place != tableRow) return -1;
    return static_cast<int>(place - shown_->begin());
}

int QuoteGridModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return static_cast<int>(shown_ ? shown_->size() : table_.TickerCount());
}

int QuoteGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.ColumnCount());
}

Qt::Alignment QuoteGridModel::AlignmentOf(std::size_t column) const {
    if (kind_ == FileKind::Dbe && column > 0) return Qt::AlignCenter;
    const bool words = column == 0 || std::find(kWordColumns.begin(), kWordColumns.end(),
                                                table_.Header(column)) != kWordColumns.end();
    return (words ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
}

QVariant QuoteGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const std::size_t row = TableRow(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
        case Qt::DisplayRole:
            if (ShowsSeparators(table_.Header(column)))
                return Shown(WithSeparators(table_.Text(row, column)));
            return Shown(table_.Text(row, column));
        case Qt::TextAlignmentRole:
            return QVariant(AlignmentOf(column));
        case Qt::ForegroundRole:
            return Foreground(table_.Style(row, column));
        case Qt::BackgroundRole:
            return Background(table_.Style(row, column));
        case Qt::FontRole:
            return Bold(table_.Style(row, column));
        default:
            return {};
    }
}

// Rich text, since only that is wrapped; a summary can name many tests.
QVariant QuoteGridModel::ToolTipOf(std::size_t column) const {
    if (kind_ != FileKind::Dbe || column < 1 || column > kConditionCount) return {};
    const std::string& summary = summaries_[column];
    if (summary.empty()) return {};
    return QString(QStringLiteral("<p style='white-space:pre-wrap'>") + Shown(summary).toHtmlEscaped() +
                   QStringLiteral("</p>"));
}

QVariant QuoteGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0) return {};
    const auto column = static_cast<std::size_t>(section);
    switch (role) {
        case Qt::DisplayRole:
            return Shown(table_.Header(column));
        case Qt::TextAlignmentRole:
            return QVariant(AlignmentOf(column));
        case Qt::ToolTipRole:
            return ToolTipOf(column);
        default:
            return {};
    }
}

}  // namespace brantlow
