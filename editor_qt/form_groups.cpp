#include "form_groups.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace brindle {
namespace {

// One empty heading for no path.
std::vector<std::string> HeadingsOf(std::string_view path) {
    std::vector<std::string> headings;
    while (true) {
        const size_t end = std::min(path.find('|'), path.size());
        headings.emplace_back(path.substr(0, end));
        if (end == path.size()) return headings;
        path.remove_prefix(end + 1);
    }
}

bool IsPushButton(const CControlCell& cell) { return cell.spec().kind == ControlKind::kButton; }

bool AllButtons(const FormRow& row) {
    return std::all_of(row.begin(), row.end(), [](const CControlCell* cell) { return IsPushButton(*cell); });
}

// Adds controls one by one. A control that stays under the headings of the one before stays in its group; push buttons
// that follow each other are in one row.
class CGrouper {
public:
    void Add(CControlCell& cell) {
        std::vector<std::string> path = HeadingsOf(cell.spec().group);
        const Spot spot = cell.spec().spot;
        auto same = static_cast<size_t>(std::mismatch(path.begin(), path.end(), path_.begin(), path_.end()).first -
                                        path.begin());
        if (path.front().empty() && spot == Spot::kNewColumn) same = 0;
        const bool stays = same == path.size() && same == path_.size();
        open_.resize(same);
        for (size_t i = same; i < path.size(); ++i) Open(path[i], i == same && spot != Spot::kNewRow);
        path_ = std::move(path);

        std::vector<FormPart>& parts = open_.back()->parts;
        const bool has_row = stays && !parts.empty() && parts.back().group == nullptr;
        const bool joins = has_row && (spot == Spot::kBeside || (IsPushButton(cell) && AllButtons(parts.back().row)));
        if (!joins) parts.emplace_back();
        parts.back().row.push_back(&cell);
    }

    std::vector<std::unique_ptr<FormGroup>> Take() { return std::move(top_); }

private:
    void Open(const std::string& heading, bool starts_column) {
        auto group = std::make_unique<FormGroup>();
        group->heading = heading;
        group->starts_column = starts_column;
        FormGroup* const opened = group.get();
        if (open_.empty()) {
            top_.push_back(std::move(group));
        } else {
            open_.back()->parts.push_back({{}, std::move(group)});
        }
        open_.push_back(opened);
    }

    std::vector<std::unique_ptr<FormGroup>> top_;
    std::vector<FormGroup*> open_;
    std::vector<std::string> path_;
};

bool AnyCell(const FormGroup& group, const std::function<bool(const CControlCell&)>& is) {
    return std::any_of(group.parts.begin(), group.parts.end(), [&is](const FormPart& part) {
        if (part.group != nullptr) return AnyCell(*part.group, is);
        return std::any_of(part.row.begin(), part.row.end(), [&is](const CControlCell* cell) { return is(*cell); });
    });
}

}  // namespace

bool FormGroup::IsTall() const {
    return AnyCell(*this, [](const CControlCell& cell) { return cell.IsTall(); });
}

bool FormGroup::IsWide() const {
    return AnyCell(*this,
                   [](const CControlCell& cell) { return cell.IsTall() && cell.spec().kind != ControlKind::kList; });
}

std::vector<std::unique_ptr<FormGroup>> GroupsOf(const std::vector<CControlCell*>& cells) {
    CGrouper grouper;
    for (CControlCell* const cell : cells) grouper.Add(*cell);
    return grouper.Take();
}

}  // namespace brindle
