#include "platform/text_encoding.h"

#include <cstddef>
#include <cstdint>

namespace brindle {
namespace {

static_assert(sizeof(wchar_t) == 4, "a wide character holds any character, so there are no surrogate pairs");

constexpr uint32_t kReplacement = 0xFFFD;
constexpr uint32_t kLastCharacter = 0x10FFFF;

constexpr bool IsCharacter(uint32_t code) { return code <= kLastCharacter && (code < 0xD800 || code > 0xDFFF); }

void AppendUtf8(std::string& text, uint32_t code) {
    const auto append = [&text](uint32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto append_tail = [append](uint32_t bits) { append(0x80 | (bits & 0x3F)); };
    if (code < 0x80) return append(code);
    if (code < 0x800) {
        append(0xC0 | code >> 6);
    } else {
        if (code < 0x10000) {
            append(0xE0 | code >> 12);
        } else {
            append(0xF0 | code >> 18);
            append_tail(code >> 12);
        }
        append_tail(code >> 6);
    }
    append_tail(code);
}

// The length that the first byte of a UTF-8 sequence announces, 0 if it announces none.
size_t SequenceLength(uint32_t first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return 2;
    if (first >= 0xE0 && first <= 0xEF) return 3;
    if (first >= 0xF0 && first <= 0xF4) return 4;
    return 0;
}

// Takes one character off `text`, which is not empty: a valid UTF-8 sequence, else a single byte.
uint32_t TakeCharacter(std::string_view& text) {
    constexpr uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};  // by length; less would be an overlong form
    const uint32_t first = static_cast<unsigned char>(text[0]);
    const size_t length = SequenceLength(first);
    uint32_t code = length < 2 ? first : first & (0x7FU >> length);
    bool valid = length > 0 && length <= text.size();
    for (size_t i = 1; valid && i < length; ++i) {
        const uint32_t byte = static_cast<unsigned char>(text[i]);
        valid = (byte & 0xC0) == 0x80;
        code = code << 6 | (byte & 0x3F);
    }
    valid = valid && code >= kLeast[length] && IsCharacter(code);
    text.remove_prefix(valid ? length : 1);
    return valid ? code : first;
}

}  // namespace

std::string WideToNarrow(const wchar_t* text) {
    std::string narrow;
    for (; text && *text != L'\0'; ++text) {
        const uint32_t code = static_cast<char32_t>(*text);
        AppendUtf8(narrow, IsCharacter(code) ? code : kReplacement);
    }
    return narrow;
}

std::wstring NarrowToWide(std::string_view text) {
    std::wstring wide;
    wide.reserve(text.size());
    while (!text.empty()) wide.push_back(static_cast<wchar_t>(TakeCharacter(text)));
    return wide;
}

std::string AsUtf8(std::string_view text) {
    std::string valid;
    valid.reserve(text.size());
    while (!text.empty()) AppendUtf8(valid, TakeCharacter(text));
    return valid;
}

}  // namespace brindle
