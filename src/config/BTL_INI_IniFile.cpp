// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniFile.h"

#include "config/BTL_INI_Utilities.h"
#include "config/internal/BTL_INI_ProfileLimit.h"
#include "platform/runtime/classes/Classes_Strings.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace BTL
{

namespace
{

using Classes::TStrings;
using System::UnicodeString;
using System::WideChar;

constexpr unsigned BufferSize = Detail::LongestProfileText + 1;

/// Adds the names to a list.
class CAddAction : public CIniFile::AReadAction
{
public:
    explicit CAddAction(TStrings& list) : mList(list) {}

    void operator()(const UnicodeString& name) override { mList.Add(name); }

private:
    TStrings& mList;
};

/// Has the file read the names.
class CReadAction : public CIniFile::AReadAction
{
public:
    explicit CReadAction(CIniFile& file) : mFile(file) {}

    void operator()(const UnicodeString& name) override { mFile.Read(name); }

private:
    CIniFile& mFile;
};

} // namespace

CIniFile::AReadAction::~AReadAction() = default;

CIniFile::CIniFile() = default;

CIniFile::CIniFile(const UnicodeString& file, const TReadHandler& handler)
    : CIniFileW(UnicodeString(), file), mHandler(handler)
{
}

CIniFile::CIniFile(const UnicodeString& section, const UnicodeString& file, const TReadHandler& handler)
    : CIniFileW(section, file), mHandler(handler)
{
}

CIniFile::CIniFile(const UnicodeString& section, const UnicodeString& file, const UnicodeString& path,
                   const TReadHandler& handler)
    : CIniFileW(section, file, path), mHandler(handler)
{
}

CIniFile::CIniFile(int number, const UnicodeString& file, const UnicodeString& section)
    : CIniFileW(number, file, section)
{
}

CIniFile::~CIniFile() = default;

void CIniFile::ReadSections(TStrings* list) const
{
    BTL::ReadSections(GetIniFileName(), list);
}

void CIniFile::GetAllKeys(TStrings* list) const
{
    if (list != nullptr) {
        CAddAction add(*list);
        DoReadAll(add);
    }
}

void CIniFile::ReadAll()
{
    CReadAction read(*this);
    DoReadAll(read);
}

void CIniFile::Read(const UnicodeString& key)
{
    if (mHandler) {
        mHandler(key, this);
    }
}

void CIniFile::DoReadAll(AReadAction& action) const
{
    std::vector<WideChar> buffer(BufferSize);
    std::u16string_view rest(buffer.data(), GetKeys(buffer.data(), BufferSize));
    while (!rest.empty()) {
        const auto name = rest.substr(0, rest.find(u'\0'));
        action(name);
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    }
}

CSectionReader::CSectionReader(const UnicodeString& file, const TSectionHandler& handler)
    : CIniFile(file, TReadHandler()), mHandler(handler)
{
}

CSectionReader::~CSectionReader() = default;

bool CSectionReader::SectionExists(const UnicodeString& section) const
{
    return BTL::SectionExists(GetIniFileName(), section);
}

void CSectionReader::GetAllSections(TStrings* list) const
{
    GetAllKeys(list);
}

void CSectionReader::Read(const UnicodeString& section)
{
    if (mHandler) {
        mHandler(section, GetIniFileName().c_str());
    }
}

CIniFile2::CIniFile2() = default;

CIniFile2::CIniFile2(const UnicodeString& file) : CIniFile(0, file, {}) {}

CIniFile2::CIniFile2(const UnicodeString& section, const UnicodeString& file) : CIniFile(0, file, section) {}

CIniFile2::~CIniFile2() = default;

double CIniFile2::ReadFloat(const UnicodeString& key, double defaultValue) const
{
    return GetFloat(key, static_cast<float>(defaultValue));
}

bool CIniFile2::WriteFloat(const UnicodeString& key, double value)
{
    return CIniFile::WriteFloat(key, static_cast<float>(value));
}

} // namespace BTL
