// A run's NC text held against the drawing that it was made from, as it is written.
#pragma once

#include <map>
#include <memory>

#include "verify/event_tape.h"
#include "verify/job_follower.h"

namespace brindle {

// Follows a run. Each record is judged as soon as its words are in the NC text. The text of a sub-program is kept and
// carried out at each of its calls; where sub-programs are written after a main program that calls them, its text is
// kept for them.
//
// A cut is right if it lies within the tolerance and one and a half steps of the coarser axis of what is drawn (for an
// arc above 270 degrees: three steps, and what its own radii differ by). What the tuning asks for by name is no loss:
// axis factors, offsets of tools, gaps below a tool's shortest lift, facets within their tolerance.
class CJobComparison final : public CRunLog, public CProgramTexts {
public:
    explicit CJobComparison(ComparisonOptions options = {}) : options_(std::move(options)) {}

    void RunStarts(RunContext& run) override;
    void RunEnds() override;
    void SegmentStarts() override;
    void ProgramStarts(int32_t variant) override;
    void ProgramEnds() override;
    void RecordStarts(int32_t program, int32_t index) override { To().RecordStarts(program, index); }
    void RecordEnds(bool words_pending) override { To().RecordEnds(words_pending); }
    void RecordDropped(DropReason reason) override { To().RecordDropped(reason); }
    void ArcAsLines(bool facets) override { To().ArcAsLines(facets); }
    void CallStarts(const CNCIncludeData& record, int32_t variant) override { To().CallStarts(record, variant); }
    void CallEnds() override { To().CallEnds(); }
    void ExpansionStarts(const CNCIncludeData& record) override { To().ExpansionStarts(record); }
    void ExpansionEnds() override { To().ExpansionEnds(); }
    void TemplateStarts(const CompiledTemplate& compiled, int32_t tool) override {
        To().TemplateStarts(compiled, tool);
    }
    void TemplateEnds() override { To().TemplateEnds(); }
    void TemplateLine(size_t line, std::string_view text) override { To().TemplateLine(line, text); }
    void Word(const LoggedWord& word) override { To().Word(word); }
    void Unresolved(std::string_view what) override { To().Unresolved(what); }
    void BlockWritten(std::string_view block, size_t trace_index) override { To().BlockWritten(block, trace_index); }

    void CommentWritten(std::string_view block) override { To().CommentWritten(block); }

    bool ReplayProgram(int32_t variant, CRunLog& log) const override;

    // After the run.
    const CLosses& losses() const { return losses_; }

private:
    CRunLog& To();
    void ReplayMain();

    ComparisonOptions options_;
    std::unique_ptr<CJobFollower> follower_;  // while a run goes on
    std::map<int32_t, CEventTape> texts_;     // by variant, -1 the main program
    CEventTape* taping_ = nullptr;
    bool has_subs_ = false;
    bool in_program_ = false;
    bool main_waits_ = false, main_is_due_ = false;
    CLosses losses_;
};

}  // namespace brindle
