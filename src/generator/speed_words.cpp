#include <algorithm>
#include <cmath>

#include "generator/evaluators.h"
#include "geometry/rounding.h"
#include "text/numbers.h"

namespace brindle {
namespace {

constexpr double kSmallComponent = 0.0001;  // of a direction's sine or cosine
constexpr double kSmallWeight = 0.0005;

// A speed of up to two terms, each a text of the tuning with its weight. An empty first term is no speed.
struct Speed {
    std::string_view a, b;
    double weight_a = 1.0;
    double weight_b = 1.0;
};

// The two values between which a direction lies, by number from 0: axis 1 plus, axis 2 plus, axis 1 minus, axis 2
// minus.
struct Quadrant {
    int a, b;
};

double Interpolate(double radius, double low, double at_low, double high, double at_high) {
    if (high <= low) return at_low;
    const double t = (high - radius) / (high - low);
    return (1.0 - t) * at_high + t * at_low;
}

// How much slower than its speed a tight arc of `radius` (millimetres) is cut.
double SmallRadiusFactor(const SpeedOptions& speed, double radius) {
    if (radius < speed.threshold5) return 0.05;
    if (radius < speed.threshold25) return Interpolate(radius, speed.threshold5, 0.05, speed.threshold25, 0.25);
    if (radius < speed.threshold50) return Interpolate(radius, speed.threshold25, 0.25, speed.threshold50, 0.5);
    if (radius < speed.threshold100) return Interpolate(radius, speed.threshold50, 0.5, speed.threshold100, 1.0);
    return 1.0;
}

// Weights go with the angle in a straight line from one axis to the next.
void SetProRataWeights(double direction, double sine, double cosine, Speed& speed) {
    const double quarters = direction / kQuarterTurn;
    const double f = quarters <= 1.0 ? quarters : std::fmod(quarters, 1.0);
    if (std::fabs(sine) < kSmallComponent) {
        speed.weight_a = 1.0;
    } else if (std::fabs(cosine) < kSmallComponent) {
        speed.weight_a = 0.0;
    } else {
        speed.weight_a = cosine * sine > kSmallComponent ? 1.0 - f : f;
        speed.weight_b = cosine * sine > kSmallComponent ? f : 1.0 - f;
        return;
    }
    speed.weight_b = 1.0 - speed.weight_a;
}

Quadrant ProRataQuadrant(bool four_values, double sine, double cosine) {
    if (!four_values) return {0, 1};
    if (sine > -kSmallComponent && cosine > -0.9999) return {cosine > kSmallComponent ? 0 : 2, 1};
    return {cosine < -kSmallComponent ? 2 : 0, 3};
}

int NearestAxis(bool four_values, double sine, double cosine) {
    if (std::fabs(cosine) >= std::fabs(sine)) return four_values && cosine < kSmallComponent ? 2 : 0;
    return four_values && sine < kSmallComponent ? 3 : 1;
}

// Evaluates the speed of the current record for one parameter of one tool.
class CSpeedEvaluator {
public:
    CSpeedEvaluator(CTextResolver& resolver, const ToolData& tool, int parameter)
        : resolver_(resolver),
          run_(resolver.run()),
          options_(run_.options.speed),
          tool_(tool),
          parameter_(static_cast<size_t>(parameter)) {}

    // The word without its address; empty if there is no speed. It is good as long as the evaluator.
    std::string_view Word() {
        Speed speed = Choose();
        if (speed.a.empty()) return {};
        const double factor = Factor();
        if (!options_.as_value) return AsExpression(speed, factor);
        word_ = AsValue(speed, factor);
        return word_;
    }

private:
    std::string_view FirstTerm(const OptionText& option) { return resolver_.ReadText(option, scratch_a_); }
    const OptionText& Value(int number) { return tool_.speeds[parameter_][number]; }

    Speed Choose() {
        const CNCData& record = run_.Record();
        Speed speed;
        if (record.IsArc() && tool_.separate_arc_speed) {
            speed.a = FirstTerm(tool_.arc_speeds[parameter_]);
            if (tool_.slows_small_radii) speed.weight_a = std::max(RadiusFactor(record), options_.tolerance);
            return speed;
        }
        if (options_.single) {
            speed.a = FirstTerm(Value(0));
            return speed;
        }
        ChooseByDirection(record, speed);
        return speed;
    }

    double RadiusFactor(const CNCData& record) const {
        double radius = std::fabs(record.GetRadius());
        if (run_.controller.in_inches) radius *= kMillimetresPerInch;
        return SmallRadiusFactor(options_, radius);
    }

