#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"

namespace brindle {
namespace {

// The way from one option to another: a directive in the text of the one reads the other.
struct Step {
    std::string_view directive;
    std::string_view key;
};

// Follows the options that hold directives. Those of the tools count as one for each name: a tool reads its own ones.
class CycleFinder {
public:
    CycleFinder(const CPlacedTuning& tuning, CDiagnostics& diagnostics) : diagnostics_(diagnostics) {
        for (const DirectiveUse& use : tuning.directives()) {
            if (use.text->InTemplate() || !IsRead(tuning, *use.text)) continue;
            const std::string_view name = use.text->item->match.info->name;
            items_.emplace(name, use.text->item);
            for (const DirectiveRead& read : DirectiveReads()) {
                if (Applies(read, use, tuning)) steps_[name].push_back({use.directive->name, read.key->name});
            }
        }
    }

    void Find() {
        for (const auto& [name, item] : items_) {
            if (!done_.contains(name)) Visit(name);
        }
    }

private:
    void Visit(std::string_view name) {
        on_way_.push_back(name);
        for (const Step& step : steps_[name]) {
            if (!items_.contains(step.key)) continue;
            way_.push_back(step);
            for (size_t i = 0; i < on_way_.size(); ++i) {
                if (on_way_[i] == step.key) Report(i);
            }
            if (!done_.contains(step.key) && !IsOnWay(step.key)) Visit(step.key);
            way_.pop_back();
        }
        on_way_.pop_back();
        done_.insert(name);
    }

    bool IsOnWay(std::string_view name) const {
        return std::find(on_way_.begin(), on_way_.end(), name) != on_way_.end();
    }

    // The steps from the option at `first` on lead back to it.
    void Report(size_t first) {
        const PlacedItem& item = *items_[on_way_[first]];
        if (!reported_.insert(item.key).second) return;
        std::string text = std::string(item.key) + " leads back to itself, and gives nothing there: ";
        for (size_t i = first; i < way_.size(); ++i) {
            if (i > first) text += ", ";
            text.append(way_[i].directive).append(" reads ").append(way_[i].key);
        }
        diagnostics_.Add(Rule::kCycle, item.KeyPlace(), std::move(text));
    }

    CDiagnostics& diagnostics_;
    std::map<std::string_view, const PlacedItem*> items_;
    std::map<std::string_view, std::vector<Step>> steps_;
    std::vector<std::string_view> on_way_;  // options from where the search began to where it is
    std::vector<Step> way_;                 // the steps between them
    std::set<std::string_view> done_, reported_;
};

}  // namespace

void CheckCycles(const CPlacedTuning& tuning, CDiagnostics& diagnostics) { CycleFinder(tuning, diagnostics).Find(); }

}  // namespace brindle
