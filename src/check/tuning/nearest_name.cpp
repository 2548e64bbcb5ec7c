#include "check/tuning/nearest_name.h"

#include "language/directives.h"
#include "language/keywords.h"
#include "text/nearest_name.h"

namespace brindle {

std::string NearestName(std::string_view word, std::span<const std::string_view> names) {
    CNearestName nearest(word);
    for (const std::string_view name : names) nearest.Offer(name);
    return nearest.best();
}

std::string NearestDirective(std::string_view word) {
    CNearestName nearest(word);
    for (const DirectiveInfo& info : DirectiveTable()) nearest.Offer(info.name);
    return nearest.best();
}

std::string NearestKeyword(std::string_view word) {
    CNearestName nearest(word);
    for (const KeywordInfo& info : KeywordTable()) nearest.Offer(info.name);
    return nearest.best();
}

}  // namespace brindle
