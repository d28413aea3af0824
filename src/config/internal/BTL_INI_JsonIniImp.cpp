// SPDX-License-Identifier: MIT
#include "config/internal/BTL_INI_JsonIniImp.h"

#include "config/internal/BTL_INI_Unwritable.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/Sysutils_StrictEncoding.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileMove.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "streams/BTL_STRM_SafeFile.h"
#include "streams/BTL_STRM_StreamUtilities.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <utility>

#include <json/reader.h>
#include <json/writer.h>

namespace BTL::Detail
{

using Classes::TStrings;
using System::Int64;
using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoFile{"BTL_INI_JsonIni.cpp", 118};

std::string KeyOf(const UnicodeString& text)
{
    return System::ToUtf8(text);
}

const Json::Value* FindMember(const Json::Value* object, const UnicodeString& name)
{
    if (object == nullptr) {
        return nullptr;
    }
    const std::string key = KeyOf(name);
    return object->find(key.data(), key.data() + key.size());
}

bool IsLevel(const Json::Value& value)
{
    return value.isObject() || value.isNull();
}

/// What keeps the value from being a level of so many more; empty for nothing.
std::string FaultOfLevel(const Json::Value& value, const std::string& name, int levelsBelow)
{
    if (!IsLevel(value)) {
        return "* " + name + " is neither an object nor null\n";
    }
    if (levelsBelow == 0) {
        return {};
    }
    for (auto member = value.begin(); member != value.end(); ++member) {
        std::string fault = FaultOfLevel(*member, name + " / \"" + member.name() + '"', levelsBelow - 1);
        if (!fault.empty()) {
            return fault;
        }
    }
    return {};
}

/// Names that are no UTF-8 would become alike, and one be lost with the next save.
std::string FaultOfEncoding(std::string_view bytes)
{
    UnicodeString text;
    int place = 0;
    return Sysutils::TryDecode(System::CP_UTF8, bytes, text, &place)
               ? std::string()
               : "* Byte " + std::to_string(place) + " is no UTF-8\n";
}

/// What is wrong with the document; empty for one in UTF-8 that has the three levels.
std::string Parse(std::string_view bytes, Json::Value& root)
{
    if (std::string fault = FaultOfEncoding(bytes); !fault.empty()) {
        return fault;
    }
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    std::string errors;
    try {
        if (!reader->parse(bytes.data(), bytes.data() + bytes.size(), &root, &errors)) {
            return errors.empty() ? "* Unknown\n" : errors;
        }
    } catch (const Json::Exception& fault) {
        // What nests too deeply isn't among the errors.
        return std::string("* ") + fault.what() + '\n';
    }
    return FaultOfLevel(root, "The document", 2);
}

std::string TextOf(const Json::Value& root)
{
    Json::StreamWriterBuilder builder;
    builder["commentStyle"] = "None";
    builder["indentation"] = "\t";
    return Json::writeString(builder, root) + '\n';
}

/// Copies the file to a free name beside it; `Classes::EWriteError` if that can't be done.
void KeepAside(const UnicodeString& file)
{
    for (int i = 1;; ++i) {
        if (CopyFileW(file, file + u".unreadable" + UnicodeString(i), true)) {
            return;
        }
        if (GetLastError() != ERROR_FILE_EXISTS) {
            ThrowUnwritable<Classes::EWriteError>(file);
        }
    }
}

/// Makes `text` the file. The class of what is raised tells whether it was begun.
void Replace(const UnicodeString& path, std::string_view text)
{
    try {
        CSafeFile file(path);
        file.getStream()->WriteBuffer(text.data(), static_cast<Int64>(text.size()));
        file.Commit();
    } catch (const Classes::EFCreateError&) {
        ThrowUnwritable<Classes::EFCreateError>(path);
    } catch (const Classes::EStreamError&) {
        ThrowUnwritable<Classes::EWriteError>(path);
    }
}

void ReadMemberNames(const Json::Value* object, TStrings* names)
{
    if (names == nullptr) {
        return;
    }
    names->Clear();
    if (object == nullptr) {
        return;
    }
    for (auto member = object->begin(); member != object->end(); ++member) {
        names->Add(System::FromUtf8(member.name()));
    }
}

} // namespace

CJsonIniImp::CJsonIniImp(const UnicodeString& jsonFile) : mJsonFile(jsonFile) {}

CJsonIniImp::~CJsonIniImp() = default;

bool CJsonIniImp::Exists() const noexcept
{
    return mCurrentFile != nullptr && !mCurrentFile->isNull();
}

void CJsonIniImp::Load()
{
    if (!Sysutils::FileExists(mJsonFile)) {
        return;
    }
    mIsUnreadable = true;
    Json::Value root;
    const std::string errors = Parse(LoadStringFromFile(mJsonFile).AsView(), root);
    if (!errors.empty()) {
        throw Sysutils::Exception(u"Parse-Error in JSON-File: \"" + mJsonFile + u"\"\nError:\n" +
                                  System::FromUtf8(errors));
    }
    mIsUnreadable = false;
    TakeRoot(std::move(root));
}

