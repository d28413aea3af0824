// SPDX-License-Identifier: MIT
#include "config/WIN_GIniFile.h"

#include "environment/folders/BTL_ENV_Folders.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_I18N_Texts.h"
#include "languages/boxes/Btl_messagebox.h"
#include "os/WIN_LastError.h"
#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/host/Host_Error.h"
#include "platform/host/profile/Host_Profile.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/toolkit/MessageBox.h"
#include "text/grammar/BTL_STR_Escape.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <locale>
#include <sstream>
#include <vector>

namespace WIN
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

namespace
{

/// With the zero at the end.
constexpr unsigned BufferSize = 32768;

constexpr UTL::CFaultPlace NoExtension(EIniEngine engine)
{
    switch (engine) {
    case EIniEngine::Ansi:
        return {"WIN_IniFileA", 62};
    case EIniEngine::Wide:
        return {"WIN_IniFileW", 62};
    case EIniEngine::Wide2:
        break;
    }
    return {"WIN_IniFileW2", 62};
}

// The platform's calls by the width of their texts.

unsigned Get(const WideChar* section, const WideChar* key, const WideChar* fallback, WideChar* buffer,
             unsigned size, const WideChar* file)
{
    return static_cast<unsigned>(GetPrivateProfileStringW(section, key, fallback, buffer, size, file));
}

unsigned Get(const char* section, const char* key, const char* fallback, char* buffer, unsigned size,
             const char* file)
{
    return static_cast<unsigned>(GetPrivateProfileStringA(section, key, fallback, buffer, size, file));
}

int GetNumber(const WideChar* section, const WideChar* key, int fallback, const WideChar* file)
{
    return GetPrivateProfileIntW(section, key, fallback, file);
}

int GetNumber(const char* section, const char* key, int fallback, const char* file)
{
    return GetPrivateProfileIntA(section, key, fallback, file);
}

bool Put(const WideChar* section, const WideChar* key, const WideChar* value, const WideChar* file)
{
    return WritePrivateProfileStringW(section, key, value, file);
}

bool Put(const char* section, const char* key, const char* value, const char* file)
{
    return WritePrivateProfileStringA(section, key, value, file);
}

/// The bytes of UTF-8 as 8-bit text of the engine's width.
template <class Text>
Text AsUtf8(const UnicodeString& text)
{
    return AnsiString(std::string_view(System::ToUtf8(text)));
}

/// One character for one, so that the counts of both widths are alike.
void Convert(char c, WideChar& out)
{
    out = UnicodeString(c).c_str()[0];
}

void Convert(WideChar c, char& out)
{
    out = AnsiString(UnicodeString(c)).c_str()[0];
}

/// Calls `list(buffer, size)` with a buffer of the one width and hands its result to one of the other.
template <class Char, class Other, class List>
unsigned ConvertList(Other* buffer, unsigned size, List list)
{
    // As large as the list needs: `size` is the caller's, who may give any.
    std::vector<Char> own(std::min(size, 4096U));
    unsigned count = list(own.data(), static_cast<unsigned>(own.size()));
    while (count + 2 >= own.size() && own.size() < size) {
        own.resize(std::min<std::size_t>(size, own.size() * 2));
        count = list(own.data(), static_cast<unsigned>(own.size()));
    }
    if (buffer == nullptr || size == 0) {
        return count;
    }
    for (unsigned i = 0; i < count; ++i) {
        Convert(own[i], buffer[i]);
    }
    // A list that was cut ends with two zeros.
    std::fill(buffer + count, buffer + std::min(size, count + 2 == size ? size : count + 1), Other());
    return count;
}

std::string FloatText(float value)
{
    std::array<char, 32> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 6);
    return {text.data(), end.ptr};
}

float FloatOf(const AnsiString& text, float defaultValue)
{
    std::istringstream stream{std::string(text.AsView())};
    stream.imbue(std::locale::classic());
    float value = 0;
    return stream >> value ? value : defaultValue;
}

/// The platform's calls would take the front for the whole text.
template <class Text>
bool HasZero(const Text& text)
{
    return text.AsView().find(typename Text::CharType()) != Text::View::npos;
}

/// Never destroyed: the destructors of a program's global objects may still bind files.
template <class Text, EIniEngine Engine>
Text& Path()
{
    static auto* const path = new Text;
    return *path;
}

} // namespace

