// The page of the split calendar. Input: its markup.
#include <cmath>

#include "fuzz_session.h"
#include "splits/split_page.h"

using namespace brantlow;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const PageSplit& split : SplitsOfPage(BytesOf(data, size))) {
        Demand(!std::isnan(FactorOfRatio(split.ratio)), "a ratio's factor is no number");
    }
    return 0;
}
