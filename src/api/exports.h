// What the exported functions share: the frame of each, and strings on their way in and out.
#pragma once

#include <new>
#include <string>
#include <string_view>

#include "api/brindle_mgr.h"
#include "platform/system_string.h"
#include "platform/text_encoding.h"

namespace brindle {

// A host's string; null is empty.
inline std::string In(const wchar_t* text) { return WideToNarrow(text); }

// Hands `text` to the host as a new system string; a null pointer is skipped. False, with a null string, if there is no
// memory for it.
inline bool Out(wchar_t** target, std::string_view text) {
    if (target == nullptr) return true;
    *target = nullptr;
    try {
        *target = MakeSystemString(text);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

template <typename Number>
void Out(Number* target, Number value) {
    if (target != nullptr) *target = value;
}

inline CBrindleMgr& Session() { return CBrindleMgr::Current(); }

// The frame of each export: does its work and gives what it returns. No exception reaches the host. What an exception
// leaves half done is never used: the session ends.
template <typename Work>
int Export(const Work& work) {
    try {
        work();
    } catch (...) {
        CBrindleMgr::LoseWork();
    }
    return 0;
}

}  // namespace brindle