void CJsonIniImp::TakeRoot(Json::Value root)
{
    // A name may be empty. Copies, since what is set is the field itself.
    const UnicodeString file = getFile();
    const UnicodeString section = getSection();
    const bool hasFile = std::exchange(mCurrentFile, nullptr) != nullptr;
    const bool hasSection = std::exchange(mCurrentSection, nullptr) != nullptr || !section.IsEmpty();
    mRoot = std::move(root);
    if (hasFile) {
        SetFile(file);
    }
    if (hasSection) {
        SetSection(section);
    }
}

void CJsonIniImp::Save()
{
    const std::string text = TextOf(mRoot);
    if (mIsUnreadable && Sysutils::FileExists(mJsonFile)) {
        KeepAside(mJsonFile);
    }
    Replace(mJsonFile, text);
    mIsUnreadable = false;
}

void CJsonIniImp::SetFile(const UnicodeString& file)
{
    AIniImp::SetFile(file);
    mCurrentFile = &mRoot[KeyOf(file)];
}

void CJsonIniImp::SetSection(const UnicodeString& section)
{
    AIniImp::SetSection(section);
    if (mCurrentFile == nullptr) {
        UTL::THROW_XAssert(NoFile, "mCurrentFile");
        return;
    }
    mCurrentSection = &(*mCurrentFile)[KeyOf(section)];
}

bool CJsonIniImp::FileExists()
{
    return Exists();
}

bool CJsonIniImp::SectionExists(const UnicodeString& section)
{
    return FindMember(mCurrentFile, section) != nullptr;
}

bool CJsonIniImp::KeyExists(const UnicodeString& section, const UnicodeString& key)
{
    return FindMember(FindMember(mCurrentFile, section), key) != nullptr;
}

bool CJsonIniImp::KeyExists2(const UnicodeString& key)
{
    return FindMember(mCurrentSection, key) != nullptr;
}

void CJsonIniImp::ReadSections(TStrings* sections)
{
    ReadMemberNames(mCurrentFile, sections);
}

void CJsonIniImp::ReadKeys(const UnicodeString&, TStrings* keys)
{
    ReadMemberNames(mCurrentSection, keys);
}

void CJsonIniImp::Clear()
{
    if (mCurrentFile != nullptr) {
        mCurrentFile->clear();
    }
    mCurrentSection = nullptr;
}

void CJsonIniImp::EraseSection(const UnicodeString& section)
{
    if (mCurrentFile == nullptr) {
        return;
    }
    if (FindMember(mCurrentFile, section) == mCurrentSection) {
        mCurrentSection = nullptr;
    }
    mCurrentFile->removeMember(KeyOf(section));
}

void CJsonIniImp::DeleteKey(const UnicodeString& key)
{
    if (mCurrentSection != nullptr) {
        mCurrentSection->removeMember(KeyOf(key));
    }
}

const Json::Value* CJsonIniImp::FindValue(const UnicodeString& key) const
{
    const Json::Value* value = FindMember(mCurrentSection, key);
    return value == nullptr || value->isNull() ? nullptr : value;
}

template <class Value, class Convert>
Value CJsonIniImp::ReadValue(const UnicodeString& key, Value defaultValue, Convert convert) const
{
    const Json::Value* value = FindValue(key);
    return value == nullptr ? defaultValue : static_cast<Value>((value->*convert)());
}

bool CJsonIniImp::ReadBool(const UnicodeString& key, bool defaultValue)
{
    return ReadValue(key, defaultValue, &Json::Value::asBool);
}

int CJsonIniImp::ReadInteger(const UnicodeString& key, int defaultValue)
{
    return ReadValue(key, defaultValue, &Json::Value::asInt);
}

Int64 CJsonIniImp::ReadInt64(const UnicodeString& key, Int64 defaultValue)
{
    return ReadValue(key, defaultValue, &Json::Value::asInt64);
}

double CJsonIniImp::ReadFloat(const UnicodeString& key, double defaultValue)
{
    return ReadValue(key, defaultValue, &Json::Value::asDouble);
}

UnicodeString CJsonIniImp::ReadString(const UnicodeString& key, const UnicodeString& defaultValue)
{
    const Json::Value* value = FindValue(key);
    const char* begin = nullptr;
    const char* end = nullptr;
    if (value == nullptr || !value->getString(&begin, &end)) {
        return defaultValue;
    }
    return System::FromUtf8({begin, static_cast<std::size_t>(end - begin)});
}

void CJsonIniImp::WriteValue(const UnicodeString& key, Json::Value value)
{
    if (mCurrentSection != nullptr) {
        (*mCurrentSection)[KeyOf(key)] = std::move(value);
    }
}

void CJsonIniImp::WriteBool(const UnicodeString& key, bool value)
{
    WriteValue(key, value);
}

void CJsonIniImp::WriteInteger(const UnicodeString& key, int value)
{
    WriteValue(key, value);
}

void CJsonIniImp::WriteInt64(const UnicodeString& key, Int64 value)
{
    WriteValue(key, Json::Int64{value});
}

void CJsonIniImp::WriteFloat(const UnicodeString& key, double value)
{
    if (std::isinf(value)) {
        // It would be written as what no parser takes back, and the whole document be lost.
        throw Sysutils::EConvertError(u"The infinite value of \"" + key + u"\" can't be kept as JSON");
    }
    WriteValue(key, value);
}

void CJsonIniImp::WriteString(const UnicodeString& key, const UnicodeString& value)
{
    WriteValue(key, System::ToUtf8(value));
}

} // namespace BTL::Detail
