// Pages of fundamentals, from their bytes to the cells. Input: a byte for the content type, the page.
#include "acquire/feeds/fundamental_pages.h"
#include "acquire/web/page_text.h"
#include "fuzz_session.h"
#include "store/columns.h"

using namespace brantlow;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::string_view kTypes[] = {"text/html",
                                           "",
                                           "text/html; charset=windows-1252",
                                           "text/html; charset=utf-16le",
                                           "text/html; charset=shift_jis",
                                           "text/plain"};
    std::string_view input = BytesOf(data, size);
    const std::string_view type = kTypes[TakeByte(input) % std::size(kTypes)];
    QuoteTable table;
    table.AppendLine(EfqHeader());
    table.AppendLine("T");
    const std::string text = PageText(input, type);
    for (const FundamentalPageRow& row : kFundamentalPages) {
        ParseFundamentalPage(row.page, text, table, 1);
        ParseFundamentalPage(row.page, input, table, 1);
    }
    return 0;
}
