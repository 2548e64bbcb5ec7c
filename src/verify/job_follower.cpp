#include "verify/job_follower.h"

#include <algorithm>
#include <cmath>

#include "geometry/rounding.h"
#include "text/ascii.h"

namespace brindle {
namespace {

constexpr size_t kMostReplayed = 200000;  // calls that are followed
constexpr size_t kMostMoves = 10000000;   // within them
constexpr size_t kMostOpen = 1000;        // records that wait for their block
constexpr double kNoRotation = 1e-6;      // radians

constexpr EventSet kCuts{Event("Line_"), Event("Arc_"), Event("Text_")};
constexpr EventSet kMoves{Event("Move_"), Event("MoveToIncludePt_")};

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
        case NcFault::kBadCall: return Rule::kBadCall;
        case NcFault::kBadMachinePosition: return Rule::kBadMachinePosition;
        case NcFault::kLongLine: return Rule::kLongLine;
        case NcFault::kUnknownCode: return Rule::kUnknownCode;
        case NcFault::kNoUnitCode: return Rule::kNoUnitCode;
        case NcFault::kUnread: break;
    }
    return Rule::kUnreadText;
}

// Whether one axis alone has a letter, or both have the same one. Other addresses, as a comma between two numbers, are
// those of other languages.
bool LacksLetter(const RunOptions& options) {
    std::string letters[2];
    for (int axis = 0; axis < 2; ++axis) {
        const OptionText& address = options.axes.address[axis];
        if (!address.empty) letters[axis] = UpperCase(address.text.constant());
    }
    const auto is_letter = [](const std::string& text) { return text.size() == 1 && text[0] >= 'A' && text[0] <= 'Z'; };
    if (options.axes.start_end_on_block || !(is_letter(letters[0]) || is_letter(letters[1]))) return false;
    return letters[0].empty() || letters[1].empty() || letters[0] == letters[1];
}

Curve Shifted(Curve curve, Point by) {
    for (Point* p : {&curve.start, &curve.end, &curve.center}) *p = {p->x + by.x, p->y + by.y};
    return curve;
}

}  // namespace

CJobFollower::CJobFollower(RunContext& run, const CProgramTexts& texts, const ComparisonOptions& options)
    : run_(run),
      texts_(texts),
      machine_(run, *this),
      power_(run, machine_.ReadsText()),
      options_(options),
      judge_(run, power_, options, losses_) {}

// ---- Records ----

void CJobFollower::ProgramStarts(int32_t) { now_.had_long_arc = now_.left_out_step = false; }

void CJobFollower::RecordStarts(int32_t program, int32_t index) {
    if (!judge_.HasOpen()) Settle();
    records_.push_back({program, index});
    now_.has_facets = now_.left_out_repeat = now_.wrote_cut = false;
    now_.cut_template = {};
    const CNCData& record = *run_.geometry.GetRecord(program, index);
    if (record.IsInclude()) return;
    power_.Use(record.GetToolId());
    judge_.Open({CurveOf(record, placings_.back()), Here(), record.GetToolId(), &record, record.IsText()});
}

void CJobFollower::MainRunsOn() {
    machine_.FinishLine();
    if (machine_.ReadsText() && !machine_.HasEnded()) Fails(NcFault::kNoEnd, 0.0, {});
}

void CJobFollower::RecordEnds(bool words_pending) {
    const bool is_element = !run_.geometry.GetRecord(records_.back().program, records_.back().index)->IsInclude();
    const double sweep = is_element && judge_.HasOpen() ? std::fabs(judge_.Last().curve.sweep) : 0.0;
    const bool waits = (words_pending || machine_.HasUnfinishedLine()) && judge_.OpenCount() < kMostOpen;
    if (!waits) Settle();
    records_.pop_back();
    if (is_element) now_.after_long_arc = sweep > kLongArcDegrees * kRadiansPerDegree;
    now_.had_long_arc |= now_.after_long_arc;
}

