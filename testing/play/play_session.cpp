#include "testing/play/play_session.h"

#include <istream>
#include <ostream>

#include "brindle/brindle.h"
#include "editor/toolkit/active_toolkit.h"
#include "platform/text_encoding.h"
#include "text/numbers.h"

namespace brindle::play {
namespace {

// The UTF-8 of a system string, which is freed.
std::string Taken(wchar_t* text) {
    std::string narrow = WideToNarrow(text);
    SysFreeString(text);
    return narrow;
}

bool IsNumber(const Word& word) {
    return !word.quoted && word.text.find_first_not_of("0123456789") == std::string::npos;
}

// Where the character of that number begins in UTF-8 text.
size_t ByteOf(std::string_view text, int32_t character) {
    size_t byte = 0;
    while (byte < text.size() && character > 0) {
        ++byte;
        while (byte < text.size() && (static_cast<unsigned char>(text[byte]) & 0xC0U) == 0x80U) ++byte;
        --character;
    }
    return byte;
}

std::string_view StateOf(const ShownControl& control) {
    if (!control.shown) return "hidden";
    return control.enabled ? "enabled" : "disabled";
}

}  // namespace

struct CPlaySession::Act {
    std::string_view name;
    size_t least, most;  // arguments
    void (*play)(CPlaySession& session, const Words& words);
};

const CPlaySession::Act CPlaySession::kActs[] = {
    {"sheet", 1, 2, [](CPlaySession& s, const Words& w) { s.OpenSheet(w); }},
    {"rtdata", 3, 3, [](CPlaySession& s, const Words& w) { s.OpenRunTimeData(w); }},
    {"segment", 0, 0, [](CPlaySession& s, const Words& w) { s.OpenSegment(w); }},
    {"page", 1, 1, [](CPlaySession& s, const Words& w) { s.Check(s.screen_->GoToPage(w[1].text)); }},
    {"show", 0, 1, [](CPlaySession& s, const Words& w) { s.Show(w); }},
    {"click", 1, 1, [](CPlaySession& s, const Words& w) { s.Check(s.screen_->Click(w[1].text)); }},
    {"type", 2, 2, [](CPlaySession& s, const Words& w) { s.Check(s.screen_->Type(w[1].text, w[2].text)); }},
    {"leave", 0, 0, [](CPlaySession& s, const Words&) { s.Check(s.screen_->Leave()); }},
    {"pick", 2, 2, [](CPlaySession& s, const Words& w) { s.Pick(w); }},
    {"double", 3, 3, [](CPlaySession& s, const Words& w) { s.Double(w); }},
    {"mark", 3, 3, [](CPlaySession& s, const Words& w) { s.Mark(w); }},
    {"menu", 1, 1, [](CPlaySession& s, const Words& w) { s.Check(s.screen_->WantMenu(w[1].text)); }},
    {"ok", 0, 0, [](CPlaySession& s, const Words&) { s.Check(s.screen_->PressOk()); }},
    {"cancel", 0, 0, [](CPlaySession& s, const Words&) { s.Check(s.screen_->PressCancel()); }},
    {"apply", 0, 0, [](CPlaySession& s, const Words&) { s.Check(s.screen_->PressApply()); }},
    {"close", 0, 0, [](CPlaySession& s, const Words&) { s.Check(s.screen_->PressClose()); }},
    {"window", 1, 1, [](CPlaySession& s, const Words& w) { s.Check(s.screen_->GoToWindow(w[1].text)); }},
    {"tuning", 0, 0, [](CPlaySession& s, const Words& w) { s.PrintTuning(w); }},
    {"nc", 0, 0, [](CPlaySession& s, const Words& w) { s.PrintCode(w); }},
};

// ---- Acts come in ----

bool CPlaySession::Run(CPlayScreen& screen) {
    screen_ = &screen;
    SetActiveToolkit(&screen.toolkit());
    while (NextAct()) continue;
    SetActiveToolkit(nullptr);
    screen_ = nullptr;
    return !failed_;
}

bool CPlaySession::NextAct() {
    const auto words = NextLine();
    if (words) Execute(*words);
    return words && !failed_;
}

std::optional<CPlaySession::Words> CPlaySession::NextLine() {
    if (put_back_) return std::exchange(put_back_, std::nullopt);
    for (std::string line; !failed_ && std::getline(acts_, line);) {
        ++line_number_;
        if (line.ends_with('\r')) line.pop_back();
        auto words = SplitAct(line);
        if (!words) Check("a quote is not closed");
        if (words && !words->empty()) return words;
    }
    return std::nullopt;
}

void CPlaySession::Execute(const Words& words) {
    for (const Act& act : kActs) {
        if (act.name != words[0].text) continue;
        const size_t arguments = words.size() - 1;
        if (arguments >= act.least && arguments <= act.most) return act.play(*this, words);
        return Check("wrong number of arguments for '" + words[0].text + "'");
    }
    Check("there is no act '" + words[0].text + "' here");
}

void CPlaySession::Check(const std::string& problem) {
    if (problem.empty() || failed_) return;
    errors_ << "brindle-play: line " << line_number_ << ": " << problem << '\n';
    failed_ = true;
}

void CPlaySession::Print(const std::string& line) {
    if (!failed_) output_ << line << '\n';
}

// ---- What happens on the screen ----

void CPlaySession::WindowOpened(const std::string& caption) { Print("window " + DoubleQuoted(caption)); }

void CPlaySession::WindowClosed(const std::string& caption, bool with_ok) {
    Print("closed " + DoubleQuoted(caption) + (with_ok ? " ok" : " cancel"));
}

bool CPlaySession::AnswerMessage(std::string_view text, bool is_question) {
    Print("message " + DoubleQuoted(text) + (is_question ? " yes no" : " ok"));
    while (const auto words = NextLine()) {
        const std::string& act = words->front().text;
        if (act == "tuning" || act == "nc") {
            Execute(*words);
            continue;
        }
        const std::string answer = act == "answer" && words->size() == 2 ? words->back().text : std::string();
        if (is_question && (answer == "yes" || answer == "no")) return answer == "yes";
        if (!is_question && answer == "ok") return true;
        Check(is_question ? "the message box waits for 'answer yes' or 'answer no'"
                          : "the message box waits for 'answer ok'");
    }
    return false;
}

int CPlaySession::AnswerMenu(std::span<const MenuEntry> entries) {
    for (const MenuEntry& entry : entries) Print(entry.text.empty() ? "-" : std::string(entry.text));
    auto words = NextLine();
    if (!words) return -1;
    if (words->front().text != "entry" || words->size() != 2) {
        put_back_ = std::move(words);  // any other act closes the menu
        return -1;
    }
    for (size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].text.empty() || entries[i].text != words->back().text) continue;
        if (!entries[i].enabled) Check(DoubleQuoted(entries[i].text) + " is disabled");
        return entries[i].enabled ? static_cast<int>(i) : -1;
    }
    Check("the menu has no entry " + DoubleQuoted(words->back().text));
    return -1;
}

