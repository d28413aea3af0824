// SPDX-License-Identifier: MIT
#include "platform/runtime/registry/Registry.h"

#include "platform/host/Host_Error.h"
#include "platform/host/registry/internal/Host_RegistryStore.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/registry/internal/Registry_HostValues.h"

#include <cstring>
#include <string>
#include <utility>

namespace Registry
{

namespace
{

using Host::RegistryPart;
using Host::RegistryText;
using Host::RegistryValue;
using System::UnicodeString;

constexpr unsigned WriteRights = 0x00006;

UnicodeString RootName(HKEY root)
{
    switch (root) {
    case HKEY_CLASSES_ROOT:
        return u"HKEY_CLASSES_ROOT";
    case HKEY_LOCAL_MACHINE:
        return u"HKEY_LOCAL_MACHINE";
    case HKEY_USERS:
        return u"HKEY_USERS";
    default:
        return u"HKEY_CURRENT_USER";
    }
}

RegistryPart PartOf(HKEY root)
{
    return root == HKEY_LOCAL_MACHINE ? RegistryPart::Machine : RegistryPart::User;
}

/// The file with what the host knows at `path`.
RegistryText Load(HKEY root, const UnicodeString& path)
{
    RegistryText registry = Host::LoadRegistry(PartOf(root));
    AddHostValues(path, registry);
    return registry;
}

[[noreturn]] void RefuseValue(const UnicodeString& name, const UnicodeString& reason)
{
    throw ERegistryException(u"The value '" + name + u"' of the registry " + reason);
}

template <class T>
T ReadAs(HKEY root, const UnicodeString& path, const UnicodeString& name)
{
    const RegistryText registry = Load(root, path);
    const RegistryValue* const value = registry.Find(path, name);
    if (value == nullptr) {
        RefuseValue(name, u"isn't there.");
    }
    const T* const wanted = std::get_if<T>(value);
    if (wanted == nullptr) {
        RefuseValue(name, u"is of another type.");
    }
    return *wanted;
}

bool Change(HKEY root, unsigned access, const std::function<bool(RegistryText&)>& change)
{
    if ((access & WriteRights) == 0) {
        return Host::Fail(ERROR_ACCESS_DENIED);
    }
    return Host::ChangeRegistry(PartOf(root), change);
}

void Write(HKEY root, unsigned access, const UnicodeString& path, const UnicodeString& name,
           RegistryValue value)
{
    const bool isDone = Change(root, access, [&](RegistryText& registry) {
        registry.Set(path, name, std::move(value));
        return true;
    });
    if (!isDone) {
        RefuseValue(name, u"can't be written (" + UnicodeString(::GetLastError()) + u").");
    }
}

} // namespace

ERegistryException::~ERegistryException() = default;

TRegistry::TRegistry() = default;
TRegistry::TRegistry(unsigned access) : mAccess(access) {}
TRegistry::~TRegistry() = default;

void TRegistry::setRootKey(HKEY root)
{
    mRootKey = root;
    mPath = {};
}

/// With the name of the tree in front.
UnicodeString TRegistry::FullPath(const UnicodeString& key) const
{
    const bool isAbsolute = key.AsView().starts_with(u'\\');
    return Host::RegistryPath(RootName(mRootKey) + u'\\' + (isAbsolute ? UnicodeString() : mPath) + u'\\' +
                              key);
}

bool TRegistry::OpenKey(const UnicodeString& key, bool canCreate)
{
    if (!KeyExists(key) && !(canCreate && CreateKey(key))) {
        return false;
    }
    mPath = Host::RegistryPath(key.AsView().starts_with(u'\\') ? key : mPath + u'\\' + key);
    return true;
}

bool TRegistry::OpenKeyReadOnly(const UnicodeString& key)
{
    if (!OpenKey(key, false)) {
        return false;
    }
    mAccess = KEY_READ;
    return true;
}

void TRegistry::CloseKey()
{
    mPath = {};
}

bool TRegistry::KeyExists(const UnicodeString& key) const
{
    const UnicodeString path = FullPath(key);
    return path == RootName(mRootKey) || Load(mRootKey, path).HasKey(path);
}

bool TRegistry::CreateKey(const UnicodeString& key)
{
    const UnicodeString path = FullPath(key);
    return Change(mRootKey, mAccess, [&](RegistryText& registry) {
        registry.MakeKey(path);
        return true;
    });
}

bool TRegistry::DeleteKey(const UnicodeString& key)
{
    const UnicodeString path = FullPath(key);
    if (path == RootName(mRootKey)) {
        return Host::Fail(ERROR_ACCESS_DENIED);
    }
    bool isThere = false;
    const bool isDone = Change(mRootKey, mAccess, [&](RegistryText& registry) {
        isThere = registry.DeleteKey(path);
        return isThere;
    });
    return isDone && (isThere || Host::Fail(ERROR_FILE_NOT_FOUND));
}

bool TRegistry::ValueExists(const UnicodeString& name) const
{
    const UnicodeString path = FullPath({});
    return Load(mRootKey, path).Find(path, name) != nullptr;
}

bool TRegistry::DeleteValue(const UnicodeString& name)
{
    const UnicodeString path = FullPath({});
    bool isThere = false;
    const bool isDone = Change(mRootKey, mAccess, [&](RegistryText& registry) {
        isThere = registry.Delete(path, name);
        return isThere;
    });
    return isDone && (isThere || Host::Fail(ERROR_FILE_NOT_FOUND));
}

void TRegistry::GetValueNames(Classes::TStrings* names) const
{
    if (names == nullptr) {
        return;
    }
    names->Clear();
    const UnicodeString path = FullPath({});
    const RegistryText registry = Load(mRootKey, path);
    const RegistryText::Key* const key = registry.FindKey(path);
    if (key == nullptr) {
        return;
    }
    for (const auto& [folded, entry] : key->entries) {
        names->Add(entry.name);
    }
}

void TRegistry::GetKeyNames(Classes::TStrings* names) const
{
    if (names == nullptr) {
        return;
    }
    names->Clear();
    const UnicodeString path = FullPath({});
    for (const UnicodeString& name : Load(mRootKey, path).KeysBelow(path)) {
        names->Add(name);
    }
}

TRegDataType TRegistry::GetDataType(const UnicodeString& name) const
{
    const UnicodeString path = FullPath({});
    const RegistryText registry = Load(mRootKey, path);
    const RegistryValue* const value = registry.Find(path, name);
    if (value == nullptr) {
        return rdUnknown;
    }
    constexpr TRegDataType types[] = {rdString, rdInteger, rdBinary};
    return types[value->index()];
}

int TRegistry::GetDataSize(const UnicodeString& name) const
{
    const UnicodeString path = FullPath({});
    const RegistryText registry = Load(mRootKey, path);
    const RegistryValue* const value = registry.Find(path, name);
    if (value == nullptr) {
        return -1;
    }
    if (const auto* const text = std::get_if<UnicodeString>(value)) {
        return (text->Length() + 1) * 2;
    }
    const auto* const bytes = std::get_if<std::string>(value);
    return bytes == nullptr ? 4 : static_cast<int>(bytes->size());
}

UnicodeString TRegistry::ReadString(const UnicodeString& name) const
{
    return ValueExists(name) ? ReadAs<UnicodeString>(mRootKey, FullPath({}), name) : UnicodeString();
}

void TRegistry::WriteString(const UnicodeString& name, const UnicodeString& value)
{
    Write(mRootKey, mAccess, FullPath({}), name, value);
}

int TRegistry::ReadInteger(const UnicodeString& name) const
{
    return static_cast<int>(ReadAs<std::uint32_t>(mRootKey, FullPath({}), name));
}

void TRegistry::WriteInteger(const UnicodeString& name, int value)
{
    Write(mRootKey, mAccess, FullPath({}), name, static_cast<std::uint32_t>(value));
}

bool TRegistry::ReadBool(const UnicodeString& name) const
{
    return ReadInteger(name) != 0;
}

void TRegistry::WriteBool(const UnicodeString& name, bool value)
{
    WriteInteger(name, value ? 1 : 0);
}

double TRegistry::ReadFloat(const UnicodeString& name) const
{
    double value = 0;
    if (ReadBinaryData(name, &value, sizeof value) != sizeof value) {
        RefuseValue(name, u"is of another type.");
    }
    return value;
}

void TRegistry::WriteFloat(const UnicodeString& name, double value)
{
    WriteBinaryData(name, &value, sizeof value);
}

int TRegistry::ReadBinaryData(const UnicodeString& name, void* buffer, int size) const
{
    const auto bytes = ReadAs<std::string>(mRootKey, FullPath({}), name);
    if (size < 0 || bytes.size() > static_cast<std::size_t>(size)) {
        RefuseValue(name, u"is larger than the buffer.");
    }
    if (!bytes.empty()) {
        std::memcpy(buffer, bytes.data(), bytes.size());
    }
    return static_cast<int>(bytes.size());
}

void TRegistry::WriteBinaryData(const UnicodeString& name, const void* buffer, int size)
{
    const auto count = size < 0 || buffer == nullptr ? 0 : static_cast<std::size_t>(size);
    Write(mRootKey, mAccess, FullPath({}), name,
          std::string(count == 0 ? "" : static_cast<const char*>(buffer), count));
}

} // namespace Registry
