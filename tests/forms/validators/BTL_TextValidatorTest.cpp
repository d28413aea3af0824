// SPDX-License-Identifier: MIT
#include "forms/validators/BTL_TextValidator.h"

#include "platform/toolkit/Toolkit.h"
#include "platform/visual/stdctrls/edits/EditForm.h"
#include "platform/visual/stdctrls/edits/Stdctrls_Memo.h"
#include "support/FormatSettingsGuard.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/verifiers/BTL_TextVerifier.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using namespace BTL;
using Classes::ssCtrl;
using Classes::TShiftState;
using Stdctrls::TCustomEdit;
using Stdctrls::TEdit;
using System::TObject;
using System::UnicodeString;
using System::Word;

void Bind(TCustomEdit& edit, ATextValidator& validator)
{
    edit.OnKeyDown = [&validator](TObject* sender, Word& key, TShiftState shift) {
        validator.KeyDown(sender, key, shift);
    };
    edit.OnChange = [&validator](TObject* sender) { validator.Change(sender); };
    edit.OnExit = [&validator](TObject* sender) { validator.Exit(sender); };
}

class TextValidatorTest : public testing::Test, protected Support::TEditForm<TEdit>
{
protected:
    TextValidatorTest()
    {
        Sysutils::DecimalSeparator = u',';
        Sysutils::DateSeparator = u'.';
        Sysutils::TimeSeparator = u':';
        Sysutils::ShortDateFormat = u"dd.MM.yyyy";
    }

    /// An empty edit with the focus and nothing remembered.
    void Start(ATextValidator& validator)
    {
        edit->OnChange = nullptr;
        edit->OnExit = nullptr;
        edit->setText({});
        edit->SetFocus();
        Bind(*edit, validator);
    }

    Support::FormatSettingsGuard settings;
};

struct TLocale
{
    const char* name;
    char16_t decimal, date, time;
    const char16_t* shortDate;
    const char16_t* day;
};

// The second of March 2024 as each of them writes it.
const TLocale Locales[] = {
    {"de", u',', u'.', u':', u"dd.MM.yyyy", u"02.03.2024"},
    {"de-CH", u'.', u'.', u':', u"dd.MM.yyyy", u"02.03.2024"},
    {"en-US", u'.', u'/', u':', u"M/d/yyyy", u"3/2/2024"},
    {"en-GB", u'.', u'/', u':', u"dd/MM/yyyy", u"02/03/2024"},
    {"en-CA", u'.', u'-', u':', u"yyyy-MM-dd", u"2024-03-02"},
    {"fr", u',', u'/', u':', u"dd/MM/yyyy", u"02/03/2024"},
    {"fr-CH", u',', u'.', u':', u"dd.MM.yyyy", u"02.03.2024"},
    {"it", u',', u'/', u':', u"dd/MM/yyyy", u"02/03/2024"},
    {"es", u',', u'/', u':', u"dd/MM/yyyy", u"02/03/2024"},
    {"pt-BR", u',', u'/', u':', u"dd/MM/yyyy", u"02/03/2024"},
    {"nl", u',', u'-', u':', u"d-M-yyyy", u"2-3-2024"},
    {"da", u',', u'-', u'.', u"dd-MM-yyyy", u"02-03-2024"},
    {"sv", u',', u'-', u':', u"yyyy-MM-dd", u"2024-03-02"},
    {"fi", u',', u'.', u'.', u"d.M.yyyy", u"2.3.2024"},
    {"pl", u',', u'.', u':', u"dd.MM.yyyy", u"02.03.2024"},
    {"tr", u',', u'.', u':', u"d.MM.yyyy", u"2.03.2024"},
    {"hu", u',', u'.', u':', u"yyyy.MM.dd", u"2024.03.02"},
    {"ja", u'.', u'/', u':', u"yyyy/MM/dd", u"2024/03/02"},
    {"zh", u'.', u'/', u':', u"yyyy/M/d", u"2024/3/2"},
    {"fa", u'\u066B', u'/', u':', u"yyyy/MM/dd", u"2024/03/02"},
};

