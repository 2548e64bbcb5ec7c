#include "geometry/programs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace brindle {
namespace {

void AddLine(CNCGeomMgr& geometry, Point start) {
    geometry.Add(std::make_unique<CNCLineData>(CutAttributes{}, start, Point{9, 10}));
}

void AddText(CNCGeomMgr& geometry) { geometry.Add(std::make_unique<CNCTextData>(CNCTextData::Fields{})); }

void AddCall(CNCGeomMgr& geometry, const std::string& name, double rotation, bool mirror_x, bool mirror_y) {
    geometry.Add(std::make_unique<CNCIncludeData>(CNCIncludeData::Fields{name, {}, {}, rotation, mirror_x, mirror_y}));
}

CIncludeInfo PlacingOf(const CNCData& call) {
    return {call.GetIncludeName(), -1, call.GetIncludeRotation(), call.GetIncludeMirrorX(), call.GetIncludeMirrorY()};
}

bool operator==(const CIncludeInfo& a, const CIncludeInfo& b) {
    return a.name == b.name && a.rotation == b.rotation && a.mirror_x == b.mirror_x && a.mirror_y == b.mirror_y;
}

TEST(Programs, RecordsGoToTheCurrentProgram) {
    CNCGeomMgr geometry;
    AddLine(geometry, {1, 2});
    geometry.StartMain("Main", {1, 2}, true, true);
    AddText(geometry);
    geometry.StartSub("Sub", {3, 4}, true, true);
    AddLine(geometry, {1, 2});
    AddText(geometry);
    AddLine(geometry, {5, 6});
    EXPECT_EQ(geometry.GetRecordCount(0), 1);
    EXPECT_EQ(geometry.GetRecordCount(1), 2);
    EXPECT_EQ(geometry.GetRecord(1, 1)->GetStartX(), 5);
    geometry.StartMain("Other", {}, true, true);
    AddText(geometry);
    EXPECT_EQ(geometry.program_count(), 1);
    EXPECT_EQ(geometry.GetRecordCount(0), 1);
    geometry.Clear();
    AddLine(geometry, {1, 2});
    EXPECT_EQ(geometry.program_count(), 0);
    EXPECT_EQ(geometry.FindProgram("Other"), -1);
}

TEST(Programs, Questions) {
    CNCGeomMgr geometry;
    geometry.StartMain("Main", {1, 2}, true, true);
    geometry.StartSub("Sub", {3, 4}, true, true);
    geometry.StartSub("Sub", {5, 6}, true, true);
    AddLine(geometry, {7, 8});
    AddCall(geometry, "Sub", 0, false, false);
    EXPECT_EQ(geometry.FindProgram("Sub"), 1);
    EXPECT_EQ(geometry.FindProgram("SUB"), -1);
    EXPECT_EQ(geometry.GetProgramName(2), "Sub");
    Point p = {-1, -2};
    EXPECT_FALSE(geometry.GetFirstPoint(1, p) || geometry.GetLastPoint(1, p));
    for (const int32_t outside : {-1, 3}) {
        EXPECT_FALSE(geometry.GetProgramCenter(outside, p) || geometry.GetFirstPoint(outside, p));
        EXPECT_EQ(geometry.GetRecordCount(outside), 0);
        EXPECT_EQ(geometry.GetProgramName(outside), "");
        EXPECT_EQ(geometry.GetRecord(2, outside), nullptr);
    }
    EXPECT_EQ(p.y, -2);
    EXPECT_TRUE(geometry.GetProgramCenter(2, p) && p.x == 5);
    EXPECT_TRUE(geometry.GetFirstPoint(2, p) && p.y == 8);
    EXPECT_TRUE(geometry.GetLastPoint(2, p) && p.x == 0) << "a call has no end";
}

TEST(Programs, VariantsOfOneName) {
    const auto a = [](double rotation, bool mirror_x = false, bool mirror_y = false) {
        return CIncludeInfo{"A", -1, rotation, mirror_x, mirror_y};
    };
    const struct {
        CIncludeInfo first, second;
        CallAbilities at_call;
        int32_t variants;
        CIncludeInfo rewritten;
    } rows[] = {{a(0), a(kHalfTurn, true, true), {}, 1, a(0)},
                {a(0), a(kHalfTurn, true), {}, 2, a(kHalfTurn, true)},
                {a(1, true), a(1 + kHalfTurn, false, true), {}, 1, a(1, true)},
                {a(0), a(0.00005), {}, 1, a(0.00005)},
                {a(0), a(0.0001), {}, 1, a(0.0001)},
                {a(0), a(0.000101), {}, 2, a(0.000101)},
                {a(0), a(kFullTurn), {}, 1, a(kFullTurn)},
                {a(0), a(1), {true, false}, 1, a(1)},
                {a(0), a(1, true), {true, false}, 2, a(1, true)},
                {a(0), a(kHalfTurn, true, true), {true, false}, 1, a(0)},
                {a(0), a(kHalfTurn, false, true), {false, true}, 1, a(0, true)},
                {a(0), a(1, true), {true, true}, 1, a(1, true)}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << "row " << &row - rows);
        CNCGeomMgr geometry;
        geometry.StartMain("Main", {}, true, true);
        for (const CIncludeInfo& call : {row.first, row.second}) {
            AddCall(geometry, call.name, call.rotation, call.mirror_x, call.mirror_y);
        }
        for (int run = 0; run < 2; ++run) {
            geometry.CollectIncludes(row.at_call);
            EXPECT_EQ(geometry.GetVariantCount(), row.variants);
            EXPECT_TRUE(PlacingOf(*geometry.GetRecord(0, 1)) == row.rewritten);
        }
    }
}

