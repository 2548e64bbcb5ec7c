// Jobs at the same time: the thread sanitizer, under which this program is built, ends it where two of them touch the
// same memory, and what they give is what they give one after the other.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <thread>

#include "generator/path_recorder.h"
#include "host/post/post_jobs.h"
#include "platform/text_file.h"
#include "rtd/value_exchange.h"
#include "unit/temp_folder.h"

namespace brindle::host {
namespace {

namespace fs = std::filesystem;

const std::string kTunings[] = {"knife_tangential", "laser_mm", "speed_by_material", "subs_mirror"};
const std::string kDrawings[] = {"folding_box", "knife_sheet", "nested_sheet", "plate"};

std::string TuningPath(const std::string& name) { return "examples/" + name + "/" + name + ".tun"; }
std::string DrawingPath(const std::string& name) { return "examples/drawings/" + name + ".cf2"; }

// All files of a folder, by name.
std::map<std::string, std::string> FilesOf(const CTempFolder& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(folder.path())) {
        const std::string name = entry.path().filename();
        files[name] = folder.Get(name);
    }
    return files;
}

// Posts each drawing four times, some that fail among them. Gives the files, and under an empty name the messages.
std::map<std::string, std::string> Post(const LoadedTuning& tuning, size_t at_a_time) {
    const CTempFolder folder;
    JobOptions options;
    options.tuning_pick = "Pick";
    options.run_data.given = {"CUSTOMER=Me"};
    OutputPlan plan;
    for (size_t i = 0; i < 4 * std::size(kDrawings); ++i) {
        const std::string name = std::to_string(i);
        plan.jobs.push_back({DrawingPath(kDrawings[i % std::size(kDrawings)]), folder.path() / (name + ".nc"),
                             folder.path() / (name + ".trace")});
        if (i % 5 == 4) plan.jobs.back().drawing = "none-" + name;
    }
    EXPECT_TRUE(ChooseDataset(tuning, "", options.run_data.dataset));
    testing::internal::CaptureStderr();
    CTuningFindings findings(tuning.file, {});
    EXPECT_EQ(RunPostJobs(plan, {tuning, findings, options}, at_a_time), JobOutcome::kNotMade);
    std::map<std::string, std::string> files = FilesOf(folder);
    EXPECT_EQ(files.size(), 26U);
    files[""] = testing::internal::GetCapturedStderr();
    return files;
}

TEST(ThreadsTest, FilesAndMessagesAreThoseOfOneAfterTheOther) {
    const CDataHome store;
    CKVItemContainer values;
    values.SetText("RTD(1,1)", "17", TextKind::kPlain);
    SaveRunTimeValues(RecordName("Pick", "Poplar_18"), values);
    for (const std::string& name : kTunings) {
        LoadedTuning tuning;
        ASSERT_TRUE(LoadTuning(TuningPath(name), "", tuning));
        EXPECT_EQ(Post(tuning, 4), Post(tuning, 1)) << name;
    }
}

// The NC text and the size of the path; the values of the run are stored under the same name by all.
std::string RunOnce(const std::string& tuning, const std::string& drawing) {
    CSession session;
    const std::optional<std::string> text = ReadWholeFile(TuningPath(tuning));
    for (const std::string_view line : SplitLines(*text)) session.tuning.ReadFileLine(line);
    EXPECT_TRUE(session.OpenDrawing(DrawingPath(drawing)));
    CPathRecorder recorder;
    const JobResult result = RunJob(session, &recorder);
    SaveRunTimeValues("shared", session.run_values);
    std::string all = std::to_string(recorder.TakePath().elements.size());
    while (result.buffers.CurBufferHasMoreData()) all += result.buffers.GetOutputBuffer();
    return all;
}

TEST(ThreadsTest, SessionsShareNothing) {
    const CDataHome store;
    std::map<std::string, std::string> alone;
    for (const std::string& tuning : kTunings) alone[tuning] = RunOnce(tuning, "folding_box");
    std::vector<std::jthread> threads;
    for (size_t i = 0; i < 2 * std::size(kTunings); ++i) {
        threads.emplace_back([&alone, tuning = kTunings[i % std::size(kTunings)]] {
            for (int n = 0; n < 5; ++n) EXPECT_EQ(RunOnce(tuning, "folding_box"), alone.at(tuning));
        });
    }
}

}  // namespace
}  // namespace brindle::host
