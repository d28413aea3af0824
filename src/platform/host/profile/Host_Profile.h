// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <memory>
#include <optional>
#include <vector>

// Profile files: `[section]` and below it lines `key=value`; lines that begin with `;` are comments. Names of
// sections and keys are compared without regard to case, blanks around them don't count. A key that stands
// twice in a section, or in two sections of one name, has the first of its values.
//
// A value is read without the blanks around it and without one pair of enclosing quotes, `"` or `'`, unless
// such a quote stands between them: `"a","b"` keeps its quotes, `""a""` is `"a"`. It is written in quotes
// where that is needed to read it back as it was.
//
// A file is in code page 1252 unless it begins with the mark of UTF-8 or of UTF-16, and stays so. A text that
// the code page lacks turns the file into UTF-8 at that write. A new file has CR LF behind each line, any
// other keeps its line ends. What a write doesn't concern stays byte for byte.
//
// A write is on the disk when the call returns, and all of it: the file is replaced in one step, under a lock
// against other writers, and keeps its owner, mode and access list. Links are followed. All calls may be made
// by any thread.
//
// Each call asks the host whether the file is what it was, so that it sees what other programs did: what they
// wrote into the file, put in its place or deleted, and where they made a link lead. Only a folder along the
// path that was moved away for another one, or mounted over, may show as late as 20 ms after that. The file
// that is read often, no other one, is held open for its state, until it is written, another profile file is
// used or it is read again after a pause; that locks out nobody, but its file system can't be unmounted.
//
//     WritePrivateProfileStringW(u"Run", u"Channels", u"4", u"station.ini");
//     const int count = GetPrivateProfileIntW(u"Run", u"Channels", 1, u"station.ini");
//     const auto title = Host::ReadProfileValue(u"station.ini", u"Run", u"Title").value_or(u"none");

/// Copies the value, or `fallback` if there is none, to `buffer`, which has room for `size` characters with
/// the zero behind the text; what doesn't fit is cut off. Gives the count of characters without that zero.
/// Null for `key` asks for the names of all keys of the section, null for `section` for those of all
/// sections: each name ends with a zero and the list with a second one; a list that doesn't fit is cut and
/// ends with two zeros, and the count is `size` - 2. Null for `file` is the user's own profile,
/// `Host::SystemProfile`. A file that can't be read counts as empty; a null `buffer` or a `size` of 0 gives
/// 0, a null `fallback` is the empty text.
TRS8_BTL_API unsigned long GetPrivateProfileStringW(const System::WideChar* section,
                                                    const System::WideChar* key,
                                                    const System::WideChar* fallback,
                                                    System::WideChar* buffer, System::LongWord size,
                                                    const System::WideChar* file);
/// As `GetPrivateProfileStringW`, but of text in the 8-bit code page; what that lacks is read as `?`.
TRS8_BTL_API unsigned long GetPrivateProfileStringA(const char* section, const char* key,
                                                    const char* fallback, char* buffer, System::LongWord size,
                                                    const char* file);

/// The number at the begin of the value: blanks, a sign and digits, the rest is passed over. `fallback` if
/// the value is missing or has no digit there. A number beyond the range of `int` gives the nearest end of
/// that.
TRS8_BTL_API int GetPrivateProfileIntW(const System::WideChar* section, const System::WideChar* key,
                                       int fallback, const System::WideChar* file);
/// As `GetPrivateProfileIntW`, but with names in the 8-bit code page.
TRS8_BTL_API int GetPrivateProfileIntA(const char* section, const char* key, int fallback, const char* file);

/// Stores the value: in the line of the key, in a new line at the end of the section, or in a new section at
/// the end of the file, which is made if it is missing. A null `value` deletes the key, a null `key` the
/// section with its comments; what isn't there needs no deletion and is no failure. Nulls for all three do
/// nothing and succeed: there is nothing to flush. False with the last error, and the file as it was, on a
/// failure. 87 for what could not be read back or would become another line: an empty name, a null `section`
/// with a key, a line break or a zero in any text, a lone surrogate, a key that begins with `;` or `[` or
/// holds `=`, a section that holds `]`. 5 for a file with the read-only attribute, for a folder, and where
/// the file can't keep its owner; 33 if another writer holds the lock for 5 seconds. An existing file that
/// can't be read is kept beside under the name with `.unreadable1` (or the next free number) behind it.
TRS8_BTL_API bool WritePrivateProfileStringW(const System::WideChar* section, const System::WideChar* key,
                                             const System::WideChar* value, const System::WideChar* file);
/// As `WritePrivateProfileStringW`, but of text in the 8-bit code page.
TRS8_BTL_API bool WritePrivateProfileStringA(const char* section, const char* key, const char* value,
                                             const char* file);

