#include "editor/output/load_segment_dlg.h"

#include "editor/messages.h"
#include "text/numbers.h"

namespace brindle {

CLoadSegmentDlg::CLoadSegmentDlg(CToolkit& toolkit, int32_t count)
    : toolkit_(toolkit),
      count_(count),
      window_(toolkit.MakeDialog("NC Output Load Segment")),
      field_(window_->AddEdit(PlainSpec(ControlKind::kInteger, "Segment to output:"))) {
    field_.SetText(std::to_string(segment_));
    window_->AddLabel(PlainSpec(ControlKind::kLabel, "of", Spot::kBeside)).SetText(std::to_string(count));
    window_->ok_clicked.Set([this] { OnOk(); });
}

void CLoadSegmentDlg::OnOk() {
    const int32_t chosen = LeadingInt(field_.GetText());
    if (chosen < 1 || chosen > count_) {
        toolkit_.ShowMessage(std::string(messages::kSegmentOutOfRange) + std::to_string(count_));
        return;
    }
    segment_ = chosen;
    window_->EndWithOk();
}

void ChooseSegment(CToolkit& toolkit, CBufferMgr& buffers) {
    const int32_t count = buffers.GetNumOfBuffers();
    if (count <= 1) return;
    CLoadSegmentDlg dialog(toolkit, count);
    if (dialog.RunModal()) buffers.SetCurBuffer(dialog.segment());
}

}  // namespace brindle
