#include "platform/system_string.h"

#include <cstddef>
#include <cstring>
#include <new>
#include <string>

#include "brindle/brindle.h"
#include "platform/text_encoding.h"

namespace brindle {
namespace {

// The length is directly in front of the characters, at the start of the allocated block.
using Length = unsigned int;
static_assert(sizeof(Length) % alignof(wchar_t) == 0);

}  // namespace

wchar_t* MakeSystemString(std::string_view text) {
    const std::wstring wide = NarrowToWide(text);
    const auto length = static_cast<Length>(wide.size());
    auto* const block = static_cast<std::byte*>(::operator new(sizeof(Length) + (wide.size() + 1) * sizeof(wchar_t)));
    std::memcpy(block, &length, sizeof(Length));
    auto* const characters = reinterpret_cast<wchar_t*>(block + sizeof(Length));
    std::memcpy(characters, wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
    return characters;
}

}  // namespace brindle

void SysFreeString(wchar_t* text) {
    if (text) ::operator delete(reinterpret_cast<std::byte*>(text) - sizeof(brindle::Length));
}

unsigned int SysStringLen(const wchar_t* text) {
    if (!text) return 0;
    brindle::Length length = 0;
    std::memcpy(&length, reinterpret_cast<const std::byte*>(text) - sizeof(length), sizeof(length));
    return length;
}
