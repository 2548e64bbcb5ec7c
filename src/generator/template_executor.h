// Templates into blocks: numbered, joined, delimited, put into the buffers and the trace.
#pragma once

#include <string>

#include "generator/text_resolver.h"

namespace brindle {

class CTemplateExecutor {
public:
    CTemplateExecutor(RunContext& run, CTextResolver& resolver) : run_(run), resolver_(resolver) {}

    // Runs the lines of a template, then forgets the last words that its flags name. A template without lines gives no
    // text, but shows in the trace, and its flags act.
    void ExecuteTemplate(const CompiledTemplate& compiled);
    CTextResolver& resolver() { return resolver_; }

private:
    void ExecuteLine(const CompiledLine& line, bool terminate);
    // Applies @NBlockOn and @NBlockOff of a line. True if one of them set the block number.
    bool ScanNumberingWords(const CompiledLine& line);
    // Settles the number of a block that begins now, and gives the number to go back to if the block comes to nothing.
    int32_t FixBlockNumber(bool number_set, int32_t number_before);
    void AppendBlockNumberWord(std::string& out);

    RunContext& run_;
    CTextResolver& resolver_;
    std::string text_;   // what the words of the present line give
    std::string block_;  // the present block; both are kept to reuse their memory
};

}  // namespace brindle
