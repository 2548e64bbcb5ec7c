// The tools of a tuning as a run uses them: each prepared when the first record asks for it.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "geometry/plane_math.h"
#include "language/compiled_text.h"

namespace brindle {

// What the tuning holds under one tool prefix. The empty prefix, of a tool without data, holds the keys that have
// none.
struct ToolData {
    std::string prefix;
    CompiledTemplate select, deselect, on, off;
    OptionText rapid_code, linear_code, cw_code, ccw_code;
    OptionText speeds[2][4];  // per parameter: axis 1 plus, axis 2 plus, axis 1 minus, axis 2 minus
    OptionText arc_speeds[2];
    bool separate_arc_speed = false;
    bool slows_small_radii = false;
    bool off_before_deselect = false;
    bool on_after_select = false;
    bool tangential = false;
    bool symmetric = false;  // tangential, and the same after half a turn
    bool fly = false;
    bool facets_small_arcs = false;
    double fly_deviation = 0.0;             // degrees
    double shortest_lift = 0.0;             // millimetres: a shorter gap is crossed with the tool down
    double lift_angle = 0.0;                // degrees
    double small_arc_radius = 0.0;          // millimetres
    std::optional<double> small_arc_angle;  // degrees; without it small arcs stay arcs
    Point offset;                           // millimetres, applied by software

    bool exists() const { return !prefix.empty(); }
};

// A tool's own data and that of the physical tool that it follows, which may be the same.
struct Tool {
    const ToolData* own = nullptr;
    const ToolData* physical = nullptr;
};

class CToolTable {
public:
    explicit CToolTable(CTextCompiler& compiler) : compiler_(compiler) {}

    // Any number may be asked for; one that the tuning does not know gives the default tool or no data.
    const Tool& Get(int32_t tool) {
        const auto index = static_cast<uint32_t>(tool);
        if (index < kQuickTools && quick_[index].own != nullptr) return quick_[index];
        return GetUnprepared(tool);
    }
    // The data under the empty prefix.
    const ToolData& WithoutTool() { return without_tool_; }

private:
    static constexpr uint32_t kQuickTools = 64;

    const Tool& GetUnprepared(int32_t tool);
    Tool Prepare(int32_t tool);
    const ToolData& DataOf(const std::string& prefix);

    CTextCompiler& compiler_;
    std::array<Tool, kQuickTools> quick_;  // tools 0 to kQuickTools - 1, the usual ones
    std::unordered_map<int32_t, Tool> others_;
    std::unordered_map<std::string, std::unique_ptr<ToolData>> data_;
    const ToolData& without_tool_ = DataOf(std::string());
};

}  // namespace brindle
