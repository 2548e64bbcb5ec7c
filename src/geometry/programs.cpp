#include "geometry/programs.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace brindle {
namespace {

constexpr double kSameRotation = 0.0001;
// A rotation of more radians has lost the digits that give its direction. It equals none but itself.
constexpr double kFarthest = 1e11;
// A full turn in cells of ten times the rotations that count as equal: what equals a rotation lies in its cell or in
// one of the two beside it. A rotation beyond kFarthest is a cell of its own.
constexpr double kCells = 6283.0;
// As few variants as these are looked through one by one.
constexpr size_t kFew = 32;

bool IsFar(double rotation) { return !(std::abs(rotation) <= kFarthest); }

double CellOf(double rotation) {
    if (IsFar(rotation)) return rotation;
    return std::min(std::floor(NormalizePositive(rotation, false) * (kCells / kFullTurn)), kCells - 1.0);
}

double CellBeside(double cell, double cells) { return IsFar(cell) ? cell : std::fmod(cell + cells + kCells, kCells); }

bool RotationsMatch(const CIncludeInfo& a, const CIncludeInfo& b) {
    if (IsFar(a.rotation) || IsFar(b.rotation)) return a.rotation == b.rotation;
    return std::abs(NormalizeSigned(a.rotation - b.rotation, false)) <= kSameRotation;
}

bool MirrorsMatch(const CIncludeInfo& a, const CIncludeInfo& b) {
    return a.mirror_x == b.mirror_x && a.mirror_y == b.mirror_y;
}

// For two variants of one name.
bool VariantsMatch(const CIncludeInfo& a, const CIncludeInfo& b, CallAbilities at_call) {
    return (at_call.rotation || RotationsMatch(a, b)) && (at_call.mirror || MirrorsMatch(a, b));
}

// A half turn is the same as both mirrors.
CIncludeInfo HalfTurnEquivalent(const CIncludeInfo& info) {
    CIncludeInfo equivalent = info;
    equivalent.rotation -= kHalfTurn;
    equivalent.mirror_x = !info.mirror_x;
    equivalent.mirror_y = !info.mirror_y;
    return equivalent;
}

bool IsIndexOf(int32_t i, size_t size) { return i >= 0 && static_cast<size_t>(i) < size; }

}  // namespace

void CNCGeomMgr::StartMain(std::string name, Point center, bool inside, bool horizontal) {
    Clear();
    StartProgram(std::move(name), center, inside, horizontal);
}

void CNCGeomMgr::StartSub(std::string name, Point center, bool inside, bool horizontal) {
    StartProgram(std::move(name), center, inside, horizontal);
}

void CNCGeomMgr::StartProgram(std::string name, Point center, bool inside, bool horizontal) {
    current_ = program_count();
    program_of_name_.try_emplace(name, current_);
    programs_.push_back({{}, std::move(name), center, inside, horizontal});
}

void CNCGeomMgr::Add(std::unique_ptr<CNCData> record) {
    if (!record || current_ < 0) return;
    if (record->IsText() && current_ != 0) return;
    programs_[static_cast<size_t>(current_)].records.push_back(std::move(record));
}

void CNCGeomMgr::Clear() {
    current_ = -1;
    programs_.clear();
    program_of_name_.clear();
    variants_.clear();
    variants_of_name_.clear();
}

int32_t CNCGeomMgr::FindProgram(std::string_view name) const {
    const auto found = program_of_name_.find(std::string(name));
    return found == program_of_name_.end() ? -1 : found->second;
}

const CNCGeomData* CNCGeomMgr::ProgramAt(int32_t program) const {
    return IsIndexOf(program, programs_.size()) ? &programs_[static_cast<size_t>(program)] : nullptr;
}

std::string_view CNCGeomMgr::GetProgramName(int32_t program) const {
    const CNCGeomData* data = ProgramAt(program);
    return data ? std::string_view(data->name) : std::string_view();
}

bool CNCGeomMgr::GetProgramCenter(int32_t program, Point& p) const {
    const CNCGeomData* data = ProgramAt(program);
    if (!data) return false;
    p = data->center;
    return true;
}

bool CNCGeomMgr::GetFirstPoint(int32_t program, Point& p) const {
    const CNCGeomData* data = ProgramAt(program);
    if (!data || data->records.empty()) return false;
    p = data->records.front()->Start();
    return true;
}

bool CNCGeomMgr::GetLastPoint(int32_t program, Point& p) const {
    const CNCGeomData* data = ProgramAt(program);
    if (!data || data->records.empty()) return false;
    p = data->records.back()->End();
    return true;
}

int32_t CNCGeomMgr::GetRecordCount(int32_t program) const {
    const CNCGeomData* data = ProgramAt(program);
    return data ? static_cast<int32_t>(data->records.size()) : 0;
}

const CNCData* CNCGeomMgr::GetRecord(int32_t program, int32_t i) const {
    const CNCGeomData* data = ProgramAt(program);
    if (!data || !IsIndexOf(i, data->records.size())) return nullptr;
    return data->records[static_cast<size_t>(i)].get();
}

