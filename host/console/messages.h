// Messages to the user, each with its place. They go to standard error as text, unless somebody takes them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/diagnostics.h"
#include "host/console/message.h"
#include "text/message_words.h"

namespace brindle::host {

// A line of an input file, counted from 1; 0 means none.
struct InputLine {
    std::string file;
    size_t line = 0;
};

// Each tells one message without a rule. Without a line number the line is left out, without a name the file; the file
// `-` is standard input.
void PrintError(const InputLine& at, std::string_view text);
void PrintWarning(const InputLine& at, std::string_view text);
void PrintNote(const InputLine& at, std::string_view text);

// Tells the diagnostics that are at least so severe in the order of their places.
void PrintDiagnostics(CDiagnostics& diagnostics, Severity least = Severity::kInfo);

void Tell(Message message);

// Takes the messages of the thread that made it while it lives, in place of the one before it.
class CMessageSink {
public:
    CMessageSink();
    CMessageSink(const CMessageSink&) = delete;
    CMessageSink& operator=(const CMessageSink&) = delete;
    virtual ~CMessageSink();
    virtual void Take(Message message) = 0;

    // That of this thread, null if there is none.
    static CMessageSink* Current();

private:
    CMessageSink* const before_;
};

// Keeps messages for later.
class CCollectedMessages final : public CMessageSink {
public:
    void Take(Message message) override { messages_.push_back(std::move(message)); }
    std::vector<Message> Release() { return std::exchange(messages_, {}); }

private:
    std::vector<Message> messages_;
};

// Gives messages to `sink`, or prints them if it is null.
void TellAll(std::vector<Message> messages, CMessageSink* sink);

}  // namespace brindle::host
