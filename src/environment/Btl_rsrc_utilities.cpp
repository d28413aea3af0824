// SPDX-License-Identifier: MIT
#include "environment/Btl_rsrc_utilities.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/host/version/Host_FileVersion.h"
#include "platform/runtime/sysutils/System_Printf.h"
#include "platform/toolkit/Dialogs.h"
#include "platform/visual/Forms.h"
#include "text/editing/BTL_STR_Replace.h"
#include "text/numbers/BTL_NUM_Version.h"

#include <cstdint>
#include <memory>
#include <new>
#include <optional>

namespace BTL
{

namespace
{

using System::AnsiString;
using System::UnicodeString;

/// Looks texts up in a block, in the language that the block names.
class CVersionTexts
{
public:
    /// `Sysutils::Exception` if the block names no language.
    explicit CVersionTexts(const void* block) : mBlock(block)
    {
        const void* translation = nullptr;
        unsigned length = 0;
        if (!VerQueryValueA(block, "VarFileInfo\\Translation", &translation, &length)) {
            throw Sysutils::Exception(u"The version data name no language.");
        }
        const auto* const numbers = static_cast<const std::uint16_t*>(translation);
        mFolder = System::PrintfA("StringFileInfo\\%.4X%.4X\\", unsigned{numbers[0]}, unsigned{numbers[1]});
    }

    std::optional<UnicodeString> Find(const char* key) const
    {
        const void* text = nullptr;
        unsigned length = 0;
        if (!VerQueryValueA(mBlock, (mFolder + key).c_str(), &text, &length)) {
            return std::nullopt;
        }
        return UnicodeString(static_cast<const char*>(text));
    }

    UnicodeString Get(const char* key) const { return Find(key).value_or(UnicodeString()); }

    UnicodeString GetForLabel(const char* key) const { return ForLabel(Get(key)); }

    static UnicodeString ForLabel(const UnicodeString& text) { return ExchangeAll(text, u"&", u"&&"); }

private:
    const void* mBlock;
    AnsiString mFolder;
};

void ReadTexts(const CVersionTexts& texts, CVersionInfo& info)
{
    info.Product = texts.GetForLabel("ProductName");
    info.OriginalFilename = texts.Get("OriginalFilename");
    info.InternalName = texts.Get("InternalName");
    info.Author = texts.Get("Autor");
    info.FileVersion = texts.Get("FileVersion");
    info.FileDate = texts.Get("Dateidatum");
    info.Builder = texts.Get("Builder");
    info.Description = texts.Get("FileDescription");
    info.Copyright = texts.GetForLabel("LegalCopyright");
    info.Company = texts.GetForLabel("CompanyName");
    info.ProductVersion = texts.Get("ProductVersion");
    info.Trademarks = CVersionTexts::ForLabel(texts.Find("LegalTrademarks").value_or(u"Not available!"));
    info.Comments = texts.GetForLabel("Comments");
}

/// What damaged version data show.
CVersionInfo UnreadableInfo()
{
    CVersionInfo info;
    info.Company = u"TARMIS";
    info.Copyright = u"TARMIS";
    info.Trademarks = u"TARMIS";
    info.Comments = u"No Versioninfo available!";
    return info;
}

bool ToNumbers(UnicodeString CVersionInfo::*version, const UnicodeString& file, unsigned& a, unsigned& b,
               unsigned& c, unsigned& d)
{
    CVersionInfo info;
    ReadVersionInfo(file, info);
    return VersionStrToVersionNos(info.*version, a, b, c, d);
}

} // namespace

bool ReadVersionInfo(const UnicodeString& file, CVersionInfo& info)
{
    const unsigned long size = GetFileVersionInfoSizeW(file.c_str(), nullptr);
    if (size == 0) {
        return false;
    }
    info.Tag = 0;
    info.File = file;
    const std::unique_ptr<std::uint32_t[]> block(new (std::nothrow) std::uint32_t[size / 4 + 1]);
    if (!block) {
        Dialogs::ShowMessage(u"Failed to retrieve file version info");
        return false;
    }
    try {
        if (!GetFileVersionInfoW(file.c_str(), 0, size, block.get())) {
            throw Sysutils::Exception(u"The file has changed.");
        }
        ReadTexts(CVersionTexts(block.get()), info);
    } catch (...) {
        info = UnreadableInfo();
        return false;
    }
    return true;
}

bool ReadVersionInfo(const System::WideChar* file, CVersionInfo& info)
{
    return ReadVersionInfo(UnicodeString(file), info);
}

bool GetFileVersionNos(const UnicodeString& file, unsigned& a, unsigned& b, unsigned& c, unsigned& d)
{
    return ToNumbers(&CVersionInfo::FileVersion, file, a, b, c, d);
}

bool GetFileVersionNos(unsigned& a, unsigned& b, unsigned& c, unsigned& d)
{
    return GetFileVersionNos(Forms::Application->getExeName(), a, b, c, d);
}

bool GetProductVersionNos(const UnicodeString& file, unsigned& a, unsigned& b, unsigned& c, unsigned& d)
{
    return ToNumbers(&CVersionInfo::ProductVersion, file, a, b, c, d);
}

bool GetProductVersionNos(unsigned& a, unsigned& b, unsigned& c, unsigned& d)
{
    return GetProductVersionNos(Forms::Application->getExeName(), a, b, c, d);
}

} // namespace BTL