void CJobFollower::RecordDropped(DropReason reason) {
    const RecordPlace at = records_.back();
    const CNCData& record = *run_.geometry.GetRecord(at.program, at.index);
    if (record.IsInclude()) {
        return LoseProgram(run_.geometry.FindProgram(record.GetIncludeName()), Rule::kNotCut, CauseOf(reason));
    }
    if (!judge_.HasOpen() || judge_.Last().record != &record) return;  // said of each facet
    judge_.Last().dropped = reason;
    const bool lacks_tool = reason == DropReason::kNoTool || reason == DropReason::kToolOutOfRange;
    if (lacks_tool && IsSkipped(record.GetToolId())) judge_.Withdraw();
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

void CJobFollower::SubsAreTorn() { Lose(Rule::kTornSubs, Cause::kUnknown, 0); }

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
    // What begins in its last line belongs to it.
    if (call_ && !call_->is_carried_out && machine_.HasUnfinishedLine()) machine_.FinishLine();
    Settle();
    if (call_ && !call_->is_carried_out && !is_blind_) {
        LoseProgram(run_.geometry.FindProgram(call_->record->GetIncludeName()), Rule::kNotCut, Cause::kNoCall);
    }
    call_.reset();
}

// A line of the call's templates calls.
void CJobFollower::Calls(size_t times) {
    if (!call_ || is_blind_) return;
    const bool is_again = call_->is_carried_out;
    if (!is_again) CarryOutCall();
    if (!is_again && times < 2) return;
    const double length = SizeOf(run_.geometry.FindProgram(call_->record->GetIncludeName())).length;
    Lose(Rule::kCutTwice, Cause::kUnknown, 0, 0.0, length);
}

// The turn that the word of the call has, radians.
double CJobFollower::PrintedRotation() const {
    const SubOptions& subs = run_.options.subs;
    const double degrees = call_->record->GetIncludeRotation() / kRadiansPerDegree;
    if (subs.rotation_factor == 0.0) return 0.0;
    return RoundScaled(degrees, subs.rotation_factor, subs.rotation_decimals) / subs.rotation_factor *
           kRadiansPerDegree;
}

// What the machine turns by itself; the rest is in the coordinates of the sub-program's text.
PlaneTurn CJobFollower::TurnOfCall() const {
    const ProgramOptions& programs = run_.options.programs;
    CTrans trans;
    if (programs.rotations_in_use && call_->has_rotation) trans.rotation = PrintedRotation();
    if (programs.mirror_in_use && call_->has_mirror) {
        trans.mirror_x = call_->record->GetIncludeMirrorX();
        trans.mirror_y = call_->record->GetIncludeMirrorY();
    }
    const Point x = trans.Mirror(trans.Rotate({1.0, 0.0}));
    const Point y = trans.Mirror(trans.Rotate({0.0, 1.0}));
    return {x.x, y.x, x.y, y.y, {}};
}

void CJobFollower::CarryOutCall() {
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
    const ProgramOptions& programs = run_.options.programs;
    const bool around_origin = programs.subs_absolute && !run_.options.axes.start_end_on_block;
    const PlaneTurn before = machine_.Turn(TurnOfCall(), around_origin);
    const bool turns = programs.rotations_in_use && std::fabs(call.record->GetIncludeRotation()) > kNoRotation;
    const bool mirrors =
        programs.mirror_in_use && (call.record->GetIncludeMirrorX() || call.record->GetIncludeMirrorY());
    const bool is_unwritten = (turns && !call.has_rotation) || (mirrors && !call.has_mirror);
    unwritten_turns_ += is_unwritten ? 1 : 0;
    const TemplatePlace at = at_;
    const int32_t tool = template_tool_;
    const bool wrote = wrote_;
    const bool held_tool = power_.Holds(tool);
    const bool had_long_arc = now_.had_long_arc;
    const bool left_out_step = now_.left_out_step;
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
    if (machine_.ReadsText()) JudgeLabels(call.variant, called);
    machine_.GoOnWith(std::move(caller));
    variants_under_way_.pop_back();
    placings_.pop_back();
    calls_under_way_.pop_back();
    machine_.TurnBack(before);
    unwritten_turns_ -= is_unwritten ? 1 : 0;
    now_.has_callees_tool |= held_tool && !power_.Holds(tool);
    now_.had_long_arc = had_long_arc;
    now_.left_out_step = left_out_step;
    // The template that calls goes on.
    at_ = at;
    template_tool_ = tool;
    wrote_ = wrote;
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
    Lose(rule, cause, 0, size.length, size.length);
    if (InfoOf(rule).severity != Severity::kLoss) return;
    losses_.sums.lost += size.records;
    losses_.sums.lost_mm += size.length;
}

// ---- Templates ----

