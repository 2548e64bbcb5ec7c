// Wide text of the host to the UTF-8 inside, and back.
#pragma once

#include <string>
#include <string_view>

namespace brindle {

// Each character as UTF-8. What is no character (surrogate halves, above U+10FFFF) becomes U+FFFD. Null is empty text.
std::string WideToNarrow(const wchar_t* text);

// Valid UTF-8 sequences become their character; each byte that is part of none becomes the character of its code
// (U+0080 to U+00FF), so that no byte is lost.
std::wstring NarrowToWide(std::string_view text);

// NarrowToWide and back: `text` as it comes from a host that was given it. Valid UTF-8 stays as it is.
std::string AsUtf8(std::string_view text);

}  // namespace brindle
