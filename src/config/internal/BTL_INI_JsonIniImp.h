// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_IniImp.h"

#include <json/value.h>

namespace BTL::Detail
{

/// The store of `CJsonIni`. The root, each file and each section is an object or null.
class CJsonIniImp : public AIniImp
{
public:
    explicit CJsonIniImp(const System::UnicodeString& jsonFile);
    ~CJsonIniImp() override;

    const System::UnicodeString& getJsonFileName() const noexcept { return mJsonFile; }
    bool Exists() const noexcept;

    /// `Sysutils::Exception` for what is no such document; the store keeps what it had then.
    void Load() override;
    /// Replaces the file in one step; raises what `CSafeFile` does, with the text `EIniText::CannotWrite`. A
    /// file that couldn't be loaded is copied first, to its name with ".unreadable1", or another free number,
    /// behind it.
    void Save() override;

    void SetFile(const System::UnicodeString& file) override;
    void SetSection(const System::UnicodeString& section) override;
    bool FileExists() override;
    bool SectionExists(const System::UnicodeString& section) override;
    bool KeyExists(const System::UnicodeString& section, const System::UnicodeString& key) override;
    bool KeyExists2(const System::UnicodeString& key) override;
    void ReadSections(Classes::TStrings* sections) override;
    /// Of the current section, whatever `section` is.
    void ReadKeys(const System::UnicodeString& section, Classes::TStrings* keys) override;
    void Clear() override;
    void EraseSection(const System::UnicodeString& section) override;
    void DeleteKey(const System::UnicodeString& key) override;
    bool ReadBool(const System::UnicodeString& key, bool defaultValue) override;
    int ReadInteger(const System::UnicodeString& key, int defaultValue) override;
    System::Int64 ReadInt64(const System::UnicodeString& key, System::Int64 defaultValue) override;
    double ReadFloat(const System::UnicodeString& key, double defaultValue) override;
    System::UnicodeString ReadString(const System::UnicodeString& key,
                                     const System::UnicodeString& defaultValue) override;
    void WriteBool(const System::UnicodeString& key, bool value) override;
    void WriteInteger(const System::UnicodeString& key, int value) override;
    void WriteInt64(const System::UnicodeString& key, System::Int64 value) override;
    void WriteFloat(const System::UnicodeString& key, double value) override;
    void WriteString(const System::UnicodeString& key, const System::UnicodeString& value) override;

private:
    void TakeRoot(Json::Value root);
    /// Null if it is missing, or null in the document.
    const Json::Value* FindValue(const System::UnicodeString& key) const;
    template <class Value, class Convert>
    Value ReadValue(const System::UnicodeString& key, Value defaultValue, Convert convert) const;
    void WriteValue(const System::UnicodeString& key, Json::Value value);

    System::UnicodeString mJsonFile;
    Json::Value mRoot;
    // Values within the root; null if none is set.
    Json::Value* mCurrentFile = nullptr;
    Json::Value* mCurrentSection = nullptr;
    bool mIsUnreadable = false;
};

} // namespace BTL::Detail
