#include "generator/tool_table.h"

namespace brindle {
namespace {

void ReadTemplates(CTextCompiler& compiler, ToolData& tool) {
    tool.select = compiler.CompileTemplate(Event("ToolSel_"), tool.prefix);
    tool.deselect = compiler.CompileTemplate(Event("ToolDesel_"), tool.prefix);
    tool.on = compiler.CompileTemplate(Event("ToolOn_"), tool.prefix);
    tool.off = compiler.CompileTemplate(Event("ToolOff_"), tool.prefix);
}

void ReadCodes(const CTextCompiler& compiler, ToolData& tool) {
    tool.rapid_code = compiler.CompileOption(Key("sRTCode"), tool.prefix);
    tool.linear_code = compiler.CompileOption(Key("sLTCode"), tool.prefix);
    tool.cw_code = compiler.CompileOption(Key("sCWCode"), tool.prefix);
    tool.ccw_code = compiler.CompileOption(Key("sCCWCode"), tool.prefix);
}

void ReadSpeeds(const CTextCompiler& compiler, ToolData& tool) {
    constexpr KeyRef kSpeeds[2][4] = {
        {Key("Speed_P1_sV1"), Key("Speed_P1_sV2"), Key("Speed_P1_sV3"), Key("Speed_P1_sV4")},
        {Key("Speed_P2_sV1"), Key("Speed_P2_sV2"), Key("Speed_P2_sV3"), Key("Speed_P2_sV4")},
    };
    for (int parameter = 0; parameter < 2; ++parameter) {
        for (int value = 0; value < 4; ++value) {
            tool.speeds[parameter][value] = compiler.CompileOption(kSpeeds[parameter][value], tool.prefix);
        }
    }
    tool.arc_speeds[0] = compiler.CompileOption(Key("Speed_sForArcs_P1"), tool.prefix);
    tool.arc_speeds[1] = compiler.CompileOption(Key("Speed_sForArcs_P2"), tool.prefix);
    tool.separate_arc_speed = compiler.tuning().ReadBool(Key("Speed_bSepForArcs"), tool.prefix);
    tool.slows_small_radii = compiler.tuning().ReadBool(Key("Speed_bUseSmallRadiiFormula"), tool.prefix);
}

void ReadLimits(const CBrindleOpts& tuning, ToolData& tool) {
    tool.fly_deviation = tuning.ReadReal(Key("Fly_rDEG_MaxAngDeviation"), tool.prefix);
    tool.shortest_lift = tuning.ReadReal(Key("rMinMoveMM"), tool.prefix);
    tool.lift_angle = tuning.ReadReal(Key("rLiftAngDEG"), tool.prefix);
    tool.small_arc_radius = tuning.ReadReal(Key("SmFacet_rMaxRadiusMM"), tool.prefix);
    double angle = 0.0;
    if (tuning.GetReal(std::string(tool.prefix).append(Key("SmFacet_rLiftAngleDEG")->name), angle)) {
        tool.small_arc_angle = angle;
    }
    const AxisOffset offset = tuning.GetToolOffset(tool.prefix);
    tool.offset = {offset.axis1, offset.axis2};
}

void ReadFlags(const CBrindleOpts& tuning, ToolData& tool) {
    tool.off_before_deselect = tuning.ReadBool(Key("bOffReqBeforeDesel"), tool.prefix);
    tool.on_after_select = tuning.ReadBool(Key("bOnAfterSelect"), tool.prefix);
    tool.tangential = tuning.IsTangential(tool.prefix);
    tool.symmetric = tuning.IsSym180(tool.prefix);
    tool.fly = tuning.ReadBool(Key("Fly_bUse"), tool.prefix);
    tool.facets_small_arcs = tuning.ReadBool(Key("SmFacet_bUse"), tool.prefix);
}

}  // namespace

const Tool& CToolTable::GetUnprepared(int32_t tool) {
    const auto index = static_cast<uint32_t>(tool);
    Tool& entry = index < kQuickTools ? quick_[index] : others_[tool];
    if (entry.own == nullptr) entry = Prepare(tool);
    return entry;
}

Tool CToolTable::Prepare(int32_t tool) {
    const CBrindleOpts& tuning = compiler_.tuning();
    return {&DataOf(tuning.ToolKeyPrefix(tool, false)), &DataOf(tuning.ToolKeyPrefix(tool, true))};
}

const ToolData& CToolTable::DataOf(const std::string& prefix) {
    std::unique_ptr<ToolData>& data = data_[prefix];
    if (data == nullptr) {
        data = std::make_unique<ToolData>();
        data->prefix = prefix;
        ReadTemplates(compiler_, *data);
        ReadCodes(compiler_, *data);
        ReadSpeeds(compiler_, *data);
        ReadLimits(compiler_.tuning(), *data);
        ReadFlags(compiler_.tuning(), *data);
    }
    return *data;
}

}  // namespace brindle
