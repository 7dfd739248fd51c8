// brantlow-batch: the program without a window.
#include <unistd.h>

#include <csignal>
#include <iostream>
#include <string>
#include <vector>

#include "batch/batch.h"
#include "shell/app_folder.h"

namespace {

// A signal handler can reach nothing but such a flag.
volatile std::sig_atomic_t interruptFlag = 0;

extern "C" void OnInterrupt(int) {
    interruptFlag = 1;
}

bool Interrupted() {
    return interruptFlag != 0;
}

// The first Ctrl-C, or another program's request to end, asks the run to stop at its next ticker; a second
// one ends the program at once.
void WatchInterrupts() {
    struct sigaction action {};
    action.sa_handler = OnInterrupt;
    sigemptyset(&action.sa_mask);
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    WatchInterrupts();
    // A file that may grow no further is an error with a sentence, not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const brantlow::Path executable = brantlow::CurrentStartPlaces().executable;
    const brantlow::Path assets = brantlow::FindAssets(executable).value_or(BRANTLOW_INSTALLED_ASSETS);
    const brantlow::BatchProcess process{std::cout,  std::cerr, ::isatty(STDERR_FILENO) == 1,
                                         executable, assets,    Interrupted};
    return static_cast<int>(brantlow::RunBatch(arguments, process));
}
