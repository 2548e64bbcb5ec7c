// Whole jobs: each folder of tests/jobs holds a tuning, a drawing or a list of calls, and the NC text that must come.
//
// calls.txt has one export a line, without its GBrn_: a word, then its arguments, texts with blanks in double quotes.
// What follows a `#` at the start of a line is a remark. Each `End` adds its NC text to the result. Without a calls.txt
// the drawing is opened and run.
//
// In expected.nc a line end means CR LF, any other control character is written `\XX`. A text that does not end
// with a line end has a `\` after it. Further segments and runs begin with a line of their own.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <sstream>

#include "unit/host_session.h"

namespace brindle {
namespace {

namespace fs = std::filesystem;

std::string FileText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> LinesOf(const fs::path& path) {
    std::istringstream text(FileText(path));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
}

// The arguments of a line of calls.txt, taken one by one.
class CArguments {
public:
    explicit CArguments(const std::string& line) : stream_(line) { stream_ >> name_; }
    const std::string& name() const { return name_; }

    std::string Word() {
        std::string word;
        stream_ >> std::ws;
        if (stream_.peek() != '"') return stream_ >> word, word;
        stream_.get();
        std::getline(stream_, word, '"');
        return word;
    }
    template <typename T>
    T Take() {
        if constexpr (std::is_pointer_v<T>) {
            return texts_.emplace_back(NarrowToWide(Word())).c_str();
        } else {
            const std::string word = Word();
            T number{};
            EXPECT_EQ(std::from_chars(word.data(), word.data() + word.size(), number).ec, std::errc()) << word;
            return number;
        }
    }

private:
    std::istringstream stream_;
    std::string name_;
    std::deque<std::wstring> texts_;  // what the arguments of one call point to
};

using Call = std::function<void(CArguments&)>;

template <typename... A>
Call CallOf(int (*function)(A...)) {
    return [function](CArguments& arguments) {
        const std::tuple<A...> values{arguments.Take<A>()...};  // braces keep the order
        std::apply(function, values);
    };
}

const std::map<std::string, Call>& Calls() {
    static const std::map<std::string, Call> calls = {
        {"Clear", CallOf(GBrn_Clear)},
        {"ClearTuning", CallOf(GBrn_ClearTuning)},
        {"ReadTuneLine", CallOf(GBrn_ReadTuneLine)},
        {"SetTuningFileName", CallOf(GBrn_SetTuningFileName)},
        {"SetDate", CallOf(GBrn_SetDate)},
        {"SetTime", CallOf(GBrn_SetTime)},
        {"SetDateTime", CallOf(GBrn_SetDateTime)},
        {"SetBlankSize", CallOf(GBrn_SetBlankSize)},
        {"SetAutoUnitsToInches", CallOf(GBrn_SetAutoUnitsToInches)},
        {"SetRotaryRadius", CallOf(GBrn_SetRotaryRadius)},
        {"SetFinalPosition", CallOf(GBrn_SetFinalPosition)},
        {"SetNullFinalPos", CallOf(GBrn_SetNullFinalPos)},
        {"SetTileToOutput", CallOf(GBrn_SetTileToOutput)},
        {"SetOutputName", CallOf(GBrn_SetOutputName)},
        {"SetFileName", CallOf(GBrn_SetFileName)},
        {"SetMaterialFile", CallOf(GBrn_SetMaterialFile)},
        {"SetDataSetName", CallOf(GBrn_SetDataSetName)},
        {"SetTuneMenuPick", CallOf(GBrn_SetTuneMenuPick)},
        {"StartMain", CallOf(GBrn_StartMain)},
        {"StartSub", CallOf(GBrn_StartSub)},
        {"AddLine", CallOf(GBrn_AddLine)},
        {"AddArc", CallOf(GBrn_AddArc)},
        {"AddText", CallOf(GBrn_AddText)},
        {"AddInclude", CallOf(GBrn_AddInclude)},
        {"OpenCF2File", CallOf(GBrn_OpenCF2File)},
    };
    return calls;
}

// NC text as expected.nc has it.
std::string Shown(std::string_view text) {
    constexpr char kHex[] = "0123456789ABCDEF";
    std::string shown;
    for (size_t i = 0; i < text.size(); ++i) {
        const auto code = static_cast<unsigned char>(text[i]);
        if (text.substr(i, 2) == "\r\n") {
            shown += '\n';
            ++i;
        } else if (code < 0x20 || code == '\\') {
            shown.append({'\\', kHex[code >> 4], kHex[code & 15]});
        } else {
            shown += text[i];
        }
    }
    if (!shown.empty() && shown.back() != '\n') shown += "\\\n";
    return shown;
}

class CJob {
public:
    explicit CJob(const fs::path& folder) : folder_(folder), session_(LinesOf(folder / "tuning.tun")) {}

