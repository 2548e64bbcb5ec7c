// System strings: the wide strings that are handed to the host, which owns them. Their release is exported to the host
// (SysFreeString, SysStringLen in brindle/brindle.h).
#pragma once

#include <string_view>

namespace brindle {

// A new system string of the narrow `text`, with its length in front and a NUL after it; it may hold NUL characters.
wchar_t* MakeSystemString(std::string_view text);

}  // namespace brindle
