#include "host/console/message.h"

#include <algorithm>

#include "platform/text_encoding.h"
#include "text/message_words.h"

namespace brindle::host {
namespace {

// What is shown of a source line, in bytes.
constexpr size_t kShownBefore = 60;
constexpr size_t kShownBehind = 60;
constexpr std::string_view kCutMark = "...";

// The number of characters of `text`; a byte that is no UTF-8 is one.
size_t Characters(std::string_view text) { return NarrowToWide(text).size(); }

// The line, cut around the word if it is long, and a caret under each of the word's characters.
std::string Excerpt(std::string_view line, size_t word, size_t length) {
    word = std::min(word, line.size());
    length = std::clamp<size_t>(length, 1, kShownBehind);
    size_t first = word > kShownBefore ? word - kShownBefore : 0;
    size_t last = line.size() - word > kShownBehind ? word + kShownBehind : line.size();
    while (first < word && IsWithinCharacter(line, first)) ++first;
    while (last > word + 1 && IsWithinCharacter(line, last)) --last;

    const std::string_view mark_before = first > 0 ? kCutMark : std::string_view();
    const std::string_view mark_behind = last < line.size() ? kCutMark : std::string_view();
    const size_t indent = mark_before.size() + Characters(line.substr(first, word - first));
    const size_t carets = std::max<size_t>(1, Characters(line.substr(word, std::min(length, last - word))));
    std::string shown = "    ";
    shown.append(mark_before).append(PrintableText(line.substr(first, last - first))).append(mark_behind).append("\n");
    shown.append(4 + indent, ' ').append(carets, '^').append("\n");
    return shown;
}

MessageKind KindOf(Severity severity) {
    switch (severity) {
        case Severity::kError: return MessageKind::kError;
        case Severity::kLoss: return MessageKind::kLoss;
        case Severity::kWarning: return MessageKind::kWarning;
        case Severity::kInfo: break;
    }
    return MessageKind::kInfo;
}

}  // namespace

MessagePlace PlaceIn(const std::string& file, const Place& place, std::string_view line) {
    MessagePlace shown{file, place.line, 0, 0, {}};
    if (place.line == 0 || place.column == 0) return shown;
    const size_t word = std::min(place.column - 1, line.size());
    shown.column = Characters(line.substr(0, word)) + 1;
    shown.end_column = shown.column + std::max<size_t>(1, Characters(line.substr(word, place.length)));
    shown.excerpt = Excerpt(line, word, place.length);
    return shown;
}

Message MessageOf(const Diagnostic& diagnostic, const std::string& file, std::string_view line) {
    Message message;
    message.kind = KindOf(diagnostic.severity);
    message.rule = diagnostic.rule;
    message.place = PlaceIn(file, diagnostic.place, line);
    message.text = PrintableText(diagnostic.message);
    message.help = PrintableText(diagnostic.way_out);
    for (const RelatedPlace& related : diagnostic.related) {
        const std::string& where = related.file.empty() ? file : related.file;
        message.related.push_back(
            {PlaceIn(where, related.place, related.line), PrintableText(related.message), related.is_told});
    }
    return message;
}

std::string PrintableText(std::string_view text) {
    std::wstring shown = NarrowToWide(text);
    for (wchar_t& c : shown) {
        if (c == L'\t') c = L' ';
        if (c < 0x20 || (c >= 0x7F && c < 0xA0)) c = L'?';
    }
    return WideToNarrow(shown.c_str());
}

}  // namespace brindle::host