void CJobFollower::TemplateStarts(const CompiledTemplate& compiled, int32_t tool) {
    at_ = {&compiled, 0};
    template_tool_ = tool;
    wrote_ = false;
    words_.clear();
    word_texts_.clear();
    if (kCuts.Has(compiled.event)) now_.cut_template = at_;
    if (compiled.Is(Event("OriTransSet_"))) machine_.ForgetMovedOrigin();
    if (compiled.Is(Event("SubCall_"))) machine_.ForgetCall();
}

void CJobFollower::TemplateLine(size_t line, std::string_view text) {
    at_.line = line;
    wrote_ = wrote_ || SaysSomething(text);
}

void CJobFollower::Word(const LoggedWord& word) {
    if (word.fate == WordFate::kRepeat && word.kind == WordKind::kCentre) now_.left_out_repeat = true;
    if (word.fate == WordFate::kNoDistance && word.kind == WordKind::kAxis) {
        now_.left_out_step |= word.text.find_first_of("123456789") != std::string_view::npos;
    }
    if (word.kind == WordKind::kInterpolation && word.fate != WordFate::kRepeat)
        now_.no_code = !SaysSomething(word.text);
    if (call_ && word.fate == WordFate::kWritten) {
        const bool says_something = SaysSomething(word.text);
        call_->has_mirror |= word.kind == WordKind::kCallMirror && says_something;
        call_->has_rotation |= word.kind == WordKind::kCallRotation && says_something;
    }
    TakeTurnWord(word);
    if (machine_.ReadsText() && !Event("OriTransSet_").Is(PresentEvent())) return;
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
    const CompiledTemplate& compiled = *at_.compiled;
    if (!machine_.ReadsText()) TakeTemplateWords();
    if (!wrote_) return;
    now_.wrote_cut |= kCuts.Has(compiled.event);
    if (compiled.Is(Event("Text_"))) {
        if (judge_.HasOpen()) judge_.Last().is_written = true;
    } else if (compiled.Is(Event("OriTransSet_"))) {
        if (call_ && machine_.ReadsText() && !machine_.MovedOrigin()) call_->origin_unread = true;
    } else if (compiled.Is(Event("SubCall_"))) {
        // Where no line is known to call, the whole template does.
        const bool may_call = !machine_.ReadsText() || (machine_.HasCalled() && !machine_.HasUnfinishedLine());
        if (call_ && !call_->is_carried_out && may_call) CarryOutCall();
    } else if (compiled.event->per_tool) {
        const bool changes = compiled.Is(Event("ToolSel_")) && !power_.ByTWords();
        if (changes && !is_blind_ && power_.IsAnyOn(machine_.Depth()))
            Lose(Rule::kPowerChange, Cause::kUnknown, template_tool_);
        power_.Wrote(compiled, template_tool_, machine_.Depth());
    }
}

void CJobFollower::TakeTemplateWords() {
    const CompiledTemplate& compiled = *at_.compiled;
    if (kMoves.Has(compiled.event)) {
        const bool is_on = power_.IsAnyOn(machine_.Depth());
        machine_.TakeWords(words_, is_on ? MotionCode::kLinear : MotionCode::kRapid);
    } else if (compiled.Is(Event("Text_"))) {
        machine_.TakeWords(words_, MotionCode::kRapid);
    } else if (compiled.Is(Event("Line_"))) {
        machine_.TakeWords(words_, MotionCode::kLinear);
    } else if (compiled.Is(Event("Arc_"))) {
        const bool clockwise = judge_.HasOpen() && judge_.Last().curve.sweep < 0.0;
        machine_.TakeWords(words_, clockwise ? MotionCode::kClockwise : MotionCode::kCounterClockwise);
    } else if (compiled.Is(Event("OriTransSet_")) || compiled.Is(Event("OriTransReset_"))) {
        machine_.SetOrigin(words_);
    }
}

