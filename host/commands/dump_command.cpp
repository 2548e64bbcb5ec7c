#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/commands/tuning_argument.h"
#include "host/console/messages.h"
#include "host/load/loaded_tuning.h"
#include "language/compiled_text.h"
#include "language/directives.h"
#include "language/template_text.h"
#include "text/numbers.h"

namespace brindle::host {
namespace {

struct DumpOptions {
    TuningArgument input;
    std::string key;
};

// `text` between double quotes, with what can't be seen as escapes.
std::string Literal(std::string_view text) {
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    std::string literal = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') literal.push_back('\\');
        if (byte >= 0x20 && byte != 0x7F) {
            literal.push_back(c);
        } else {
            literal.append("\\x").append({kHexDigits[byte >> 4], kHexDigits[byte & 15]});
        }
    }
    return literal + "\"";
}

// A keyword as the directive reads it, with its value if it has one.
std::string KeywordText(const KeywordInfo& info, const CAtDirKeywords& keywords) {
    const std::string name(info.name);
    const std::optional<double> value = keywords.ValueOf(info.keyword);
    return value ? name + "(" + ShortNumber(*value) + ")" : name;
}

std::string DirectiveText(const CompiledPiece& piece) {
    if (piece.directive == DirectiveId::kIODwell) return piece.text + "  " + Literal(piece.keywords.value_text());
    std::string counted, ignored;
    for (const KeywordInfo& info : KeywordTable()) {
        if (!piece.keywords.HasWord(info.keyword)) continue;
        std::string& list = Info(piece.directive).keywords.Has(info.keyword) ? counted : ignored;
        list.append(" ").append(KeywordText(info, piece.keywords));
    }
    std::string text = piece.text;
    if (!counted.empty()) text.append(" ").append(counted);
    if (!ignored.empty()) text.append("  ignored:").append(ignored);
    return text;
}

class Dumper {
public:
    explicit Dumper(const CBrindleOpts& tuning) : tuning_(tuning), compiler_(tuning, values_) {
        const CDataSetContainer& datasets = tuning.definition().datasets();
        if (datasets.size() > 0) values_.Assign(*datasets.ValuesAt(0));
    }

    void PrintAll() {
        if (tuning_.definition().datasets().size() > 0) {
            std::cout << "run-time data of dataset " << tuning_.definition().FirstDatasetName() << "\n\n";
        }
        for (const std::string& prefix : Prefixes()) PrintTemplate(prefix);
        for (const auto& [key, item] : tuning_.items()) {
            if (const auto* text = dynamic_cast<const CTextKVItem*>(item.get())) PrintOption(key, text->value());
        }
    }

