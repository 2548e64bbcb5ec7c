#include "host/files/input_kind.h"

#include <algorithm>
#include <vector>

#include "platform/text_file.h"
#include "text/ascii.h"
#include "text/words.h"
#include "tuning/run_time_data_def.h"
#include "tuning/type_words.h"

namespace brindle::host {
namespace {

using namespace std::string_view_literals;

constexpr size_t kLooked = 4096;  // bytes, from the start: enough to know a file

struct FileStart {
    std::string_view bytes;
    std::string_view kind;
};

constexpr FileStart kFileStarts[] = {
    {"\xFF\xFE"sv, "UTF-16 text"},     {"\xFE\xFF"sv, "UTF-16 text"},    {"AutoCAD Binary DXF"sv, "a DXF drawing"},
    {"AC10"sv, "a DWG drawing"},       {"%PDF"sv, "a PDF file"},         {"%!PS"sv, "a PostScript file"},
    {"PK\x03\x04"sv, "a ZIP archive"}, {"\x1F\x8B"sv, "a gzip archive"}, {"\x89PNG"sv, "a PNG picture"},
};

struct NameEnd {
    std::string_view ending;
    std::string_view kind;
};

constexpr NameEnd kNameEnds[] = {{".SVG", "an SVG drawing"}, {".DXF", "a DXF drawing"}, {".DWG", "a DWG drawing"},
                                 {".PDF", "a PDF file"},     {".AI", "an AI drawing"},  {".EPS", "a PostScript file"}};

constexpr std::string_view kRecordWords[] = {"$BOF", "V2", "ORDER", "END", "$EOF", "MAIN", "SUB", "UR",
                                             "LL",   "UM", "UI",    "SCL", "L",    "A",    "T",   "C"};

constexpr std::string_view kTuning = "a tuning", kDrawing = "a CFF2 drawing";

// Text of two bytes a character whose mark is missing.
bool IsUtf16(std::string_view text) {
    if (text.size() < 4) return false;
    const auto is_nul = [text](size_t at) { return text[at] == '\0'; };
    return (is_nul(0) && is_nul(2) && !is_nul(1) && !is_nul(3)) || (is_nul(1) && is_nul(3) && !is_nul(0) && !is_nul(2));
}

bool IsTuningLine(std::string_view line) {
    std::vector<std::string_view> words;
    SplitWords(line, words);
    if (words.size() < 2) return false;
    return FindTypeWord(UpperCase(words[0])) != nullptr || DefinitionLineOf(words[0]).has_value();
}

bool IsDrawingLine(std::string_view line) {
    std::string word(line.substr(0, line.find(',')));
    word.erase(word.find_last_not_of(" \t") + 1);
    return std::find(std::begin(kRecordWords), std::end(kRecordWords), word) != std::end(kRecordWords);
}

// A tuning or a drawing by its lines, if they agree.
std::string_view KindOfLines(const std::vector<std::string_view>& lines) {
    const bool has_tuning = std::any_of(lines.begin(), lines.end(), IsTuningLine);
    const bool has_drawing = std::any_of(lines.begin(), lines.end(), IsDrawingLine);
    if (has_tuning == has_drawing) return {};
    return has_tuning ? kTuning : kDrawing;
}

// DXF as text is pairs of lines, a code and a value; code 999 is a remark.
bool IsDxf(const std::vector<std::string_view>& lines) {
    std::vector<std::string_view> code, value;
    for (size_t i = 0; i + 1 < lines.size(); i += 2) {
        SplitWords(lines[i], code);
        SplitWords(lines[i + 1], value);
        if (code.size() != 1) return false;
        if (code[0] == "999") continue;
        return code[0] == "0" && value.size() == 1 && value[0] == "SECTION";
    }
    return false;
}

std::string_view KindOf(std::string_view text) {
    text = text.substr(0, kLooked);
    for (const FileStart& start : kFileStarts) {
        if (text.starts_with(start.bytes)) return start.kind;
    }
    if (IsUtf16(text)) return "UTF-16 text";
    if (text.find("<svg") != text.npos) return "an SVG drawing";
    const std::vector<std::string_view> lines = SplitLines(text);
    return IsDxf(lines) ? "a DXF drawing" : KindOfLines(lines);
}

std::string FaultOf(std::string_view kind) {
    return std::string("is ").append(kind).append(kind == "UTF-16 text" ? ": save it as UTF-8"
                                                                        : ": only CFF2 drawings are read");
}

}  // namespace

std::string FaultOfKind(std::string_view text, WantedInput wanted) {
    const std::string_view kind = KindOf(text);
    const bool wants_tuning = wanted == WantedInput::kTuning;
    if (kind.empty() || kind == (wants_tuning ? kTuning : kDrawing)) return {};
    if (kind == kTuning) return "is a tuning, not a drawing";
    if (kind == "UTF-16 text" || !wants_tuning) return FaultOf(kind);
    return std::string("is ").append(kind).append(", not a tuning");
}

std::string FaultOfName(std::string_view path) {
    const std::string name = UpperCase(path);
    for (const NameEnd& end : kNameEnds) {
        if (name.ends_with(end.ending)) return FaultOf(end.kind);
    }
    return {};
}

bool IsDrawing(std::string_view path, std::string_view text) {
    const std::string_view kind = KindOf(text);
    if (!kind.empty()) return kind != kTuning;
    const std::string name = UpperCase(path);
    return name.ends_with(".CF2") || name.ends_with(".CFF2");
}

}  // namespace brindle::host
