#include "tuning/key_catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brindle {
namespace {

using enum KeyKind;
using enum KeyScope;

// The kind that a name says: by the first letter of its first part that begins with a small letter.
KeyKind KindByName(std::string_view name) {
    size_t start = 0;
    while (name[start] < 'a') start = name.find('_', start) + 1;
    switch (name[start]) {
        case 'b': return kBool;
        case 'n': return kInt;
        case 'r': return kReal;
        case 's': return kText;
        case 't': return kTemplate;
        default: ADD_FAILURE() << "no kind letter in " << name; return kTemplate;
    }
}

bool Fits(const KeyDefault& value, KeyKind kind) {
    if (!value.HasValue()) return true;
    switch (kind) {
        case kBool: return value == KeyDefault(value.Bool());
        case kInt: return value == KeyDefault(value.Int());
        case kReal: return value == KeyDefault(value.Real());
        case kText: return value == KeyDefault(std::string(value.Text()).c_str());
        default: return false;
    }
}

// Every complete key that the catalogue allows, with the given prefix of keys of tools.
std::vector<std::string> AllKeys(const std::string& tool_prefix) {
    std::vector<std::string> keys;
    for (const KeyInfo& row : KeyCatalogue()) {
        const std::string name(row.name);
        if (row.scope == kGlobal) keys.push_back(name);
        if (row.scope == kTool) keys.push_back(tool_prefix + name);
        if (row.scope != kEvent) continue;
        for (const EventInfo& event : TemplateEvents()) {
            keys.push_back((event.per_tool ? tool_prefix : "") + std::string(event.prefix) + name);
        }
    }
    return keys;
}

TEST(KeyCatalogue, RowsAgreeWithThemselves) {
    const std::set<std::string_view> groups = {"Output", "Codes",    "Axes",          "Arcs", "Sub-programs", "Speed",
                                               "Tools",  "Fly mode", "Tool rotation", "Text", "Templates"};
    std::set<std::pair<std::string_view, KeyScope>> seen;
    for (const KeyInfo& row : KeyCatalogue()) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.kind, KindByName(row.name));
        EXPECT_TRUE(Fits(row.read_default, row.kind));
        EXPECT_TRUE(Fits(row.editor_default, row.kind));
        EXPECT_TRUE(seen.emplace(row.name, row.scope).second) << "twice";
        EXPECT_TRUE(groups.contains(row.group)) << row.group;
        EXPECT_TRUE(row.meaning.ends_with('.'));
        // A switch that a run never reads is a button of the editor, and its help says so.
        EXPECT_EQ(row.meaning.starts_with("Editor only:"), row.kind == kBool && !row.read_default.HasValue());
    }
}

// Whether a word of a sentence looks like a key: some part of it has a kind letter before a capital or a digit.
bool LooksLikeKey(std::string_view word) {
    for (size_t i = 0; i + 1 < word.size(); ++i) {
        const bool starts_part = i == 0 || word[i - 1] == '_';
        const bool kind_letter = std::string_view("bnrst").find(word[i]) != word.npos;
        if (starts_part && kind_letter && word[i + 1] < 'a') return true;
    }
    return false;
}

TEST(KeyCatalogue, MeaningsNameKnownKeys) {
    for (const KeyInfo& row : KeyCatalogue()) {
        for (std::string_view rest = row.meaning; !rest.empty();) {
            const std::string_view word = rest.substr(0, rest.find_first_of(" ,;.:()[]"));
            rest.remove_prefix(std::min(word.size() + 1, rest.size()));
            if (!LooksLikeKey(word)) continue;
            EXPECT_TRUE(MatchKey(word).info || MatchKey("T_" + std::string(word)).info) << row.name << ": " << word;
        }
    }
}

TEST(MatchKey, TakesKeysApart) {
    // The prefix of the tool, that of the event and the name.
    const std::string_view rows[] = {"||bUseSubs",
                                     // With and without the prefix of a tool these are two keys.
                                     "||sCCWCode", "T12_||sCCWCode", "T3_||Speed_P1_sV1", "T_||Speed_P2_sV4",
                                     "T0_||bTangential", "T007_||bTangential", "T99999999999999999999_||Fly_bUse",
                                     // The offset of a tool and the template of switching it off begin alike.
                                     "T1_||ToolOff_bUse", "T1_||ToolOff_rAxis1MM", "T1_|ToolOff_|tTmpl",
                                     "T1_|ToolOff_|bTerminiate", "T_|ToolSel_|bClearInterp", "|FileStart_|tTmpl",
                                     "|Text_|bClearAbsInc", "|Fly_PreCheck_|tTmpl"};
    for (const std::string_view row : rows) {
        std::string key(row);
        std::erase(key, '|');
        const KeyMatch match = MatchKey(key);
        ASSERT_NE(match.info, nullptr) << key;
        const std::string_view event = match.event ? match.event->prefix : "";
        EXPECT_EQ(std::string(match.tool_prefix).append("|").append(event).append("|").append(match.info->name), row);
        EXPECT_EQ(match.info->scope, match.event ? kEvent : match.tool_prefix.empty() ? kGlobal : kTool) << key;
    }
}