TEST_F(TextValidatorTest, TakesNumbersInEachLocaleHoweverTheyCome)
{
    ASSERT_EQ(std::size(Locales), 20U);
    struct TCase
    {
        const char16_t* given;
        /// What is there when all keys are typed, and what when it comes at once.
        const char16_t* typed;
        const char16_t* whole;
    };
    const TCase cases[] = {{u"1,5", u"1,5", u"1,5"},
                           {u"1.5", u"1.5", u"1.5"},
                           {u"1.000", u"1.000", u"1.000"},
                           {u"1.234,56", u"1.23456", u""},
                           {u"12x3", u"123", u""}};
    const auto ways = {
        +[](Testing::CFormDriver& driver, const UnicodeString& text) { driver.Type(text); },
        +[](Testing::CFormDriver& driver, const UnicodeString& text) {
            Toolkits::CurrentToolkit().SetClipboardText(text);
            driver.Press('V', {ssCtrl});
        },
        +[](Testing::CFormDriver& driver, const UnicodeString& text) { driver.Insert(text); },
    };
    CFloatTextValidator validator(0, 0);
    validator.setTestsEmpty(false);
    for (const TLocale& locale : Locales) {
        Sysutils::DecimalSeparator = locale.decimal;
        for (const TCase& test : cases) {
            for (auto way = ways.begin(); way != ways.end(); ++way) {
                SCOPED_TRACE(std::string(locale.name) + " " + System::ToUtf8(test.given));
                Start(validator);
                (*way)(driver, test.given);
                const UnicodeString expected = way == ways.begin() ? test.typed : test.whole;
                EXPECT_EQ(edit->getText(), expected);
                EXPECT_EQ(edit->getSelStart(), expected.Length());
            }
        }
        Start(validator);
        driver.Type(u"1.000");
        EXPECT_EQ(ToDouble(edit->getText()), 1.0);
    }
}

TEST_F(TextValidatorTest, TakesDatesAndTimesInEachLocale)
{
    CDateTextValidator date;
    CTimeTextValidator time;
    for (const TLocale& locale : Locales) {
        SCOPED_TRACE(locale.name);
        Sysutils::DateSeparator = locale.date;
        Sysutils::TimeSeparator = locale.time;
        Sysutils::ShortDateFormat = locale.shortDate;
        Start(date);
        driver.Type(locale.day);
        EXPECT_EQ(edit->getText(), locale.day);
        driver.Type(UnicodeString(locale.date) + u"x");
        EXPECT_EQ(edit->getText(), locale.day);
        driver.Press(VK_TAB);
        EXPECT_EQ(edit->getText(), locale.day);
        Start(time);
        driver.Type(u"23" + UnicodeString(locale.time) + u"609");
        EXPECT_EQ(edit->getText(), u"23" + UnicodeString(locale.time) + u"6");
    }
}

TEST_F(TextValidatorTest, PutsCaretAndSelectionBackAfterARefusedKey)
{
    CNumberTextValidator validator(0, 0);
    Start(validator);
    driver.Type(u"1234");
    driver.Press(VK_HOME);
    driver.Press(VK_RIGHT);
    driver.Type(u"x");
    EXPECT_EQ(edit->getText(), u"1234");
    EXPECT_EQ(edit->getSelStart(), 1);
    edit->setSelLength(2);
    driver.Type(u"x");
    EXPECT_EQ(edit->getText(), u"1234");
    EXPECT_EQ(edit->getSelText(), u"23");
    driver.Type(u"9");
    EXPECT_EQ(edit->getText(), u"194");
}

TEST_F(TextValidatorTest, RemembersAnEmptyTextThatWasValid)
{
    CNumberTextValidator validator(0, 0);
    validator.setTestsEmpty(false);
    Start(validator);
    driver.Type(u"x");
    EXPECT_EQ(edit->getText(), u"");
    EXPECT_EQ(edit->getSelStart(), 0);
}

TEST_F(TextValidatorTest, EmptiesWhatNoKeyCameBefore)
{
    CNumberTextValidator validator(0, 0);
    Start(validator);
    edit->GetWindowEvents().TextEdited(u"x");
    EXPECT_EQ(edit->getText(), u"");
    driver.Type(u"12");
    edit->GetWindowEvents().TextEdited(u"12x");
    // What was there when the last key went down.
    EXPECT_EQ(edit->getText(), u"1");
    edit->GetWindowEvents().TextEdited(u"1x");
    EXPECT_EQ(edit->getText(), u"");
}

