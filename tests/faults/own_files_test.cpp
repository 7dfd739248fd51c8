// What the program's own commands write has no faults: after each of them `check` finds none.
#include <gmock/gmock.h>

#include "fault_run.h"
#include "fault_world.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// A copy of the world without the line that a repair is tested on.
class OwnFiles : public ::testing::TestWithParam<FaultCase> {
  protected:
    OwnFiles() {
        FaultWorld::Instance().CopyTo(app_);
        std::filesystem::remove(app_ / "Quotes" / "EOD" / "GAP.26");
    }
    FaultedCall Call(const std::vector<std::string>& arguments) const {
        return CallWithFault(app_, arguments, {});
    }

    TempFolder folder_;
    const Path app_ = folder_ / "app";
};

TEST_P(OwnFiles, OfEachCommandHaveNoFaults) {
    if (!GetParam().first.empty()) Call(GetParam().first);
    const FaultedCall command = Call(GetParam().arguments);
    const FaultedCall check = Call({"check"});
    EXPECT_EQ(check.status, 0) << command.Told() << check.Told();
    EXPECT_THAT(check.out, HasSubstr("\n0 faults and "));
}

std::string NameOfCase(const ::testing::TestParamInfo<FaultCase>& tested) {
    return tested.param.name;
}

INSTANTIATE_TEST_SUITE_P(All, OwnFiles, ::testing::ValuesIn(FaultCases()), NameOfCase);

}  // namespace
}  // namespace brantlow
