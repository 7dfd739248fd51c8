// The program's own web cache, as far as the engine has to do with it: what it holds is listed and thrown
// away, so that a repeated request is never answered from it. Downloads keep no cache; a browser's profile
// does, and takes part through this interface.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brantlow {

// Kinds of cache entry; an entry may be of several.
inline constexpr std::uint32_t kNormalCacheEntry = 1;
inline constexpr std::uint32_t kCookieCacheEntry = 1048576;

struct UrlCacheEntry {
    std::string url;
    std::uint32_t kind = kNormalCacheEntry;
};

class UrlCache {
  public:
    virtual ~UrlCache() = default;
    // Everything held; empty too where the cache cannot be listed.
    virtual std::vector<UrlCacheEntry> Entries() const = 0;
    // False when there is no such entry or it cannot be deleted.
    virtual bool Delete(std::string_view url) = 0;
};

// A cache in memory.
class MemoryUrlCache final : public UrlCache {
  public:
    void Add(std::string url, std::uint32_t kind) { entries_.push_back({std::move(url), kind}); }
    std::vector<UrlCacheEntry> Entries() const override { return entries_; }
    bool Delete(std::string_view url) override;

  private:
    std::vector<UrlCacheEntry> entries_;
};

// The addresses of the entries that have a kind in common with `mask`, in the cache's order.
std::vector<std::string> GetUrlCacheEntries(const UrlCache& cache, std::uint32_t mask);

bool DeleteCacheEntry(UrlCache& cache, std::string_view url);

// Deletes every normal entry, then every cookie, of whatever host. An entry that cannot be deleted stays.
void PurgeUrlCache(UrlCache& cache);

}  // namespace brantlow
