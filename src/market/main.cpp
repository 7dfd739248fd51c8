// brantlow-market: the practice market, a web server on this machine that plays the hosts of the web.
#include <pthread.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "base/clock.h"
#include "market/market_command.h"
#include "market/market_hosts.h"
#include "market/market_server.h"
#include "practice/practice.h"
#include "shell/app_folder.h"

namespace {

using namespace brantlow;

enum Exit { kDone = 0, kRefused = 1, kWrongUsage = 2 };

int Refuse(const std::string& sentence, Exit status = kRefused) {
    std::cerr << sentence << '\n';
    return status;
}

// Signals are for WaitForTheEnd alone; threads that are made after this leave them alone.
sigset_t HoldEndSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        // A shell's background jobs start deaf to some of them.
        std::signal(number, SIG_DFL);
        sigaddset(&signals, number);
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

// Asks for a signal at the end of the program that started this one; false when it has ended already.
bool StayWithParent() {
    const pid_t parent = getppid();
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    return getppid() == parent;
}

void WaitForTheEnd(const sigset_t& signals) {
    int number = 0;
    while (sigwait(&signals, &number) != 0) continue;
}

Path PricesOf(const MarketCommand& command) {
    if (command.prices) return *command.prices;
    const Path assets = FindAssets(CurrentStartPlaces().executable).value_or(BRANTLOW_INSTALLED_ASSETS);
    return assets / "practice";
}

// A market without a port of its own comes back to the one that its Hosts.ini holds, where that is free.
bool BindServer(const MarketCommand& command, MarketServer& server) {
    const auto before = command.port == 0 && command.hosts ? PortInHosts(*command.hosts) : std::nullopt;
    return (before && server.Bind(*before)) || server.Bind(command.port);
}

// The sentence for a Hosts.ini that was not written.
void TellHosts(const Path& file, const HostsResult& result) {
    if (result.outcome == HostsOutcome::Foreign) {
        std::cerr << file.string() << ": not the practice market's own; left as it is\n";
    } else if (result.outcome == HostsOutcome::Failed) {
        std::cerr << CannotBeSaved(file, result.error) << '\n';
    }
}

int Serve(const MarketCommand& command) {
    const sigset_t signals = HoldEndSignals();
    if (command.withParent && !StayWithParent()) return kDone;
    const MarketData data = MarketData::Read(PricesOf(command), command.weeks);
    if (data.Tickers().empty()) {
        return Refuse(NoPracticePrices(PricesOf(command)));
    }
    const SystemClock systemClock;
    const FixedClock fixedClock(command.today.value_or(systemClock.Today()));
    const Clock& clock = command.today ? static_cast<const Clock&>(fixedClock) : systemClock;
    AlertList alerts;
    MarketServer server(data, clock, alerts, command.bytesPerSecond);
    if (!BindServer(command, server)) {
        return Refuse("Port " + std::to_string(command.port) + " cannot be taken: it is in use or reserved");
    }
    server.Run();
    if (command.hosts) TellHosts(*command.hosts, PointHosts(*command.hosts, server.Address()));
    std::cout << server.Address() << std::endl;
    WaitForTheEnd(signals);
    server.Stop();
    return kDone;
}

}  // namespace

int main(int argc, char** argv) {
    const MarketCommandLine line = ReadMarketCommand({argv + 1, argv + argc});
    if (!line.refusal.empty()) return Refuse(line.refusal, kWrongUsage);
    if (line.command.help) {
        std::cout << MarketHelp();
        return kDone;
    }
    return Serve(line.command);
}
