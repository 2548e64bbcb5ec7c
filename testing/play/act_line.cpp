#include "testing/play/act_line.h"

#include "text/words.h"

namespace brindle::play {
namespace {

struct Escape {
    char letter;
    std::string_view meaning;
};

constexpr Escape kEscapes[] = {{'n', "\r\n"}, {'t', "\t"}, {'"', "\""}, {'\\', "\\"}};

std::string_view MeaningOf(char letter) {
    for (const Escape& escape : kEscapes) {
        if (escape.letter == letter) return escape.meaning;
    }
    return {};
}

// Takes the text up to the closing quote off `rest`, which begins after the opening one.
std::optional<std::string> TakeQuoted(std::string_view& rest) {
    std::string text;
    for (size_t i = 0; i < rest.size(); ++i) {
        const std::string_view meaning = rest[i] == '\\' && i + 1 < rest.size() ? MeaningOf(rest[i + 1]) : "";
        if (!meaning.empty()) {
            text += meaning;
            ++i;
        } else if (rest[i] == '"') {
            rest.remove_prefix(i + 1);
            return text;
        } else {
            text += rest[i];
        }
    }
    return std::nullopt;
}

std::string TakePlain(std::string_view& rest) {
    const size_t end = std::min(rest.find(' '), rest.size());
    std::string text(rest.substr(0, end));
    rest.remove_prefix(end);
    return text;
}

}  // namespace

std::optional<std::vector<Word>> SplitAct(std::string_view line) {
    std::vector<Word> words;
    std::string_view rest = line;
    while (true) {
        rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
        if (rest.empty()) return words;
        if (rest.front() != '"') {
            words.push_back({TakePlain(rest), false});
            continue;
        }
        rest.remove_prefix(1);
        auto text = TakeQuoted(rest);
        if (!text) return std::nullopt;
        words.push_back({std::move(*text), true});
    }
}

std::string OneLine(std::string_view text) {
    return ReplaceAll(ReplaceAll(ReplaceAll(text, "\r\n", "\\n"), "\n", "\\n"), "\t", "\\t");
}

std::string DoubleQuoted(std::string_view text) { return '"' + OneLine(text) + '"'; }

}  // namespace brindle::play
