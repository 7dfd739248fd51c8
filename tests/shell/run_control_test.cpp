#include "shell/run_control.h"

#include <gtest/gtest.h>

#include "support/recording_person.h"

namespace brantlow {
namespace {

TEST(BeginRun, ForgetsTheRunBefore) {
    RunControl run{"True", 0.7, 70, 12};
    BeginRun(run);
    EXPECT_EQ(run.ProcessCommand, "False");
    EXPECT_EQ(run.ProgressFraction, 0);
    EXPECT_EQ(run.ProgressLastShown, 0);
    EXPECT_EQ(run.CurrentRow, 0U);
}

TEST(ShouldStop, ActsOnEachWord) {
    struct Row {
        const char* word;
        bool stops;
        const char* wordAfter;
    };
    constexpr Row kRows[] = {
        {"False", false, "False"}, {"True", true, "True"}, {"Resume", false, "False"}, {"", false, ""}};
    for (const Row& row : kRows) {
        RecordingPerson person;
        RunControl run;
        run.ProcessCommand = row.word;
        EXPECT_EQ(ShouldStop(run, person), row.stops) << row.word;
        EXPECT_EQ(run.ProcessCommand, row.wordAfter) << row.word;
        EXPECT_EQ(person.pumps, 0) << row.word;
    }
}

TEST(ShouldStop, PauseWaitsWithAnEmptyWordUntilResume) {
    RecordingPerson person;
    RunControl run;
    run.ProcessCommand = "Pause";
    std::string wordWhilePaused = "none";
    person.events = {[] {}, [&] { wordWhilePaused = run.ProcessCommand; },
                     [&] { run.ProcessCommand = "Resume"; }};
    EXPECT_FALSE(ShouldStop(run, person));
    EXPECT_EQ(wordWhilePaused, "");
    EXPECT_EQ(run.ProcessCommand, "False");
    EXPECT_EQ(person.pumps, 3);
}

TEST(ShouldStop, ExitDuringAPauseStops) {
    RecordingPerson person;
    RunControl run;
    run.ProcessCommand = "Pause";
    person.events = {[&] { run.ProcessCommand = "True"; }};
    EXPECT_TRUE(ShouldStop(run, person));
    EXPECT_EQ(run.ProcessCommand, "True");
}

TEST(ShouldStop, PauseDuringAPauseStaysPaused) {
    RecordingPerson person;
    RunControl run;
    run.ProcessCommand = "Pause";
    person.events = {[&] { run.ProcessCommand = "Pause"; }, [] {}, [&] { run.ProcessCommand = "Resume"; }};
    EXPECT_FALSE(ShouldStop(run, person));
    EXPECT_EQ(person.pumps, 3);
    EXPECT_EQ(run.ProcessCommand, "False");
}

TEST(NextProgress, RepaintsInStepsOfMoreThanTwoPercentAndHidesAtTheEnd) {
    struct Row {
        double fraction;
        double value;
        bool visible;
        bool repaint;
    };
    constexpr Row kRows[] = {
        {0, 0, true, false},      {0.02, 2, true, false},      {0.0225, 2.25, true, true},
        {0.04, 4, true, false},   {0.0425, 4.25, true, false}, {0.0475, 4.75, true, true},
        {0.99, 99, true, true},   {0.999, 99.9, false, false}, {1, 100, false, false},
        {1.5, 100, false, false}, {-1, 0, true, false}};
    RunControl run;
    for (const Row& row : kRows) {
        run.ProgressFraction = row.fraction;
        const ProgressStep step = NextProgress(run);
        EXPECT_DOUBLE_EQ(step.value, row.value) << row.fraction;
        EXPECT_EQ(step.visible, row.visible) << row.fraction;
        EXPECT_EQ(step.repaint, row.repaint) << row.fraction;
    }
}

TEST(NextProgress, RepaintsAboutFiftyTimesInALongRun) {
    constexpr int kTickers = 18000;
    RunControl run;
    BeginRun(run);
    int repaints = 0;
    for (int i = 1; i <= kTickers; ++i) {
        run.ProgressFraction = static_cast<double>(i) / kTickers;
        if (NextProgress(run).repaint) ++repaints;
    }
    EXPECT_GE(repaints, 45);
    EXPECT_LE(repaints, 50);
}

}  // namespace
}  // namespace brantlow