TEST_F(TextValidatorTest, TidiesTheTextOfAFieldThatIsLeft)
{
    CNumberTextValidator limited(1, 10);
    CFloatTextValidator decimal(0, 0);
    CUnitTextValidator unit(u"V");
    CTextValidator owned(new CNumberTextVerifier(1, 10));
    struct TCase
    {
        ATextValidator& validator;
        const char16_t* typed;
        const char16_t* left;
    };
    for (const TCase& test : {TCase{limited, u"-", u"0"},
                              {limited, u"99", u"10"},
                              {limited, u"0", u"1"},
                              {decimal, u"1,", u"1"},
                              {decimal, u"1000", u"1000"},
                              {unit, u"5", u"5"},
                              {owned, u"-", u"1"}}) {
        Start(test.validator);
        driver.Type(test.typed);
        EXPECT_EQ(edit->getText(), test.typed);
        driver.Press(VK_TAB);
        EXPECT_EQ(edit->getText(), test.left);
    }
}

TEST_F(TextValidatorTest, RefusesAllWithoutAVerifier)
{
    CTextValidator validator(nullptr);
    Start(validator);
    driver.Type(u"1");
    EXPECT_EQ(edit->getText(), u"");
    EXPECT_NO_THROW(driver.Press(VK_TAB));
    Start(CNumberTextValidator::StdValidator);
    driver.Type(u"1x");
    EXPECT_EQ(edit->getText(), u"1");
}

/// Writes each refused text in another way.
class CCorrecting : public ATextValidator
{
public:
    bool Validate(const UnicodeString& text) override { return text.Pos(u'o') == 0; }
    bool GetValidText(UnicodeString& text) override
    {
        text[text.Pos(u'o')] = u'0';
        return true;
    }
};

TEST_F(TextValidatorTest, TakesACorrectedText)
{
    CCorrecting validator;
    Start(validator);
    driver.Type(u"1o");
    EXPECT_EQ(edit->getText(), u"10");
}

TEST_F(TextValidatorTest, ServesManyAndOutlivesThem)
{
    CNumberTextValidator validator(0, 0);
    Start(validator);
    driver.Type(u"12");
    auto* const second = new Stdctrls::TMemo(&form);
    second->setParent(&form);
    Bind(*second, validator);
    second->SetFocus();
    driver.Type(u"7x");
    EXPECT_EQ(second->getText(), u"7");
    delete second;
    edit->SetFocus();
    edit->GetWindowEvents().TextEdited(u"12x");
    EXPECT_EQ(edit->getText(), u"");
    TObject* const none = nullptr;
    EXPECT_NO_THROW(validator.Change(none));
    EXPECT_NO_THROW(validator.Exit(&form));
    EXPECT_EQ(validator.GetObjectText(), u"");
}

TEST_F(TextValidatorTest, BearsAnEditThatGoesWhenItsTextComesBack)
{
    CNumberTextValidator validator(0, 0);
    Start(validator);
    driver.Type(u"1");
    edit->OnChange = [&](TObject* sender) {
        if (edit->getText() == u"1") {
            delete std::exchange(edit, nullptr);
        } else {
            validator.Change(sender);
        }
    };
    driver.Type(u"x");
    EXPECT_EQ(edit, nullptr);
}

/// As where another kind of value is set while the text of the former one comes back.
TEST_F(TextValidatorTest, MayGoWhenTheTextComesBack)
{
    auto validator = std::make_unique<CNumberTextValidator>(0, 0);
    Start(*validator);
    driver.Type(u"12");
    edit->OnChange = [&](TObject* sender) {
        if (edit->getText() == u"12") {
            validator.reset();
        } else if (validator != nullptr) {
            validator->Change(sender);
        }
    };
    edit->setSelStart(1);
    driver.Type(u"x");
    EXPECT_EQ(validator, nullptr);
    EXPECT_EQ(edit->getText(), u"12");
    EXPECT_EQ(edit->getSelStart(), 1);
    edit->OnExit = nullptr;
}

} // namespace
