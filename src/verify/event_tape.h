// The events of a program's text, kept for the calls that carry it out.
#pragma once

#include <string>
#include <vector>

#include "generator/run_log.h"

namespace brindle {

// Templates and records of calls are pointed to, so a tape is good as long as the run and its job.
class CEventTape final : public CRunLog {
public:
    // Tells `log` all events.
    void Replay(CRunLog& log) const;

    void RunStarts(RunContext&) override {}
    void RunEnds() override {}
    void SegmentStarts() override { Add({.kind = Kind::kSegmentStarts}); }
    void ProgramStarts(int32_t) override {}
    void ProgramEnds() override {}
    void RecordStarts(int32_t program, int32_t index) override {
        Add({.kind = Kind::kRecordStarts, .number = program, .index = index});
    }
    void RecordEnds(bool words_pending) override { Add({.kind = Kind::kRecordEnds, .flag = words_pending}); }
    void RecordDropped(DropReason reason) override {
        Add({.kind = Kind::kRecordDropped, .number = static_cast<int32_t>(reason)});
    }
    void ArcAsLines(bool facets) override { Add({.kind = Kind::kArcAsLines, .flag = facets}); }
    void CallStarts(const CNCIncludeData& record, int32_t variant) override {
        Add({.kind = Kind::kCallStarts, .number = variant, .object = &record});
    }
    void CallEnds() override { Add({.kind = Kind::kCallEnds}); }
    void ExpansionStarts(const CNCIncludeData& record) override {
        Add({.kind = Kind::kExpansionStarts, .object = &record});
    }
    void ExpansionEnds() override { Add({.kind = Kind::kExpansionEnds}); }
    void TemplateStarts(const CompiledTemplate& compiled, int32_t tool) override {
        Add({.kind = Kind::kTemplateStarts, .number = tool, .object = &compiled});
    }
    void TemplateEnds() override { Add({.kind = Kind::kTemplateEnds}); }
    void TemplateLine(size_t line, std::string_view text) override {
        Add({.kind = Kind::kTemplateLine, .number = static_cast<int32_t>(line)}, text);
    }
    void Word(const LoggedWord& word) override { Add({.kind = Kind::kWord, .word = word}, word.text); }
    void Unresolved(std::string_view what) override { Add({.kind = Kind::kUnresolved}, what); }
    void BlockWritten(std::string_view block, size_t trace_index) override {
        Add({.kind = Kind::kBlockWritten, .trace_index = trace_index}, block);
    }

    void CommentWritten(std::string_view block) override { Add({.kind = Kind::kCommentWritten}, block); }

private:
    enum class Kind : uint8_t {
        kSegmentStarts,
        kRecordStarts,
        kRecordEnds,
        kRecordDropped,
        kArcAsLines,
        kCallStarts,
        kCallEnds,
        kExpansionStarts,
        kExpansionEnds,
        kTemplateStarts,
        kTemplateEnds,
        kTemplateLine,
        kWord,
        kUnresolved,
        kBlockWritten,
        kCommentWritten,
    };
    struct Event {
        Kind kind;
        bool flag = false;
        int32_t number = 0;
        int32_t index = 0;
        LoggedWord word{WordKind::kAxis};  // its text is that of the event
        size_t trace_index = 0;
        const void* object = nullptr;  // the call's record or the template
        size_t first = 0, length = 0;  // of its text
    };

    void Add(Event event, std::string_view text = {});

    std::vector<Event> events_;
    std::string texts_;
};

}  // namespace brindle
