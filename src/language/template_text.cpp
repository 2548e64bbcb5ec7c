#include "language/template_text.h"

#include <algorithm>
#include <utility>

#include "tuning/run_time_data_def.h"

namespace brindle {
namespace {

constexpr std::string_view kDirectiveOpening = "<@";
constexpr std::string_view kRunValueOpening = "<RTD";

std::string MarkOpenings(std::string_view text) {
    std::string marked;
    size_t done = 0;
    for (size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        const std::string_view rest = text.substr(at);
        if (!rest.starts_with(kDirectiveOpening) && !rest.starts_with(kRunValueOpening)) continue;
        marked.append(text.substr(done, at - done)).append(kWordMarker);
        done = at + 1;
    }
    return marked.append(text.substr(done));
}

void AddPiece(std::vector<TemplatePiece>& pieces, std::string_view text) {
    using Kind = TemplatePiece::Kind;
    if (text.empty()) return;
    const Kind kind = text[0] == '@'                          ? Kind::kDirective
                      : text.starts_with(kRunTimeWordOpening) ? Kind::kRunValue
                                                              : Kind::kFixed;
    pieces.push_back({kind, std::string(text)});
}

}  // namespace

std::vector<TemplatePiece> CutTemplateText(std::string_view text) {
    std::vector<TemplatePiece> pieces;
    const std::string marked = MarkOpenings(text);
    std::string_view rest = marked;
    bool closings_left = true;
    for (size_t at = rest.find(kWordMarker); at != std::string_view::npos; at = rest.find(kWordMarker)) {
        AddPiece(pieces, rest.substr(0, at));
        rest.remove_prefix(at + kWordMarker.size());
        if (!closings_left) continue;
        const size_t close = rest.find('>');
        closings_left = close != std::string_view::npos;
        if (!closings_left || close == 0) continue;
        AddPiece(pieces, rest.substr(0, close));
        rest.remove_prefix(close + 1);
    }
    AddPiece(pieces, rest);
    return pieces;
}

std::string_view WithoutComment(std::string_view text) { return text.substr(0, std::min(text.find('!'), text.size())); }

}  // namespace brindle
