// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <map>

namespace Classes
{
class TStrings;
} // namespace Classes

namespace System
{
class TMetaClass;
class TObject;
} // namespace System

namespace BTL
{

/// Classes by name, in the exact order of the names' characters, so that case matters. The classes aren't
/// owned.
///
///     BTL::CClasses gauges(u"gauges");
///     gauges.Add(System::ClassOf<TDialGauge>(), true);            // its parents too, up to the form's
///     System::TMetaClass* const type = gauges.FindClass(u"TDialGauge");
class TRS8_BTL_API CClasses
{
public:
    CClasses() = default;
    /// `name` tells what the set is, such as the module that the classes come from.
    explicit CClasses(const System::UnicodeString& name) : mName(name) {}

    /// Empty unless the set was made with a name.
    const System::UnicodeString& getName() const noexcept { return mName; }
    /// How many classes there are.
    int getCount() const noexcept { return static_cast<int>(mClasses.size()); }

    /// Adds a class in place of one of the same name; null adds nothing. With `withParents` its parents
    /// follow in the same way, the nearest first, up to the first that is `Forms::TForm` or
    /// `Classes::TDataModule`, which stays out.
    void Add(System::TMetaClass* type, bool withParents);
    /// The class of exactly this name; null if there is none.
    System::TMetaClass* FindClass(const System::UnicodeString& name) const;
    /// Clears `list` and fills it as `AddClassesTo` does; null does nothing.
    void GetClasses(Classes::TStrings* list) const;
    /// Adds a line for each class in order: its name, with the class as the line's object. Null does nothing.
    void AddClassesTo(Classes::TStrings* list) const;
    /// Whether `type` could be added without replacing another class of its name; true for null.
    bool CheckClass(System::TMetaClass* type) const;

private:
    System::UnicodeString mName;
    std::map<System::UnicodeString, System::TMetaClass*> mClasses;
};

/// Adds `type` to the program's register of component classes, which readers of form resources ask. A class
/// of the same name is replaced, null is ignored. The class stays known until the program ends, so its module
/// is never unmapped.
TRS8_BTL_API void RegisterComponentClass(System::TMetaClass* type);
/// The component class that was registered under exactly this name; null if there is none.
[[nodiscard]] TRS8_BTL_API System::TMetaClass* GetComponentClass(const System::UnicodeString& name);

/// Clears `list` and adds a line with the name and the class of `type` and of its parents, the nearest first,
/// up to the first that is `Forms::TForm` or `Classes::TDataModule`, which stays out.
TRS8_BTL_API void GetClasses(System::TMetaClass* type, Classes::TStrings* list);
/// Whether `type` or one of its parents has exactly this name; false for null.
[[nodiscard]] TRS8_BTL_API bool InheritsFrom(System::TMetaClass* type, const System::UnicodeString& name);
/// Whether the class of `object` is `type` or derives from it; false for null.
[[nodiscard]] TRS8_BTL_API bool InheritsFrom(System::TObject* object, System::TMetaClass* type);

} // namespace BTL