TEST(MatchKey, RefusesUnknownKeys) {
    const std::string_view cases[] = {
        "", "_", "T", "T_", "T3_", "T3", "b", "bUseSub", "bUseSubss", "busesubs", " bUseSubs", "bUseSubs ",
        "bTerminate", "tTmpl", "_tTmpl", "bTerminiate", "Line_", "Line", "Line_bUse", "line_tTmpl", "Line_Arc_tTmpl",
        "LineXtTmpl", "Fly_bForPreceding", "Speed_P1_sV5", "MM_nNDec", "MM_AX3_nNDec", "TextHgt_rFactor",
        "TextData_sFROM_2",
        // What follows the prefix of a tool, alone; and the other way round.
        "bTangential", "Fly_bUse", "ToolOff_bUse", "ToolOff_tTmpl", "ToolOn_bTerminiate", "T3_bUseSubs",
        "T_nNumOfTools", "T3_Line_tTmpl", "T3_Fly_bSupport", "T3_tTmpl", "T3_sTangAuxCode1",
        // No prefix of a tool.
        "t3_bTangential", "T-1_bTangential", "T3bTangential", "T3 _bTangential", "TT_bTangential", "T3_T3_bTangential",
        "T\xd9\xa3_bTangential"};
    for (const std::string_view key : cases) {
        const KeyMatch match = MatchKey(key);
        EXPECT_TRUE(match.info == nullptr && match.tool_prefix.empty() && match.event == nullptr) << key;
    }
    EXPECT_EQ(MatchKey(std::string_view("bUseSubs\0", 9)).info, nullptr);
}

TEST(MatchKey, KnowsEveryKeyOfTheCatalogue) {
    for (const char* tool_prefix : {"T_", "T7_"}) {
        for (const std::string& key : AllKeys(tool_prefix)) {
            const KeyMatch match = MatchKey(key);
            ASSERT_NE(match.info, nullptr) << key;
            std::string joined(match.tool_prefix);
            if (match.event != nullptr) joined += match.event->prefix;
            EXPECT_EQ(joined.append(match.info->name), key);
            EXPECT_EQ(NearestKey(key), key);
        }
    }
}

TEST(NearestKey, FindsWhatWasMeant) {
    // What was written and the key that was meant.
    const std::string_view rows[] = {
        // One letter missing, too many, wrong, swapped.
        "T3_bTangental T3_bTangential", "Fly_bForPreceding Fly_bForPreceeding",
        "FileStart_bTerminate FileStart_bTerminiate", "rFacettTolMM rFacetTolMM", "sNWordAdds sNWordAddr",
        "bUseSbus bUseSubs", "T_ToolOn_tTempl T_ToolOn_tTmpl", "Flie_tTmpl Line_tTmpl",
        // Several, as far as the length of the name allows.
        "SubNum_bUseSeqence1 SubNum_bUseSequence", "bUseSubRotations bUseRotations",
        "MoveToInclPt_tTmpl MoveToIncludePt_tTmpl",
        // Wrong case only; a key of a tool is not near without its prefix.
        "busesubs bUseSubs", "BUSESUBS bUseSubs", "T4_SPEED_BUSESMALLRADIIFORMULA T4_Speed_bUseSmallRadiiFormula",
        "MOVETOINCLUDEPT_BCLEARABSINC MoveToIncludePt_bClearAbsInc", "srTCode sRTCode", "scWCode sCWCode",
        // The prefix of a tool stays, and a slip in it is put right.
        "T12_Speed_P1_sv3 T12_Speed_P1_sV3", "t3_bTangential T3_bTangential", "T3bTangential T3_bTangential",
        "t_ToolOff_tTmp T_ToolOff_tTmpl", "T3__bTangential T3_bTangential"};
    for (const std::string_view row : rows) {
        EXPECT_EQ(NearestKey(row.substr(0, row.find(' '))), row.substr(row.find(' ') + 1));
    }
    // Nothing near, or near only under the other kind of prefix.
    for (const char* key : {"SPEED_BUSESMALLRADIIFORMULA", "", "T", "T_", "T3_", "tTmpl", "bFooBar", "Foo_tTmpl",
                            "T3_bUseRotations", "Speed_bSepForArcs"}) {
        EXPECT_EQ(NearestKey(key), "");
    }
}

TEST(NearestKey, OfAnyKeyIsKnown) {
    // Every key with one letter left out is one edit from at least one known key.
    for (const std::string& key : AllKeys("T3_")) {
        for (size_t i = key.starts_with("T3_") ? 3 : 0; i < key.size(); ++i) {
            const std::string nearest = NearestKey(std::string(key).erase(i, 1));
            EXPECT_NE(MatchKey(nearest).info, nullptr) << key << " without letter " << i << " gives " << nearest;
        }
    }
}

TEST(NearestKey, OfAVeryLongKeyIsNone) {
    const size_t length = 5'000'000;
    EXPECT_EQ(NearestKey(std::string(length, 'b')), "");
    EXPECT_EQ(NearestKey("T" + std::string(length, '7') + "_bFoo"), "");
    EXPECT_EQ(MatchKey(std::string(length, '_')).info, nullptr);
}

}  // namespace
}  // namespace brindle
