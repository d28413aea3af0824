// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_AutoPtr.h"
#include "platform/runtime/typinfo/System_Object.h"
#include "properties/classes/BTL_Classes.h"

#include <map>

namespace BTL
{

/// A program or library with the classes of forms, frames and data modules that it brings. Its file name is
/// also the name of the set of its classes.
class TRS8_BTL_API CClassModule : public System::TObject, public UTL::AAutoObj
{
    TRS8_BTL_CLASS(CClassModule, System::TObject)

public:
    CClassModule(const System::UnicodeString& moduleName, const System::UnicodeString& modulePath)
        : mModulePath(modulePath), mClasses(moduleName)
    {
    }
    ~CClassModule() noexcept override;

    /// The file's name without its folder.
    const System::UnicodeString& getModuleName() const noexcept { return mClasses.getName(); }
    /// The full path of the file.
    const System::UnicodeString& getModulePath() const noexcept { return mModulePath; }
    /// The class of exactly this name; null if there is none.
    System::TMetaClass* FindClass(const System::UnicodeString& name) const
    {
        return mClasses.FindClass(name);
    }
    CClasses& getClasses() noexcept { return mClasses; }
    const CClasses& getClasses() const noexcept { return mClasses; }

private:
    System::UnicodeString mModulePath;
    CClasses mClasses;
};

/// The order of the names of modules: that of the user's language, without regard to case.
struct TRS8_BTL_API CClassModuleLess
{
    bool operator()(const System::UnicodeString& a, const System::UnicodeString& b) const;
};

/// Modules by their file names, each with its classes.
///
///     BTL::CClassModules modules;
///     modules.AddClass(System::ClassOf<TMainForm>(), true);
///     const BTL::CClassModule* const tools = modules.FindClassModule(u"tools.so");
class TRS8_BTL_API CClassModules
{
public:
    /// Adds a class to the module that declares it; null adds nothing. With `withParents` its parents follow,
    /// each to the module that declares it, up to the first that is `Forms::TForm` or `Classes::TDataModule`,
    /// which stays out. These modules are never unmapped from here on, so that the classes stay.
    void AddClass(System::TMetaClass* type, bool withParents);
    /// The module of this file name, case aside; null if there is none. It belongs to this object.
    CClassModule* FindClassModule(const System::UnicodeString& name) const;
    /// Clears `list` and adds a line for each module in order: its name, with the `CClassModule` as the
    /// line's object. Null does nothing.
    void GetClassModules(Classes::TStrings* list) const;
    /// Clears `list` and adds the classes of each module, as `CClasses::AddClassesTo` does. Null does
    /// nothing.
    void GetClasses(Classes::TStrings* list) const;

private:
    CClassModule& ModuleOf(const System::TMetaClass& type);

    std::map<System::UnicodeString, UTL::GAutoPtr<CClassModule>, CClassModuleLess> mModules;
};

// The program's register of the classes of forms, frames and data modules, by module. What is in it stays,
// with its module, until the program ends. It belongs to the main thread.
//
//     BTL::RegisterFormClass(System::ClassOf<TMainForm>());
//     Classes::TStringList modules;
//     BTL::GetClassModules(&modules);                             // "station", "tools.so"
//     System::TMetaClass* const type = BTL::FindClass(u"station", u"TMainForm");

/// Adds a class of forms and its parents below `Forms::TForm`, each to its module. Null, `Forms::TForm`
/// itself and a class that doesn't derive from it are ignored.
TRS8_BTL_API void RegisterFormClass(System::TMetaClass* type);
/// As `RegisterFormClass`, but for classes that derive from `Forms::TFrame`; all parents are added, those of
/// `Forms::TFrame` too.
TRS8_BTL_API void RegisterFrameClass(System::TMetaClass* type);
/// As `RegisterFormClass`, but for classes that derive from `Classes::TDataModule`, up to that one.
TRS8_BTL_API void RegisterDataModuleClass(System::TMetaClass* type);

/// The class of exactly the name `className` in the module of that file name, case aside; null if either
/// isn't known.
[[nodiscard]] TRS8_BTL_API System::TMetaClass* FindClass(const System::UnicodeString& moduleName,
                                                         const System::UnicodeString& className);
/// As `CClassModules::GetClassModules`, of the program's register.
TRS8_BTL_API void GetClassModules(Classes::TStrings* list);
/// Clears `list` and adds the classes of one module, as `CClasses::AddClassesTo` does; none if it isn't
/// known.
TRS8_BTL_API void GetClasses(const System::UnicodeString& moduleName, Classes::TStrings* list);
/// As `CClassModules::GetClasses`, of the program's register.
TRS8_BTL_API void GetClasses(Classes::TStrings* list);

} // namespace BTL
