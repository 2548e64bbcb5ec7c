// Texts of a tuning compiled for a run: cut into pieces once, with their directives found and their arguments parsed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "language/directives.h"
#include "tuning/options.h"

namespace brindle {

// One piece of a compiled text.
struct CompiledPiece {
    enum class Kind {
        kFixed,             // `text` goes into the block
        kDirective,         // `directive` is evaluated with `keywords`
        kUnknownDirective,  // `text` is the bare name: reported, gives nothing
        kRunValue,          // `text` is the value that this run has settled
        kMissingRunValue,   // `text` is the word: reported, gives nothing
    };
    Kind kind = Kind::kFixed;
    std::string text;
    DirectiveId directive{};
    CAtDirKeywords keywords;
};

// How `piece` switches block numbers.
Numbering NumberingOf(const CompiledPiece& piece);

// A template line or an option text, ready to be resolved many times.
class CCompiledText {
public:
    CCompiledText() = default;
    explicit CCompiledText(std::vector<CompiledPiece> pieces);

    const std::vector<CompiledPiece>& pieces() const { return pieces_; }
    // Resolving gives constant() and does nothing else.
    bool is_constant() const { return is_constant_; }
    const std::string& constant() const { return constant_; }

private:
    std::vector<CompiledPiece> pieces_;
    bool is_constant_ = true;
    std::string constant_;
};

// A text option of the tuning.
struct OptionText {
    std::string key;
    CCompiledText text;
    bool empty = true;  // absent or empty: gives nothing and counts as no read
};

// A line of a template.
struct CompiledLine {
    CCompiledText text;
    size_t number = 0;           // within its template, from 0
    bool is_comment = false;     // begins with `!`: gives nothing at all
    bool is_empty = false;       // gives an empty block
    bool is_single = false;      // one character: gives a block even if that comes to nothing
    bool has_numbering = false;  // holds @NBlockOn or @NBlockOff
};

// A template with the flags beside it.
struct CompiledTemplate {
    // Whether it is the template of that event; for the events of tools, of any tool.
    bool Is(EventRef of) const { return of.Is(event); }
    std::string_view Key() const { return std::string_view(trace_header).substr(1, trace_header.size() - 2); }
    bool Has(DirectiveId directive) const;
    // The lines that say something, each with its end; what a directive gives is a `1` in it.
    std::string Source() const;

    const EventInfo* event = nullptr;
    std::string trace_header;  // `<Line_tTmpl>`
    uint32_t number = 0;       // among the templates of its compiler
    std::vector<CompiledLine> lines;
    bool terminate = true;  // the last line ends its block
    bool clear_speed = false;
    bool clear_abs_inc = false;
    bool clear_interp = false;
};

// Whether NC text says more than blanks and comments.
bool SaysSomething(std::string_view text);

// Compiles the texts of a tuning against the values that a run has settled. Both must outlive it.
class CTextCompiler {
public:
    CTextCompiler(const CBrindleOpts& tuning, const CKVItemContainer& run_values)
        : tuning_(tuning), run_values_(run_values) {}

    CCompiledText Compile(std::string_view text) const;
    CompiledLine CompileLine(std::string_view text) const;
    // The template of an event, of tools that with the tool's prefix. One that the tuning lacks has no lines.
    CompiledTemplate CompileTemplate(const EventInfo& event, std::string_view tool_prefix = {});
    OptionText CompileOption(KeyRef key, std::string_view prefix = {}) const;

    const CBrindleOpts& tuning() const { return tuning_; }

private:
    CompiledPiece CompilePiece(std::string text, bool is_directive, bool is_run_value) const;

    const CBrindleOpts& tuning_;
    const CKVItemContainer& run_values_;
    uint32_t templates_ = 0;
};

}  // namespace brindle
