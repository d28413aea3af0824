// SPDX-License-Identifier: MIT
#include "languages/BTL_ID_File.h"
#include "languages/BTL_ID_Ini.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/host/Host_Path.h"
#include "support/WorkFolder.h"
#include "text/grammar/BTL_STR_Escape.h"

#include <fstream>

using Fuzz::Require;
using System::UnicodeString;

namespace
{

constexpr int Ids[] = {0, 1, 100000000, -2147483647, 2147483647, -1};
constexpr int Count = 5;

/// A file with this content, of a name that no former one had: what is kept of that counts no more.
UnicodeString NewFile(std::string_view content)
{
    static const Fuzz::WorkFolder folder;
    static std::filesystem::path last;
    static int count = 0;
    std::filesystem::remove(last);
    last = folder.Path() / (std::to_string(++count) + ".ids");
    std::ofstream(last, std::ios::binary) << content;
    return Sysutils::FromHostPath(last.string());
}

/// Whatever stands for a placeholder, the result is a text.
void FillText(BTL::AID_Strings& texts, int id)
{
    Fuzz::Try<Sysutils::Exception>([&] { static_cast<void>(texts.GetString_VA(id)); });
    Fuzz::Try<Sysutils::Exception>([&] { static_cast<void>(texts.GetString_VA(id, u"text", 5, 0.5)); });
}

/// What is written comes back as its escapes tell, or is refused.
void WriteText(BTL::CIDSIniFile& texts, const UnicodeString& text)
{
    if (Fuzz::Try<Sysutils::Exception>([&] { texts.WriteIDString(1, text); })) {
        Require(texts.GetString(1) == BTL::ApplyEscapeSequences(BTL::InsertEscapeSequences(text)));
    }
}

} // namespace

/// Takes the bytes as a language file: a table of texts has as many as it asks for, and the same ones as if
/// each is read by itself.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const UnicodeString file = NewFile(Fuzz::Bytes(data, size));
    BTL::AIDSFile table(file, Ids);
    BTL::CIDSIniFile texts(file, u"IDS", "000000000");
    for (int i = 0; i < Count; ++i) {
        const UnicodeString text = table.GetString(i);
        Require(texts.GetStringDef(Ids[i], text) == text || texts.GetString(Ids[i]).IsEmpty());
        FillText(table, i);
        FillText(texts, Ids[i]);
    }
    WriteText(texts, table.GetString(0));
    return 0;
}
