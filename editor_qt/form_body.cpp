#include "form_body.h"

namespace brindle {

CControlCell& CFormBody::AddCell(const ControlSpec& spec, QWidget& widget) {
    widget.setProperty("order", static_cast<int>(cells_.size()));
    return cells_.emplace_back(spec, widget);
}

void CFormBody::LayOut() {
    std::vector<CControlCell*> added;
    for (; laid_out_ < cells_.size(); ++laid_out_) added.push_back(&cells_[laid_out_]);
    if (!added.empty()) LayOutForm(root_, added, flow_, boxes_);
}

}  // namespace brindle
