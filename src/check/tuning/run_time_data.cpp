#include <set>
#include <utility>

#include "check/tuning/checks.h"
#include "check/tuning/run_time_words.h"
#include "platform/local_time.h"
#include "text/message_words.h"
#include "text/words.h"

namespace brindle {
namespace {

// Looks at one line after the other, as the reader does: a dataset must be defined above its values.
class DefinitionChecker {
public:
    DefinitionChecker(const CPlacedTuning& tuning, CDiagnostics& diagnostics)
        : tuning_(tuning), diagnostics_(diagnostics) {}

    void Check(const PlacedLine& line) {
        const std::vector<std::string> words = SplitQuotedWords(line.text);
        switch (*line.Definition()) {
            case DefinitionLine::kTime: return CheckTime(line, words);
            case DefinitionLine::kDataset: return CheckDataset(line, words);
            case DefinitionLine::kValue: return CheckValue(line, words);
            default: return CheckEntry(line, words);
        }
    }

private:
    using Words = std::vector<std::string>;

    void Add(Rule rule, const PlacedLine& line, size_t word, std::string message) {
        diagnostics_.Add(rule, line.PlaceOf(line.Word(word)), std::move(message));
    }

    void CheckTime(const PlacedLine& line, const Words& words) {
        if (ParseTimeStamp(words[1]) != 0) return;
        Add(Rule::kBadTime, line, 1, Quoted(words[1]) + " is no time such as 2024_03_01_10_00_00: it counts as none");
    }

    void CheckDataset(const PlacedLine& line, const Words& words) {
        if (datasets_.insert(UnescapeBlanks(words[1])).second) return;
        Add(Rule::kRepeatedDataset, line, 1, "dataset " + Quoted(words[1]) + " is defined already");
    }

    void CheckEntry(const PlacedLine& line, const Words& words) {
        if (words.size() < 3)
            return Add(Rule::kNamelessEntry, line, 1,
                       "the line has no effect: " + words[0] + " TEXT is followed by a name");
        if (words[1] != "TEXT") {
            Add(Rule::kSkippedWord, line, 1,
                "TEXT belongs here: this word is skipped, and the name is " + Quoted(words[2]));
        }
        if (UnescapeBlanks(words[2]).empty())
            Add(Rule::kNamelessEntry, line, 2, "the line has no effect: the name is empty");
        if (words.size() < 4) return;
        if (words[3] != "HIDE")
            Add(Rule::kExtraWords, line, 3, "only HIDE has a meaning here; within a name a blank is written !#SP#!");
        if (words[3] == "HIDE" && words.size() > 4) Add(Rule::kExtraWords, line, 4, "words after HIDE are ignored");
    }

    void CheckValue(const PlacedLine& line, const Words& words) {
        if (words.size() < 5) {
            return Add(Rule::kShortValueLine, line, words.size() - 1,
                       "the line has no effect: DSD is followed by dataset, type, word and value");
        }
        const std::string dataset = UnescapeBlanks(words[1]);
        if (!datasets_.contains(dataset)) {
            return Add(Rule::kUnknownDataset, line, 1,
                       "the line has no effect: no DATASETDEF above it defines " + Quoted(dataset));
        }
        if (!TextKindOfValue(words[2]))
            Add(Rule::kBadValueType, line, 2,
                Quoted(words[2]) + " is none of TEXT, R_EXPR and T_EXPR: it counts as TEXT");
        if (!values_.emplace(dataset, words[3]).second) {
            Add(Rule::kRepeatedValue, line, 3,
                words[3] + " of dataset " + Quoted(dataset) + " is set again: the last line counts");
        }
        if (words.size() > 5)
            Add(Rule::kCutText, line, 5, "words after the value are ignored; within it a blank is written !#SP#!");
        CheckRunTimeWord(words[3], tuning_.options().definition(), line.PlaceOf(line.Word(3)), diagnostics_);
    }

    const CPlacedTuning& tuning_;
    CDiagnostics& diagnostics_;
    std::set<std::string> datasets_;
    std::set<std::pair<std::string, std::string>> values_;
};

}  // namespace

void CheckRunTimeData(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    DefinitionChecker checker(tuning, diagnostics);
    for (const PlacedLine& line : tuning.lines()) {
        if (line.Definition() && line.words.size() >= 2) checker.Check(line);
    }
}

}  // namespace brindle
