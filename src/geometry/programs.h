// The geometry of a job: its main program, its sub-programs, and the distinct ways in which sub-programs are called.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "geometry/nc_data.h"
#include "geometry/trans.h"

namespace brindle {

// One program.
struct CNCGeomData {
    std::vector<std::unique_ptr<CNCData>> records;  // in order of arrival
    std::string name;                               // compared exactly
    Point center;                                   // of the bounding box in the host's plane
    bool inside = true;
    bool horizontal = true;
};

// One include variant: a sub-program with the rotation and mirrors that need a body of their own.
struct CIncludeInfo {
    std::string name;
    int32_t number = -1;    // block number of the sub-program's label as the output recorded it, negative until then
    double rotation = 0.0;  // radians
    bool mirror_x = false;
    bool mirror_y = false;
};

// What the controller can apply when it calls a sub-program, so that it makes no new variant.
struct CallAbilities {
    bool rotation = false;
    bool mirror = false;
};

// Holds the programs of a job as the host sends them, from one StartMain to the next. A run does not change them, but
// for the equivalent form into which CollectIncludes may put a call.
class CNCGeomMgr {
public:
    // Destroys all programs and variants and starts the main program.
    void StartMain(std::string name, Point center, bool inside, bool horizontal);
    // Starts a further program. A name may repeat; calls go to the first of its name.
    void StartSub(std::string name, Point center, bool inside, bool horizontal);
    // Adds a record to the current program. Without one nothing is stored; a text goes into program 0 alone.
    void Add(std::unique_ptr<CNCData> record);
    // Destroys all programs and variants. There is no current program after it.
    void Clear();

    int32_t FindProgram(std::string_view name) const;  // -1 if there is none
    int32_t program_count() const { return static_cast<int32_t>(programs_.size()); }
    std::string_view GetProgramName(int32_t program) const;
    // Questions for a point give false, and leave `p` alone, out of range and where a program has no records.
    bool GetProgramCenter(int32_t program, Point& p) const;
    bool GetFirstPoint(int32_t program, Point& p) const;
    bool GetLastPoint(int32_t program, Point& p) const;
    int32_t GetRecordCount(int32_t program) const;
    const CNCData* GetRecord(int32_t program, int32_t i) const;  // null out of range

    // Adds the variants that the calls of all programs need to those that are known.
    void CollectIncludes(CallAbilities at_call);
    // The first variant that fits `info` or its half-turn equivalent, or -1. If it fits the equivalent alone, `info`
    // becomes that.
    int32_t FindVariant(CIncludeInfo& info, CallAbilities at_call) const;
    int32_t GetVariantCount() const { return static_cast<int32_t>(variants_.size()); }
    // The program and name of variant `i`; false if there is no such variant or no program has its name. Mirrors and
    // rotation go into `trans` if asked for.
    bool GetVariant(int32_t i, int32_t& program, std::string& name, bool use_mirror, bool use_rotation,
                    CTrans& trans) const;
    int32_t GetVariantNumber(int32_t i) const;         // -1 out of range
    bool SetVariantNumber(int32_t i, int32_t number);  // false out of range
    // The flag of the program of variant `i`, of program 0 if `i` is negative; true if there is none.
    bool IsInside(int32_t i) const;
    bool IsHorizontal(int32_t i) const;

private:
    // The variants of one name. A job can call one program at thousands of rotations, each of them a variant, so they
    // are kept by rotation too. All lists ascend.
    struct Namesakes {
        std::vector<int32_t> all;
        std::unordered_map<double, std::vector<int32_t>> in_cell;  // by the cell of their rotation
        std::vector<int32_t> first_of_mirrors;                     // the first of each combination of mirrors
    };

    const CNCGeomData* ProgramAt(int32_t program) const;
    const CNCGeomData* ProgramOfVariant(int32_t i) const;
    void StartProgram(std::string name, Point center, bool inside, bool horizontal);
    void AddVariant(CIncludeInfo info);
    bool HasMirrorsOfAny(const CIncludeInfo& info, const std::vector<int32_t>& among) const;
    static std::vector<int32_t> VariantsNear(const Namesakes& namesakes, double rotation);
    int32_t MatchingVariant(CIncludeInfo& info, CallAbilities at_call, const std::vector<int32_t>& among) const;

    int32_t current_ = -1;
    std::vector<CNCGeomData> programs_;
    std::unordered_map<std::string, int32_t> program_of_name_;
    std::vector<CIncludeInfo> variants_;
    std::unordered_map<std::string, Namesakes> variants_of_name_;
};

}  // namespace brindle
