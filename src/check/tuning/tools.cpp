#include <algorithm>
#include <cstdint>
#include <set>

#include "check/tuning/checks.h"
#include "language/template_text.h"

namespace brindle {
namespace {

class ToolChecker {
public:
    ToolChecker(const CPlacedTuning& tuning, CDiagnostics& diagnostics)
        : tuning_(tuning),
          options_(tuning.options()),
          last_(options_.ReadInt(Key("nNumOfTools"))),
          physical_count_(std::count_if(tuning.tools().begin(), tuning.tools().end(),
                                        [](const auto& tool) { return tool.second.physical; })),
          diagnostics_(diagnostics) {}

    void Check() {
        for (const auto& [prefix, tool] : tuning_.tools()) {
            if (!tool.own && !tool.physical) CheckOutOfUse(prefix, tool);
            if (tool.own) CheckMaster(prefix, tool);
            if (tool.own) CheckOnAndOff(prefix, tool);
            if (tool.physical) CheckFacets(prefix);
        }
        CheckTemplates();
    }

private:
    const PlacedItem* ItemOf(const std::string& prefix, KeyRef key) const {
        return tuning_.Find(prefix + std::string(key->name));
    }

    // Keys that no run reads, as a whole.
    void CheckOutOfUse(const std::string& prefix, const ToolUse& tool) {
        const bool is_runs = prefix == ToolPrefixText(tool.number);
        const bool in_range = is_runs && tool.number >= 1 && tool.number <= last_;
        if (in_range && tool.keys == 1) return;  // its bToolUnused alone
        const std::string what = tool.keys == 1
                                     ? std::string(tool.first->key) + " has no effect: "
                                     : "the " + std::to_string(tool.keys) + " keys of " + prefix + " have no effect: ";
        if (in_range) {
            diagnostics_.Add(Rule::kUnusedTool, tool.first->KeyPlace(), what + "the tool is marked as unused");
        } else {
            diagnostics_.Add({.rule = Rule::kToolOutOfRange,
                              .place = tool.first->KeyPlace(),
                              .message = what + WhyOutOfUse(tool, is_runs),
                              .tool = tool.number});
        }
    }

    std::string WhyOutOfUse(const ToolUse& tool, bool is_runs) const {
        if (!is_runs) return "tool numbers are written without leading zeros";
        if (tool.number < 0) return "bDefaultTool is false";
        if (tool.number == 0) return "tools are numbered from 1";
        return "nNumOfTools is " + std::to_string(last_);
    }

    void CheckMaster(const std::string& prefix, const ToolUse& tool) {
        if (tool.number < 0 || !options_.ReadBool(Key("bToolSubordinate"), prefix)) return;
        const int32_t master = options_.ReadInt(Key("nPhysicalTool"), prefix);
        const PlacedItem* const item = ItemOf(prefix, master == 0 ? Key("bToolSubordinate") : Key("nPhysicalTool"));
        if (item == nullptr) return;
        const std::string name = "tool " + std::to_string(tool.number);
        const std::string master_prefix = ToolPrefixText(master);
        std::string fault;
        if (master == 0 || master == tool.number) {
            fault = name + " is subordinate, but to no other tool: it is a tool of its own";
        } else if (tuning_.Tool(master_prefix) == nullptr) {
            fault = name + " is subordinate to tool " + std::to_string(master) + ", which has no keys";
        } else if (options_.ReadBool(Key("bToolSubordinate"), master_prefix)) {
            fault = name + " is subordinate to tool " + std::to_string(master) +
                    ", which is subordinate itself: a master's own master is not asked";
        }
        if (!fault.empty()) diagnostics_.Add(Rule::kBadMaster, item->KeyPlace(), std::move(fault));
    }

    // The prefixes of a tool that a record can ask for: its own and that of the master whose templates go with its own.
    struct ToolPrefixes {
        std::string own, physical;
    };

    // The item of the tool's template for an event, or of its master's; null if neither writes anything.
    const PlacedItem* TemplateOf(const ToolPrefixes& tool, EventRef event) const {
        for (const std::string& prefix : {tool.own, tool.physical}) {
            const std::string key = TemplateKey(event, prefix);
            if (CountLines(key) > 0) return tuning_.Find(key);
        }
        return nullptr;
    }

    // Lines that are more than a comment.
    ptrdiff_t CountLines(std::string_view key) const {
        TemplateLines lines;
        if (!options_.GetMulti(key, lines)) return 0;
        return std::count_if(lines.begin(), lines.end(),
                             [](const CTemplateLine& line) { return !WithoutComment(line.text).empty(); });
    }

