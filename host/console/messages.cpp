#include "host/console/messages.h"

#include <algorithm>
#include <iostream>

#include "platform/text_encoding.h"

namespace brindle::host {
namespace {

// What is shown of a source line, in bytes.
constexpr size_t kShownBefore = 60;
constexpr size_t kShownBehind = 60;
constexpr std::string_view kCutMark = "...";
constexpr size_t kMostPrinted = 1000;  // nobody reads more

thread_local std::string* collected_messages = nullptr;  // where those of this thread go, null for standard error

void Write(const std::string& lines) {
    if (collected_messages == nullptr) {
        std::cerr << lines;
    } else {
        collected_messages->append(lines);
    }
}

void PrintLine(const InputLine& at, std::string_view severity, std::string_view text) {
    std::string line = "brindle: ";
    if (!at.file.empty()) line.append(at.file == "-" ? "standard input" : PrintableText(at.file));
    if (!at.file.empty() && at.line != 0) line.append(":").append(std::to_string(at.line));
    if (!at.file.empty()) line.append(": ");
    line.append(severity).append(PrintableText(text)).append("\n");
    Write(line);
}

std::string_view SeverityText(Severity severity) {
    switch (severity) {
        case Severity::kError: return "error: ";
        case Severity::kLoss: return "loss: ";
        case Severity::kWarning: return "warning: ";
        case Severity::kInfo: return "info: ";
    }
    return {};
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
    Write(shown);
}

}  // namespace

CCollectedMessages::CCollectedMessages() { collected_messages = &text_; }

CCollectedMessages::~CCollectedMessages() { collected_messages = nullptr; }

std::string PrintableText(std::string_view text) {
    std::wstring shown = NarrowToWide(text);
    for (wchar_t& c : shown) {
        if (c == L'\t') c = L' ';
        if (c < 0x20 || (c >= 0x7F && c < 0xA0)) c = L'?';
    }
    return WideToNarrow(shown.c_str());
}

void PrintError(const InputLine& at, std::string_view text) { PrintLine(at, "", text); }

void PrintWarning(const InputLine& at, std::string_view text) { PrintLine(at, "warning: ", text); }

void PrintNote(const InputLine& at, std::string_view text) { PrintLine(at, "note: ", text); }

void PrintDiagnostics(CDiagnostics& diagnostics, Severity least) {
    size_t printed = 0;
    for (const Diagnostic& diagnostic : diagnostics.Sorted()) {
        if (diagnostic.severity > least) continue;
        if (++printed > kMostPrinted) break;
        const auto& [line, column, length] = diagnostic.place;
        std::string text = diagnostic.message;
        if (!diagnostic.way_out.empty()) text.append(" (").append(diagnostic.way_out).append(")");
        PrintLine({diagnostics.file(), line}, SeverityText(diagnostic.severity), text);
        if (column != 0) PrintSource(diagnostics.LineOf(diagnostic.place), column - 1, length);
    }
    size_t count = 0;
    for (size_t severity = 0; severity <= static_cast<size_t>(least); ++severity) {
        count += diagnostics.Count(static_cast<Severity>(severity));
    }
    if (count > kMostPrinted) {
        PrintNote({diagnostics.file()}, std::to_string(count - kMostPrinted) + " further messages are left out");
    }
}

}  // namespace brindle::host
