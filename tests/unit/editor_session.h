// The tuning editor with all its pages, before a user from editor_user.h.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>

#include "editor/pages/params_sheet.h"
#include "session/session.h"
#include "unit/editor_user.h"

namespace brindle {

constexpr std::string_view kAllPages[] = {"General", "Subs",    "Codes", "AxisData",  "ArcData",    "Speed",
                                          "Tools",   "ToolRot", "Text",  "Templates", "RunTimeData"};

class CEditorSession {
public:
    explicit CEditorSession(std::initializer_list<std::string_view> tuning = {}) {
        for (const std::string_view line : tuning) Tune(line);
    }

    void Tune(std::string_view line) { session_.tuning.ReadLine(line, CRunTimeDataDef::ReadMode::kTuning); }
    const CBrindleOpts& tuning() const { return session_.tuning; }
    // The line that the tuning has for `key`, without the blank at its end; empty if there is none.
    std::string Line(std::string_view key) const {
        std::string line = tuning().FormatItem(key, tuning().items().Find(key));
        if (!line.empty()) line.pop_back();
        return line;
    }

    // Opens the sheet, lets the user do `acts` and leave with Cancel.
    void Play(std::initializer_list<std::function<void()>> acts, bool inches = false) {
        user.acts.assign(acts);
        user.acts.emplace_back([this] { toolkit.PressCancel(); });
        CNCParamsSheet sheet(toolkit, &session_, inches, "");
        sheet.AddPages();
        sheet.RunModal();
    }
    // Opens the sheet on each page.
    void VisitAllPages(bool inches = false) {
        Play({[this] {
                 for (const std::string_view page : kAllPages) EXPECT_EQ(toolkit.GoToPage(page), "");
             }},
             inches);
    }

    CListUser user;
    CHeadlessToolkit toolkit{user};

private:
    CSession session_;
};

}  // namespace brindle
