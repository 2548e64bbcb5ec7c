#include "check/tuning/placed_tuning.h"

#include <algorithm>

#include "language/template_text.h"
#include "text/words.h"
#include "tuning/type_words.h"

namespace brindle {
namespace {

bool StoresItem(const PlacedLine& line) {
    return line.words.size() >= 3 && !line.Definition() && FindTypeWord(line.words[0]) != nullptr;
}

// Whether a run can make this prefix: it writes tool numbers without leading zeros.
bool IsRunsPrefix(std::string_view prefix, int32_t number) { return prefix == ToolPrefixText(number); }

int32_t NumberOfPrefix(std::string_view prefix) { return prefix == "T_" ? -1 : LeadingInt(prefix.substr(1)); }

}  // namespace

bool PlacedItem::HasRightKind() const {
    return match.info != nullptr && FindTypeWord(line->words[0])->kind == match.info->kind;
}

std::string_view PlacedLine::Word(size_t index) const {
    if (words.empty()) return text.substr(0, 0);
    return words[std::min(index, words.size() - 1)];
}

PlacedWord::PlacedWord(const PlacedLine& line, std::string_view word)
    : text_(UnescapeWord(word, &origins_)), place_(line.PlaceOf(word)) {
    origins_.push_back(word.size());
}

Place PlacedWord::PlaceOf(size_t at, size_t length) const {
    const size_t first = OriginOf(at);
    return {place_.line, place_.column + first, std::max<size_t>(OriginOf(at + length) - first, 1)};
}

CPlacedTuning::CPlacedTuning(std::span<const std::string_view> lines) {
    lines_.reserve(lines.size());
    for (const std::string_view text : lines) {
        PlacedLine& line = lines_.emplace_back();
        line.number = lines_.size();
        line.text = text;
        if (text.find('\0') != text.npos) continue;
        SplitWords(text, line.words);
        options_.ReadFileLine(text);
    }
    FindItems();
    FindTools();
    FindTexts();
}

void CPlacedTuning::FindItems() {
    std::unordered_map<std::string_view, size_t> last_line;
    for (const PlacedLine& line : lines_) {
        if (StoresItem(line)) last_line[line.words[1]] = line.number;
    }
    for (const PlacedLine& line : lines_) {
        if (!StoresItem(line) || last_line[line.words[1]] != line.number) continue;
        item_of_key_.emplace(line.words[1], items_.size());
        items_.push_back({&line, line.words[1], MatchKey(line.words[1])});
    }
}

void CPlacedTuning::FindTexts() {
    for (const PlacedItem& item : items_) {
        if (!item.HasRightKind()) continue;
        const std::vector<std::string_view>& words = item.line->words;
        if (item.match.info->kind == KeyKind::kText) texts_.push_back({&item, PlacedWord(*item.line, words[2]), {}});
        if (item.match.info->kind != KeyKind::kTemplate) continue;
        CNWordInfo n_word;
        for (size_t i = 2; i + 1 < words.size(); i += 2) {
            if (ParseNWord(words[i], n_word)) texts_.push_back({&item, PlacedWord(*item.line, words[i + 1]), {}});
        }
    }
    for (PlacedText& text : texts_) {
        const std::string_view code = text.InTemplate() ? WithoutComment(text.word.text()) : text.word.text();
        text.pieces = PlacePieces(code);
        for (size_t i = 0; i < text.pieces.size(); ++i) {
            const PlacedPiece& placed = text.pieces[i];
            if (placed.piece.kind != TemplatePiece::Kind::kDirective) continue;
            std::string name = placed.piece.text;
            const CAtDirKeywords keywords(name);
            const DirectiveInfo* const directive = FindDirective(name);
            if (directive == nullptr) continue;
            directives_.push_back({directive, keywords.words(), &text, text.word.PlaceOf(placed.at, name.size()), i});
        }
    }
}

void CPlacedTuning::FindTools() {
    for (const PlacedItem& item : items_) {
        if (item.match.info == nullptr || item.match.tool_prefix.empty()) continue;
        ToolUse& tool = tools_[std::string(item.match.tool_prefix)];
        if (tool.first == nullptr) tool.first = &item;
        ++tool.keys;
    }
    for (auto& [prefix, tool] : tools_) {
        tool.number = NumberOfPrefix(prefix);
        if (!IsRunsPrefix(prefix, tool.number)) continue;
        tool.own = options_.ToolKeyPrefix(tool.number, false) == prefix;
    }
    for (const auto& [prefix, tool] : tools_) {
        if (!tool.own) continue;
        const auto master = tools_.find(prefix == "T_" ? prefix : options_.ToolKeyPrefix(tool.number, true));
        if (master != tools_.end()) master->second.physical = true;
    }
    FindAbilities();
}

void CPlacedTuning::FindAbilities() {
    const int32_t last = options_.ReadInt(Key("nNumOfTools"));
    int32_t unused = 0;
    for (const auto& [prefix, tool] : tools_) {
        if (!tool.own && tool.number > 0 && tool.number <= last && IsRunsPrefix(prefix, tool.number)) ++unused;
        abilities_.tangential |= tool.physical && options_.IsTangential(prefix);
        abilities_.fly |= tool.physical && options_.ReadBool(Key("Fly_bUse"), prefix);
        abilities_.bare_speeds |= tool.own && HasBareSpeed(prefix);
        abilities_.small_radii |= tool.own && options_.ReadBool(Key("Speed_bSepForArcs"), prefix) &&
                                  options_.ReadBool(Key("Speed_bUseSmallRadiiFormula"), prefix);
    }
    abilities_.any = options_.ReadBool(Key("bDefaultTool")) || last > unused;
}

bool CPlacedTuning::HasBareSpeed(std::string_view prefix) const {
    constexpr KeyRef kSpeeds[] = {Key("Speed_P1_sV1"), Key("Speed_P1_sV2"), Key("Speed_P2_sV1"), Key("Speed_P2_sV2")};
    return std::any_of(std::begin(kSpeeds), std::end(kSpeeds), [&](KeyRef key) {
        const std::string speed = options_.ReadText(key, prefix);
        return !speed.empty() && std::string_view("0123456789.").find(speed[0]) != std::string_view::npos;
    });
}

const PlacedItem* CPlacedTuning::Find(std::string_view key) const {
    const auto found = item_of_key_.find(key);
    return found == item_of_key_.end() ? nullptr : &items_[found->second];
}

const ToolUse* CPlacedTuning::Tool(std::string_view prefix) const {
    const auto found = tools_.find(prefix);
    return found == tools_.end() ? nullptr : &found->second;
}

}  // namespace brindle
