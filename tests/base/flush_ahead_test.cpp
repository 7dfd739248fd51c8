#include "base/flush_ahead.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace brantlow {
namespace {

TEST(FlushAhead, FlushesBesideItsCallerAgainAndAgain) {
    const TempFolder folder;
    FlushAhead ahead;
    EXPECT_FALSE(ahead.Finish());
    for (int i = 0; i < 3; ++i) ahead.Begin(folder.Get());
    EXPECT_FALSE(ahead.Finish());
    ahead.Begin(folder.Get());
    EXPECT_FALSE(ahead.Finish());
}

TEST(FlushAhead, AFailureIsKeptWhateverIsFlushedLater) {
    const TempFolder folder;
    FlushAhead ahead;
    ahead.Begin(folder / "missing");
    EXPECT_EQ(ahead.Finish(), std::errc::no_such_file_or_directory);
    ahead.Begin(folder.Get());
    EXPECT_EQ(ahead.Finish(), std::errc::no_such_file_or_directory);
}

}  // namespace
}  // namespace brantlow
