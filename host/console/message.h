// One message of the command, complete in itself: what all formats show of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/diagnostics.h"

namespace brindle::host {

// The first four are the severities of findings. A note tells of the call and is no finding.
enum class MessageKind : uint8_t { kError, kLoss, kWarning, kInfo, kNote };
inline constexpr size_t kMessageKinds = static_cast<size_t>(MessageKind::kNote) + 1;

struct MessagePlace {
    std::string file;       // as the user named it, `-` for standard input; empty for none
    size_t line = 0;        // from 1; 0 for the file as a whole
    size_t column = 0;      // in characters, from 1; 0 for the line as a whole
    size_t end_column = 0;  // the one after the last character
    std::string excerpt;    // lines to print below it: the line and a caret; may be empty
};

// Another place that a message speaks of.
struct RelatedMessage {
    MessagePlace place;
    std::string text;
    bool is_told = false;  // by the text of the message
};

// Texts are one line each, as a terminal may show them.
struct Message {
    MessageKind kind = MessageKind::kError;
    std::optional<Rule> rule;  // none for what is wrong with the call, not with the contents of a file
    MessagePlace place;
    std::string text;
    std::string help;  // the way out, may be empty
    std::vector<RelatedMessage> related;
};

// The place of a word in `line`, which is the text of `place.line`.
MessagePlace PlaceIn(const std::string& file, const Place& place, std::string_view line);

// The message that tells a finding in `file`; `line` is the text of its line, if there is one.
Message MessageOf(const Diagnostic& diagnostic, const std::string& file, std::string_view line);

// `text` as a terminal may show it: valid UTF-8 of one line. Tabs become blanks, other control characters and bytes
// that are no UTF-8 become `?`.
std::string PrintableText(std::string_view text);

}  // namespace brindle::host
