// The base of all pages of the tuning editor.
#pragma once

#include <cstdint>
#include <string_view>

#include "editor/control_place.h"
#include "editor/units_static.h"
#include "generator/run_context.h"

namespace brindle {

class CKVItemButton;
class CNCCodePreview;
class CNCParamsSheet;

// What a page is made with. All of it outlives the page.
struct PageContext {
    CToolkit& toolkit;
    CSheetWindow& window;
    CNCParamsSheet* sheet;        // null for a page that stands in another sheet
    const SessionParts* session;  // null if there is nothing to edit; controls stay unbound then
};

// A page is a set of bound controls, a rule set that enables and shows them, and a few handlers. Its controls come into
// being when it is first activated; at each activation all are bound afresh, so changes made on other pages show.
class CNCParamsPage {
public:
    // Whether an activation marks the page as modified, so that Apply is on at once.
    enum class Mark : uint8_t { kAtActivation, kAtChange };

    CNCParamsPage(const PageContext& context, std::string_view caption, Mark mark);
    CNCParamsPage(const CNCParamsPage&) = delete;
    CNCParamsPage& operator=(const CNCParamsPage&) = delete;
    virtual ~CNCParamsPage() = default;

protected:
    // At the first activation: makes the controls.
    virtual void CreateControls() {}
    // At each activation with a tuning: binds the controls and fills the lists.
    virtual void BindControls() {}
    // Another page is about to come to the front, and the focused control has committed.
    virtual void OnLeave() {}

public:
    // The rule set: enables, disables, shows and hides controls by the state of the controls and the tuning. Every
    // bound control that changes calls it, except text edits.
    virtual void UpdateControlStates() {}
    // `control` was clicked, and the rule set has run.
    virtual void OnBoundButtonClicked(CKVItemButton& /*control*/) {}

    // The tuning, null if there is none.
    CBrindleOpts* GetOptions() const { return context_.session == nullptr ? nullptr : &context_.session->tuning; }
    CRunTimeDataDef* GetRTDDef() const { return GetOptions() == nullptr ? nullptr : &GetOptions()->definition(); }
    // Whether lengths are shown in inches; false on a page in another sheet.
    bool IsInches() const;
    // The decimals with which lengths are shown.
    int32_t GetUnitPlaces() const { return LengthPlaces(IsInches()); }
    // The sheet's preview window, opened on first use. Null on a page in another sheet.
    CNCCodePreview* GetPreview() const;
    // Runs the tuning over the session's geometry and shows the NC code in the preview window.
    void RunPreview();
    void SetModified(bool modified) { form_.SetModified(modified); }

protected:
    ControlPlace Place() { return {context_.toolkit, form_, this}; }

private:
    void Activate();

    PageContext context_;
    CPageForm& form_;
    Mark mark_;
    bool has_controls_ = false;
};

}  // namespace brindle
