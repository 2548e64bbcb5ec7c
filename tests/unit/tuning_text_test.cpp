// Typed items and their lines: the text form of a tuning.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <limits>
#include <random>

#include "text/ascii.h"
#include "text/words.h"
#include "tuning/kv_container.h"

namespace brindle {
namespace {

using Lines = std::vector<std::string>;

Lines Written(const CKVItemContainer& container, Lines list = {}) {
    container.WriteToList(list);
    return list;
}

Lines KeysOf(const CKVItemContainer& container) {
    Lines keys;
    for (const auto& [key, item] : container.items()) keys.push_back(key);
    return keys;
}

// Everything that makes an item: kind, value and place.
Lines Dump(const CKVItemContainer& container) {
    Lines dump;
    for (const auto& [key, item] : container.items()) dump.push_back(container.FormatItem(key, item.get()));
    return dump;
}

TEST(TuningText, LineInAndOut) {
    // A line and what is written of it.
    const std::string_view rows[] = {
        // Switches.
        "BOOL a true|BOOL a true ", "BOOL a TRUE|BOOL a true ", "BOOL a 1|BOOL a false ", "BOOL a yes|BOOL a false ",
        "BOOL a truely|BOOL a false ",
        // Numbers.
        "INT a 3.9|INT  a 3 ", "INT a -3.9|INT  a -3 ", "INT a 1e3|INT  a 1000 ", "INT a 1e12|INT  a 2147483647 ",
        "INT a -1e12|INT  a -2147483648 ", "INT a 1e999|INT  a 0 ", "INT a x|INT  a 0 ", "\t INT \t a\t\t3  |INT  a 3 ",
        "REAL a 0.25|REAL a 0.250000000 ", "REAL a 0.1234567891|REAL a 0.123456789 ", "REAL a -0|REAL a -0.000000000 ",
        "REAL a 1e20|REAL a 100000000000000000000.000000000 ", "REAL a inf|REAL a 0.000000000 ",
        "REAL a 1,5|REAL a 1.000000000 ",
        // Texts.
        "TEXT a b c|TEXT a b ", "TEXT a G0!#SP#!X1|TEXT a G0!#SP#!X1 ", "TEXT a !#EMPTY#!|TEXT a !#EMPTY#! ",
        "TEXT a x!#EMPTY#!y|TEXT a xy ", "TEXT a \"b c\"|TEXT a \"b ", "TEXT \"a b\" c|TEXT \"a b\" ",
        "R_EXPR a b+1|R_EXPR a b+1 ", "T_EXPR a b|T_EXPR a b ",
        // Templates.
        "MULTI a NNUL|MULTI a ", "MULTI a NNUL (START) NNUL G90!#SP#!G17|MULTI a NNUL (START) NNUL G90!#SP#!G17 ",
        "MULTI a NBIG b NSM !#EMPTY#! NINIT-5 c NNUL|MULTI a NBIG b NSM !#EMPTY#! NINIT-5 c ",
        "MULTI a NSMX lost nbig lost NBIG kept|MULTI a NBIG kept ", "MULTI a NNUL one\ttab NNUL two|MULTI a NNUL one "};
    for (const std::string_view row : rows) {
        SCOPED_TRACE(row);
        CKVItemContainer container;
        EXPECT_TRUE(container.ParseLine(row.substr(0, row.find('|'))));
        EXPECT_EQ(Dump(container), Lines{std::string(row.substr(row.find('|') + 1))});
    }
    for (const char* line : {"", "TEXT", "TEXT a", "MULTI a ", "bool a true", "END a b", "TEXTX a b", "ROW TEXT b"}) {
        CKVItemContainer container;
        EXPECT_FALSE(container.ParseLine(line)) << line;
        EXPECT_EQ(container.items().size(), 0U) << line;
    }
}

TEST(TuningText, WorkedExample) {
    CKVItemContainer tuning;
    tuning.SetBool("bUseSubs", 1);
    tuning.SetInt("nNumOfTools", 3);
    tuning.SetReal("rFacetTolMM", 0.25);
    tuning.SetText("sNWordAddr", "N", TextKind::kPlain);
    tuning.SetText("sHorizCode", "G0 X1", TextKind::kPlain);
    tuning.SetText("sVertCode", "", TextKind::kPlain);
    tuning.SetMulti("FileStart_tTmpl", {{{}, "(START)"}, {{}, "G90 G17"}});
    EXPECT_EQ(Dump(tuning), (Lines{"BOOL bUseSubs true ", "INT  nNumOfTools 3 ", "REAL rFacetTolMM 0.250000000 ",
                                   "TEXT sNWordAddr N ", "TEXT sHorizCode G0!#SP#!X1 ", "TEXT sVertCode !#EMPTY#! ",
                                   "MULTI FileStart_tTmpl NNUL (START) NNUL G90!#SP#!G17 "}));
}

TEST(TuningText, IncompleteLinesLeaveWhatIsStored) {
    CKVItemContainer tuning;
    tuning.ParseLine("TEXT a old");
    for (const char* line : {"TEXT a", "text a new", "TEXTS a new", "MULTI a", "TEXT A new"}) tuning.ParseLine(line);
    EXPECT_EQ(Dump(tuning), (Lines{"TEXT a old ", "TEXT A new "}));
    tuning.ParseLine("INT a 5");
    EXPECT_EQ(Dump(tuning), (Lines{"INT  a 5 ", "TEXT A new "}));
}

TEST(TuningText, ValuesThatAreNoneOfTheFormat) {
    CKVItemContainer tuning;
    tuning.SetReal("r", std::numeric_limits<double>::quiet_NaN());
    tuning.SetReal("s", -std::numeric_limits<double>::infinity());
    tuning.SetText("k", "x", static_cast<TextKind>(77));
    tuning.SetBool("b", -2);
    EXPECT_EQ(Dump(tuning), (Lines{"REAL r 0.000000000 ", "REAL s 0.000000000 ", "TEXT k x ", "BOOL b true "}));
    EXPECT_EQ(tuning.FormatItem("a", nullptr), "");
}

TEST(TuningText, ValueTexts) {
    EXPECT_EQ(CBoolKVItem(0).GetValueText(), "false");
    EXPECT_EQ(CBoolKVItem(7).GetValueText(), "true");
    EXPECT_EQ(CIntKVItem(std::numeric_limits<int32_t>::min()).GetValueText(), "-2147483648");
    EXPECT_EQ(CRealKVItem(0.1234567891).GetValueText(), "0.123457");
    EXPECT_EQ(CTextKVItem(" a b", TextKind::kRealExpression).GetValueText(), " a b");
    EXPECT_EQ(CMultiLineKVItem({{{1, 0}, "a "}, {{}, ""}, {{}, "b"}}).GetValueText(), "a b");
}

TEST(TuningText, TypedReadsLeaveTheDefaultAlone) {
    CKVItemContainer tuning;
    int32_t number = 7;
    double real = 7;
    std::string text = "7";
    TextKind kind = TextKind::kTextExpression;
    TemplateLines lines{{{}, "7"}};
    for (const char* line : {"BOOL b true", "INT n 1", "REAL r 1", "R_EXPR s 1", "MULTI t NBIG 1"})
        tuning.ParseLine(line);
    for (const char* key : {"", "B", "n", "r", "s", "t"}) EXPECT_FALSE(tuning.GetBool(key, number)) << key;
    for (const char* key : {"", "N", "b", "r", "s", "t"}) EXPECT_FALSE(tuning.GetInt(key, number)) << key;
    for (const char* key : {"", "R", "b", "n", "s", "t"}) EXPECT_FALSE(tuning.GetReal(key, real)) << key;
    for (const char* key : {"", "S", "b", "n", "r", "t"}) EXPECT_FALSE(tuning.GetTextAndKind(key, text, kind)) << key;
    for (const char* key : {"", "T", "b", "n", "r", "s"}) EXPECT_FALSE(tuning.GetMulti(key, lines)) << key;
    EXPECT_TRUE(number == 7 && real == 7 && text == "7" && kind == TextKind::kTextExpression && lines.size() == 1);

    EXPECT_TRUE(tuning.GetTextAndKind("s", text, kind));
    EXPECT_EQ(kind, TextKind::kRealExpression);
    EXPECT_TRUE(tuning.GetMulti("t", lines));
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].n_word.kind, 1);
    EXPECT_EQ(lines[0].text, "1");
}

