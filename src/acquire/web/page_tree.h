// The element tree of a page, parsed within limits: a page made to exhaust memory or time has no tree.
#pragma once

#include <gumbo.h>

#include <memory>
#include <string_view>

#include "acquire/web/page_limits.h"

namespace brantlow {

class PageMemory;

class PageTree {
  public:
    // `html` is UTF-8 and must outlive the tree. Any bytes are taken.
    explicit PageTree(std::string_view html, const PageLimits& limits = {});
    ~PageTree();
    PageTree(const PageTree&) = delete;
    PageTree& operator=(const PageTree&) = delete;

    // The topmost element, or null when the page went over a limit. Lives as long as the tree.
    const GumboNode* Root() const { return root_; }

  private:
    std::unique_ptr<PageMemory> memory_;
    const GumboNode* root_ = nullptr;
};

}  // namespace brantlow