/// `GetPrivateProfileStringW` on the user's own profile.
TRS8_BTL_API unsigned long GetProfileStringW(const System::WideChar* section, const System::WideChar* key,
                                             const System::WideChar* fallback, System::WideChar* buffer,
                                             System::LongWord size);
/// `GetPrivateProfileStringA` on the user's own profile.
TRS8_BTL_API unsigned long GetProfileStringA(const char* section, const char* key, const char* fallback,
                                             char* buffer, System::LongWord size);
/// `GetPrivateProfileIntW` on the user's own profile.
TRS8_BTL_API int GetProfileIntW(const System::WideChar* section, const System::WideChar* key, int fallback);
/// `GetPrivateProfileIntA` on the user's own profile.
TRS8_BTL_API int GetProfileIntA(const char* section, const char* key, int fallback);
/// `WritePrivateProfileStringW` on the user's own profile, whose folder is made if it is missing.
TRS8_BTL_API bool WriteProfileStringW(const System::WideChar* section, const System::WideChar* key,
                                      const System::WideChar* value);
/// `WritePrivateProfileStringA` on the user's own profile, whose folder is made if it is missing.
TRS8_BTL_API bool WriteProfileStringA(const char* section, const char* key, const char* value);

namespace Host
{

/// The user's own profile: `win.ini` in the folder of the user's configuration (`XDG_CONFIG_HOME`, else
/// `.config` in the home folder).
[[nodiscard]] TRS8_BTL_API System::UnicodeString SystemProfile();

/// The value as `GetPrivateProfileStringW` reads it, but of any length; none if the key isn't there or the
/// file can't be read.
[[nodiscard]] TRS8_BTL_API std::optional<System::UnicodeString>
ReadProfileValue(const System::UnicodeString& file, std::u16string_view section, std::u16string_view key);

/// The number at the begin of the value, as `GetPrivateProfileIntW` reads it; `fallback` if there is none.
[[nodiscard]] TRS8_BTL_API int ReadProfileNumber(const System::UnicodeString& file,
                                                 std::u16string_view section, std::u16string_view key,
                                                 int fallback);

/// A key of a profile file with its value.
struct ProfileEntry
{
    System::UnicodeString key;
    System::UnicodeString value;
};

/// All keys of a section with their values, in the order of the file; empty if there are none.
[[nodiscard]] TRS8_BTL_API std::vector<ProfileEntry> ReadProfileSection(const System::UnicodeString& file,
                                                                        std::u16string_view section);

/// The names of all sections, each once, in the order of the file.
[[nodiscard]] TRS8_BTL_API std::vector<System::UnicodeString>
ListProfileSections(const System::UnicodeString& file);

/// The names of all keys of a section, each once, in the order of the file.
[[nodiscard]] TRS8_BTL_API std::vector<System::UnicodeString>
ListProfileKeys(const System::UnicodeString& file, std::u16string_view section);

/// As `WritePrivateProfileStringW`, but of texts that may hold zeros, which it refuses with 87 instead of
/// cutting them there.
[[nodiscard]] TRS8_BTL_API bool WriteProfileValue(const System::UnicodeString& file,
                                                  std::u16string_view section, std::u16string_view key,
                                                  std::u16string_view value);

/// As `WritePrivateProfileStringW` with a null value or key, but of names that may hold zeros, which no key
/// and no section has; those functions would delete what is named by the front of such a name.
[[nodiscard]] TRS8_BTL_API bool DeleteProfileKey(const System::UnicodeString& file,
                                                 std::u16string_view section, std::u16string_view key);
[[nodiscard]] TRS8_BTL_API bool DeleteProfileSection(const System::UnicodeString& file,
                                                     std::u16string_view section);

/// Bundles what the process writes to one file: it can be read in the process at once, and is on the disk at
/// the end of the bundle, in one step, beside what other processes wrote meanwhile. Bundles of one file may
/// be nested or run side by side in several threads; all is on the disk at the end of the last one.
///
///     Host::ProfileBundle bundle(u"station.ini");
///     for (const Channel& channel : channels) {
///         Store(channel);
///     }
///     if (!bundle.End()) {
///         WIN::ThrowLastError();
///     }
class TRS8_BTL_API ProfileBundle
{
public:
    /// Begins; reads and writes nothing yet.
    explicit ProfileBundle(const System::UnicodeString& file);
    ProfileBundle(const ProfileBundle&) = delete;
    ProfileBundle& operator=(const ProfileBundle&) = delete;
    /// As `End`, but nobody hears of a failure: what was written is lost then.
    ~ProfileBundle();

    /// Brings what was written to the disk and ends the bundle. False with the last error, as of a single
    /// write, on a failure: the file is as it was, the bundle goes on, and `End` may be called again. An
    /// ended bundle gives true.
    [[nodiscard]] bool End();

private:
    struct State;
    std::unique_ptr<State> mState;
};

} // namespace Host
