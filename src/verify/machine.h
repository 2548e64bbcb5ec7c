// A small machine that follows NC text: where it goes, and in which way.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "generator/run_context.h"
#include "generator/run_log.h"
#include "verify/nc_line.h"

namespace brindle {

// A movement in the plane of the drawing: millimetres, axis factors and output unit taken out.
struct Motion {
    explicit Motion(MotionCode how) : code(how) {}

    MotionCode code;
    Point start, end;
    Point center;        // of an arc
    double sweep = 0.0;  // of an arc, radians, positive counter-clockwise; a full turn for a circle
    double depth_before = 0.0, depth_after = 0.0;      // Z
    double heading_before = 0.0, heading_after = 0.0;  // of a tangential tool, radians; their difference is its turn
};

// What a machine can't do as it is told, or does otherwise than a reader of the text would think.
enum class NcFault : uint8_t {
    kNoMotionCode,    // a position without a code that says how to get there
    kRepeatedWord,    // a word twice in a line, or two codes of a group
    kNoCentre,        // an arc without centre and radius
    kHalfCentre,      // one absolute centre word is missing
    kRadiusTooSmall,  // a radius word that does not reach the end
    kCircleByRadius,  // a full circle by a radius word
    kZeroRadius,
    kUnequalRadii,    // of start and end: refused
    kUnlikeRadii,     // the same, less: refused by some
    kNoFeed,          // a cut before any feed word
    kAssumedCentres,  // absolute centres without a code for them
    kNoSubStart,      // the end of a sub-program that nothing began
    kUnknownLabel,    // a call of a sub-program that no text begins
    kOtherLabel,      // a call of another sub-program than the drawing's
    kRepeatedLabel,   // two sub-programs of one label
    kNoSubEnd,        // a sub-program without an end
    kNoEnd,           // a main program that runs on into its sub-programs
    kUnusedWord,      // a centre or radius without an arc
    kBadComment,
    kLongLine,            // one that some refuse
    kBadCall,             // text directly after a call
    kBadMachinePosition,  // G53 where it is not taken
    kUnknownCode,         // a G code that is not known
    kNoUnitCode,          // inches, and nothing says so
    kUnread,              // literal text that can't be read
};

// Who is told what the machine does.
class CMachineUser {
public:
    virtual ~CMachineUser() = default;
    virtual void Moves(const Motion& motion) = 0;
    // `amount` in millimetres where the fault has one.
    virtual void Fails(NcFault fault, double amount, std::string_view text) = 0;
    // A tangential tool turns by so many radians where it is. `is_ambiguous`: absolute words pass the zero of the axis,
    // so that an axis without a shortest way takes the long one.
    virtual void Turns(double turn, bool is_ambiguous) = 0;
    virtual void SelectsTool(double t_word) = 0;               // a T word
    virtual void ChangesTool() = 0;                            // M6
    virtual void SwitchesSpindle(bool on) = 0;                 // M3, M4, M5, a speed of 0
    virtual void SwitchesOutput(int32_t number, bool on) = 0;  // M62 to M65
    virtual void Calls(size_t times) = 0;                      // a line that calls a sub-program has been carried out
    virtual void Ends() = 0;                                   // M2, M30, the second %
};

// How calls turn, mirror and shift what the machine does in them.
struct PlaneTurn {
    double xx = 1.0, xy = 0.0, yx = 0.0, yy = 1.0;
    Point shift;

    Point operator()(Point p) const { return {xx * p.x + xy * p.y + shift.x, yx * p.x + yy * p.y + shift.y}; }
    // The other way: turns and mirrors keep lengths.
    Point Back(Point p) const {
        const Point q{p.x - shift.x, p.y - shift.y};
        return {xx * q.x + yx * q.y, xy * q.x + yy * q.y};
    }
    // `inner` and then this, without a shift.
    PlaneTurn After(const PlaneTurn& inner) const {
        return {xx * inner.xx + xy * inner.yx,
                xx * inner.xy + xy * inner.yy,
                yx * inner.xx + yy * inner.yx,
                yx * inner.xy + yy * inner.yy,
                {}};
    }
    bool Mirrors() const { return xx * yy - xy * yx < 0.0; }
};

// Reads text where the tuning's axes have letters, otherwise the words that templates log.
class CMachine {
public:
    CMachine(const RunContext& run, CMachineUser& user);

    bool ReadsText() const { return reader_.CanRead(); }
    // Takes NC text; each line that is complete is carried out.
    void TakeText(std::string_view text);
    // Carries out what has come of a line without an end.
    void FinishLine();
    bool HasUnfinishedLine() const { return !line_text_.empty(); }
    // Carries out the words of a template, where no text is read. `motion` is what the template means where none of
    // them says it.
    void TakeWords(const std::vector<LoggedWord>& words, MotionCode motion);
    // Makes a point the origin, where no text is read.
    void SetOrigin(const std::vector<LoggedWord>& words);

