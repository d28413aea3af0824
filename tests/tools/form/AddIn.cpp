// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_FormResource.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

namespace
{

/// Named as a class of the program.
class TShared : public Classes::TComponent
{
    TRS8_BTL_CLASS(TShared, Classes::TComponent)

public:
    TShared() { Classes::InitInheritedComponent(this, System::ClassOf<Classes::TComponent>()); }

    System::UnicodeString Caption;
};

System::TMetaClass* TShared::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TShared>(u"TShared").Property(u"Caption", &TShared::Caption).Build();
    return record;
}

} // namespace

extern "C" TRS8_BTL_API void CaptionInAddIn(System::UnicodeString& caption)
{
    caption = TShared().Caption;
}
