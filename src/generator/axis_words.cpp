#include <cmath>

#include "generator/evaluators.h"
#include "generator/word_numbers.h"

namespace brindle {
namespace {

// How the words of a point are written.
struct PointStyle {
    PointStyle(const RunContext& run, const CAtDirKeywords& keywords)
        : absolute(keywords.WantAbsolute(run.controller.absolute_mode)),
          address(keywords.WantAddress(true)),
          modal(keywords.WantModal(run.options.axes.modal)),
          axis1(keywords.WantAxis1(true)),
          axis2(keywords.WantAxis2(true)) {}
    bool absolute, address, modal, axis1, axis2;
};

double Coordinate(Point p, int axis) { return axis == 0 ? p.x : p.y; }

void AxisWord(CTextResolver& resolver, LoggedWord word, double coordinate, const OptionText& address,
              const PointStyle& style, std::string& out) {
    const int axis = word.axis;
    RunContext& run = resolver.run();
    const double value = style.absolute ? coordinate : coordinate - Coordinate(run.controller.last_position, axis);
    const CNumberText number = AxisNumber(run, axis, value);
    word.text = number.view();
    word.absolute = style.absolute;
    if (style.modal && !style.absolute && std::fabs(value) < kTolerance) {
        word.fate = WordFate::kNoDistance;
        return resolver.Log(word);
    }
    resolver.AppendWord(style.address ? &address : nullptr, word, style.modal && style.absolute,
                        run.state.last.axis[axis], out);
}

void PointWords(CTextResolver& resolver, const CAtDirKeywords& keywords, Point p, bool at_start,
                const OptionText (&addresses)[2], std::string& out) {
    const PointStyle style(resolver.run(), keywords);
    std::string axis2_word;  // evaluated first, written last
    const LoggedWord axis1{.kind = WordKind::kAxis, .axis = 0, .at_start = at_start};
    const LoggedWord axis2{.kind = WordKind::kAxis, .axis = 1, .at_start = at_start};
    if (style.axis2) AxisWord(resolver, axis2, p.y, addresses[1], style, axis2_word);
    if (style.axis1) AxisWord(resolver, axis1, p.x, addresses[0], style, out);
    out += axis2_word;
    if (keywords.HasWord(Keyword::kMoveTo)) resolver.run().controller.last_position = p;
}

// Words that are never modal and touch no last word.
void PlainPointWords(CTextResolver& resolver, const CAtDirKeywords& keywords, Point p, std::string& out) {
    RunContext& run = resolver.run();
    const PointStyle style(run, keywords);
    if (!style.absolute) {
        p.x -= run.controller.last_position.x;
        p.y -= run.controller.last_position.y;
    }
    for (int axis = 0; axis < 2; ++axis) {
        if (axis == 0 ? !style.axis1 : !style.axis2) continue;
        const CNumberText number = AxisNumber(run, axis, Coordinate(p, axis));
        if (style.address) resolver.AppendText(run.options.axes.address[axis], out);
        out += number.view();
        resolver.AppendSeparator(out);
    }
}

// On which side of the line from `a` to `b` the point lies: +1 for the left and for points on the line, else -1.
double SideOfLine(Point a, Point b, Point p) {
    if (Distance(a, b) < kTolerance) return 1.0;
    const double angle = AngleOf(a, b);
    const double across = std::cos(angle) * (p.y - a.y) - std::sin(angle) * (p.x - a.x);
    return std::fabs(across) < kTolerance || across >= kTolerance ? 1.0 : -1.0;
}

// The direction from the line through `a` and `b` square towards `p`.
double NormalTowards(Point a, Point b, Point p) {
    if (Distance(a, b) < kTolerance) return AngleOf(a, p);
    const double angle = AngleOf(a, b);
    return SideOfLine(a, b, p) >= 0.0 ? angle + kQuarterTurn : angle - kQuarterTurn;
}

// Works on coordinates in which both axes measure the same.
Point MiddleOfArc(const CNCArcData& arc) {
    const auto scaled = [&arc](Point p) { return Point{p.x * arc.x_ratio(), p.y * arc.y_ratio()}; };
    const Point start = scaled(arc.Start());
    const Point end = scaled(arc.End());
    const Point center = scaled(arc.Center());
    double sign = SideOfLine(start, end, center);
    if (!arc.IsFullCircle() && !arc.IsClockwise()) sign = -sign;
    const double angle = NormalTowards(start, end, center);
    const double radius = Distance(start, center);
    return {(center.x + std::cos(angle) * radius * sign) / arc.x_ratio(),
            (center.y + std::sin(angle) * radius * sign) / arc.y_ratio()};
}

// The job's middle plus `share` times the blank, in output units.
Point JobPoint(const RunContext& run, double share) {
    Point center;
    run.geometry.GetProgramCenter(0, center);
    const Point blank = run.controller.job.blank;
    return {center.x + share * blank.x, center.y + share * blank.y};
}

Point ToOutputUnits(const RunContext& run, Point p) {
    const CTrans& trans = run.controller.transform;
    return {trans.TransformLengthAxis1(p.x), trans.TransformLengthAxis2(p.y)};
}

void CornerWords(CTextResolver& resolver, const CAtDirKeywords& keywords, double share, std::string& out) {
    RunContext& run = resolver.run();
    const Point p = ToOutputUnits(run, JobPoint(run, share));
    PlainPointWords(resolver, keywords, p, out);
    if (!keywords.HasWord(Keyword::kMoveTo)) return;
    const bool axis1 = keywords.WantAxis1(true);
    const bool axis2 = keywords.WantAxis2(true);
    if (axis1 || !axis2) run.controller.last_position.x = p.x;
    if (axis2 || !axis1) run.controller.last_position.y = p.y;
}

}  // namespace

void StartPtWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    const AxisOptions& axes = resolver.run().options.axes;
    PointWords(resolver, keywords, resolver.run().Record().Start(), true,
               axes.start_end_on_block ? axes.start_address : axes.address, out);
}

void EndPtWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    PointWords(resolver, keywords, resolver.run().Record().End(), false, resolver.run().options.axes.address, out);
}

void MidPtWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    const CNCGeomItem& item = resolver.run().controller.current_item();
    if (const CNCArcData* arc = item.AsArc()) return PlainPointWords(resolver, keywords, MiddleOfArc(*arc), out);
    const CNCData& record = item.Get();
    if (!record.IsLine()) return;
    const Point middle{(record.GetStartX() + record.GetEndX()) / 2.0, (record.GetStartY() + record.GetEndY()) / 2.0};
    PlainPointWords(resolver, keywords, middle, out);
}

void LowerLeft(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    CornerWords(resolver, keywords, -0.5, out);
}

void UpperRight(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    CornerWords(resolver, keywords, 0.5, out);
}

void OverallSize(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    const RunContext& run = resolver.run();
    PlainPointWords(resolver, keywords, ToOutputUnits(run, run.controller.job.blank), out);
}

}  // namespace brindle
