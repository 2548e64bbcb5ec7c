// A tuning file read from disk: the library itself opens none.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindle::host {

// The lines of a tuning file, without their ends. They point into `text`, so the file stays where it was read.
struct TuningFile {
    TuningFile() = default;
    TuningFile(const TuningFile&) = delete;
    TuningFile& operator=(const TuningFile&) = delete;

    std::string path;
    std::string text;  // holds the lines
    std::vector<std::string_view> lines;
};

// Reads the file at `path`, `-` for standard input, unless `text` is what has been read of it. False, with a message
// printed, if it can't be read or is something else, such as a drawing.
bool ReadTuningFile(const std::string& path, TuningFile& file, std::optional<std::string> text = {});

// The number of the first line that holds a NUL byte, 0 if there is none. Such a line can't be handed to the library,
// whose strings end there.
size_t FirstLineWithNul(const TuningFile& file);

}  // namespace brindle::host
