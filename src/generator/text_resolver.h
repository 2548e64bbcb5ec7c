// Compiled texts into characters, and the messages of a run.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "generator/run_context.h"
#include "generator/run_log.h"
#include "language/directives.h"

namespace brindle {

class CTextResolver;

// Adds a directive's characters to `out`, or changes the run's state.
using Evaluator = void(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
using EvaluatorTable = std::array<Evaluator*, kDirectiveCount>;

// Resolves template lines and option texts piece by piece, from left to right; each word sees the state as the words to
// its left have left it. What can't be evaluated is reported and gives nothing.
//
// An option text may hold words whose options hold words in turn. So that none can hang a run, a text that is read
// while it is being resolved, one that would be the 33rd in a chain, and one after the 10,000th read of an outermost
// one give nothing and are reported.
class CTextResolver {
public:
    CTextResolver(RunContext& run, const EvaluatorTable& evaluators) : run_(run), evaluators_(evaluators) {}

    RunContext& run() { return run_; }

    // Adds what `text` gives to `out`.
    void ResolveText(const CCompiledText& text, std::string& out);
    // What an option text gives: a view of its constant, or of `scratch`, which is overwritten.
    std::string_view ReadText(const OptionText& option, std::string& scratch);
    void AppendText(const OptionText& option, std::string& out);
    // Adds one blank if the tuning wants it after words.
    void AppendSeparator(std::string& out) const {
        if (run_.options.blocks.use_space) out.push_back(' ');
    }

    // Adds a word: address (null for none), its text and separator. Of a modal word a repeat of the last one is left
    // out; otherwise it becomes the last one.
    void AppendWord(const OptionText* address, LoggedWord word, bool modal, std::string& last, std::string& out);
    // Tells who follows the run of a word.
    void Log(const LoggedWord& word) {
        if (run_.log != nullptr) run_.log->Word(word);
    }
    // Puts a block into the trace and, with its end, into the NC text. `block` becomes what the NC text has.
    void WriteBlock(std::string& block);
    // Resolves the marks that make a message a comment. Both are empty until the first is resolved, which is in force
    // while the second is.
    void SettleCommentMarks();
    // Puts a message into the trace and, if the tuning wants it, as a comment block into the NC text.
    void ReportError(std::string_view message);
    // ReportError of "Could not evaluate: " and `what`.
    void ReportUnresolved(std::string_view what);

private:
    bool MayRead(const OptionText& option);
    void AddBlockDelimiter(std::string& block);

    RunContext& run_;
    const EvaluatorTable& evaluators_;                  // by DirectiveId
    std::array<const OptionText*, 32> being_resolved_;  // the outermost one first
    size_t depth_ = 0;                                  // how many there are
    int reads_ = 0;                                     // within the outermost one
    bool errors_as_comments_ = false;
    std::string open_comment_, close_comment_;
    bool writing_comment_ = false;
};

}  // namespace brindle
