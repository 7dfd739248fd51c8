#include "store/windows/table_pages.h"

#include <QFontMetrics>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>

#include "base/windows/display_text.h"
#include "store/table_figures.h"

namespace brantlow {

namespace {

constexpr double kPointSize = 8;
constexpr double kPointsAnInch = 72;
constexpr int kLongestShown = 40;
constexpr QChar kDots(0x2026);

// What the painting of a page needs beside the table.
struct Sheet {
    QFont font;
    QFont bold;
    QRect page;
    int lineHeight = 0;
    int gap = 0;
    std::vector<int> widths;  // of the columns given
    std::vector<bool> words;  // whether they hold words, which stand at the left
};

QString CellText(const TableOnPaper& paper, std::size_t row, std::size_t column) {
    const std::string& text = paper.table.Text(row, column);
    const bool separated = row > 0 && ShowsSeparators(paper.table.Header(column));
    const QString shown = Shown(separated ? WithSeparators(text) : text);
    return shown.size() > kLongestShown ? shown.left(kLongestShown - 1) + kDots : shown;
}

// The longest text by its letters stands for the widest: measuring each would take seconds in a large table.
int WidthOf(const TableOnPaper& paper, std::size_t column, const QFontMetrics& plain,
            const QFontMetrics& bold) {
    std::size_t longestRow = 0;
    std::size_t most = 0;
    for (const std::size_t row : paper.rows) {
        const std::size_t size = paper.table.Text(row, column).size();
        if (size <= most) continue;
        most = size;
        longestRow = row;
    }
    const QString longest = longestRow > 0 ? CellText(paper, longestRow, column) : QString();
    constexpr int kSlackPercent = 108;
    return std::max(plain.horizontalAdvance(longest) * kSlackPercent / 100,
                    bold.horizontalAdvance(CellText(paper, 0, column)));
}

bool HoldsWords(const TableOnPaper& paper, std::size_t column) {
    const std::string& header = paper.table.Header(column);
    return column == 0 || header == "Name" || header == "Exchange";
}

Sheet MakeSheet(QPagedPaintDevice& device, const TableOnPaper& paper) {
    Sheet sheet;
    const int resolution = device.logicalDpiY();
    sheet.font = QFont(QStringLiteral("sans-serif"));
    sheet.font.setPixelSize(std::max(1, static_cast<int>(resolution * kPointSize / kPointsAnInch)));
    sheet.bold = sheet.font;
    sheet.bold.setBold(true);
    const QFontMetrics plain(sheet.font, &device);
    const QFontMetrics bold(sheet.bold, &device);
    sheet.page = QRect(0, 0, device.width(), device.height());
    sheet.lineHeight = bold.lineSpacing();
    sheet.gap = plain.horizontalAdvance(QLatin1Char('m'));
    for (const std::size_t column : paper.columns) {
        sheet.widths.push_back(WidthOf(paper, column, plain, bold));
        sheet.words.push_back(HoldsWords(paper, column));
    }
    return sheet;
}

void PaintLine(QPainter& painter, const TableOnPaper& paper, const Sheet& sheet,
               const std::vector<std::size_t>& part, std::size_t row, int top) {
    int left = 0;
    for (const std::size_t place : part) {
        const auto flags = (sheet.words[place] ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
        painter.drawText(QRect(left, top, sheet.widths[place], sheet.lineHeight), static_cast<int>(flags),
                         CellText(paper, row, paper.columns[place]));
        left += sheet.widths[place] + sheet.gap;
    }
}

void PaintFoot(QPainter& painter, const TableOnPaper& paper, const Sheet& sheet, int page, int pages) {
    const QRect foot(0, sheet.page.height() - sheet.lineHeight, sheet.page.width(), sheet.lineHeight);
    painter.drawText(foot, Qt::AlignLeft, paper.title);
    painter.drawText(foot, Qt::AlignHCenter, QStringLiteral("Page %1 of %2").arg(page).arg(pages));
    painter.drawText(foot, Qt::AlignRight, paper.day);
}

}  // namespace

std::vector<std::vector<std::size_t>> ColumnParts(const std::vector<int>& widths, int gap, int across) {
    std::vector<std::vector<std::size_t>> parts;
    if (widths.empty()) return parts;
    int used = 0;
    for (std::size_t place = 1; place < widths.size(); ++place) {
        const int wide = widths[place] + gap;
        if (parts.empty() || used + wide > across) {
            parts.push_back({0});
            used = widths[0] + gap;
        }
        parts.back().push_back(place);
        used += wide;
    }
    if (parts.empty()) parts.push_back({0});
    return parts;
}

int PaintTablePages(QPagedPaintDevice& device, const TableOnPaper& paper, const PageDone& pageDone) {
    QPainter painter;
    if (!painter.begin(&device)) return 0;
    const Sheet sheet = MakeSheet(device, paper);
    const auto parts = ColumnParts(sheet.widths, sheet.gap, sheet.page.width() + sheet.gap);
    // Header above, a blank line and the foot below.
    const int lines = std::max(1, sheet.page.height() / sheet.lineHeight - 3);
    const int chunks = std::max(1, (static_cast<int>(paper.rows.size()) + lines - 1) / lines);
    const int pages = chunks * static_cast<int>(parts.size());
    int page = 0;
    for (int chunk = 0; chunk < chunks; ++chunk) {
        for (const auto& part : parts) {
            if (page++ > 0 && !device.newPage()) return 0;
            painter.setFont(sheet.bold);
            PaintLine(painter, paper, sheet, part, 0, 0);
            painter.drawLine(0, sheet.lineHeight, sheet.page.width(), sheet.lineHeight);
            painter.setFont(sheet.font);
            for (int line = 0; line < lines; ++line) {
                const auto place = static_cast<std::size_t>(chunk * lines + line);
                if (place >= paper.rows.size()) break;
                PaintLine(painter, paper, sheet, part, paper.rows[place], sheet.lineHeight * (line + 1));
            }
            PaintFoot(painter, paper, sheet, page, pages);
            if (pageDone && !pageDone(static_cast<double>(page) / pages)) return 0;
        }
    }
    return painter.end() ? pages : 0;
}

}  // namespace brantlow
