#include "generator/template_executor.h"

namespace brindle {

void CTemplateExecutor::ExecuteTemplate(const CompiledTemplate& compiled) {
    run_.trace.AddTemplate(compiled.trace_header, compiled.number);
    if (run_.log != nullptr) run_.log->TemplateStarts(compiled, run_.state.tool.selected);
    for (const CompiledLine& line : compiled.lines) {
        ExecuteLine(line, &line != &compiled.lines.back() || compiled.terminate);
    }
    if (run_.log != nullptr) run_.log->TemplateEnds();
    LastWords& last = run_.state.last;
    if (compiled.clear_speed) {
        last.speed[0].clear();
        last.speed[1].clear();
    }
    if (compiled.clear_abs_inc) last.abs_inc_code.clear();
    if (compiled.clear_interp) last.interp_code.clear();
}

void CTemplateExecutor::ExecuteLine(const CompiledLine& line, bool terminate) {
    if (line.is_comment) return;
    std::string& pending = run_.state.pending_text;
    BlockNumbers& numbers = run_.state.numbers;
    block_.clear();
    if (!line.is_empty) {
        int32_t fallback_number = numbers.number;
        const bool number_set = line.has_numbering && ScanNumberingWords(line);
        const bool begins_block = pending.empty() && numbers.on;
        if (begins_block) fallback_number = FixBlockNumber(number_set, fallback_number);
        text_.clear();
        resolver_.ResolveText(line.text, text_);
        if (run_.log != nullptr) run_.log->TemplateLine(line.number, text_);
        if (text_.find_first_not_of(' ') == std::string::npos) {
            if (fallback_number >= 0) numbers.number = fallback_number;
            if (!line.is_single) return;
        }
        if (!pending.empty()) {
            block_.swap(pending);
            pending.clear();
        } else if (numbers.on) {
            AppendBlockNumberWord(block_);
        }
        block_ += text_;
    }
    if (!terminate) {
        pending.swap(block_);  // copies would make a block of many lines quadratic
        return;
    }
    const size_t index = run_.trace.GetCount();
    resolver_.WriteBlock(block_);
    if (run_.log != nullptr) run_.log->BlockWritten(block_, index);
}

bool CTemplateExecutor::ScanNumberingWords(const CompiledLine& line) {
    bool number_set = false;
    for (const CompiledPiece& piece : line.text.pieces()) {
        const Numbering numbering = NumberingOf(piece);
        if (numbering == Numbering::kOff) run_.state.numbers.on = false;
        if (numbering != Numbering::kOn) continue;
        run_.state.numbers.SwitchOn(piece.keywords, run_.options.blocks);
        number_set |= piece.keywords.HasWord(Keyword::kSetTo);
    }
    return number_set;
}

int32_t CTemplateExecutor::FixBlockNumber(bool number_set, int32_t number_before) {
    BlockNumbers& numbers = run_.state.numbers;
    if (!number_set) {
        numbers.Advance();
        return number_before;
    }
    const int32_t set_number = numbers.number;
    numbers.Raise();
    return set_number;
}

void CTemplateExecutor::AppendBlockNumberWord(std::string& out) {
    resolver_.AppendText(run_.options.blocks.number_address, out);
    AppendInt(out, run_.state.numbers.number);
    resolver_.AppendSeparator(out);
}

}  // namespace brindle
