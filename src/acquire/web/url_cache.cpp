#include "acquire/web/url_cache.h"

#include <algorithm>

namespace brantlow {

bool MemoryUrlCache::Delete(std::string_view url) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const UrlCacheEntry& entry) { return entry.url == url; });
    if (found == entries_.end()) return false;
    entries_.erase(found);
    return true;
}

std::vector<std::string> GetUrlCacheEntries(const UrlCache& cache, std::uint32_t mask) {
    std::vector<std::string> urls;
    for (UrlCacheEntry& entry : cache.Entries()) {
        if ((entry.kind & mask) != 0) urls.push_back(std::move(entry.url));
    }
    return urls;
}

bool DeleteCacheEntry(UrlCache& cache, std::string_view url) {
    return cache.Delete(url);
}

void PurgeUrlCache(UrlCache& cache) {
    for (const std::uint32_t mask : {kNormalCacheEntry, kCookieCacheEntry}) {
        for (const std::string& url : GetUrlCacheEntries(cache, mask)) DeleteCacheEntry(cache, url);
    }
}

}  // namespace brantlow
