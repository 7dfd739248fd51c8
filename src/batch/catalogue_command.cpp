#include "batch/commands.h"
#include "selector/catalogue.h"

namespace brantlow {

ExitStatus RunCatalogue(BatchCall& call) {
    for (const std::string_view name : ConditionNames()) call.out << name << '\n';
    return ExitStatus::Done;
}

}  // namespace brantlow
