// The events of a program's text, kept for the calls that carry it out.
#pragma once

#include <string>

#include "generator/run_log.h"

namespace brindle {

// Templates and records of calls are pointed to, so a tape is good as long as the run and its job. An event takes a
// few bytes more than its text: a main program of a million records may have to wait for its sub-programs.
class CEventTape final : public CRunLog {
public:
    // Tells `log` all events.
    void Replay(CRunLog& log) const;

    void RunStarts(RunContext&) override {}
    void RunEnds() override {}
    void SegmentStarts() override { Put(Kind::kSegmentStarts); }
    void ProgramStarts(int32_t) override {}
    void ProgramEnds() override {}
    void RecordStarts(int32_t program, int32_t index) override;
    void RecordEnds(bool words_pending) override;
    void RecordDropped(DropReason reason) override;
    void ArcAsLines(bool facets) override;
    void CallStarts(const CNCIncludeData& record, int32_t variant) override;
    void CallEnds() override { Put(Kind::kCallEnds); }
    void ExpansionStarts(const CNCIncludeData& record) override;
    void ExpansionEnds() override { Put(Kind::kExpansionEnds); }
    void TemplateStarts(const CompiledTemplate& compiled, int32_t tool) override;
    void TemplateEnds() override { Put(Kind::kTemplateEnds); }
    void TemplateLine(size_t line, std::string_view text) override;
    void Word(const LoggedWord& word) override;
    void Unresolved(std::string_view what) override;
    void BlockWritten(std::string_view block, size_t trace_index) override;
    void CommentWritten(std::string_view block) override;

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
    class CReader;

    template <class T>
    void Put(const T& value);
    void PutNumber(uint64_t number);  // small ones take a byte
    void PutText(std::string_view text);

    std::string bytes_;
};

}  // namespace brindle
