#include "generator/buffer_mgr.h"

#include "generator/char_codes.h"

namespace brindle {

void CBufferMgr::Reset() {
    buffers_.clear();
    current_ = nullptr;
    bytes_ = 0;
}

void CBufferMgr::NewBuffer() {
    current_ = &buffers_.emplace_back();
    bytes_ = 0;
}

void CBufferMgr::AddToBuffer(std::string& block) {
    if (current_ == nullptr) NewBuffer();
    ExpandCharCodes(block);
    const size_t marker = block.find(kDwellMarker);
    if (marker != std::string::npos) return AddBlockWithDwell(block, marker);
    AddPiece(block);
    bytes_ += static_cast<uint32_t>(block.size());
}

void CBufferMgr::AddBlockWithDwell(std::string_view block, size_t marker) {
    size_t after = marker + kDwellMarker.size();
    std::string_view parameter;  // with its closing bracket
    if (after < block.size() && block[after] == '[') {
        const size_t close = block.find(']', after);
        if (close != std::string_view::npos) {
            parameter = block.substr(after + 1, close - after);
            after = close + 1;
        }
    }
    const std::string_view before = block.substr(0, marker);
    const std::string_view rest = block.substr(after);
    AddPiece(before);
    AddPiece(std::string(kDwellMarker).append(parameter));
    if (!before.empty() || rest != kLineEnd) {
        AddPiece(rest);
        bytes_ += static_cast<uint32_t>(block.size() - kDwellMarker.size());
    }
    if (!parameter.empty()) bytes_ -= static_cast<uint32_t>(2 + parameter.size());
}

bool CBufferMgr::SetCurBuffer(int32_t number) {
    if (number < 1 || number > GetNumOfBuffers()) return false;
    current_ = &buffers_[static_cast<size_t>(number - 1)];
    return true;
}

bool CBufferMgr::CurBufferHasMoreData() const { return current_ != nullptr && !current_->reader.AtEnd(); }

std::string_view CBufferMgr::NextPiece() const {
    if (!CurBufferHasMoreData()) return {};
    CTextLog::Reader reader = current_->reader;
    return reader.Next().text;
}

std::string_view CBufferMgr::GetOutputBuffer() {
    return CurBufferHasMoreData() ? current_->reader.Next().text : std::string_view();
}

}  // namespace brindle