TEST(KVItemMap, KeepsTheOrderOfFirstWriting) {
    CKVItemContainer store;
    for (const char* key : {"c", "a", "b", "A"}) store.SetInt(key, 1);
    store.SetText("a", "again", TextKind::kPlain);
    EXPECT_EQ(KeysOf(store), (Lines{"c", "a", "b", "A"}));
    EXPECT_TRUE(store.Remove("c"));
    EXPECT_FALSE(store.Remove("c"));
    store.SetInt("c", 2);
    EXPECT_EQ(Dump(store), (Lines{"TEXT a again ", "INT  b 1 ", "INT  A 1 ", "INT  c 2 "}));

    const CKVItemMapObj& items = store.items();
    auto position = items.FindPosition("b");
    ASSERT_NE(position, items.end());
    EXPECT_EQ((++position)->first, "A");
    EXPECT_EQ(++ ++position, items.end());
    EXPECT_EQ(items.FindPosition("B"), items.end());
}

TEST(KVItemMap, Prefixes) {
    const auto filled = [](CKVItemContainer& store) {
        for (const char* key : {"T1_", "T1_a", "T12_a", "T1_b", "t1_a", "T2_a", "T2_", "T2_x"})
            store.SetText(key, key, {});
    };
    const struct {
        const char* from;  // null: RemoveByPrefix
        const char* to;
        Lines keys;
    } rows[] = {{nullptr, "T1_", {"T1_", "T12_a", "t1_a", "T2_a", "T2_", "T2_x"}},
                {nullptr, "T1", {"t1_a", "T2_a", "T2_", "T2_x"}},
                {nullptr, "", {}},
                {"T1_", "T2_", {"T1_", "T1_a", "T12_a", "T1_b", "t1_a", "T2_", "T2_a", "T2_b"}},
                {"T3_", "T2_", {"T1_", "T1_a", "T12_a", "T1_b", "t1_a", "T2_"}},
                {"T1_", "T1_", {"T1_", "T12_a", "t1_a", "T2_a", "T2_", "T2_x"}},
                {"T2_", "T2_x", {"T1_", "T1_a", "T12_a", "T1_b", "t1_a", "T2_a", "T2_", "T2_x", "T2_xa", "T2_xx"}},
                {"T1_", "T", {"t1_a"}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.from ? row.from : "remove") + " " + row.to);
        CKVItemContainer store;
        filled(store);
        if (row.from) {
            store.CopyByPrefix(row.from, row.to);
        } else {
            store.RemoveByPrefix(row.to);
        }
        EXPECT_EQ(KeysOf(store), row.keys);
    }
    CKVItemContainer store;
    filled(store);
    store.CopyByPrefix("T1_", "T2_");
    std::string text;
    EXPECT_TRUE(store.GetText("T2_b", text) && text == "T1_b");
    EXPECT_TRUE(store.GetText("T2_", text) && text == "T2_");
}

