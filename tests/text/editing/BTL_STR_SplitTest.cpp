// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_Split.h"

#include "text/BothWidthsSupport.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace
{

using BTL::Split;
using BTL::SplitToVector;
using System::AnsiString;
using System::UnicodeString;
using System::UTF8String;
using testing::ElementsAre;

template <class S>
using SplitTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(SplitTest, Support::Widths);

TYPED_TEST(SplitTest, KeepsEmptyFields)
{
    const struct
    {
        const char* text;
        const char* delim;
        std::vector<const char*> fields;
    } cases[] = {
        {"", ";", {""}},
        {";", ";", {"", ""}},
        {"a", ";", {"a"}},
        {"a;b", ";", {"a", "b"}},
        {";a;;b;", ";", {"", "a", "", "b", ""}},
        {"a, b, ", ", ", {"a", "b", ""}},
        {"aaaaa", "aa", {"", "", "a"}},
        {"ab", "abc", {"ab"}},
        {"a;b", "", {"a;b"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.text) + " at " + c.delim);
        std::vector<TypeParam> expected;
        for (const char* const field : c.fields) {
            expected.push_back(this->T(field));
        }
        const TypeParam text = this->T(c.text);
        EXPECT_EQ(SplitToVector(text, this->T(c.delim)), expected);
        EXPECT_EQ(SplitToVector(text.AsView(), this->T(c.delim)), expected);
        if (std::string(c.delim).size() == 1) {
            EXPECT_EQ(SplitToVector(text, this->C(c.delim[0])), expected);
        }
    }
}

TYPED_TEST(SplitTest, IsARangeOfViews)
{
    const auto fields = Split(this->T("a;bb;"), this->C(';'));
    static_assert(std::forward_iterator<decltype(fields.begin())>);
    EXPECT_EQ(std::distance(fields.begin(), fields.end()), 3);
    const auto longest =
        std::max_element(fields.begin(), fields.end(), [](auto a, auto b) { return a.size() < b.size(); });
    EXPECT_EQ(TypeParam(*longest), this->T("bb"));
    auto second = fields.begin();
    const auto first = second++;
    EXPECT_NE(first, second);
    EXPECT_EQ(first->size(), 1U);
    EXPECT_EQ(std::next(second, 2), fields.end());
}

TYPED_TEST(SplitTest, HoldsItsString)
{
    TypeParam text = this->T("a;b;c");
    std::string seen;
    for (const auto field : Split(text, this->C(';'))) {
        text = this->T("x;y");
        seen += static_cast<char>(field[0]);
    }
    for (const auto field : Split(this->T("d;") + this->T("e"), this->C(';'))) {
        seen += static_cast<char>(field[0]);
    }
    EXPECT_EQ(seen, "abcde");
}

TYPED_TEST(SplitTest, FindsEachFieldOnce)
{
    const int count = 300000;
    const TypeParam text = TypeParam::StringOfChar(this->C(';'), count);
    EXPECT_EQ(SplitToVector(text, this->C(';')).size(), count + 1U);
    EXPECT_EQ(SplitToVector(text, this->T(";;")).size(), count / 2 + 1U);
}

TEST(SplitSourceTest, TakesEveryText)
{
    const std::u16string wide = u"a;b";
    const std::string narrow = "a;b";
    const UnicodeString string = u"a;b";
    const std::vector<UnicodeString> expected = {u"a", u"b"};
    const std::vector<AnsiString> expectedNarrow = {"a", "b"};
    EXPECT_EQ(SplitToVector(u"a;b", u';'), expected);
    EXPECT_EQ(SplitToVector(wide, u";"), expected);
    EXPECT_EQ(SplitToVector(std::u16string(wide), u";"), expected);
    EXPECT_EQ(SplitToVector(string, ';'), expected);
    EXPECT_EQ(SplitToVector(string, ";"), expected);
    EXPECT_EQ(SplitToVector(string, std::u16string_view(u";")), expected);
    EXPECT_EQ(SplitToVector("a;b", ';'), expectedNarrow);
    EXPECT_EQ(SplitToVector(narrow, ";"), expectedNarrow);
    EXPECT_EQ(SplitToVector(std::string_view(narrow), std::string_view(";")), expectedNarrow);
    EXPECT_EQ(SplitToVector(UTF8String("\xC3\xA4;b"), ';'), (std::vector<UTF8String>{"\xC3\xA4", "b"}));
    std::vector<std::string_view> views;
    for (const std::string_view field : Split(narrow, ';')) {
        views.push_back(field);
    }
    EXPECT_THAT(views, ElementsAre("a", "b"));
    EXPECT_EQ(views[0].data(), narrow.data()) << "no copy";
}

} // namespace