    // False if the tuning has no such template. `key` may lack the end that all keys of templates have.
    bool PrintOne(std::string_view key) {
        for (const std::string& prefix : Prefixes()) {
            if (key != prefix && key != prefix + "tTmpl") continue;
            PrintTemplate(prefix);
            return true;
        }
        return false;
    }

private:
    // The prefixes of all templates, those of tools after the others and by number.
    std::vector<std::string> Prefixes() const {
        struct Place {
            size_t length;  // of the tool prefix: numbers without leading zeros ascend with it
            std::string tool;
            const EventInfo* event;
            std::string prefix;
        };
        std::vector<Place> places;
        for (const auto& [key, item] : tuning_.items()) {
            const KeyMatch match = MatchKey(key);
            if (match.event == nullptr || match.info->kind != KeyKind::kTemplate) continue;
            if (dynamic_cast<const CMultiLineKVItem*>(item.get()) == nullptr) continue;
            places.push_back({match.tool_prefix.size(), std::string(match.tool_prefix), match.event,
                              key.substr(0, key.size() - match.info->name.size())});
        }
        std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) {
            return std::tie(a.length, a.tool, a.event) < std::tie(b.length, b.tool, b.event);
        });
        std::vector<std::string> prefixes;
        prefixes.reserve(places.size());
        for (Place& place : places) prefixes.push_back(std::move(place.prefix));
        return prefixes;
    }

    void PrintTemplate(const std::string& prefix) {
        const std::string key = prefix + "tTmpl";
        const KeyMatch match = MatchKey(key);
        const CompiledTemplate compiled = compiler_.CompileTemplate(*match.event, match.tool_prefix);
        TemplateLines lines;
        tuning_.GetMulti(key, lines);
        std::cout << "template " << key << (compiled.terminate ? "" : ", last line goes on")
                  << (compiled.clear_speed ? ", clears speed" : "")
                  << (compiled.clear_abs_inc ? ", clears abs/inc code" : "")
                  << (compiled.clear_interp ? ", clears interpolation code" : "") << "\n";
        for (size_t i = 0; i < compiled.lines.size(); ++i) {
            const CompiledLine& line = compiled.lines[i];
            const char* const what = line.is_comment ? ", comment" : line.is_empty ? ", empty block" : "";
            std::cout << "  line " << i + 1 << what << "\n";
            if (!line.is_comment) PrintPieces(line.text, WithoutComment(lines[i].text));
        }
        std::cout << "\n";
    }

    void PrintOption(const std::string& key, const std::string& value) const {
        const CCompiledText text = compiler_.Compile(value);
        if (text.is_constant() && text.constant() == value) return;
        std::cout << "option " << key << "\n";
        PrintPieces(text, value);
        std::cout << "\n";
    }

    // `source` is what `text` was compiled from: it has the words whose values are in the compiled text.
    void PrintPieces(const CCompiledText& text, std::string_view source) const {
        const std::vector<TemplatePiece> written = CutTemplateText(source);
        for (size_t i = 0; i < text.pieces().size(); ++i) {
            std::cout << "    " << PieceText(text.pieces()[i], written[i].text) << "\n";
        }
    }

    std::string PieceText(const CompiledPiece& piece, const std::string& word) const {
        switch (piece.kind) {
            case CompiledPiece::Kind::kFixed: return "text       " + Literal(piece.text);
            case CompiledPiece::Kind::kDirective: return "directive  " + DirectiveText(piece);
            case CompiledPiece::Kind::kUnknownDirective: return "unknown    " + Literal(piece.text);
            case CompiledPiece::Kind::kMissingRunValue: return "no value   " + word;
            case CompiledPiece::Kind::kRunValue: break;
        }
        std::string value;
        TextKind kind = TextKind::kPlain;
        values_.GetTextAndKind(word, value, kind);
        return "value      " + word + "  " + Literal(piece.text) + (kind == TextKind::kPlain ? "" : "  expression");
    }

    const CBrindleOpts& tuning_;
    CKVItemContainer values_;
    CTextCompiler compiler_;
};

int Dump(DumpOptions& options) {
    SettleTuning(options.input);
    LoadedTuning tuning;
    if (!LoadTuning(options.input.tuning, {}, tuning)) return kBadInput;
    Dumper dumper(tuning.options);
    if (options.key.empty()) {
        dumper.PrintAll();
    } else if (!dumper.PrintOne(options.key)) {
        PrintError({options.input.tuning}, "no template " + Quoted(options.key));
        return kBadInput;
    }
    return kGood;
}

}  // namespace

void AddDumpCommand(CLI::App& app, int& status) {
    const auto options = std::make_shared<DumpOptions>();
    CLI::App& command =
        AddCommand(app, "dump", "Prints the templates of a tuning as a run compiles them",
                   {.usage = "TUNING",
                    .notes = "Each line of a template is printed as its pieces: text, directives with the\n"
                             "keywords that they read, and values of run-time data, taken from the first\n"
                             "dataset. Option texts follow that hold more than text.",
                    .example = "brindle dump laser.tun --template Line_tTmpl",
                    .status = kUsualStatus});
    AddTuning(command, options->input);
    command.add_option("--template", options->key, "This template alone, such as Line_tTmpl or T1_ToolOn_tTmpl")
        ->type_name("KEY");
    command.callback([options, &status] { status = Dump(*options); });
}

}  // namespace brindle::host
