// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniStreamImp.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "support/Fuzz.h"

#include <cstdint>
#include <map>
#include <string_view>
#include <utility>

namespace
{

using BTL::CIniStreamImp;
using Classes::TMemoryStream;
using Classes::TStringList;
using Fuzz::Require;
using System::AnsiString;
using System::UnicodeString;

using Entries = std::map<std::pair<UnicodeString, UnicodeString>, UnicodeString>;

class Bytes : public TMemoryStream
{
public:
    explicit Bytes(std::string_view bytes) : TMemoryStream(bytes) {}
};

Entries Content(CIniStreamImp& store)
{
    Entries entries;
    TStringList sections;
    store.ReadSections(&sections);
    for (int i = 0; i < sections.getCount(); ++i) {
        const UnicodeString section = sections.getStrings(i);
        TStringList keys;
        TStringList values;
        store.ReadKeys(section, &keys);
        store.ReadValues(section, &values);
        Require(keys.getCount() == values.getCount() && keys.getCount() == store.GetItemCount(section));
        for (int k = 0; k < keys.getCount(); ++k) {
            entries[{section, keys.getStrings(k)}] = values.getStrings(k);
        }
    }
    Require(store.GetItemCount() == static_cast<int>(entries.size()));
    return entries;
}

/// A save that isn't refused loads as what was saved, but for comments and what the text doesn't keep of a
/// value. Nothing else appears.
void CheckSaved(CIniStreamImp& store)
{
    Bytes stream("[old]\r\nkept=1\r\n");
    if (!Fuzz::Try<Classes::EWriteError>([&] { store.SaveToStream(&stream); })) {
        Require(stream.AsView() == "[old]\r\nkept=1\r\n");
        return;
    }
    const Entries before = Content(store);
    CIniStreamImp again(&stream);
    again.Load();
    const Entries after = Content(again);
    for (const auto& [place, value] : before) {
        const AnsiString key(place.second);
        const bool isComment = !key.IsEmpty() && static_cast<signed char>(key[1]) < 32;
        Require(after.contains(place) != isComment);
    }
    for (const auto& [place, value] : after) {
        Require(before.contains(place));
    }
    // What was read once has nothing to lose but a further pair of quotes.
    Fuzz::Try<Classes::EWriteError>([&] { again.Save(); });
}

} // namespace

/// The first byte chooses the coding; a line is the section, key and value of a write, the rest a text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1) {
        return 0;
    }
    Fuzz::Input input(data, size);
    const auto choice = input.Take<std::uint8_t>();
    const UnicodeString section = System::FromUtf8(input.TakeLine());
    const UnicodeString key = System::FromUtf8(input.TakeLine());
    const UnicodeString value = UnicodeString(AnsiString(input.TakeLine()));
    Bytes stream(input.getText());
    CIniStreamImp store(&stream);
    store.setHeadline(choice / 2 % 2 == 0 ? u"" : u"expected");
    choice % 2 == 0 ? store.Load() : store.LoadAnsi();
    const Entries loaded = Content(store);

    // Step by step it is the same.
    CIniStreamImp stepping(&stream);
    int last = 0;
    stepping.setOnLoadKey([&](const AnsiString&, const AnsiString&, int position) {
        Require(position > last && position == stream.getPosition());
        last = position;
    });
    choice % 2 == 0 ? stepping.Load() : stepping.LoadAnsi();
    Require(Content(stepping) == loaded);

    CheckSaved(store);
    TStringList lines;
    store.GetStrings(&lines);
    stepping.SetStrings(&lines);

    store.SetSection(section);
    store.WriteString(key, value);
    Require(section.IsEmpty() || store.ReadString(key.Trim(), u"") == value);
    CheckSaved(store);
    return 0;
}
