// The lines of a template as a tuning holds them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// The N word of a template line. The tuning carries it through reading and writing; block numbers do not come from it.
struct CNWordInfo {
    uint16_t kind = 0;  // 0 none, 1 big increment, 2 small increment, 3 set the number
    int32_t value = 0;  // of kind 3, otherwise 0
};

struct CTemplateLine {
    CNWordInfo n_word;
    std::string text;
};

using TemplateLines = std::vector<CTemplateLine>;

// `NNUL`, `NBIG`, `NSM`, or `NINIT` with the value after it. A kind beyond these is written as `NNUL`.
std::string FormatNWord(const CNWordInfo& n_word);

// Reads an N word, with regard to case. False, with `n_word` left alone, if `word` is none.
bool ParseNWord(std::string_view word, CNWordInfo& n_word);

}  // namespace brindle
