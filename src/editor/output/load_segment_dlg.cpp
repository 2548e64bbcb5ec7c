#include "editor/output/load_segment_dlg.h"

#include <string>

#include "editor/messages.h"
#include "text/numbers.h"

namespace brindle {

void ChooseSegment(CToolkit& toolkit, CBufferMgr& buffers) {
    const int32_t count = buffers.GetNumOfBuffers();
    if (count <= 1) return;
    const auto window = toolkit.MakeDialog("NC Output Load Segment");
    CEditControl& field = window->AddEdit(PlainSpec(ControlKind::kInteger, "Segment to output:"));
    field.SetText("1");
    window->AddLabel(PlainSpec(ControlKind::kLabel, "of", Spot::kBeside)).SetText(std::to_string(count));
    window->ok_clicked.Set([&] {
        if (buffers.SetCurBuffer(LeadingInt(field.GetText()))) return window->EndWithOk();
        toolkit.ShowMessage(std::string(messages::kSegmentOutOfRange) + std::to_string(count));
    });
    window->RunModal();
}

}  // namespace brindle
