// Byte-text helpers that every room uses: splitting, trimming, case and display decoding.
//
// Text is bytes. Nothing here re-encodes its input except DisplayUtf8, which windows and JSON lines use to
// show bytes of unknown encoding. Case means ASCII case: tickers, file kinds and settings words are ASCII.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brantlow {

// The pieces of `text` between `separator`s; an empty text gives one empty piece.
std::vector<std::string_view> SplitAt(std::string_view text, char separator);

// `text` without leading and trailing blanks, tabs and line ends.
std::string_view Trim(std::string_view text);

std::string UpperCase(std::string_view text);

// The number of lines that a LineReader finds in `text`.
std::size_t LineCount(std::string_view text);

// Equal but for ASCII case.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

// `text` as UTF-8: unchanged when it is valid UTF-8, else read as Windows-1252 byte by byte.
std::string DisplayUtf8(std::string_view text);

// The lines of a text one after another. A line ends at LF; a CR right before it belongs to the line end.
// A last line without a line end counts; nothing follows a final line end.
class LineReader {
  public:
    explicit LineReader(std::string_view text) : rest_(text) {}

    // False at the end of the text, with `line` untouched. The line lives as long as the text.
    bool Next(std::string_view& line);

  private:
    std::string_view rest_;
};

}  // namespace brantlow
