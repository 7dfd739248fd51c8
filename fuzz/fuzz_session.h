// What the fuzz targets share: an input cut into parts, an application folder, a fixed day, and the one way
// to say that something does not hold. A target is a routine over bytes: a fuzzing engine calls it with
// inputs of its own, replay_main.cpp with the files of the corpus.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/clock.h"
#include "shell/session.h"
#include "support/recording_person.h"
#include "support/temp_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace brantlow {

// Ends the program with the sentence where `holds` is false: the engine keeps the input.
void Demand(bool holds, const char* sentence);

inline std::string_view BytesOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Takes the input's first byte away; 0 for an empty one.
unsigned TakeByte(std::string_view& input);

// Takes what stands before the next line of "----" away, or everything where there is none.
std::string_view TakePart(std::string_view& input);

// The lines of a text without their ends.
std::vector<std::string_view> LinesOf(std::string_view text);

// An application folder that lives as long as the process.
const TempFolder& AppFolder();

// A session in that folder on Friday, 2024-03-15, with empty settings; its Data and database are there.
struct FuzzSession {
    FuzzSession();

    // A file below the application folder.
    Path File(const std::string& name) const { return AppFolder() / name; }
    void Write(const std::string& name, std::string_view bytes) const;

    FixedClock clock{Date{std::chrono::year{2024}, std::chrono::month{3}, std::chrono::day{15}}};
    RecordingPerson person;
    Session session{AppFolder().Get(), clock, person};
};

}  // namespace brantlow
