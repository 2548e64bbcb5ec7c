#include "verify/tool_power.h"

#include <algorithm>

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

}  // namespace

CToolPower::CToolPower(RunContext& run, bool reads_words) : run_(run) {
    if (!reads_words) return;
    const int32_t last = std::clamp(run.options.programs.number_of_tools, 0, 63) + 1;
    for (int32_t tool = 1; tool <= last; ++tool) {
        const Tool& data = run.tools.Get(tool);
        for (const ToolData* level : {data.own, data.physical}) {
            for (const CompiledTemplate* compiled : {&level->select, &level->on}) {
                const std::string source = SourceOf(*compiled);
                by_t_words_ |= HasWord(source, 'T', {});
                writes_m6_ |= HasWord(source, 'M', "6");
            }
        }
    }
}

const CToolPower::Traits& CToolPower::TraitsOf(int32_t tool) {
    const auto [at, is_new] = traits_.try_emplace(tool);
    Traits& traits = at->second;
    if (!is_new) return traits;
    const Tool& data = run_.tools.Get(tool);
    traits.own = data.own;
    traits.physical = data.physical;
    const std::string own_on = SourceOf(data.own->on);
    const std::string physical_on = data.physical == data.own ? std::string() : SourceOf(data.physical->on);
    traits.own_on = !own_on.empty();
    traits.physical_on = !physical_on.empty();
    traits.needs_spindle = HasWord(own_on, 'M', "34") || HasWord(physical_on, 'M', "34");
    traits.select_key = SourceOf(data.own->select);
    if (data.physical != data.own) traits.select_key += "|" + SourceOf(data.physical->select);
    if (HasDirective(data.own->select, DirectiveId::kToolId) || HasDirective(data.physical->select, DirectiveId::kToolId)) {
        traits.select_key += std::to_string(tool);
    }
    return traits;
}

void CToolPower::Wrote(TemplateUse use, const CompiledTemplate& compiled, int32_t tool) {
    const Traits& traits = TraitsOf(tool);
    const bool is_own = traits.own == traits.physical || &compiled == &traits.own->on || &compiled == &traits.own->off;
    const ToolData* const level = is_own ? traits.own : traits.physical;
    if (use == TemplateUse::kToolSelect) {
        loaded_key_ = traits.select_key;
        if (traits.physical->on_after_select) on_by_selection_ = traits.physical;
    }
    if (use == TemplateUse::kToolOn) {
        on_.insert(level);
        if (std::find(switched_on_.begin(), switched_on_.end(), tool) == switched_on_.end()) {
            switched_on_.push_back(tool);
        }
    }
    if (use == TemplateUse::kToolOff) {
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
    spindle_ = false;
    on_by_selection_ = nullptr;
}

bool CToolPower::IsOn(int32_t tool) {
    const Traits& traits = TraitsOf(tool);
    if (!traits.own_on && !traits.physical_on) {
        return spindle_ || (on_by_selection_ != nullptr && on_by_selection_ == traits.physical);
    }
    if (traits.own_on && !on_.contains(traits.own)) {
        return on_by_selection_ != nullptr && on_by_selection_ == traits.physical;
    }
    if (traits.physical_on && !on_.contains(traits.physical)) return false;
    return !traits.needs_spindle || spindle_;
}

bool CToolPower::IsAnyOn() {
    if (on_by_selection_ != nullptr) return true;
    if (switched_on_.empty()) return spindle_;
    if (on_.empty()) return false;
    return std::any_of(switched_on_.begin(), switched_on_.end(), [this](int32_t tool) { return IsOn(tool); });
}

bool CToolPower::Holds(int32_t tool) {
    if (by_t_words_) {
        const auto found = t_of_tool_.find(tool);
        if (found != t_of_tool_.end()) return loaded_t_ == found->second;
        return !loaded_t_;
    }
    const std::string& key = TraitsOf(tool).select_key;
    return loaded_key_ ? *loaded_key_ == key : key.empty();
}

bool CToolPower::HasOn(int32_t tool) {
    const Traits& traits = TraitsOf(tool);
    return traits.own_on || traits.physical_on || traits.physical->on_after_select;
}

bool CToolPower::HasOff(int32_t tool) {
    const Traits& traits = TraitsOf(tool);
    return !SourceOf(traits.own->off).empty() || !SourceOf(traits.physical->off).empty();
}

}  // namespace brindle
