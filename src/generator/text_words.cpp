#include <cmath>

#include "generator/evaluators.h"
#include "geometry/rounding.h"
#include "text/words.h"

namespace brindle {
namespace {

// Text heights in points count 100 to the inch.
constexpr double kPointsPerInch = 100.0;

struct TextNumber {
    double value;
    double factor;
    int32_t decimals;
};

void ModalNumber(CTextResolver& resolver, const CAtDirKeywords& keywords, const TextNumber& word,
                 const OptionText& address, bool modal, std::string& last, std::string& out) {
    const double value = RoundScaled(word.value, word.factor, word.decimals);
    const CNumberText number(value, word.decimals, resolver.run().state.trim);
    const LoggedWord logged{.kind = WordKind::kText, .text = number.view()};
    resolver.AppendWord(keywords.WantAddress(true) ? &address : nullptr, logged, keywords.WantModal(modal), last, out);
}

double RotationValue(double radians, const CAtDirKeywords& keywords) {
    if (keywords.HasWord(Keyword::kCos)) return std::cos(radians);
    if (keywords.HasWord(Keyword::kSin)) return std::sin(radians);
    return radians / kRadiansPerDegree;
}

}  // namespace

void TextDataWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const TextOptions& options = run.options.text;
    std::string text = run.Record().GetTextString();
    if (!run.options.programs.use_text || text.empty()) return;
    std::string from;
    resolver.AppendText(options.replace_from, from);
    if (!from.empty()) {
        std::string to;
        resolver.AppendText(options.replace_to, to);
        text = ReplaceAll(text, from, to);
    }
    resolver.Log({.kind = WordKind::kText, .text = text});
    if (keywords.WantAddress(true)) resolver.AppendText(options.data_address, out);
    out += text;
}

void TextRotWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const TextOptions& options = run.options.text;
    if (!run.options.programs.use_text) return;
    const TextNumber word{RotationValue(run.Record().GetTextRotation(), keywords),
                          options.rotation_factor * keywords.Factor(1.0), keywords.NDec(options.rotation_decimals)};
    ModalNumber(resolver, keywords, word, options.rotation_address, options.rotation_modal,
                run.state.last.text_rotation, out);
}

void TextHgtWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const TextOptions& options = run.options.text;
    if (!run.options.programs.use_text) return;
    const bool inches = run.controller.in_inches;
    double height = run.Record().GetTextHeight();
    if (options.height_in_points) {
        if (!inches) height /= kMillimetresPerInch;
        height *= kPointsPerInch;
    }
    const TextOptions::Height& unit = inches ? options.height_inches : options.height_metric;
    const TextNumber word{height, keywords.Factor(1.0) * unit.factor, keywords.NDec(unit.decimals)};
    ModalNumber(resolver, keywords, word, options.height_address, options.height_modal, run.state.last.text_height,
                out);
}

}  // namespace brindle
