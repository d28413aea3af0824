// SPDX-License-Identifier: MIT
#include "platform/host/profile/Host_Profile.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_Folder.h"
#include "platform/host/Host_SpecialFolder.h"
#include "platform/host/profile/internal/Host_ProfileImage.h"

#include <algorithm>
#include <climits>

using System::AnsiString;
using System::LongWord;
using System::UnicodeString;

namespace
{

template <class Char>
std::optional<UnicodeString> OptionalText(const Char* text)
{
    return text == nullptr ? std::nullopt : std::optional<UnicodeString>(text);
}

template <class Char>
UnicodeString FileOrSystemProfile(const Char* file)
{
    return file == nullptr ? Host::SystemProfile() : UnicodeString(file);
}

/// The text in the width of a caller.
template <class Char>
auto InWidth(const UnicodeString& text)
{
    if constexpr (std::is_same_v<Char, char>) {
        return AnsiString(text);
    } else {
        return text;
    }
}

template <class Char>
unsigned long CopyText(std::basic_string_view<Char> text, Char* buffer, LongWord size)
{
    const std::size_t count = std::min<std::size_t>(text.size(), size - 1);
    *std::copy_n(text.begin(), count, buffer) = 0;
    return count;
}

template <class Char>
unsigned long CopyList(const std::vector<UnicodeString>& names, Char* buffer, LongWord size)
{
    std::basic_string<Char> list;
    for (const UnicodeString& name : names) {
        // An empty name would be taken for the end of the list.
        if (!name.IsEmpty()) {
            list.append(InWidth<Char>(name).c_str()) += Char();
        }
    }
    if (list.size() < size) {
        return CopyText<Char>(list, buffer, size);
    }
    if (size < 2) {
        *buffer = 0;
        return 0;
    }
    *std::copy_n(list.begin(), size - 2, buffer) = 0;
    buffer[size - 1] = 0;
    return size - 2;
}

template <class Char>
unsigned long GetText(const Char* section, const Char* key, const Char* fallback, Char* buffer, LongWord size,
                      const UnicodeString& file)
{
    if (buffer == nullptr || size == 0) {
        return 0;
    }
    if (section == nullptr) {
        return CopyList(Host::ListProfileSections(file), buffer, size);
    }
    if (key == nullptr) {
        return CopyList(Host::ListProfileKeys(file, UnicodeString(section)), buffer, size);
    }
    const auto value = Host::ReadProfileValue(file, UnicodeString(section), UnicodeString(key));
    if (!value) {
        return CopyText(System::Detail::SafeView(fallback), buffer, size);
    }
    return CopyText(InWidth<Char>(*value).AsView(), buffer, size);
}

int NumberOf(std::u16string_view text, int fallback)
{
    text = System::Detail::WithoutBlanksInFront(text);
    const bool isNegative = text.starts_with(u'-');
    if (isNegative || text.starts_with(u'+')) {
        text.remove_prefix(1);
    }
    const auto end = std::find_if_not(text.begin(), text.end(), System::Detail::IsAsciiDigit<char16_t>);
    if (end == text.begin()) {
        return fallback;
    }
    std::int64_t number = 0;
    std::for_each(text.begin(), end, [&](char16_t digit) {
        number = std::min<std::int64_t>(number * 10 + (digit - u'0'), std::int64_t{INT_MAX} + 1);
    });
    return static_cast<int>(isNegative ? -number : std::min<std::int64_t>(number, INT_MAX));
}

template <class Char>
int GetNumber(const Char* section, const Char* key, int fallback, const UnicodeString& file)
{
    if (section == nullptr || key == nullptr) {
        return fallback;
    }
    return Host::ReadProfileNumber(file, UnicodeString(section), UnicodeString(key), fallback);
}

bool Write(const Host::ProfileChange& change, const UnicodeString& file)
{
    if (!Host::IsStorable(change)) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    const auto image = Host::FindImage(file);
    return image && image->Write(change);
}

template <class Char>
bool WriteText(const Char* section, const Char* key, const Char* value, const UnicodeString& file)
{
    if (section == nullptr) {
        return (key == nullptr && value == nullptr) || Host::Fail(ERROR_INVALID_PARAMETER);
    }
    const auto keyText = OptionalText(key);
    return Write({section, keyText, keyText ? OptionalText(value) : std::nullopt}, file);
}

template <class Char>
bool WriteSystemText(const Char* section, const Char* key, const Char* value)
{
    // One that is there already fails, as does one that can't be made; the write then tells.
    CreateDirectoryW(Host::SpecialFolder(Host::UserSettingsFolder));
    return WriteText(section, key, value, Host::SystemProfile());
}

} // namespace

unsigned long GetPrivateProfileStringW(const System::WideChar* section, const System::WideChar* key,
                                       const System::WideChar* fallback, System::WideChar* buffer,
                                       LongWord size, const System::WideChar* file)
{
    return GetText(section, key, fallback, buffer, size, FileOrSystemProfile(file));
}

unsigned long GetPrivateProfileStringA(const char* section, const char* key, const char* fallback,
                                       char* buffer, LongWord size, const char* file)
{
    return GetText(section, key, fallback, buffer, size, FileOrSystemProfile(file));
}

