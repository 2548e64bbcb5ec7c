#include "generator/path_recorder.h"

#include <algorithm>
#include <cmath>

namespace brindle {
namespace {

constexpr int32_t kMainProgram = -1;
constexpr size_t kMostElements = 2000000;
// So many steps of an axis can lie between two pieces that meet.
constexpr double kLooseSteps = 4.0;

// An arc that goes out by its radius runs around the centre that follows from that. Works on coordinates in which both
// axes measure the same.
Point CenterByRadius(const CNCArcData& arc) {
    const auto scaled = [&arc](Point p) { return Point{p.x * arc.x_ratio(), p.y * arc.y_ratio()}; };
    const Point start = scaled(arc.Start());
    const Point end = scaled(arc.End());
    const double chord = Distance(start, end);
    if (chord == 0.0) return arc.Center();
    const double half = chord / 2.0;
    const double offset = std::sqrt(std::max(0.0, arc.GetRadius() * arc.GetRadius() - half * half));
    // Seen along the chord, a minor counter-clockwise arc has its centre on the left.
    const double left = arc.IsClockwise() == arc.IsMinorArc() ? -offset : offset;
    const Point along{(end.x - start.x) / chord, (end.y - start.y) / chord};
    return {((start.x + end.x) / 2.0 - along.y * left) / arc.x_ratio(),
            ((start.y + end.y) / 2.0 + along.x * left) / arc.y_ratio()};
}

double RatioOf(double factor, double other) {
    const double ratio = factor / other;
    return std::isfinite(ratio) && ratio != 0.0 ? ratio : 1.0;
}

// The events whose templates move the tool.
constexpr std::pair<EventRef, PathKind> kElements[] = {{Event("Move_"), PathKind::kRapid},
                                                       {Event("MoveToIncludePt_"), PathKind::kRapid},
                                                       {Event("Line_"), PathKind::kLine},
                                                       {Event("Arc_"), PathKind::kArc},
                                                       {Event("Text_"), PathKind::kText}};

Point Moved(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }

}  // namespace

void CPathRecorder::RunStarts(RunContext& run) {
    run_ = &run;
    path_ = {};
    programs_.clear();
    calls_.clear();
    held_back_.clear();
    ProgramStarts(kMainProgram);
}

void CPathRecorder::ProgramStarts(int32_t variant) {
    program_ = &programs_[variant];
    const bool moves_to_start = variant != kMainProgram && !run_->options.axes.start_end_on_block;
    program_->start = moves_to_start ? run_->controller.last_position : Point{};
}

// ---- Elements ----

void CPathRecorder::TemplateStarts(const CompiledTemplate& compiled, int32_t) {
    wrote_ = false;
    template_ = &compiled;
    for (const auto& [event, kind] : kElements) {
        if (!compiled.Is(event)) continue;
        in_element_ = true;
        BeginElement(kind);
    }
}

void CPathRecorder::TemplateEnds() {
    if (in_element_) EndElement();
    in_element_ = false;
    if (call_is_open_ && wrote_) calls_.back().is_written |= template_->Is(Event("SubCall_"));
}

void CPathRecorder::BeginElement(PathKind kind) {
    if (!call_is_open_) OpenNumber();
    Step step;
    step.is_move = kind == PathKind::kRapid;
    TakeCurrentRecord(step, kind);
    program_->steps.push_back(step);
}

void CPathRecorder::EndElement() {
    if (!wrote_) {
        program_->steps.pop_back();
    } else if (call_is_open_) {
        calls_[static_cast<size_t>(call_step_.call)].has_move = true;
    }
    if (!call_is_open_) CloseNumber();
}

void CPathRecorder::TakeCurrentRecord(Step& step, PathKind kind) {
    const CNCData& record = run_->Record();
    PathElement& piece = step.piece;
    piece.kind = kind;
    piece.number = static_cast<int32_t>(path_.blocks.size()) - 1;
    piece.tool = record.GetToolId();
    piece.start = record.Start();
    piece.end = step.is_move || kind == PathKind::kText ? record.Start() : record.End();
    step.offset = OffsetOf(record);
    if (step.is_move && run_->state.tool.power == ToolPower::kOn) {
        piece.kind = PathKind::kLine;
        piece.tool = run_->state.tool.selected;
    }
    if (kind == PathKind::kText) piece.text = TakeText(record);
    if (kind != PathKind::kArc) return;
    const CNCArcData& arc = *run_->controller.current_item().AsArc();
    piece.clockwise = arc.IsClockwise();
    piece.center = run_->options.arcs.by_radius ? CenterByRadius(arc) : arc.Center();
}

int32_t CPathRecorder::TakeText(const CNCData& record) {
    const double factor = run_->AxisUnit().factor[run_->options.axes.LinearAxis()];
    path_.texts.push_back(
        {record.GetTextString(), record.GetTextHeight() * std::fabs(factor), record.GetTextRotation()});
    return static_cast<int32_t>(path_.texts.size()) - 1;
}

// The tool's offset has been taken off the words of cuts.
Point CPathRecorder::OffsetOf(const CNCData& record) {
    if (!record.IsLine() && !record.IsArc()) return {};
    return run_->PlaneTransform().Scale(run_->tools.Get(record.GetToolId()).physical->offset);
}

// ---- Calls ----

void CPathRecorder::CallStarts(const CNCIncludeData& record, int32_t variant) {
    OpenNumber();
    const ProgramOptions& programs = run_->options.programs;
    Call call{variant, TurnOf(record), {}};
    call.start_is_at = !programs.subs_absolute || run_->options.axes.start_end_on_block;
    call.at = call.start_is_at ? run_->Record().Start() : run_->controller.transform.TransformPoint(record.Start());
    call_is_open_ = true;
    call_step_ = {};
    call_step_.is_move = true;
    TakeCurrentRecord(call_step_, PathKind::kRapid);
    call_step_.piece.kind = PathKind::kRapid;
    call_step_.call = static_cast<int32_t>(calls_.size());
    calls_.push_back(call);
}

void CPathRecorder::CallEnds() {
    program_->steps.push_back(call_step_);
    call_is_open_ = false;
    CloseNumber();
}

// Turns and mirrors act on the shape of the part, whatever the factors of the axes.
CPathRecorder::Placing CPathRecorder::TurnOf(const CNCIncludeData& record) const {
    const ProgramOptions& programs = run_->options.programs;
    CTrans trans;
    if (programs.rotations_in_use) trans.rotation = record.GetIncludeRotation();
    trans.mirror_x = programs.mirror_in_use && record.GetIncludeMirrorX();
    trans.mirror_y = programs.mirror_in_use && record.GetIncludeMirrorY();
    const Point along_x = trans.Mirror(trans.Rotate({1.0, 0.0}));
    const Point along_y = trans.Mirror(trans.Rotate({0.0, 1.0}));
    const double ratio = path_.y_ratio / path_.x_ratio;
    return {along_x.x, along_y.x * ratio, along_x.y / ratio, along_y.y, {}};
}

// ---- Blocks ----

void CPathRecorder::OpenNumber() {
    if (path_.blocks.empty()) TakeAxes();
    path_.blocks.emplace_back();
    number_is_open_ = true;
    wrote_block_ = false;
    pending_before_ = run_->state.pending_text.size();
}

void CPathRecorder::CloseNumber() {
    const size_t pending = run_->state.pending_text.size();
    if (pending != 0 && (wrote_block_ || pending != pending_before_)) {
        held_back_.push_back(static_cast<int32_t>(path_.blocks.size()) - 1);
    }
    number_is_open_ = false;
}

void CPathRecorder::BlockWritten(std::string_view, size_t index) {
    const auto add = [index](BlockRange& range) {
        if (range.first == range.last) range.first = index;
        range.last = index + 1;
    };
    for (const int32_t number : held_back_) add(path_.blocks[static_cast<size_t>(number)]);
    held_back_.clear();
    if (!number_is_open_) return;
    add(path_.blocks.back());
    wrote_block_ = true;
}

// ---- The whole path ----

void CPathRecorder::TakeAxes() {
    const AxisOptions& axes = run_->options.axes;
    const CTrans plane = run_->PlaneTransform();
    if (plane.lengths_on_axis1) {
        path_.y_ratio = RatioOf(plane.axis1_factor, plane.axis2_factor);
    } else {
        path_.x_ratio = RatioOf(plane.axis2_factor, plane.axis1_factor);
    }
    const bool is_rotary[] = {axes.axis1_rotary, axes.axis2_rotary};
    const double factors[] = {plane.axis1_factor, plane.axis2_factor};
    for (int axis = 0; axis < 2; ++axis) {
        const bool in_degrees = is_rotary[axis] && axes.rotary_in_degrees && run_->EffectiveRotaryRadius() >= 1.0;
        const char* const length = run_->controller.in_inches ? "in" : "mm";
        path_.units[axis] = in_degrees ? "°" : std::fabs(factors[axis]) == 1.0 ? length : "";
    }
}

// Follows the main program and, at each call, the text of its sub-program.
class CPathRecorder::CWalk {
public:
    explicit CWalk(CPathRecorder& recorder) : recorder_(recorder), path_(recorder.path_) {
        const AxisOptions::Unit& unit = recorder.run_->AxisUnit();
        for (int axis = 0; axis < 2; ++axis) loose_[axis] = std::max(kLooseSteps * unit.step[axis], kTolerance);
    }

