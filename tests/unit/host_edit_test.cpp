// `brindle edit` with a user before the headless toolkit.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "editor/toolkit/active_toolkit.h"
#include "host/commands/commands.h"
#include "unit/editor_user.h"
#include "unit/temp_folder.h"

namespace brindle::host {
namespace {

namespace fs = std::filesystem;

class HostEditTest : public testing::Test {
protected:
    void SetUp() override { SetActiveToolkit(&toolkit_); }
    void TearDown() override { SetActiveToolkit(nullptr); }

    void Put(const std::string& name, const std::string& text) const { folder_.Put(name, text); }
    std::string Get(const std::string& name) const { return folder_.Get(name); }
    bool Has(const std::string& name) const { return fs::exists(folder_.path() / name); }

    // The editor opens, the user does `acts`; what it wrote to standard error stays in `errors_`, without the folder.
    int Edit(const std::string& name, const std::vector<std::function<void()>>& acts) {
        user_.acts.assign(acts.begin(), acts.end());
        CLI::App app;
        int status = -1;
        AddEditCommand(app, status);
        testing::internal::CaptureStderr();
        app.parse("edit " + (folder_.path() / name).string());
        errors_ = testing::internal::GetCapturedStderr();
        const std::string path = folder_.path().string() + '/';
        for (size_t at = 0; (at = errors_.find(path)) != std::string::npos;) errors_.erase(at, path.size());
        return status;
    }
    std::function<void()> TypeAddress(const std::string& text) {
        return [this, text] { EXPECT_EQ(toolkit_.Type("sNWordAddr", text), ""); };
    }
    std::function<void()> Ok() {
        return [this] { toolkit_.PressOk(); };
    }
    std::function<void()> Cancel() {
        return [this] { toolkit_.PressCancel(); };
    }

    CTempFolder folder_;
    CListUser user_;
    CHeadlessToolkit toolkit_{user_};
    std::string errors_;
};

TEST_F(HostEditTest, OkSavesAndKeepsThePreviousFile) {
    const std::string before = "TEXT sNWordAddr N\r\nTEXT sOld kept\r\n";
    Put("a.tun", before);
    EXPECT_EQ(Edit("a.tun", {TypeAddress("O"), Ok()}), kGood);
    EXPECT_EQ(errors_,
              "a.tun: note: these keys were missing and are there now, with another value than a run took: "
              "bOutUnitsAuto, sMainProgNum, nMaxBytes, sBlockDelim, nPrimaryTool\n");
    EXPECT_EQ(Get("a.tun~"), before);
    const std::string after = Get("a.tun");
    EXPECT_NE(after.find("\r\nTEXT sNWordAddr O \r\nTEXT sOld kept \r\n"), std::string::npos) << after;
    EXPECT_NE(after.find("\r\nBOOL bOutUnitsAuto true \r\n"), std::string::npos) << "the page's missing keys";

    EXPECT_EQ(Edit("a.tun", {Ok()}), kGood);
    EXPECT_EQ(errors_, "a.tun: note: nothing has changed\n");
    EXPECT_EQ(Get("a.tun~"), before) << "a session without change must not replace the kept file";
}

TEST_F(HostEditTest, CancelLeavesTheFileAndTellsOfDroppedEdits) {
    const std::string before = "TEXT sNWordAddr N\n";
    Put("a.tun", before);
    EXPECT_EQ(Edit("a.tun", {Cancel()}), kGood);
    EXPECT_EQ(errors_, "") << "defaults that the pages add are no edits";
    EXPECT_EQ(Edit("a.tun", {TypeAddress("O"), Cancel()}), kGood);
    EXPECT_EQ(errors_, "a.tun: note: left as it was; 1 edit dropped, the first of sNWordAddr\n");
    EXPECT_EQ(Get("a.tun"), before);
    EXPECT_FALSE(Has("a.tun~"));
}

TEST_F(HostEditTest, WhatIsLostOrNewIsTold) {
    Put("a.tun", "TEXT sNWordAddr N\n\n# a remark\n");
    EXPECT_EQ(Edit("a.tun", {Cancel()}), kGood);
    EXPECT_EQ(errors_, "a.tun:3:1: warning: is not a line of a tuning, so saving leaves it out\n");
    EXPECT_EQ(Edit("new.tun", {TypeAddress("N"), Ok()}), kGood);
    EXPECT_EQ(errors_, "new.tun: note: does not exist yet: this is a new tuning\n");
    EXPECT_NE(Get("new.tun").find("TEXT sNWordAddr N \n"), std::string::npos);
    EXPECT_FALSE(Has("new.tun~"));
}

TEST_F(HostEditTest, AnEditorThatCantOpenIsAnError) {
    Put("a.tun", "TEXT sNWordAddr N\n");
    SetActiveToolkit(nullptr);
    EXPECT_EQ(Edit("a.tun", {}), kBadInput);
    EXPECT_NE(errors_.find("the editor can't open"), std::string::npos) << errors_;
}

}  // namespace
}  // namespace brindle::host
