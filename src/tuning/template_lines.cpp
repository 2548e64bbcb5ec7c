#include "tuning/template_lines.h"

#include "text/numbers.h"

namespace brindle {
namespace {

constexpr std::string_view kSetNumberWord = "NINIT";

}  // namespace

std::string FormatNWord(const CNWordInfo& n_word) {
    switch (n_word.kind) {
        case 1: return "NBIG";
        case 2: return "NSM";
        case 3: return std::string(kSetNumberWord) + std::to_string(n_word.value);
        default: return "NNUL";
    }
}

bool ParseNWord(std::string_view word, CNWordInfo& n_word) {
    if (word == "NNUL") {
        n_word = {0, 0};
    } else if (word == "NBIG") {
        n_word = {1, 0};
    } else if (word == "NSM") {
        n_word = {2, 0};
    } else if (word.starts_with(kSetNumberWord)) {
        n_word = {3, LeadingInt(word.substr(kSetNumberWord.size()))};
    } else {
        return false;
    }
    return true;
}

}  // namespace brindle
