// SPDX-License-Identifier: MIT
#include "FormDesk.h"

#include "Channels.h"
#include "InstrumentForm.h"
#include "Language.h"

#include <TRS8_BTL/platform/base/Sysutils_Exception.h>
#include <TRS8_BTL/platform/runtime/classes/Classes_Stream.h>
#include <TRS8_BTL/properties/resources/Paso_savecomponent.h>
#include <TRS8_BTL/properties/values/PROP_Typinfo.h>
#include <TRS8_BTL/testing/FormDriver.h>

#include <algorithm>
#include <memory>
#include <string>

namespace Station
{

namespace
{

using System::UnicodeString;
using CForms = std::vector<std::unique_ptr<TSettingsForm>>;

CForms MakeForms(const UnicodeString& language)
{
    CForms forms;
    forms.push_back(std::make_unique<TSettingsForm>());
    forms.push_back(std::make_unique<TInstrumentForm>());
    for (const auto& form : forms) {
        Translate(*form, language);
    }
    return forms;
}

/// A change as the command line has it: the form, the control, and the property of that or of a part of it.
struct TChange
{
    UnicodeString text;
    UnicodeString form;
    UnicodeString control;
    UnicodeString property;
    UnicodeString value;
};

TChange ReadChange(const UnicodeString& text)
{
    const int equals = text.Pos(u'=');
    const UnicodeString path = text.SubString(1, equals - 1);
    const int first = path.Pos(u'.');
    const UnicodeString rest = path.SubString(first + 1, path.Length());
    const int second = rest.Pos(u'.');
    if (equals == 0 || first == 0 || second == 0) {
        throw XBadSettings(u"'" + text + u"' is no change, FORM.CONTROL.PROPERTY=VALUE");
    }
    return {text, path.SubString(1, first - 1), rest.SubString(1, second - 1),
            rest.SubString(second + 1, rest.Length()), text.SubString(equals + 1, text.Length())};
}

bool IsFor(const TChange& change, const TSettingsForm& form)
{
    return form.getName() == change.form;
}

void Make(const TChange& change, const TSettingsForm& form)
{
    Classes::TComponent* const control = form.FindComponent(change.control);
    if (control == nullptr) {
        throw XBadSettings(u"'" + change.text + u"': the form has no such control");
    }
    try {
        PROP::SetPropPathValueFromString(control, change.property, change.value);
    } catch (const Sysutils::Exception& fault) {
        throw XBadSettings(u"'" + change.text + u"': " + fault.getMessage());
    }
}

/// The changes, of which each must be for one of the forms.
std::vector<TChange> ReadChanges(const std::vector<UnicodeString>& texts, const CForms& forms)
{
    std::vector<TChange> changes;
    for (const UnicodeString& text : texts) {
        changes.push_back(ReadChange(text));
        if (std::ranges::none_of(forms, [&](const auto& form) { return IsFor(changes.back(), *form); })) {
            throw XBadSettings(u"'" + text + u"': there is no such form");
        }
    }
    return changes;
}

/// Shows the settings in the form, and lets its user change them.
void Use(TSettingsForm& form, BTL::AIni& settings, const std::vector<TChange>& changes)
{
    form.Load(settings);
    bool isChanged = false;
    for (const TChange& change : changes) {
        if (IsFor(change, form)) {
            Make(change, form);
            isChanged = true;
        }
    }
    if (isChanged) {
        form.Store(settings);
    }
}

} // namespace

void WriteForms(std::ostream& out, BTL::AIni& settings, const UnicodeString& language,
                const std::vector<UnicodeString>& changes)
{
    const CForms forms = MakeForms(language);
    const std::vector<TChange> made = ReadChanges(changes, forms);
    std::string text;
    for (const auto& form : forms) {
        CPlaces places(form.get());
        places.ReadAndApply();
        Use(*form, settings, made);
        places.Keep();
        text += Testing::CFormDriver(*form).Print();
    }
    settings.Save();
    out << text;
}

void WriteDesigns(std::ostream& out, const UnicodeString& language)
{
    for (const auto& form : MakeForms(language)) {
        Classes::TMemoryStream text;
        PASO::SaveComponentToStream(form.get(), &text, true);
        out << text.AsView();
    }
}

} // namespace Station