    std::string Result() {
        const fs::path drawing = folder_ / "drawing.cf2";
        if (fs::exists(drawing)) GBrn_OpenCF2File(drawing.wstring().c_str());
        if (!fs::exists(folder_ / "calls.txt")) Run();
        for (const std::string& line : LinesOf(folder_ / "calls.txt")) Perform(line);
        return result_;
    }

private:
    void Perform(const std::string& line) {
        CArguments arguments(line);
        if (arguments.name().empty() || arguments.name()[0] == '#') return;
        if (arguments.name() == "End") return Run();
        const auto call = Calls().find(arguments.name());
        ASSERT_NE(call, Calls().end()) << line;
        call->second(arguments);
    }
    void Run() {
        if (++runs_ > 1) result_ += "=== run " + std::to_string(runs_) + "\n";
        size_t number = 0;
        for (const auto& pieces : session_.RunForPieces()) {
            if (++number > 1) result_ += "=== segment " + std::to_string(number) + "\n";
            std::string text;
            for (const std::string& piece : pieces) text += piece;
            result_ += Shown(text);
        }
    }

    fs::path folder_;
    CHostSession session_;
    std::string result_;
    int runs_ = 0;
};

void ExpectTheText(const std::string& job) {
    const fs::path folder = fs::path("tests/jobs") / job;
    const std::string result = CJob(folder).Result();
    EXPECT_TRUE(fs::exists(folder / "README")) << "a job says what it is there for";
    if (result != FileText(folder / "expected.nc")) ADD_FAILURE() << FileText(folder / "README") << "gives\n" << result;
}

class JobTest : public testing::TestWithParam<std::string> {};

TEST_P(JobTest, GivesTheExpectedText) { ExpectTheText(GetParam()); }

std::vector<std::string> JobNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator("tests/jobs")) {
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Jobs, JobTest, testing::ValuesIn(JobNames()), [](const auto& job) { return job.param; });

// A locale whose decimal point is a comma: one that is installed, or one made in `made`. False if there is none.
bool UseCommaLocale(const fs::path& made) {
    for (int attempt = 0; attempt < 2; ++attempt) {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "nl_NL.UTF-8", "it_IT.UTF-8"}) {
            if (std::setlocale(LC_ALL, name) != nullptr && *std::localeconv()->decimal_point == ',') return true;
        }
        fs::create_directories(made);
        const std::string command = "localedef -i de_DE -f UTF-8 '" + (made / "de_DE.UTF-8").string() + "' 2>/dev/null";
        if (std::system(command.c_str()) == 0) ::setenv("LOCPATH", made.c_str(), 1);
    }
    return false;
}

TEST(JobsTest, GiveTheSameTextInEachLocale) {
    const fs::path made = fs::temp_directory_path() / ("brindle_locale_" + std::to_string(::getpid()));
    RecordProperty("comma_locale", UseCommaLocale(made) ? "used" : "none to be had");
    for (const std::string& job : JobNames()) ExpectTheText(job);
    std::setlocale(LC_ALL, "C");
    fs::remove_all(made);
}

}  // namespace
}  // namespace brindle