    void Follow(int32_t variant, const Placing& placing) {
        active_.push_back(variant);
        for (const Step& step : recorder_.programs_[variant].steps) {
            if (path_.elements.size() >= kMostElements) path_.complete = false;
            if (!path_.complete) break;
            if (step.call < 0) {
                Add(step, placing);
            } else {
                FollowCall(step, placing);
            }
        }
        active_.pop_back();
    }

private:
    void Add(const Step& step, const Placing& placing) {
        PathElement piece = step.piece;
        piece.start = step.is_move ? tool_ : Moved(placing(piece.start), step.offset);
        piece.end = Moved(placing(piece.end), step.offset);
        piece.center = Moved(placing(piece.center), step.offset);
        piece.clockwise = piece.clockwise != placing.mirrors();
        if (!step.is_move && !IsToolAt(piece.start)) AddWay(piece);
        path_.elements.push_back(piece);
        tool_ = piece.end;
    }

    // A machine that takes the start of a cut with the cut gets there by itself.
    void AddWay(const PathElement& to) {
        PathElement way;
        way.tool = to.tool;
        way.number = to.number;
        way.start = tool_;
        way.end = to.start;
        path_.elements.push_back(way);
    }

    void FollowCall(const Step& step, const Placing& placing) {
        const Call& call = recorder_.calls_[static_cast<size_t>(step.call)];
        if (!call.is_written) return;
        if (!call.has_move || !IsToolAt(placing(step.piece.end))) Add(step, placing);
        const auto program = recorder_.programs_.find(call.variant);
        if (program == recorder_.programs_.end() || call.variant == kMainProgram) return;
        const bool is_active = std::find(active_.begin(), active_.end(), call.variant) != active_.end();
        if (is_active || active_.size() > kDeepestCall || ++calls_followed_ > kMostCalls) {
            path_.complete = false;
            return;
        }
        Follow(call.variant, Inner(placing, call, program->second));
    }

