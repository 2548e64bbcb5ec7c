#include "generator/text_resolver.h"

namespace brindle {
namespace {

constexpr int kDeepestRead = 32;
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

std::string_view CTextResolver::ReadText(OptionText& option, std::string& scratch) {
    if (option.empty) return {};
    if (depth_ == 0 && option.text.is_constant()) return option.text.constant();
    scratch.clear();
    AppendText(option, scratch);
    return scratch;
}

void CTextResolver::AppendText(OptionText& option, std::string& out) {
    if (option.empty) return;
    if (depth_ == 0) {
        if (option.text.is_constant()) {
            out += option.text.constant();
            return;
        }
        reads_ = 0;
    }
    if (!MayRead(option)) return ReportUnresolved(option.key);
    option.being_resolved = true;
    ++depth_;
    ResolveText(option.text, out);
    --depth_;
    option.being_resolved = false;
}

bool CTextResolver::MayRead(const OptionText& option) {
    ++reads_;
    return !option.being_resolved && depth_ < kDeepestRead && reads_ <= kMostReads;
}

void CTextResolver::AddBlockDelimiter(std::string& block) {
    OptionText& custom = run_.options.blocks.delimiter;
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

void CTextResolver::ReportError(std::string_view message) {
    run_.trace.Add(TraceKind::kMessage, message);
    if (!run_.settings.errors_as_comments || writing_comment_) return;
    writing_comment_ = true;
    std::string block = run_.settings.open_comment;
    block.append(message).append(run_.settings.close_comment);
    run_.trace.Add(TraceKind::kBlock, block);
    AddBlockDelimiter(block);
    run_.buffers.AddToBuffer(block);
    writing_comment_ = false;
}

void CTextResolver::ReportUnresolved(std::string_view what) {
    ReportError(std::string("Could not evaluate: ").append(what));
}

}  // namespace brindle
