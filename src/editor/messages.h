// All texts that the editor shows in message boxes.
#pragma once

#include <string_view>

namespace brindle::messages {

inline constexpr std::string_view kNegativeRefused = "Negative values are not allowed.";
inline constexpr std::string_view kZeroRefused = "Zero value not allowed";
inline constexpr std::string_view kChooseDirective = "Please choose directive";
inline constexpr std::string_view kCantCreateFile = "Could not create file: ";            // and the path
inline constexpr std::string_view kSegmentOutOfRange = "Segment must be between 1 and ";  // and the count

}  // namespace brindle::messages
