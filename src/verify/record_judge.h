// Judges what is cut by the records that are drawn.
#pragma once

#include <optional>
#include <unordered_map>
#include <vector>

#include "generator/run_log.h"
#include "verify/element.h"
#include "verify/losses.h"
#include "verify/tool_power.h"

namespace brindle {

struct ComparisonOptions {
    double tolerance = 0.02;             // of what is cut against what is drawn, millimetres
    std::vector<int32_t> skipped_tools;  // tools whose records may be left out
};

// What is drawn and not yet judged.
struct DrawnRecord {
    Curve curve;
    LossPlace place;
    int32_t tool;
    const CNCData* record;
    bool is_text;
    double tolerance = 0.0;   // millimetres
    bool is_written = false;  // of a text
    std::optional<DropReason> dropped = {};
};

// What is cut and not yet judged.
struct MadeCut {
    Curve curve;
    int32_t tool;  // of the record
    LossPlace place;
    TemplatePlace from;
    bool is_move;  // by a template of moves
    bool right_tool;
    double heading_before, heading_after;  // of a tangential tool, radians
};

// How the present record goes out, from which the cause of a loss is told.
struct Circumstances {
    // Of the record.
    bool has_facets = false;
    bool left_out_repeat = false;     // of a centre word
    bool no_code = false;             // the last interpolation code is empty
    TemplatePlace cut_template = {};  // of lines, arcs or texts, the last one that was executed for the record
    bool wrote_cut = false;           // it has written something
    bool after_long_arc = false;
    // Of the program.
    bool had_long_arc = false, left_out_step = false;
    // Of the calls under way.
    bool in_sub = false, in_nested_expansion = false, has_unwritten_turn = false;
    bool has_callees_tool = false;  // a call has left another tool than its caller's
    // Of the machine.
    bool is_absolute = true, is_turned = false;
    double depth = 0.0;
};

class CRecordJudge {
public:
    CRecordJudge(RunContext& run, const CToolPower& power, const ComparisonOptions& options, CLosses& losses);

    void Open(DrawnRecord drawn);
    bool HasOpen() const { return !open_.empty(); }
    size_t OpenCount() const { return open_.size(); }
    // The last one that is open.
    DrawnRecord& Last() { return open_.back(); }
    const DrawnRecord& Last() const { return open_.back(); }
    // Takes the last one back: it may be left out.
    void Withdraw();
    void Add(const MadeCut& cut) { cuts_.push_back(cut); }

    // Judges all that is open; some short records only when the next cut is known.
    void Settle(const Circumstances& now);
    // Judges what waits for a next cut, which does not come.
    void Finish() { JudgeLeftOut(nullptr); }
    // Drops all that is open.
    void Forget();

    // How far a cut may lie from the curve, millimetres.
    double ToleranceOf(const Curve& curve) const;

private:
    // What is cut by none of the open records.
    struct Strays {
        std::vector<Curve> curves;
        double length = 0.0, off = 0.0;  // off: from the nearest record, at most
    };
    // Too short to be missed, if the next cut meets it.
    struct LeftOut {
        DrawnRecord drawn;
        Cause cause;
        TemplatePlace from;
        bool may_meet;  // the next cut
    };

    void JudgeCut(const MadeCut& cut, const Circumstances& now);
    bool IsDrawn(const MadeCut& cut, const Circumstances& now, double& off);
    void JudgeRecord(size_t index, const Circumstances& now);
    void JudgeText(const DrawnRecord& drawn, const Circumstances& now);
    void JudgeStrays(const Circumstances& now);
    double OffOf(size_t index) const;
    bool WritesAngles(int32_t tool);
    void JudgeHeading(const MadeCut& cut, const DrawnRecord& drawn, const Circumstances& now);
    void LeaveOut(const DrawnRecord& drawn, bool needs_both, const Circumstances& now);
    void JudgeLeftOut(const MadeCut* next);
    double SagOf(const DrawnRecord& drawn) const;
    TemplatePlace FromOf(Cause cause, const DrawnRecord& drawn, const Circumstances& now) const;
    Cause CauseOf(const DrawnRecord& drawn, double off, const Circumstances& now) const;

    RunContext& run_;
    const CToolPower& power_;
    const ComparisonOptions& options_;
    CLosses& losses_;
    double step_;  // of the coarser axis, millimetres in the plane of the drawing

    std::vector<DrawnRecord> open_;
    std::vector<CCoverage> coverage_;  // of each of them; kept from one judgement to the next
    std::vector<MadeCut> cuts_;
    Strays strays_;
    std::optional<MadeCut> last_cut_;  // before them
    std::vector<LeftOut> left_out_;
    std::unordered_map<int32_t, bool> writes_angles_;  // by tool
};

}  // namespace brindle
