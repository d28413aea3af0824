// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Encoding.h"

#include "platform/base/Sysutils_Exception.h"

#include <utility>

#include <gtest/gtest.h>

using System::CodePage;
using System::UnicodeString;
using Sysutils::TEncoding;

namespace
{

TEST(EncodingTest, HasThePagesThatItLists)
{
    const std::pair<CodePage, UnicodeString> rows[] = {
        {28591, u"\u00E4"},    {28592, u"\u010D"},  {28595, u"\u0416"},     {28597, u"\u03A9"},
        {28600, u"\u0101"},    {28601, u"\u0E01"},  {28603, u"\u0101"},     {28604, u"\u1E02"},
        {28605, u"\u20AC"},    {874, u"\u0E01"},    {1250, u"\u010D"},      {1258, u"\u20AB"},
        {437, u"\u03A9"},      {720, u"\u0627"},    {850, u"\u00E4"},       {869, u"\u03A9"},
        {10000, u"\u03A9"},    {20866, u"\u0416"},  {21866, u"\u0491"},     {932, u"\u3042"},
        {51932, u"\u3042"},    {50220, u"\u3042x"}, {936, u"\u4E2D"},       {949, u"\uAC00"},
        {950, u"\u4E2D"},      {51949, u"\uAC00"},  {54936, u"\U0001F600"}, {52936, u"\u4E2D"},
        {20127, u"x"},         {0, u"\u20AC"},      {65001, u"\u20AC"},     {1200, u"\U0001F600"},
        {1201, u"\U0001F600"},
    };
    for (const auto& [codePage, text] : rows) {
        const TEncoding encoding(codePage);
        EXPECT_EQ(encoding.GetString(encoding.GetBytes(text).AsView()), text) << codePage;
    }
    EXPECT_EQ(TEncoding(28591).GetBytes(u"\u00E4\u0080\u20AC").AsView(), "\xE4\x80?");
    for (const CodePage unknown : {CodePage{12345}, CodePage{28602}, CodePage{28606}}) {
        EXPECT_FALSE(System::IsKnownCodePage(unknown)) << unknown;
        EXPECT_THROW(TEncoding{unknown}, Sysutils::EArgumentException) << unknown;
    }
}

TEST(EncodingTest, IsFoundByName)
{
    const std::pair<UnicodeString, CodePage> rows[] = {
        {u"utf-8", 65001},       {u"UTF8", 65001},       {u"utf-16", 1200},       {u"UTF-16LE", 1200},
        {u"utf-16be", 1201},     {u"us-ascii", 20127},   {u"iso-8859-1", 28591},  {u"ISO_8859-1", 28591},
        {u"latin1", 28591},      {u"iso-8859-2", 28592}, {u"iso-8859-10", 28600}, {u"ISO-8859-15", 28605},
        {u"windows-1252", 1252}, {u"cp1252", 1252},      {u"ibm850", 850},        {u"koi8-r", 20866},
        {u"shift_jis", 932},     {u"euc-jp", 51932},     {u"gb18030", 54936},     {u"big5", 950},
    };
    for (const auto& [name, codePage] : rows) {
        EXPECT_EQ(TEncoding::FromName(name).getCodePage(), codePage) << name;
    }
    for (const UnicodeString name : {u"", u"latin", u"utf-9", u"iso-8859-99", u"\u00E4"}) {
        try {
            static_cast<void>(TEncoding::FromName(name));
            FAIL() << name;
        } catch (const Sysutils::EArgumentException& fault) {
            EXPECT_NE(fault.getMessage().Pos(u"\"" + name + u"\""), 0) << fault.getMessage();
        }
    }
}

} // namespace
