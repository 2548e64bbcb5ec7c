// What a file is by its text, so that one that is given in the place of another gets one clear line.
#pragma once

#include <string>
#include <string_view>

namespace brindle::host {

// What a command wants of a file.
enum class WantedInput { kTuning, kDrawing };

// What is said of a file that is something else than what is wanted: `is a CFF2 drawing, not a tuning`. Empty for the
// right thing, and for what nobody knows.
std::string FaultOfKind(std::string_view text, WantedInput wanted);

// What the name of a file says of one whose text says nothing; empty if it is no name of a drawing of another kind.
std::string FaultOfName(std::string_view path);

// Whether a file is a drawing rather than a tuning. One whose text says nothing goes by its name.
bool IsDrawing(std::string_view path, std::string_view text);

}  // namespace brindle::host
