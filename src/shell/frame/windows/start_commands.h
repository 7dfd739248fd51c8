// What the welcome page leads to: the tables to go on with, the practice table, and new lists, which are
// filled from a live source where the person wants that.
#pragma once

#include <string>

#include "acquire/feeds/windows/frmNewList.h"
#include "shell/frame/windows/frame_hands.h"
#include "shell/frame/windows/welcome_page.h"

namespace brantlow {

class StartCommands final {
  public:
    // `frame` outlives this.
    explicit StartCommands(const FrameHands& frame) : frame_(frame) {}

    CommandRows Rows();

    // What a press on the welcome page does.
    WelcomeActions Actions();
    // The same by another window.
    void BeginWith(StartWay way);

  private:
    // Opens the practice table. Where there is none it is made first, with its history, and its first chart
    // is shown; what stands in its way is told.
    void OpenPractice();
    // Asks for a table and opens it with the chart of its first ticker; where no history is stored for it,
    // offers to fetch it, from a source that is chosen now where none was.
    void OpenFirst();
    // Opens a table and fetches its quotes of the day.
    void OpenAndUpdate(const std::string& name);
    void NewList();
    void NewFromMarket();
    void OpenNewList(NewListOf begin);
    // Opens a table that was just made; with `fills` its histories and quotes are fetched and the chart of
    // its first ticker is shown.
    void Begin(const std::string& name, bool fills);
    // Shows the chart of the first ticker with a history; false where there is none.
    bool ShowChartOfFirst();
    void OfferHistories();
    void ChooseSourceAndFill();
    void Fill();

    const FrameHands& frame_;
};

}  // namespace brantlow