int GetPrivateProfileIntW(const System::WideChar* section, const System::WideChar* key, int fallback,
                          const System::WideChar* file)
{
    return GetNumber(section, key, fallback, FileOrSystemProfile(file));
}

int GetPrivateProfileIntA(const char* section, const char* key, int fallback, const char* file)
{
    return GetNumber(section, key, fallback, FileOrSystemProfile(file));
}

bool WritePrivateProfileStringW(const System::WideChar* section, const System::WideChar* key,
                                const System::WideChar* value, const System::WideChar* file)
{
    return file == nullptr ? WriteSystemText(section, key, value) : WriteText(section, key, value, file);
}

bool WritePrivateProfileStringA(const char* section, const char* key, const char* value, const char* file)
{
    return file == nullptr ? WriteSystemText(section, key, value) : WriteText(section, key, value, file);
}

unsigned long GetProfileStringW(const System::WideChar* section, const System::WideChar* key,
                                const System::WideChar* fallback, System::WideChar* buffer, LongWord size)
{
    return GetPrivateProfileStringW(section, key, fallback, buffer, size, nullptr);
}

unsigned long GetProfileStringA(const char* section, const char* key, const char* fallback, char* buffer,
                                LongWord size)
{
    return GetPrivateProfileStringA(section, key, fallback, buffer, size, nullptr);
}

int GetProfileIntW(const System::WideChar* section, const System::WideChar* key, int fallback)
{
    return GetPrivateProfileIntW(section, key, fallback, nullptr);
}

int GetProfileIntA(const char* section, const char* key, int fallback)
{
    return GetPrivateProfileIntA(section, key, fallback, nullptr);
}

bool WriteProfileStringW(const System::WideChar* section, const System::WideChar* key,
                         const System::WideChar* value)
{
    return WritePrivateProfileStringW(section, key, value, nullptr);
}

bool WriteProfileStringA(const char* section, const char* key, const char* value)
{
    return WritePrivateProfileStringA(section, key, value, nullptr);
}

namespace Host
{

UnicodeString SystemProfile()
{
    return SpecialFolder(UserSettingsFolder) + u"\\win.ini";
}

std::optional<UnicodeString> ReadProfileValue(const UnicodeString& file, std::u16string_view section,
                                              std::u16string_view key)
{
    const auto image = FindImage(file);
    return image ? image->Use([&](const ProfileText& text) { return text.Find(section, key); })
                 : std::nullopt;
}

int ReadProfileNumber(const UnicodeString& file, std::u16string_view section, std::u16string_view key,
                      int fallback)
{
    const auto image = FindImage(file);
    return image ? image->Use([&](const ProfileText& text) {
        const auto value = text.FindView(section, key);
        return value ? NumberOf(*value, fallback) : fallback;
    })
                 : fallback;
}

std::vector<ProfileEntry> ReadProfileSection(const UnicodeString& file, std::u16string_view section)
{
    std::vector<ProfileEntry> entries;
    if (const auto image = FindImage(file)) {
        image->Use([&](const ProfileText& text) {
            text.ForEachEntry(section, [&](std::u16string_view key, std::u16string_view value) {
                entries.push_back({text.Shown(key), text.ShownValue(value)});
            });
        });
    }
    return entries;
}

std::vector<UnicodeString> ListProfileSections(const UnicodeString& file)
{
    const auto image = FindImage(file);
    return image ? image->Use([](const ProfileText& text) { return text.ListSections(); })
                 : std::vector<UnicodeString>();
}

std::vector<UnicodeString> ListProfileKeys(const UnicodeString& file, std::u16string_view section)
{
    std::vector<UnicodeString> keys;
    if (const auto image = FindImage(file)) {
        image->Use([&](const ProfileText& text) {
            text.ForEachEntry(section, [&](std::u16string_view key, std::u16string_view) {
                keys.push_back(text.Shown(key));
            });
        });
    }
    return keys;
}

bool WriteProfileValue(const UnicodeString& file, std::u16string_view section, std::u16string_view key,
                       std::u16string_view value)
{
    return Write({section, UnicodeString(key), UnicodeString(value)}, file);
}

bool DeleteProfileKey(const UnicodeString& file, std::u16string_view section, std::u16string_view key)
{
    return Write({section, UnicodeString(key), std::nullopt}, file);
}

bool DeleteProfileSection(const UnicodeString& file, std::u16string_view section)
{
    return Write({section, std::nullopt, std::nullopt}, file);
}

struct ProfileBundle::State
{
    std::shared_ptr<ProfileImage> image;
};

ProfileBundle::ProfileBundle(const UnicodeString& file)
{
    if (auto image = BeginBundle(file)) {
        mState = std::make_unique<State>(State{std::move(image)});
    }
}

ProfileBundle::~ProfileBundle()
{
    if (mState && !End()) {
        mState->image->GiveUpBundle();
        BundleEnded(mState->image);
    }
}

bool ProfileBundle::End()
{
    if (!mState) {
        return true;
    }
    if (!mState->image->EndBundle()) {
        return false;
    }
    BundleEnded(mState->image);
    mState.reset();
    return true;
}

} // namespace Host