TEST(KVItemMap, AssignCopies) {
    CKVItemContainer original;
    for (const char* line : {"TEXT b 1", "MULTI a NBIG x", "REAL c 2"}) original.ParseLine(line);
    CKVItemContainer copy;
    copy.ParseLine("INT lost 1");
    copy.Assign(original);
    original.Clear();
    EXPECT_EQ(Dump(copy), (Lines{"TEXT b 1 ", "MULTI a NBIG x ", "REAL c 2.000000000 "}));
    copy.Assign(copy);
    EXPECT_EQ(copy.items().size(), 3U);
    copy.Assign(original);
    EXPECT_EQ(copy.items().size(), 0U);
    copy.SetInt("usable", 1);
    EXPECT_EQ(KeysOf(copy), Lines{"usable"});
}

TEST(TuningText, ItemsArePlacedByKeyAmongTheLinesThatAreThere) {
    CKVItemContainer tuning;
    for (const char* line : {"INT b 1", "INT B 2", "INT _a 3", "INT Z 4", "INT a 5", "INT b 6", "INT tt 7"}) {
        tuning.ParseLine(line);
    }
    EXPECT_EQ(Written(tuning), (Lines{"INT  _a 3 ", "INT  a 5 ", "INT  b 6 ", "INT  B 2 ", "INT  tt 7 ", "INT  Z 4 "}));
    const Lines present = {"UPD 1970", "ROW TEXT x", "DATASETDEF A b", "lone", "ROW 'c d' x"};
    EXPECT_EQ(Written(tuning, present),
              (Lines{"UPD 1970", "INT  _a 3 ", "INT  a 5 ", "INT  b 6 ", "INT  B 2 ", "ROW TEXT x", "DATASETDEF A b",
                     "lone", "ROW 'c d' x", "INT  tt 7 ", "INT  Z 4 "}));
}

