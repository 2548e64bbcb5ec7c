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

// The lines of `text`, without their ends. A line ends with LF or CRLF, every other character is text; what comes
// after the last end is a line only if it is not empty.
std::vector<std::string_view> SplitLines(std::string_view text);

}  // namespace brindle
