// Which tool the machine holds, and whether it is on.
#pragma once

#include <optional>
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
    kSpindle,   // M3 and M4, off by M5
    kOutput,    // M62 and M64, off by M63 and M65
    kDepth,     // by Z: on as long as it is as deep as ToolOn has put it
};

class CToolPower {
public:
    CToolPower(RunContext& run, bool reads_text);

    // A template of tool `tool` has written something; Z is `depth` now.
    void Wrote(const CompiledTemplate& compiled, int32_t tool, double depth);
    void TakeTWord(double t_word, int32_t tool);  // of a template of `tool`, -1 for none
    void ChangeTool();
    void SwitchSpindle(bool on) { spindle_ = on; }
    void SwitchOutput(bool on) { output_ = on; }
    void SwitchAllOff();

    // Whether the tool of that number is on, at that Z; or any tool.
    bool IsOn(int32_t tool, double depth) const;
    bool IsAnyOn(double depth) const;
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
        std::string select_key;  // tools of one key are the same to the machine
    };

    const Traits& TraitsOf(int32_t tool) const;
    PowerKind KindOf(const std::string& source) const;
    bool IsTemplateOn(const Traits& traits) const;

    RunContext& run_;
    bool reads_text_;
    bool by_t_words_ = false;
    bool writes_m6_ = false;
    bool has_spindle_tools_ = false;
    mutable std::unordered_map<int32_t, Traits> traits_;
    unsigned kinds_ = 0;  // of all tools, a bit each

    std::unordered_set<const ToolData*> on_;  // whose on template was the last to write something
    std::vector<int32_t> switched_on_;        // tools that have been on
    bool spindle_ = false, output_ = false;
    std::optional<double> on_depth_;
    const ToolData* on_by_selection_ = nullptr;

    std::optional<double> pending_t_, loaded_t_;
    int32_t pending_tool_ = -1;
    std::unordered_map<int32_t, double> t_of_tool_;
    std::optional<std::string> loaded_key_;
};

}  // namespace brindle
