// Follows the events of a run with a machine, and judges each record once its words are out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "generator/run_log.h"
#include "generator/template_use.h"
#include "verify/element.h"
#include "verify/losses.h"
#include "verify/machine.h"
#include "verify/tool_power.h"

namespace brindle {

// Where the texts of sub-programs are kept.
class CProgramTexts {
public:
    virtual ~CProgramTexts() = default;
    // Tells `log` the events of a variant's text; false if there is none.
    virtual bool ReplayProgram(int32_t variant, CRunLog& log) const = 0;
};

struct ComparisonOptions {
    double tolerance = 0.02;             // of what is cut against what is drawn, millimetres
    std::vector<int32_t> skipped_tools;  // tools whose records may be left out
};

class CJobFollower final : public CRunLog, private CMachineUser {
public:
    CJobFollower(RunContext& run, const CProgramTexts& texts, const ComparisonOptions& options);

    // Judges what is left after the last event.
    void Finish();
    CLosses& losses() { return losses_; }
    // Sub-programs follow the main program in the NC text.
    void MainRunsOn();
    // A file of its own begins, and programs are called from others.
    void SubsAreTorn();

    void RunStarts(RunContext&) override {}
    void RunEnds() override {}
    void SegmentStarts() override;
    void ProgramStarts(int32_t) override;
    void ProgramEnds() override { Settle(); }
    void RecordStarts(int32_t program, int32_t index) override;
    void RecordEnds(bool words_pending) override;
    void RecordDropped(DropReason reason) override;
    void ArcAsLines(bool facets) override { has_facets_ |= facets; }
    void CallStarts(const CNCIncludeData& record, int32_t variant) override;
    void CallEnds() override;
    void ExpansionStarts(const CNCIncludeData& record) override;
    void ExpansionEnds() override;
    void TemplateStarts(const CompiledTemplate& compiled, int32_t tool) override;
    void TemplateEnds() override;
    void TemplateLine(size_t line, std::string_view text) override;
    void Word(const LoggedWord& word) override;
    void Unresolved(std::string_view what) override;
    void BlockWritten(std::string_view block, size_t) override { CommentWritten(block); }
    void CommentWritten(std::string_view block) override;

private:
    // What is drawn and not yet judged.
    struct OpenElement {
        Curve curve;
        LossPlace place;
        int32_t tool;
        double tolerance;
        const CNCData* record;
        bool is_text = false;
        bool is_written = false;  // of a text
        std::optional<DropReason> dropped = {};
    };
    // What is cut and not yet judged.
    struct Cut {
        Curve curve;
        bool is_move;  // by a template of moves
        bool right_tool;
        double heading_before, heading_after;  // of a tangential tool, radians
        int32_t tool;                          // of the record
    };
    struct Call {
        const CNCIncludeData* record;
        int32_t variant;
        LossPlace place;
        bool has_mirror = false, has_rotation = false;  // a word of it was written
        bool is_carried_out = false;
        bool origin_unread = false;
    };
    struct ProgramSize {
        size_t records = 0;
        double length = 0.0;
    };

    void Moves(const Motion& motion) override;
    void Fails(NcFault fault, double amount, std::string_view text) override;
    void Turns(double turn, bool is_ambiguous) override;
    void SelectsTool(double t_word) override;
    void ChangesTool() override;
    void SwitchesSpindle(bool on) override { power_.SwitchSpindle(on); }
    void SwitchesOutput(bool on) override;
    void Ends() override;

    void TakeTemplateWords();
    void TakeTurnWord(const LoggedWord& word);
    void CarryOutCall();
    void JudgeLabels(int32_t variant, const std::string& called);
    Point OffsetOf(int32_t tool) const;
    PlaneTurn TurnOfCall() const;
    void LoseProgram(int32_t program, Rule rule, Cause cause);
    ProgramSize SizeOf(int32_t program);

    // Judges all that is open.
    void Settle();
    // Whether a tangential tool points along its cut, and turns with it.
    bool WritesAngles(int32_t tool);
    void JudgeHeading(const Cut& cut, const OpenElement& element);
    void LeaveOut(const OpenElement& element, bool needs_both);
    void JudgeLeftOut(const Cut* next);
    void JudgeText(const OpenElement& element);
    double ToleranceOf(const Curve& curve) const;
    double SagOf(const OpenElement& element) const;
    Cause CauseOf(const OpenElement& element, double off) const;
    void Lose(Rule rule, Cause cause, int32_t tool, const LossPlace& place, double amount, double length,
              std::string_view detail = {});
    LossPlace Here() const;
    int32_t CurrentTool() const;
    // Whether records of a tool are left out on purpose.
    bool IsSkipped(int32_t tool) const;
    PlaneTurn PlacingOf(const CNCIncludeData& record) const;

    RunContext& run_;
    const CProgramTexts& texts_;
    CMachine machine_;
    CToolPower power_;
    CLosses losses_;
    const ComparisonOptions& options_;
    double step_;  // of the coarser axis, millimetres in the plane of the drawing

    std::vector<PlaneTurn> placings_{PlaneTurn{}};  // of the calls that are under way, the innermost last
    std::vector<LossPlace> calls_under_way_;
    std::vector<int32_t> variants_under_way_;
    size_t expansions_ = 0;  // under way
    size_t replayed_ = 0;    // calls
    size_t moves_in_calls_ = 0;
    bool is_rotated_ = false, is_mirrored_ = false;  // by a word of a call that nothing has ended
    int unwritten_turns_ = 0;                        // calls under way whose rotation or mirror is in no word
    std::vector<RecordPlace> records_;               // under way, the innermost last

    std::vector<OpenElement> open_;
    std::vector<Cut> cuts_;
    std::optional<Cut> last_cut_;  // before them
    // Too short to be missed, if the next cut meets them.
    struct LeftOut {
        OpenElement element;
        Cause cause;
        bool may_meet;  // the next cut
    };
    std::vector<LeftOut> left_out_;

    // Of the present record.
    bool has_facets_ = false;
    bool left_out_repeat_ = false;
    bool no_code_ = false;    // the last interpolation code is empty
    bool wrote_cut_ = false;  // the template of a line, arc or text has written something
    bool ran_cut_ = false;    // it was executed
    bool after_long_arc_ = false;
    bool had_long_arc_ = false, left_out_step_ = false;  // in the present program
    bool calls_changed_tool_ = false;

    // Of the present template.
    TemplateUse use_ = TemplateUse::kFrame;
    const CompiledTemplate* compiled_ = nullptr;
    int32_t template_tool_ = -1;
    bool wrote_ = false;
    std::vector<LoggedWord> words_;
    std::deque<std::string> word_texts_;
    std::vector<TemplateUse> uses_;  // of templates by their number
    std::vector<bool> uses_known_;

    std::optional<Call> call_;
    std::unordered_map<int32_t, ProgramSize> sizes_;
    std::unordered_map<std::string, int32_t> variant_of_label_;
    std::unordered_map<int32_t, bool> writes_angles_;  // by tool
    bool is_blind_ = false;                            // after text that can't be read, nothing is judged
};

}  // namespace brindle
