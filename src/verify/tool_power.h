// Which tool the machine holds, and whether it is on, as far as templates have written something for it.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "generator/run_context.h"
#include "generator/template_use.h"

namespace brindle {

class CToolPower {
public:
    CToolPower(RunContext& run, bool reads_words);

    // A template of tool `tool` has written something.
    void Wrote(TemplateUse use, const CompiledTemplate& compiled, int32_t tool);
    void TakeTWord(double t_word, int32_t tool);  // of a template of `tool`, -1 for none
    void ChangeTool();
    void SwitchSpindle(bool on) { spindle_ = on; }
    void SwitchAllOff();

    // Whether the tool of that number is on.
    bool IsOn(int32_t tool);
    // Any of those that have been on.
    bool IsAnyOn();
    // Whether the machine holds the tool that templates of `tool` select.
    bool Holds(int32_t tool);
    // Whether T words select tools.
    bool ByTWords() const { return by_t_words_; }
    bool WritesM6() const { return writes_m6_; }
    // Whether the tool's templates can switch it on or off at all.
    bool HasOn(int32_t tool);
    bool HasOff(int32_t tool);

private:
    struct Traits {
        const ToolData* own;
        const ToolData* physical;
        bool own_on, physical_on;  // the templates say something
        bool needs_spindle;
        std::string select_key;  // tools of one key are the same to the machine
    };

    const Traits& TraitsOf(int32_t tool);

    RunContext& run_;
    bool by_t_words_ = false;
    bool writes_m6_ = false;
    std::unordered_map<int32_t, Traits> traits_;
    std::unordered_set<const ToolData*> on_;  // whose on template was the last to write something
    std::vector<int32_t> switched_on_;        // tools that have been on
    bool spindle_ = false;
    const ToolData* on_by_selection_ = nullptr;

    std::optional<double> pending_t_, loaded_t_;
    int32_t pending_tool_ = -1;
    std::unordered_map<int32_t, double> t_of_tool_;
    std::optional<std::string> loaded_key_;
};

}  // namespace brindle
