// The one way in which records reach the geometry store, from the host's calls and from drawings alike.
#pragma once

#include <string>

#include "geometry/programs.h"

namespace brindle {

// Adds programs and records whose numbers are all finite; any other is dropped, so that no NC word can ever hold a
// not-a-number or an infinity. Coordinates and lengths are millimetres, angles radians.
class JobRecords {
public:
    explicit JobRecords(CNCGeomMgr& geometry) : geometry_(geometry) {}

    void StartMain(std::string name, Point center, bool inside, bool horizontal);
    void StartSub(std::string name, Point center, bool inside, bool horizontal);
    void AddLine(const CutAttributes& cut, Point start, Point end);
    void AddArc(const CutAttributes& cut, Point start, Point end, Point center, double radius);
    void AddText(CNCTextData::Fields fields);
    void AddInclude(CNCIncludeData::Fields fields);

private:
    CNCGeomMgr& geometry_;
};

}  // namespace brindle
