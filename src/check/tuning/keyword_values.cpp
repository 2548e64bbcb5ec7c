#include "check/tuning/keyword_values.h"

namespace brindle {
namespace {

// A keyword without value gives whatever default it is asked with.
std::optional<double> IfSame(double a, double b) { return a == b ? std::optional(a) : std::nullopt; }

}  // namespace

bool TakesValue(const KeywordInfo& keyword) { return keyword.form != keyword.name; }

std::optional<double> ValueOf(const CAtDirKeywords& keywords, Keyword keyword) {
    switch (keyword) {
        case Keyword::kNDec: return IfSame(keywords.NDec(0), keywords.NDec(1));
        case Keyword::kIncBy: return IfSame(keywords.IncBy(0), keywords.IncBy(1));
        case Keyword::kFactor: return IfSame(keywords.Factor(0.0), keywords.Factor(1.0));
        case Keyword::kSetTo: return IfSame(keywords.SetTo(0.0), keywords.SetTo(1.0));
        default: return std::nullopt;
    }
}

}  // namespace brindle
