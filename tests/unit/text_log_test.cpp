#include "generator/text_log.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "generator/debug_mgr.h"

namespace brindle {
namespace {

// A text whose length crosses the forms in which lengths are stored, and all sizes of chunks.
std::string TextOf(size_t i) {
    const size_t length = i % 97 == 0 ? 20000 + i : i % 31 == 0 ? 120 + i % 300 : i % 17;
    return std::string(length, static_cast<char>('a' + i % 26));
}

TEST(TextLogTest, GivesBackWhatWasAddedInAnyOrder) {
    constexpr size_t kCount = 1000;
    CTextLog log;
    CTextLog::Reader reader(log);
    for (size_t i = 0; i < kCount; ++i) {
        EXPECT_EQ(reader.AtEnd(), i % 2 == 0);
        log.Add(static_cast<uint8_t>(i % 4), TextOf(i));
        if (i % 2 == 0) continue;
        for (const size_t read : {i - 1, i}) EXPECT_EQ(reader.Next().text, TextOf(read));
    }
    for (size_t n = 0; n < kCount; ++n) {
        const size_t i = n * 389 % kCount;
        const CTextLog::Entry entry = log.Get(i);
        EXPECT_EQ(entry.tag, i % 4);
        EXPECT_EQ(entry.text, TextOf(i));
    }
    log.Clear();
    EXPECT_EQ(log.size(), 0U);
    log.Add(3, "again");
    EXPECT_EQ(log.Get(0).text, "again");
}

TEST(TextLogTest, KeepsTheTraceOfOneRun) {
    CNCDebugMgr trace;
    for (int run = 0; run < 2; ++run) {
        trace.Clear();
        const struct {
            TraceKind kind;
            std::string text;
        } kRecords[] = {{TraceKind::kTemplate, "<Line_tTmpl>"}, {TraceKind::kBlock, ""},
                        {TraceKind::kTemplate, "<Arc_tTmpl>"},  {TraceKind::kMessage, "<Line_tTmpl>"},
                        {TraceKind::kTemplate, "<Line_tTmpl>"}, {TraceKind::kTemplate, "<Line_tTmpl>"}};
        for (const auto& [kind, text] : kRecords) trace.Add(kind, text);
        ASSERT_EQ(trace.GetCount(), std::size(kRecords));
        for (size_t i = 0; i < std::size(kRecords); ++i) {
            EXPECT_EQ(trace.Get(i).kind, kRecords[i].kind);
            EXPECT_EQ(trace.Get(i).text, kRecords[i].text);
        }
        EXPECT_THROW(trace.Get(std::size(kRecords)), std::out_of_range);
    }
    trace.Clear();
    for (uint32_t i = 0; i < 900; ++i) trace.AddTemplate("<T" + std::to_string(i % 300) + '>', i % 300);
    for (size_t i = 0; i < 900; ++i) EXPECT_EQ(trace.Get(i).text, "<T" + std::to_string(i % 300) + '>');
}

}  // namespace
}  // namespace brindle
