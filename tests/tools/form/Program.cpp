// SPDX-License-Identifier: MIT
#include "Panels.h"

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/filer/Classes_FormResource.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <iostream>

#include <dlfcn.h>

namespace
{

class TShared : public TPanel
{
    TRS8_BTL_CLASS(TShared, TPanel)

public:
    TShared() { Classes::InitInheritedComponent(this, System::ClassOf<TPanel>()); }

    TPanel* Inner = nullptr;
};

System::TMetaClass* TShared::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TShared>(u"TShared").Field(u"Inner", &TShared::Inner).Build();
    return record;
}

class TDerived : public TShared
{
    TRS8_BTL_CLASS(TDerived, TShared)

public:
    TDerived() { Classes::InitInheritedComponent(this, System::ClassOf<TShared>()); }
};

System::TMetaClass* TDerived::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TDerived>(u"TDerived").Build();
    return record;
}

int Faults = 0;

void Expect(const System::UnicodeString& value, const System::UnicodeString& expected)
{
    if (value != expected) {
        std::cerr << "'" << value << "' in place of '" << expected << "'\n";
        ++Faults;
    }
}

} // namespace

/// The classes of a program, its static library and its add-in find their forms, also after others of one
/// name came.
int main(int, char** arguments)
{
    Expect(TShared().Caption, u"program");
    Expect(TShared().Inner->Caption, u"5 \u00B5m");
    Expect(TDerived().Caption, u"derived");
    Expect(TDerived().Inner->Caption, u"changed");
    Expect(CaptionInLibrary(), u"library");

    void* const addIn = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
    if (addIn == nullptr) {
        std::cerr << dlerror() << '\n';
        return 1;
    }
    auto* const captionInAddIn =
        reinterpret_cast<void (*)(System::UnicodeString&)>(dlsym(addIn, "CaptionInAddIn"));
    System::UnicodeString caption;
    captionInAddIn(caption);
    Expect(caption, u"add-in");
    Expect(TShared().Caption, u"program");
    return Faults == 0 ? 0 : 1;
}
