// The tuning as the rest of the system sees it: typed items with the questions about axes, units and tools that span
// keys.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/numbers.h"
#include "tuning/key_catalogue.h"
#include "tuning/kv_container.h"
#include "tuning/run_time_data_def.h"

namespace brindle {

// An offset per axis, millimetres in the host's plane.
struct AxisOffset {
    double axis1 = 0.0;
    double axis2 = 0.0;
};

// One machine controller. Owned by the session and live: the editor writes it, a run reads it.
class CBrindleOpts : public CKVItemContainer {
public:
    // One line of a tuning: a run-time data line goes to the definition, any other to ParseLine.
    void ReadLine(std::string_view line, CRunTimeDataDef::ReadMode mode);
    // A line of a tuning file as the exports would get it: a byte that is no UTF-8 counts as the character of its code.
    void ReadFileLine(std::string_view line);
    // The definition's lines, with the items placed among them by key.
    void WriteToList(std::vector<std::string>& list) const override;
    // Empties the definition and the items.
    void Clear() override;
    // Empties the items; the definition stays.
    void ClearItems() { CKVItemContainer::Clear(); }

    // The stored value of a key of the catalogue after `prefix`, or its read default if the key is absent or of
    // another kind. ReadText gives the text as stored, with its words not yet resolved.
    bool ReadBool(KeyRef key, std::string_view prefix = {}) const;
    int32_t ReadInt(KeyRef key, std::string_view prefix = {}) const;
    double ReadReal(KeyRef key, std::string_view prefix = {}) const;
    std::string ReadText(KeyRef key, std::string_view prefix = {}) const;

    bool IsAxis1Linear() const;
    // The controller rotates sub-programs at the call; it does so only if it mirrors them too.
    bool RotationsInUse() const;
    // The controller mirrors sub-programs at the call.
    bool MirrorInUse() const;
    bool IsTangential(std::string_view prefix) const;
    bool IsSym180(std::string_view prefix) const;
    // The offset of a tool that software applies; none where the controller mirrors or rotates.
    AxisOffset GetToolOffset(std::string_view prefix) const;

    // The key prefix of a tool, empty if it has no data. With `follow_subordinate`, a subordinate tool gives the prefix
    // of its physical tool; one step is taken, not a chain.
    std::string ToolKeyPrefix(int32_t tool, bool follow_subordinate) const;

    // `inches`: the output units of the run.
    int32_t Axis1Decimals(bool inches) const;
    int32_t Axis2Decimals(bool inches) const;
    double Axis1Factor(bool inches) const;
    double Axis2Factor(bool inches) const;
    // Those of axis 2 if axis 1 is rotary, else those of axis 1.
    int32_t LinearDecimals(bool inches) const;
    double LinearFactor(bool inches) const;
    // One unit of the last printed digit.
    double Axis1Step(bool inches) const;
    double Axis2Step(bool inches) const;
    double LinearStep(bool inches) const;

    CRunTimeDataDef& definition() { return definition_; }
    const CRunTimeDataDef& definition() const { return definition_; }

private:
    CRunTimeDataDef definition_;
};

// `T%d_` of a tool number of 0 or above, `T_` of a negative one.
std::string ToolPrefixText(int32_t tool);

}  // namespace brindle
