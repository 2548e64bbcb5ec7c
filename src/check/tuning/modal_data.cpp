// A repeat that is left out takes its address with it, and so the rest of the line still makes sense. A word without an
// address leaves a gap.
#include <set>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"

namespace brindle {
namespace {

using D = DirectiveId;

// Directives whose words can have no address, and the key that says whether repeats are left out.
struct BareWords {
    DirectiveId directive;
    KeyRef modal;
    Condition condition = Condition::kAlways;
};

constexpr BareWords kBareWords[] = {
    {D::kStartPtWords, Key("bAxisDataModal")},
    {D::kEndPtWords, Key("bAxisDataModal")},
    {D::kIncludePtWords, Key("bAxisDataModal")},
    {D::kCenPtWords, Key("bArcDataModal")},
    {D::kArcDataWords, Key("bArcDataModal"), Condition::kArcByCentre},
    {D::kAtAngle, Key("ToolRot_bModal"), Condition::kTangential},
    {D::kFinAngle, Key("ToolRot_bModal"), Condition::kTangential},
    {D::kTextRotWord, Key("TextRot_bModal"), Condition::kText},
    {D::kTextHgtWord, Key("TextHgt_bModal"), Condition::kText},
};

// The keyword MODAL says that it is meant.
bool LeavesOutRepeats(const CBrindleOpts& options, KeywordSet keywords, KeyRef modal) {
    for (const Keyword keyword : {Keyword::kModal, Keyword::kNonModal, Keyword::kSilent}) {
        if (keywords.Has(keyword)) return false;
    }
    return options.ReadBool(modal);
}

// One finding for each key, at the first directive.
}  // namespace

void CheckModalData(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    std::set<std::string_view> reported;
    for (const DirectiveUse& use : tuning.directives()) {
        const bool has_address = !use.keywords.Has(Keyword::kData) || use.keywords.Has(Keyword::kWord);
        if (has_address || !use.text->InTemplate() || !IsRead(tuning, *use.text)) continue;
        for (const BareWords& row : kBareWords) {
            if (row.directive != use.directive->id || !Holds(row.condition, tuning)) continue;
            if (!LeavesOutRepeats(tuning.options(), use.keywords, row.modal)) continue;
            if (!reported.insert(row.modal->name).second) continue;
            diagnostics.Add(Rule::kModalData, use.place,
                            std::string(use.directive->name) +
                                " leaves out a number that repeats the last one, and DATA leaves nothing in its place",
                            "set " + std::string(row.modal->name) + " false, or write NONMODAL");
        }
    }
}

}  // namespace brindle
