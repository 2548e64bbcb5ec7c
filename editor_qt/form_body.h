// The inside of a page or window: its controls, and their layout.
#pragma once

#include <QWidget>
#include <deque>
#include <memory>
#include <vector>

#include "control_cell.h"
#include "desk.h"
#include "form_layout.h"

namespace brindle {

// Owns the controls; their widgets are in `root`, as its children. The desk and `root` must outlive it.
class CFormBody {
public:
    CFormBody(CDesk& desk, QWidget& root, FormFlow flow) : desk_(desk), root_(root), flow_(flow) {}
    CFormBody(const CFormBody&) = delete;
    CFormBody& operator=(const CFormBody&) = delete;

    CDesk& desk() { return desk_; }
    QWidget& root() { return root_; }
    CControlCell& AddCell(const ControlSpec& spec, QWidget& widget);
    const std::deque<CControlCell>& cells() const { return cells_; }

    template <typename Control>
    Control& Add(const ControlSpec& spec) {
        auto control = std::make_unique<Control>(*this, spec);
        Control& added = *control;
        controls_.push_back(std::move(control));
        return added;
    }
    // Puts the controls that were added since the last call in their places.
    void LayOut();

private:
    CDesk& desk_;
    QWidget& root_;
    FormFlow flow_;
    std::deque<CControlCell> cells_;
    std::vector<std::unique_ptr<CControl>> controls_;
    std::deque<CControlBox> boxes_;
    size_t laid_out_ = 0;
};

}  // namespace brindle
