// Input files of the command, read with a message where that fails.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindle::host {

// The path that stands for standard input.
inline constexpr std::string_view kStandardInput = "-";

// The bytes of the file at `path`, `-` for standard input. Nothing, with a message printed, if it can't be read.
std::optional<std::string> ReadInputFile(const std::string& path);

}  // namespace brindle::host