template <EIniEngine Engine>
GIniFile<Engine>::GIniFile(const TText& section) : mSection(section)
{
}

template <EIniEngine Engine>
GIniFile<Engine>::GIniFile(const TText& section, const TText& file)
{
    Init(section, file);
}

template <EIniEngine Engine>
GIniFile<Engine>::GIniFile(const TText& section, const TText& file, const TText& path)
{
    Init(section, file, path);
}

template <EIniEngine Engine>
GIniFile<Engine>::GIniFile(int, const TText& file, const TText& section) : mSection(section), mFile(file)
{
}

template <EIniEngine Engine>
void GIniFile<Engine>::Init(const TText& section)
{
    Clear();
    mSection = section;
}

template <EIniEngine Engine>
void GIniFile<Engine>::Init(const TText& section, const TText& file)
{
    const UnicodeString& name = file;
    if (!name.IsEmpty() && Sysutils::ExtractFileExt(name).IsEmpty()) {
        UTL::THROW_XAssert(NoExtension(Engine));
    }
    Clear();
    mSection = section;
    if (!name.IsEmpty()) {
        mFile = Sysutils::ExtractFilePath(name).IsEmpty() ? Path<TText, Engine>() + file : file;
    }
}

template <EIniEngine Engine>
void GIniFile<Engine>::Init(const TText& section, const TText& file, const TText& path)
{
    Clear();
    mSection = section;
    mFile = path + file;
}

template <EIniEngine Engine>
void GIniFile<Engine>::Clear()
{
    mSection = {};
    mFile = {};
}

template <EIniEngine Engine>
void GIniFile<Engine>::SetSection(const TText& section)
{
    mSection = section;
}

template <EIniEngine Engine>
void GIniFile<Engine>::SetPath(const TText& path)
{
    Path<TText, Engine>() = path;
}

template <EIniEngine Engine>
bool GIniFile<Engine>::FileExists() const
{
    return Sysutils::FileExists(mFile);
}

template <EIniEngine Engine>
bool GIniFile<Engine>::FileReadOnly()
{
    return BTL::FileReadOnly(mFile);
}

template <EIniEngine Engine>
bool GIniFile<Engine>::ShowReadOnlyWarinig()
{
    if (!FileReadOnly()) {
        return false;
    }
    BTL::MessageBox1_VA(UTL::Ci18n::GetString(UTL::EXStrings::IniFileReadOnly), MB_ICONWARNING,
                        UnicodeString(mFile));
    return true;
}

template <EIniEngine Engine>
int GIniFile<Engine>::PrepareWrite()
{
    if (!FileReadOnly()) {
        return 0;
    }
    const int attributes = Sysutils::FileGetAttr(mFile);
    const int result = Sysutils::FileSetAttr(mFile, attributes & ~Sysutils::faReadOnly);
    if (result == 0) {
        Flush();
    }
    return result;
}

template <EIniEngine Engine>
void GIniFile<Engine>::Flush()
{
    const TChar* const nothing = nullptr;
    if (FileText() != nullptr) {
        Put(nothing, nothing, nothing, FileText());
    }
}

template <EIniEngine Engine>
int GIniFile<Engine>::DiscardCache()
{
    // Any other file made the platform turn from the bound one.
    return FileText() != nullptr ? GetPrivateProfileIntW(u"s", u"k", 0, u"file")
                                 : static_cast<int>(WriteProfileStringW(nullptr, nullptr, nullptr));
}

template <EIniEngine Engine>
unsigned GIniFile<Engine>::ReadSections(TChar* buffer, unsigned size) const
{
    const TChar* const nothing = nullptr;
    return Get(nothing, nothing, nothing, buffer, size, FileText());
}

template <EIniEngine Engine>
unsigned GIniFile<Engine>::ReadSections(TOtherChar* buffer, unsigned size) const
{
    return ConvertList<TChar>(buffer, size,
                              [this](TChar* own, unsigned ownSize) { return ReadSections(own, ownSize); });
}

template <EIniEngine Engine>
unsigned GIniFile<Engine>::ReadKeys(TChar* buffer, unsigned size) const
{
    const TChar* const nothing = nullptr;
    return Get(SectionText(), nothing, nothing, buffer, size, FileText());
}

