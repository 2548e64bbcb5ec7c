#include "generator/text_resolver.h"

#include <algorithm>

namespace brindle {
namespace {

constexpr int kMostReads = 10000;

}  // namespace

void CTextResolver::ResolveText(const CCompiledText& text, std::string& out) {
    for (const CompiledPiece& piece : text.pieces()) {
        switch (piece.kind) {
            case CompiledPiece::Kind::kFixed:
            case CompiledPiece::Kind::kRunValue: out += piece.text; break;
            case CompiledPiece::Kind::kDirective:
                evaluators_[static_cast<size_t>(piece.directive)](*this, piece.keywords, out);
                break;
            case CompiledPiece::Kind::kUnknownDirective:
            case CompiledPiece::Kind::kMissingRunValue: ReportUnresolved(piece.text); break;
        }
    }
}

std::string_view CTextResolver::ReadText(const OptionText& option, std::string& scratch) {
    if (option.empty) return {};
    if (depth_ == 0 && option.text.is_constant()) return option.text.constant();
    scratch.clear();
    AppendText(option, scratch);
    return scratch;
}

void CTextResolver::AppendText(const OptionText& option, std::string& out) {
    if (option.empty) return;
    if (depth_ == 0) {
        if (option.text.is_constant()) {
            out += option.text.constant();
            return;
        }
        reads_ = 0;
    }
    if (!MayRead(option)) return ReportUnresolved(option.key);
    being_resolved_[depth_++] = &option;
    ResolveText(option.text, out);
    --depth_;
}

bool CTextResolver::MayRead(const OptionText& option) {
    ++reads_;
    if (depth_ >= being_resolved_.size() || reads_ > kMostReads) return false;
    const auto end = being_resolved_.begin() + static_cast<ptrdiff_t>(depth_);
    return std::find(being_resolved_.begin(), end, &option) == end;
}

void CTextResolver::WriteBlock(std::string& block) {
    run_.trace.Add(TraceKind::kBlock, block);
    AddBlockDelimiter(block);
    run_.buffers.AddToBuffer(block);
}

void CTextResolver::AddBlockDelimiter(std::string& block) {
    const OptionText& custom = run_.options.blocks.delimiter;
    if (run_.options.blocks.standard_delimiter) {
        // Ready characters where they come to the same: a block with character codes of its own is expanded as a whole
        // later.
        block += block.find("chr(") == std::string::npos ? kLineEnd : kLineEndCodes;
    } else if (custom.text.is_constant()) {
        block += custom.text.constant();  // ends the message that no more texts may be read, too
    } else {
        AppendText(custom, block);
    }
}

void CTextResolver::AppendWord(const OptionText* address, LoggedWord word, bool modal, std::string& last,
                               std::string& out) {
    const bool is_repeat = modal && !IsNew(last, word.text);
    if (is_repeat || word.text.empty()) word.fate = is_repeat ? WordFate::kRepeat : WordFate::kNothing;
    Log(word);
    if (is_repeat) return;
    last = word.text;
    if (address != nullptr) AppendText(*address, out);
    out += word.text;
    AppendSeparator(out);
}

void CTextResolver::SettleCommentMarks() {
    const BlockOptions& blocks = run_.options.blocks;
    errors_as_comments_ = blocks.errors_as_comments;
    if (!errors_as_comments_) return;
    std::string scratch;
    open_comment_ = ReadText(blocks.open_comment, scratch);
    close_comment_ = ReadText(blocks.close_comment, scratch);
    errors_as_comments_ = !open_comment_.empty();
}

void CTextResolver::ReportError(std::string_view message) {
    run_.trace.Add(TraceKind::kMessage, message);
    if (!errors_as_comments_ || writing_comment_) return;
    writing_comment_ = true;
    std::string block = open_comment_;
    block.append(message).append(close_comment_);
    WriteBlock(block);
    if (run_.log != nullptr) run_.log->CommentWritten(block);
    writing_comment_ = false;
}

void CTextResolver::ReportUnresolved(std::string_view what) {
    if (run_.log != nullptr) run_.log->Unresolved(what);
    ReportError(std::string("Could not evaluate: ").append(what));
}

}  // namespace brindle
