// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ClassRegister.h"

#include "platform/runtime/typinfo/System_MetaClass.h"

#include <mutex>
#include <unordered_map>

namespace Classes
{

using System::TMetaClass;
using System::UnicodeString;

namespace
{

struct TClassRegister
{
    std::mutex mutex;
    /// By names in small letters.
    std::unordered_map<UnicodeString, TMetaClass*> classes;
};

/// Never destroyed: a module that ends late may still ask.
TClassRegister& Register()
{
    static auto* const instance = new TClassRegister;
    return *instance;
}

} // namespace

TMetaClass* (*FindOwnClass)(const UnicodeString& name) = nullptr;

void RegisterClass(TMetaClass* type)
{
    if (type == nullptr) {
        return;
    }
    const std::scoped_lock lock(Register().mutex);
    const auto [entry, added] = Register().classes.try_emplace(type->getName().LowerCase(), type);
    if (!added && entry->second != type) {
        throw EFilerError(u"A class named " + type->getName() + u" already exists");
    }
}

void UnRegisterClass(TMetaClass* type)
{
    const std::scoped_lock lock(Register().mutex);
    std::erase_if(Register().classes, [type](const auto& entry) { return entry.second == type; });
}

TMetaClass* GetClass(const UnicodeString& name)
{
    const UnicodeString key = name.LowerCase();
    {
        const std::scoped_lock lock(Register().mutex);
        const auto found = Register().classes.find(key);
        if (found != Register().classes.end()) {
            return found->second;
        }
    }
    return FindOwnClass == nullptr ? nullptr : FindOwnClass(key);
}

TMetaClass* FindClass(const UnicodeString& name)
{
    TMetaClass* type = GetClass(name);
    if (type == nullptr) {
        throw EClassNotFound(u"Class " + name + u" not found");
    }
    return type;
}

} // namespace Classes
