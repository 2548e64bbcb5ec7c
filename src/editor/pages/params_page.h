// The base of all pages of the tuning editor.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "editor/controls/bound_control.h"
#include "editor/controls/units_static.h"
#include "session/session.h"

namespace brindle {

class CNCCodePreview;

// What a page is made with. All of it outlives the page.
struct PageContext {
    CToolkit& toolkit;
    CSheetWindow& window;
    CSession* session;                         // null if there is nothing to edit; controls stay unbound then
    bool inches;                               // lengths are shown in inches, else in millimetres
    std::function<CNCCodePreview&()> preview;  // the sheet's preview window, opened if there is none
};

// A page is a set of bound controls, a rule set that enables and shows them, and a few handlers. Its controls come into
// being when it is first activated; at each activation all are bound afresh, so changes made on other pages show.
class CNCParamsPage : public CControlOwner {
public:
    // Whether an activation marks the page as modified, so that Apply is on at once.
    enum class Mark : uint8_t { kAtActivation, kAtChange };

    CNCParamsPage(const PageContext& context, std::string_view caption, Mark mark);

    // The tuning, null if there is none.
    CBrindleOpts* GetOptions() const { return context_.session == nullptr ? nullptr : &context_.session->tuning; }
    CRunTimeDataDef* GetRTDDef() const { return GetOptions() == nullptr ? nullptr : &GetOptions()->definition(); }
    bool IsInches() const { return context_.inches; }
    // The decimals with which lengths are shown.
    int32_t GetUnitPlaces() const { return LengthPlaces(IsInches()); }
    // Runs the tuning over the session's geometry and shows the NC code in the preview window.
    void RunPreview();
    void SetModified(bool modified) override { form_.SetModified(modified); }

protected:
    // At the first activation: makes the controls.
    virtual void CreateControls() {}
    // At each activation with a tuning: binds the controls and fills the lists.
    virtual void BindControls() {}
    // Another page is about to come to the front, and the focused control has committed.
    virtual void OnLeave() {}

    ControlPlace Place() { return {context_.toolkit, form_, this}; }

private:
    void Activate();

    PageContext context_;
    CPageForm& form_;
    Mark mark_;
    bool has_controls_ = false;
};

}  // namespace brindle
