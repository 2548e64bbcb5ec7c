#include "host/console/messages.h"

#include <iostream>

#include "host/console/text_format.h"

namespace brindle::host {
namespace {

constexpr size_t kMostPrinted = 1000;  // of one file: nobody reads more

thread_local CMessageSink* current_sink = nullptr;

void TellOfCall(MessageKind kind, const InputLine& at, std::string_view text) {
    Message message;
    message.kind = kind;
    message.place = PlaceIn(at.file, {at.line}, {});
    message.text = PrintableText(text);
    Tell(std::move(message));
}

}  // namespace

CMessageSink::CMessageSink() : before_(current_sink) { current_sink = this; }

CMessageSink::~CMessageSink() { current_sink = before_; }

CMessageSink* CMessageSink::Current() { return current_sink; }

void Tell(Message message) {
    if (current_sink != nullptr) return current_sink->Take(std::move(message));
    std::cerr << TextOf(message);
}

void TellAll(std::vector<Message> messages, CMessageSink* sink) {
    for (Message& message : messages) {
        if (sink != nullptr) {
            sink->Take(std::move(message));
        } else {
            std::cerr << TextOf(message);
        }
    }
}

void PrintError(const InputLine& at, std::string_view text) { TellOfCall(MessageKind::kError, at, text); }

void PrintWarning(const InputLine& at, std::string_view text) { TellOfCall(MessageKind::kWarning, at, text); }

void PrintNote(const InputLine& at, std::string_view text) { TellOfCall(MessageKind::kNote, at, text); }

void PrintDiagnostics(CDiagnostics& diagnostics, Severity least) {
    size_t printed = 0;
    for (const Diagnostic& diagnostic : diagnostics.Sorted()) {
        if (diagnostic.severity > least) continue;
        if (++printed > kMostPrinted) break;
        Tell(MessageOf(diagnostic, diagnostics.file(), diagnostics.LineOf(diagnostic.place)));
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
