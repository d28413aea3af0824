// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Macro.h"

#include "text/BothWidthsSupport.h"
#include "text/editing/BTL_STR_Replace.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace
{

template <class S>
using MacroTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(MacroTest, Support::Widths);

TYPED_TEST(MacroTest, ExpandsMacros)
{
    const auto T = TestFixture::T;
    const struct
    {
        const char* text;
        const char* macro;
        const char* body;
        const char* expected;
    } cases[] = {
        {"x=SQR(4);", "SQR(a)", "%a*%a", "x=4*4;"},
        {"a NAME b NAME", "NAME", "x", "a x b x"},
        {"F(1)", "F(a,b)", "%a+%b", "1+%b"},
        {"F(1,2,3)", "F(a b)", "%a+%b", "1+2"},
        {"F(\"1,2\" 3)", "F(a,b)", "%b-%a", "3-1,2"},
        {"F(1,2)", "F(a,ab)", "%ab", "1b"},
        {"G(1)F(2)XF(3)", "F(a)", "<%a>", "G(1)<2>X<3>"},
        {"F(F(1))", "F(a)", "<%a>", "<<1>>"},
        {"F(1", "F(a)", "%a", "F(1"},
        {"F 1)", "F(a)", "%a", "F 1)"},
        {"F", "F(a)", "%a", "F"},
        {"FF(1)(2)", "F(a)", "", "(2)"},
        {"AAB(1)B(2)C", "AB(a)", "", "C"},
        {"abc", "(a)", "x", "abc"},
        {"", "F(a)", "x", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::ApplyMacro(T(c.text), T(c.macro), T(c.body)), T(c.expected)) << c.text;
    }
}

TYPED_TEST(MacroTest, MacroExpansionEnds)
{
    const auto T = TestFixture::T;
    EXPECT_FALSE(BTL::ApplyMacro(T("F(1)"), T("F(a)"), T("F(%a)")).IsEmpty());
    constexpr int bound = 2'000'000;
    EXPECT_LT(BTL::ApplyMacro(T("F(1)"), T("F(a)"), T("F(%a)F(%a)F(%a%a)")).Length(), bound);
    EXPECT_LT(BTL::ApplyMacro(T("F(xxxxxxxxxxxxxxxx)"), T("F(a)"), T("F(%a%a%a%a%a%a%a%a)")).Length(), bound);

    TypeParam text;
    TypeParam expected;
    for (int i = 0; i < 50'000; ++i) {
        text += T("F(1) ");
        expected += T("<1> ");
    }
    EXPECT_EQ(BTL::ApplyMacro(text, T("F(a)"), T("<%a>")), expected) << "many calls one after the other";
}

// Names that begin alike, values that finish names or bring new ones: in the end it must look as if each
// parameter had been replaced in all of the body before the next.
TYPED_TEST(MacroTest, ParametersAreReplacedOneAfterTheOther)
{
    const auto T = TestFixture::T;
    std::mt19937 random(1);
    const auto pick = [&](const char* letters, std::size_t longest) {
        std::string text(random() % (longest + 1), ' ');
        for (char& c : text) {
            c = letters[random() % std::strlen(letters)];
        }
        return text;
    };
    for (int round = 0; round < 2'000; ++round) {
        const bool hasMarks = round % 10 == 0;
        std::string names;
        std::string values;
        const std::string text = pick("%%ab1 ", 30);
        TypeParam expected = T(text);
        const auto count = random() % 6;
        for (std::size_t i = 0; i < count; ++i) {
            const std::string name = pick(hasMarks ? "ab%" : "ab1", 3);
            const std::string value = pick("%%ab1", 4);
            const char* const separator = i == 0 ? "" : ",";
            names += separator + ('"' + name + '"');
            values += separator + ('"' + value + '"');
            expected = BTL::ExchangeAll(expected, T("%" + name), T(value));
        }
        EXPECT_EQ(BTL::ApplyMacro(T("<M(" + values + ")>"), T("M(" + names + ")"), T(text)),
                  T("<") + expected + T(">"))
            << "names " << names << " values " << values << " body " << text;
    }
}

TYPED_TEST(MacroTest, TakesManyParameters)
{
    const auto T = TestFixture::T;
    constexpr int count = 30'000;
    std::string names;
    std::string values;
    std::string body;
    std::string expected;
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        names += (i == 0 ? "p" : ",p") + number + '_';
        values += (i == 0 ? "" : ",") + number;
        body += "<%p" + number + "_>";
        expected += '<' + number + '>';
    }
    EXPECT_EQ(BTL::ApplyMacro(T("M(" + values + ")"), T("M(" + names + ")"), T(body)), T(expected));
}

} // namespace