std::optional<std::string> CPlaySession::AnswerFile(const FileQuestion& question) {
    Print(std::string("file ") + (question.save ? "save " : "open ") + DoubleQuoted(question.extension) + ' ' +
          DoubleQuoted(question.filter));
    const auto words = NextLine();
    if (!words) return std::nullopt;
    if (words->front().text != "file" || words->size() > 2) {
        Check("the file dialog waits for 'file'");
        return std::nullopt;
    }
    return words->size() == 2 ? std::optional(words->back().text) : std::nullopt;
}

// ---- Dialogs of the library ----

void CPlaySession::OpenSheet(const Words& words) {
    if (screen_->HasWindow()) return Check("a window is open");
    if (words[1].text != "mm" && words[1].text != "inch") return Check("a sheet shows 'mm' or 'inch'");
    int result = 0;
    const std::string title = words.size() > 2 ? words[2].text : std::string();
    GBrn_DisplayTuningDialog(words[1].text == "inch" ? 1 : 0, NarrowToWide(title).c_str(), &result);
    Print("result " + std::to_string(result));
}

void CPlaySession::OpenRunTimeData(const Words& words) {
    if (screen_->HasWindow()) return Check("a window is open");
    wchar_t* chosen = nullptr;
    GBrn_DisplayRTDataDlg(NarrowToWide(words[1].text).c_str(), NarrowToWide(words[2].text).c_str(),
                          NarrowToWide(words[3].text).c_str(), &chosen);
    Print("result " + DoubleQuoted(Taken(chosen)));
}

