// SPDX-License-Identifier: MIT
#include "progress/BTL_WaitForDataSplashDLG.h"

#include "languages/BTL_I18N_Texts.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"
#include "progress/BTL_HourGlassCursor.h"

// NOLINTNEXTLINE(bugprone-reserved-identifier)
constinit TWaitForDataSplashDLG* _WaitForDataSplashDLG = nullptr;

System::TMetaClass* TWaitForDataSplashDLG::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TWaitForDataSplashDLG>(u"TWaitForDataSplashDLG")
            .Field(u"fLabel", &TWaitForDataSplashDLG::fLabel)
            .Method(u"FormShow", &TWaitForDataSplashDLG::FormShow)
            .Method(u"FormHide", &TWaitForDataSplashDLG::FormHide)
            .Build();
    return record;
}

TWaitForDataSplashDLG::TWaitForDataSplashDLG(Classes::TComponent* owner)
    : TWaitForDataSplashDLG(owner, TextFor(true))
{
}

TWaitForDataSplashDLG::TWaitForDataSplashDLG(Classes::TComponent* owner, const System::UnicodeString& text)
    : TForm(owner)
{
    ReadDesign();
    fLabel->setCaption(text);
}

TWaitForDataSplashDLG::~TWaitForDataSplashDLG()
{
    // As long as the handler is there.
    Forms::Application->RunHandled([this] { Hide(); });
}

System::UnicodeString TWaitForDataSplashDLG::TextFor(bool isForReading)
{
    return BTL::Gi18n::GetString(isForReading ? BTL::EIDS::WaitForReading : BTL::EIDS::WaitForWriting);
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): published
void TWaitForDataSplashDLG::FormShow(System::TObject*)
{
    BTL::AHourGlassCursor::Disable();
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): published
void TWaitForDataSplashDLG::FormHide(System::TObject*)
{
    BTL::AHourGlassCursor::Enable();
}
