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

// `text` as it comes back from the host: the bytes of no valid sequence are their characters, in UTF-8.
std::string AsUtf8(std::string_view text);

}  // namespace brindle
