// What is wrong with a file put right, as far as that is safe. The command uses it.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "check/diagnostics.h"

namespace brindle {

// A line before and after.
struct ChangedLine {
    size_t number = 0;  // in the file as it was, from 1
    std::string_view before;
    std::string after;
    bool is_removed = false;
};

// The changed lines of a file in their order, as the mends of `diagnostics` want them. `lines` are those of the file,
// without their ends.
std::vector<ChangedLine> MendedLines(std::span<const std::string_view> lines, CDiagnostics& diagnostics);

// `text`, into which the lines point, with the changed lines. The bytes of all others, and all line ends but those of
// removed lines, stay as they are.
std::string MendedText(std::string_view text, std::span<const ChangedLine> changed);

}  // namespace brindle
