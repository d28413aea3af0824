// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"

#include <cstdint>

namespace Classes
{
class TStrings;
} // namespace Classes

namespace Registry
{

/// A tree of keys.
using HKEY = std::uint32_t;

/// The trees: what all programs register, the user's own, the machine's, all users'.
inline constexpr HKEY HKEY_CLASSES_ROOT = 0x80000000;
inline constexpr HKEY HKEY_CURRENT_USER = 0x80000001;
inline constexpr HKEY HKEY_LOCAL_MACHINE = 0x80000002;
inline constexpr HKEY HKEY_USERS = 0x80000003;

/// What a `TRegistry` may do: read, write, or both.
inline constexpr unsigned KEY_READ = 0x20019;
inline constexpr unsigned KEY_WRITE = 0x20006;
inline constexpr unsigned KEY_ALL_ACCESS = 0xF003F;

/// What is stored under a name.
enum TRegDataType
{
    rdUnknown,
    rdString,
    rdInteger,
    rdBinary
};

/// A value that isn't there or is of another type than asked for, or one that can't be written.
class TRS8_BTL_API ERegistryException : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~ERegistryException() override;
};

/// Named values in a tree of keys, in a text file: `TRS8_BTL/registry` in the folder of configuration of the
/// user (`XDG_CONFIG_HOME`, or else `~/.config`), or for the tree `HKEY_LOCAL_MACHINE` in one of the
/// machine's (the first of `XDG_CONFIG_DIRS`, or else of `/etc/xdg`, that has the file), which all users read
/// and only an administrator writes. Installers enter their programs there. What the host knows is read as if
/// it were written there: the serial ports under `HARDWARE\DEVICEMAP\SERIALCOMM` of the machine, and the
/// user's folders under the user's keys named `User Shell Folders`. Names are found without regard to case;
/// `\` parts the levels. Each change is on the disk when the call ends, and neither a crash nor another
/// process leaves half of one.
///
///     TRegistry registry;
///     if (registry.OpenKey(u"Software\\Station", true)) {
///         registry.WriteString(u"Title", u"Bench 3");
///         const int count = registry.ValueExists(u"Count") ? registry.ReadInteger(u"Count") : 0;
///     }
class TRS8_BTL_API TRegistry
{
public:
    /// Works in `HKEY_CURRENT_USER`, with all rights, and stands at its root.
    TRegistry();
    explicit TRegistry(unsigned access);
    TRegistry(const TRegistry&) = delete;
    TRegistry& operator=(const TRegistry&) = delete;
    ~TRegistry();

    HKEY getRootKey() const noexcept { return mRootKey; }
    /// Goes to the root of the tree.
    void setRootKey(HKEY root);
    unsigned getAccess() const noexcept { return mAccess; }
    void setAccess(unsigned access) noexcept { mAccess = access; }
    /// Without a `\` at its ends; empty at the root.
    const System::UnicodeString& getCurrentPath() const noexcept { return mPath; }

    /// Goes to a key, which counts from the current one unless it begins with `\`. False, and it stays where
    /// it was, if there is none and `canCreate` is false or it can't be made.
    bool OpenKey(const System::UnicodeString& key, bool canCreate);
    /// As `OpenKey` of an existing key, for reading alone from then on.
    bool OpenKeyReadOnly(const System::UnicodeString& key);
    /// Goes back to the root.
    void CloseKey();
    /// Whether there is the key, which counts as in `OpenKey`.
    bool KeyExists(const System::UnicodeString& key) const;
    /// True also for a key that there is already.
    bool CreateKey(const System::UnicodeString& key);
    /// Deletes the key and all below it; false if there is none, or for the root.
    bool DeleteKey(const System::UnicodeString& key);

    /// Whether the current key has the value.
    bool ValueExists(const System::UnicodeString& name) const;
    /// False if there is none.
    bool DeleteValue(const System::UnicodeString& name);
    /// The names of the values of the current key, in place of what `names` had.
    void GetValueNames(Classes::TStrings* names) const;
    /// The names of the keys right below the current one, in place of what `names` had.
    void GetKeyNames(Classes::TStrings* names) const;
    /// `rdUnknown` for what isn't there.
    TRegDataType GetDataType(const System::UnicodeString& name) const;
    /// In bytes, -1 for what isn't there; a text counts two for each character and its end.
    int GetDataSize(const System::UnicodeString& name) const;

    // Reading gives an empty text for one that isn't there; `ERegistryException` for other values that aren't
    // there, and for those of another type. Writing raises it if the value can't be stored.

    System::UnicodeString ReadString(const System::UnicodeString& name) const;
    void WriteString(const System::UnicodeString& name, const System::UnicodeString& value);
    int ReadInteger(const System::UnicodeString& name) const;
    void WriteInteger(const System::UnicodeString& name, int value);
    bool ReadBool(const System::UnicodeString& name) const;
    void WriteBool(const System::UnicodeString& name, bool value);
    double ReadFloat(const System::UnicodeString& name) const;
    void WriteFloat(const System::UnicodeString& name, double value);
    /// The count of bytes, at most `size`; `ERegistryException` if there are more.
    int ReadBinaryData(const System::UnicodeString& name, void* buffer, int size) const;
    void WriteBinaryData(const System::UnicodeString& name, const void* buffer, int size);

private:
    System::UnicodeString FullPath(const System::UnicodeString& key) const;

    HKEY mRootKey = HKEY_CURRENT_USER;
    unsigned mAccess = KEY_ALL_ACCESS;
    System::UnicodeString mPath;
};

} // namespace Registry
