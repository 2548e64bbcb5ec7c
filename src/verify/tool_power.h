// Which tool the machine holds, and whether it is on.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "generator/run_context.h"

namespace brindle {

// How the templates of a tool switch it on, where NC text is read.
enum class PowerKind : uint8_t {
    kNothing,   // nothing in its ToolOn template does
    kTemplate,  // in a way of its own: it is on after ToolOn and off after ToolOff
    kSpindle,   // M3 and M4 with a speed other than 0, off by M5: a spindle, or a beam
    kOutput,    // M62 and M64, off by M63 and M65 of the same output
    kDepth,     // by Z: on as long as it is as deep as its first ToolOn has put it, and its spindle turns if it has one
};

class CToolPower {
public:
    CToolPower(RunContext& run, bool reads_text);

    // A template of tool `tool` has written something; Z is `depth` now.
    void Wrote(const CompiledTemplate& compiled, int32_t tool, double depth);
    void TakeTWord(double t_word, int32_t tool);  // of a template of `tool`, -1 for none
    void ChangeTool();
    void SwitchSpindle(bool on);
    void SwitchOutput(int32_t number, bool on);
    void SwitchAllOff();
    // Records of that tool follow.
    void Use(int32_t tool) { used_ = tool; }

    // Whether the tool of that number is on, at that Z; or any tool.
    bool IsOn(int32_t tool, double depth) const;
    bool IsAnyOn(double depth) const;
    // Whether a rapid at that Z may touch the material: a tool is on, still, or lifted in part only. Z has been at
    // `highest`.
    bool IsAnyLow(double depth, double highest) const;
    // Whether the machine holds the tool that templates of `tool` select.
    bool Holds(int32_t tool) const;
    bool ReadsText() const { return reads_text_; }
    // Whether T words select tools.
    bool ByTWords() const { return by_t_words_; }
    bool WritesM6() const { return writes_m6_; }
    // Whether the tool's templates can switch it on or off at all.
    bool HasOn(int32_t tool) const;
    bool HasOff(int32_t tool) const;

private:
    struct Traits {
        const ToolData* own = nullptr;
        const ToolData* physical = nullptr;
        PowerKind kind = PowerKind::kNothing;
        bool own_on = false, physical_on = false;  // the templates say something
        bool has_off = false;
        bool needs_spindle = false;    // of kDepth
        std::vector<int32_t> outputs;  // of kOutput
        std::string select_key;        // tools of one key are the same to the machine
    };

    const Traits& TraitsOf(int32_t tool) const;
    PowerKind KindOf(const std::string& on, const std::string& off) const;
    bool NeedsSpindle(const Traits& traits) const;
    bool IsTemplateOn(const Traits& traits) const;
    bool IsDeep(const Traits& traits, double depth) const;
    bool HasOutput(const Traits& traits) const;

    RunContext& run_;
    bool reads_text_;
    bool by_t_words_ = false;
    bool writes_m6_ = false;
    bool has_spindle_tools_ = false;
    bool has_depth_tools_ = false;
    mutable std::unordered_map<int32_t, Traits> traits_;

    int32_t used_ = 0;                        // the tool of the last record
    std::unordered_set<const ToolData*> on_;  // whose on template was the last to write something
    std::vector<int32_t> switched_on_;        // tools that have been on
    bool spindle_ = false;
    bool spindle_by_tool_ = false;  // the ToolOn template of a spindle tool has come since it is on
    std::set<int32_t> outputs_;     // that are on
    std::unordered_map<const ToolData*, double> first_depth_;  // of each tool's first ToolOn
    const ToolData* on_by_selection_ = nullptr;

    std::optional<double> pending_t_, loaded_t_;
    int32_t pending_tool_ = -1;
    std::unordered_map<std::string, double> t_of_key_;
    std::optional<std::string> loaded_key_;
};

}  // namespace brindle
