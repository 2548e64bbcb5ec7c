// What a run writes, told to whoever follows it as it goes out: blocks with their templates and words, and of which
// record of the job they are. A run that nobody follows has no log and pays a test of a pointer per word.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "language/compiled_text.h"

namespace brindle {

struct RunContext;
class CNCIncludeData;

enum class WordKind : uint8_t {
    kAxis,    // a coordinate or an increment
    kCentre,  // of an arc
    kRadius,
    kSubtended,  // the angle of an arc, as its word has it
    kToolAngle,  // of a tangential tool
    kSpeed,
    kInterpolation,  // a code
    kDistanceMode,   // the code of absolute or incremental output
    kUnits,          // a code
    kText,
    kCallMirror,  // a code of a call
    kCallRotation,
};

// What became of a word that a template asked for.
enum class WordFate : uint8_t {
    kWritten,
    kRepeat,      // left out: it repeats the last one
    kNoDistance,  // left out: an increment below the geometric tolerance
    kNothing,     // there is nothing to write, as of a code that the tuning leaves empty
};

// Which of its codes an interpolation word is.
enum class MotionCode : uint8_t { kRapid, kLinear, kClockwise, kCounterClockwise };

struct LoggedWord {
    WordKind kind;
    WordFate fate = WordFate::kWritten;
    uint8_t axis = 0;                        // 0 or 1: of kAxis, kCentre; the parameter of kSpeed
    bool at_start = false;                   // of kAxis: the start of the record
    bool absolute = true;                    // of kAxis, kCentre, kToolAngle, kDistanceMode
    bool resets = false;                     // of kCallMirror, kCallRotation: ends the one before
    MotionCode motion = MotionCode::kRapid;  // of kInterpolation
    std::string_view text = {};              // number or code as printed, without its address; good during the call
};

// Why a record does not go out as it is drawn.
enum class DropReason : uint8_t {
    kToolOutOfRange,     // the tuning has fewer tools, and no default tool
    kNoTool,             // the tool has no data
    kTextInIncremental,  // texts need absolute output
    kTextNotSupported,
    kEmptyCall,  // the called program has no records, or one that ends where it starts
    kUnknownProgram,
    kCallsItself,
    kCallsTooDeep,
    kTooManyCalls,
};

// All events come in the order of the run. A record's events lie between its start and its end; those of an expanded
// call lie within the call's record.
class CRunLog {
public:
    virtual ~CRunLog() = default;

    // A run begins; `run` outlives it. Nothing is written before.
    virtual void RunStarts(RunContext& run) = 0;
    // The run ends; nothing of it is there afterwards.
    virtual void RunEnds() = 0;
    // A new NC file begins.
    virtual void SegmentStarts() = 0;
    // The text of a program begins: an include variant, or -1, the main program.
    virtual void ProgramStarts(int32_t variant) = 0;
    virtual void ProgramEnds() = 0;
    virtual void RecordStarts(int32_t program, int32_t index) = 0;
    // `words_pending`: some of its words are held back in a block that has not ended.
    virtual void RecordEnds(bool words_pending) = 0;
    // The current record is not written.
    virtual void RecordDropped(DropReason reason) = 0;
    // An arc goes out as facets, or as one line since it is too small to be an arc.
    virtual void ArcAsLines(bool facets) = 0;
    // A call goes out by the templates of calls, up to its end.
    virtual void CallStarts(const CNCIncludeData& record, int32_t variant) = 0;
    virtual void CallEnds() = 0;
    // The records of the called program come now, in the place of the call.
    virtual void ExpansionStarts(const CNCIncludeData& record) = 0;
    virtual void ExpansionEnds() = 0;

    // A template is executed; `tool` is the selected one, -1 for none.
    virtual void TemplateStarts(const CompiledTemplate& compiled, int32_t tool) = 0;
    virtual void TemplateEnds() = 0;
    // Line `line` of the template, from 0, gives `text`, to which its words were added.
    virtual void TemplateLine(size_t line, std::string_view text) = 0;
    virtual void Word(const LoggedWord& word) = 0;
    // What could not be evaluated.
    virtual void Unresolved(std::string_view what) = 0;
    // A block goes into the NC text, with its end; it is trace record `trace_index`.
    virtual void BlockWritten(std::string_view block, size_t trace_index) = 0;
    // The same with a message, as a comment.
    virtual void CommentWritten(std::string_view block) = 0;
};

}  // namespace brindle
