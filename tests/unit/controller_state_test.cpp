#include "geometry/controller_state.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(ControllerState, ToolDirection) {
    CNCControllerState state;
    state.SetToolDirection(kQuarterTurn);
    EXPECT_EQ(state.GetToolDirection(false), kQuarterTurn);
    EXPECT_EQ(state.GetToolDirection(true), 90);
    state.ForgetToolDirection();
    EXPECT_EQ(state.GetToolDirection(false), 0);
}

TEST(ControllerState, ItemsHoldCopiesOfEachKind) {
    CNCGeomItem item;
    EXPECT_FALSE(item.Get().IsLine() || item.Get().GetStartX() != 0);
    const CNCNullData none;
    const CNCLineData line({}, {1, 2}, {3, 4});
    const CNCArcData arc({}, {1, 2}, {3, 4}, {2, 3}, 5);
    const CNCTextData text({1, 2, 3, {1, 2}, {3, 4}, 5, 6, 7, 8, "a text that is longer than a short string"});
    const CNCIncludeData call({"Part", {1, 2}, {3, 4}, 0, false, false});
    for (const CNCData* record : std::initializer_list<const CNCData*>{&line, &arc, &text, &call, &none, &arc}) {
        item.Set(record);
        item.Set(&item.Get());
        EXPECT_EQ(item.Get().IsLine(), record->IsLine());
        EXPECT_EQ(item.AsArc() != nullptr, record->IsArc());
        EXPECT_EQ(item.Get().GetTextString(), record->GetTextString());
        EXPECT_EQ(item.Get().GetIncludeName(), record->GetIncludeName());
        EXPECT_EQ(item.Get().GetEndY(), record->GetEndY());
    }
    item.Set(nullptr);
    EXPECT_FALSE(item.Get().IsArc());
}

TEST(ControllerState, EachRecordGoesThroughItsOwnToolOffset) {
    const CNCLineData line({}, {1, 2}, {3, 4});
    const CNCArcData arc({}, {30, 40}, {40, 50}, {30, 50}, -10);
    const CNCIncludeData call({"Part", {1, 2}, {3, 4}, 0, false, false});
    const struct {
        const CNCData* current;
        const CNCData* next;
        double current_x, next_x, offset_x;
    } rows[] = {{&line, &arc, 201, 259.5, 99.5}, {&line, nullptr, 201, 0, 99.5},   {&call, &line, 202, 201.5, 100},
                {&line, &call, 201, 202, 99.5},  {nullptr, &arc, 0, 259.5, 99.75}, {nullptr, &call, 0, 202, 100},
                {nullptr, nullptr, 0, 0, 100}};
    for (const auto& row : rows) {
        CNCControllerState state;
        state.transform.offset_x = 100;
        state.transform.scale = 2;
        state.SetCurrentRecords(row.current, row.next, state.transform, {0.5, 0}, {0.25, 0});
        SCOPED_TRACE(testing::Message() << "row " << &row - rows);
        EXPECT_EQ(state.current_item().Get().GetStartX(), row.current_x);
        EXPECT_EQ(state.next_item().Get().GetStartX(), row.next_x);
        EXPECT_EQ(state.transform.offset_x, row.offset_x);
        state.SetCurrentRecords(row.current, row.next, CTrans(), {}, {});
        EXPECT_EQ(state.transform.offset_x, 0);
    }
    EXPECT_TRUE(line.GetStartX() == 1 && arc.GetStartX() == 30);
}

}  // namespace
}  // namespace brindle
