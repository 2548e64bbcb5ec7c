// The values of run-time data words: what is stored for the user, and how it meets a dataset's defaults.
#include "rtd/value_exchange.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "platform/local_time.h"
#include "platform/user_store.h"
#include "unit/temp_folder.h"

namespace brindle {
namespace {

using Lines = std::vector<std::string>;

class ValueExchange : public testing::Test {
protected:
    CDataHome folder_;
};

void Read(CRunTimeDataDef& definition, const Lines& lines) {
    for (const std::string& line : lines) definition.ReadLine(line, CRunTimeDataDef::ReadMode::kTuning);
}

Lines Dump(const CKVItemContainer& values) {
    Lines dump;
    values.WriteToList(dump);
    return dump;
}

// The answer that the user gives, if anybody may be asked.
enum class Answer { kNobodyAsked, kYes, kNo };

struct Merge {
    const char* what;
    const char* update;  // the definition's line of last update
    const char* dataset;
    std::optional<UserRecord> stored;
    Answer answer;
    int questions;
    Lines values;
};

constexpr const char* kUpdate = "UPD 2024_03_01_10_00_00";
constexpr const char* kSame = "2024_03_01_10_00_00";
constexpr const char* kBefore = "2024_03_01_09_59_59";

void FillDefinition(CRunTimeDataDef& definition, const std::string& update) {
    definition.expression_values().SetText("Computed", "new", TextKind::kPlain);
    definition.expression_values().SetText("Sum", "8", TextKind::kPlain);
    Read(definition, {update,  // What is asked for in rows and columns, and in messages.

                      "ROW TEXT R1",
                      "ROW TEXT R2 HIDE",
                      "COL TEXT C1",
                      "COL TEXT C2 HIDE",
                      "MSG TEXT M1",
                      "MSG TEXT M2 HIDE",
                      "MSG TEXT M3",
                      "MSG TEXT M4",
                      "MSG TEXT M5",
                      "DATASETDEF Steel",
                      "DATASETDEF Empty",
                      "DSD Steel TEXT RTD(1,1) d11",
                      "DSD Steel TEXT RTD(1,2) d12",
                      "DSD Steel TEXT RTD(2,1) d21",
                      "DSD Steel TEXT RTD(1) d1",
                      "DSD Steel TEXT RTD(2) d2",
                      "DSD Steel T_EXPR RTD(3) Computed",
                      "DSD Steel R_EXPR RTD(4) Sum",
                      "DSD Steel R_EXPR RTD(5) Unknown"});
}

const Lines kDefaults = {"TEXT RTD(1) d1 ",    "TEXT RTD(1,1) d11 ", "TEXT RTD(1,2) d12 ", "TEXT RTD(2) d2 ",
                         "TEXT RTD(2,1) d21 ", "TEXT RTD(3) new ",   "TEXT RTD(4) 8 ",     "TEXT RTD(5) Unknown "};

// A user's value for every word, and one for a word that the dataset no longer has.
const char* const kAllStored =
    "TEXT RTD(1) s1 \r\nTEXT RTD(1,1) s11 \r\nTEXT RTD(1,2) s12 \r\nTEXT RTD(2) s2 \r\nTEXT RTD(2,1) s21 \r\n"
    "TEXT RTD(3) s3 \r\nTEXT RTD(4) s4 \r\nTEXT RTD(5) s5 \r\nTEXT RTD(9) s9 \r\n";

const Lines kAllStoredUsed = {"TEXT RTD(1) s1 ", "TEXT RTD(1,1) s11 ", "TEXT RTD(1,2) d12 ",
                              "TEXT RTD(2) d2 ", "TEXT RTD(2,1) d21 ", "TEXT RTD(3) new ",
                              "TEXT RTD(4) 8 ",  "TEXT RTD(5) s5 ",    "TEXT RTD(9) s9 "};

std::vector<Merge> Merges() {
    const auto dated = [](const char* date) { return UserRecord{date, kAllStored}; };
    const auto rest = [](const char* what, const char* date, const char* data, int questions, const Lines& values) {
        return Merge{what, kUpdate, "Empty", UserRecord{date, data}, Answer::kNo, questions, values};
    };
    const Lines both = {"TEXT RTD(1) s1 ", "TEXT RTD(2) s2 "};
    Lines stale = kDefaults;
    stale.emplace_back("TEXT RTD(9) s9 ");
    return {{"nothing stored", kUpdate, "Steel", {}, Answer::kYes, 0, kDefaults},
            {"same time", kUpdate, "Steel", dated(kSame), Answer::kNo, 0, kAllStoredUsed},
            {"later", kUpdate, "Steel", dated("2024_03_01_10_00_01"), Answer::kNo, 0, kAllStoredUsed},
            {"beyond 32 bits", kUpdate, "Steel", dated("2160_01_01_00_00_00"), Answer::kNo, 0, kAllStoredUsed},
            {"earlier, nobody asked", kUpdate, "Steel", dated(kBefore), Answer::kNobodyAsked, 0, stale},
            {"earlier, not wanted", kUpdate, "Steel", dated(kBefore), Answer::kNo, 1, stale},
            {"earlier, wanted", kUpdate, "Steel", dated(kBefore), Answer::kYes, 1, kAllStoredUsed},
            {"definition beyond 32 bits", "UPD 2160_01_01_00_00_00", "Steel", dated(kSame), Answer::kNo, 1, stale},
            {"no date", kUpdate, "Steel", dated(""), Answer::kNobodyAsked, 0, stale},
            {"unreadable date", kUpdate, "Steel", dated("yesterday"), Answer::kNo, 1, stale},
            {"definition without time", "", "Steel", dated(kBefore), Answer::kNo, 0, kAllStoredUsed},
            {"neither has a time", "", "Steel", dated(""), Answer::kNo, 0, kAllStoredUsed},
            {"nothing in the record", kUpdate, "Steel", UserRecord{kSame, ""}, Answer::kNo, 0, kDefaults},
            {"an old record of nothing", kUpdate, "Steel", UserRecord{kBefore, ""}, Answer::kNo, 1, kDefaults},
            rest("a line without end", kSame, "TEXT RTD(1) s1 \r\nTEXT RTD(2) s2", 0, both),
            rest("lines of nothing", kSame,
                 "\r\n\r\nrubbish\r\nTEXT\r\nTEXT RTD(1)\r\nTEXT RTD(1) s1 more\r\n\r\nTEXT RTD(2) s2 \r\n", 0, both),
            rest("other kinds of text", kSame, "T_EXPR RTD(1) s1 \r\nR_EXPR RTD(2) s2 \r\n", 0, both),
            rest("other kinds of text, old", kBefore, "T_EXPR RTD(1) s1 \r\nR_EXPR RTD(2) s2 \r\n", 1, both),
            {"no text where the dataset has one", kUpdate, "Steel",
             UserRecord{kSame, "INT RTD(1) 5 \r\nT_EXPR RTD(9) s9 \r\n"}, Answer::kNo, 0, stale},
            {"unknown dataset",
             kUpdate,
             "Brass",
             UserRecord{kBefore, "T_EXPR RTD(1) s1 \r\n"},
             Answer::kNo,
             1,
             {"TEXT RTD(1) s1 "}},
            {"unknown dataset, nothing stored", kUpdate, "Brass", {}, Answer::kYes, 0, {}}};
}

TEST_F(ValueExchange, StoredValuesMeetDefaults) {
    for (const Merge& merge : Merges()) {
        SCOPED_TRACE(merge.what);
        CRunTimeDataDef definition;
        FillDefinition(definition, merge.update);
        std::filesystem::remove_all(folder_.path() / "Corvane");
        if (merge.stored) {
            ASSERT_TRUE(WriteUserRecord(RecordName("Laser", merge.dataset), *merge.stored));
        }
        int questions = 0;
        const AskUser ask = [&questions, &merge](const std::string& question) {
            ++questions;
            EXPECT_EQ(question,
                      "Warning: The run time definition has been updated since these values were last used. Do you "
                      "still want to use these default values?");
            return merge.answer == Answer::kYes;
        };
        CKVItemContainer values;
        values.SetText("RTD(7)", "from the last run", TextKind::kPlain);
        LoadRunTimeValues(definition, merge.dataset, "Laser", merge.answer == Answer::kNobodyAsked ? nullptr : ask,
                          values);
        EXPECT_EQ(Dump(values), merge.values);
        EXPECT_EQ(questions, merge.questions);
    }
}

TEST_F(ValueExchange, SavedRecord) {
    CKVItemContainer values;
    values.SetText("RTD(1,1)", "12.5", TextKind::kPlain);
    values.SetText("RTD(1)", "two words", TextKind::kPlain);
    values.SetText("RTD(2)", "", TextKind::kPlain);
    const std::string before = FormatTimeStamp(Now());
    SaveRunTimeValues(RecordName("Laser 1", "Steel"), values);
    const std::optional<UserRecord> record = ReadUserRecord("Laser 1-Steel");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->data, "TEXT RTD(1) two!#SP#!words \r\nTEXT RTD(1,1) 12.5 \r\nTEXT RTD(2) !#EMPTY#! \r\n");
    EXPECT_EQ(record->date.size(), before.size());
    EXPECT_GE(record->date, before);
    EXPECT_LE(record->date, FormatTimeStamp(Now()));
}

TEST_F(ValueExchange, SavedValuesComeBack) {
    const Lines texts = {// Blanks, quotes, ends of lines and bytes of any kind.
                         "",       " ",    "two words", "\"quoted\" 'text'",    "\xC3\xA9\xFF",
                         "a\nb\n", "a\rb", "100 %",     std::string("a\0b", 3), std::string(100000, 'x')};
    CKVItemContainer values;
    for (size_t i = 0; i < texts.size(); ++i) {
        values.SetText("RTD(" + std::to_string(i) + ")", texts[i], TextKind::kPlain);
    }
    SaveRunTimeValues("name", values);
    CKVItemContainer loaded;
    std::string date;
    ASSERT_TRUE(LoadStoredValues("name", loaded, date));
    EXPECT_EQ(Dump(loaded), Dump(values));
    EXPECT_NE(ParseTimeStamp(date), 0);

    SaveRunTimeValues("name", CKVItemContainer());
    EXPECT_TRUE(LoadStoredValues("name", loaded, date));
    EXPECT_EQ(loaded.items().size(), 0U);

    loaded.SetText("RTD(1)", "x", TextKind::kPlain);
    EXPECT_FALSE(LoadStoredValues("other", loaded, date));
    EXPECT_EQ(loaded.items().size(), 0U);
    EXPECT_EQ(date, "");
}

TEST_F(ValueExchange, DatasetOfARun) {
    const char* const rows[][3] = {{"Steel", "Steel", "TEXT RTD(1) steel "},
                                   {"Brass", "Brass", "TEXT RTD(1) stored "},
                                   {"", "Steel", "TEXT RTD(1) steel "},
                                   {"brass", "Steel", "TEXT RTD(1) steel "}};
    CRunTimeDataDef definition;
    Read(definition, {"UPD 2024_03_01_10_00_00", "MSG TEXT M1", "DATASETDEF Steel", "DATASETDEF Brass",
                      "DSD Steel TEXT RTD(1) steel", "DSD Brass TEXT RTD(1) brass"});
    ASSERT_TRUE(WriteUserRecord("Laser-Brass", {kSame, "TEXT RTD(1) stored \r\n"}));
    ASSERT_TRUE(WriteUserRecord("Laser-Steel", {kBefore, "TEXT RTD(1) old \r\n"}));
    CKVItemContainer values;
    for (const auto& [asked, settled, value] : rows) {
        std::string dataset = asked;
        SettleRunValues(definition, "Laser", dataset, values);
        EXPECT_EQ(dataset, settled);
        EXPECT_EQ(Dump(values), Lines{value}) << asked;
    }
    std::string dataset = "Steel";
    SettleRunValues(CRunTimeDataDef(), "Laser", dataset, values);
    EXPECT_EQ(dataset, "");
    EXPECT_EQ(values.items().size(), 0U);
}

TEST_F(ValueExchange, StoreThatCannotBeUsed) {
    folder_.Put("Corvane", "a file where a folder should be");
    CRunTimeDataDef definition;
    FillDefinition(definition, kUpdate);
    CKVItemContainer values;
    values.SetText("RTD(1)", "x", TextKind::kPlain);
    SaveRunTimeValues("Laser-Steel", values);
    std::string dataset = "Steel";
    SettleRunValues(definition, "Laser", dataset, values);
    EXPECT_EQ(Dump(values), kDefaults);
}

}  // namespace
}  // namespace brindle
