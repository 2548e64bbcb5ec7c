#include "verify/tool_power.h"

#include <algorithm>
#include <cstdlib>

#include "text/ascii.h"

namespace brindle {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Whether `text` holds a word of that letter and one of the numbers, 0 to 9; any number if `numbers` is empty.
bool HasWord(std::string_view text, char letter, std::string_view numbers) {
    for (size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != letter && text[i] != letter - 'A' + 'a') continue;
        size_t digit = i + 1;
        if (!IsDigit(text[digit])) continue;
        if (numbers.empty()) return true;
        while (digit + 1 < text.size() && text[digit] == '0' && IsDigit(text[digit + 1])) ++digit;
        const bool ends = digit + 1 >= text.size() || !IsDigit(text[digit + 1]);
        if (ends && numbers.find(text[digit]) != std::string_view::npos) return true;
    }
    return false;
}

constexpr double kSameDepth = 1e-6;

// The words of a text, without regard to what they mean.
class NcWords {
public:
    explicit NcWords(std::string_view text) {
        bool in_comment = false;
        for (size_t i = 0; i < text.size(); ++i) {
            const char c = UpperAscii(text[i]);
            if (c == '(') in_comment = true;
            if (c == ')') in_comment = false;
            if (in_comment || c < 'A' || c > 'Z') continue;
            words_.push_back(
                {c, static_cast<int>(std::strtol(std::string(text.substr(i + 1, 8)).c_str(), nullptr, 10))});
        }
    }
    bool Has(char letter) const {
        return std::any_of(words_.begin(), words_.end(), [=](const Word& word) { return word.letter == letter; });
    }
    bool HasM(int number) const {
        return std::any_of(words_.begin(), words_.end(),
                           [=](const Word& word) { return word.letter == 'M' && word.number == number; });
    }
    // Whether there is a word of another letter, or an M code that neither changes tools nor stops nor, unless it
    // counts, cools.
    bool HasOtherThan(std::string_view letters, bool cooling_is_none) const {
        return std::any_of(words_.begin(), words_.end(), [=](const Word& word) {
            if (word.letter != 'M') return letters.find(word.letter) == std::string_view::npos;
            const bool cools = word.number >= 7 && word.number <= 9;
            return word.number > 1 && word.number != 6 && !(cools && cooling_is_none);
        });
    }

private:
    struct Word {
        char letter;
        int number;
    };
    std::vector<Word> words_;
};

}  // namespace

CToolPower::CToolPower(RunContext& run, bool reads_text) : run_(run), reads_text_(reads_text) {
    constexpr int32_t kMostTools = 64;
    const int32_t last = std::clamp(run.options.programs.number_of_tools, 0, kMostTools) + 1;
    for (int32_t tool = 1; tool <= last && reads_text; ++tool) {
        const Tool& data = run.tools.Get(tool);
        for (const ToolData* level : {data.own, data.physical}) {
            const std::string on = level->on.Source();
            const std::string source = level->select.Source() + on;
            by_t_words_ |= HasWord(source, 'T', {});
            writes_m6_ |= HasWord(source, 'M', "6");
            has_spindle_tools_ |= HasWord(on, 'M', "34");
        }
    }
    for (int32_t tool = 1; tool <= last; ++tool) {
        const Traits& traits = TraitsOf(tool);
        if (traits.own->exists()) kinds_ |= 1U << static_cast<unsigned>(traits.kind);
    }
}

PowerKind CToolPower::KindOf(const std::string& source) const {
    if (source.empty()) return PowerKind::kNothing;
    if (!reads_text_) return PowerKind::kTemplate;
    NcWords words(source);
    if (words.Has('Z')) return PowerKind::kDepth;
    if (words.HasM(62) || words.HasM(64)) return PowerKind::kOutput;
    if (words.HasM(3) || words.HasM(4)) return PowerKind::kSpindle;
    // What selects tools, sets speeds or cools switches nothing on, at least not where others do it by a spindle.
    return words.HasOtherThan(has_spindle_tools_ ? "TFNGS" : "TFNG", has_spindle_tools_) ? PowerKind::kTemplate
                                                                                         : PowerKind::kNothing;
}

const CToolPower::Traits& CToolPower::TraitsOf(int32_t tool) const {
    const auto [at, is_new] = traits_.try_emplace(tool);
    Traits& traits = at->second;
    if (!is_new) return traits;
    const Tool& data = run_.tools.Get(tool);
    traits.own = data.own;
    traits.physical = data.physical;
    const bool has_master = data.physical != data.own;
    const std::string own_on = data.own->on.Source();
    const std::string physical_on = has_master ? data.physical->on.Source() : std::string();
    traits.kind = KindOf(own_on + physical_on);
    traits.own_on = KindOf(own_on) != PowerKind::kNothing;
    traits.physical_on = KindOf(physical_on) != PowerKind::kNothing;
    traits.has_off = !data.own->off.Source().empty() || !data.physical->off.Source().empty();
    traits.select_key = data.own->select.Source();
    if (has_master) traits.select_key += "|" + data.physical->select.Source();
    if (data.own->select.Has(DirectiveId::kToolId) || data.physical->select.Has(DirectiveId::kToolId)) {
        traits.select_key += std::to_string(tool);
    }
    return traits;
}

