// SPDX-License-Identifier: MIT
#include "config/BTL_INI_Ini.h"

#include "config/BTL_INI_Texts.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_Flags.h"
#include "foundation/vectors/UTL_SV_DoubleVector.h"
#include "foundation/vectors/UTL_SV_Int64Vector.h"
#include "foundation/vectors/UTL_SV_IntVector.h"
#include "languages/boxes/Btl_messagebox.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/sysutils/System_Printf.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "platform/toolkit/MessageBox.h"
#include "text/bytes/BTL_BIN_BinaryData.h"
#include "text/bytes/BTL_CRYPT_Crypt.h"
#include "text/dates/BTL_DT_Reading.h"
#include "text/grammar/BTL_STR_Escape.h"
#include "text/lists/BTL_STR_StringPairs.h"
#include "text/lists/BTL_STR_StringsUpdate.h"
#include "text/numbers/BTL_NUM_Integers.h"
#include "text/numbers/BTL_NUM_SetDecimalSeparator.h"

#include <algorithm>
#include <vector>

namespace BTL
{

namespace
{

using Classes::TStringList;
using Classes::TStrings;
using System::AnsiString;
using System::TVarArgs;
using System::UnicodeString;

constexpr const System::WideChar* IdFormat = u"000000000";

constexpr UTL::CFaultPlace UnequalLists{"BTL_INI_Ini.cpp", 214};
constexpr UTL::CFaultPlace UnequalPairs{"BTL_INI_Ini.cpp", 226};

/// Calls `fill` between `BeginUpdate` and `EndUpdate` of the list.
template <class Fill>
void InUpdate(TStrings* list, Fill fill)
{
    if (list != nullptr) {
        const CStringsUpdate update(list);
        fill();
    }
}

UnicodeString InBrackets(const UnicodeString& text)
{
    return u'[' + text + u']';
}

UnicodeString WithoutBrackets(const UnicodeString& text)
{
    const auto view = text.AsView();
    const bool hasBoth = view.size() >= 2 && view.front() == u'[' && view.back() == u']';
    return hasBoth ? UnicodeString(view.substr(1, view.size() - 2)) : text;
}

/// Each byte of the UTF-8 form as a character of the code page.
UnicodeString WidenUtf8(const UnicodeString& text)
{
    return AnsiString(System::UTF8String(text).AsView());
}

UnicodeString NarrowUtf8(const UnicodeString& text)
{
    return System::UTF8String(AnsiString(text).AsView());
}

/// Each byte as the character of its code.
UnicodeString WidenBytes(const AnsiString& bytes)
{
    std::u16string text(bytes.AsView().size(), u'\0');
    std::transform(bytes.AsView().begin(), bytes.AsView().end(), text.begin(),
                   [](char byte) { return static_cast<char16_t>(static_cast<unsigned char>(byte)); });
    return UnicodeString(std::u16string_view(text));
}

/// The sections of a store with their lines "key=value".
struct TSectionLines
{
    UnicodeString section;
    std::vector<UnicodeString> lines;
};

void ReadLines(AIni& source, const UnicodeString& section, const UnicodeString& sourceSection,
               TStringList& lines)
{
    source.ReadSectionValues(sourceSection.IsEmpty() ? section : sourceSection, &lines);
}

std::vector<TSectionLines> ReadAll(AIni& source)
{
    std::vector<TSectionLines> result;
    TStringList sections;
    source.ReadSections(&sections);
    for (const UnicodeString& section : sections) {
        TStringList lines;
        source.ReadSectionValues(section, &lines);
        result.push_back({section, std::vector<UnicodeString>(lines.begin(), lines.end())});
    }
    return result;
}

} // namespace

AIni::AIni() noexcept = default;

AIni::AIni(AIniImp* store) noexcept : mStore(store) {}

AIni::~AIni() = default;

AIniImp& AIni::Store() const
{
    if (mStore == nullptr) {
        throw Sysutils::Exception(u"The ini object has no store.");
    }
    return *mStore;
}

void AIni::SetImp(AIniImp* store) noexcept
{
    if (store != mStore.get()) {
        mStore = System::GOwner<AIniImp>(store);
    }
}

void AIni::Init(const UnicodeString& section, const UnicodeString& file, const UnicodeString& path)
{
    setSection(section);
    setFile(path + file);
}

void AIni::Load()
{
    Store().Load();
    DoLoad();
}

void AIni::LoadAnsi()
{
    Store().LoadAnsi();
    DoLoad();
}

void AIni::Save()
{
    DoSave();
    Store().Save();
}

void AIni::Flush()
{
    Store().Flush();
}

void AIni::Begin()
{
    Store().Begin();
}

void AIni::End()
{
    Store().End();
}

void AIni::OnError()
{
    Store().OnError();
}

void AIni::Clear()
{
    Store().Clear();
}

void AIni::DoLoad() {}

void AIni::DoSave() {}

void AIni::setFile(const UnicodeString& file)
{
    Store().SetFile(file);
}

void AIni::setSection(const UnicodeString& section)
{
    Store().SetSection(section);
}

void AIni::setUserId(System::Int64 userId)
{
    Store().SetUserId(userId);
}

UnicodeString AIni::getFile() const
{
    return getPath() + getFileName();
}

UnicodeString AIni::getPath() const
{
    return Store().getPath();
}

UnicodeString AIni::getFileName() const
{
    return Store().getFileName();
}

UnicodeString AIni::getSection() const
{
    return Store().getSection();
}

System::Int64 AIni::getUserId() const
{
    return Store().getUserId();
}

bool AIni::FileReadOnly() const
{
    return Store().FileReadOnly();
}

bool AIni::FileExists() const
{
    return Store().FileExists();
}

bool AIni::SectionExists(const UnicodeString& section) const
{
    return Store().SectionExists(section);
}

bool AIni::KeyExists(const UnicodeString& section, const UnicodeString& key) const
{
    return Store().KeyExists(section, key);
}

bool AIni::KeyExists(const UnicodeString& key) const
{
    return Store().KeyExists2(key);
}

bool AIni::ShowReadOnlyWarinig()
{
    const bool isReadOnly = FileReadOnly();
    if (isReadOnly) {
        MessageBox1_VA(GetIniText(EIniText::ReadOnly), MB_ICONWARNING, getFile());
    }
    return isReadOnly;
}

void AIni::ReadSections(TStrings* sections)
{
    InUpdate(sections, [&] { Store().ReadSections(sections); });
}

void AIni::ReadKeys(TStrings* keys)
{
    ReadKeys(getSection(), keys);
}

void AIni::ReadKeys(const UnicodeString& section, TStrings* keys)
{
    InUpdate(keys, [&] { Store().ReadKeys(section, keys); });
}

void AIni::ReadValues(const UnicodeString& section, TStrings* values)
{
    InUpdate(values, [&] { Store().ReadValues(section, values); });
}

void AIni::ReadSectionValues(const UnicodeString& section, TStrings* lines)
{
    InUpdate(lines, [&] { Store().ReadSectionValues(section, lines); });
}

void AIni::ReadSectionValues(const UnicodeString& section, TStrings* keys, TStrings* values)
{
    InUpdate(keys, [&] { InUpdate(values, [&] { Store().ReadSectionValues2(section, keys, values); }); });
    if (keys != nullptr && values != nullptr && keys->getCount() != values->getCount()) {
        UTL::THROW_XAssert(UnequalLists);
    }
}

void AIni::ReadSectionValues(const UnicodeString& section, CStringPairs& pairs)
{
    TStringList keys;
    TStringList values;
    Store().ReadSectionValues2(section, &keys, &values);
    if (keys.getCount() != values.getCount()) {
        UTL::THROW_XAssert(UnequalPairs);
        return;
    }
    pairs.Clear();
    pairs.Add(&keys, &values);
}

void AIni::WriteSectionValues(const UnicodeString& section, TStrings* lines)
{
    InUpdate(lines, [&] { Store().WriteSectionValues(section, lines); });
}

void AIni::WriteSectionValues(const UnicodeString& section, const CStringPairs& pairs)
{
    TStringList lines;
    pairs.GetPairs(&lines);
    Store().WriteSectionValues(section, &lines);
}

void AIni::WriteSectionValues(const UnicodeString& section, AIni* source, const UnicodeString& sourceSection)
{
    if (source != nullptr) {
        TStringList lines;
        ReadLines(*source, section, sourceSection, lines);
        Store().WriteSectionValues(section, &lines);
    }
}

void AIni::WriteMissingSectionValues(const UnicodeString& section, TStrings* lines)
{
    InUpdate(lines, [&] { Store().WriteMissingSectionValues(section, lines); });
}

void AIni::WriteMissingSectionValues(const UnicodeString& section, AIni* source,
                                     const UnicodeString& sourceSection)
{
    if (source != nullptr) {
        TStringList lines;
        ReadLines(*source, section, sourceSection, lines);
        Store().WriteMissingSectionValues(section, &lines);
    }
}

void AIni::SetSectionValues(const UnicodeString& section, TStrings* lines)
{
    Store().InOneStep([&] {
        EraseSection(section);
        WriteSectionValues(section, lines);
    });
}

void AIni::SetSectionValues(const UnicodeString& section, const CStringPairs& pairs)
{
    Store().InOneStep([&] {
        EraseSection(section);
        WriteSectionValues(section, pairs);
    });
}

void AIni::SetSectionValues(const UnicodeString& section, AIni* source, const UnicodeString& sourceSection)
{
    if (source != nullptr) {
        TStringList lines;
        ReadLines(*source, section, sourceSection, lines);
        SetSectionValues(section, &lines);
    }
}

void AIni::WriteValues(AIni* source)
{
    if (source == nullptr) {
        return;
    }
    TStringList sections;
    source->ReadSections(&sections);
    Store().InOneStep([&] {
        for (const UnicodeString& section : sections) {
            WriteSectionValues(section, source, {});
        }
    });
}

void AIni::WriteMissingValues(AIni* source)
{
    if (source == nullptr) {
        return;
    }
    TStringList sections;
    source->ReadSections(&sections);
    Store().InOneStep([&] {
        for (const UnicodeString& section : sections) {
            WriteMissingSectionValues(section, source, {});
        }
    });
}

void AIni::SetValues(AIni* source)
{
    if (source == nullptr) {
        return;
    }
    // Both may lie in one file.
    const auto all = ReadAll(*source);
    Store().InOneStep([&] {
        Clear();
        for (const TSectionLines& one : all) {
            TStringList lines;
            lines.AddStrings(one.lines);
            Store().WriteSectionValues(one.section, &lines);
        }
    });
}

void AIni::EraseSection(const UnicodeString& section)
{
    Store().EraseSection(section);
}

void AIni::DeleteSection()
{
    EraseSection(getSection());
}

void AIni::DeleteKey(const UnicodeString& key)
{
    Store().DeleteKey(key);
}

bool AIni::ReadBool(const UnicodeString& key, bool defaultValue)
{
    return Store().ReadBool(key, defaultValue);
}

bool AIni::ReadBool(const UnicodeString& key, const UnicodeString& trueText, const UnicodeString& falseText,
                    bool defaultValue)
{
    const UnicodeString text = Sysutils::AnsiUpperCase(Store().ReadString(key, {}));
    if (text.IsEmpty()) {
        return defaultValue;
    }
    if (text == Sysutils::AnsiUpperCase(trueText)) {
        return true;
    }
    return text == Sysutils::AnsiUpperCase(falseText) ? false : defaultValue;
}

void AIni::WriteBool(const UnicodeString& key, bool value)
{
    Store().WriteBool(key, value);
}

void AIni::WriteBool(const UnicodeString& key, bool value, const UnicodeString& trueText,
                     const UnicodeString& falseText)
{
    WriteString(key, value ? trueText : falseText);
}

char AIni::ReadChar(const UnicodeString& key, char defaultValue)
{
    return Store().ReadChar(key, defaultValue);
}

void AIni::WriteChar(const UnicodeString& key, char value)
{
    Store().WriteChar(key, value);
}

int AIni::ReadInt(const UnicodeString& key, int defaultValue)
{
    return Store().ReadInteger(key, defaultValue);
}

int AIni::ReadInteger(const UnicodeString& key, int defaultValue)
{
    return Store().ReadInteger(key, defaultValue);
}

int AIni::ReadHex(const UnicodeString& key, int defaultValue)
{
    int value = defaultValue;
    return HexToInt(Store().ReadString(key, {}), value) ? value : defaultValue;
}

void AIni::WriteInt(const UnicodeString& key, int value)
{
    Store().WriteInteger(key, value);
}

void AIni::WriteInteger(const UnicodeString& key, int value)
{
    Store().WriteInteger(key, value);
}

System::Int64 AIni::ReadInt64(const UnicodeString& key, System::Int64 defaultValue)
{
    return Store().ReadInt64(key, defaultValue);
}

void AIni::WriteInt64(const UnicodeString& key, System::Int64 value)
{
    Store().WriteInt64(key, value);
}

double AIni::ReadFloat(const UnicodeString& key, double defaultValue)
{
    const CSetDecimalSeparator separator('.');
    return Store().ReadFloat(key, defaultValue);
}

void AIni::WriteFloat(const UnicodeString& key, double value)
{
    const CSetDecimalSeparator separator('.');
    Store().WriteFloat(key, value);
}

UnicodeString AIni::ReadString(const UnicodeString& key, const UnicodeString& defaultValue)
{
    return Store().ReadString(key, defaultValue);
}

UnicodeString AIni::ReadString(const char* key, const UnicodeString& defaultValue)
{
    const UnicodeString text = Store().ReadString(key, defaultValue);
    return text.IsEmpty() ? defaultValue : text;
}

UnicodeString AIni::ReadString(const char* key, const char* defaultValue)
{
    return Store().ReadString(key, defaultValue);
}

void AIni::WriteString(const UnicodeString& key, const UnicodeString& value)
{
    Store().WriteString(key, value);
}

UnicodeString AIni::ReadStringEx(const UnicodeString& key, const UnicodeString& defaultValue)
{
    return ReadCommaText(key, defaultValue);
}

void AIni::WriteStringEx(const UnicodeString& key, const UnicodeString& value)
{
    WriteCommaText(key, value);
}

UnicodeString AIni::ReadEscSeqString(const UnicodeString& key, const UnicodeString& defaultValue)
{
    return ApplyEscapeSequences(Store().ReadString(key, defaultValue));
}

void AIni::WriteEscSeqString(const UnicodeString& key, const UnicodeString& value)
{
    WriteString(key, InsertEscapeSequences(value));
}

UnicodeString AIni::ReadCryptString(const UnicodeString& key, const UnicodeString& defaultValue)
{
    const UnicodeString text = Store().ReadString(key, {});
    return text.IsEmpty() ? defaultValue : Decrypt(text);
}

void AIni::WriteCryptString(const UnicodeString& key, const UnicodeString& value)
{
    WriteString(key, Encrypt(value));
}

UnicodeString AIni::ReadCommaText(const UnicodeString& key, const UnicodeString& defaultValue)
{
    return WithoutBrackets(Store().ReadString(key, defaultValue));
}

void AIni::WriteCommaText(const UnicodeString& key, const UnicodeString& value)
{
    WriteString(key, InBrackets(value));
}

UnicodeString AIni::ReadUTF8String(const UnicodeString& key, const UnicodeString& defaultValue)
{
    return NarrowUtf8(Store().ReadString(WidenUtf8(key), WidenUtf8(defaultValue)));
}

void AIni::WriteUTF8String(const UnicodeString& key, const UnicodeString& value)
{
    WriteString(WidenUtf8(key), WidenUtf8(value));
}

template <class Values>
void AIni::ReadCommaTextOf(const UnicodeString& key, Values& values)
{
    values.setCommaText(ReadCommaText(key, {}));
}

void AIni::ReadStrings(const UnicodeString& key, TStrings* strings)
{
    InUpdate(strings, [&] { ReadCommaTextOf(key, *strings); });
}

void AIni::WriteStrings(const UnicodeString& key, TStrings* strings)
{
    WriteCommaText(key, strings == nullptr ? UnicodeString() : strings->getCommaText());
}

void AIni::ReadFlags(const UnicodeString& key, UTL::CFlags& flags)
{
    ReadCommaTextOf(key, flags);
}

void AIni::WriteFlags(const UnicodeString& key, const UTL::CFlags& flags)
{
    WriteCommaText(key, flags.getCommaText());
}

void AIni::ReadBools(const UnicodeString& key, bool* values, int count, bool defaultValue)
{
    UTL::CIntVector stored;
    ReadCommaTextOf(key, stored);
    for (int i = 0; values != nullptr && i < count; ++i) {
        values[i] = stored.AtOrDef(i, defaultValue ? 1 : 0) != 0;
    }
}

void AIni::WriteBools(const UnicodeString& key, const bool* values, int count)
{
    UnicodeString text;
    for (int i = 0; values != nullptr && i < count; ++i) {
        text += i > 0 ? u"," : u"";
        text += values[i] ? u"1" : u"0";
    }
    WriteCommaText(key, text);
}

void AIni::ReadInts(const UnicodeString& key, UTL::CIntVector& values)
{
    ReadCommaTextOf(key, values);
}

void AIni::ReadInts(const UnicodeString& key, UTL::CInt64Vector& values)
{
    ReadCommaTextOf(key, values);
}

void AIni::WriteInts(const UnicodeString& key, const UTL::CIntVector& values)
{
    WriteCommaText(key, values.getCommaText());
}

void AIni::WriteInts(const UnicodeString& key, const UTL::CInt64Vector& values)
{
    WriteCommaText(key, values.getCommaText());
}

void AIni::ReadDoubles(const UnicodeString& key, UTL::CDoubleVector& values)
{
    ReadCommaTextOf(key, values);
}

void AIni::WriteDoubles(const UnicodeString& key, const UTL::CDoubleVector& values)
{
    WriteCommaText(key, values.getCommaText());
}

AnsiString AIni::ReadBinaryData(const UnicodeString& key)
{
    return Store().ReadBinaryData(key);
}

int AIni::ReadBinaryData(const UnicodeString& key, void* buffer, int size)
{
    return Store().ReadBinaryData(key, buffer, size);
}

void AIni::WriteBinaryData(const UnicodeString& key, const AnsiString& bytes)
{
    Store().WriteBinaryData(key, bytes.c_str(), bytes.Length());
}

void AIni::WriteBinaryData(const UnicodeString& key, const void* data, int size)
{
    Store().WriteBinaryData(key, data, size);
}

AnsiString AIni::ReadData(const UnicodeString& key, const AnsiString& defaultValue)
{
    return StringToBinaryData(ReadCommaText(key, WidenBytes(defaultValue)));
}

void AIni::WriteData(const UnicodeString& key, const AnsiString& bytes)
{
    WriteCommaText(key, BinaryDataToStringW(bytes));
}

System::TDateTime AIni::ReadSqlDateTime(const UnicodeString& key)
{
    const UnicodeString text = Store().ReadString(key, {});
    return text.IsEmpty() ? System::TDateTime() : StrToDateTime(text, u"yyyy-mm-dd hh:nn:ss.ccc");
}

UnicodeString AIni::ReadIDString(int id, const UnicodeString& defaultValue)
{
    return ReadEscSeqString(FormatInt(UnicodeString(IdFormat), id), defaultValue);
}

UnicodeString AIni::ReadString_V(const UnicodeString& key, TVarArgs arguments)
{
    return System::Printf(ReadEscSeqString(key, {}), arguments);
}

UnicodeString AIni::ReadIDString_V(int id, TVarArgs arguments)
{
    return System::Printf(ReadIDString(id, {}), arguments);
}

CSetIniSection::CSetIniSection(AIni* ini, const UnicodeString& section)
    : mIni(ini), mFormer(ini->getSection())
{
    if (!section.IsEmpty()) {
        mIni->setSection(section);
    }
}

CSetIniSection::~CSetIniSection()
{
    try {
        mIni->setSection(mFormer);
    } catch (...) { // NOLINT(bugprone-empty-catch): a store that takes no section now has none to go back to
    }
}

} // namespace BTL
