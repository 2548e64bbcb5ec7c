// Files of the platform read whole.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// The bytes of the file at `path`; nothing if it can't be opened or read, a folder included. Other readers and writers
// of the file are not kept out.
std::optional<std::string> ReadWholeFile(const std::string& path);

// The lines of a file whose whole text is `text`, without their ends. A line ends with LF or CRLF; what comes after the
// last end is a line only if it is not empty. A UTF-8 byte order mark at the start, which some editors write unasked,
// is part of no line; every other character is text.
std::vector<std::string_view> SplitLines(std::string_view text);

}  // namespace brindle