    Point Position() const { return ToPlane(at_); }
    // From here on all movements are turned, in the coordinates of the text, around where the machine is or around
    // the origin.
    PlaneTurn Turn(const PlaneTurn& turn, bool around_origin);
    // Turns back to what Turn gave. The machine stays where it is.
    void TurnBack(const PlaneTurn& before);
    // A new file begins: all modes are those of a machine after power-on. It stays where it is.
    void StartFile();
    bool HasEnded() const { return has_ended_; }
    // Whether a % has opened the text, and nothing has ended it.
    bool IsUnclosed() const { return percents_ == 1 && !has_ended_; }
    // Whether a line since ForgetCall has called a sub-program, or may have; and its label, if that is known.
    bool HasCalled() const { return has_called_; }
    const std::string& CalledLabel() const { return called_label_; }
    void ForgetCall() {
        has_called_ = false;
        called_label_.clear();
    }
    // What a program has said of itself: the first label that it began, and whether it has ended as a sub-program.
    struct ProgramMarks {
        std::string label;
        bool has_returned = false;
    };
    // Begins a program and gives the marks of the one that it interrupts; these are given back after it.
    ProgramMarks BeginProgram() { return std::exchange(marks_, {}); }
    const ProgramMarks& Marks() const { return marks_; }
    void GoOnWith(ProgramMarks marks) { marks_ = std::move(marks); }
    double Depth() const { return z_; }  // the last Z, 0 before the first
    double Highest() const { return highest_; }
    bool HasMotionCode() const { return motion_.has_value(); }
    bool IsAbsolute() const { return absolute_; }
    bool IsTurned() const { return turn_.xx != 1.0 || turn_.yy != 1.0; }
    // Whether the last line that was carried out moved the origin.
    bool MovedOrigin() const { return moved_origin_; }
    void ForgetMovedOrigin() { moved_origin_ = false; }

private:
    // A line sorted by what its words do.
    struct Block {
        std::array<std::optional<double>, 2> axis, centre;
        std::optional<double> radius, subtended, angle, feed, tool, speed;
        bool angle_is_negative = false;
        std::optional<MotionCode> motion;
        enum class Origin : uint8_t { kNone, kG10, kG52, kG92 } origin = Origin::kNone;
        bool absolute_position = false;  // G53
        bool dwells = false, goes_home = false;
        double l_word = 0.0, p_word = 0.0;
        bool has_p = false;
        bool cancels_motion = false, ends_sub = false, calls = false;
        std::optional<double> z;
        bool has_other_axis = false;
        uint32_t letters = 0;  // that have been seen, a bit each
        std::optional<bool> output;
        unsigned groups = 0;  // of codes that have been seen
        bool is_repeated = false;
        bool changes_tool = false, ends = false;
        std::optional<bool> spindle;
    };

    void CarryOut(std::string_view text);
    // Gives the turn that an angle word asks for, radians counter-clockwise.
    double TakeAngle(double value, bool is_negative, bool absolute);
    void TakeLabel(std::string_view label);
    void End();
    bool Sort(const NcLine& line, Block& block);
    bool TakeOther(const NcWord& word, Block& block);
    static void CountGroup(unsigned group, Block& block);
    bool TakeG(double number, Block& block);
    void TakeM(double number, Block& block);
    void SetOrigin(const Block& block);
    void SetPower(const Block& block);
    void CallSub(size_t times);
    void JudgeFeed();
    void GoHome(const Block& block);
    // Fails where a line without a position can't be carried out.
    void JudgeBare(const Block& block);
    void Move(const Block& block);
    void MoveOnArc(const Block& block, Point to);
    // Of start and end, millimetres.
    void JudgeRadii(double from, double to, bool by_radius);
    bool FindCentre(const Block& block, Point to, Point& center);
    Point EndOfSweep(double subtended, Point center) const;
    bool CentreByRadius(double radius, Point to, Point& center);
    void Finish(Motion motion, Point to);
    double UnitRatio(int axis) const;
    Point Origin() const { return {systems_[system_].x + shift_.x, systems_[system_].y + shift_.y}; }
    Point Target(const Block& block) const;
    Point Seen(Point p) const;
    Point Scaled(Point p) const;
    Point ToPlane(Point p) const;

    const RunContext& run_;
    CMachineUser& user_;
    CNcLineReader reader_;
    NcLine line_;
    std::string line_text_;
    double plane_per_unit_[2];  // millimetres of the drawing
    double mm_per_unit_;        // of the machine, of output units
    bool in_degrees_[2];

    std::vector<std::string> open_subs_;  // labels, the innermost last
    std::string called_label_;
    bool has_called_ = false;
    ProgramMarks marks_;
    bool has_ended_ = false;
    int percents_ = 0;

    // Modes.
    std::optional<MotionCode> motion_;
    bool absolute_ = true;
    std::optional<bool> absolute_centres_;
    std::optional<bool> inches_;
    bool has_feed_ = false;

    Point at_;                         // in output units, origins included
    double z_ = 0.0, before_z_ = 0.0;  // before: of the present line
    double highest_ = 0.0;
    std::optional<double> speed_;
    bool spindle_ = false;
    std::array<Point, 9> systems_;  // G54 to G59, G59.1 to G59.3, output units
    size_t system_ = 0;             // in force
    Point shift_;                   // G52, G92
    double axis_angle_ = 0.0;       // of the tool's axis, as its words count it
    double heading_;                // where that points, radians, without jumps
    double before_turn_;            // the same, before the present line
    bool passed_zero_ = false;
    PlaneTurn turn_;
    bool moved_origin_ = false;
    // Of words.
    std::array<double, 2> last_centre_ = {};
    double last_radius_ = 0.0;
    double last_subtended_ = 0.0;
};

}  // namespace brindle
