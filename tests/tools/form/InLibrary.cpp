// SPDX-License-Identifier: MIT
#include "Panels.h"

#include "platform/runtime/filer/Classes_FormResource.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

namespace
{

class TInLibrary : public TPanel
{
    TRS8_BTL_CLASS(TInLibrary, TPanel)

public:
    TInLibrary() { Classes::InitInheritedComponent(this, System::ClassOf<TPanel>()); }
};

System::TMetaClass* TInLibrary::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TInLibrary>(u"TInLibrary").Build();
    return record;
}

} // namespace

System::TMetaClass* TPanel::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TPanel>(u"TPanel").Property(u"Caption", &TPanel::Caption).Build();
    return record;
}

System::UnicodeString CaptionInLibrary()
{
    return TInLibrary().Caption;
}
