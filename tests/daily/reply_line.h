// Replies of the standard quote source, as tests of the update make them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brantlow {

// A line of the standard source. A field that a test names replaces the sample's.
class ReplyLine {
  public:
    explicit ReplyLine(const std::string& ticker) { fields_[0] = "\"" + ticker + "\""; }
    // Fields are numbered from 1.
    ReplyLine& With(std::size_t field, const std::string& text) {
        fields_[field - 1] = text;
        return *this;
    }
    std::string Text(char separator = ',') const {
        std::string line;
        for (const std::string& field : fields_) {
            if (!line.empty()) line += separator;
            line += field;
        }
        return line + "\r\n";
    }

  private:
    std::vector<std::string> fields_ = {"",
                                        "110",
                                        "\"3/15/2024\"",
                                        "\"4:01pm\"",
                                        "\"3/1/2024\"",
                                        "10",
                                        "\"Name, Inc\"",
                                        "\"NYSE\"",
                                        "\"2/1/2024\"",
                                        "111",
                                        "109",
                                        "101",
                                        "112",
                                        "2",
                                        "50",
                                        "120",
                                        "5",
                                        "99",
                                        "22",
                                        "12345",
                                        "1.5",
                                        "6",
                                        "100",
                                        "1.2B",
                                        "3"};
};

// The tickers that an address of the standard source asks for.
inline std::vector<std::string> AskedTickers(const std::string& url) {
    const std::size_t begin = url.find("?s=") + 3;
    std::string list = url.substr(begin, url.find("&f=") - begin) + ',';
    std::vector<std::string> tickers;
    for (std::size_t comma; (comma = list.find(',')) != std::string::npos; list.erase(0, comma + 1)) {
        tickers.push_back(list.substr(0, comma));
    }
    return tickers;
}

}  // namespace brantlow
