#include "host/messages.h"

#include <algorithm>
#include <iostream>

#include "platform/text_encoding.h"

namespace brindle::host {
namespace {

// What is shown of a source line, in bytes.
constexpr size_t kShownBefore = 60;
constexpr size_t kShownBehind = 60;
constexpr std::string_view kCutMark = "...";

void PrintLine(const Place& place, std::string_view severity, std::string_view text) {
    std::string line = "brindle: ";
    if (!place.file.empty()) line.append(place.file == "-" ? "standard input" : PrintableText(place.file));
    if (!place.file.empty() && place.line != 0) line.append(":").append(std::to_string(place.line));
    if (!place.file.empty()) line.append(": ");
    line.append(severity).append(PrintableText(text)).append("\n");
    std::cerr << line;
}

std::string_view SeverityText(Severity severity) {
    switch (severity) {
        case Severity::kError: return "error: ";
        case Severity::kWarning: return "warning: ";
        case Severity::kInfo: return "info: ";
    }
    return {};
}

bool IsWithinCharacter(std::string_view text, size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

// The number of characters that PrintableText makes of `text`.
size_t ShownWidth(std::string_view text) { return NarrowToWide(text).size(); }

void PrintSource(std::string_view line, size_t word, size_t length) {
    word = std::min(word, line.size());
    length = std::clamp<size_t>(length, 1, kShownBehind);
    size_t first = word > kShownBefore ? word - kShownBefore : 0;
    size_t last = line.size() - word > kShownBehind ? word + kShownBehind : line.size();
    while (first < word && IsWithinCharacter(line, first)) ++first;
    while (last > word + 1 && IsWithinCharacter(line, last)) --last;

    const std::string_view mark_before = first > 0 ? kCutMark : std::string_view();
    const std::string_view mark_behind = last < line.size() ? kCutMark : std::string_view();
    const size_t indent = mark_before.size() + ShownWidth(line.substr(first, word - first));
    const size_t carets = std::max<size_t>(1, ShownWidth(line.substr(word, std::min(length, last - word))));
    std::string shown = "    ";
    shown.append(mark_before).append(PrintableText(line.substr(first, last - first))).append(mark_behind).append("\n");
    shown.append(4 + indent, ' ').append(carets, '^').append("\n");
    std::cerr << shown;
}

}  // namespace

std::string PrintableText(std::string_view text) {
    std::wstring shown = NarrowToWide(text);
    for (wchar_t& c : shown) {
        if (c == L'\t') c = L' ';
        if (c < 0x20 || (c >= 0x7F && c < 0xA0)) c = L'?';
    }
    return WideToNarrow(shown.c_str());
}

std::string Quoted(std::string_view word) {
    constexpr size_t kLongest = 60;
    if (word.size() <= kLongest) return std::string("'").append(word).append("'");
    size_t end = kLongest;
    while (end > 0 && IsWithinCharacter(word, end)) --end;
    return std::string("'").append(word.substr(0, end)).append("...'");
}

std::string Counted(size_t count, std::string_view thing) {
    return std::to_string(count).append(" ").append(thing).append(count == 1 ? "" : "s");
}

void PrintError(const Place& place, std::string_view text) { PrintLine(place, "", text); }

void PrintWarning(const Place& place, std::string_view text) { PrintLine(place, "warning: ", text); }

void PrintNote(const Place& place, std::string_view text) { PrintLine(place, "note: ", text); }

void PrintDiagnostic(Severity severity, const Place& place, std::string_view text, std::string_view source_line) {
    PrintLine(place, SeverityText(severity), text);
    if (place.column != 0) PrintSource(source_line, place.column - 1, place.length);
}

}  // namespace brindle::host
