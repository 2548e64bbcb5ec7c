#include "verify/tool_power.h"

#include <algorithm>
#include <initializer_list>

#include "text/ascii.h"
#include "text/numbers.h"

namespace brindle {
namespace {

constexpr double kSameDepth = 1e-6;

// The words of a text outside its comments, without regard to what they mean.
class NcWords {
public:
    explicit NcWords(std::string_view text) {
        bool in_comment = false;
        for (size_t i = 0; i < text.size(); ++i) {
            const char c = UpperAscii(text[i]);
            if (c == '(') in_comment = true;
            if (c == ')') in_comment = false;
            if (!in_comment && c >= 'A' && c <= 'Z') words_.push_back({c, LeadingDouble(text.substr(i + 1))});
        }
    }
    bool Has(char letter) const {
        return std::any_of(words_.begin(), words_.end(), [=](const Word& word) { return word.letter == letter; });
    }
    // Whether there is an M code of these.
    bool HasM(std::initializer_list<int> numbers) const {
        return std::any_of(words_.begin(), words_.end(), [=](const Word& word) {
            return word.letter == 'M' && std::find(numbers.begin(), numbers.end(), word.number) != numbers.end();
        });
    }
    // The number of the last word of that letter, 0 if there is none.
    double Last(char letter) const {
        double number = 0.0;
        for (const Word& word : words_) number = word.letter == letter ? word.number : number;
        return number;
    }
    // The P words of M62 and M64.
    std::vector<int32_t> Outputs() const {
        std::vector<int32_t> outputs;
        bool is_of_output = false;
        for (const Word& word : words_) {
            if (word.letter == 'G' || word.letter == 'M') {
                is_of_output = word.letter == 'M' && (word.number == 62 || word.number == 64);
            }
            if (word.letter == 'P' && is_of_output) outputs.push_back(TruncateToInt32(word.number));
        }
        return outputs;
    }
    // Whether there is a word of another letter, or an M code that neither changes tools nor stops nor switches off
    // nor, unless it counts, cools.
    bool HasOtherThan(std::string_view letters, bool cooling_is_none) const {
        return std::any_of(words_.begin(), words_.end(), [=](const Word& word) {
            if (word.letter != 'M') return letters.find(word.letter) == std::string_view::npos;
            const bool cools = word.number == 7 || word.number == 8;
            const bool is_off = word.number == 5 || word.number == 9 || word.number == 63 || word.number == 65;
            return word.number > 1 && word.number != 6 && !is_off && !(cools && cooling_is_none);
        });
    }

private:
    struct Word {
        char letter;
        double number;
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
            const NcWords on(level->on.Source());
            const NcWords select(level->select.Source());
            by_t_words_ |= on.Has('T') || select.Has('T');
            writes_m6_ |= on.HasM({6}) || select.HasM({6});
            has_spindle_tools_ |= on.HasM({3, 4});
        }
    }
    for (int32_t tool = 1; tool <= last; ++tool) has_depth_tools_ |= TraitsOf(tool).kind == PowerKind::kDepth;
}

PowerKind CToolPower::KindOf(const std::string& on, const std::string& off) const {
    if (on.empty()) return PowerKind::kNothing;
    if (!reads_text_) return PowerKind::kTemplate;
    const NcWords words(on);
    const NcWords off_words(off);
    // Above the material Z only brings a beam or torch into place, and something else fires it.
    const bool cuts_by_depth = words.Has('Z') && words.Last('Z') <= 0.0;
    if (cuts_by_depth) return PowerKind::kDepth;
    if (words.HasM({62, 64})) return PowerKind::kOutput;
    if (words.HasM({3, 4})) return PowerKind::kSpindle;
    if (words.Has('Z') && off_words.HasM({63, 65})) return PowerKind::kOutput;
    if (words.Has('Z') && off_words.HasM({5})) return PowerKind::kSpindle;
    if (words.Has('Z')) return PowerKind::kDepth;
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
    const std::string off = data.own->off.Source() + data.physical->off.Source();
    traits.kind = KindOf(own_on + physical_on, off);
    traits.own_on = KindOf(own_on, off) != PowerKind::kNothing;
    traits.physical_on = KindOf(physical_on, off) != PowerKind::kNothing;
    traits.has_off = !off.empty();
    traits.needs_spindle = NeedsSpindle(traits);
    if (traits.kind == PowerKind::kOutput) traits.outputs = NcWords(own_on + physical_on).Outputs();
    traits.select_key = data.own->select.Source();
    if (has_master) traits.select_key += data.physical->select.Source();
    if (data.own->select.Has(DirectiveId::kToolId) || data.physical->select.Has(DirectiveId::kToolId)) {
        traits.select_key += std::to_string(tool);
    }
    return traits;
}

// A router cuts only while its spindle turns. A knife beside it stops the spindle in its own templates.
bool CToolPower::NeedsSpindle(const Traits& traits) const {
    const NcWords of_tool(traits.own->select.Source() + traits.own->on.Source() + traits.physical->select.Source() +
                          traits.physical->on.Source());
    const NcWords of_start(run_.file_start.Source() + run_.main_init.Source());
    return of_tool.HasM({3, 4}) || (of_start.HasM({3, 4}) && !of_tool.HasM({5}));
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
        spindle_by_tool_ |= spindle_ && traits.kind == PowerKind::kSpindle;
        if (traits.kind == PowerKind::kDepth) first_depth_.try_emplace(traits.physical, depth);
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
    if (pending_tool_ >= 0) t_of_key_[TraitsOf(pending_tool_).select_key] = *pending_t_;
}

void CToolPower::SwitchSpindle(bool on) {
    spindle_ = on;
    spindle_by_tool_ &= on;
}

void CToolPower::SwitchOutput(int32_t number, bool on) {
    if (on) {
        outputs_.insert(number);
    } else {
        outputs_.erase(number);
    }
}

void CToolPower::SwitchAllOff() {
    on_.clear();
    SwitchSpindle(false);
    outputs_.clear();
    first_depth_.clear();
    on_by_selection_ = nullptr;
}

bool CToolPower::IsTemplateOn(const Traits& traits) const {
    if (on_by_selection_ != nullptr && on_by_selection_ == traits.physical) return true;
    if (traits.own_on && !on_.contains(traits.own)) return false;
    return !traits.physical_on || on_.contains(traits.physical);
}

bool CToolPower::IsDeep(const Traits& traits, double depth) const {
    const auto first = first_depth_.find(traits.physical);
    return first != first_depth_.end() && depth <= first->second + kSameDepth;
}

// Without a number in its template any output may be meant.
bool CToolPower::HasOutput(const Traits& traits) const {
    if (traits.outputs.empty()) return !outputs_.empty();
    return std::any_of(traits.outputs.begin(), traits.outputs.end(),
                       [this](int32_t number) { return outputs_.contains(number); });
}

bool CToolPower::IsOn(int32_t tool, double depth) const {
    const Traits& traits = TraitsOf(tool);
    switch (traits.kind) {
        case PowerKind::kNothing:
            return spindle_ || !outputs_.empty() || (reads_text_ && depth < 0.0) ||
                   (on_by_selection_ != nullptr && on_by_selection_ == traits.physical);
        case PowerKind::kTemplate: return IsTemplateOn(traits);
        case PowerKind::kSpindle: return spindle_;
        case PowerKind::kOutput: return HasOutput(traits);
        case PowerKind::kDepth: break;
    }
    return IsDeep(traits, depth) && (spindle_ || !traits.needs_spindle);
}

bool CToolPower::IsAnyOn(double depth) const {
    if (on_by_selection_ != nullptr || spindle_by_tool_) return true;
    // Where others cut by their depth, a spindle that turns above them cuts nothing.
    const bool is_idle = has_depth_tools_ && TraitsOf(used_).kind == PowerKind::kNothing;
    if (!is_idle && IsOn(used_, depth)) return true;
    return std::any_of(switched_on_.begin(), switched_on_.end(), [this, depth](int32_t tool) {
        const PowerKind kind = TraitsOf(tool).kind;
        return kind != PowerKind::kNothing && kind != PowerKind::kSpindle && IsOn(tool, depth);
    });
}

bool CToolPower::IsAnyLow(double depth, double highest) const {
    if (IsAnyOn(depth)) return true;
    const Traits& traits = TraitsOf(used_);
    const auto first = first_depth_.find(traits.physical);
    if (first == first_depth_.end()) return false;
    // A machine that lifts above 0 has its material below.
    const bool is_below = highest > 0.0 && first->second < -kSameDepth && depth < -kSameDepth;
    return is_below || IsDeep(traits, depth);
}

bool CToolPower::Holds(int32_t tool) const {
    if (by_t_words_) {
        const auto found = t_of_key_.find(TraitsOf(tool).select_key);
        return found != t_of_key_.end() && loaded_t_ == found->second;
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
