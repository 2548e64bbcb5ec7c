// Where the command writes its files, and that it writes all of a job or nothing.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "host/commands/number_pair.h"
#include "host/console/messages.h"
#include "host/files/output_files.h"
#include "host/files/output_plan.h"
#include "text/numbers.h"
#include "unit/temp_folder.h"

namespace brindle::host {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

// A folder of its own, which is the current one.
class HostOutput : public testing::Test {
protected:
    HostOutput() { fs::current_path(folder_.path()); }
    ~HostOutput() override { fs::current_path(before_); }

    static void Write(const std::string& path, const std::string& text) { std::ofstream(path) << text; }
    static std::string Read(const std::string& path) {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    // All names in the current folder, hidden ones too.
    static Texts Names() {
        Texts names;
        for (const auto& entry : fs::directory_iterator(".")) names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    const fs::path before_ = fs::current_path();
    CTempFolder folder_;
};

TEST_F(HostOutput, PathsOfPlannedJobs) {
    fs::create_directory("out");
    fs::create_directory("x");
    struct Case {
        OutputRequest request;
        Texts nc, traces;
    };
    const Case cases[] = {
        {{{"a/box.cf2"}, "", "", {}}, {"box.nc"}, {""}},
        {{{"box.v2.cf2"}, "", "t", {}}, {"box.v2.nc"}, {"t"}},
        {{{"box"}, "x/y.txt", "", {}}, {"x/y.txt"}, {""}},
        {{{"box.cf2"}, "out", "out", {}}, {"out/box.nc"}, {"out/box.trace"}},
        {{{"a.cf2", "b.cf2"}, "", "out", {}}, {"a.nc", "b.nc"}, {"out/a.trace", "out/b.trace"}},
        {{{"-"}, "", "", {"t.tun"}}, {"-"}, {""}},
        {{{"-"}, "out", "", {"t.tun"}}, {"out/stdin.nc"}, {""}},
        {{{"box.cf2"}, "/dev/stdout", "t", {}}, {"-"}, {"t"}},
        {{{"a.cf2"}, "/dev/null", "/dev/null", {}}, {"/dev/null"}, {"/dev/null"}},
    };
    for (const Case& c : cases) {
        const OutputPlan plan = PlanOutput(c.request);
        EXPECT_EQ(plan.fault, "") << c.nc[0];
        ASSERT_EQ(plan.jobs.size(), c.nc.size());
        for (size_t i = 0; i < plan.jobs.size(); ++i) {
            EXPECT_EQ(plan.jobs[i].nc_path, c.nc[i]);
            EXPECT_EQ(plan.jobs[i].trace_path, c.traces[i]);
        }
    }
}

TEST_F(HostOutput, RequestsThatWouldWriteOverSomething) {
    fs::create_directory("out");
    Write("box.nc", "a drawing, oddly named");
    for (const char* const name : {"m.tun", "x.nc", "trace"}) Write(name, "");
    fs::create_symlink("m.tun", "link.nc");
    const OutputRequest cases[] = {
        {{"a.cf2", "b.cf2"}, "x.nc", "", {}},          // several into one file
        {{"a.cf2", "b.cf2"}, "-", "", {}},             // several to standard output
        {{"a.cf2", "b.cf2"}, "", "trace", {}},         // several traces into one file
        {{"a/box.cf2", "b/box.cf2"}, "", "", {}},      // two of one name
        {{"a.cf2", "./out/../a.cf2"}, "out", "", {}},  // one drawing twice
        {{"box.nc"}, "", "", {}},                      // over the drawing
        {{"a.cf2"}, "out/../m.tun", "", {"m.tun"}},    // over the tuning
        {{"a.cf2"}, "link.nc", "", {"m.tun"}},         // over the tuning, by a link
        {{"a.cf2"}, "x.nc", "./x.nc", {}},             // text and trace
        {{"a.cf2"}, "-", "-", {}},
        {{"-"}, "", "", {"-"}},  // standard input twice
    };
    for (const OutputRequest& request : cases) {
        const OutputPlan plan = PlanOutput(request);
        EXPECT_NE(plan.fault, "") << request.drawings[0] << " " << request.nc;
        EXPECT_FALSE(plan.lacks_folder) << plan.fault;
    }
}

TEST_F(HostOutput, FoldersThatAreNotThere) {
    Write("file", "");
    const OutputRequest cases[] = {
        {{"a.cf2"}, "none/a.nc", "", {}},     {{"a.cf2"}, "none/", "", {}},     {{"a.cf2"}, "", "none/trace", {}},
        {{"a.cf2", "b.cf2"}, "none", "", {}}, {{"a.cf2"}, "file/a.nc", "", {}},
    };
    for (const OutputRequest& request : cases) EXPECT_TRUE(PlanOutput(request).lacks_folder) << request.nc;
}

TEST_F(HostOutput, SegmentPaths) {
    struct Case {
        const char* path;
        size_t number, count;
        const char* expected;
    };
    const Case cases[] = {
        {"box.nc", 1, 1, "box.nc"},
        {"box.nc", 1, 2, "box-1.nc"},
        {"a.b/box.v2.nc", 12, 12, "a.b/box.v2-12.nc"},
        {"a.b/box", 2, 3, "a.b/box-2"},
        {"-", 2, 3, "-"},
        {"/dev/null", 2, 3, "/dev/null"},
        {"/dev/fd/9", 2, 3, "/dev/fd/9"},
    };
    for (const Case& c : cases) EXPECT_EQ(SegmentPath(c.path, c.number, c.count), c.expected);
}

TEST_F(HostOutput, FilesAppearTogetherOrNotAtAll) {
    Write("old.nc", "old");
    ::chmod("old.nc", 0640);
    {
        COutputFiles files;
        ASSERT_TRUE(files.Add("old.nc", "new"));
        ASSERT_TRUE(files.Add("more.nc", std::string_view("a\0b", 3)));
        EXPECT_EQ(Read("old.nc"), "old");
        EXPECT_FALSE(fs::exists("more.nc"));
        ASSERT_TRUE(files.Commit());
    }
    EXPECT_EQ(Names(), (Texts{"more.nc", "old.nc"}));
    EXPECT_EQ(Read("old.nc"), "new");
    EXPECT_EQ(Read("more.nc"), std::string("a\0b", 3));
    EXPECT_EQ(fs::status("old.nc").permissions(), fs::perms{0640});
}

TEST_F(HostOutput, FailedJobsLeaveNothing) {
    fs::create_directory("folder.nc");
    testing::internal::CaptureStderr();
    {
        COutputFiles files;
        EXPECT_TRUE(files.Add("good.nc", "text"));
        EXPECT_FALSE(files.Add("nowhere/x.nc", "text"));
        EXPECT_FALSE(files.Add("folder.nc", "text"));
    }
    Write("old.nc", "old");
    ::chmod("old.nc", 0640);
    fs::create_symlink("gone", "link.nc");
    {
        COutputFiles files;
        EXPECT_TRUE(files.Add("good.nc", "text"));
        EXPECT_TRUE(files.Add("old.nc", "text"));
        EXPECT_TRUE(files.Add("link.nc", "text"));
        EXPECT_TRUE(files.Add("late.nc", "text"));
        EXPECT_TRUE(files.Add("more.nc", "text"));
        fs::create_directory("late.nc");  // while the job was under way
        EXPECT_FALSE(files.Commit());
    }
    EXPECT_EQ(Read("old.nc"), "old");
    EXPECT_EQ(fs::status("old.nc").permissions(), fs::perms{0640});
    EXPECT_TRUE(fs::is_symlink("link.nc"));
    {
        COutputFiles files;
        EXPECT_TRUE(files.Add("good.nc", "text"));
        EXPECT_TRUE(files.Add("/dev/full", "text"));
        EXPECT_FALSE(files.Commit());
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "nowhere/x.nc: error: can't be written: No such file or directory\n"
              "folder.nc: error: can't be written: Is a directory\n"
              "late.nc: error: can't be written: Is a directory\n"
              "/dev/full: error: can't be written: No space left on device\n");
    EXPECT_EQ(Names(), (Texts{"folder.nc", "late.nc", "link.nc", "old.nc"}));
}

TEST_F(HostOutput, LinksStayAndTheirFilesAreReplaced) {
    fs::create_directory("real");
    Write("real/box.nc", "old");
    fs::create_symlink("real/box.nc", "box.nc");
    COutputFiles files;
    ASSERT_TRUE(files.Add("box.nc", "new") && files.Commit());
    EXPECT_TRUE(fs::is_symlink("box.nc"));
    EXPECT_EQ(Read("real/box.nc"), "new");
}

TEST(HostMessages, DiagnosticsShowTheWord) {
    struct Case {
        size_t column, length;
        std::string line, shown_column, expected;
    };
    const std::string stars(400, '*');
    const std::vector<Case> cases = {
        {6, 4, "BOOL bUse true", "6", "    BOOL bUse true\n         ^^^^\n"},
        {8, 2, "\xC3\xA4\tb\xFF\x1B \xC3\xB6X", "7", "    \xC3\xA4 b\xC3\xBF? \xC3\xB6X\n          ^\n"},
        {99, 1, "short", "6", "    short\n         ^\n"},
        {101, 3, stars, "101", "    ..." + stars.substr(0, 120) + "...\n" + std::string(67, ' ') + "^^^\n"},
        {0, 1, "whole line", "1", ""},
    };
    for (const Case& c : cases) {
        testing::internal::CaptureStderr();
        const std::string_view lines[] = {"", "", c.line};
        CDiagnostics diagnostics("m.tun", lines);
        diagnostics.Add(Rule::kExtraWords, {3, c.column, c.length}, "what is wrong", "what helps");
        PrintDiagnostics(diagnostics);
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "m.tun:3:" + c.shown_column + ": warning: what is wrong (what helps) [extra-words]\n" + c.expected);
    }
}

TEST(HostMessages, AMessageIsOneLine) {
    testing::internal::CaptureStderr();
    PrintError({"a\nb.tun"}, "x\ry\x1B[2J");
    PrintWarning({}, Quoted(std::string(59, 'a') + "\xC3\xA4z"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "a?b.tun: error: x?y?[2J\nbrindle: warning: '" + std::string(59, 'a') + "...'\n");
}

TEST(HostNumbers, OnlyWholeTextsCount) {
    const std::pair<const char*, std::optional<double>> numbers[] = {
        {"12.5", 12.5},         {"+3", 3.0},           {"-.5", -0.5},          {"1e3", 1000.0},
        {"", std::nullopt},     {"+", std::nullopt},   {"+-3", std::nullopt},  {"1,5", std::nullopt},
        {"12mm", std::nullopt}, {"nan", std::nullopt}, {"inf", std::nullopt},  {"0x10", std::nullopt},
        {" 1", std::nullopt},   {"1 ", std::nullopt},  {"1e999", std::nullopt}};
    for (const auto& [text, value] : numbers) EXPECT_EQ(ParseNumber(text), value) << text;

    struct Pair {
        const char* text;
        char separator;
        double x, y;
    };
    for (const Pair& p : {Pair{"300x200", 'x', 300, 200}, Pair{"1.5X2", 'x', 1.5, 2}, Pair{"-5,1e1", ',', -5, 10}}) {
        const std::optional<Point> pair = PairText(p.text, p.separator);
        ASSERT_TRUE(pair) << p.text;
        EXPECT_EQ(pair->x, p.x);
        EXPECT_EQ(pair->y, p.y);
    }
    for (const char* const bad : {"", "300", "300x", "x200", "1x2x3", "300,200"})
        EXPECT_FALSE(PairText(bad, 'x')) << bad;

    const std::pair<double, const char*> shown[] = {
        {12.5, "12.5"}, {100.0, "100"}, {-0.0000001, "0"}, {1e20, "100000000000000000000"}, {1.0 / 3.0, "0.333333"}};
    for (const auto& [value, text] : shown) EXPECT_EQ(ShortNumber(value), text);
}

}  // namespace
}  // namespace brindle::host
