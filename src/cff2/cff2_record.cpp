#include "cff2/cff2_record.h"

#include "text/ascii.h"
#include "text/numbers.h"
#include "text/words.h"

namespace brindle::cff2 {
namespace {

using Words = std::vector<std::string_view>;

// Counts, types and ids reach the store through the host's 16-bit arguments.
int32_t ShortOf(std::string_view word) { return static_cast<int16_t>(LeadingInt(word)); }

Point PointOf(const Words& words, size_t at) { return {LeadingDouble(words[at]), LeadingDouble(words[at + 1])}; }

Record MainOf(const Words& words) { return MainName{std::string(words[1])}; }
Record CornerOf(const Words& words) { return UpperRight{PointOf(words, 1)}; }
Record SubOf(const Words& words) { return SubStart{std::string(words[1])}; }
Record InchesOf(const Words&) { return Units{true}; }
Record MillimetresOf(const Words&) { return Units{false}; }

Record CallOf(const Words& words) {
    return Call{std::string(words[1]), PointOf(words, 2), LeadingDouble(words[4]), LeadingInt(words[5]) != 0,
                LeadingInt(words[6]) != 0};
}

CutAttributes CutOf(const Words& words, size_t bridge_count, size_t bridge_width) {
    const int32_t type = ShortOf(words[2]);
    return {type, type, LeadingDouble(words[1]), ShortOf(words[bridge_count]), LeadingDouble(words[bridge_width])};
}

Record LineOf(const Words& words) { return Line{CutOf(words, 8, 9), PointOf(words, 4), PointOf(words, 6)}; }

Record ArcOf(const Words& words) {
    return Arc{CutOf(words, 12, 11), PointOf(words, 4), PointOf(words, 6), PointOf(words, 8), LeadingDouble(words[10])};
}

Record TextOf(const Words& words) {
    return Text{PointOf(words, 4), LeadingDouble(words[6]), static_cast<double>(LeadingInt(words[7]))};
}

constexpr std::string_view kMain = "MAIN";

struct Parser {
    RecordType type;
    Record (*parse)(const Words&);
};

constexpr Parser kParsers[] = {
    {{kMain, ".n"}, MainOf},      {{"UR", ".rr"}, CornerOf},       {{"SUB", ".n"}, SubOf},
    {{"C", ".nrramm"}, CallOf},   {{"UI", ".*"}, InchesOf},        {{"UM", ".*"}, MillimetresOf},
    {{"T", "....rrai."}, TextOf}, {{"A", ".rs.rrrrrrrrs"}, ArcOf}, {{"L", ".rs.rrrrsr"}, LineOf},
};

const Parser* FindParser(std::string_view name) {
    for (const Parser& parser : kParsers) {
        if (parser.type.name == name || (parser.type.name == kMain && EqualNoCase(name, kMain))) return &parser;
    }
    return nullptr;
}

}  // namespace

const RecordType* FindRecordType(std::string_view name) {
    const Parser* const parser = FindParser(name);
    return parser == nullptr ? nullptr : &parser->type;
}

Record ParseLine(std::string_view line, std::vector<std::string_view>& words) {
    SplitWords(line, words, " \t,");
    if (words.size() < 2) return Other{};
    const Parser* const parser = FindParser(words[0]);
    if (parser == nullptr) return Other{};
    const size_t needed = parser->type.words.size();
    if (words.size() < needed) return Short{parser->type.name, needed, parser->parse == TextOf};
    return parser->parse(words);
}

}  // namespace brindle::cff2