    static Placing Inner(const Placing& outer, const Call& call, const Program& program) {
        const Placing& turn = call.turn;
        Placing inner{outer.xx * turn.xx + outer.xy * turn.yx,
                      outer.xx * turn.xy + outer.xy * turn.yy,
                      outer.yx * turn.xx + outer.yy * turn.yx,
                      outer.yx * turn.xy + outer.yy * turn.yy,
                      {}};
        const Point at = outer(call.at);
        const Point fixed = inner(call.start_is_at ? program.start : Point{});
        inner.shift = {at.x - fixed.x, at.y - fixed.y};
        return inner;
    }

    bool IsToolAt(Point p) const {
        return std::fabs(p.x - tool_.x) <= loose_[0] && std::fabs(p.y - tool_.y) <= loose_[1];
    }

    CPathRecorder& recorder_;
    ToolPath& path_;
    double loose_[2];
    Point tool_;
    std::vector<int32_t> active_;
    size_t calls_followed_ = 0;
};

void CPathRecorder::RunEnds() {
    // Numbers without blocks stand with those before them.
    size_t first = 0;
    for (BlockRange& range : path_.blocks) {
        if (range.first == range.last) range = {first, first};
        first = range.first;
    }
    CWalk(*this).Follow(kMainProgram, {});
    run_ = nullptr;
}

}  // namespace brindle
