// The page "Text": the words of texts.
#include "editor/pages/params_pages.h"

#include "editor/pages/table_page.h"

namespace brindle {
namespace {

using enum ControlKind;
using enum Spot;

constexpr std::string_view kData = "Text data   (@TextDataWord)";
constexpr std::string_view kTextRotation = "Text rotation   (@TextRotWord)";
constexpr std::string_view kHeight = "Text height   (@TextHgtWord)";
constexpr std::string_view kHeightInch = "Text height   (@TextHgtWord)|Format for inch";
constexpr std::string_view kHeightMm = "Text height   (@TextHgtWord)|Format for metric";

constexpr PageRow kTextRows[] = {
    {kCheck, "bUseText", "", "&Support text"},
    {kText, "TextData_sAddr", kData, "&Address:"},
    {kText, "TextData_sFROM_1", kData, "&Replace:"},
    {kText, "TextData_sTO_1", kData, "&With:"},
    {kText, "TextRot_sAddr", kTextRotation, "&Address:"},
    {kReal, "TextRot_rFactor", kTextRotation, "&Factor by:", kSixPlaces | kNoZero},
    {.kind = kDecimals, .key = "TextRot_nNDec", .group = kTextRotation, .label = "&Round to:", .inch_default = 3},
    {kCheck, "TextRot_bModal", kTextRotation, "&Modal"},
    {kText, "TextHgt_sAddr", kHeight, "&Address:", 0, kNewColumn},
    {kCheck, "TextHgt_bModal", kHeight, "&Modal"},
    {kCheck, "TextHgt_bOutInPts", kHeight, "Output in text &points"},
    {kReal, "TextHgt_rFactor_in", kHeightInch, "&Factor by:", kSixPlaces | kNoZero},
    {kDecimals, "TextHgt_nNDec_in", kHeightInch, "&Round to:"},
    {kReal, "TextHgt_rFactor_mm", kHeightMm, "&Factor by:", kSixPlaces | kNoZero},
    {kDecimals, "TextHgt_nNDec_mm", kHeightMm, "&Round to:"},
};

class CNCParamsText : public CNCTablePage {
public:
    explicit CNCParamsText(const PageContext& context) : CNCTablePage(context, "Text", Mark::kAtChange, kTextRows) {}

    void UpdateControlStates() override { table().EnableOthers("bUseText", table().IsChecked("bUseText")); }
};

}  // namespace

std::unique_ptr<CNCParamsPage> MakeTextPage(const PageContext& context) {
    return std::make_unique<CNCParamsText>(context);
}

}  // namespace brindle
