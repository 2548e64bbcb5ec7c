#include "generator/template_use.h"

#include <array>

namespace brindle {

TemplateUse UseOf(const CompiledTemplate& compiled) {
    struct Row {
        std::string_view name;
        TemplateUse use;
    };
    static constexpr std::array kWhole = {
        Row{"<Move_tTmpl>", TemplateUse::kMove},
        Row{"<Line_tTmpl>", TemplateUse::kLine},
        Row{"<Arc_tTmpl>", TemplateUse::kArc},
        Row{"<Text_tTmpl>", TemplateUse::kText},
        Row{"<MoveToIncludePt_tTmpl>", TemplateUse::kMoveToCall},
        Row{"<SubCall_tTmpl>", TemplateUse::kCall},
        Row{"<SubReset_tTmpl>", TemplateUse::kCallReset},
        Row{"<OriTransSet_tTmpl>", TemplateUse::kOriginSet},
        Row{"<OriTransReset_tTmpl>", TemplateUse::kOriginReset},
    };
    static constexpr std::array kOfTools = {
        Row{"ToolSel_tTmpl>", TemplateUse::kToolSelect},
        Row{"ToolDesel_tTmpl>", TemplateUse::kToolDeselect},
        Row{"ToolOn_tTmpl>", TemplateUse::kToolOn},
        Row{"ToolOff_tTmpl>", TemplateUse::kToolOff},
    };
    for (const Row& row : kWhole) {
        if (compiled.trace_header == row.name) return row.use;
    }
    for (const Row& row : kOfTools) {
        if (compiled.trace_header.ends_with(row.name)) return row.use;
    }
    return TemplateUse::kFrame;
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

std::string SourceOf(const CompiledTemplate& compiled) {
    std::string source;
    for (const CompiledLine& line : compiled.lines) {
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

bool HasDirective(const CompiledTemplate& compiled, DirectiveId directive) {
    for (const CompiledLine& line : compiled.lines) {
        if (line.is_comment) continue;
        for (const CompiledPiece& piece : line.text.pieces()) {
            if (piece.kind == CompiledPiece::Kind::kDirective && piece.directive == directive) return true;
        }
    }
    return false;
}

}  // namespace brindle
