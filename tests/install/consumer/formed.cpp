// SPDX-License-Identifier: MIT
#include <TRS8_BTL/platform/runtime/classes/Classes_Component.h>
#include <TRS8_BTL/platform/runtime/filer/Classes_FormResource.h>
#include <TRS8_BTL/platform/runtime/typinfo/System_ClassBuilder.h>

#include <iostream>

class TPanel : public Classes::TComponent
{
    TRS8_BTL_CLASS(TPanel, Classes::TComponent)

public:
    TPanel() { Classes::InitInheritedComponent(this, System::ClassOf<Classes::TComponent>()); }

    System::UnicodeString Caption;
};

System::TMetaClass* TPanel::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TPanel>(u"TPanel").Property(u"Caption", &TPanel::Caption).Build();
    return record;
}

int main()
{
    std::cout << TPanel().Caption << '\n';
}
