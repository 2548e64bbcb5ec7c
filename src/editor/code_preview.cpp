#include "editor/code_preview.h"

#include <fstream>

#include "cff2/cff2_reader.h"
#include "editor/control_place.h"
#include "editor/messages.h"
#include "generator/output_run.h"

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

CNCCodePreview::CNCCodePreview(CToolkit& toolkit, CNCPreviewOwner& owner, CSheetWindow& sheet)
    : toolkit_(toolkit), owner_(owner), window_(toolkit.MakeModeless("NC Code Preview", sheet)) {
    AddControls();
    window_->close_clicked.Set([this] { Close(); });
    window_->Open();
}

void CNCCodePreview::AddControls() {
    list_ = &window_->AddList(PlainSpec(ControlKind::kList));
    show_errors_ = &window_->AddButton(PlainSpec(ControlKind::kCheck, "Show errors"));
    show_headers_ = &window_->AddButton(PlainSpec(ControlKind::kCheck, "Show template headers"));
    CButtonControl& open = window_->AddButton(PlainSpec(ControlKind::kButton, "Open CF2 File..."));
    CButtonControl& save = window_->AddButton(PlainSpec(ControlKind::kButton, "Save to File..."));
    show_errors_->clicked.Set([this] { RebuildList(); });
    show_headers_->clicked.Set([this] { RebuildList(); });
    open.clicked.Set([this] { OpenDrawing(); });
    save.clicked.Set([this] { SaveToFile(); });
    save.Show(false);
}

void CNCCodePreview::ShowRun(const SessionParts& session) {
    session_ = &session;
    RunOutput(session);
    RebuildList();
}

void CNCCodePreview::RebuildList() {
    list_->Empty();
    if (session_ == nullptr) return;
    const CNCDebugMgr& trace = session_->trace;
    for (size_t i = 0; i < trace.GetCount(); ++i) {
        const CNCDebugInfo record = trace.Get(i);
        if (record.kind == TraceKind::kTemplate && !show_headers_->GetCheck()) continue;
        if (record.kind == TraceKind::kMessage && !show_errors_->GetCheck()) continue;
        list_->AddEntry(ShownLine(record));
    }
}

void CNCCodePreview::OpenDrawing() {
    if (session_ == nullptr) return;
    const auto path = toolkit_.ChooseFile(kOpenDrawing);
    if (!path) return;
    ReadCF2(*path, session_->geometry, session_->controller.job);
    ShowRun(*session_);
}

void CNCCodePreview::SaveToFile() {
    if (session_ == nullptr) return;
    const auto path = toolkit_.ChooseFile(kSaveCode);
    if (!path) return;
    std::ofstream file(*path, std::ios::binary | std::ios::trunc);
    if (!file) {
        toolkit_.Tell(std::string(messages::kCantCreateFile) + *path);
        return;
    }
    while (session_->buffers.CurBufferHasMoreData()) file << session_->buffers.GetOutputBuffer();
}

void CNCCodePreview::Close() {
    owner_.OnPreviewClosed();
    window_->Close();
}

}  // namespace brindle
