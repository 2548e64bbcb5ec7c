// The path of the tool, from what a run writes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include "generator/run_context.h"
#include "generator/run_log.h"
#include "generator/tool_path.h"

namespace brindle {

// A program is taken down once, in the coordinates of its own text, as the run writes it. In the end the main program
// is followed as a machine would follow it: each call shifts, turns and mirrors the text of its sub-program as far as
// the machine does that; what the run did itself is in the text. What no template writes is no part of the path.
class CPathRecorder final : public CRunLog {
public:
    // The path of the run that has ended, taken out.
    ToolPath TakePath() { return std::move(path_); }

    void RunStarts(RunContext& run) override;
    void RunEnds() override;
    void SegmentStarts() override {}
    void ProgramStarts(int32_t variant) override;
    void ProgramEnds() override {}
    void RecordStarts(int32_t, int32_t) override {}
    void RecordEnds(bool) override {}
    void RecordDropped(DropReason) override {}
    void ArcAsLines(bool) override {}
    void CallStarts(const CNCIncludeData& record, int32_t variant) override;
    void CallEnds() override;
    void ExpansionStarts(const CNCIncludeData&) override {}
    void ExpansionEnds() override {}
    void TemplateStarts(const CompiledTemplate& compiled, int32_t tool) override;
    void TemplateEnds() override;
    void TemplateLine(size_t, std::string_view text) override { wrote_ = wrote_ || SaysSomething(text); }
    void Word(const LoggedWord&) override {}
    void Unresolved(std::string_view) override {}
    void BlockWritten(std::string_view block, size_t trace_index) override;
    void CommentWritten(std::string_view) override {}

private:
    struct Step {
        PathElement piece;
        Point offset;          // of the tool from the axes' position
        bool is_move = false;  // goes from where the tool is
        int32_t call = -1;     // index into calls_; then the piece is the way to the call point
    };
    struct Program {
        Point start;
        std::vector<Step> steps;
    };
    // From the coordinates of a text to those of the machine.
    struct Placing {
        double xx = 1.0, xy = 0.0, yx = 0.0, yy = 1.0;
        Point shift;

        Point operator()(Point p) const { return {xx * p.x + xy * p.y + shift.x, yx * p.x + yy * p.y + shift.y}; }
        bool mirrors() const { return xx * yy - xy * yx < 0.0; }
    };
    // A call as the machine carries it out.
    struct Call {
        int32_t variant;
        Placing turn;             // without the shift
        Point at;                 // what comes to lie here, in the coordinates of the caller's text:
        bool start_is_at = true;  // where the machine is at the start of the sub-program, otherwise its origin
        bool has_move = false;    // of its own, to the call point
        bool is_written = false;  // by the template of calls
    };
    class CWalk;

    void BeginElement(PathKind kind);
    void EndElement();
    void OpenNumber();
    void CloseNumber();
    void TakeCurrentRecord(Step& step, PathKind kind);
    int32_t TakeText(const CNCData& record);
    Point OffsetOf(const CNCData& record);
    Placing TurnOf(const CNCIncludeData& record) const;
    void TakeAxes();

    RunContext* run_ = nullptr;  // while a run goes on
    ToolPath path_;
    std::map<int32_t, Program> programs_;  // by include variant
    std::vector<Call> calls_;
    Program* program_ = nullptr;
    const CompiledTemplate* template_ = nullptr;
    bool in_element_ = false;  // within the template of one
    bool wrote_ = false;       // the present template has written something
    Step call_step_;           // while a call is open
    bool call_is_open_ = false;
    bool wrote_block_ = false;  // for the open number, which is the last one
    bool number_is_open_ = false;
    size_t pending_before_ = 0;       // characters held back when it was opened
    std::vector<int32_t> held_back_;  // numbers with words in the pending text
};

}  // namespace brindle
