#include <set>
#include <utility>

#include "check/tuning/check.h"
#include "check/tuning/run_time_words.h"
#include "platform/local_time.h"
#include "text/ascii.h"
#include "text/message_words.h"
#include "text/words.h"

namespace brindle {
namespace {

// Looks at one line after the other, as the reader does: a dataset must be defined above its values.
class DefinitionChecker {
public:
    DefinitionChecker(const CCheckedTuning& tuning, CFindings& findings) : tuning_(tuning), findings_(findings) {}

    void Check(const CheckedLine& line) {
        const std::vector<std::string> words = SplitQuotedWords(line.text);
        if (words[0] == "UPD") CheckTime(line, words);
        if (words[0] == "DATASETDEF") CheckDataset(line, words);
        if (words[0] == "DSD") CheckValue(line, words);
        if (words[0] == "ROW" || words[0] == "COL" || words[0] == "MSG") CheckEntry(line, words);
    }

private:
    using Words = std::vector<std::string>;

    void Error(const CheckedLine& line, size_t word, std::string text) {
        AddAtWord(findings_, Severity::kError, line, line.Word(word), std::move(text));
    }
    void Warn(const CheckedLine& line, size_t word, std::string text) {
        AddAtWord(findings_, Severity::kWarning, line, line.Word(word), std::move(text));
    }

    void CheckTime(const CheckedLine& line, const Words& words) {
        if (ParseTimeStamp(words[1]) != 0) return;
        Warn(line, 1, Quoted(words[1]) + " is no time such as 2024_03_01_10_00_00: it counts as none");
    }

    void CheckDataset(const CheckedLine& line, const Words& words) {
        if (datasets_.insert(UnescapeBlanks(words[1])).second) return;
        Warn(line, 1, "dataset " + Quoted(words[1]) + " is defined already");
    }

    void CheckEntry(const CheckedLine& line, const Words& words) {
        if (words.size() < 3)
            return Error(line, 1, "the line has no effect: " + words[0] + " TEXT is followed by a name");
        if (words[1] != "TEXT") {
            Warn(line, 1, "the second word is TEXT; what stands here is skipped, and the name is " + Quoted(words[2]));
        }
        if (UnescapeBlanks(words[2]).empty()) Error(line, 2, "the line has no effect: the name is empty");
        if (words.size() < 4) return;
        if (words[3] != "HIDE") Warn(line, 3, "only HIDE has a meaning here; within a name a blank is written !#SP#!");
        if (words[3] == "HIDE" && words.size() > 4) Warn(line, 4, "words behind HIDE are ignored");
    }

    void CheckValue(const CheckedLine& line, const Words& words) {
        if (words.size() < 5) {
            return Error(line, words.size() - 1,
                         "the line has no effect: DSD is followed by dataset, type, word and value");
        }
        const std::string dataset = UnescapeBlanks(words[1]);
        if (!datasets_.contains(dataset)) {
            return Error(line, 1, "the line has no effect: no DATASETDEF above it defines " + Quoted(dataset));
        }
        const bool known_type =
            EqualNoCase(words[2], "TEXT") || EqualNoCase(words[2], "R_EXPR") || EqualNoCase(words[2], "T_EXPR");
        if (!known_type) Error(line, 2, Quoted(words[2]) + " is none of TEXT, R_EXPR and T_EXPR: it counts as TEXT");
        if (!values_.emplace(dataset, words[3]).second) {
            Warn(line, 3, words[3] + " of dataset " + Quoted(dataset) + " is set again: the last line counts");
        }
        if (words.size() > 5) Error(line, 5, "words behind the value are ignored; within it a blank is written !#SP#!");
        const std::string fault = FaultOfRunTimeWord(words[3], tuning_.options().definition());
        if (!fault.empty()) Warn(line, 3, fault);
    }

    const CCheckedTuning& tuning_;
    CFindings& findings_;
    std::set<std::string> datasets_;
    std::set<std::pair<std::string, std::string>> values_;
};

}  // namespace

void CheckRunTimeData(const CCheckedTuning& tuning, CFindings& findings) {
    DefinitionChecker checker(tuning, findings);
    for (const CheckedLine& line : tuning.lines()) {
        if (IsRunTimeDataLine(line) && line.words.size() >= 2) checker.Check(line);
    }
}

}  // namespace brindle
