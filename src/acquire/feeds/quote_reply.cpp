#include "acquire/feeds/quote_reply.h"

#include <array>

#include "base/text.h"
#include "base/values.h"
#include "shell/settings/field_lists.h"
#include "shell/settings/lines.h"

namespace brantlow {

namespace {

void AppendWithPoints(std::string_view line, std::string& out) {
    for (const char c : line) {
        if (c == ',') {
            out += '.';
        } else {
            out += c == ';' ? ',' : c;
        }
    }
    out += kLineEnd;
}

std::string_view WithoutQuotes(std::string_view piece) {
    constexpr std::size_t kQuotes = 2;
    return piece.size() > kQuotes ? piece.substr(1, piece.size() - kQuotes) : std::string_view{};
}

}  // namespace

std::error_code NormaliseDecimalComma(const Path& file) {
    const ReadResult read = ReadWholeFile(file);
    if (read.outcome == ReadOutcome::Failed) return read.error;
    if (read.outcome == ReadOutcome::Missing)
        return std::make_error_code(std::errc::no_such_file_or_directory);
    std::string bytes;
    bytes.reserve(read.bytes.size());
    LineReader reader(read.bytes);
    std::string_view line;
    for (std::size_t count = 0; count < kMostRows && reader.Next(line); ++count)
        AppendWithPoints(line, bytes);
    return WriteWholeFile(file, bytes, Flush::Later);
}

bool TakeStandardLine(std::string_view line, std::size_t row, QuoteArrays& rows) {
    std::array<std::string_view, kQuoteFields.size()> fields;
    RecordReader reader(line);
    for (std::string_view& field : fields) {
        if (!reader.Next(field)) return false;
    }
    for (std::size_t i = 0; i < fields.size(); ++i)
        TakeValueText(fields[i], (rows.*kQuoteFields[i].array)[row]);
    return true;
}

UserQuoteForm UserQuoteFormOf(const SettingsTables& settings) {
    UserQuoteForm form;
    form.separator = Get(settings, kSourceDelimiter) == Delimiter::Comma ? ',' : '\t';
    form.dateForm = TextOf(settings, kSourceDateForm);
    for (const std::string& name : FieldsOf(FieldList::SourceQuotes, settings)) {
        if (name.empty()) break;
        form.fields.push_back(FindQuoteField(name));
    }
    return form;
}

bool TakeUserLine(std::string_view line, const UserQuoteForm& form, std::size_t row, QuoteArrays& rows) {
    const std::vector<std::string_view> pieces = SplitAt(line, form.separator);
    if (form.fields.empty() || pieces.size() < form.fields.size()) return false;
    for (std::size_t i = 0; i < form.fields.size(); ++i) {
        const QuoteField* field = form.fields[i];
        if (field == nullptr) continue;
        const bool isText = field->form == FieldForm::Text;
        std::string& entry = (rows.*field->array)[row];
        entry = isText ? WithoutQuotes(pieces[i]) : pieces[i];
        if (field->array == &QuoteArrays::TradeDates) entry = ConvertTradeDate(entry, form.dateForm);
    }
    return true;
}

}  // namespace brantlow
