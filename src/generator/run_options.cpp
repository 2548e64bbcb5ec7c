#include "generator/run_options.h"

#include "text/numbers.h"

namespace brindle {
namespace {

// Decimals of a printed axis number where the key is absent, in both units.
constexpr int32_t kNumberDecimals = 3;

AxisOptions::Unit ReadAxisUnit(const CBrindleOpts& tuning, bool inches, KeyRef decimals1, KeyRef decimals2) {
    AxisOptions::Unit unit{{tuning.Axis1Decimals(inches), tuning.Axis2Decimals(inches)},
                           {kNumberDecimals, kNumberDecimals},
                           {tuning.Axis1Factor(inches), tuning.Axis2Factor(inches)},
                           {tuning.Axis1Step(inches), tuning.Axis2Step(inches)}};
    tuning.GetInt(decimals1->name, unit.number_decimals[0]);
    tuning.GetInt(decimals2->name, unit.number_decimals[1]);
    return unit;
}

AxisOptions ReadAxes(const CTextCompiler& compiler) {
    const CBrindleOpts& tuning = compiler.tuning();
    return {
        .millimetres = ReadAxisUnit(tuning, false, Key("MM_AX1_nNDec"), Key("MM_AX2_nNDec")),
        .inches = ReadAxisUnit(tuning, true, Key("IN_AX1_nNDec"), Key("IN_AX2_nNDec")),
        .address = {compiler.CompileOption(Key("sAx1Addr")), compiler.CompileOption(Key("sAx2Addr"))},
        .start_address = {compiler.CompileOption(Key("sAx1AddrStart")), compiler.CompileOption(Key("sAx2AddrStart"))},
        .axis1_rotary = tuning.ReadBool(Key("bAx1IsRot")),
        .axis2_rotary = tuning.ReadBool(Key("bAx2IsRot")),
        .rotary_in_degrees = tuning.ReadBool(Key("bRotAxisInDegrees")),
        .default_rotary_radius = tuning.ReadReal(Key("rDefRotRadiusMM")),
        .modal = tuning.ReadBool(Key("bAxisDataModal")),
        .start_end_on_block = tuning.ReadBool(Key("bStartEndOnBlock")),
    };
}

ArcOptions ReadArcs(const CTextCompiler& compiler) {
    const CBrindleOpts& tuning = compiler.tuning();
    return {
        .by_radius = tuning.ReadBool(Key("bArcByRad")),
        .by_subtended = tuning.ReadBool(Key("bArcBySub")),
        .modal = tuning.ReadBool(Key("bArcDataModal")),
        .center_address = {compiler.CompileOption(Key("sCenAx1Addr")), compiler.CompileOption(Key("sCenAx2Addr"))},
        .abs_from_start = tuning.ReadBool(Key("bInAbsCenFromStart")),
        .abs_from_end = tuning.ReadBool(Key("bInAbsCenFromEnd")),
        .abs_is_absolute = tuning.ReadBool(Key("bInAbsCenIsAbs")),
        .inc_from_start = tuning.ReadBool(Key("bInIncCenFromStart")),
        .inc_from_end = tuning.ReadBool(Key("bInIncCenFromEnd")),
        .radius_address = compiler.CompileOption(Key("sRadArcAddr")),
        .cw_positive_is_short = tuning.ReadBool(Key("bRadCWArcPosIsShort")),
        .ccw_positive_is_short = tuning.ReadBool(Key("bRadCCWArcPosIsShort")),
        .subtended_address = compiler.CompileOption(Key("sSubArcAddr")),
        .subtended_positive_cw = tuning.ReadBool(Key("bSubArcPosCW")),
        .subtended_factor = tuning.ReadReal(Key("rSubArcFactor")),
        .subtended_decimals = tuning.ReadInt(Key("nSubArcNDec")),
        .facet_tolerance = tuning.ReadReal(Key("rFacetTolMM")),
        .largest_word_inches = tuning.ReadReal(Key("rMaxOrdMM")),
        .largest_word_metric = tuning.ReadReal(Key("rMaxOrdIN")),
    };
}

CodeOptions ReadCodes(const CTextCompiler& compiler) {
    const CBrindleOpts& tuning = compiler.tuning();
    return {
        .abs = compiler.CompileOption(Key("sAbsCode")),
        .inc = compiler.CompileOption(Key("sIncCode")),
        .inch = compiler.CompileOption(Key("sInchCode")),
        .metric = compiler.CompileOption(Key("sMetricCode")),
        .horizontal = compiler.CompileOption(Key("sHorizCode")),
        .vertical = compiler.CompileOption(Key("sVertCode")),
        .outside = compiler.CompileOption(Key("sOutsideCode")),
        .inside = compiler.CompileOption(Key("sInsideCode")),
        .fly_on = compiler.CompileOption(Key("Fly_sOnCode")),
        .fly_off = compiler.CompileOption(Key("Fly_sOffCode")),
        .abs_inc_modal = tuning.ReadBool(Key("bMCodeModal")),
        .units_modal = tuning.ReadBool(Key("bUCodeModal")),
        .interp_modal = tuning.ReadBool(Key("bICodesModal")),
        .interp_depends_on_tool = tuning.ReadBool(Key("bToolDependInterp")),
    };
}

BlockOptions ReadBlocks(const CTextCompiler& compiler) {
    const CBrindleOpts& tuning = compiler.tuning();
    return {
        .number_address = compiler.CompileOption(Key("sNWordAddr")),
        .initial_number = tuning.ReadInt(Key("nNWordInitVal")),
        .big_increment = tuning.ReadInt(Key("nNWordBigInc")),
        .small_increment = tuning.ReadInt(Key("nNWordSmInc")),
        .standard_delimiter = tuning.ReadBool(Key("bBlockDelimStd")),
        .delimiter = compiler.CompileOption(Key("sBlockDelim")),
        .use_space = tuning.ReadBool(Key("bUseSpace")),
        .trim_zeros = tuning.ReadBool(Key("bTrimZeros")),
        .trim_point = tuning.ReadBool(Key("bTrimDPoint")),
        .errors_as_comments = tuning.ReadBool(Key("bErrorsAsComments")),
        .open_comment = compiler.CompileOption(Key("sOpenComment")),
        .close_comment = compiler.CompileOption(Key("sCloseComment")),
    };
}

ProgramOptions ReadPrograms(const CBrindleOpts& tuning) {
    const bool absolute = tuning.ReadBool(Key("bOutModeAbs"));
    return {
        .inches_auto = tuning.ReadBool(Key("bOutUnitsAuto")),
        .inches = tuning.ReadBool(Key("bOutUnitsInches")),
        .absolute = absolute,
        .use_subs = tuning.ReadBool(Key("bUseSubs")),
        .subs_first = tuning.ReadBool(Key("bOutputSubsFirst")),
        .sub_numbers_by_block = tuning.ReadBool(Key("SubNum_bUseBlockNum")),
        .subs_absolute = absolute && tuning.ReadBool(Key("bSubsInAbs")),
        .start_subs_at_center = tuning.ReadBool(Key("bStartSubsAtCen")),
        .end_subs_at_center = tuning.ReadBool(Key("bEndSubsAtCen")),
        .rotations_in_use = tuning.RotationsInUse(),
        .mirror_in_use = tuning.MirrorInUse(),
        .use_text = tuning.ReadBool(Key("bUseText")),
        .segment_limit = tuning.ReadBool(Key("bUseFileSeg")) ? tuning.ReadInt(Key("nMaxBytes")) : -1,
        .use_primary_tool = tuning.ReadBool(Key("bUsePrimaryTool")),
        .primary_tool_on = tuning.ReadBool(Key("bPrimaryToolUseToolOn")),
        .primary_tool = tuning.ReadInt(Key("nPrimaryTool")),
        .number_of_tools = tuning.ReadInt(Key("nNumOfTools")),
        .default_tool = tuning.ReadBool(Key("bDefaultTool")),
        .shortest_rapid = tuning.ReadReal(Key("rMinRapidMoveMM")),
    };
}

FlyOptions ReadFly(const CBrindleOpts& tuning) {
    return {
        .supported = tuning.ReadBool(Key("Fly_bSupport")),
        .code_with_following = tuning.ReadBool(Key("Fly_bForFollowing")),
        .threshold = tuning.ReadReal(Key("Fly_rMM_Threshold")),
    };
}

SubOptions ReadSubs(const CTextCompiler& compiler) {
    const CBrindleOpts& tuning = compiler.tuning();
    return {
        .by_sequence = tuning.ReadBool(Key("SubNum_bUseSequence")),
        .main_offset = tuning.ReadInt(Key("SubNum_nMainOffset")),
        .main_factor = tuning.ReadInt(Key("SubNum_nMainFactor")),
        .sub_offset = tuning.ReadInt(Key("SubNum_nSubOffset")),
        .sub_factor = tuning.ReadInt(Key("SubNum_nSubFactor")),
        .total_offset = tuning.ReadInt(Key("SubNum_nTotalOffset")),
        .main_number = compiler.CompileOption(Key("sMainProgNum")),
        .mirror_x = compiler.CompileOption(Key("sMirrorX")),
        .mirror_y = compiler.CompileOption(Key("sMirrorY")),
        .mirror_xy = compiler.CompileOption(Key("sMirrorXY")),
        .mirror_reset = compiler.CompileOption(Key("sMirrorReset")),
        .rotation_address = compiler.CompileOption(Key("SubRot_sAddr")),
        .rotation_code = compiler.CompileOption(Key("SubRot_sCode")),
        .rotation_reset = compiler.CompileOption(Key("SubRot_sResetCode")),
        .rotation_decimals = tuning.ReadInt(Key("SubRot_nNDec")),
        .rotation_factor = tuning.ReadReal(Key("SubRot_rFactor")),
    };
}

SpeedOptions ReadSpeed(const CTextCompiler& compiler) {
    const CBrindleOpts& tuning = compiler.tuning();
    const int32_t decimals = tuning.ReadInt(Key("Speed_nNDec"));
    const bool curly = tuning.ReadBool(Key("bParenCurly"));
    const bool round = tuning.ReadBool(Key("bParenRound"));
    return {
        .single = tuning.ReadBool(Key("Speed_b1")),
        .four_values = tuning.ReadBool(Key("Speed_b4")),
        .pro_rata = tuning.ReadBool(Key("Speed_bNearest2")),
        .two_parameters = tuning.ReadBool(Key("Speed_b2Params")),
        .address = {compiler.CompileOption(Key("Speed_sParam1Addr")), compiler.CompileOption(Key("Speed_sParam2Addr"))},
        .modal = tuning.ReadBool(Key("Speed_bModal")),
        .use_factor = tuning.ReadBool(Key("Speed_bFactor")),
        .factor = compiler.CompileOption(Key("Speed_sFactor")),
        .as_value = tuning.ReadBool(Key("Speed_bAsValue")),
        .decimals = decimals,
        .tolerance = PowerOfTenth(decimals),
        .threshold5 = tuning.ReadReal(Key("SRF_rThreshold5MM")),
        .threshold25 = tuning.ReadReal(Key("SRF_rThreshold25MM")),
        .threshold50 = tuning.ReadReal(Key("SRF_rThreshold50MM")),
        .threshold100 = tuning.ReadReal(Key("SRF_rThreshold100MM")),
        .open_bracket = curly   ? '{'
                        : round ? '('
                                : '[',
        .close_bracket = curly   ? '}'
                         : round ? ')'
                                 : ']',
    };
}

RotationOptions ReadRotation(const CTextCompiler& compiler) {
    const CBrindleOpts& tuning = compiler.tuning();
    return {
        .address = compiler.CompileOption(Key("ToolRot_sAddr")),
        .factor = tuning.ReadReal(Key("ToolRot_rFactor")),
        .decimals = tuning.ReadInt(Key("ToolRot_nNDec")),
        .modal = tuning.ReadBool(Key("ToolRot_bModal")),
        .positive_is_cw = tuning.ReadBool(Key("ToolRot_bPosIsCW")),
        .offset = tuning.ReadReal(Key("ToolRot_rDEG_Offset")),
        .always_absolute = tuning.ReadBool(Key("ToolRot_bAlwaysAbs")),
        .use_sign = tuning.ReadBool(Key("ToolRot_bUseSign")),
        .auxiliary1 = compiler.CompileOption(Key("sTangAuxCode1")),
        .auxiliary2 = compiler.CompileOption(Key("sTangAuxCode2")),
    };
}

TextOptions ReadTexts(const CTextCompiler& compiler) {
    const CBrindleOpts& tuning = compiler.tuning();
    return {
        .data_address = compiler.CompileOption(Key("TextData_sAddr")),
        .replace_from = compiler.CompileOption(Key("TextData_sFROM_1")),
        .replace_to = compiler.CompileOption(Key("TextData_sTO_1")),
        .rotation_address = compiler.CompileOption(Key("TextRot_sAddr")),
        .rotation_factor = tuning.ReadReal(Key("TextRot_rFactor")),
        .rotation_decimals = tuning.ReadInt(Key("TextRot_nNDec")),
        .rotation_modal = tuning.ReadBool(Key("TextRot_bModal")),
        .height_address = compiler.CompileOption(Key("TextHgt_sAddr")),
        .height_inches = {tuning.ReadReal(Key("TextHgt_rFactor_in")), tuning.ReadInt(Key("TextHgt_nNDec_in"))},
        .height_metric = {tuning.ReadReal(Key("TextHgt_rFactor_mm")), tuning.ReadInt(Key("TextHgt_nNDec_mm"))},
        .height_modal = tuning.ReadBool(Key("TextHgt_bModal")),
        .height_in_points = tuning.ReadBool(Key("TextHgt_bOutInPts")),
    };
}

}  // namespace

RunOptions::RunOptions(const CTextCompiler& compiler)
    : axes(ReadAxes(compiler)),
      arcs(ReadArcs(compiler)),
      codes(ReadCodes(compiler)),
      blocks(ReadBlocks(compiler)),
      programs(ReadPrograms(compiler.tuning())),
      fly(ReadFly(compiler.tuning())),
      subs(ReadSubs(compiler)),
      speed(ReadSpeed(compiler)),
      rotation(ReadRotation(compiler)),
      text(ReadTexts(compiler)) {}

}  // namespace brindle
