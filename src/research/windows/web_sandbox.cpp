#include "research/windows/web_sandbox.h"

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace brantlow {

namespace {

constexpr const char* kSandboxSwitch = "QTWEBENGINE_DISABLE_SANDBOX";

// Tries in a child, whose end leaves nothing behind.
bool CanMakeNamespaces() {
    const pid_t child = fork();
    if (child == 0) _exit(unshare(CLONE_NEWUSER | CLONE_NEWPID | CLONE_NEWNET) == 0 ? 0 : 1);
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

void PrepareWebSandbox() {
    const bool decided = std::getenv(kSandboxSwitch) != nullptr;
    if (!decided && (geteuid() == 0 || !CanMakeNamespaces())) setenv(kSandboxSwitch, "1", 1);
}

}  // namespace brantlow