void CPlaySession::OpenSegment(const Words&) {
    if (screen_->HasWindow()) return Check("a window is open");
    GBrn_DisplayLoadSegmentDialog();
}

// ---- Acts upon windows ----

void CPlaySession::Show(const Words& words) {
    if (!screen_->HasWindow()) return Check("no window is open");
    if (words.size() == 1) {
        for (const ShownControl& control : screen_->Controls()) ShowControl(control);
        return;
    }
    const auto control = Find(words[1].text);
    if (!control) return Check("there is no control " + DoubleQuoted(words[1].text) + " in the window");
    ShowControl(*control);
}

void CPlaySession::ShowControl(const ShownControl& control) {
    std::string line(ClassWord(control.kind));
    line.append("\t").append(control.Name()).append("\t").append(control.label).append("\t");
    line.append(StateOf(control)).append("\t").append(OneLine(control.value));
    Print(line);
    for (const std::string& row : control.rows) Print('\t' + row);
}

std::optional<ShownControl> CPlaySession::Find(std::string_view name) const {
    const std::vector<ShownControl> controls = screen_->Controls();
    const std::vector<NamedControl> names(controls.begin(), controls.end());
    const auto found = FindControl(names, name);
    return found ? std::optional(controls[*found]) : std::nullopt;
}

void CPlaySession::Pick(const Words& words) {
    const std::string& control = words[1].text;
    Check(IsNumber(words[2]) ? screen_->Pick(control, LeadingInt(words[2].text))
                             : screen_->PickEntry(control, words[2].text));
}

void CPlaySession::Double(const Words& words) {
    if (!IsNumber(words[2]) || !IsNumber(words[3])) return Check("rows and columns are numbers from 0");
    Check(screen_->DoubleClick(words[1].text, {LeadingInt(words[2].text), LeadingInt(words[3].text)}));
}

void CPlaySession::Mark(const Words& words) {
    if (!IsNumber(words[2]) || !IsNumber(words[3])) return Check("characters are numbers from 0");
    const auto control = screen_->HasWindow() ? Find(words[1].text) : std::nullopt;
    const std::string text = control ? control->value : std::string();
    const TextRange range{ByteOf(text, LeadingInt(words[2].text)), ByteOf(text, LeadingInt(words[3].text))};
    Check(screen_->Mark(words[1].text, range));
}

// ---- What the host sees ----

void CPlaySession::PrintTuning(const Words&) {
    wchar_t* text = nullptr;
    GBrn_GetTuning(&text);
    std::string lines = Taken(text);
    for (size_t end = 0; (end = lines.find('\b')) != std::string::npos; lines.erase(0, end + 1)) {
        Print(lines.substr(0, end));
    }
}

void CPlaySession::PrintCode(const Words&) {
    for (int more = 0; GBrn_CurBufferHasMoreData(&more), more != 0;) {
        wchar_t* piece = nullptr;
        GBrn_GetOutputBuffer(&piece);
        std::string line = Taken(piece);
        if (line.ends_with('\n')) line.pop_back();
        Print(line);
    }
}

}  // namespace brindle::play
