// A list of lines as the network library takes it: the heads of a request, the receivers of a mail.
#pragma once

#include <curl/curl.h>

#include <memory>
#include <string>
#include <vector>

namespace brantlow {

struct FreeCurlList {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using CurlList = std::unique_ptr<curl_slist, FreeCurlList>;

// A line for which there is no memory is left out.
inline CurlList CurlListOf(const std::vector<std::string>& lines) {
    CurlList list;
    for (const std::string& line : lines) {
        curl_slist* const grown = curl_slist_append(list.get(), line.c_str());
        if (grown == nullptr) continue;
        (void)list.release();
        list.reset(grown);
    }
    return list;
}

}  // namespace brantlow
