// Follows the events of a run with a machine, and has each record judged once its words are out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "generator/run_log.h"
#include "verify/losses.h"
#include "verify/machine.h"
#include "verify/record_judge.h"
#include "verify/tool_power.h"

namespace brindle {

// Where the texts of sub-programs are kept.
class CProgramTexts {
public:
    virtual ~CProgramTexts() = default;
    // Tells `log` the events of a variant's text; false if there is none.
    virtual bool ReplayProgram(int32_t variant, CRunLog& log) const = 0;
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
    void ArcAsLines(bool facets) override { now_.has_facets |= facets; }
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
    void SwitchesOutput(int32_t number, bool on) override { power_.SwitchOutput(number, on); }
    void Calls(size_t times) override;
    void Ends() override;

    void TakeTemplateWords();
    void TakeTurnWord(const LoggedWord& word);
    void CarryOutCall();
    void JudgeLabels(int32_t variant, const std::string& called);
    Point OffsetOf(int32_t tool) const;
    double PrintedRotation() const;
    PlaneTurn TurnOfCall() const;
    void LoseProgram(int32_t program, Rule rule, Cause cause);
    ProgramSize SizeOf(int32_t program);

    // Has all judged that is open.
    void Settle();
    // Adds a loss of the present record.
    void Lose(Rule rule, Cause cause, int32_t tool, double amount = 0.0, double length = 0.0,
              std::string_view detail = {});
    LossPlace Here() const;
    const EventInfo* PresentEvent() const { return at_.compiled != nullptr ? at_.compiled->event : nullptr; }
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
    CRecordJudge judge_;
    Circumstances now_;

    std::vector<PlaneTurn> placings_{PlaneTurn{}};  // of the calls that are under way, the innermost last
    std::vector<LossPlace> calls_under_way_;
    std::vector<int32_t> variants_under_way_;
    size_t expansions_ = 0;  // under way
    size_t replayed_ = 0;    // calls
    size_t moves_in_calls_ = 0;
    bool is_rotated_ = false, is_mirrored_ = false;  // by a word of a call that nothing has ended
    int unwritten_turns_ = 0;                        // calls under way whose rotation or mirror is in no word
    std::vector<RecordPlace> records_;               // under way, the innermost last

    // Of the present template.
    TemplatePlace at_;
    int32_t template_tool_ = -1;
    bool wrote_ = false;
    std::vector<LoggedWord> words_;
    std::deque<std::string> word_texts_;

    std::optional<Call> call_;
    std::unordered_map<int32_t, ProgramSize> sizes_;
    std::unordered_map<std::string, int32_t> variant_of_label_;
    bool is_blind_ = false;  // after text that can't be read, nothing is judged
};

}  // namespace brindle
