#include "verify/machine.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "text/numbers.h"

namespace brindle {
namespace {

// What an interpreter of the family takes and refuses, millimetres; measured with LinuxCNC 2.9.
constexpr double kSmallestRadius = 0.00127;   // below it an arc has no radius; a radius may be too small by so much
constexpr double kRefusedRadii = 0.028;       // difference of the radii of start and end
constexpr double kUnlikeRadii = 0.005;        // the same, by GRBL's gcode.c
constexpr double kRefusedRadiiShare = 0.001;  // both only above this share of the radius
constexpr double kClosedWithin = 1e-9;
constexpr size_t kLongestLine = 255;  // characters; LinuxCNC 2.9 refuses a longer one

double Coordinate(const Point& p, int axis) { return axis == 0 ? p.x : p.y; }
double& Coordinate(Point& p, int axis) { return axis == 0 ? p.x : p.y; }
bool IsArc(MotionCode code) { return code == MotionCode::kClockwise || code == MotionCode::kCounterClockwise; }

// What a G code does.
enum class GDoes : uint8_t {
    kNothing,     // that moves the tool elsewhere
    kUnfollowed,  // changes movements in a way that is not followed
    kRapid,
    kLine,
    kClockwise,
    kCounterClockwise,
    kCancel,
    kDwell,
    kInches,
    kMillimetres,
    kAbsolute,
    kIncremental,
    kAbsoluteCentres,
    kIncrementalCentres,
    kHome,
    kMachinePosition,
    kCall,
    kSetSystem,
    kShift,
    kShiftFromHere,
    kNoShift,
    kSystem,
};

// A line takes one code of each group.
constexpr unsigned kNoGroup = 31, kMotionGroup = 0, kPlaneGroup = 1, kUnitGroup = 2, kSystemGroup = 3,
                   kDistanceGroup = 4, kCentreGroup = 5, kFeedModeGroup = 6, kPathGroup = 7, kReturnGroup = 10,
                   kOutputGroup = 11, kEndGroup = 8, kSpindleGroup = 9;

struct GCode {
    int tenths;  // 901 is G90.1
    GDoes does;
    unsigned group = kNoGroup;
};

// The codes of LinuxCNC and of the controllers that take the same ones.
constexpr GCode kGCodes[] = {
    {0, GDoes::kRapid, kMotionGroup},
    {10, GDoes::kLine, kMotionGroup},
    {20, GDoes::kClockwise, kMotionGroup},
    {30, GDoes::kCounterClockwise, kMotionGroup},
    {40, GDoes::kDwell},
    {50, GDoes::kUnfollowed},  // a spline
    {51, GDoes::kUnfollowed},
    {52, GDoes::kUnfollowed},
    {53, GDoes::kUnfollowed},
    {60, GDoes::kUnfollowed},
    {80, GDoes::kNothing},  // how exactly corners are met
    {90, GDoes::kNothing},
    {100, GDoes::kSetSystem},
    {150, GDoes::kNothing},     // polar coordinates off
    {160, GDoes::kUnfollowed},  // and on
    {170, GDoes::kNothing, kPlaneGroup},
    {180, GDoes::kUnfollowed},
    {190, GDoes::kUnfollowed},
    {200, GDoes::kInches, kUnitGroup},
    {210, GDoes::kMillimetres, kUnitGroup},
    {280, GDoes::kHome},
    {300, GDoes::kHome},
    {330, GDoes::kUnfollowed},
    {400, GDoes::kNothing},  // the tool's radius is not taken off; otherwise it is
    {410, GDoes::kUnfollowed},
    {420, GDoes::kUnfollowed},
    {430, GDoes::kNothing},  // the tool's length
    {431, GDoes::kNothing},
    {490, GDoes::kNothing},
    {500, GDoes::kNothing},  // scale off
    {501, GDoes::kUnfollowed},
    {510, GDoes::kUnfollowed},
    {511, GDoes::kUnfollowed},
    {520, GDoes::kShift},
    {530, GDoes::kMachinePosition},
    {540, GDoes::kSystem, kSystemGroup},
    {550, GDoes::kSystem, kSystemGroup},
    {560, GDoes::kSystem, kSystemGroup},
    {570, GDoes::kSystem, kSystemGroup},
    {580, GDoes::kSystem, kSystemGroup},
    {590, GDoes::kSystem, kSystemGroup},
    {591, GDoes::kSystem, kSystemGroup},
    {592, GDoes::kSystem, kSystemGroup},
    {593, GDoes::kSystem, kSystemGroup},
    {600, GDoes::kNothing},  // how exactly the path is kept
    {610, GDoes::kNothing, kPathGroup},
    {611, GDoes::kNothing, kPathGroup},
    {640, GDoes::kNothing, kPathGroup},
    {650, GDoes::kCall},
    {680, GDoes::kUnfollowed},  // a turned system
    {690, GDoes::kNothing},
    {700, GDoes::kInches, kUnitGroup},
    {710, GDoes::kMillimetres, kUnitGroup},
    {730, GDoes::kUnfollowed},  // cycles
    {800, GDoes::kCancel},      // beside G0 it is taken
    {810, GDoes::kUnfollowed},
    {820, GDoes::kUnfollowed},
    {830, GDoes::kUnfollowed},
    {840, GDoes::kUnfollowed},
    {850, GDoes::kUnfollowed},
    {860, GDoes::kUnfollowed},
    {870, GDoes::kUnfollowed},
    {880, GDoes::kUnfollowed},
    {890, GDoes::kUnfollowed},
    {900, GDoes::kAbsolute, kDistanceGroup},
    {901, GDoes::kAbsoluteCentres, kCentreGroup},
    {910, GDoes::kIncremental, kDistanceGroup},
    {911, GDoes::kIncrementalCentres, kCentreGroup},
    {920, GDoes::kShiftFromHere},
    {921, GDoes::kNoShift},
    {922, GDoes::kNoShift},
    {923, GDoes::kUnfollowed},
    {930, GDoes::kNothing, kFeedModeGroup},
    {940, GDoes::kNothing, kFeedModeGroup},
    {950, GDoes::kNothing, kFeedModeGroup},
    {960, GDoes::kNothing},
    {970, GDoes::kNothing},
    {980, GDoes::kNothing, kReturnGroup},
    {990, GDoes::kNothing, kReturnGroup},
};

// Null for a code that is not known.
const GCode* FindGCode(double number) {
    const auto tenths = static_cast<int>(std::lround(number * 10.0));
    const auto* const found = std::lower_bound(std::begin(kGCodes), std::end(kGCodes), tenths,
                                               [](const GCode& code, int at) { return code.tenths < at; });
    return found != std::end(kGCodes) && found->tenths == tenths ? found : nullptr;
}

std::string GCodeText(double number) {
    const auto tenths = static_cast<int>(std::lround(number * 10.0));
    std::string text = "G" + std::to_string(tenths / 10);
    return tenths % 10 == 0 ? text : text + "." + std::to_string(tenths % 10);
}

// The sweep from `a` to `b` around `center`, a full turn if they coincide.
double SweepOf(Point a, Point b, Point center, bool clockwise) {
    const double from = std::atan2(a.y - center.y, a.x - center.x);
    const double to = std::atan2(b.y - center.y, b.x - center.x);
    double sweep = clockwise ? from - to : to - from;
    if (Distance(a, b) < kClosedWithin) sweep = 0.0;
    while (sweep <= 0.0) sweep += kFullTurn;
    while (sweep > kFullTurn) sweep -= kFullTurn;
    return clockwise ? -sweep : sweep;
}

}  // namespace

CMachine::CMachine(const RunContext& run, CMachineUser& user)
    : run_(run),
      user_(user),
      reader_(run.options),
      heading_(run.options.rotation.offset * kRadiansPerDegree),
      before_turn_(heading_) {
    const CTrans plane = run.PlaneTransform();
    const double factors[] = {plane.scale * plane.axis1_factor, plane.scale * plane.axis2_factor};
    const bool rotary[] = {run.options.axes.axis1_rotary, run.options.axes.axis2_rotary};
    for (int axis = 0; axis < 2; ++axis) {
        plane_per_unit_[axis] = factors[axis] == 0.0 ? 1.0 : 1.0 / factors[axis];
        in_degrees_[axis] = rotary[axis] && run.options.axes.rotary_in_degrees;
    }
    mm_per_unit_ = run.controller.in_inches ? kMillimetresPerInch : 1.0;
    if (!ReadsText()) absolute_ = run.options.programs.absolute;
}

// ---- Text ----

void CMachine::TakeText(std::string_view text) {
    const auto ends_line = [](char c) { return c == '\n' || c == '\r'; };
    for (auto end = text.begin(); (end = std::find_if(text.begin(), text.end(), ends_line)) != text.end();) {
        const std::string_view line(text.begin(), end);
        text = {end + 1, text.end()};
        if (HasUnfinishedLine()) {
            line_text_ += line;
            FinishLine();
        } else if (!line.empty()) {
            CarryOut(line);
        }
    }
    line_text_ += text;
}

void CMachine::StartFile() {
    has_ended_ = false;
    percents_ = 0;
    if (!ReadsText()) return;
    motion_.reset();
    absolute_ = true;
    absolute_centres_.reset();
    inches_.reset();
    has_feed_ = false;
    systems_ = {};
    system_ = 0;
    shift_ = {};
}

void CMachine::FinishLine() {
    if (line_text_.empty()) return;
    std::string text;
    text.swap(line_text_);
    CarryOut(text);
    text.clear();
    text.swap(line_text_);  // keeps the memory
}

void CMachine::CarryOut(std::string_view text) {
    reader_.Read(text, line_);
    if (text.size() > kLongestLine) user_.Fails(NcFault::kLongLine, 0.0, {});
    if (line_.bad_comment) user_.Fails(NcFault::kBadComment, 0.0, {});
    if (!line_.label.empty()) TakeLabel(line_.label);
    if (has_ended_) return;
    if (!line_.unread.empty()) {
        has_called_ = true;
        user_.Fails(NcFault::kUnread, 0.0, line_.unread);
    }
    if (line_.words.empty()) return;
    Block block;
    if (!Sort(line_, block)) return;
    if (block.is_repeated) user_.Fails(NcFault::kRepeatedWord, 0.0, {});
    if (block.feed) has_feed_ = *block.feed > 0.0;
    if (block.tool) user_.SelectsTool(*block.tool);
    SetPower(block);
    if (block.cancels_motion) motion_.reset();
    if (block.origin != Block::Origin::kNone) {
        SetOrigin(block);
    } else if (!block.dwells || block.motion) {
        Move(block);
    }
    marks_.has_returned |= block.ends_sub;
    if (block.calls) CallSub(static_cast<size_t>(std::max(1.0, block.l_word)));
    if (block.ends) End();
}

// A tool is changed with the spindle at rest.
void CMachine::SetPower(const Block& block) {
    if (block.changes_tool) user_.ChangesTool();
    if (block.speed) speed_ = block.speed;
    const bool before = spindle_;
    if (block.changes_tool) spindle_ = false;
    if (block.spindle) spindle_ = *block.spindle;
    const bool turns = spindle_ && speed_.value_or(1.0) != 0.0;
    if (before || spindle_) user_.SwitchesSpindle(turns);
    if (block.output) user_.SwitchesOutput(static_cast<int32_t>(std::lround(block.p_word)), *block.output);
}

void CMachine::CallSub(size_t times) {
    has_called_ = true;
    user_.Calls(times);
}

void CMachine::End() {
    has_ended_ = true;
    user_.Ends();
}

// Labels are numbers, so zeros before them count for nothing.
void CMachine::TakeLabel(std::string_view label) {
    if (label == "%") {
        if (++percents_ > 1 && !has_ended_) End();
        return;
    }
    const size_t blank = std::min(label.find(' '), label.size());
    std::string name(label.substr(0, blank));
    name.erase(0, std::min(name.find_first_not_of('0'), name.size()));
    const std::string_view word = label.substr(std::min(label.find_first_not_of(' ', blank), label.size()));
    if (word.starts_with("CALL")) {
        const std::string_view rest = word.substr(4);
        const bool is_call = rest.empty() || rest[0] == ' ' || rest[0] == '[';
        if (!is_call) return user_.Fails(NcFault::kBadCall, 0.0, rest);
        called_label_ = name;
        CallSub(1);
    } else if (word.starts_with("ENDSUB")) {
        marks_.has_returned = true;
        if (open_subs_.empty() || open_subs_.back() != name) return user_.Fails(NcFault::kNoSubStart, 0.0, name);
        open_subs_.pop_back();
    } else if (!word.empty() && !word.starts_with("SUB")) {
        user_.Fails(NcFault::kUnread, 0.0, word);  // a loop or a condition
    } else {
        if (!word.empty()) open_subs_.push_back(name);
        if (marks_.label.empty()) marks_.label = name;
    }
}

// False if the line can't be followed.
bool CMachine::Sort(const NcLine& line, Block& block) {
    const auto set = [&block](std::optional<double>& word, double value) {
        block.is_repeated |= word.has_value();
        word = value;
    };
    for (const NcWord& word : line.words) {
        switch (word.address) {
            case NcAddress::kAxis1: set(block.axis[0], word.value); break;
            case NcAddress::kAxis2: set(block.axis[1], word.value); break;
            case NcAddress::kCentre1: set(block.centre[0], word.value); break;
            case NcAddress::kCentre2: set(block.centre[1], word.value); break;
            case NcAddress::kRadius: set(block.radius, word.value); break;
            case NcAddress::kSubtended: set(block.subtended, word.value); break;
            case NcAddress::kToolAngle:
                set(block.angle, word.value);
                block.angle_is_negative = std::signbit(word.value);
                break;
            case NcAddress::kFeed: set(block.feed, word.value); break;
            case NcAddress::kOther:
                if (!TakeOther(word, block)) return false;
                break;
        }
    }
    if (block.has_p && block.calls && called_label_.empty()) {
        called_label_ = std::to_string(std::lround(block.p_word));
    }
    return true;
}

bool CMachine::TakeOther(const NcWord& word, Block& block) {
    const bool is_code = word.letter == 'G' || word.letter == 'M';
    const uint32_t letter = uint32_t{1} << static_cast<uint32_t>(word.letter - 'A');
    block.is_repeated |= !is_code && (block.letters & letter) != 0;
    block.letters |= letter;
    switch (word.letter) {
        case 'T': block.tool = word.value; break;
        case 'Z': block.z = word.value; break;
        case 'A':
        case 'B':
        case 'C':
        case 'U':
        case 'V':
        case 'W': block.has_other_axis = true; break;
        case 'S': block.speed = word.value; break;
        case 'L': block.l_word = word.value; break;
        case 'P':
            block.p_word = word.value;
            block.has_p = true;
            break;
        case 'M': TakeM(word.value, block); break;
        case 'G':
            if (TakeG(word.value, block)) break;
            user_.Fails(NcFault::kUnread, 0.0, GCodeText(word.value));
            return false;
        default: break;
    }
    return true;
}

void CMachine::CountGroup(unsigned group, Block& block) {
    block.is_repeated |= (block.groups >> group & 1U) != 0;
    block.groups |= 1U << group;
}

// False for a code that changes movements in a way that is not followed.
bool CMachine::TakeG(double number, Block& block) {
    const GCode* const code = FindGCode(number);
    if (code == nullptr) {
        user_.Fails(NcFault::kUnknownCode, 0.0, GCodeText(number));
        return true;
    }
    if (code->group != kNoGroup) CountGroup(code->group, block);
    switch (code->does) {
        case GDoes::kNothing: break;
        case GDoes::kUnfollowed: return false;
        case GDoes::kRapid: block.motion = MotionCode::kRapid; break;
        case GDoes::kLine: block.motion = MotionCode::kLinear; break;
        case GDoes::kClockwise: block.motion = MotionCode::kClockwise; break;
        case GDoes::kCounterClockwise: block.motion = MotionCode::kCounterClockwise; break;
        case GDoes::kCancel: block.cancels_motion = true; break;
        case GDoes::kDwell: block.dwells = true; break;
        case GDoes::kInches: inches_ = true; break;
        case GDoes::kMillimetres: inches_ = false; break;
        case GDoes::kAbsolute: absolute_ = true; break;
        case GDoes::kIncremental: absolute_ = false; break;
        case GDoes::kAbsoluteCentres: absolute_centres_ = true; break;
        case GDoes::kIncrementalCentres: absolute_centres_ = false; break;
        case GDoes::kHome: block.goes_home = true; break;
        case GDoes::kMachinePosition: block.absolute_position = true; break;
        case GDoes::kCall: block.calls = true; break;
        case GDoes::kSetSystem: block.origin = Block::Origin::kG10; break;
        case GDoes::kShift: block.origin = Block::Origin::kG52; break;
        case GDoes::kShiftFromHere: block.origin = Block::Origin::kG92; break;
        case GDoes::kNoShift: shift_ = {}; break;
        case GDoes::kSystem:
            system_ = static_cast<size_t>(code->tenths / 10 - 54 + code->tenths % 10);
            moved_origin_ = true;
            break;
    }
    return true;
}

void CMachine::TakeM(double number, Block& block) {
    switch (static_cast<int>(std::lround(number))) {
        case 0:
        case 1: CountGroup(kEndGroup, block); break;
        case 2:
        case 30:
            CountGroup(kEndGroup, block);
            block.ends = true;
            break;
        case 3:
        case 4:
            CountGroup(kSpindleGroup, block);
            block.spindle = true;
            break;
        case 5:
            CountGroup(kSpindleGroup, block);
            block.spindle = false;
            break;
        case 6: block.changes_tool = true; break;
        case 62:
        case 64:
            CountGroup(kOutputGroup, block);
            block.output = true;
            break;
        case 63:
        case 65:
            CountGroup(kOutputGroup, block);
            block.output = false;
            break;
        case 97:
        case 98: block.calls = true; break;
        case 17:
        case 99: block.ends_sub = true; break;
        default: break;
    }
}

double CMachine::UnitRatio(int axis) const {
    if (!inches_ || in_degrees_[axis]) return 1.0;
    return (*inches_ ? kMillimetresPerInch : 1.0) / mm_per_unit_;
}

void CMachine::SetOrigin(const Block& block) {
    moved_origin_ = true;
    if (block.radius) user_.Fails(NcFault::kUnread, 0.0, "R");  // turns the system
    const bool is_system = block.origin == Block::Origin::kG10;
    if (is_system && block.l_word != 2.0 && block.l_word != 20.0) return;  // a table of tools
    const auto number =
        static_cast<size_t>(std::clamp(std::lround(block.p_word), 0L, static_cast<long>(systems_.size())));
    const size_t system = number == 0 ? system_ : number - 1;
    Point& origin = is_system ? systems_[system] : shift_;
    const bool from_position = block.origin == Block::Origin::kG92 || (is_system && block.l_word == 20.0);
    for (int axis = 0; axis < 2; ++axis) {
        if (!block.axis[static_cast<size_t>(axis)]) continue;
        const double value = *block.axis[static_cast<size_t>(axis)] * UnitRatio(axis);
        const double rest = Coordinate(Origin(), axis) - Coordinate(origin, axis);
        Coordinate(origin, axis) = from_position ? Coordinate(at_, axis) - value - rest : value;
    }
}

// ---- Movements ----

Point CMachine::Target(const Block& block) const {
    Point to = at_;
    for (int axis = 0; axis < 2; ++axis) {
        const std::optional<double>& word = block.axis[static_cast<size_t>(axis)];
        if (!word) continue;
        const double value = *word * UnitRatio(axis);
        const double base = block.absolute_position ? 0.0
                            : absolute_             ? Coordinate(Origin(), axis)
                                                    : Coordinate(at_, axis);
        Coordinate(to, axis) = base + value;
    }
    return to;
}

double CMachine::TakeAngle(double value, bool is_negative, bool absolute) {
    const RotationOptions& rotation = run_.options.rotation;
    const double round = 360.0 * (rotation.factor == 0.0 ? 1.0 : rotation.factor);
    double travel = value;
    passed_zero_ = false;
    if ((absolute || rotation.always_absolute) && rotation.use_sign) {
        // The sign says which way round.
        travel = std::fmod(std::fabs(value) - axis_angle_, round);
        if (is_negative && travel > 0.0) travel -= round;
        if (!is_negative && travel < 0.0) travel += round;
    } else if (absolute || rotation.always_absolute) {
        travel = std::remainder(value - axis_angle_, round);
        passed_zero_ = std::fabs(value - axis_angle_) > std::fabs(round) / 2.0;
    }
    axis_angle_ = std::fmod(axis_angle_ + travel, round);
    if (axis_angle_ < 0.0) axis_angle_ += std::fabs(round);
    const double turn = travel / round * kFullTurn;
    return rotation.positive_is_cw ? -turn : turn;
}

void CMachine::GoHome(const Block& block) {
    Point to = at_;
    const bool has_axis = block.axis[0] || block.axis[1];
    const bool all = !has_axis && !block.z && !block.has_other_axis;
    if (block.z || all) z_ = 0.0;
    if (block.axis[0] || all) to.x = 0.0;
    if (block.axis[1] || all) to.y = 0.0;
    if (!has_axis && !all) return;
    if (has_axis) Finish(Motion(MotionCode::kRapid), Target(block));
    Finish(Motion(MotionCode::kRapid), to);
}

void CMachine::JudgeBare(const Block& block) {
    if (!ReadsText()) return;
    const bool moves = block.z || (block.motion && motion_ && IsArc(*motion_));
    if (!moves) return;
    if (!motion_) {
        user_.Fails(NcFault::kNoMotionCode, 0.0, {});
        motion_ = MotionCode::kLinear;
    }
    if (IsArc(*motion_)) return user_.Fails(NcFault::kNoCentre, 0.0, {});
    JudgeFeed();
}

void CMachine::JudgeFeed() {
    if (*motion_ == MotionCode::kRapid || has_feed_) return;
    user_.Fails(NcFault::kNoFeed, 0.0, {});
    has_feed_ = true;
}

void CMachine::Move(const Block& block) {
    before_turn_ = heading_;
    before_z_ = z_;
    if (block.angle) heading_ += TakeAngle(*block.angle, block.angle_is_negative, absolute_);
    const bool has_axis = block.axis[0] || block.axis[1];
    const bool has_arc_words = block.centre[0] || block.centre[1] || block.radius || block.subtended;
    if (block.motion) motion_ = block.motion;
    if (block.goes_home) return GoHome(block);
    if (block.z) z_ = absolute_ || block.absolute_position ? *block.z : z_ + *block.z;
    highest_ = std::max(highest_, z_);
    const bool is_arc = motion_ && IsArc(*motion_);
    const bool is_refused = block.absolute_position && (!motion_ || is_arc || !absolute_);
    if (is_refused) user_.Fails(NcFault::kBadMachinePosition, 0.0, {});
    if (has_arc_words && !is_arc && ReadsText()) user_.Fails(NcFault::kUnusedWord, 0.0, {});
    if (!has_axis && !(is_arc && has_arc_words)) {
        if (block.angle) user_.Turns(heading_ - before_turn_, passed_zero_);
        return JudgeBare(block);
    }
    const bool is_inches = ReadsText() && run_.controller.in_inches && !inches_;
    if (is_inches) {
        user_.Fails(NcFault::kNoUnitCode, 0.0, {});
        inches_ = true;
    }
    if (!motion_) {
        user_.Fails(NcFault::kNoMotionCode, 0.0, {});
        motion_ = MotionCode::kLinear;
    }
    JudgeFeed();
    const Point to = Target(block);
    if (is_arc) return MoveOnArc(block, to);
    Finish(Motion(*motion_), to);
}

void CMachine::MoveOnArc(const Block& block, Point to) {
    if (block.has_p && block.p_word > 1.0) user_.Fails(NcFault::kUnread, 0.0, "P");  // a number of turns
    Motion motion(*motion_);
    const bool clockwise = *motion_ == MotionCode::kClockwise;
    Point center;
    if (!FindCentre(block, to, center)) {
        motion.code = MotionCode::kLinear;
        return Finish(motion, to);
    }
    const bool by_angle = block.subtended && !block.axis[0] && !block.axis[1];
    if (by_angle) to = EndOfSweep(*block.subtended, center);
    const Point start = Scaled(at_);
    const Point end = Scaled(to);
    JudgeRadii(Distance(Seen(at_), Seen(center)), Distance(Seen(to), Seen(center)), block.radius.has_value());
    motion.center = center;
    motion.sweep = SweepOf(start, end, Scaled(center), clockwise);
    const bool is_circle = by_angle && std::fabs(*block.subtended) > 359.9;
    if (is_circle) motion.sweep = clockwise ? -kFullTurn : kFullTurn;
    Finish(motion, to);
}

void CMachine::JudgeRadii(double from, double to, bool by_radius) {
    const double radius = std::max(from, to);
    const double unequal = std::fabs(from - to);
    if (std::min(from, to) < kSmallestRadius) {
        user_.Fails(NcFault::kZeroRadius, radius, {});
    } else if (!by_radius && unequal > std::max(kRefusedRadii, kRefusedRadiiShare * radius)) {
        user_.Fails(NcFault::kUnequalRadii, unequal, {});
    } else if (!by_radius && unequal > std::max(kUnlikeRadii, kRefusedRadiiShare * radius)) {
        user_.Fails(NcFault::kUnlikeRadii, unequal, {});
    }
}

bool CMachine::FindCentre(const Block& block, Point to, Point& center) {
    if (block.radius && (block.centre[0] || block.centre[1]) && ReadsText()) {
        user_.Fails(NcFault::kRepeatedWord, 0.0, {});
    }
    if (block.radius) return CentreByRadius(*block.radius * UnitRatio(0), to, center);
    if (!block.centre[0] && !block.centre[1]) {
        user_.Fails(NcFault::kNoCentre, 0.0, {});
        return false;
    }
    const ArcOptions& arcs = run_.options.arcs;
    const bool wants_absolute = absolute_ && arcs.abs_is_absolute && !arcs.abs_from_start && !arcs.abs_from_end;
    if (wants_absolute && !absolute_centres_) {
        if (ReadsText()) user_.Fails(NcFault::kAssumedCentres, 0.0, {});
        absolute_centres_ = true;
    }
    const bool absolute = absolute_centres_.value_or(false);
    if (absolute && !(block.centre[0] && block.centre[1])) {
        user_.Fails(NcFault::kHalfCentre, 0.0, {});
        return false;
    }
    const bool from_end = !ReadsText() && (absolute_ ? !arcs.abs_from_start && arcs.abs_from_end
                                                     : !arcs.inc_from_start && arcs.inc_from_end);
    for (int axis = 0; axis < 2; ++axis) {
        const double value = block.centre[static_cast<size_t>(axis)].value_or(0.0) * UnitRatio(axis);
        Coordinate(center, axis) = Coordinate(absolute ? Origin() : from_end ? to : at_, axis) + value;
    }
    return true;
}

// The end of an arc that is given by its angle alone.
Point CMachine::EndOfSweep(double subtended, Point center) const {
    const ArcOptions& arcs = run_.options.arcs;
    const double factor = arcs.subtended_factor == 0.0 ? 1.0 : arcs.subtended_factor;
    const double turn = std::fabs(subtended) / factor * kRadiansPerDegree;
    const double angle = *motion_ == MotionCode::kClockwise ? -turn : turn;
    const Point from{at_.x - center.x, at_.y - center.y};
    return {center.x + from.x * std::cos(angle) - from.y * std::sin(angle),
            center.y + from.x * std::sin(angle) + from.y * std::cos(angle)};
}

// Of the two centres at that distance, a positive radius means the one of the shorter arc.
bool CMachine::CentreByRadius(double radius, Point to, Point& center) {
    const Point start = Scaled(at_);
    const Point end = Scaled(to);
    const double chord = Distance(start, end);
    if (chord < kClosedWithin) {
        user_.Fails(NcFault::kCircleByRadius, 0.0, {});
        return false;
    }
    const double plane_radius = std::fabs(radius * plane_per_unit_[run_.options.axes.LinearAxis()]);
    const double half = chord / 2.0;
    if (half - plane_radius > kSmallestRadius) user_.Fails(NcFault::kRadiusTooSmall, half - plane_radius, {});
    const double height = std::sqrt(std::max(0.0, plane_radius * plane_radius - half * half));
    const bool clockwise = *motion_ == MotionCode::kClockwise;
    const double left = clockwise == (radius > 0.0) ? -height : height;
    const Point along{(end.x - start.x) / chord, (end.y - start.y) / chord};
    const Point found{(start.x + end.x) / 2.0 - along.y * left, (start.y + end.y) / 2.0 + along.x * left};
    center = {found.x / plane_per_unit_[0], found.y / plane_per_unit_[1]};
    return true;
}

void CMachine::Finish(Motion motion, Point to) {
    motion.start = ToPlane(at_);
    motion.end = ToPlane(to);
    motion.center = ToPlane(motion.center);
    if (turn_.Mirrors()) motion.sweep = -motion.sweep;
    motion.depth_before = before_z_;
    motion.depth_after = z_;
    motion.heading_before = before_turn_;
    motion.heading_after = heading_;
    at_ = to;
    user_.Moves(motion);
}

// A controller takes the numbers for millimetres or inches, whatever factors its axes have.
Point CMachine::Seen(Point p) const { return ReadsText() ? Point{p.x * mm_per_unit_, p.y * mm_per_unit_} : Scaled(p); }

Point CMachine::Scaled(Point p) const { return {p.x * plane_per_unit_[0], p.y * plane_per_unit_[1]}; }

Point CMachine::ToPlane(Point p) const { return turn_(Scaled(p)); }

PlaneTurn CMachine::Turn(const PlaneTurn& turn, bool around_origin) {
    const PlaneTurn before = turn_;
    const Point pivot = around_origin ? Origin() : at_;
    const Point in_text = Scaled(pivot);
    const Point fixed = before(in_text);
    turn_ = before.After(turn);
    const Point turned = turn_(in_text);
    turn_.shift = {fixed.x - turned.x, fixed.y - turned.y};
    return before;
}

void CMachine::TurnBack(const PlaneTurn& before) {
    const Point in_text = before.Back(Position());
    turn_ = before;
    at_ = {in_text.x / plane_per_unit_[0], in_text.y / plane_per_unit_[1]};
}

// ---- Words of templates ----

// A word that is left out as a repeat still holds.
void CMachine::TakeWords(const std::vector<LoggedWord>& words, MotionCode motion) {
    Block block;
    Block start;
    bool has_code = false;
    for (const LoggedWord& word : words) {
        const auto axis = static_cast<size_t>(word.axis);
        const bool is_written = word.fate == WordFate::kWritten;
        const double value = LeadingDouble(word.text);
        switch (word.kind) {
            case WordKind::kInterpolation:
                has_code |= word.fate != WordFate::kNothing;
                if (is_written) block.motion = word.motion;
                break;
            case WordKind::kDistanceMode:
                if (is_written) absolute_ = word.absolute;
                break;
            case WordKind::kAxis:
                if (is_written) (word.at_start ? start : block).axis[axis] = value;
                break;
            case WordKind::kCentre:
                if (word.fate != WordFate::kRepeat) last_centre_[axis] = is_written ? value : 0.0;
                block.centre[axis] = last_centre_[axis];
                break;
            case WordKind::kRadius:
                if (is_written) last_radius_ = value;
                block.radius = last_radius_;
                break;
            case WordKind::kSubtended:
                if (is_written) last_subtended_ = value;
                block.subtended = last_subtended_;
                break;
            case WordKind::kToolAngle:
                if (!is_written) break;
                if (word.at_start) {
                    const double turn = TakeAngle(value, word.text.starts_with('-'), word.absolute);
                    heading_ += turn;
                    user_.Turns(turn, passed_zero_);
                } else {
                    block.angle = value;
                    block.angle_is_negative = word.text.starts_with('-');
                }
                break;
            case WordKind::kSpeed:
            case WordKind::kUnits:
            case WordKind::kText:
            case WordKind::kCallMirror:
            case WordKind::kCallRotation: break;
        }
    }
    has_feed_ = true;
    if (start.axis[0] || start.axis[1]) {
        if (block.axis[0] || block.axis[1]) {
            at_ = Target(start);
        } else {
            block.axis = start.axis;
        }
    }
    if (!has_code) block.motion = motion;
    if (block.subtended && IsArc(motion)) {
        const bool clockwise = (*block.subtended > 0.0) == run_.options.arcs.subtended_positive_cw;
        block.motion = clockwise ? MotionCode::kClockwise : MotionCode::kCounterClockwise;
    }
    Move(block);
}

void CMachine::SetOrigin(const std::vector<LoggedWord>& words) {
    Block block;
    for (const LoggedWord& word : words) {
        if (word.kind == WordKind::kAxis) block.axis[word.axis] = LeadingDouble(word.text);
    }
    if (block.axis[0] || block.axis[1]) SetOrigin(block);
}

}  // namespace brindle