    void CheckOnAndOff(const std::string& prefix, const ToolUse& tool) {
        const ToolPrefixes prefixes{prefix, options_.ToolKeyPrefix(tool.number, true)};
        const PlacedItem* const on = TemplateOf(prefixes, Event("ToolOn_"));
        if (on == nullptr || !reported_as_on_.insert(on->key).second) return;
        if (TemplateOf(prefixes, Event("ToolOff_")) != nullptr) return CheckChange(prefixes, *on);
        // A move of several blocks may lift the tool itself.
        if (options_.ReadBool(Key("bStartEndOnBlock")) || CountLines(TemplateKey(Event("Move_"))) > 1) return;
        diagnostics_.Add(Rule::kToolStaysOn, on->KeyPlace(),
                         std::string(on->key) + " switches the tool on, but there is no " +
                             std::string(on->match.tool_prefix) + "ToolOff_tTmpl: moves are made with the tool on");
    }

    // Where one tool begins at the point at which another one ends, there is no move that switches it off.
    void CheckChange(const ToolPrefixes& tool, const PlacedItem& on) {
        if (physical_count_ < 2 || options_.ReadBool(Key("bOffReqBeforeDesel"), tool.physical)) return;
        if (TemplateOf(tool, Event("ToolDesel_")) != nullptr) return;
        const KeyRef key = Key("bOffReqBeforeDesel");
        const PlacedItem* const item = ItemOf(tool.physical, key);
        diagnostics_.Add(
            Rule::kChangeWhileOn, (item != nullptr ? *item : on).KeyPlace(),
            tool.physical + std::string(key->name) +
                " is not true: where another cut begins at the end of this tool's, the tool is changed while on");
    }

    void CheckFacets(const std::string& prefix) {
        const PlacedItem* const item = ItemOf(prefix, Key("SmFacet_bUse"));
        if (item == nullptr || !options_.ReadBool(Key("SmFacet_bUse"), prefix)) return;
        for (const KeyRef key : {Key("SmFacet_rMaxRadiusMM"), Key("SmFacet_rLiftAngleDEG")}) {
            if (options_.ReadReal(key, prefix) != 0.0) continue;
            return diagnostics_.Add(
                Rule::kNoFacetLimit, item->KeyPlace(),
                std::string(item->key) + " has no effect: " + prefix + std::string(key->name) + " is 0");
        }
    }

    // Numbers of tools are reported as ranges: nNumOfTools can be any number.
    void CheckTemplates() {
        if (last_ < 1) return;
        std::set<int32_t> fine;
        for (const auto& [prefix, tool] : tuning_.tools()) {
            if (prefix != ToolPrefixText(tool.number)) continue;
            const bool has_some = HasTemplate(prefix) || HasTemplate(options_.ToolKeyPrefix(tool.number, true));
            if (options_.ReadBool(Key("bToolUnused"), prefix) || has_some) fine.insert(tool.number);
        }
        int64_t next = 1;
        for (const int64_t tool : fine) {
            if (tool < 1 || tool > last_) continue;
            if (next < tool) ReportWithout(next, tool - 1);
            next = tool + 1;
        }
        if (next <= last_) ReportWithout(next, last_);
    }

    bool HasTemplate(const std::string& prefix) const {
        for (const EventRef event : {Event("ToolSel_"), Event("ToolOn_"), Event("ToolOff_")}) {
            TemplateLines lines;
            if (options_.GetMulti(TemplateKey(event, prefix), lines) && !lines.empty()) return true;
        }
        return false;
    }

    void ReportWithout(int64_t first, int64_t last) {
        const PlacedItem& item = *tuning_.Find(Key("nNumOfTools")->name);
        const std::string tools = first == last
                                      ? "tool " + std::to_string(first) + " has"
                                      : "tools " + std::to_string(first) + " to " + std::to_string(last) + " have";
        diagnostics_.Add(Rule::kToolWithoutTemplates, item.KeyPlace(),
                         tools + " no template: neither ToolSel_, ToolOn_ nor ToolOff_");
    }

    const CPlacedTuning& tuning_;
    const CBrindleOpts& options_;
    const int32_t last_;
    const ptrdiff_t physical_count_;
    CDiagnostics& diagnostics_;
    std::set<std::string_view> reported_as_on_;
};

}  // namespace

void CheckTools(const CPlacedTuning& tuning, CDiagnostics& diagnostics) { ToolChecker(tuning, diagnostics).Check(); }

}  // namespace brindle
