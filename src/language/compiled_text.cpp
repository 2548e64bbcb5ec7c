#include "language/compiled_text.h"

#include <algorithm>

#include "language/template_text.h"

namespace brindle {
namespace {

CompiledPiece CompileDirective(std::string text) {
    CompiledPiece piece;
    piece.keywords = CAtDirKeywords(text);
    const DirectiveInfo* const info = FindDirective(text);
    piece.kind = info != nullptr ? CompiledPiece::Kind::kDirective : CompiledPiece::Kind::kUnknownDirective;
    if (info != nullptr) piece.directive = info->id;
    piece.text = std::move(text);
    return piece;
}

bool IsNumbering(const CompiledPiece& piece) { return NumberingOf(piece) != Numbering::kNone; }

}  // namespace

Numbering NumberingOf(const CompiledPiece& piece) {
    return piece.kind == CompiledPiece::Kind::kDirective ? Info(piece.directive).numbering : Numbering::kNone;
}

CCompiledText::CCompiledText(std::vector<CompiledPiece> pieces) : pieces_(std::move(pieces)) {
    for (const CompiledPiece& piece : pieces_) {
        is_constant_ &= piece.kind == CompiledPiece::Kind::kFixed || piece.kind == CompiledPiece::Kind::kRunValue;
        if (is_constant_) constant_ += piece.text;
    }
}

bool CompiledTemplate::Has(DirectiveId directive) const {
    for (const CompiledLine& line : lines) {
        if (line.is_comment) continue;
        for (const CompiledPiece& piece : line.text.pieces()) {
            if (piece.kind == CompiledPiece::Kind::kDirective && piece.directive == directive) return true;
        }
    }
    return false;
}

std::string CompiledTemplate::Source() const {
    std::string source;
    for (const CompiledLine& line : lines) {
        if (line.is_comment) continue;
        std::string text;
        for (const CompiledPiece& piece : line.text.pieces()) {
            const bool is_text =
                piece.kind == CompiledPiece::Kind::kFixed || piece.kind == CompiledPiece::Kind::kRunValue;
            text += is_text ? piece.text : "1";
        }
        if (SaysSomething(text)) source.append(text).append("\n");
    }
    return source;
}

bool SaysSomething(std::string_view text) {
    bool in_comment = false;
    for (const char c : text) {
        if (in_comment) {
            in_comment = c != ')';
        } else if (c == '(') {
            in_comment = true;
        } else if (c == ';') {
            return false;
        } else if (c != ' ' && c != '\t') {
            return true;
        }
    }
    return false;
}

CCompiledText CTextCompiler::Compile(std::string_view text) const {
    std::vector<CompiledPiece> pieces;
    for (TemplatePiece& piece : CutTemplateText(text)) {
        pieces.push_back(CompilePiece(std::move(piece.text), piece.kind == TemplatePiece::Kind::kDirective,
                                      piece.kind == TemplatePiece::Kind::kRunValue));
    }
    return CCompiledText(std::move(pieces));
}

CompiledPiece CTextCompiler::CompilePiece(std::string text, bool is_directive, bool is_run_value) const {
    if (is_directive) return CompileDirective(std::move(text));
    CompiledPiece piece;
    piece.text = std::move(text);
    if (!is_run_value) return piece;
    std::string value;
    const bool known = run_values_.GetText(piece.text, value);
    piece.kind = known ? CompiledPiece::Kind::kRunValue : CompiledPiece::Kind::kMissingRunValue;
    if (known) piece.text = std::move(value);
    return piece;
}

CompiledLine CTextCompiler::CompileLine(std::string_view text) const {
    CompiledLine line;
    line.is_comment = !text.empty() && text[0] == '!';
    const std::string_view code = WithoutComment(text);
    line.is_empty = code.empty();
    line.is_single = code.size() == 1;
    line.text = Compile(code);
    line.has_numbering = std::any_of(line.text.pieces().begin(), line.text.pieces().end(), IsNumbering);
    return line;
}

CompiledTemplate CTextCompiler::CompileTemplate(const EventInfo& event, std::string_view tool_prefix) {
    CompiledTemplate compiled;
    compiled.event = &event;
    compiled.number = templates_++;
    const std::string key = TemplateKey(event, tool_prefix);
    compiled.trace_header = '<' + key + '>';
    TemplateLines lines;
    tuning_.GetMulti(key, lines);
    for (const CTemplateLine& line : lines) {
        compiled.lines.push_back(CompileLine(line.text));
        compiled.lines.back().number = compiled.lines.size() - 1;
    }
    const std::string prefix = std::string(tool_prefix).append(event.prefix);
    compiled.terminate = tuning_.ReadBool(Key("bTerminiate"), prefix);
    compiled.clear_speed = tuning_.ReadBool(Key("bClearSpeed"), prefix);
    compiled.clear_abs_inc = tuning_.ReadBool(Key("bClearAbsInc"), prefix);
    compiled.clear_interp = tuning_.ReadBool(Key("bClearInterp"), prefix);
    return compiled;
}

OptionText CTextCompiler::CompileOption(KeyRef key, std::string_view prefix) const {
    const std::string text = tuning_.ReadText(key, prefix);
    OptionText option;
    option.key = std::string(prefix).append(key->name);
    option.text = Compile(text);
    option.empty = text.empty();
    return option;
}

}  // namespace brindle
