// Replies of the sources of history, in every form of date. Input: a byte for header and footer lines, a byte
// for the form, the reply.
#include "acquire/feeds/history_reply.h"
#include "fuzz_session.h"
#include "store/history_rewrite.h"

using namespace brantlow;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::string_view kForms[] = {"01/02/04", "Jan-2-2004", "20040102", "040102", ""};
    std::string_view input = BytesOf(data, size);
    const unsigned lines = TakeByte(input);
    const unsigned byte = TakeByte(input);
    const HistoryReplyForm form{static_cast<double>(lines % 16), static_cast<double>(lines / 16),
                                kForms[byte % std::size(kForms)], byte < 128};
    YearFileTexts texts;
    for (const HistoryRecord& record : RecordsOfReply(input, form)) texts.Add(record);
    return 0;
}
