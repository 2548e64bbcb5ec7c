// Messages to the user on standard error, each with its place.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "check/diagnostics.h"
#include "text/message_words.h"

namespace brindle::host {

// A line of an input file, counted from 1; 0 means none.
struct InputLine {
    std::string file;
    size_t line = 0;
};

// Each prints one line, in which control characters and bytes that are no UTF-8 show as `?`. Without a line
// number the line is left out, without a name the file; the file `-` is standard input.
void PrintError(const InputLine& at, std::string_view text);    // brindle: FILE:LINE: text
void PrintWarning(const InputLine& at, std::string_view text);  // brindle: FILE:LINE: warning: text
void PrintNote(const InputLine& at, std::string_view text);     // brindle: FILE:LINE: note: text

// Takes the messages of its thread instead of standard error while it lives. A thread has one at a time.
class CCollectedMessages {
public:
    CCollectedMessages();
    CCollectedMessages(const CCollectedMessages&) = delete;
    CCollectedMessages& operator=(const CCollectedMessages&) = delete;
    ~CCollectedMessages();
    std::string Take() { return std::move(text_); }

private:
    std::string text_;
};

// `text` as a terminal may show it: valid UTF-8 of one line. Tabs become blanks, other control characters and bytes
// that are no UTF-8 become `?`.
std::string PrintableText(std::string_view text);

// Prints the diagnostics that are at least so severe in the order of their places, as `brindle: FILE:LINE: severity:
// text`; one at a word is followed by its line, cut around the word if it is long, and a caret under the word.
void PrintDiagnostics(CDiagnostics& diagnostics, Severity least = Severity::kInfo);

}  // namespace brindle::host
