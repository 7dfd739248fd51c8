// The collection of extended fundamentals: a table of its own is made of the open table's tickers and filled
// from the pages of the web.
#pragma once

#include "acquire/web/url_cache.h"
#include "shell/frame/windows/frame_hands.h"

namespace brantlow {

class FundamentalCommands final {
  public:
    // Both outlive this; `cache` is what pages leave behind.
    FundamentalCommands(const FrameHands& frame, UrlCache& cache) : frame_(frame), cache_(cache) {}

    CommandRows Rows();

  private:
    void ExtendedFundamentals();
    void ExtendedFundamentalData();
    void Collect(frmQuoteGrid& form);

    const FrameHands& frame_;
    UrlCache& cache_;
};

}  // namespace brantlow
