// Labels that show the sheet's unit of length.
#pragma once

#include "editor/control_place.h"

namespace brindle {

class CUnitsStatic {
public:
    explicit CUnitsStatic(const ControlPlace& place) : control_(place.form.AddLabel(PlainSpec(ControlKind::kUnits))) {}

    void SetUnits(bool inches) { control_.SetText(inches ? "in." : "mm."); }
    CControl& control() { return control_; }

private:
    CControl& control_;
};

}  // namespace brindle
