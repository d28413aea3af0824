// SPDX-License-Identifier: MIT
#include "Language.h"

#include <TRS8_BTL/environment/folders/BTL_ENV_Folders.h>
#include <TRS8_BTL/languages/BTL_I18N_Texts.h>
#include <TRS8_BTL/languages/WIN_ErrorTexts.h>
#include <TRS8_BTL/properties/values/PROP_Filter.h>

namespace Station
{

using System::UnicodeString;

void UseLanguage(const UnicodeString& language)
{
    const UnicodeString folder = BTL::GetProgramIDSPath() + language + u"\\";
    BTL::Gi18n::Init(u"IDS", u"BTL_German.ids", folder);
    WIN::SetErrorTextPath(folder);
}

void Translate(Forms::TForm& form, const UnicodeString& language)
{
    if (!language.IsEmpty()) {
        const UnicodeString folder = BTL::GetProgramDataPath() + u"Texts\\" + language + u"\\";
        PROP::CFormDoc(&form).ReadAndApply(folder + form.getName() + u".txt");
    }
}

CDesignTexts::CDesignTexts(Forms::TForm* form) : CRsrcDoc(form, PROP::ERsrcDocSetMode::None)
{
    SetCurrent();
}

void CDesignTexts::GetFilter(PROP::CFilter& filter) const
{
    filter.Clear();
    filter.getProperties().setCommaText(u"Caption,Hint,Heads,Words");
}

CPlaces::CPlaces(Forms::TForm* form) : CRsrcDoc(form, PROP::ERsrcDocSetMode::None)
{
    SetOriginalObjects();
}

void CPlaces::GetFilter(PROP::CFilter& filter) const
{
    filter.Clear();
    filter.getProperties().setCommaText(u"Left,Top,Width,Height,Widths");
}

void CPlaces::Keep()
{
    SetChanges();
    SaveToFile(GetFileName());
}

} // namespace Station
