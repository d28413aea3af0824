// SPDX-License-Identifier: MIT
#pragma once

#include <TRS8_BTL/platform/visual/Forms.h>
#include <TRS8_BTL/properties/documents/PROP_RsrcDoc.h>

namespace Station
{

/// Takes all texts of the library from the folder of the language.
void UseLanguage(const System::UnicodeString& language);

/// Lays the texts of the language over the form. One that has no document for it stays as it is, as each does
/// for the empty language and for English, that of the designs.
void Translate(Forms::TForm& form, const System::UnicodeString& language);

/// The texts of a form as it was designed: what leads back from another language.
class CDesignTexts : public PROP::CRsrcDoc
{
public:
    /// Takes them; to be made before the form is translated.
    explicit CDesignTexts(Forms::TForm* form);

    /// What the program may change by itself, as what is typed into edits, isn't taken.
    void GetFilter(PROP::CFilter& filter) const override;
};

/// Where the user left a form and the controls on it. What is typed into them belongs to the settings.
class CPlaces : public PROP::CRsrcDoc
{
public:
    /// To be made while the form is as it was designed.
    explicit CPlaces(Forms::TForm* form);

    void GetFilter(PROP::CFilter& filter) const override;
    /// Keeps them for `ReadAndApply`; a form that is back in its design has no file.
    void Keep();
};

} // namespace Station
