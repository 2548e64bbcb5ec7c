#include "generator/template_executor.h"

#include "generator/path_recorder.h"
#include "geometry/plane_math.h"
#include "language/directives.h"
#include "text/numbers.h"

namespace brindle {
namespace {

// The multiple of `increment` nearest to `number`, or the one above that if it is less than `number`.
int32_t RaiseToIncrement(int32_t number, int32_t increment) {
    const int32_t rounded = TruncateToInt32(RoundToStep(number, increment));
    return rounded < number ? WrapAdd(rounded, increment) : rounded;
}

void SwitchNumberingOn(RunContext& run, const CAtDirKeywords& keywords) {
    CNCControllerState& controller = run.controller;
    const BlockOptions& blocks = run.options.blocks;
    controller.numbering_on = true;
    if (keywords.HasWord(Keyword::kNormal)) controller.block_increment = blocks.big_increment;
    if (keywords.HasWord(Keyword::kSpecial)) controller.block_increment = blocks.small_increment;
    if (keywords.HasWord(Keyword::kIncBy)) controller.block_increment = keywords.IncBy(blocks.big_increment);
    if (keywords.HasWord(Keyword::kSetTo)) controller.block_number = TruncateToInt32(keywords.SetTo(0.0));
}

}  // namespace

void CTemplateExecutor::ExecuteTemplate(const CompiledTemplate& compiled) {
    run_.trace.AddTemplate(compiled.trace_header, compiled.number);
    for (const CompiledLine& line : compiled.lines) {
        ExecuteLine(line, &line != &compiled.lines.back() || compiled.terminate);
    }
    CNCOutputState& state = run_.state;
    if (compiled.clear_speed) {
        state.last_speed1.clear();
        state.last_speed2.clear();
    }
    if (compiled.clear_abs_inc) state.last_abs_inc_code.clear();
    if (compiled.clear_interp) state.last_interp_code.clear();
}

void CTemplateExecutor::ExecuteLine(const CompiledLine& line, bool terminate) {
    if (line.is_comment) return;
    std::string& pending = run_.settings.pending_text;
    block_.clear();
    if (!line.is_empty) {
        int32_t fallback_number = run_.controller.block_number;
        const bool number_set = line.has_numbering && ScanNumberingWords(line);
        const bool begins_block = pending.empty() && run_.controller.numbering_on;
        if (begins_block) fallback_number = FixBlockNumber(number_set, fallback_number);
        text_.clear();
        resolver_.ResolveText(line.text, text_);
        if (text_.find_first_not_of(' ') == std::string::npos) {
            if (fallback_number >= 0) run_.controller.block_number = fallback_number;
            if (!line.is_single) return;
        }
        if (!pending.empty()) {
            block_.swap(pending);
            pending.clear();
        } else if (run_.controller.numbering_on) {
            AppendBlockNumberWord(block_);
        }
        block_ += text_;
    }
    if (!terminate) {
        pending.swap(block_);  // copies would make a block of many lines quadratic
        return;
    }
    WriteBlock(block_);
}

bool CTemplateExecutor::ScanNumberingWords(const CompiledLine& line) {
    bool number_set = false;
    for (const CompiledPiece& piece : line.text.pieces()) {
        const Numbering numbering = NumberingOf(piece);
        if (numbering == Numbering::kOff) run_.controller.numbering_on = false;
        if (numbering != Numbering::kOn) continue;
        SwitchNumberingOn(run_, piece.keywords);
        number_set |= piece.keywords.HasWord(Keyword::kSetTo);
    }
    return number_set;
}

int32_t CTemplateExecutor::FixBlockNumber(bool number_set, int32_t number_before) {
    CNCControllerState& controller = run_.controller;
    if (!number_set) {
        controller.AdvanceBlockNumber(controller.block_increment);
        return number_before;
    }
    const int32_t set_number = controller.block_number;
    controller.block_number = RaiseToIncrement(set_number, controller.block_increment);
    return set_number;
}

void CTemplateExecutor::AppendBlockNumberWord(std::string& out) {
    resolver_.AppendText(run_.options.blocks.number_address, out);
    AppendInt(out, run_.controller.block_number);
    resolver_.AppendSeparator(out);
}

void CTemplateExecutor::WriteBlock(std::string& block) {
    if (run_.path != nullptr) run_.path->BlockWritten(run_.trace.GetCount());
    run_.trace.Add(TraceKind::kBlock, block);
    resolver_.AddBlockDelimiter(block);
    run_.buffers.AddToBuffer(block);
}

}  // namespace brindle
