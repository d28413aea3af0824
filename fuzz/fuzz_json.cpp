// SPDX-License-Identifier: MIT
#include "config/BTL_INI_JsonIni.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "streams/BTL_STRM_StreamUtilities.h"
#include "support/WorkFolder.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace
{

using BTL::CJsonIni;
using Classes::TStringList;
using Fuzz::Require;
using System::UnicodeString;

/// All that the current file holds as text; numbers and booleans are not text.
std::string Content(CJsonIni& ini)
{
    std::string text;
    TStringList sections;
    ini.ReadSections(&sections);
    for (int i = 0; i < sections.getCount(); ++i) {
        ini.setSection(sections.getStrings(i));
        TStringList keys;
        ini.ReadKeys(&keys);
        for (int k = 0; k < keys.getCount(); ++k) {
            const UnicodeString key = keys.getStrings(k);
            text += System::ToUtf8(sections.getStrings(i) + u'\n' + key + u'\n' +
                                   ini.ReadString(key, UnicodeString(u"none")) + u'\n');
        }
    }
    return text;
}

} // namespace

/// A line is the name of the ini in the document, and a text to write; the rest is the document.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Fuzz::WorkFolder folder;
    const std::filesystem::path document = folder.Path() / "all.json";
    Fuzz::Input input(data, size);
    const UnicodeString name = System::FromUtf8(input.TakeLine());
    // A file has no such name, and its folder can't be sought.
    if (name.Pos(u'\0') != 0) {
        return 0;
    }
    BTL::SaveStringToFile(document, System::AnsiString(input.getText()));

    CJsonIni ini(document);
    ini.setFile(name);
    ini.setSection(u"Former");
    ini.WriteString(u"key", name);
    try {
        ini.Load();
    } catch (const Sysutils::Exception& fault) {
        Require(fault.getMessage().AsView().starts_with(u"Parse-Error in JSON-File: \""));
        Require(ini.ReadString(u"key", u"") == name);
        return 0;
    }
    ini.setSection(name);
    ini.WriteString(name, name);
    const std::string content = Content(ini);
    ini.Save();
    CJsonIni again(document);
    again.setFile(name);
    again.Load();
    Require(Content(again) == content);
    return 0;
}
