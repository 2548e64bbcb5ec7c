// The version of the library, which is the version of the project: the build and the packages read it from here.
// `@DrvVersion` prints major and minor number.
#pragma once

namespace brindle {

inline constexpr int kVersionMajor = 1;
inline constexpr int kVersionMinor = 0;
inline constexpr int kVersionPatch = 0;

}  // namespace brindle
