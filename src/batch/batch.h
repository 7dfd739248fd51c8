// A call of the batch tool from its arguments to its exit status. main() passes in the process, tests pass in
// streams of their own.
#pragma once

#include <ostream>
#include <span>
#include <string>

#include "base/files.h"
#include "batch/command.h"

namespace brantlow {

// What a call takes from the process around it.
struct BatchProcess {
    std::ostream& out;
    std::ostream& err;
    bool errIsTerminal = false;
    Path executable;
    Path assets;  // the installation's files
    bool (*interrupted)() = nullptr;
};

ExitStatus RunBatch(std::span<const std::string> arguments, const BatchProcess& process);

}  // namespace brantlow
