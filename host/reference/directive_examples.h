// Examples of the template language: what template lines print for given records. The reference prints them, and the
// tests run each one through the library.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "geometry/plane_math.h"

namespace brindle::host {

// A record of an example's drawing; lengths in millimetres.
struct ExampleRecord {
    enum class Kind { kLine, kArc, kText, kCall };
    Kind kind;
    Point start;                 // of a text and a call: where it is placed
    Point end = {};              // of a line and an arc
    Point center = {};           // of an arc
    double radius = 0.0;         // of an arc, above 0 clockwise, below 0 counter-clockwise
    double degrees = 0.0;        // rotation of a text and of a call, counter-clockwise
    bool mirror_x = false;       // of a call
    double height = 0.0;         // of a text
    std::string_view name = {};  // the text, or the sub-program that is called
};

// The drawing of an example: the records of its main program, and of a sub-program PART if it has records.
struct ExampleDrawing {
    std::string_view name;
    std::span<const ExampleRecord> main;
    std::span<const ExampleRecord> sub;
};

struct DirectiveExample {
    std::string_view directive;     // empty for the syntax at large
    std::string_view event;         // in whose template the lines are: `Line_`
    std::string_view lines;         // of the template, with line ends between them
    std::string_view drawing;       // name of an ExampleDrawing
    std::string_view prints;        // all pieces of the run but empty ones, with line ends between them
    std::string_view options = {};  // further lines of the tuning, with line ends between them
    std::string_view note = {};     // a sentence on what the example shows
};

// What the host gives the library in all examples.
struct ExampleJob {
    const wchar_t* date;
    const wchar_t* time;
    const wchar_t* drawing_name;
    const wchar_t* output_name;
    const wchar_t* material;
    const wchar_t* tuning_name;
    const wchar_t* tuning_pick;
    const wchar_t* dataset;
    Point blank;           // millimetres
    double rotary_radius;  // millimetres
};

// Every record of the examples is of tool 1, line type 1, with these.
inline constexpr double kExampleCutWidth = 2.0;
inline constexpr double kExampleBridgeWidth = 5.0;
inline constexpr short kExampleBridgeCount = 3;

// The tuning of all examples, lines with line ends between them; an example adds its template and its options.
std::string_view ExampleTuning();
const ExampleJob& TheExampleJob();
std::span<const ExampleDrawing> ExampleDrawings();
const ExampleDrawing& FindExampleDrawing(std::string_view name);
// In the order of the reference: those of the syntax first.
std::span<const DirectiveExample> DirectiveExamples();

// The line that holds the template of an example.
std::string TemplateLineOf(const DirectiveExample& example);

}  // namespace brindle::host