void CToolPower::Wrote(const CompiledTemplate& compiled, int32_t tool, double depth) {
    const Traits& traits = TraitsOf(tool);
    const bool is_own = traits.own == traits.physical || &compiled == &traits.own->on || &compiled == &traits.own->off;
    const ToolData* const level = is_own ? traits.own : traits.physical;
    if (compiled.Is(Event("ToolSel_"))) {
        loaded_key_ = traits.select_key;
        if (traits.physical->on_after_select) on_by_selection_ = traits.physical;
    }
    if (compiled.Is(Event("ToolOn_"))) {
        on_.insert(level);
        on_depth_ = depth;
        if (std::find(switched_on_.begin(), switched_on_.end(), tool) == switched_on_.end()) {
            switched_on_.push_back(tool);
        }
    }
    if (compiled.Is(Event("ToolOff_"))) {
        on_.erase(level);
        on_by_selection_ = nullptr;
    }
}

void CToolPower::TakeTWord(double t_word, int32_t tool) {
    pending_t_ = t_word;
    pending_tool_ = tool;
    if (!writes_m6_) ChangeTool();
}

void CToolPower::ChangeTool() {
    if (!pending_t_) return;
    loaded_t_ = pending_t_;
    if (pending_tool_ >= 0) t_of_tool_[pending_tool_] = *pending_t_;
}

void CToolPower::SwitchAllOff() {
    on_.clear();
    spindle_ = output_ = false;
    on_depth_.reset();
    on_by_selection_ = nullptr;
}

bool CToolPower::IsTemplateOn(const Traits& traits) const {
    if (on_by_selection_ != nullptr && on_by_selection_ == traits.physical) return true;
    if (traits.own_on && !on_.contains(traits.own)) return false;
    return !traits.physical_on || on_.contains(traits.physical);
}

bool CToolPower::IsOn(int32_t tool, double depth) const {
    const Traits& traits = TraitsOf(tool);
    switch (traits.kind) {
        case PowerKind::kNothing:
            return spindle_ || output_ || (reads_text_ && depth < 0.0) ||
                   (on_by_selection_ != nullptr && on_by_selection_ == traits.physical);
        case PowerKind::kTemplate: return IsTemplateOn(traits);
        case PowerKind::kSpindle: return spindle_;
        case PowerKind::kOutput: return output_;
        case PowerKind::kDepth: break;
    }
    return on_depth_ && depth <= *on_depth_ + kSameDepth;
}

bool CToolPower::IsAnyOn(double depth) const {
    const auto has = [this](PowerKind kind) { return (kinds_ >> static_cast<unsigned>(kind) & 1U) != 0; };
    const bool by_nothing = has(PowerKind::kNothing);
    if (spindle_ && ((by_nothing && !has(PowerKind::kDepth)) || has(PowerKind::kSpindle))) return true;
    if (output_ && (by_nothing || has(PowerKind::kOutput))) return true;
    if (reads_text_ && by_nothing && !has(PowerKind::kDepth) && depth < 0.0) return true;
    if (has(PowerKind::kDepth) && on_depth_ && depth <= *on_depth_ + kSameDepth) return true;
    if (on_by_selection_ != nullptr) return true;
    if (!has(PowerKind::kTemplate) || on_.empty()) return false;
    return std::any_of(switched_on_.begin(), switched_on_.end(), [this](int32_t tool) {
        const Traits& traits = TraitsOf(tool);
        return traits.kind == PowerKind::kTemplate && IsTemplateOn(traits);
    });
}

bool CToolPower::Holds(int32_t tool) const {
    if (by_t_words_) {
        const auto found = t_of_tool_.find(tool);
        return found != t_of_tool_.end() && loaded_t_ == found->second;
    }
    const std::string& key = TraitsOf(tool).select_key;
    return loaded_key_ ? *loaded_key_ == key : key.empty();
}

bool CToolPower::HasOn(int32_t tool) const {
    const Traits& traits = TraitsOf(tool);
    return traits.kind != PowerKind::kNothing || traits.physical->on_after_select;
}

bool CToolPower::HasOff(int32_t tool) const { return TraitsOf(tool).has_off; }

}  // namespace brindle