void CNCGeomMgr::CollectIncludes(CallAbilities at_call) {
    for (CNCGeomData& program : programs_) {
        for (const std::unique_ptr<CNCData>& record : program.records) {
            if (!record->IsInclude()) continue;
            auto& call = static_cast<CNCIncludeData&>(*record);
            CIncludeInfo info{call.GetIncludeName(), -1, call.GetIncludeRotation(), call.GetIncludeMirrorX(),
                              call.GetIncludeMirrorY()};
            if (FindVariant(info, at_call) < 0) {
                AddVariant(std::move(info));
            } else if (info.rotation != call.GetIncludeRotation()) {
                call.SetPlacing(info.rotation, info.mirror_x, info.mirror_y);
            }
        }
    }
}

void CNCGeomMgr::AddVariant(CIncludeInfo info) {
    const int32_t index = GetVariantCount();
    Namesakes& namesakes = variants_of_name_[info.name];
    namesakes.all.push_back(index);
    namesakes.in_cell[CellOf(info.rotation)].push_back(index);
    if (!HasMirrorsOfAny(info, namesakes.first_of_mirrors)) namesakes.first_of_mirrors.push_back(index);
    variants_.push_back(std::move(info));
}

bool CNCGeomMgr::HasMirrorsOfAny(const CIncludeInfo& info, const std::vector<int32_t>& among) const {
    return std::any_of(among.begin(), among.end(),
                       [&](int32_t i) { return MirrorsMatch(info, variants_[static_cast<size_t>(i)]); });
}

int32_t CNCGeomMgr::FindVariant(CIncludeInfo& info, CallAbilities at_call) const {
    const auto found = variants_of_name_.find(info.name);
    if (found == variants_of_name_.end()) return -1;
    const Namesakes& namesakes = found->second;
    // Each list holds all that can match, so the first that matches in it is the first of all.
    if (at_call.rotation) return MatchingVariant(info, at_call, namesakes.first_of_mirrors);
    if (namesakes.all.size() <= kFew) return MatchingVariant(info, at_call, namesakes.all);
    return MatchingVariant(info, at_call, VariantsNear(namesakes, info.rotation));
}

// Those that can match `rotation` or its half-turn equivalent.
std::vector<int32_t> CNCGeomMgr::VariantsNear(const Namesakes& namesakes, double rotation) {
    std::vector<int32_t> near;
    near.reserve(16);  // mostly enough for all six cells
    for (const double direction : {rotation, rotation - kHalfTurn}) {
        for (const double cells : {-1.0, 0.0, 1.0}) {
            const auto found = namesakes.in_cell.find(CellBeside(CellOf(direction), cells));
            if (found != namesakes.in_cell.end()) near.insert(near.end(), found->second.begin(), found->second.end());
        }
    }
    std::sort(near.begin(), near.end());
    return near;
}

int32_t CNCGeomMgr::MatchingVariant(CIncludeInfo& info, CallAbilities at_call,
                                    const std::vector<int32_t>& among) const {
    const CIncludeInfo equivalent = HalfTurnEquivalent(info);
    for (const int32_t i : among) {
        const CIncludeInfo& variant = variants_[static_cast<size_t>(i)];
        if (VariantsMatch(info, variant, at_call)) return i;
        if (VariantsMatch(equivalent, variant, at_call)) {
            info = equivalent;
            return i;
        }
    }
    return -1;
}

const CNCGeomData* CNCGeomMgr::ProgramOfVariant(int32_t i) const {
    if (i < 0) return ProgramAt(0);
    if (!IsIndexOf(i, variants_.size())) return nullptr;
    return ProgramAt(FindProgram(variants_[static_cast<size_t>(i)].name));
}

bool CNCGeomMgr::GetVariant(int32_t i, int32_t& program, std::string& name, bool use_mirror, bool use_rotation,
                            CTrans& trans) const {
    if (!IsIndexOf(i, variants_.size())) return false;
    const CIncludeInfo& variant = variants_[static_cast<size_t>(i)];
    const int32_t found = FindProgram(variant.name);
    if (found < 0) return false;
    program = found;
    name = variant.name;
    if (use_mirror) {
        trans.mirror_x = variant.mirror_x;
        trans.mirror_y = variant.mirror_y;
    }
    if (use_rotation) trans.rotation = variant.rotation;
    return true;
}

int32_t CNCGeomMgr::GetVariantNumber(int32_t i) const {
    return IsIndexOf(i, variants_.size()) ? variants_[static_cast<size_t>(i)].number : -1;
}

bool CNCGeomMgr::SetVariantNumber(int32_t i, int32_t number) {
    if (!IsIndexOf(i, variants_.size())) return false;
    variants_[static_cast<size_t>(i)].number = number;
    return true;
}

bool CNCGeomMgr::IsInside(int32_t i) const {
    const CNCGeomData* data = ProgramOfVariant(i);
    return !data || data->inside;
}

bool CNCGeomMgr::IsHorizontal(int32_t i) const {
    const CNCGeomData* data = ProgramOfVariant(i);
    return !data || data->horizontal;
}

}  // namespace brindle
