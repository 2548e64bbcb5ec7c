#include "tuning/options.h"

#include "text/numbers.h"

#include "platform/text_encoding.h"

namespace brindle {
namespace {

constexpr std::string_view kDefaultToolPrefix = "T_";

std::string FullKey(std::string_view prefix, KeyRef key) {
    std::string full(prefix);
    return full.append(key->name);
}

double StepOfDigits(int32_t decimals) { return decimals == kWholeNumber ? 1.0 : PowerOfTenth(decimals); }

}  // namespace

void CBrindleOpts::ReadLine(std::string_view line, CRunTimeDataDef::ReadMode mode) {
    if (!definition_.ReadLine(line, mode)) ParseLine(line);
}

void CBrindleOpts::ReadFileLine(std::string_view line) { ReadLine(AsUtf8(line), CRunTimeDataDef::ReadMode::kTuning); }

void CBrindleOpts::WriteToList(std::vector<std::string>& list) const {
    definition_.WriteToList(list);
    CKVItemContainer::WriteToList(list);
}

void CBrindleOpts::Clear() {
    definition_.Clear();
    CKVItemContainer::Clear();
}

bool CBrindleOpts::ReadBool(KeyRef key, std::string_view prefix) const {
    int32_t value = key->read_default.Bool() ? 1 : 0;
    GetBool(FullKey(prefix, key), value);
    return value != 0;
}

int32_t CBrindleOpts::ReadInt(KeyRef key, std::string_view prefix) const {
    int32_t value = key->read_default.Int();
    GetInt(FullKey(prefix, key), value);
    return value;
}

double CBrindleOpts::ReadReal(KeyRef key, std::string_view prefix) const {
    double value = key->read_default.Real();
    GetReal(FullKey(prefix, key), value);
    return value;
}

std::string CBrindleOpts::ReadText(KeyRef key, std::string_view prefix) const {
    std::string value(key->read_default.Text());
    GetText(FullKey(prefix, key), value);
    return value;
}

bool CBrindleOpts::IsAxis1Linear() const { return !ReadBool(Key("bAx1IsRot")); }

bool CBrindleOpts::RotationsInUse() const { return MirrorInUse() && ReadBool(Key("bUseRotations")); }

bool CBrindleOpts::MirrorInUse() const { return ReadBool(Key("bUseSubs")) && ReadBool(Key("bUseMirror")); }

bool CBrindleOpts::IsTangential(std::string_view prefix) const { return ReadBool(Key("bTangential"), prefix); }

bool CBrindleOpts::IsSym180(std::string_view prefix) const {
    return IsTangential(prefix) && ReadBool(Key("b180Symmetry"), prefix);
}

AxisOffset CBrindleOpts::GetToolOffset(std::string_view prefix) const {
    if (RotationsInUse() || MirrorInUse() || !ReadBool(Key("ToolOff_bUse"), prefix)) return {};
    return {ReadReal(Key("ToolOff_rAxis1MM"), prefix), ReadReal(Key("ToolOff_rAxis2MM"), prefix)};
}

std::string CBrindleOpts::ToolKeyPrefix(int32_t tool, bool follow_subordinate) const {
    std::string own = ToolPrefixText(tool);
    const bool numbered = tool > 0 && tool <= ReadInt(Key("nNumOfTools")) && !ReadBool(Key("bToolUnused"), own);
    if (!numbered) return std::string(ReadBool(Key("bDefaultTool")) ? kDefaultToolPrefix : std::string_view());
    if (!follow_subordinate || !ReadBool(Key("bToolSubordinate"), own)) return own;
    const int32_t master = ReadInt(Key("nPhysicalTool"), own);
    return master == 0 ? own : ToolPrefixText(master);
}

int32_t CBrindleOpts::Axis1Decimals(bool inches) const {
    return ReadInt(inches ? Key("IN_AX1_nNDec") : Key("MM_AX1_nNDec"));
}

int32_t CBrindleOpts::Axis2Decimals(bool inches) const {
    return ReadInt(inches ? Key("IN_AX2_nNDec") : Key("MM_AX2_nNDec"));
}

double CBrindleOpts::Axis1Factor(bool inches) const {
    return ReadReal(inches ? Key("IN_AX1_rFactor") : Key("MM_AX1_rFactor"));
}

double CBrindleOpts::Axis2Factor(bool inches) const {
    return ReadReal(inches ? Key("IN_AX2_rFactor") : Key("MM_AX2_rFactor"));
}

int32_t CBrindleOpts::LinearDecimals(bool inches) const {
    return IsAxis1Linear() ? Axis1Decimals(inches) : Axis2Decimals(inches);
}

double CBrindleOpts::LinearFactor(bool inches) const {
    return IsAxis1Linear() ? Axis1Factor(inches) : Axis2Factor(inches);
}

double CBrindleOpts::Axis1Step(bool inches) const { return StepOfDigits(Axis1Decimals(inches)); }

double CBrindleOpts::Axis2Step(bool inches) const { return StepOfDigits(Axis2Decimals(inches)); }

double CBrindleOpts::LinearStep(bool inches) const { return StepOfDigits(LinearDecimals(inches)); }

std::string ToolPrefixText(int32_t tool) {
    if (tool < 0) return std::string(kDefaultToolPrefix);
    return std::string("T").append(std::to_string(tool)).append("_");
}

}  // namespace brindle