TEST(Programs, QuestionsForVariants) {
    CNCGeomMgr geometry;
    geometry.StartMain("Main", {}, false, true);
    AddCall(geometry, "Unknown", 0, false, false);
    AddCall(geometry, "Sub", 0.5, true, false);
    geometry.StartSub("Sub", {}, true, false);
    geometry.CollectIncludes({});
    int32_t program = 7;
    std::string name;
    CTrans trans;
    for (const int32_t i : {-1, 0, 2}) EXPECT_FALSE(geometry.GetVariant(i, program, name, true, true, trans)) << i;
    EXPECT_EQ(program, 7);
    EXPECT_TRUE(geometry.GetVariant(1, program, name, true, false, trans));
    EXPECT_TRUE(program == 1 && name == "Sub" && trans.mirror_x && !trans.mirror_y && trans.rotation == 0);
    trans.Reset();
    EXPECT_TRUE(geometry.GetVariant(1, program, name, false, true, trans));
    EXPECT_TRUE(!trans.mirror_x && trans.rotation == 0.5);

    EXPECT_EQ(geometry.GetVariantNumber(1), -1);
    EXPECT_TRUE(geometry.SetVariantNumber(1, 120) && geometry.GetVariantNumber(1) == 120);
    EXPECT_FALSE(geometry.SetVariantNumber(2, 1) || geometry.SetVariantNumber(-1, 1));
    EXPECT_EQ(geometry.GetVariantNumber(2), -1);

    // The main program; a name that no program has; the sub-program; no such variant.
    EXPECT_TRUE(!geometry.IsInside(-1) && geometry.IsInside(0) && geometry.IsInside(1) && geometry.IsInside(2));
    EXPECT_TRUE(geometry.IsHorizontal(-1) && geometry.IsHorizontal(0) && !geometry.IsHorizontal(1));
    geometry.StartMain("Main", {}, true, true);
    EXPECT_EQ(geometry.GetVariantCount(), 0);
}

// The search without any index, which CollectIncludes has to equal.
struct LinearVariants {
    void Collect(CIncludeInfo& info, CallAbilities at_call) {
        const CIncludeInfo turned{info.name, -1, info.rotation - kHalfTurn, !info.mirror_x, !info.mirror_y};
        for (const CIncludeInfo& variant : variants) {
            if (Match(info, variant, at_call)) return;
            if (!Match(turned, variant, at_call)) continue;
            info = turned;
            return;
        }
        variants.push_back(info);
    }
    static bool Match(const CIncludeInfo& a, const CIncludeInfo& b, CallAbilities at_call) {
        if (a.name != b.name) return false;
        if (!at_call.rotation && std::abs(NormalizeSigned(a.rotation - b.rotation, false)) > 0.0001) return false;
        return at_call.mirror || (a.mirror_x == b.mirror_x && a.mirror_y == b.mirror_y);
    }
    std::vector<CIncludeInfo> variants;
};

double SomeRotation(std::mt19937& random) {
    const double about[] = {0, kQuarterTurn, kHalfTurn, kFullTurn, -kHalfTurn, 1e6, -1e10, 0.5};
    const double width = random() % 4 == 0 ? 20 : 0.002;
    return about[random() % 8] + std::uniform_real_distribution<double>(-width, width)(random);
}

TEST(Programs, CollectsAsALinearSearchWould) {
    std::mt19937 random(4711);
    CNCGeomMgr geometry;
    LinearVariants linear;
    geometry.StartMain("Main", {}, true, true);
    for (int i = 0; i < 1500; ++i) {
        AddCall(geometry, random() % 3 == 0 ? "A" : "B", SomeRotation(random), random() % 2 == 0, random() % 2 == 0);
    }
    for (const CallAbilities at_call : {CallAbilities{false, true}, {true, false}, {false, false}, {true, true}}) {
        std::vector<CIncludeInfo> calls;
        for (int32_t i = 0; i < geometry.GetRecordCount(0); ++i) calls.push_back(PlacingOf(*geometry.GetRecord(0, i)));
        for (CIncludeInfo& call : calls) linear.Collect(call, at_call);
        geometry.CollectIncludes(at_call);
        ASSERT_EQ(geometry.GetVariantCount(), static_cast<int32_t>(linear.variants.size()));
        for (size_t i = 0; i < calls.size(); ++i) {
            ASSERT_TRUE(PlacingOf(*geometry.GetRecord(0, static_cast<int32_t>(i))) == calls[i]) << i;
        }
    }
    EXPECT_GT(geometry.GetVariantCount(), 300);
}

TEST(Programs, RotationsBeyondMeaningEqualThemselves) {
    CNCGeomMgr geometry;
    geometry.StartMain("Main", {}, true, true);
    for (const double huge : {1e300, -1e300, 1e12, 1e300, 1e12, 2e11, std::nextafter(2e11, 1e12)}) {
        AddCall(geometry, "A", huge, false, false);
    }
    for (int i = 0; i < 40; ++i) AddCall(geometry, "A", i * 0.1, false, false);
    for (int run = 0; run < 2; ++run) geometry.CollectIncludes({});
    EXPECT_EQ(geometry.GetVariantCount(), 45);
}

}  // namespace
}  // namespace brindle
