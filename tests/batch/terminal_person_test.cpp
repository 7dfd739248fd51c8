#include "batch/terminal_person.h"

#include <gtest/gtest.h>

#include <sstream>

namespace brantlow {
namespace {

bool Never() {
    return false;
}
bool Pressed() {
    return true;
}

TEST(ProgressLine, ShowsShareTickersRateAndTimeToGo) {
    struct Row {
        double fraction;
        std::size_t count;
        double seconds;
        std::string line;
    };
    const std::string none(30, ' ');
    const std::string half = std::string(15, '#') + std::string(15, ' ');
    const std::string all(30, '#');
    for (const Row& row :
         {Row{0, 0, 0, "[" + none + "]   0%"}, Row{0, 400, 3, "[" + none + "]   0%  0/400"},
          Row{0.5, 400, 10, "[" + half + "]  50%  200/400  20/s  0:10 to go"},
          Row{0.5, 0, 90, "[" + half + "]  50%  1:30 to go"},
          Row{1, 400, 10, "[" + all + "] 100%  400/400  40/s"},
          Row{7, 400, 10, "[" + all + "] 100%  400/400  40/s"}, Row{-1, 0, 10, "[" + none + "]   0%"}}) {
        EXPECT_EQ(ProgressLine(row.fraction, row.count, row.seconds), row.line);
    }
}

TEST(TerminalPerson, SaysItsSentencesWordForWord) {
    std::ostringstream err;
    TerminalPerson person(err, false, Never);
    person.Say("To run Stock Selector, you will need to open an End of Day Quote File", "Brantlow");
    EXPECT_EQ(err.str(), "To run Stock Selector, you will need to open an End of Day Quote File\n");
}

TEST(TerminalPerson, AQuestionIsAnsweredWithNoUnlessTheCallSaysYes) {
    std::ostringstream err;
    TerminalPerson person(err, false, Never);
    EXPECT_FALSE(person.Ask("Go on?"));
    EXPECT_EQ(err.str(), "Go on?\n");
    person.AnswerYes(true);
    EXPECT_TRUE(person.Ask("Really?"));
    EXPECT_EQ(err.str(), "Go on?\n");
}

TEST(TerminalPerson, WithoutATerminalThereIsNoProgress) {
    std::ostringstream err;
    TerminalPerson person(err, false, Never);
    person.ShowTickerCount(10);
    for (const double fraction : {0.0, 0.5, 1.0}) person.ShowProgress(fraction);
    person.ShowStatusWord("Complete");
    person.Beep();
    EXPECT_EQ(err.str(), "");
}

TEST(TerminalPerson, CtrlCStopsTheRunItWatches) {
    std::ostringstream err;
    TerminalPerson idle(err, false, Never);
    TerminalPerson pressed(err, false, Pressed);
    RunControl run;
    BeginRun(run);
    pressed.PumpEvents();  // watches nothing yet
    idle.WatchRun(&run);
    idle.PumpEvents();
    EXPECT_EQ(run.ProcessCommand, kRunning);
    pressed.WatchRun(&run);
    pressed.PumpEvents();
    EXPECT_EQ(run.ProcessCommand, kStopRun);
    EXPECT_TRUE(ShouldStop(run, pressed));
}

}  // namespace
}  // namespace brantlow