void InsertOneByOne(const CKVItemContainer& container, Lines& list) {
    for (const auto& [key, item] : container.items()) {
        const std::string line = container.FormatItem(key, item.get());
        const std::string place = QuotedWord(line, 2);
        const auto greater = std::find_if(list.begin(), list.end(), [&](const std::string& present) {
            return CompareNoCase(QuotedWord(present, 2), place) > 0;
        });
        list.insert(greater, line);
    }
}

TEST(TuningText, PlacingAllAtOnceEqualsPlacingOneByOne) {
    std::mt19937 random(7);
    const Lines words = {"a", "A", "b", "B", "_", "ab", "aB", "'", "\"a", "c", "C", "\xC3\xA9", "1"};
    const auto word = [&] { return words[random() % words.size()]; };
    for (int round = 0; round < 3000; ++round) {
        CKVItemContainer container;
        for (size_t i = random() % 40; i > 0; --i) container.ParseLine("TEXT " + word() + word() + " " + word());
        Lines list;
        for (size_t i = random() % 8; i > 0; --i)
            list.push_back(random() % 6 == 0 ? word() : "X " + word() + " " + word());
        Lines expected = list;
        InsertOneByOne(container, expected);
        ASSERT_EQ(Written(container, list), expected) << "round " << round;
    }
}

TEST(TuningText, LongLinesAreReadWhole) {
    constexpr size_t kPairs = 500000;
    std::string multi = "MULTI t ";
    for (size_t i = 0; i < kPairs; ++i) multi += "NNUL G1!#SP#!X1 ";
    CKVItemContainer tuning;
    EXPECT_TRUE(tuning.ParseLine(multi));
    TemplateLines lines;
    EXPECT_TRUE(tuning.GetMulti("t", lines));
    EXPECT_EQ(lines.size(), kPairs);
    EXPECT_EQ(Dump(tuning), Lines{multi});
}

TEST(TuningText, RubbishIsDroppedOrStoredWhole) {
    std::mt19937 random(1);
    const Lines types = {"BOOL ", "INT ", "REAL ", "TEXT ", "MULTI ", "T_EXPR ", "", " "};
    for (int round = 0; round < 3000; ++round) {
        std::string line = types[random() % types.size()];
        for (size_t i = random() % 40; i > 0; --i) line.push_back(static_cast<char>(random()));
        CKVItemContainer tuning;
        const bool stored = tuning.ParseLine(line);
        ASSERT_EQ(tuning.items().size(), stored ? 1U : 0U);
        CKVItemContainer back;
        back.ReadFromList(Written(tuning));
        // A template whose lines are all lost is written without any, and that line is none.
        ASSERT_TRUE(Dump(back) == Dump(tuning) || line.starts_with("MULTI")) << testing::PrintToString(line);
    }
    CKVItemContainer tuning;
    tuning.ParseLine(std::string_view("TEXT a b\0c", 10));
    std::string text;
    EXPECT_TRUE(tuning.GetText("a", text));
    EXPECT_EQ(text, std::string_view("b\0c", 3));
}

TEST(TuningText, ManyItems) {
    constexpr int kCount = 200000;
    const auto key = [](int i) { return std::string("n").append(std::to_string(1000000 + i)); };
    CKVItemContainer tuning;
    for (int i = kCount; i > 0; --i) tuning.SetInt(key(i), i);
    for (int i = 1; i <= kCount; i += 2) EXPECT_TRUE(tuning.Remove(key(i)));
    const Lines lines = Written(tuning);
    ASSERT_EQ(lines.size(), size_t{kCount / 2});
    EXPECT_EQ(lines.front(), "INT  n1000002 2 ");
    EXPECT_EQ(lines.back(), "INT  n1200000 200000 ");
}

TEST(TuningText, ReadsFiles) {
    const std::string path = testing::TempDir() + "brindle_tuning_text_test.tun";
    std::ofstream(path, std::ios::binary) << "TEXT a 1\r\nROW TEXT x\n\nINT n 2\nBOOL b true";
    CKVItemContainer tuning;
    EXPECT_TRUE(tuning.ReadFromFile(path));
    EXPECT_EQ(Dump(tuning), (Lines{"TEXT a 1 ", "INT  n 2 ", "BOOL b true "}));
    std::remove(path.c_str());
    EXPECT_FALSE(tuning.ReadFromFile(path));
    EXPECT_FALSE(tuning.ReadFromFile(testing::TempDir()));
    EXPECT_EQ(tuning.items().size(), 3U);
}

}  // namespace
}  // namespace brindle
