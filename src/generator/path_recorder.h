// Takes the path of the tool down while a run goes on. Only a run whose path is wanted has a recorder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include "generator/run_context.h"
#include "generator/tool_path.h"

namespace brindle {

// A program is taken down once, in the coordinates of its own text, as the run writes it. In the end the main program
// is followed as a machine would follow it: each call shifts, turns and mirrors the text of its sub-program as far as
// the machine does that; what the run did itself is in the text.
class CPathRecorder {
public:
    explicit CPathRecorder(RunContext& run);
    CPathRecorder(const CPathRecorder&) = delete;
    CPathRecorder& operator=(const CPathRecorder&) = delete;

    // What comes now belongs to the text of that include variant, -1 for the main program. `start`: where the machine
    // is then, in the coordinates of the text.
    void StartProgram(int32_t variant, Point start);
    // The template of the current record comes now, as a piece of that kind; kRapid stands for a move to the record's
    // start, with the tool up or not.
    void BeginElement(PathKind kind);
    void EndElement();
    // The templates of a call come now, with its call point as the current record. A move in between is the call's.
    void BeginCall(const CNCIncludeData& record);
    void EndCall();
    // A block is about to become trace record `index`.
    void BlockWritten(size_t index);

    // The path of the whole run, taken out.
    ToolPath Finish();

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
    };
    class CWalk;

    void OpenNumber();
    void CloseNumber();
    void TakeCurrentRecord(Step& step, PathKind kind);
    int32_t TakeText(const CNCData& record);
    Point OffsetOf(const CNCData& record);
    Placing TurnOf(const CNCIncludeData& record) const;
    void TakeAxes();

    RunContext& run_;
    ToolPath path_;
    std::map<int32_t, Program> programs_;  // by include variant
    std::vector<Call> calls_;
    Program* program_ = nullptr;
    Step call_step_;  // while a call is open
    bool call_is_open_ = false;
    bool wrote_block_ = false;  // for the open number, which is the last one
    bool number_is_open_ = false;
    size_t pending_before_ = 0;       // characters held back when it was opened
    std::vector<int32_t> held_back_;  // numbers with words in the pending text
};

}  // namespace brindle
