#include "market/html.h"

#include <fmt/format.h>

namespace brantlow {

namespace {

// Pages are read in a browser window, too.
constexpr std::string_view kStyle =
    "<style>body{font-family:sans-serif;color:#24303c;margin:1.5em 2em}h1{font-size:1.5em}"
    "table{border-collapse:collapse}td{padding:.25em .9em;border-bottom:1px solid #dbe5f1}"
    "a{color:#1f6fb2}</style>";

}  // namespace

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        const bool plain = code >= ' ' && code < 0x7F && c != '<' && c != '>' && c != '&' && c != '"';
        if (plain && c != '\'') {
            escaped += c;
        } else if (code >= ' ' && code < 0x7F) {
            escaped += fmt::format("&#{};", code);
        } else {
            // Bytes of unknown encoding are shown by their number.
            escaped += fmt::format("%{:02X}", code);
        }
    }
    return escaped;
}

std::string TableRow(std::initializer_list<std::string_view> cells) {
    std::string row = "<tr>";
    for (const std::string_view cell : cells) row.append("<td>").append(cell).append("</td>");
    return row + "</tr>\n";
}

std::string HtmlPage(std::string_view title, std::string_view body) {
    return fmt::format(
        "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>{0}</title>{2}</head>\n"
        "<body>\n<h1>{0}</h1>\n{1}</body></html>\n",
        Escaped(title), body, kStyle);
}

}  // namespace brantlow
