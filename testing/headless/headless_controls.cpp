#include "testing/headless/headless_controls.h"

#include <algorithm>

namespace brindle {
namespace {

bool IsControl(char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }

}  // namespace

void HeadlessDesk::MoveFocus(CHeadlessControl* control) {
    if (focused == control) return;
    CHeadlessControl* const before = focused;
    focused = control;
    if (before != nullptr) before->LoseFocus();
}

// ---- Any control ----

CHeadlessControl::CHeadlessControl(ControlSpec spec, HeadlessDesk& desk) : spec_(std::move(spec)), desk_(desk) {}

CHeadlessControl::~CHeadlessControl() {
    if (desk_.focused == this) desk_.focused = nullptr;
}

// ---- Labels and buttons ----

CHeadlessLabel::CHeadlessLabel(const ControlSpec& spec, HeadlessDesk& desk) : CHeadlessBase(spec, desk) {
    SetText(spec.label);
}

CHeadlessButton::CHeadlessButton(const ControlSpec& spec, HeadlessDesk& desk, const HeadlessControls& siblings)
    : CHeadlessBase(spec, desk), siblings_(siblings) {
    SetText(spec.label);
}

std::string CHeadlessButton::Value() const {
    if (spec().kind == ControlKind::kButton) return {};
    return checked_ ? "1" : "0";
}

bool CHeadlessButton::Click() {
    if (spec().kind == ControlKind::kCheck) checked_ = !checked_;
    if (spec().kind == ControlKind::kRadio) {
        UnmarkGroup();
        checked_ = true;
    }
    clicked.Report();
    return true;
}

void CHeadlessButton::UnmarkGroup() {
    for (const auto& sibling : siblings_) {
        if (sibling->spec().kind != ControlKind::kRadio || sibling->spec().group != spec().group) continue;
        if (auto* const button = dynamic_cast<CHeadlessButton*>(sibling.get())) button->SetCheck(false);
    }
}

// ---- Edits ----

void CEditText::Set(std::string_view text) {
    text_ = text;
    selection_ = {};
    before_.reset();
}

void CEditText::ReplaceAll(std::string_view text) {
    Select({0, text_.size()});
    ReplaceSelection(text);
}

void CEditText::ReplaceSelection(std::string_view text) {
    before_ = text_;
    std::string typed(text);
    if (one_line_) std::ranges::replace_if(typed, IsControl, ' ');
    text_.replace(selection_.begin, selection_.end - selection_.begin, typed);
    selection_.begin = selection_.end = selection_.begin + text.size();
}

void CEditText::Undo() {
    if (!before_) return;
    std::swap(text_, *before_);
    selection_.begin = selection_.end = text_.size();
}

void CEditText::Select(TextRange range) {
    selection_.end = std::min(range.end, text_.size());
    selection_.begin = std::min(range.begin, selection_.end);
}

// ---- Lists ----

void CHeadlessList::Empty() {
    entries_.clear();
    selected_ = -1;
}

int CHeadlessList::AddEntry(std::string_view text) {
    entries_.push_back({std::string(text)});
    return GetCount() - 1;
}

void CHeadlessList::SetValue(int index, int32_t value) {
    if (Has(index)) entries_[static_cast<size_t>(index)].value = value;
}

int32_t CHeadlessList::GetValue(int index) const { return Has(index) ? entries_[static_cast<size_t>(index)].value : 0; }

std::string CHeadlessList::GetEntryText(int index) const {
    return Has(index) ? entries_[static_cast<size_t>(index)].text : std::string();
}

void CHeadlessList::SetEntries(int count, std::function<std::string(int)> text_of) {
    Empty();
    for (int i = 0; i < count; ++i) AddEntry(text_of(i));
}

void CHeadlessList::Select(int index) {
    if (Has(index) || index == -1) selected_ = index;
}

std::string CHeadlessList::Value() const {
    const std::string index = std::to_string(selected_);
    return selected_ < 0 ? index : index + ' ' + GetEntryText(selected_);
}

std::vector<std::string> CHeadlessList::Rows() const {
    std::vector<std::string> rows;
    for (const Entry& entry : entries_) rows.push_back(entry.text);
    return rows;
}

bool CHeadlessList::Pick(int index) {
    if (!Has(index)) return false;
    selected_ = index;
    selected.Report();
    return true;
}

bool CHeadlessList::DoubleClick(TableCell cell) {
    if (!Pick(cell.row)) return false;
    double_clicked.Report();
    return true;
}

// ---- Tables ----

void CHeadlessTable::AddColumn(std::string_view heading, int width) {
    columns_.push_back({std::string(heading), width});
    for (Row& row : rows_) row.cells.resize(columns_.size());
}

void CHeadlessTable::RemoveColumns() {
    columns_.clear();
    for (Row& row : rows_) row.cells.clear();
}

int CHeadlessTable::AddRow() {
    rows_.push_back({std::vector<std::string>(columns_.size())});
    return static_cast<int>(rows_.size()) - 1;
}

void CHeadlessTable::SetCell(TableCell cell, std::string_view text) {
    if (!HasRow(cell.row) || cell.column < 0 || static_cast<size_t>(cell.column) >= columns_.size()) return;
    rows_[static_cast<size_t>(cell.row)].cells[static_cast<size_t>(cell.column)] = text;
}

void CHeadlessTable::SetRowValue(int row, int32_t value) {
    if (HasRow(row)) rows_[static_cast<size_t>(row)].value = value;
}

int32_t CHeadlessTable::GetRowValue(int row) const { return HasRow(row) ? rows_[static_cast<size_t>(row)].value : 0; }

std::vector<std::string> CHeadlessTable::Rows() const {
    std::vector<std::string> lines;
    for (const Row& row : rows_) {
        std::string line;
        bool is_first = true;
        for (size_t i = 0; i < columns_.size(); ++i) {
            if (columns_[i].width == 0) continue;
            if (!is_first) line += '\t';
            is_first = false;
            line += row.cells[i];
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

bool CHeadlessTable::DoubleClick(TableCell cell) {
    const int column = ColumnOfVisible(cell.column);
    pointer_.reset();
    if (HasRow(cell.row) && column >= 0) pointer_ = TableCell{cell.row, column};
    double_clicked.Report();
    return true;
}

int CHeadlessTable::ColumnOfVisible(int place) const {
    for (size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i].width != 0 && place-- == 0) return static_cast<int>(i);
    }
    return -1;
}

}  // namespace brindle
