#include "generator/char_codes.h"

#include <cstdint>
#include <cstring>
#include <string_view>

#include "text/numbers.h"

namespace brindle {
namespace {

constexpr std::string_view kOpening = "chr(";

}  // namespace

// Works in place with a finished part [0, done) and a rest [rest, end). A word is cut off the front of the rest, and
// its character is put in front of what is left, together with the last characters of the finished part that may form a
// word with it. The gap between the parts is never shorter than what moves back, because a word is longer than its
// character.
void ExpandCharCodes(std::string& text) {
    size_t done = text.find(kOpening);
    if (done == std::string::npos) return;
    size_t rest = done;
    while (true) {
        const size_t at = text.find(kOpening, rest);
        const size_t plain = (at == std::string::npos ? text.size() : at) - rest;
        std::memmove(text.data() + done, text.data() + rest, plain);
        done += plain;
        if (at == std::string::npos) break;
        const size_t close = text.find(')', at);
        const size_t last = close == std::string::npos ? text.size() - 1 : close;
        const size_t number = at + kOpening.size();
        const int32_t code = number < last ? LeadingInt(std::string_view(text).substr(number, last - number)) : 0;
        rest = last;
        text[rest] = static_cast<char>(static_cast<uint8_t>(code));
        for (size_t back = 1; back < kOpening.size() && done > 0; ++back) text[--rest] = text[--done];
    }
    text.resize(done);
}

}  // namespace brindle
