// The lines of a CFF2 drawing as the records that a job can hold.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "geometry/nc_data.h"

namespace brindle {

// What one line of a drawing says. Coordinates are in the drawing's units, not scaled.
namespace cff2 {

struct MainName {
    std::string name;
};
struct UpperRight {
    Point corner;
};
struct SubStart {
    std::string name;
};
struct Units {
    bool inches;
};
struct Call {
    std::string name;
    Point place;
    double rotation;
    bool mirror_x, mirror_y;
};
struct Line {
    CutAttributes cut;
    Point start, end;
};
struct Arc {
    CutAttributes cut;
    Point start, end, center;
    double radius;
};
// Its text is the next line of the drawing.
struct Text {
    Point place;
    double rotation;
    double height;
};
// A record of a type that a job can hold, but with too few words; a text of this kind uses up the next line all the
// same.
struct Short {
    std::string_view type;
    size_t words_needed;
    bool takes_next_line;
};
// A type that a job can't hold, or fewer than two words.
struct Other {};

using Record = std::variant<Other, MainName, UpperRight, SubStart, Units, Call, Line, Arc, Text, Short>;

// A type of records and how each word of it is read: r a real number, a an angle, i a whole number, m the whole number
// of a mirror flag, s a whole number of 16 bits, n a name, . not at all or apart from the other words; * is any number
// of further words.
struct RecordType {
    std::string_view name;
    std::string_view words;  // the first is the type itself

    bool TakesAnyWords() const { return words.back() == '*'; }
};

// The type with that name, null if a job can hold none such. The letters of MAIN count in either case, those of all
// others in upper case only. A record needs all words of its type.
const RecordType* FindRecordType(std::string_view name);

// The record of `line`. `words` is scratch space that is kept from line to line.
Record ParseLine(std::string_view line, std::vector<std::string_view>& words);

}  // namespace cff2
}  // namespace brindle
