// What the exported functions share: the frame of each, and strings on their way in and out.
#pragma once

#include <string>
#include <string_view>

#include "api/brindle_mgr.h"
#include "platform/system_string.h"
#include "platform/text_encoding.h"

namespace brindle {

// A host's string; null is empty.
inline std::string In(const wchar_t* text) { return WideToNarrow(text); }

// Hands `text` to the host as a new system string; a null pointer is skipped.
inline void Out(wchar_t** target, std::string_view text) {
    if (target != nullptr) *target = MakeSystemString(text);
}

template <typename Number>
void Out(Number* target, Number value) {
    if (target != nullptr) *target = value;
}

inline CBrindleMgr& Session() { return CBrindleMgr::Current(); }

}  // namespace brindle
