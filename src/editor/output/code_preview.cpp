#include "editor/output/code_preview.h"

#include <algorithm>
#include <utility>

#include "editor/messages.h"
#include "generator/path_recorder.h"
#include "platform/file_replacement.h"
#include "scene/scene_of_path.h"

namespace brindle {
namespace {

constexpr FileQuestion kOpenDrawing{false, ".CF2", "CFF2 Files (*.CF2)|*.cf2|All Files (*.*)|*.*||"};
constexpr FileQuestion kSaveCode{true, ".txt", "Text Files (*.txt)|*.txt|All Files (*.*)|*.*||"};

std::string ShownLine(const CNCDebugInfo& record) {
    std::string text(record.text);
    switch (record.kind) {
        case TraceKind::kTemplate: return "---------------" + text;
        case TraceKind::kMessage: return " -> " + text + " <-";
        case TraceKind::kBlock: break;
    }
    return text;
}

}  // namespace

CNCCodePreview::CNCCodePreview(CToolkit& toolkit, CSheetWindow& sheet, std::function<void()> closed)
    : toolkit_(toolkit), closed_(std::move(closed)), window_(toolkit.MakeModeless("NC Code Preview", sheet)) {
    AddControls();
    window_->close_clicked.Set([this] { Close(); });
    window_->Open();
}

void CNCCodePreview::AddControls() {
    list_ = &window_->AddList(PlainSpec(ControlKind::kList));
    ControlSpec drawing = PlainSpec(ControlKind::kDrawing, {}, Spot::kBeside);
    drawing.tip = "Wheel: zoom. Drag: move. Double click: show all. Click: find the block.";
    drawing_ = &window_->AddDrawing(drawing);
    show_errors_ = &window_->AddButton(PlainSpec(ControlKind::kCheck, "Show errors"));
    show_headers_ = &window_->AddButton(PlainSpec(ControlKind::kCheck, "Show template headers", Spot::kBeside));
    CButtonControl& open = window_->AddButton(PlainSpec(ControlKind::kButton, "Open CF2 File...", Spot::kBeside));
    CButtonControl& save = window_->AddButton(PlainSpec(ControlKind::kButton, "Save to File...", Spot::kBeside));
    list_->selected.Set([this] { FollowList(); });
    drawing_->picked.Set([this] { FollowDrawing(); });
    show_errors_->clicked.Set([this] { RebuildList(); });
    show_headers_->clicked.Set([this] { RebuildList(); });
    open.clicked.Set([this] { OpenDrawing(); });
    save.clicked.Set([this] { SaveToFile(); });
    save.Show(false);
}

void CNCCodePreview::ShowRun(CSession& session) {
    session_ = &session;
    list_->Empty();  // its rows are those of the trace that goes now
    CPathRecorder recorder;
    RunJob(session, &recorder);
    path_ = recorder.TakePath();
    RebuildList();
    drawing_->SetScene(std::make_shared<const PathScene>(MakeScene(path_)));
    path_.elements = {};
}

void CNCCodePreview::RebuildList() {
    list_->Empty();
    if (session_ == nullptr) return;
    shown_ = session_->trace.Select(show_headers_->GetCheck(), show_errors_->GetCheck());
    list_->SetEntries(static_cast<int>(shown_.size()), [this](int row) { return TextOfRow(row); });
    drawing_->Highlight(-1);
}

std::string CNCCodePreview::TextOfRow(int row) const {
    return ShownLine(session_->trace.Get(shown_[static_cast<size_t>(row)]));
}

void CNCCodePreview::FollowList() {
    const int row = list_->GetSelected();
    drawing_->Highlight(row < 0 ? -1 : path_.NumberOfBlock(shown_[static_cast<size_t>(row)]));
}

void CNCCodePreview::FollowDrawing() {
    const int element = drawing_->GetPicked();
    drawing_->Highlight(element);
    const auto number = static_cast<size_t>(element);
    const BlockRange blocks = number < path_.blocks.size() ? path_.blocks[number] : BlockRange{};
    const auto row = std::lower_bound(shown_.begin(), shown_.end(), blocks.first);
    const bool has_row = row != shown_.end() && *row < blocks.last;
    list_->Select(has_row ? static_cast<int>(row - shown_.begin()) : -1);
}

void CNCCodePreview::OpenDrawing() {
    if (session_ == nullptr) return;
    const auto path = toolkit_.ChooseFile(kOpenDrawing);
    if (!path) return;
    session_->OpenDrawing(*path);
    ShowRun(*session_);
}

void CNCCodePreview::SaveToFile() {
    if (session_ == nullptr) return;
    const auto path = toolkit_.ChooseFile(kSaveCode);
    if (!path) return;
    const auto fail = [&] { toolkit_.ShowMessage(std::string(messages::kCantCreateFile) + *path); };
    const std::string target = TargetOf(*path);
    constexpr unsigned kOpenToAll = 0666;  // less the user's mask
    // The text stays in the buffer where no file can be made.
    if (CFileReplacement().Add(target, {}, kOpenToAll) != 0) return fail();
    std::string text;
    while (session_->buffers.CurBufferHasMoreData()) text += session_->buffers.GetOutputBuffer();
    CFileReplacement file;
    if (file.Add(target, text, kOpenToAll) != 0 || file.Commit().error != 0) fail();
}

void CNCCodePreview::Close() {
    closed_();
    window_->Close();
}

}  // namespace brindle
