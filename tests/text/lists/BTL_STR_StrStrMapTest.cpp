// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StrStrMap.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"
#include "text/lists/BTL_STR_StringList.h"

#include <algorithm>
#include <map>
#include <random>
#include <utility>

#include <gmock/gmock.h>

namespace
{

using namespace BTL;
using Classes::TStringList;
using System::UnicodeString;
using testing::ElementsAre;

TEST(StrStrMapTest, FindsBothWays)
{
    CStrStrMap map(u"key,b,Key", u"1,2,1");
    map.Add(u"b", u"3");
    EXPECT_EQ(map.size(), 3U);
    EXPECT_EQ(map.GetValue(u"b"), u"3");
    EXPECT_EQ(map.GetValue(u"KEY"), u"");
    EXPECT_EQ(map.Get1stKey(u"1"), u"Key") << "capitals come first";
    EXPECT_EQ(map.Get1stKey(u"2"), u"") << "overwritten";
    UnicodeString text = u"former";
    EXPECT_FALSE(map.GetValue(u"x", text));
    EXPECT_FALSE(map.Get1stKey(u"x", text));
    EXPECT_EQ(text, u"former");
    EXPECT_TRUE(map.GetValue(u"key", text));
    EXPECT_EQ(text, u"1");
    EXPECT_TRUE(map.Get1stKey(u"3", text));
    EXPECT_EQ(text, u"b");
    EXPECT_TRUE(map.Contains(u"b"));
    EXPECT_FALSE(map.Contains(u""));
    EXPECT_EQ(map.size(), 3U) << "looking adds nothing";

    TStringList list;
    list.Add(u"old");
    map.GetKeys(&list);
    EXPECT_EQ(list.getCommaText(), u"Key,b,key");
    map.GetValues(&list);
    EXPECT_EQ(list.getCommaText(), u"1,3,1");
    map.GetValues(nullptr);
    EXPECT_EQ(map.getDebugInfo(), u" [Key]='1'   [b]='3'   [key]='1' ");
    EXPECT_EQ(CStrStrMap().getDebugInfo(), u"");
}

TEST(StrStrMapTest, RefusesUnequalLists)
{
    CStrStrMapEx map;
    map.SetValues(u"a,b", u"1,2");
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    try {
        map.SetValues(u"c,d", u"3");
        FAIL();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getFile(), "BTL_STR_StrStrMap");
        EXPECT_EQ(fault.getLine(), 50);
    }
    map.SetValues(CStringList(u"c").getList(), nullptr);
    EXPECT_EQ(map.size(), 2U);
    EXPECT_THAT(map.getKeysInOrder(), ElementsAre(u"a", u"b"));
}

TEST(StrStrMapTest, KnowsTheOrderOfItsKeys)
{
    CStrStrMapEx map;
    map.Add(u"b", u"1");
    map.Add(u"a", u"2");
    map.Add(u"b", u"3");
    EXPECT_THAT(map.getKeysInOrder(), ElementsAre(u"b", u"a", u"b"));
    EXPECT_EQ(map.GetValue(u"b"), u"3");
    map.SetValues(u"z,c", u"4,5");
    EXPECT_THAT(map.getKeysInOrder(), ElementsAre(u"z", u"c"));
    EXPECT_EQ(map.size(), 4U) << "former entries stay";
    EXPECT_EQ(map.Get1stKey(u"2"), u"a");
    map.Clear();
    EXPECT_TRUE(map.empty());
    EXPECT_TRUE(map.getKeysInOrder().empty());
}

TEST(StrStrMapTest, IsMadeOfEntries)
{
    const CStrStrMap map = {{u"b", u"2"}, {u"a", u"1"}};
    EXPECT_EQ(map.GetValue(u"b"), u"2");
    EXPECT_EQ(map.size(), 2U);
    EXPECT_EQ((CStrStrMap{u"a,b", u"1,2"}), map) << "two comma texts, also in braces";
    const CStrStrMapEx ordered = {{u"b", u"2"}, {u"a", u"1"}};
    EXPECT_THAT(ordered.getKeysInOrder(), ElementsAre(u"b", u"a"));
    EXPECT_EQ(ordered.GetValue(u"a"), u"1");
}

TEST(StrStrMapTest, FindsTheFirstKeyAfterAnyChange)
{
    using Model = std::map<UnicodeString, UnicodeString>;
    const auto firstKey = [](const Model& model, const UnicodeString& value) {
        const auto found = std::ranges::find(model, value, &Model::value_type::second);
        return found == model.end() ? UnicodeString(u"none") : found->first;
    };
    std::mt19937 random(1);
    for (int round = 0; round < 100; ++round) {
        CStrStrMap map;
        Model model;
        for (int step = 0; step < 300; ++step) {
            const UnicodeString key(static_cast<int>(random() % 10));
            const UnicodeString value(static_cast<int>(random() % 5));
            // Seldom, so that the index mostly lives.
            switch (random() % 100) {
            case 0:
                map[key] = value, model[key] = value;
                break;
            case 1:
                for (auto& entry : map) {
                    entry.second += value;
                }
                for (auto& entry : model) {
                    entry.second += value;
                }
                break;
            case 2:
                map.erase(key), model.erase(key);
                break;
            case 3:
                map.insert({key, value}), model.insert({key, value});
                break;
            case 4:
                map.insert_or_assign(key, value), model.insert_or_assign(key, value);
                break;
            case 5:
                if (const auto found = map.find(key); found != map.end()) {
                    found->second = value;
                    model.at(key) = value;
                }
                break;
            case 6: {
                CStrStrMap other = map;
                const UnicodeString text = u"other " + UnicodeString(step);
                other.Add(u"0", text);
                EXPECT_EQ(map.Get1stKey(text), u"");
                other.swap(map);
                model[u"0"] = text;
                break;
            }
            case 7:
                std::erase_if(map, [&](const auto& entry) { return entry.first == key; }), model.erase(key);
                break;
            case 8: {
                CStrStrMap moved = std::move(map);
                map = std::move(moved);
                break;
            }
            case 10:
                map.clear(), model.clear();
                break;
            case 9:
                map.SetValues(u"a," + key, u"A," + value), model[u"a"] = u"A", model[key] = value;
                break;
            default:
                if (random() % 8 == 0) {
                    map.Add(key, value);
                    model[key] = value;
                }
            }
            UnicodeString found = u"none";
            ASSERT_EQ(map.Get1stKey(value, found), firstKey(model, value) != u"none");
            ASSERT_EQ(found, firstKey(model, value));
            ASSERT_EQ(map, model);
        }
    }
}

TEST(StrStrMapTest, SeesWhatALoopWritesWhileItSearches)
{
    CStrStrMap map;
    for (int i = 0; i < 100; ++i) {
        map.Add(UnicodeString(i), u"old");
    }
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(map.Get1stKey(u"new"), u"");
    }
    const UnicodeString first = map.cbegin()->first;
    for (auto& [key, value] : map) {
        ASSERT_EQ(map.Get1stKey(u"old"), key);
        value = u"new";
        ASSERT_EQ(map.Get1stKey(u"new"), first);
    }
}

TEST(StrStrMapTest, FindsManyKeysOneAfterTheOther)
{
    constexpr int count = 30'000;
    CStrStrMap map;
    for (int i = 0; i < count; ++i) {
        const UnicodeString value(i);
        EXPECT_EQ(map.Get1stKey(value), u"");
        map.Add(u"key " + value, value);
        EXPECT_EQ(map.Get1stKey(value), u"key " + value);
    }
}

} // namespace
