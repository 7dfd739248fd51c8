// Definitions of live sources, as a user writes them. Input: the file.
#include "acquire/feeds/live/address_template.h"
#include "acquire/feeds/live/error_rules.h"
#include "acquire/feeds/live/source_definition.h"
#include "acquire/feeds/live/source_rows.h"
#include "fuzz_session.h"

using namespace brantlow;

namespace {

// What a definition is used for: an address is filled, a reply judged and read.
void Use(const SourceDefinition& source, Capability capability) {
    const CapabilityForm* form = source.Form(capability);
    if (form == nullptr) return;
    const auto day = std::chrono::sys_days{std::chrono::year{2024} / 3 / 15};
    for (const std::string& pattern : form->addresses) FillAddress(pattern, {"KO", day, day});
    SourceReply reply;
    ReadReply({source, *form, "KO", day, day, 1'710'540'000}, R"({"results":[{"t":1710460800000,"c":1}]})",
              reply);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const DefinitionRead read = ReadSourceDefinition(BytesOf(data, size));
    Demand(read.definition.has_value() == read.refusal.empty(), "a definition is there, or why it is not");
    if (!read.definition) return 0;
    JudgeReply(*read.definition, 200, R"({"error":"no"})");
    for (std::size_t i = 0; i < kCapabilityNames.size(); ++i)
        Use(*read.definition, static_cast<Capability>(i));
    return 0;
}
