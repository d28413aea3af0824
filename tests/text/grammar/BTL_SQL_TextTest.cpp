// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_SQL_Text.h"

#include <gmock/gmock.h>

#include <vector>

namespace
{

using namespace BTL;
using System::UnicodeString;
using testing::ElementsAreArray;

std::vector<UnicodeString> TokensOf(const UnicodeString& statement)
{
    std::vector<UnicodeString> tokens;
    int index = 1;
    for (UnicodeString token; !(token = GetNextSqlToken(statement, index)).IsEmpty();
         index += token.Length()) {
        EXPECT_EQ(statement.SubString(index, token.Length()), token);
        tokens.push_back(token);
    }
    EXPECT_GE(index, statement.Length()) << statement;
    return tokens;
}

TEST(SqlTextTest, CutsTokens)
{
    const struct
    {
        const char16_t* statement;
        std::vector<UnicodeString> tokens;
    } cases[] = {
        {u"select a.b from t", {u"select", u"a.b", u"from", u"t"}},
        {u"'it''s' x", {u"'it''s'", u"x"}},
        {u"'' '''' 'open ''", {u"''", u"''''", u"'open ''"}},
        {u"a = b", {u"a", u"= ", u"b"}},
        {u"a>=1+2,_b", {u"a", u">=", u"1+2", u",", u"_", u"b"}},
        {u".5e-3 -7 x1$_", {u".5e-3", u"-7", u"x1$_"}},
        {u"[a b]\"c d\"[e\"]", {u"[a b]", u"\"c d\"", u"[e\"", u"]"}},
        {u"\"open", {u"\"ope", u"n"}},
        {u"x [", {u"x", u"["}},
        {u"\t\u00A0\u00E4\u0664 ", {u"\u00E4\u0664"}},
        {u"(a)", {u"(", u"a", u")"}},
        {u"   ", {}},
        {u"", {}},
    };
    for (const auto& [statement, tokens] : cases) {
        EXPECT_THAT(TokensOf(statement), ElementsAreArray(tokens)) << UnicodeString(statement);
    }
}

TEST(SqlTextTest, MovesTheIndexToTheToken)
{
    const UnicodeString statement = u"select  a.b ";
    const struct
    {
        int from;
        int to;
        const char16_t* token;
    } cases[] = {{-3, 1, u"select"}, {4, 4, u"ect"}, {7, 9, u"a.b"},
                 {12, 12, u""},      {13, 13, u""},  {99, 99, u""}};
    for (const auto& [from, to, token] : cases) {
        int index = from;
        EXPECT_EQ(GetNextSqlToken(statement, index), token) << from;
        EXPECT_EQ(index, to) << from;
    }
}

TEST(SqlTextTest, DoublesApostrophes)
{
    EXPECT_EQ(SQLValueDelim(u"it's ''"), u"it''s ''''");
    EXPECT_EQ(SQLValueDelim(u""), u"");
}

} // namespace
