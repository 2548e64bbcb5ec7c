#include <algorithm>
#include <cstdint>
#include <set>

#include "check/tuning/check.h"
#include "language/template_text.h"

namespace brindle {
namespace {

class ToolChecker {
public:
    ToolChecker(const CCheckedTuning& tuning, CFindings& findings)
        : tuning_(tuning),
          options_(tuning.options()),
          last_(options_.ReadInt(Key("nNumOfTools"))),
          physical_count_(std::count_if(tuning.tools().begin(), tuning.tools().end(),
                                        [](const auto& tool) { return tool.second.physical; })),
          findings_(findings) {}

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
    // Keys that no run reads, as a whole.
    void CheckOutOfUse(const std::string& prefix, const CheckedTool& tool) {
        const bool is_runs = prefix == ToolPrefixText(tool.number);
        const bool in_range = is_runs && tool.number >= 1 && tool.number <= last_;
        if (in_range && tool.keys == 1) return;  // its bToolUnused alone
        const std::string what = tool.keys == 1
                                     ? std::string(tool.first->key) + " has no effect: "
                                     : "the " + std::to_string(tool.keys) + " keys of " + prefix + " have no effect: ";
        if (in_range) {
            AddAtKey(findings_, Severity::kInfo, *tool.first, what + "the tool is marked as unused");
        } else {
            AddAtKey(findings_, Severity::kWarning, *tool.first, what + WhyOutOfUse(tool, is_runs));
        }
    }

    std::string WhyOutOfUse(const CheckedTool& tool, bool is_runs) const {
        if (!is_runs) return "tool numbers are written without leading zeros";
        if (tool.number < 0) return "bDefaultTool is false";
        if (tool.number == 0) return "tools are numbered from 1";
        return "nNumOfTools is " + std::to_string(last_);
    }

    void CheckMaster(const std::string& prefix, const CheckedTool& tool) {
        if (tool.number < 0 || !options_.ReadBool(Key("bToolSubordinate"), prefix)) return;
        const int32_t master = options_.ReadInt(Key("nPhysicalTool"), prefix);
        const CheckedItem* const place = tuning_.Find(prefix + (master == 0 ? "bToolSubordinate" : "nPhysicalTool"));
        if (place == nullptr) return;
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
        if (!fault.empty()) AddAtKey(findings_, Severity::kWarning, *place, std::move(fault));
    }

    // The prefixes of a tool that a record can ask for: its own and that of the master whose templates go with its own.
    struct ToolPrefixes {
        std::string own, physical;
    };

    // The item of the tool's template for an event, or of its master's; null if neither writes anything.
    const CheckedItem* TemplateOf(const ToolPrefixes& tool, std::string_view event) const {
        for (const std::string& prefix : {tool.own, tool.physical}) {
            const std::string key = std::string(prefix).append(event).append("tTmpl");
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

    void CheckOnAndOff(const std::string& prefix, const CheckedTool& tool) {
        const ToolPrefixes prefixes{prefix, options_.ToolKeyPrefix(tool.number, true)};
        const CheckedItem* const on = TemplateOf(prefixes, "ToolOn_");
        if (on == nullptr || !told_as_on_.insert(on->key).second) return;
        if (TemplateOf(prefixes, "ToolOff_") != nullptr) return CheckChange(prefixes, *on);
        // A move of several blocks may lift the tool itself.
        if (options_.ReadBool(Key("bStartEndOnBlock")) || CountLines("Move_tTmpl") > 1) return;
        AddAtKey(findings_, Severity::kWarning, *on,
                 std::string(on->key) + " switches the tool on, but there is no " + std::string(on->match.tool_prefix) +
                     "ToolOff_tTmpl: moves are made with the tool on");
    }

    // Where one tool begins at the point at which another one ends, there is no move that switches it off.
    void CheckChange(const ToolPrefixes& tool, const CheckedItem& on) {
        if (physical_count_ < 2 || options_.ReadBool(Key("bOffReqBeforeDesel"), tool.physical)) return;
        if (TemplateOf(tool, "ToolDesel_") != nullptr) return;
        const std::string key = tool.physical + "bOffReqBeforeDesel";
        const CheckedItem* const item = tuning_.Find(key);
        AddAtKey(
            findings_, Severity::kWarning, item != nullptr ? *item : on,
            key + " is not true: where another cut begins at the end of this tool's, the tool is changed while on");
    }

    void CheckFacets(const std::string& prefix) {
        const CheckedItem* const item = tuning_.Find(prefix + "SmFacet_bUse");
        if (item == nullptr || !options_.ReadBool(Key("SmFacet_bUse"), prefix)) return;
        for (const KeyRef key : {Key("SmFacet_rMaxRadiusMM"), Key("SmFacet_rLiftAngleDEG")}) {
            if (options_.ReadReal(key, prefix) != 0.0) continue;
            return AddAtKey(findings_, Severity::kWarning, *item,
                            std::string(item->key) + " has no effect: " + prefix + std::string(key->name) + " is 0");
        }
    }

    // Numbers of tools are told as ranges: nNumOfTools can be any number.
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
            if (next < tool) TellWithout(next, tool - 1);
            next = tool + 1;
        }
        if (next <= last_) TellWithout(next, last_);
    }

    bool HasTemplate(const std::string& prefix) const {
        for (const char* event : {"ToolSel_", "ToolOn_", "ToolOff_"}) {
            TemplateLines lines;
            if (options_.GetMulti(prefix + event + "tTmpl", lines) && !lines.empty()) return true;
        }
        return false;
    }

    void TellWithout(int64_t first, int64_t last) {
        const CheckedItem& place = *tuning_.Find("nNumOfTools");
        const std::string tools = first == last
                                      ? "tool " + std::to_string(first) + " has"
                                      : "tools " + std::to_string(first) + " to " + std::to_string(last) + " have";
        AddAtKey(findings_, Severity::kWarning, place, tools + " no template: neither ToolSel_, ToolOn_ nor ToolOff_");
    }

    const CCheckedTuning& tuning_;
    const CBrindleOpts& options_;
    const int32_t last_;
    const ptrdiff_t physical_count_;
    CFindings& findings_;
    std::set<std::string_view> told_as_on_;
};

}  // namespace

void CheckTools(const CCheckedTuning& tuning, CFindings& findings) { ToolChecker(tuning, findings).Check(); }

}  // namespace brindle
