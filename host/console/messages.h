// Messages to the user on standard error, each with its place.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "check/findings.h"
#include "text/message_words.h"

namespace brindle::host {

// A place in an input file. Lines and columns count from 1; 0 means none.
struct Place {
    std::string file;
    size_t line = 0;
    size_t column = 0;  // of the word, in bytes of the line
    size_t length = 1;  // of the word in bytes, for the caret line
};

// Each prints one line, in which control characters and bytes that are no UTF-8 show as `?`. A place without a line
// leaves out the line, one without a file the file; the file `-` is standard input.
void PrintError(const Place& place, std::string_view text);    // brindle: FILE:LINE: text
void PrintWarning(const Place& place, std::string_view text);  // brindle: FILE:LINE: warning: text
void PrintNote(const Place& place, std::string_view text);     // brindle: FILE:LINE: note: text

// Prints `brindle: FILE:LINE: severity: text`, then the source line and a caret under the word. Long lines are cut
// around the word. A place without a column prints the message alone.
void PrintDiagnostic(Severity severity, const Place& place, std::string_view text, std::string_view source_line);

// `text` as a terminal may show it: valid UTF-8 of one line. Tabs become blanks, other control characters and bytes
// that are no UTF-8 become `?`.
std::string PrintableText(std::string_view text);

// Prints those findings that are at least so severe in the order of their places, each with its line of `lines`.
void PrintFindings(const std::string& file, const std::vector<std::string_view>& lines, CFindings& findings,
                   Severity least = Severity::kInfo);

}  // namespace brindle::host
