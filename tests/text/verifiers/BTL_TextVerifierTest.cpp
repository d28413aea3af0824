// SPDX-License-Identifier: MIT
#include "text/verifiers/BTL_TextVerifier.h"

#include "support/FormatSettingsGuard.h"
#include "text/numbers/BTL_NUM_Floats.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using namespace BTL;
using System::UnicodeString;

class TextVerifierTest : public testing::Test
{
protected:
    TextVerifierTest() { Sysutils::DecimalSeparator = u','; }

    Support::FormatSettingsGuard settings;
};

TEST_F(TextVerifierTest, JudgesWhatIsTyped)
{
    CNumberTextVerifier number(1, 10);
    CFloatTextVerifier decimal(1, 10);
    CUnitTextVerifier unit(u"kg");
    ATextVerifier any;
    struct TCase
    {
        ATextVerifier& verifier;
        const char16_t* text;
        bool isOk;
    };
    for (const TCase& test : {TCase{number, u"12", true},
                              {number, u"-", true},
                              {number, u"+", true},
                              {number, u"+-", false},
                              {number, u"", false},
                              {number, u"1,5", false},
                              {number, u"999999999999999999999", true},
                              {decimal, u"1,5", true},
                              {decimal, u"1.5", true},
                              {decimal, u"1,", true},
                              {decimal, u"-", true},
                              {decimal, u"1.234,56", false},
                              {decimal, u"1.000", true},
                              {decimal, u"1e3", true},
                              {decimal, u"1x", false},
                              {decimal, u"", false},
                              {unit, u"1,5 kg", true},
                              {unit, u"kg1,5", true},
                              {unit, u"1,5 kgkg", false},
                              {unit, u"-kg", true},
                              {unit, u"1,5 g", false},
                              {any, u"?", true}}) {
        EXPECT_EQ(test.verifier(test.text), test.isOk) << UnicodeString(test.text);
    }
}

TEST_F(TextVerifierTest, TidiesWhatIsLeft)
{
    struct TCase
    {
        ATextVerifier* verifier;
        const char16_t* text;
        const char16_t* result;
    };
    CNumberTextVerifier limited(1.9, 10.9);
    CNumberTextVerifier free(0, 0);
    CFloatTextVerifier decimal(1.5, 10);
    CFloatTextVerifier freeDecimal(0, 0);
    CUnitTextVerifier unit(u"kg");
    for (const TCase& test : {TCase{&limited, u"-", u"1"},
                              {&limited, u"0", u"1"},
                              {&limited, u"11", u"10"},
                              {&limited, u"5", u"5"},
                              {&limited, u"abc", u"1"},
                              {&limited, u"", u""},
                              {&free, u"1000", u"1000"},
                              {&free, u"+", u"0"},
                              {&free, u"x", u"0"},
                              {&decimal, u"-", u"0"},
                              {&decimal, u"1", u"1,5"},
                              {&decimal, u"11,5", u"10"},
                              {&decimal, u"2,", u"2"},
                              {&decimal, u"2.", u"2."},
                              {&decimal, u"x,", u"x"},
                              {&decimal, u"", u""},
                              {&freeDecimal, u"1000", u"1000"},
                              {&freeDecimal, u"1.000", u"1.000"},
                              {&freeDecimal, u"-,", u"0"},
                              {&unit, u"1,5 kg", u"1,5 kg"}}) {
        UnicodeString text = test.text;
        EXPECT_EQ(test.verifier->ExitText(text), text != test.text) << UnicodeString(test.text);
        EXPECT_EQ(text, test.result) << UnicodeString(test.text);
    }
}

TEST_F(TextVerifierTest, ExchangesSeparatorsAndUnits)
{
    const CFloatTextVerifier comma(',');
    const CFloatTextVerifier point('.');
    for (const auto& [verifier, text, cleared, set] : {std::tuple(&comma, u"1.5", u"1,5", u"1,5"),
                                                       {&point, u"1,5", u"1.5", u"1,5"},
                                                       {&comma, u"15", u"15", u"15"},
                                                       {&point, u"1.5,6", u"1.5,6", u"1.5,6"}}) {
        UnicodeString one = text;
        verifier->ClearDecimalSeparator(one);
        EXPECT_EQ(one, cleared);
        UnicodeString other = text;
        verifier->SetDecimalSeparator(other);
        EXPECT_EQ(other, set);
    }
    UnicodeString text = u"5";
    const CUnitTextVerifier unit(u"V");
    unit.SetUnit(text);
    EXPECT_EQ(text, u"5 V");
    unit.ClearUnit(text);
    EXPECT_EQ(text, u"5 ");
    CUnitTextVerifier(u"").SetUnit(text);
    EXPECT_EQ(text, u"5 ");
}

TEST_F(TextVerifierTest, TakesASeparatorOfAnyLocale)
{
    Sysutils::DecimalSeparator = u'\u066B';
    UnicodeString text = u"1.5";
    CFloatTextVerifier(0, 0).ClearDecimalSeparator(text);
    EXPECT_EQ(text, u"1\u066B5");
    text = u"1.5";
    CUnitTextVerifier(u"V").SetDecimalSeparator(text);
    EXPECT_EQ(text, u"1\u066B5");
}

TEST_F(TextVerifierTest, TakesTheUnitOfMoneyFromTheTexts)
{
    const auto former = std::exchange(GetCurrencyUnit, [] { return UnicodeString(u"Taler"); });
    CCurrencyTextVerifier verifier;
    EXPECT_TRUE(verifier(u"1,50 Taler"));
    EXPECT_FALSE(verifier(u"1,50 Heller"));
    GetCurrencyUnit = nullptr;
    EXPECT_FALSE(CCurrencyTextVerifier()(u"1,50 Taler"));
    GetCurrencyUnit = former;
}

} // namespace
