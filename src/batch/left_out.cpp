#include "batch/left_out.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace brantlow {

namespace {

struct FailureGroup {
    const Failure* first;
    std::size_t count;
};

// By kind and cause, in the order in which they came up.
std::vector<FailureGroup> GroupsOf(std::span<const Failure> failures) {
    std::vector<FailureGroup> groups;
    for (const Failure& failure : failures) {
        const auto found = std::find_if(groups.begin(), groups.end(), [&](const FailureGroup& group) {
            return group.first->kind == failure.kind && group.first->cause == failure.cause;
        });
        if (found == groups.end()) {
            groups.push_back({&failure, 1});
        } else {
            ++found->count;
        }
    }
    return groups;
}

}  // namespace

ExitStatus TellLeftOut(BatchCall& call, std::span<const Failure> failures, std::size_t all,
                       std::string_view things) {
    if (failures.empty()) return ExitStatus::Done;
    if (failures.size() >= all) return Refuse(call, failures.front());
    constexpr std::size_t kMostLines = 3;
    std::vector<FailureGroup> groups = GroupsOf(failures);
    groups.resize(std::min(groups.size(), kMostLines));
    for (const FailureGroup& group : groups) {
        std::string line =
            fmt::format("{} of {} {} left out: {}", group.count, all, things, Sentence(*group.first));
        if (group.count > 1) line += fmt::format(" (and {} more)", group.count - 1);
        call.err << OneLine(line) << '\n';
    }
    return ExitStatus::Partly;
}

}  // namespace brantlow
