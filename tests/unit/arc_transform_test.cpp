#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <random>
#include <sstream>

#include "geometry/nc_data.h"
#include "geometry/rounding.h"

namespace brindle {
namespace {

struct ArcCase {
    std::string caption;
    CTrans trans;
    std::vector<double> arc, gives;
};

void ReadTrans(std::istream& in, CTrans& trans) {
    for (std::string word; in >> word;) {
        if (word == "decimals") in >> trans.axis1_decimals >> trans.axis2_decimals;
        if (word == "factors") in >> trans.axis1_factor >> trans.axis2_factor;
        if (word == "scale") in >> trans.scale;
        if (word == "rotation") {
            double radians = 0.0;
            in >> radians;
            trans.rotation = radians;
        }
        if (word == "mirror") in >> trans.mirror_x >> trans.mirror_y;
        if (word == "offset") in >> trans.offset_x >> trans.offset_y;
        if (word == "mirror_first") trans.rotate_first = false;
        if (word == "lengths_on_axis2") trans.lengths_on_axis1 = false;
    }
}

std::vector<ArcCase> ReadCases(std::ifstream file) {
    std::vector<ArcCase> cases;
    for (std::string line; std::getline(file, line);) {
        std::istringstream in(line);
        std::string word;
        in >> word;
        if (word == "CASE") cases.push_back({line, {}, {}, {}});
        if (word == "TRANS") ReadTrans(in, cases.back().trans);
        if (word != "ARC" && word != "GIVES") continue;
        std::vector<double>& numbers = word == "ARC" ? cases.back().arc : cases.back().gives;
        for (double number = 0.0; in >> number;) numbers.push_back(number);
    }
    return cases;
}

TEST(ArcTransform, GivesTheNumbersOfTheCases) {
    const std::vector<ArcCase> cases = ReadCases(std::ifstream("tests/data/arcs.txt"));
    ASSERT_GE(cases.size(), 30u);
    for (const ArcCase& c : cases) {
        SCOPED_TRACE(c.caption);
        ASSERT_TRUE(c.arc.size() == 8 && c.gives.size() == 12);
        const std::vector<double>& v = c.arc;
        CNCArcData arc({1, 2, v[7], 3, v[7]}, {v[0], v[1]}, {v[2], v[3]}, {v[4], v[5]}, v[6]);
        arc.Transform(c.trans);
        size_t i = 0;
        for (const double got :
             {arc.GetStartX(), arc.GetStartY(), arc.GetEndX(), arc.GetEndY(), arc.GetCenterX(), arc.GetCenterY(),
              arc.true_end().x, arc.true_end().y, arc.GetRadius(), arc.GetCutWidth(), arc.x_ratio(), arc.y_ratio()}) {
            EXPECT_NEAR(got, c.gives[i], 1e-12) << "number " << i;
            ++i;
        }
        EXPECT_EQ(arc.GetBridgeWidth(), arc.GetCutWidth());
    }
}

double OffGrid(const Point& p, double step) {
    return std::abs(p.x / step - std::round(p.x / step)) + std::abs(p.y / step - std::round(p.y / step));
}

TEST(ArcTransform, KeepsGeneratedArcsTrue) {
    std::mt19937 random(20260711);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (int i = 0; i < 20000; ++i) {
        const Point center = {between(-500.0, 500.0), between(-500.0, 500.0)};
        const double radius = between(0.5, 300.0) * (random() % 2 == 0 ? 1.0 : -1.0);
        const double from = between(0.0, kFullTurn);
        const double sweep = std::min(between(0.001, 7.0), kFullTurn);
        const auto at = [&](double angle) {
            return Point{center.x + std::abs(radius) * std::cos(angle), center.y + std::abs(radius) * std::sin(angle)};
        };
        CTrans trans;
        trans.offset_x = between(-100.0, 100.0);
        trans.rotation = between(-4.0, 4.0);
        trans.mirror_x = random() % 2 == 0;
        trans.mirror_y = random() % 2 == 0;
        trans.axis1_decimals = trans.axis2_decimals = static_cast<int32_t>(random() % 5);
        const double step = StepOfDecimals(trans.axis1_decimals);
        const bool clockwise = (radius > 0.0) != (trans.mirror_x != trans.mirror_y);

        const Point end = at(radius > 0.0 ? from - sweep : from + sweep);
        CNCArcData arc({}, at(from), end, center, radius);
        arc.Transform(trans);
        SCOPED_TRACE(testing::Message() << "arc " << i << " step " << step);
        for (const Point p : {arc.Start(), arc.End(), arc.Center(), arc.true_end()}) EXPECT_LT(OffGrid(p, step), 1e-6);
        EXPECT_NEAR(Distance(arc.Start(), arc.Center()), Distance(arc.End(), arc.Center()), 1.5 * step);
        EXPECT_GE(std::abs(arc.GetRadius()), Distance(arc.Start(), arc.End()) / 2.0);
        EXPECT_TRUE(arc.IsClockwise() == clockwise || arc.GetRadius() == 0.0);
        // A closed arc ends at its start, which may be two steps away in each axis.
        EXPECT_LT(Distance(arc.true_end(), trans.TransformPoint(end, true)), 2.9 * step);
    }
}

TEST(ArcTransform, HugeNumbersKeepTheDirection) {
    for (const double size : {1e12, 1e200, 1e308}) {
        for (const int32_t decimals : {-400, -1, 0, 9, 310, 400, 4545, 2147483647}) {
            CTrans trans;
            trans.axis1_decimals = decimals;
            trans.axis2_factor = 1e-300;
            CNCArcData arc({}, {size, 0.0}, {0.0, size}, {0.0, 0.0}, -size);
            arc.Transform(trans);
            EXPECT_FALSE(arc.IsClockwise()) << size << ' ' << decimals;
        }
    }
}

}  // namespace
}  // namespace brindle
