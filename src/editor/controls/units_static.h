// How a sheet shows lengths.
#pragma once

#include <cstdint>

#include "editor/controls/control_place.h"

namespace brindle {

// The decimals of a length on the screen.
constexpr int32_t LengthPlaces(bool inches) { return inches ? 3 : 2; }

// A label with the unit.
class CUnitsStatic {
public:
    explicit CUnitsStatic(const ControlPlace& place, const ControlSpec& spec = PlainSpec(ControlKind::kUnits))
        : control_(place.form.AddLabel(spec)) {}

    void SetUnits(bool inches) { control_.SetText(inches ? "in." : "mm."); }
    CControl& control() { return control_; }

private:
    CControl& control_;
};

}  // namespace brindle
