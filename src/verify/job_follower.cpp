#include "verify/job_follower.h"

#include <algorithm>
#include <cmath>

namespace brindle {
namespace {

constexpr size_t kMostReplayed = 200000;  // calls that are followed
constexpr double kNoLength = 1e-9;        // millimetres
constexpr double kNoRotation = 1e-6;      // radians
constexpr double kLooseDegrees = 1.0;     // of a tangential tool
constexpr size_t kMostMoves = 10000000;   // within them
constexpr size_t kMostOpen = 1000;        // records that wait for their block

bool IsCut(TemplateUse use) {
    return use == TemplateUse::kLine || use == TemplateUse::kArc || use == TemplateUse::kText;
}

Cause CauseOf(DropReason reason) {
    switch (reason) {
        case DropReason::kToolOutOfRange: return Cause::kToolOutOfRange;
        case DropReason::kNoTool: return Cause::kNoTool;
        case DropReason::kTextInIncremental: return Cause::kTextInIncremental;
        case DropReason::kTextNotSupported: return Cause::kTextNotSupported;
        case DropReason::kEmptyCall: return Cause::kEmptyCall;
        case DropReason::kUnknownProgram: return Cause::kUnknownProgram;
        case DropReason::kCallsItself: return Cause::kCallsItself;
        case DropReason::kCallsTooDeep: return Cause::kCallsTooDeep;
        case DropReason::kTooManyCalls: return Cause::kTooManyCalls;
    }
    return Cause::kUnknown;
}

Rule RuleOf(NcFault fault) {
    switch (fault) {
        case NcFault::kNoMotionCode: return Rule::kNoMotionCode;
        case NcFault::kRepeatedWord: return Rule::kRepeatedWord;
        case NcFault::kNoCentre: return Rule::kNoArcCentre;
        case NcFault::kHalfCentre: return Rule::kHalfCentre;
        case NcFault::kRadiusTooSmall: return Rule::kRadiusTooSmall;
        case NcFault::kCircleByRadius: return Rule::kCircleByRadius;
        case NcFault::kZeroRadius: return Rule::kZeroRadiusArc;
        case NcFault::kUnequalRadii: return Rule::kUnequalRadii;
        case NcFault::kUnlikeRadii: return Rule::kUnlikeRadii;
        case NcFault::kNoFeed: return Rule::kNoFeed;
        case NcFault::kAssumedCentres: return Rule::kAssumedCentres;
        case NcFault::kNoSubStart: return Rule::kNoSubStart;
        case NcFault::kUnknownLabel: return Rule::kUnknownLabel;
        case NcFault::kOtherLabel: return Rule::kOtherLabel;
        case NcFault::kRepeatedLabel: return Rule::kRepeatedLabel;
        case NcFault::kNoSubEnd: return Rule::kNoSubEnd;
        case NcFault::kNoEnd: return Rule::kNoEnd;
        case NcFault::kUnusedWord: return Rule::kUnusedWord;
        case NcFault::kBadComment: return Rule::kBadComment;
        case NcFault::kUnknownCode: return Rule::kUnknownCode;
        case NcFault::kNoUnitCode: return Rule::kNoUnitCode;
        case NcFault::kUnread: break;
    }
    return Rule::kUnreadText;
}

Curve Shifted(Curve curve, Point by) {
    for (Point* p : {&curve.start, &curve.end, &curve.center}) *p = {p->x + by.x, p->y + by.y};
    return curve;
}

double SmallestOf(const std::vector<Curve>& curves, Point p) {
    double smallest = HUGE_VAL;
    for (const Curve& curve : curves) smallest = std::min(smallest, NearnessOf(curve, p).distance);
    return smallest;
}

double StepInPlane(const RunContext& run) {
    const CTrans plane = run.PlaneTransform();
    const double factors[] = {plane.scale * plane.axis1_factor, plane.scale * plane.axis2_factor};
    double step = 0.0;
    for (int axis = 0; axis < 2; ++axis) {
        const double factor = std::fabs(factors[axis]);
        if (factor > 0.0) step = std::max(step, run.AxisUnit().step[axis] / factor);
    }
    return step;
}

}  // namespace

CJobFollower::CJobFollower(RunContext& run, const CProgramTexts& texts, const ComparisonOptions& options)
    : run_(run),
      texts_(texts),
      machine_(run, *this),
      power_(run, machine_.ReadsText()),
      options_(options),
      step_(StepInPlane(run)) {}

// ---- Records ----

void CJobFollower::ProgramStarts(int32_t) { had_long_arc_ = left_out_step_ = false; }

void CJobFollower::RecordStarts(int32_t program, int32_t index) {
    if (open_.empty()) Settle();
    records_.push_back({program, index});
    has_facets_ = left_out_repeat_ = wrote_cut_ = ran_cut_ = false;
    const CNCData& record = *run_.geometry.GetRecord(program, index);
    if (record.IsInclude()) return;
    OpenElement element{CurveOf(record, placings_.back()), Here(), record.GetToolId(), 0.0, &record};
    element.is_text = record.IsText();
    element.tolerance = ToleranceOf(element.curve);
    ++losses_.sums.drawn;
    if (!element.is_text) losses_.sums.drawn_mm += element.curve.Length();
    open_.push_back(element);
}

void CJobFollower::MainRunsOn() {
    machine_.FinishLine();
    if (machine_.ReadsText() && !machine_.HasEnded()) Fails(NcFault::kNoEnd, 0.0, {});
}

void CJobFollower::RecordEnds(bool words_pending) {
    const bool is_element = !run_.geometry.GetRecord(records_.back().program, records_.back().index)->IsInclude();
    const double sweep = is_element && !open_.empty() ? std::fabs(open_.back().curve.sweep) : 0.0;
    const bool waits = (words_pending || machine_.HasUnfinishedLine()) && open_.size() < kMostOpen;
    if (!waits) Settle();
    records_.pop_back();
    if (is_element) after_long_arc_ = sweep > kLongArcDegrees * kRadiansPerDegree;
    had_long_arc_ |= after_long_arc_;
}

void CJobFollower::RecordDropped(DropReason reason) {
    const RecordPlace at = records_.back();
    const CNCData& record = *run_.geometry.GetRecord(at.program, at.index);
    if (record.IsInclude()) {
        return LoseProgram(run_.geometry.FindProgram(record.GetIncludeName()), Rule::kNotCut, brindle::CauseOf(reason));
    }
    if (open_.empty() || open_.back().record != &record) return;  // said of each facet
    open_.back().dropped = reason;
    const bool lacks_tool = reason == DropReason::kNoTool || reason == DropReason::kToolOutOfRange;
    if (!lacks_tool || !IsSkipped(record.GetToolId())) return;
    --losses_.sums.drawn;
    losses_.sums.drawn_mm -= open_.back().curve.Length();
    open_.pop_back();
}

bool CJobFollower::IsSkipped(int32_t tool) const {
    const auto& skipped = options_.skipped_tools;
    if (std::find(skipped.begin(), skipped.end(), tool) != skipped.end()) return true;
    return run_.tuning.ReadBool(Key("bToolUnused"), "T" + std::to_string(tool) + "_");
}

void CJobFollower::SegmentStarts() {
    Settle();
    machine_.FinishLine();
    machine_.StartFile();
}

void CJobFollower::SubsAreTorn() { Lose(Rule::kTornSubs, Cause::kUnknown, 0, Here(), 0.0, 0.0); }

// ---- Calls ----

PlaneTurn CJobFollower::PlacingOf(const CNCIncludeData& record) const {
    const double angle = record.GetIncludeRotation();
    const double sx = record.GetIncludeMirrorX() ? -1.0 : 1.0;
    const double sy = record.GetIncludeMirrorY() ? -1.0 : 1.0;
    const PlaneTurn own{sx * std::cos(angle), -sx * std::sin(angle), sy * std::sin(angle), sy * std::cos(angle), {}};
    PlaneTurn placing = placings_.back().After(own);
    placing.shift = placings_.back()(record.Start());
    return placing;
}

void CJobFollower::ExpansionStarts(const CNCIncludeData& record) {
    Settle();
    calls_under_way_.push_back(Here());
    placings_.push_back(PlacingOf(record));
    ++expansions_;
}

void CJobFollower::ExpansionEnds() {
    Settle();
    placings_.pop_back();
    calls_under_way_.pop_back();
    --expansions_;
}

void CJobFollower::CallStarts(const CNCIncludeData& record, int32_t variant) {
    Settle();
    call_ = Call{&record, variant, Here()};
}

void CJobFollower::CallEnds() {
    Settle();
    if (call_ && !call_->is_carried_out) {
        LoseProgram(run_.geometry.FindProgram(call_->record->GetIncludeName()), Rule::kNotCut, Cause::kNoCall);
    }
    call_.reset();
}

// What the machine turns by itself; the rest is in the coordinates of the sub-program's text.
PlaneTurn CJobFollower::TurnOfCall() const {
    const ProgramOptions& programs = run_.options.programs;
    CTrans trans;
    if (programs.rotations_in_use && call_->has_rotation) trans.rotation = call_->record->GetIncludeRotation();
    if (programs.mirror_in_use && call_->has_mirror) {
        trans.mirror_x = call_->record->GetIncludeMirrorX();
        trans.mirror_y = call_->record->GetIncludeMirrorY();
    }
    const Point x = trans.Mirror(trans.Rotate({1.0, 0.0}));
    const Point y = trans.Mirror(trans.Rotate({0.0, 1.0}));
    return {x.x, y.x, x.y, y.y, {}};
}

void CJobFollower::CarryOutCall() {
    machine_.FinishLine();
    Settle();
    Call call = *call_;
    call_->is_carried_out = true;
    if (call.origin_unread) {
        LoseProgram(run_.geometry.FindProgram(call.record->GetIncludeName()), Rule::kUnreadText, Cause::kUnreadOrigin);
        losses_.sums.is_whole = false;
        return;
    }
    const bool is_active =
        std::find(variants_under_way_.begin(), variants_under_way_.end(), call.variant) != variants_under_way_.end();
    if (is_active || variants_under_way_.size() > kDeepestCall || ++replayed_ > kMostReplayed ||
        moves_in_calls_ > kMostMoves) {
        losses_.sums.is_whole = false;
        return;
    }
    const bool is_text = machine_.ReadsText();
    if (is_text && compiled_->terminate && !machine_.HasCalled()) {
        return LoseProgram(run_.geometry.FindProgram(call.record->GetIncludeName()), Rule::kNotCut, Cause::kNoCall);
    }
    const ProgramOptions& programs = run_.options.programs;
    const bool around_origin = programs.subs_absolute && !run_.options.axes.start_end_on_block;
    const PlaneTurn before = machine_.Turn(TurnOfCall(), around_origin);
    const bool turns = programs.rotations_in_use && std::fabs(call.record->GetIncludeRotation()) > kNoRotation;
    const bool mirrors =
        programs.mirror_in_use && (call.record->GetIncludeMirrorX() || call.record->GetIncludeMirrorY());
    const bool is_unwritten = (turns && !call.has_rotation) || (mirrors && !call.has_mirror);
    unwritten_turns_ += is_unwritten ? 1 : 0;
    const int32_t tool = template_tool_;
    const bool held_tool = power_.Holds(tool);
    const bool had_long_arc = had_long_arc_;
    const bool left_out_step = left_out_step_;
    const std::string called = machine_.CalledLabel();
    CMachine::ProgramMarks caller = machine_.BeginProgram();
    calls_under_way_.push_back(call.place);
    placings_.push_back(PlacingOf(*call.record));
    variants_under_way_.push_back(call.variant);
    call_.reset();
    if (!texts_.ReplayProgram(call.variant, *this)) {
        LoseProgram(run_.geometry.FindProgram(call.record->GetIncludeName()), Rule::kNotCut, Cause::kNoCall);
    }
    machine_.FinishLine();
    Settle();
    if (is_text) JudgeLabels(call.variant, called);
    machine_.GoOnWith(std::move(caller));
    variants_under_way_.pop_back();
    placings_.pop_back();
    calls_under_way_.pop_back();
    machine_.TurnBack(before);
    unwritten_turns_ -= is_unwritten ? 1 : 0;
    calls_changed_tool_ |= held_tool && !power_.Holds(tool);
    had_long_arc_ = had_long_arc;
    left_out_step_ = left_out_step;
    call.is_carried_out = true;
    call_ = call;
}

// Whether the call is of the label with which the sub-program begins.
void CJobFollower::JudgeLabels(int32_t variant, const std::string& called) {
    const std::string& begun = machine_.Marks().label;
    if (!called.empty() && begun != called) {
        // A number may also be that of a block.
        const bool by_block = run_.options.programs.sub_numbers_by_block;
        if (!by_block) Fails(begun.empty() ? NcFault::kUnknownLabel : NcFault::kOtherLabel, 0.0, called);
    }
    if (!begun.empty() && !machine_.Marks().has_returned) Fails(NcFault::kNoSubEnd, 0.0, begun);
    if (begun.empty()) return;
    const auto [at, is_new] = variant_of_label_.try_emplace(begun, variant);
    if (!is_new && at->second != variant) Fails(NcFault::kRepeatedLabel, 0.0, begun);
}

CJobFollower::ProgramSize CJobFollower::SizeOf(int32_t program) {
    if (program < 0) return {};
    const auto [at, is_new] = sizes_.try_emplace(program);
    if (!is_new) return at->second;
    ProgramSize size;
    for (int32_t i = 0; i < run_.geometry.GetRecordCount(program); ++i) {
        const CNCData& record = *run_.geometry.GetRecord(program, i);
        if (record.IsInclude()) {
            const ProgramSize inner = SizeOf(run_.geometry.FindProgram(record.GetIncludeName()));
            size.records += inner.records;
            size.length += inner.length;
        } else {
            ++size.records;
            if (!record.IsText()) size.length += CurveOf(record, {}).Length();
        }
    }
    return sizes_[program] = size;
}

void CJobFollower::LoseProgram(int32_t program, Rule rule, Cause cause) {
    const ProgramSize size = SizeOf(program);
    if (cause != Cause::kUnknownProgram && size.records == 0) return;
    losses_.sums.drawn += size.records;
    losses_.sums.drawn_mm += size.length;
    Lose(rule, cause, 0, Here(), size.length, size.length);
    if (InfoOf(rule).severity != Severity::kLoss) return;
    losses_.sums.lost += size.records;
    losses_.sums.lost_mm += size.length;
}

// ---- Templates ----

void CJobFollower::TemplateStarts(const CompiledTemplate& compiled, int32_t tool) {
    if (compiled.number >= uses_.size()) {
        uses_.resize(compiled.number + 1);
        uses_known_.resize(compiled.number + 1);
    }
    if (!uses_known_[compiled.number]) {
        uses_[compiled.number] = UseOf(compiled);
        uses_known_[compiled.number] = true;
    }
    use_ = uses_[compiled.number];
    compiled_ = &compiled;
    template_tool_ = tool;
    wrote_ = false;
    words_.clear();
    word_texts_.clear();
    ran_cut_ |= IsCut(use_);
    if (use_ == TemplateUse::kOriginSet) machine_.ForgetMovedOrigin();
    if (use_ == TemplateUse::kCall) machine_.ForgetCall();
}

void CJobFollower::TemplateLine(size_t, std::string_view text) { wrote_ = wrote_ || SaysSomething(text); }

void CJobFollower::Word(const LoggedWord& word) {
    if (word.fate == WordFate::kRepeat && word.kind == WordKind::kCentre) left_out_repeat_ = true;
    if (word.fate == WordFate::kNoDistance && word.kind == WordKind::kAxis) {
        left_out_step_ |= word.text.find_first_of("123456789") != std::string_view::npos;
    }
    if (word.kind == WordKind::kInterpolation && word.fate != WordFate::kRepeat) no_code_ = !SaysSomething(word.text);
    if (call_ && word.fate == WordFate::kWritten) {
        const bool says_something = SaysSomething(word.text);
        call_->has_mirror |= word.kind == WordKind::kCallMirror && says_something;
        call_->has_rotation |= word.kind == WordKind::kCallRotation && says_something;
    }
    TakeTurnWord(word);
    if (machine_.ReadsText() && use_ != TemplateUse::kOriginSet) return;
    words_.push_back(word);
    words_.back().text = word_texts_.emplace_back(word.text);
}

// A rotation or mirror of a call holds until a word ends it.
void CJobFollower::TakeTurnWord(const LoggedWord& word) {
    if (word.fate != WordFate::kWritten || !SaysSomething(word.text)) return;
    if (word.kind == WordKind::kCallRotation) {
        is_rotated_ = !word.resets && call_ && std::fabs(call_->record->GetIncludeRotation()) > kNoRotation;
    }
    if (word.kind == WordKind::kCallMirror) {
        is_mirrored_ =
            !word.resets && call_ && (call_->record->GetIncludeMirrorX() || call_->record->GetIncludeMirrorY());
    }
}

void CJobFollower::TemplateEnds() {
    if (!machine_.ReadsText()) TakeTemplateWords();
    if (!wrote_) return;
    wrote_cut_ |= IsCut(use_);
    switch (use_) {
        case TemplateUse::kText:
            if (!open_.empty()) open_.back().is_written = true;
            break;
        case TemplateUse::kToolSelect: {
            const bool was_on = !power_.ByTWords() && power_.IsAnyOn(machine_.Depth());
            if (was_on) Lose(Rule::kPowerChange, Cause::kUnknown, template_tool_, Here(), 0.0, 0.0);
            power_.Wrote(use_, *compiled_, template_tool_, machine_.Depth());
            break;
        }
        case TemplateUse::kToolOn:
        case TemplateUse::kToolOff: power_.Wrote(use_, *compiled_, template_tool_, machine_.Depth()); break;
        case TemplateUse::kOriginSet:
            if (call_ && machine_.ReadsText() && !machine_.MovedOrigin()) call_->origin_unread = true;
            break;
        case TemplateUse::kCall:
            if (call_) CarryOutCall();
            break;
        default: break;
    }
}

void CJobFollower::TakeTemplateWords() {
    const bool is_on = power_.IsAnyOn(machine_.Depth());
    switch (use_) {
        case TemplateUse::kMove:
        case TemplateUse::kMoveToCall:
            return machine_.TakeWords(words_, is_on ? MotionCode::kLinear : MotionCode::kRapid);
        case TemplateUse::kText: return machine_.TakeWords(words_, MotionCode::kRapid);
        case TemplateUse::kLine: return machine_.TakeWords(words_, MotionCode::kLinear);
        case TemplateUse::kArc: {
            const bool clockwise = !open_.empty() && open_.back().curve.sweep < 0.0;
            return machine_.TakeWords(words_, clockwise ? MotionCode::kClockwise : MotionCode::kCounterClockwise);
        }
        case TemplateUse::kOriginSet:
        case TemplateUse::kOriginReset: return machine_.SetOrigin(words_);
        default: return;
    }
}

void CJobFollower::Unresolved(std::string_view what) {
    Lose(Rule::kUnresolvedValue, Cause::kUnknown, 0, Here(), 0.0, 0.0, what);
}

void CJobFollower::CommentWritten(std::string_view block) {
    if (machine_.ReadsText()) machine_.TakeText(block);
}

// ---- What the machine does ----

int32_t CJobFollower::CurrentTool() const {
    if (records_.empty()) return template_tool_;
    const CNCData& record = *run_.geometry.GetRecord(records_.back().program, records_.back().index);
    return record.IsInclude() ? template_tool_ : record.GetToolId();
}

// What the software takes off the words of a tool that is beside the axes' position.
Point CJobFollower::OffsetOf(int32_t tool) const { return tool > 0 ? run_.tools.Get(tool).physical->offset : Point{}; }

void CJobFollower::Moves(const Motion& motion) {
    if (!variants_under_way_.empty()) ++moves_in_calls_;
    if (is_blind_ || machine_.HasEnded() || !power_.IsAnyOn(machine_.Depth())) return;
    Cut cut{Shifted(CurveOf(motion), OffsetOf(CurrentTool())),
            use_ == TemplateUse::kMove || use_ == TemplateUse::kMoveToCall,
            true,
            motion.heading_before,
            motion.heading_after,
            CurrentTool()};
    if (motion.code == MotionCode::kRapid) {
        const double length = cut.curve.Length();
        if (length <= ToleranceOf(cut.curve)) return;
        const Cause cause = no_code_                  ? Cause::kNoLineCode
                            : power_.HasOff(cut.tool) ? Cause::kUnknown
                                                      : Cause::kNoToolOff;
        Lose(Rule::kRapidWhileOn, cause, cut.tool, Here(), length, length);
        if (!IsCut(use_)) return;  // where a cut should be, no more is said of it
    }
    if (cut.curve.Length() < kNoLength) return;
    if (variants_under_way_.empty() && (is_rotated_ || is_mirrored_)) {
        Lose(Rule::kTurnedAfterCall, Cause::kUnknown, cut.tool, Here(), 0.0, 0.0);
    }
    cut.right_tool = power_.IsOn(cut.tool, machine_.Depth()) && power_.Holds(cut.tool);
    cuts_.push_back(cut);
}

void CJobFollower::Fails(NcFault fault, double amount, std::string_view text) {
    if (is_blind_) return;
    // Texts may hold anything, and the templates of a call are trusted to make it.
    if (use_ == TemplateUse::kText) return;
    if (call_ && (fault == NcFault::kUnread || fault == NcFault::kUnknownCode)) return;
    const Cause cause = fault == NcFault::kNoCentre && left_out_repeat_ ? Cause::kCentreRepeat : Cause::kUnknown;
    Lose(RuleOf(fault), cause, CurrentTool(), Here(), amount, 0.0, text);
    if (fault != NcFault::kUnread) return;
    is_blind_ = true;
    losses_.sums.is_whole = false;
}

void CJobFollower::Turns(double turn, bool is_ambiguous) {
    if (is_blind_ || !power_.IsAnyOn(machine_.Depth())) return;
    const ToolData& tool = *run_.tools.Get(CurrentTool()).physical;
    const double degrees = std::fabs(turn) / kRadiansPerDegree;
    if (!tool.tangential) return;
    if (degrees > tool.lift_angle + kLooseDegrees) {
        Lose(Rule::kTurnInMaterial, Cause::kUnknown, CurrentTool(), Here(), degrees, 0.0);
    } else if (is_ambiguous) {
        Lose(Rule::kTurnPastZero, Cause::kUnknown, CurrentTool(), Here(), 0.0, 0.0);
    }
}

void CJobFollower::SelectsTool(double t_word) {
    power_.TakeTWord(t_word, template_tool_);
    if (!power_.WritesM6() && power_.IsAnyOn(machine_.Depth())) {
        Lose(Rule::kPowerChange, Cause::kUnknown, template_tool_, Here(), 0.0, 0.0);
    }
}

void CJobFollower::ChangesTool() {
    if (power_.IsAnyOn(machine_.Depth())) {
        const Cause cause = power_.HasOff(template_tool_) ? Cause::kUnknown : Cause::kNoToolOff;
        Lose(Rule::kChangedWhileOn, cause, template_tool_, Here(), 0.0, 0.0);
    }
    power_.ChangeTool();
}

void CJobFollower::SwitchesOutput(bool on) { power_.SwitchOutput(on); }

void CJobFollower::Ends() {
    if (power_.IsAnyOn(machine_.Depth()) && !is_blind_) Lose(Rule::kEndWhileOn, Cause::kNoToolOff, 0, Here(), 0.0, 0.0);
    power_.SwitchAllOff();
}

void CJobFollower::Finish() {
    machine_.FinishLine();
    Settle();
    JudgeLeftOut(nullptr);
    Ends();
    if (!losses_.sums.is_whole) Lose(Rule::kNotJudged, Cause::kUnknown, 0, Here(), 0.0, 0.0);
}

// ---- Judgement ----

double CJobFollower::ToleranceOf(const Curve& curve) const {
    const bool is_long = curve.IsArc() && std::fabs(curve.sweep) > kLongArcDegrees * kRadiansPerDegree;
    return options_.tolerance + (is_long ? 3.0 * step_ + curve.inexact : 1.5 * step_);
}

// What facets may be off their arc.
double CJobFollower::SagOf(const OpenElement& element) const {
    double sag = 2.0 * std::max(0.001, run_.options.arcs.facet_tolerance);
    const ToolData& tool = *run_.tools.Get(element.tool).physical;
    if (tool.facets_small_arcs && tool.small_arc_angle && element.curve.radius <= tool.small_arc_radius + step_) {
        const double angle = std::min(*tool.small_arc_angle * kRadiansPerDegree, std::fabs(element.curve.sweep) / 2.0);
        sag = std::max(sag, element.curve.radius * (1.0 - std::cos(angle / 2.0)));
    }
    return sag;
}

void CJobFollower::Settle() {
    if (open_.empty() && cuts_.empty()) return;
    if (is_blind_) {
        open_.clear();
        cuts_.clear();
        return;
    }
    std::vector<CCoverage> coverage;
    for (const OpenElement& element : open_) coverage.emplace_back(element.curve);
    std::vector<Curve> strays;
    double stray_length = 0.0;
    double stray_off = 0.0;
    if (!cuts_.empty()) JudgeLeftOut(&cuts_.front());
    for (const Cut& cut : cuts_) {
        losses_.sums.cut_mm += cut.curve.Length();
        double off = HUGE_VAL;
        bool is_drawn = false;
        for (size_t i = 0; i < open_.size() && !is_drawn; ++i) {
            const OpenElement& element = open_[i];
            if (element.is_text) continue;
            const bool is_facet = element.curve.IsArc() && !cut.curve.IsArc();
            const double deviation = DeviationFrom(element.curve, cut.curve);
            is_drawn = deviation <= element.tolerance + (is_facet ? SagOf(element) : 0.0);
            off = std::min(off, deviation);
            if (!is_drawn) continue;
            coverage[i].Add(cut.curve);
            JudgeHeading(cut, element);
            if (!cut.right_tool && cut.curve.Length() > element.tolerance) {
                const Cause cause = calls_changed_tool_ ? Cause::kCalleesTool : Cause::kNoSelection;
                Lose(Rule::kOtherTool, cause, element.tool, element.place, 0.0, cut.curve.Length());
            }
        }
        if (is_drawn) continue;
        const double length = cut.curve.Length();
        const double allowed = run_.tools.Get(cut.tool).physical->shortest_lift + ToleranceOf(cut.curve);
        if (length <= ToleranceOf(cut.curve) || (cut.is_move && length <= allowed)) continue;
        strays.push_back(cut.curve);
        stray_length += length;
        stray_off = std::max(stray_off, std::isfinite(off) ? off : length);
    }
    for (size_t i = 0; i < open_.size(); ++i) {
        OpenElement& element = open_[i];
        if (element.is_text) {
            JudgeText(element);
            continue;
        }
        const double length = element.curve.Length();
        double off = 0.0;
        const double allowed = element.tolerance + (has_facets_ ? SagOf(element) : 0.0);
        if (!coverage[i].IsEmpty()) {
            off = coverage[i].LargestGap();
            const double twice = coverage[i].CutTwice(2.0 * allowed);
            if (twice > 2.0 * allowed) Lose(Rule::kCutTwice, Cause::kUnknown, element.tool, element.place, 0.0, twice);
        } else {
            for (int k = 0; k <= 8; ++k) {
                const Point p = element.curve.At(k / 8.0);
                off = std::max(off, strays.empty() ? Distance(p, element.curve.start) : SmallestOf(strays, p));
            }
        }
        const bool is_missing = coverage[i].IsEmpty() && strays.empty();
        if (is_missing && off <= 2.0 * allowed && length > kNoLength && !element.dropped) {
            LeaveOut(element, off > allowed);
            continue;
        }
        if (off <= allowed) continue;
        const bool elsewhere = !strays.empty();
        const Rule rule = elsewhere ? Rule::kCutElsewhere : Rule::kNotCut;
        if (elsewhere) off = std::max(off, stray_off);
        Lose(rule, CauseOf(element, off), element.tool, element.place, elsewhere ? off : length, length);
        ++losses_.sums.lost;
        losses_.sums.lost_mm += length;
        strays.clear();
        stray_length = 0.0;
    }
    if (!strays.empty() && stray_length > 0.0) {
        const int32_t tool = cuts_.front().tool;
        const Cause cause = tool > 0 && !power_.HasOff(tool) ? Cause::kNoToolOff
                            : open_.empty()                  ? Cause::kUnknown
                                                             : CauseOf(open_.front(), stray_off);
        Lose(Rule::kStrayCut, cause, tool, open_.empty() ? Here() : open_.front().place, stray_off, stray_length);
    }
    if (!cuts_.empty()) last_cut_ = cuts_.back();
    open_.clear();
    cuts_.clear();
}

// A machine that is told no angles may turn its tool by itself.
bool CJobFollower::WritesAngles(int32_t tool) {
    const auto [at, is_new] = writes_angles_.try_emplace(tool, false);
    if (!is_new) return at->second;
    const Tool& data = run_.tools.Get(tool);
    for (const CompiledTemplate* compiled : {&run_.move, &run_.line, &run_.arc, &data.own->select, &data.own->on,
                                             &data.physical->select, &data.physical->on}) {
        at->second |= HasDirective(*compiled, DirectiveId::kAtAngle) || HasDirective(*compiled, DirectiveId::kFinAngle);
    }
    return at->second;
}

void CJobFollower::JudgeHeading(const Cut& cut, const OpenElement& element) {
    const ToolData& tool = *run_.tools.Get(element.tool).physical;
    if (!tool.tangential || !WritesAngles(element.tool) || machine_.IsTurned()) return;
    const Curve& curve = cut.curve;
    const double size = curve.IsArc() ? std::min(curve.radius, curve.Length()) : curve.Length();
    if (size <= 20.0 * step_) return;  // its direction is that of its rounding
    const double loose = (tool.lift_angle + kLooseDegrees) * kRadiansPerDegree + 3.0 * step_ / size;
    const double round = tool.symmetric ? kHalfTurn : kFullTurn;
    const double off = std::max(std::fabs(std::remainder(cut.heading_before - curve.DirectionAt(0.0), round)),
                                std::fabs(std::remainder(cut.heading_after - curve.DirectionAt(1.0), round)));
    const double turn = cut.heading_after - cut.heading_before;
    if (off > loose) {
        Lose(Rule::kToolDirection, Cause::kUnknown, element.tool, element.place, off / kRadiansPerDegree,
             curve.Length());
    } else if (std::fabs(turn - curve.sweep) > loose) {
        Lose(Rule::kTurnInMaterial, Cause::kUnknown, element.tool, element.place,
             std::fabs(turn - curve.sweep) / kRadiansPerDegree, curve.Length());
    }
}

// Too short to be missed where it meets another cut of its tool, or one at each end.
void CJobFollower::LeaveOut(const OpenElement& element, bool needs_both) {
    const bool meets = last_cut_ && last_cut_->tool == element.tool &&
                       Distance(last_cut_->curve.end, element.curve.start) <= 2.0 * element.tolerance;
    if (!meets || needs_both) left_out_.push_back({element, CauseOf(element, 0.0), meets || !needs_both});
}

void CJobFollower::JudgeLeftOut(const Cut* next) {
    for (const auto& [element, cause, may_meet] : left_out_) {
        const bool meets = may_meet && next != nullptr && next->tool == element.tool &&
                           Distance(next->curve.start, element.curve.end) <= 2.0 * element.tolerance;
        if (meets) continue;
        Lose(Rule::kNotCut, cause, element.tool, element.place, element.curve.Length(), element.curve.Length());
        ++losses_.sums.lost;
    }
    left_out_.clear();
}

void CJobFollower::JudgeText(const OpenElement& element) {
    if (element.is_written && !element.dropped) return;
    const Cause cause = element.dropped ? brindle::CauseOf(*element.dropped) : Cause::kNoTemplate;
    Lose(Rule::kTextLost, cause, element.tool, element.place, 0.0, 0.0);
    ++losses_.sums.lost;
}

Cause CJobFollower::CauseOf(const OpenElement& element, double off) const {
    if (element.dropped) return brindle::CauseOf(*element.dropped);
    if (!wrote_cut_ && ran_cut_) return Cause::kNoTemplate;
    if (!power_.IsOn(element.tool, machine_.Depth())) {
        return power_.HasOn(element.tool) ? Cause::kMasterOff : Cause::kNoToolOn;
    }
    const ProgramOptions& programs = run_.options.programs;
    const bool in_sub = !variants_under_way_.empty();
    const bool absolute = in_sub ? programs.subs_absolute : programs.absolute;
    if (no_code_) return Cause::kNoLineCode;
    if (machine_.ReadsText() && machine_.IsAbsolute() != absolute) {
        return in_sub ? Cause::kSubsMode : Cause::kNoModeCode;
    }
    const double word = std::fabs(element.record->GetRadius());
    const bool by_radius = run_.options.arcs.by_radius;
    if (element.record->IsArc() && std::fabs(word - element.curve.radius) > 0.01 * element.curve.radius &&
        (by_radius || has_facets_ || std::fabs(element.curve.sweep) > kThreeQuarterTurn)) {
        return Cause::kRadiusAsDirection;
    }
    if (expansions_ > 1) return Cause::kNestedExpansion;
    if (unwritten_turns_ > 0) return Cause::kUnwrittenTurn;
    if (element.record->IsArc() && left_out_repeat_) return Cause::kCentreRepeat;
    if (!absolute && had_long_arc_) return Cause::kLongArc;
    if (!absolute && left_out_step_) return Cause::kSmallSteps;
    if (after_long_arc_ && element.curve.IsArc()) return Cause::kClosedAfterLong;
    if (element.record->IsArc() && by_radius) return Cause::kRadiusWord;
    if (element.curve.Length() < 20.0 * step_) return Cause::kFewDecimals;
    if (off > 0.0 && SourceOf(run_.move).empty()) return Cause::kNoMove;
    return Cause::kUnknown;
}

void CJobFollower::Lose(Rule rule, Cause cause, int32_t tool, const LossPlace& place, double amount, double length,
                        std::string_view detail) {
    losses_.Add(Loss(rule, cause, tool, detail), place, amount, length);
}

LossPlace CJobFollower::Here() const {
    LossPlace place;
    if (!records_.empty()) place.record = records_.back();
    if (!calls_under_way_.empty()) place.call = calls_under_way_.back().record;
    return place;
}

}  // namespace brindle