void CJobFollower::Unresolved(std::string_view what) {
    Lose(Rule::kUnresolvedValue, Cause::kUnknown, 0, 0.0, 0.0, what);
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
    if (is_blind_ || machine_.HasEnded()) return;
    const bool is_rapid = motion.code == MotionCode::kRapid;
    const double highest = machine_.Highest();
    const bool is_low =
        is_rapid && (power_.IsAnyLow(motion.depth_before, highest) || power_.IsAnyLow(motion.depth_after, highest));
    const bool is_on = power_.IsAnyOn(motion.depth_before) && power_.IsAnyOn(motion.depth_after);
    if (!is_low && !is_on) return;
    const int32_t tool = CurrentTool();
    const Curve curve = Shifted(CurveOf(motion), OffsetOf(tool));
    const double length = curve.Length();
    if (is_rapid) {
        if (length <= judge_.ToleranceOf(curve)) return;
        const Cause cause = now_.no_code          ? Cause::kNoLineCode
                            : power_.HasOff(tool) ? Cause::kUnknown
                                                  : Cause::kNoToolOff;
        Lose(Rule::kRapidWhileOn, cause, tool, length, length);
        if (!is_on || !kCuts.Has(PresentEvent())) return;  // where a cut should be, no more is said of it
    }
    if (length < kNoLength) return;
    if (variants_under_way_.empty() && (is_rotated_ || is_mirrored_)) {
        Lose(Rule::kTurnedAfterCall, Cause::kUnknown, tool);
    }
    const bool right_tool = power_.IsOn(tool, machine_.Depth()) && power_.Holds(tool);
    const bool is_move = kMoves.Has(PresentEvent());
    judge_.Add({curve, tool, Here(), at_, is_move, right_tool, motion.heading_before, motion.heading_after});
}

void CJobFollower::Fails(NcFault fault, double amount, std::string_view text) {
    if (is_blind_) return;
    // Texts may hold anything, and the templates of a call are trusted to make it.
    if (Event("Text_").Is(PresentEvent())) return;
    if (call_ && (fault == NcFault::kUnread || fault == NcFault::kUnknownCode)) return;
    const bool is_repeat = fault == NcFault::kNoCentre && now_.left_out_repeat;
    const Cause cause = is_repeat ? Cause::kCentreRepeat : Cause::kUnknown;
    Lose(RuleOf(fault), cause, CurrentTool(), amount, 0.0, text);
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
        Lose(Rule::kTurnInMaterial, Cause::kUnknown, CurrentTool(), degrees);
    } else if (is_ambiguous) {
        Lose(Rule::kTurnPastZero, Cause::kUnknown, CurrentTool());
    }
}

void CJobFollower::SelectsTool(double t_word) {
    power_.TakeTWord(t_word, template_tool_);
    if (!is_blind_ && !power_.WritesM6() && power_.IsAnyOn(machine_.Depth())) {
        Lose(Rule::kPowerChange, Cause::kUnknown, template_tool_);
    }
}

void CJobFollower::ChangesTool() {
    if (!is_blind_ && power_.IsAnyOn(machine_.Depth())) {
        const Cause cause = power_.HasOff(template_tool_) ? Cause::kUnknown : Cause::kNoToolOff;
        Lose(Rule::kChangedWhileOn, cause, template_tool_);
    }
    power_.ChangeTool();
}

void CJobFollower::Ends() {
    if (power_.IsAnyOn(machine_.Depth()) && !is_blind_) Lose(Rule::kEndWhileOn, Cause::kNoToolOff, 0);
    power_.SwitchAllOff();
}

void CJobFollower::Finish() {
    machine_.FinishLine();
    Settle();
    judge_.Finish();
    Ends();
    const std::string& label = machine_.Marks().label;
    if (machine_.ReadsText() && variant_of_label_.contains(label)) Fails(NcFault::kRepeatedLabel, 0.0, label);
    if (machine_.IsUnclosed() && !is_blind_) Lose(Rule::kNoEndCode, Cause::kUnknown, 0);
    if (LacksLetter(run_.options)) Lose(Rule::kAxisWithoutLetter, Cause::kUnknown, 0);
    if (!losses_.sums.is_whole) Lose(Rule::kNotJudged, Cause::kUnknown, 0);
}

// ---- Judgement ----

void CJobFollower::Settle() {
    if (is_blind_) return judge_.Forget();
    now_.in_sub = !variants_under_way_.empty();
    now_.in_nested_expansion = expansions_ > 1;
    now_.has_unwritten_turn = unwritten_turns_ > 0;
    now_.is_absolute = machine_.IsAbsolute();
    now_.is_turned = machine_.IsTurned();
    now_.depth = machine_.Depth();
    judge_.Settle(now_);
}

void CJobFollower::Lose(Rule rule, Cause cause, int32_t tool, double amount, double length, std::string_view detail) {
    losses_.Add(Loss(rule, cause, tool, at_, detail), Here(), amount, length);
}

LossPlace CJobFollower::Here() const {
    LossPlace place;
    if (!records_.empty()) place.record = records_.back();
    if (!calls_under_way_.empty()) place.call = calls_under_way_.back().record;
    return place;
}

}  // namespace brindle
