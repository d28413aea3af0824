// SPDX-License-Identifier: MIT
#include "languages/BTL_I18N_Language.h"

#include "environment/folders/BTL_ENV_Folders.h"
#include "environment/folders/internal/BTL_ENV_LastFolder.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"

#include <algorithm>
#include <array>

namespace BTL
{

namespace
{

using System::UnicodeString;
using System::WideChar;

struct TNames
{
    ELanguage language;
    const WideChar* name;
    const WideChar* acronym;
    const WideChar* a3Acronym;
};

constexpr std::array Languages = {
    TNames{ELanguage::German, u"German", u"DE", u"ger"},
    TNames{ELanguage::English, u"English", u"EN", u"eng"},
    TNames{ELanguage::Dutch, u"Dutch", u"NL", u"nld"},
    TNames{ELanguage::French, u"French", u"FR", u"fre"},
    TNames{ELanguage::Italian, u"Italian", u"IT", u"ita"},
    TNames{ELanguage::Spanish, u"Spanish", u"ES", u"spa"},
    TNames{ELanguage::Klingon, u"Klingon", u"XX", u"tlh"},
};

constinit ELanguage currentLanguage = ELanguage::German;

const TNames& NamesOf(ELanguage language)
{
    static constexpr TNames none{ELanguage::None, u"", u"", u""};
    const auto* const found = std::ranges::find(Languages, language, &TNames::language);
    return found == Languages.end() ? none : *found;
}

} // namespace

void SetDefLanguage()
{
    currentLanguage = ELanguage::German;
}

void SetCurLanguage(ELanguage language)
{
    currentLanguage = language == ELanguage::None ? ELanguage::German : language;
}

void SetCurrLanguage(ELanguage language)
{
    SetCurLanguage(language);
}

ELanguage GetCurLanguage()
{
    return currentLanguage;
}

ELanguage GetCurrLanguage()
{
    return GetCurLanguage();
}

ELanguage GetLanguage(const UnicodeString& name)
{
    const auto* const found = std::ranges::find_if(
        Languages, [&](const TNames& names) { return Sysutils::AnsiSameText(name, names.name); });
    return found == Languages.end() ? ELanguage::None : found->language;
}

UnicodeString GetI18NLanguageName(ELanguage language)
{
    return NamesOf(language).name;
}

UnicodeString GetLanguageAcronym(ELanguage language)
{
    return NamesOf(language).acronym;
}

UnicodeString GetLanguageA3Acronym(ELanguage language)
{
    return NamesOf(language).a3Acronym;
}

UnicodeString GetCurLanguageA3Acronym()
{
    return GetLanguageA3Acronym(GetCurLanguage());
}

UnicodeString GetCurrLanguageA3Acronym()
{
    return GetCurLanguageA3Acronym();
}

UnicodeString GetI18NLanguageBinPath(ELanguage language)
{
    // Never destroyed, as all folders.
    static CLastFolder& folder = *new CLastFolder;
    return folder.Make(GetRootPath() + u"BIN_" + GetLanguageAcronym(language) + u"\\");
}

} // namespace BTL
