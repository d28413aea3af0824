// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_CommandLineOptions.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/internal/System_CommandLineWord.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "text/editing/BTL_STR_Cut.h"
#include "text/editing/BTL_STR_Join.h"
#include "text/editing/BTL_STR_Search.h"
#include "text/numbers/BTL_NUM_Floats.h"

#include <algorithm>

namespace BTL
{

using System::UnicodeString;
using System::WideChar;

namespace
{

constexpr UTL::CFaultPlace NoSuchOption{"BTL_CommandLineOptions", 1};

constexpr WideChar EqualSign = u'=';
constexpr WideChar Dash = u'-';
/// Ends the options.
constexpr auto EndOfOptions = u"--";
constexpr auto HelpOption = u"--help";

constexpr auto BehindShortName = u", ";

/// How an option is written, with the name of its value. Short names stand in a column as wide as the
/// longest.
UnicodeString UsageOf(const TCommandLineOption& option, int shortWidth)
{
    UnicodeString usage = StrCat(option.name, option.valueName, u" ");
    if (shortWidth == 0) {
        return usage;
    }
    const UnicodeString front =
        option.shortName.IsEmpty() ? UnicodeString() : option.shortName + BehindShortName;
    return FillString(front, shortWidth + UnicodeString(BehindShortName).Length(), u' ') + usage;
}

[[noreturn]] void RefuseValue(const UnicodeString& name, const UnicodeString& value,
                              const UnicodeString& kind)
{
    throw XCommandLine(name + u": '" + value + u"' is no " + kind);
}

} // namespace

CCommandLineOptions::CCommandLineOptions(std::initializer_list<TCommandLineOption> options,
                                         EOtherWords otherWords)
    : mOtherWords(otherWords), mOptions(options), mValues(options.size())
{
}

void CCommandLineOptions::Add(const TCommandLineOption& option)
{
    mOptions.push_back(option);
    mValues.emplace_back();
}

std::size_t CCommandLineOptions::IndexOf(const UnicodeString& name) const
{
    const auto isMeant = [&name](const TCommandLineOption& option) {
        return option.name == name || (!option.shortName.IsEmpty() && option.shortName == name);
    };
    return static_cast<std::size_t>(std::ranges::find_if(mOptions, isMeant) - mOptions.begin());
}

bool CCommandLineOptions::IsOption(const UnicodeString& word) const
{
    return IndexOf(LeftSubStringUntil(word, EqualSign)) < mOptions.size();
}

bool CCommandLineOptions::EndsOptions(const UnicodeString& word) const
{
    return mOtherWords == EOtherWords::Kept && word == EndOfOptions && !IsOption(word);
}

void CCommandLineOptions::Parse(int argc, const char* const* argv)
{
    std::vector<UnicodeString> words;
    for (int i = 1; i < argc; ++i) {
        words.push_back(System::Detail::CommandLineWord(argv[i]));
    }
    Parse(words);
}

void CCommandLineOptions::Parse(std::span<const UnicodeString> words)
{
    mValues.assign(mOptions.size(), {});
    mWords.clear();
    while (!words.empty()) {
        if (EndsOptions(words.front())) {
            mWords.insert(mWords.end(), words.begin() + 1, words.end());
            return;
        }
        words = words.subspan(Take(words));
    }
}

std::size_t CCommandLineOptions::Take(std::span<const UnicodeString> words)
{
    const UnicodeString& word = words.front();
    UnicodeString name;
    UnicodeString value;
    GetSubStrings(word, EqualSign, name, value);
    const std::size_t index = IndexOf(name);
    if (index == mOptions.size()) {
        TakeOther(word);
        return 1;
    }
    const bool hasEqualSign = name.Length() != word.Length();
    if (hasEqualSign && !mOptions[index].TakesValue()) {
        throw XCommandLine(name + u" takes no value");
    }
    if (hasEqualSign || !mOptions[index].TakesValue()) {
        mValues[index].push_back(value);
        return 1;
    }
    if (words.size() == 1 || IsOption(words[1])) {
        throw XCommandLine(name + u": the value is missing");
    }
    mValues[index].push_back(words[1]);
    return 2;
}

void CCommandLineOptions::TakeOther(const UnicodeString& word)
{
    const bool isOther = Pos(word, Dash) != 1 || word.Length() == 1 || IsDouble(word);
    if (mOtherWords == EOtherWords::Refused || !isOther) {
        const bool hasHelp = IsOption(HelpOption);
        throw XCommandLine(u"unknown option '" + word + (hasHelp ? u"'; --help tells all" : u"'"));
    }
    mWords.push_back(word);
}

const std::vector<UnicodeString>& CCommandLineOptions::GetValues(const UnicodeString& name) const
{
    // Never destroyed, since a global object of the program may still ask at its end.
    static const auto& none = *new std::vector<UnicodeString>;
    const std::size_t index = IndexOf(name);
    if (index < mOptions.size()) {
        return mValues[index];
    }
    UTL::THROW_XAssert(NoSuchOption, System::AnsiString(u"no option '" + name + u"'").c_str());
    return none;
}

UnicodeString CCommandLineOptions::GetString(const UnicodeString& name,
                                             const UnicodeString& defaultValue) const
{
    const std::vector<UnicodeString>& values = GetValues(name);
    return values.empty() ? defaultValue : values.back();
}

int CCommandLineOptions::GetInt(const UnicodeString& name, int defaultValue) const
{
    const std::vector<UnicodeString>& values = GetValues(name);
    int value = defaultValue;
    if (!values.empty() && !Sysutils::TryStrToInt(values.back(), value)) {
        RefuseValue(name, values.back(), u"integer");
    }
    return value;
}

double CCommandLineOptions::GetDouble(const UnicodeString& name, double defaultValue) const
{
    const std::vector<UnicodeString>& values = GetValues(name);
    double value = defaultValue;
    if (!values.empty() && !ToDouble(values.back(), value)) {
        RefuseValue(name, values.back(), u"number");
    }
    return value;
}

UnicodeString CCommandLineOptions::GetHelpText() const
{
    int shortWidth = 0;
    for (const TCommandLineOption& option : mOptions) {
        shortWidth = std::max(shortWidth, option.shortName.Length());
    }
    int width = 0;
    for (const TCommandLineOption& option : mOptions) {
        width = std::max(width, UsageOf(option, shortWidth).Length());
    }
    UnicodeString text;
    for (const TCommandLineOption& option : mOptions) {
        text += u"  " + FillString(UsageOf(option, shortWidth), width, u' ') + u"  " + option.help + u'\n';
    }
    return text;
}

} // namespace BTL
