#include "check/tuning/checked_tuning.h"

#include <algorithm>

#include "language/template_text.h"
#include "text/words.h"

namespace brindle {
namespace {

constexpr std::string_view kBlank = "!#SP#!";
constexpr std::string_view kNothing = "!#EMPTY#!";

bool StoresItem(const CheckedLine& line) {
    return line.words.size() >= 3 && !IsRunTimeDataLine(line) && KindOfType(line.words[0]).has_value();
}

// Whether a run can make this prefix: it writes tool numbers without leading zeros.
bool IsRunsPrefix(std::string_view prefix, int32_t number) { return prefix == ToolPrefixText(number); }

int32_t NumberOfPrefix(std::string_view prefix) { return prefix == "T_" ? -1 : LeadingInt(prefix.substr(1)); }

}  // namespace

std::optional<KeyKind> KindOfType(std::string_view type) {
    if (type == "BOOL") return KeyKind::kBool;
    if (type == "INT") return KeyKind::kInt;
    if (type == "REAL") return KeyKind::kReal;
    if (type == "TEXT" || type == "R_EXPR" || type == "T_EXPR") return KeyKind::kText;
    if (type == "MULTI") return KeyKind::kTemplate;
    return std::nullopt;
}

bool CheckedItem::HasRightKind() const {
    return match.info != nullptr && KindOfType(line->words[0]) == match.info->kind;
}

std::string_view CheckedLine::Word(size_t index) const {
    if (words.empty()) return text.substr(0, 0);
    return words[std::min(index, words.size() - 1)];
}

PlacedText::PlacedText(const CheckedLine& line, std::string_view word) : line_(line.number) {
    const size_t first = line.ColumnOf(word);
    std::string blanks_back;
    std::vector<size_t> columns;
    for (size_t at = 0; at < word.size();) {
        const bool is_blank = word.substr(at).starts_with(kBlank);
        blanks_back.push_back(is_blank ? ' ' : word[at]);
        columns.push_back(first + at);
        at += is_blank ? kBlank.size() : 1;
    }
    for (size_t at = 0; at < blanks_back.size();) {
        if (std::string_view(blanks_back).substr(at).starts_with(kNothing)) {
            at += kNothing.size();
            continue;
        }
        text_.push_back(blanks_back[at]);
        columns_.push_back(columns[at]);
        ++at;
    }
    columns_.push_back(first + word.size());
}

CCheckedTuning::CCheckedTuning(std::span<const std::string_view> lines) {
    lines_.reserve(lines.size());
    for (const std::string_view text : lines) {
        CheckedLine& line = lines_.emplace_back();
        line.number = lines_.size();
        line.text = text;
        if (text.find('\0') != text.npos) continue;
        SplitWords(text, line.words);
        options_.ReadLine(text, CRunTimeDataDef::ReadMode::kTuning);
    }
    FindItems();
    FindTools();
    FindTexts();
}

void CCheckedTuning::FindItems() {
    std::unordered_map<std::string_view, size_t> last_line;
    for (const CheckedLine& line : lines_) {
        if (StoresItem(line)) last_line[line.words[1]] = line.number;
    }
    for (const CheckedLine& line : lines_) {
        if (!StoresItem(line) || last_line[line.words[1]] != line.number) continue;
        item_of_key_.emplace(line.words[1], items_.size());
        items_.push_back({&line, line.words[1], MatchKey(line.words[1])});
    }
}

void CCheckedTuning::FindTexts() {
    for (const CheckedItem& item : items_) {
        if (!item.HasRightKind()) continue;
        const std::vector<std::string_view>& words = item.line->words;
        if (item.match.info->kind == KeyKind::kText) texts_.push_back({&item, PlacedText(*item.line, words[2]), {}});
        if (item.match.info->kind != KeyKind::kTemplate) continue;
        CNWordInfo n_word;
        for (size_t i = 2; i + 1 < words.size(); i += 2) {
            if (ParseNWord(words[i], n_word)) texts_.push_back({&item, PlacedText(*item.line, words[i + 1]), {}});
        }
    }
    for (CheckedText& text : texts_) {
        const std::string_view code = text.InTemplate() ? WithoutComment(text.placed.text()) : text.placed.text();
        text.pieces = PlacePieces(code);
        for (const PlacedPiece& piece : text.pieces) {
            if (piece.piece.kind != TemplatePiece::Kind::kDirective) continue;
            std::string name = piece.piece.text;
            const CAtDirKeywords keywords(name);
            const DirectiveInfo* const directive = FindDirective(name);
            if (directive == nullptr) continue;
            directives_.push_back({directive, keywords.words(), &text, text.ColumnOf(piece), name.size()});
        }
    }
}

void CCheckedTuning::FindTools() {
    for (const CheckedItem& item : items_) {
        if (item.match.info == nullptr || item.match.tool_prefix.empty()) continue;
        CheckedTool& tool = tools_[std::string(item.match.tool_prefix)];
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

void CCheckedTuning::FindAbilities() {
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

bool CCheckedTuning::HasBareSpeed(std::string_view prefix) const {
    constexpr KeyRef kSpeeds[] = {Key("Speed_P1_sV1"), Key("Speed_P1_sV2"), Key("Speed_P2_sV1"), Key("Speed_P2_sV2")};
    return std::any_of(std::begin(kSpeeds), std::end(kSpeeds), [&](KeyRef key) {
        const std::string speed = options_.ReadText(key, prefix);
        return !speed.empty() && std::string_view("0123456789.").find(speed[0]) != std::string_view::npos;
    });
}

const CheckedItem* CCheckedTuning::Find(std::string_view key) const {
    const auto found = item_of_key_.find(key);
    return found == item_of_key_.end() ? nullptr : &items_[found->second];
}

const CheckedTool* CCheckedTuning::Tool(std::string_view prefix) const {
    const auto found = tools_.find(prefix);
    return found == tools_.end() ? nullptr : &found->second;
}

bool IsRunTimeDataLine(const CheckedLine& line) {
    constexpr std::string_view kWords[] = {"UPD", "ROW", "COL", "MSG", "DATASETDEF", "DSD"};
    return std::find(std::begin(kWords), std::end(kWords), line.Word(0)) != std::end(kWords);
}

void AddAtWord(CFindings& findings, Severity severity, const CheckedLine& line, std::string_view word,
               std::string text) {
    findings.Add(severity, line.number, line.ColumnOf(word), word.size(), std::move(text));
}

void AddAtKey(CFindings& findings, Severity severity, const CheckedItem& item, std::string text) {
    AddAtWord(findings, severity, *item.line, item.key, std::move(text));
}

}  // namespace brindle
