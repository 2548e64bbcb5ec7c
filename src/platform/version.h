// The version of the library, as `@DrvVersion` prints it and the command tells it.
#pragma once

namespace brindle {

inline constexpr int kVersionMajor = 1;
inline constexpr int kVersionMinor = 0;

}  // namespace brindle
