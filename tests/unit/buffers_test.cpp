#include "generator/buffer_mgr.h"

#include <gtest/gtest.h>

#include <vector>

namespace brindle {
namespace {

std::vector<std::string> Pieces(CBufferMgr& buffers) {
    std::vector<std::string> pieces;
    while (buffers.CurBufferHasMoreData()) pieces.emplace_back(buffers.GetOutputBuffer());
    return pieces;
}

TEST(BuffersTest, PutsABlockIntoPiecesAndCountsItsBytes) {
    const struct {
        std::string block;
        std::vector<std::string> pieces;
        uint32_t bytes;
    } kCases[] = {
        {"Xchr(13)chr(10)", {"X\r\n"}, 3},
        {"", {""}, 0},
        {"IODWELL\r\n", {"", "IODWELL"}, 0},
        {"chr(73)ODWELLchr(13)chr(10)", {"", "IODWELL"}, 0},
        {"IODWELL[ 1.5 ]\r\n", {"", "IODWELL 1.5 ]"}, 0U - 8U},
        {"XIODWELL[5]\r\n", {"X", "IODWELL5]", "\r\n"}, 2},
        {"IODWELL[5\r\n", {"", "IODWELL", "[5\r\n"}, 4},
        {"IODWELL[5]Y", {"", "IODWELL5]", "Y"}, 0},
        {"IODWELL", {"", "IODWELL", ""}, 0},
        {"AIODWELL", {"A", "IODWELL", ""}, 1},
        {"PIODWELL[a]QIODWELL[b]\r\n", {"P", "IODWELLa]", "QIODWELL[b]\r\n"}, 13},
        {"IODWELLX[5]\n", {"", "IODWELL", "X[5]\n"}, 5},
    };
    for (const auto& [block, pieces, bytes] : kCases) {
        CBufferMgr buffers;
        std::string text = block;
        buffers.AddToBuffer(text);
        EXPECT_EQ(buffers.GetCurBufferSize(), bytes) << block;
        EXPECT_EQ(Pieces(buffers), pieces) << block;
        EXPECT_EQ(buffers.GetCurBufferSize(), bytes) << "reading counts nothing";
    }
}

TEST(BuffersTest, ReadsEachBufferOnceAndByItsNumber) {
    CBufferMgr buffers;
    EXPECT_FALSE(buffers.CurBufferHasMoreData());
    EXPECT_EQ(buffers.GetOutputBuffer(), "");
    EXPECT_FALSE(buffers.SetCurBuffer(1));
    for (std::string block : {"a", "b", "c"}) {
        buffers.NewBuffer();
        buffers.AddToBuffer(block);
    }
    EXPECT_EQ(buffers.GetNumOfBuffers(), 3);
    for (const int number : {0, -1, 4, 1 << 20}) EXPECT_FALSE(buffers.SetCurBuffer(number));
    EXPECT_EQ(Pieces(buffers), std::vector<std::string>{"c"});
    EXPECT_TRUE(buffers.SetCurBuffer(1));
    EXPECT_EQ(Pieces(buffers), std::vector<std::string>{"a"});
    EXPECT_TRUE(buffers.SetCurBuffer(3));
    EXPECT_FALSE(buffers.CurBufferHasMoreData());

    std::string later = "d";  // writing goes on in the current buffer, after what was read
    buffers.AddToBuffer(later);
    EXPECT_EQ(Pieces(buffers), std::vector<std::string>{"d"});
    buffers.Reset();
    EXPECT_EQ(buffers.GetNumOfBuffers(), 0);
    EXPECT_FALSE(buffers.CurBufferHasMoreData());
    EXPECT_EQ(buffers.GetCurBufferSize(), 0U);
}

}  // namespace
}  // namespace brindle
