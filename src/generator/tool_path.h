// The path that the tool takes in a run, for whoever draws it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "geometry/plane_math.h"

namespace brindle {

enum class PathKind : uint8_t {
    kRapid,  // with the tool up, be it with rapid or with linear speed
    kLine,
    kArc,
    kText,
};

// A piece of the path. Coordinates are those of the machine's axes, in output units, where the tool is: a tool that
// stands beside the axes' position has its offset in them.
struct PathElement {
    PathKind kind = PathKind::kRapid;
    bool clockwise = false;
    int32_t tool = 0;
    // What made it: an index into ToolPath::blocks. The pieces of all calls of a sub-program share the numbers of its
    // text.
    int32_t number = 0;
    int32_t text = -1;  // index into ToolPath::texts
    Point start;
    Point end;     // of an arc that is a full circle: its start
    Point center;  // of an arc
};

struct PathText {
    std::string text;
    double height = 0.0;    // in the unit that lengths have in the path
    double rotation = 0.0;  // radians, counter-clockwise
};

// Trace records from `first` up to the one before `last`; none if they are equal.
struct BlockRange {
    size_t first = 0;
    size_t last = 0;
};

struct ToolPath {
    std::vector<PathElement> elements;  // in the order in which the machine makes them
    std::vector<BlockRange> blocks;     // by number: the blocks that hold its words, `first` never descending
    std::vector<PathText> texts;
    // Factors that make the two axes comparable. They are below 0 for an axis that runs against the other.
    double x_ratio = 1.0;
    double y_ratio = 1.0;
    std::string units[2];  // of the axes: `mm`, `in`, `°`, empty for another
    // False where calls lead to more than can be drawn; the rest is left out then.
    bool complete = true;

    // The number whose words trace record `record` holds, -1 for none. Of several that share a block the last one: the
    // cut after its move.
    int32_t NumberOfBlock(size_t record) const;
};

}  // namespace brindle
