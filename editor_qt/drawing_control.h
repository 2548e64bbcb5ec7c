// The drawing of a tool path.
#pragma once

#include "path_canvas.h"
#include "qt_control.h"

namespace brindle {

class CQtDrawing : public CQtControl<CDrawingControl, CPathCanvas> {
public:
    CQtDrawing(CFormBody& body, const ControlSpec& spec) : CQtControl(body, spec, new CPathCanvas(&body.root())) {
        widget().on_picked = [this] {
            desk().MoveFocus(&widget());
            desk().Report(picked);
        };
    }
    void SetText(std::string_view /*text*/) override {}
    std::string GetText() const override { return {}; }
    void SetScene(std::shared_ptr<const PathScene> scene) override { widget().SetScene(std::move(scene)); }
    void Highlight(int element) override { widget().Highlight(element); }
    int GetPicked() const override { return widget().GetPicked(); }
};

}  // namespace brindle