    void ChooseByDirection(const CNCData& record, Speed& speed) {
        const double angle = record.IsArc() ? AngleOf(record.Start(), record.End()) : record.GetStartAngle(false);
        const double direction = NormalizePositive(angle, false);
        const double sine = std::sin(direction);
        const double cosine = std::cos(direction);
        if (!options_.pro_rata) {
            speed.a = FirstTerm(Value(NearestAxis(options_.four_values, sine, cosine)));
            return;
        }
        SetProRataWeights(direction, sine, cosine, speed);
        const Quadrant quadrant = ProRataQuadrant(options_.four_values, sine, cosine);
        speed.a = FirstTerm(Value(quadrant.a));
        speed.b = resolver_.ReadText(Value(quadrant.b), scratch_b_);
    }

    double Factor() {
        if (!options_.use_factor) return 1.0;
        std::string scratch;
        const std::string_view text = resolver_.ReadText(options_.factor, scratch);
        const double factor = text.empty() ? 1.0 : LeadingDouble(text);
        return std::fabs(factor) < options_.tolerance ? 1.0 : factor;
    }

    double Rounded(double value) const { return RoundToDecimals(value, options_.decimals); }

    std::string Number(double value) const {
        return std::string(CNumberText(Rounded(value), options_.decimals, run_.state.trim).view());
    }

    std::string AsValue(const Speed& speed, double factor) const {
        double value = LeadingDouble(speed.a) * speed.weight_a;
        if (!speed.b.empty()) value += LeadingDouble(speed.b) * speed.weight_b;
        value *= factor;
        return std::fabs(Rounded(value)) < options_.tolerance ? std::string() : Number(value);
    }

    std::string Wrap(const std::string& text) const { return options_.open_bracket + text + options_.close_bracket; }

    static bool IsWhole(double weight) { return std::fabs(weight - 1.0) < kSmallWeight; }

    std::string Term(std::string_view text, double weight) const {
        std::string term(text);
        return IsWhole(weight) ? term : Wrap(term + '*' + Number(weight));
    }

    std::string_view AsExpression(Speed& speed, double factor) {
        if (std::fabs(factor - 1.0) > kSmallWeight) {
            speed.weight_a *= factor;
            speed.weight_b *= factor;
        }
        const bool has_b = !speed.b.empty() && std::fabs(speed.weight_b) >= kSmallWeight;
        if (!has_b && IsWhole(speed.weight_a)) return speed.a;
        if (std::fabs(speed.weight_a) >= kSmallWeight) word_ = Term(speed.a, speed.weight_a);
        if (!has_b) return word_;
        const std::string second = Term(speed.b, speed.weight_b);
        word_ = word_.empty() ? second : Wrap(word_ + '+' + second);
        return word_;
    }

    CTextResolver& resolver_;
    RunContext& run_;
    const SpeedOptions& options_;
    const ToolData& tool_;
    size_t parameter_;
    std::string scratch_a_, scratch_b_;  // where the terms are kept
    std::string word_;
};

// Adds the word of one parameter of the selected tool. False if it repeats the last one, which silences the whole
// directive.
bool AddSpeedWord(CTextResolver& resolver, int parameter, std::string_view address, bool modal, std::string& last,
                  std::string& words) {
    RunContext& run = resolver.run();
    const ToolData& tool = *run.tools.Get(run.state.tool.selected).own;
    CSpeedEvaluator speed(resolver, tool, parameter);
    const std::string_view word = tool.exists() ? speed.Word() : std::string_view();
    const bool is_repeat = modal && !IsNew(last, word);
    resolver.Log({.kind = WordKind::kSpeed,
                  .fate = is_repeat      ? WordFate::kRepeat
                          : word.empty() ? WordFate::kNothing
                                         : WordFate::kWritten,
                  .axis = static_cast<uint8_t>(parameter),
                  .text = word});
    if (is_repeat) return false;
    last = word;
    if (word.empty()) return true;
    words.append(address).append(word);
    resolver.AppendSeparator(words);
    return true;
}

}  // namespace

void SpeedWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const SpeedOptions& speed = run.options.speed;
    const bool modal = keywords.WantModal(speed.modal);
    std::string words, scratch;
    std::string_view address = resolver.ReadText(speed.address[0], scratch);
    if (keywords.WantAxis1(true) && !AddSpeedWord(resolver, 0, address, modal, run.state.last.speed[0], words)) return;
    address = resolver.ReadText(speed.address[1], scratch);
    if (speed.two_parameters && keywords.WantAxis2(true) &&
        !AddSpeedWord(resolver, 1, address, modal, run.state.last.speed[1], words)) {
        return;
    }
    out += words;
}

}  // namespace brindle
