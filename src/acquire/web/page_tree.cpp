#include "acquire/web/page_tree.h"

#include <csetjmp>
#include <cstdlib>
#include <ctime>

namespace brantlow {

namespace {

double ThreadSeconds() {
    constexpr double kNanosecond = 1e-9;
    std::timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * kNanosecond;
}

}  // namespace

// The memory of one parse. The parser asks for every piece here and cannot handle a refusal, so that going
// over a limit jumps out of it; the pieces are in a list and are given back from there, which also spares the
// parser's own clean-up, whose depth is that of the page.
class PageMemory {
  public:
    explicit PageMemory(const PageLimits& limits)
        : limits_(limits), deadline_(ThreadSeconds() + limits.seconds) {}
    ~PageMemory() {
        while (first_ != nullptr) {
            Block* next = first_->next;
            std::free(first_);
            first_ = next;
        }
    }
    PageMemory(const PageMemory&) = delete;
    PageMemory& operator=(const PageMemory&) = delete;

    // Null when a limit was reached. Nothing on the way holds an object with a destructor.
    const GumboOutput* Parse(std::string_view html) {
        GumboOptions options = kGumboDefaultOptions;
        options.allocator = &PageMemory::Allocate;
        options.deallocator = &PageMemory::Free;
        options.userdata = this;
        options.max_errors = 0;
        if (setjmp(giveUp_) != 0) return nullptr;
        return gumbo_parse_with_options(&options, html.data(), html.size());
    }

  private:
    struct alignas(std::max_align_t) Block {
        Block* previous;
        Block* next;
        std::size_t size;
    };

    static void* Allocate(void* memory, std::size_t size) {
        return static_cast<PageMemory*>(memory)->Take(size);
    }
    static void Free(void* memory, void* piece) { static_cast<PageMemory*>(memory)->GiveBack(piece); }

    void* Take(std::size_t size) {
        if (size > limits_.memoryBytes - used_ || TimeIsOver()) std::longjmp(giveUp_, 1);
        auto* block = static_cast<Block*>(std::malloc(sizeof(Block) + size));
        if (block == nullptr) std::longjmp(giveUp_, 1);
        *block = {nullptr, first_, size};
        if (first_ != nullptr) first_->previous = block;
        first_ = block;
        used_ += size;
        return block + 1;
    }

    void GiveBack(void* piece) {
        if (piece == nullptr) return;
        Block* block = static_cast<Block*>(piece) - 1;
        used_ -= block->size;
        if (block->next != nullptr) block->next->previous = block->previous;
        (block->previous == nullptr ? first_ : block->previous->next) = block->next;
        std::free(block);
    }

    bool TimeIsOver() {
        constexpr unsigned kPiecesBetweenLooks = 256;
        return ++pieces_ % kPiecesBetweenLooks == 0 && ThreadSeconds() > deadline_;
    }

    const PageLimits limits_;
    const double deadline_;
    std::jmp_buf giveUp_{};
    Block* first_ = nullptr;
    std::size_t used_ = 0;
    unsigned pieces_ = 0;
};

PageTree::PageTree(std::string_view html, const PageLimits& limits)
    : memory_(std::make_unique<PageMemory>(limits)) {
    if (const GumboOutput* output = memory_->Parse(html.substr(0, limits.inputBytes))) root_ = output->root;
}

PageTree::~PageTree() = default;

}  // namespace brantlow
