// The application folder that the fault tests work on, and the commands that they disturb.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/clock.h"
#include "market/alert_list.h"
#include "market/market_server.h"
#include "support/temp_folder.h"

namespace brantlow {

// A small folder with everything that a command may need: two tables, three tickers with their year files, a
// split that shows in the prices, an import file, back-ups, an update list, and a market that answers.
class FaultWorld {
  public:
    static FaultWorld& Instance();

    // A fresh copy of the folder.
    void CopyTo(const Path& app) const;

  private:
    FaultWorld();
    void Fill(const Path& app) const;

    TempFolder folder_;
    FixedClock clock_;
    AlertList alerts_;
    std::unique_ptr<MarketServer> market_;
};

// One command to disturb.
struct FaultCase {
    std::string name;
    // "{app}" stands for the application folder.
    std::vector<std::string> arguments;
    // What is run before it, undisturbed; may be empty.
    std::vector<std::string> first = {};
    bool reads = false;  // it changes nothing, whatever happens
    // How often the same command may be needed after a kill until all is as without it: 0 where it does a
    // further step each time.
    int again = 1;
};
const std::vector<FaultCase>& FaultCases();
void PrintTo(const FaultCase& command, std::ostream* out);

}  // namespace brantlow