template <EIniEngine Engine>
unsigned GIniFile<Engine>::ReadKeys(TOtherChar* buffer, unsigned size) const
{
    return ConvertList<TChar>(buffer, size,
                              [this](TChar* own, unsigned ownSize) { return ReadKeys(own, ownSize); });
}

template <EIniEngine Engine>
unsigned GIniFile<Engine>::ReadStringBuf(const TText& key, TChar* buffer, unsigned size,
                                         const TChar* defaultText) const
{
    return Get(SectionText(), key.c_str(), defaultText, buffer, size, FileText());
}

template <EIniEngine Engine>
unsigned GIniFile<Engine>::ReadStringBuf(const AnsiString& key, TOtherChar* buffer, unsigned size,
                                         const TOtherChar* defaultText) const
{
    const TText fallback(defaultText);
    return ConvertList<TChar>(buffer, size, [&](TChar* own, unsigned ownSize) {
        return ReadStringBuf(TText(key), own, ownSize, fallback.c_str());
    });
}

template <EIniEngine Engine>
typename GIniFile<Engine>::TText GIniFile<Engine>::ReadText(const TText& key, const TChar* defaultText) const
{
    std::array<TChar, BufferSize> buffer;
    const unsigned count = ReadStringBuf(key, buffer.data(), BufferSize, defaultText);
    return TText(buffer.data(), static_cast<int>(count));
}

template <EIniEngine Engine>
bool GIniFile<Engine>::ReadStringBuf(const TText& key, TText& out, const TText& defaultText) const
{
    out = ReadText(key, defaultText.c_str());
    return !out.IsEmpty();
}

template <EIniEngine Engine>
typename GIniFile<Engine>::TText GIniFile<Engine>::ReadString(const TText& key, const TText& defaultText)
{
    return ReadText(key, defaultText.c_str());
}

template <EIniEngine Engine>
AnsiString GIniFile<Engine>::ReadAnsiString(const AnsiString& key, const char* defaultText) const
{
    return ReadText(TText(key), TText(defaultText).c_str());
}

template <EIniEngine Engine>
UnicodeString GIniFile<Engine>::ReadUnicodeString(const UnicodeString& key, const WideChar* defaultText) const
{
    return ReadText(TText(key), TText(defaultText).c_str());
}

template <EIniEngine Engine>
UTL::CString GIniFile<Engine>::ReadSTDString(const AnsiString& key, const char* defaultText) const
{
    return UTL::CString(ReadAnsiString(key, defaultText));
}

template <EIniEngine Engine>
int GIniFile<Engine>::ReadInt(const TText& key, int defaultValue) const
{
    return GetNumber(SectionText(), key.c_str(), defaultValue, FileText());
}

template <EIniEngine Engine>
System::Int64 GIniFile<Engine>::ReadInt64(const TText& key, System::Int64 defaultValue) const
{
    return Sysutils::StrToInt64Def(ReadText(key, nullptr), defaultValue);
}

template <EIniEngine Engine>
float GIniFile<Engine>::ReadFloat(const TText& key, float defaultValue) const
{
    const AnsiString text = ReadText(key, nullptr);
    if (text == "+oo") {
        return std::numeric_limits<float>::max();
    }
    if (text == "-oo") {
        return std::numeric_limits<float>::min();
    }
    return FloatOf(text, defaultValue);
}

template <EIniEngine Engine>
bool GIniFile<Engine>::ReadBool(const TText& key, bool defaultValue) const
{
    return ReadBool(key, "TRUE", "FALSE", defaultValue);
}

template <EIniEngine Engine>
bool GIniFile<Engine>::ReadBool(const TText& key, const TText& trueText, const TText& falseText,
                                bool defaultValue) const
{
    const TText text = ReadText(key, nullptr);
    if (text.IsEmpty()) {
        return defaultValue;
    }
    const UnicodeString word = Sysutils::AnsiUpperCase(text);
    if (word == Sysutils::AnsiUpperCase(trueText)) {
        return true;
    }
    return word == Sysutils::AnsiUpperCase(falseText) ? false : defaultValue;
}

template <EIniEngine Engine>
typename GIniFile<Engine>::TText GIniFile<Engine>::ReadEscSeqString(const TText& key,
                                                                    const TChar* defaultText) const
{
    return BTL::ApplyEscapeSequences(ReadText(key, defaultText));
}

template <EIniEngine Engine>
typename GIniFile<Engine>::TText GIniFile<Engine>::ReadCommaText(const TText& key,
                                                                 const TText& defaultText) const
{
    TText text;
    ReadCommaText(key, text, defaultText);
    return text;
}

template <EIniEngine Engine>
bool GIniFile<Engine>::ReadCommaText(const TText& key, TText& out, const TText& defaultText) const
{
    out = ReadText(key, nullptr);
    if (out.IsEmpty()) {
        out = defaultText;
        return false;
    }
    const auto text = out.AsView();
    if (text.size() >= 2 && text.front() == '[' && text.back() == ']') {
        out = TText(text.substr(1, text.size() - 2));
    }
    return true;
}

template <EIniEngine Engine>
typename GIniFile<Engine>::TText GIniFile<Engine>::ReadUTF8String(const TText& key,
                                                                  const UnicodeString& defaultText) const
{
    const AnsiString bytes = ReadText(AsUtf8<TText>(key), AsUtf8<TText>(defaultText).c_str());
    return System::FromUtf8(bytes.AsView());
}

template <EIniEngine Engine>
bool GIniFile<Engine>::Store(const TText& key, const TText& value)
{
    if (HasZero(mSection) || HasZero(key) || HasZero(value)) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    return Put(SectionText(), key.c_str(), value.c_str(), FileText());
}

template <EIniEngine Engine>
bool GIniFile<Engine>::WriteString(const TText& key, const TText& value)
{
    const bool isStored = Store(key, value);
    if (!isStored) {
        ThrowLastError();
    }
    return isStored;
}

template <EIniEngine Engine>
bool GIniFile<Engine>::WriteSTDString(const TText& key, const UTL::CString& value)
{
    return WriteString(key, AnsiString(value));
}

template <EIniEngine Engine>
bool GIniFile<Engine>::WriteInt(const TText& key, int value)
{
    return WriteInt64(key, value);
}

template <EIniEngine Engine>
bool GIniFile<Engine>::WriteInt64(const TText& key, System::Int64 value)
{
    return WriteString(key, Sysutils::IntToStr(value));
}

template <EIniEngine Engine>
bool GIniFile<Engine>::WriteFloat(const TText& key, float value)
{
    return WriteString(key, FloatText(value).c_str());
}

template <EIniEngine Engine>
bool GIniFile<Engine>::WriteBool(const TText& key, bool value)
{
    return WriteBool(key, value, "TRUE", "FALSE");
}

template <EIniEngine Engine>
bool GIniFile<Engine>::WriteBool(const TText& key, bool value, const TText& trueText, const TText& falseText)
{
    return WriteString(key, value ? trueText : falseText);
}

template <EIniEngine Engine>
bool GIniFile<Engine>::WriteEscSeqString(const TText& key, const TText& value)
{
    return WriteString(key, BTL::InsertEscapeSequences(value));
}

template <EIniEngine Engine>
bool GIniFile<Engine>::WriteCommaText(const TText& key, const TText& value)
{
    return WriteString(key, TText("[") + value + TText("]"));
}

template <EIniEngine Engine>
bool GIniFile<Engine>::WriteUTF8String(const TText& key, const TText& value)
{
    const auto keyBytes = AsUtf8<TText>(key);
    const auto valueBytes = AsUtf8<TText>(value);
    return Engine == EIniEngine::Ansi ? WriteString(keyBytes, valueBytes) : Store(keyBytes, valueBytes);
}

template <EIniEngine Engine>
bool GIniFile<Engine>::DeleteKey(const TText& key)
{
    if (HasZero(mSection) || HasZero(key)) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    const TChar* const nothing = nullptr;
    return Put(SectionText(), key.c_str(), nothing, FileText());
}

template <EIniEngine Engine>
bool GIniFile<Engine>::DeleteSection()
{
    if (HasZero(mSection)) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    const TChar* const nothing = nullptr;
    return Put(SectionText(), nothing, nothing, FileText());
}

template class GIniFile<EIniEngine::Ansi>;
template class GIniFile<EIniEngine::Wide>;
template class GIniFile<EIniEngine::Wide2>;

} // namespace WIN
