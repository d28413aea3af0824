// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileText.h"
#include "support/Fuzz.h"

using Fuzz::Require;
using Host::ProfileChange;
using Host::ProfileText;
using System::UnicodeString;

namespace
{

std::vector<std::pair<UnicodeString, UnicodeString>> AllOf(const ProfileText& text)
{
    std::vector<std::pair<UnicodeString, UnicodeString>> all;
    for (const UnicodeString& section : text.ListSections()) {
        all.emplace_back(section, UnicodeString());
        text.ForEachEntry(section, [&](std::u16string_view key, std::u16string_view value) {
            all.emplace_back(text.Shown(key), text.ShownValue(value));
            // Key after key goes another way than one alone.
            Require(text.Find(section, key) == all.back().second);
        });
    }
    return all;
}

} // namespace

/// Three lines are a section, a key and a value, the rest is a file: it comes back as it was, and a change of
/// it changes that value alone.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzz::Input input(data, size);
    const bool isWide = input.getText().starts_with('w');
    const auto take = [&] {
        const std::string_view line = input.TakeLine();
        return isWide ? Fuzz::WideText(line) : System::FromUtf8(line);
    };
    const UnicodeString section = take();
    const ProfileChange change{section, take(), take()};
    const std::string bytes(input.getText());

    ProfileText text(bytes);
    Require(text.Compose() == bytes);
    const auto former = AllOf(text);
    if (!IsStorable(change)) {
        return 0;
    }
    const bool isNew = !text.Find(change.section, *change.key);
    text.Apply(change);
    Require(text.Find(change.section, *change.key) == change.value);
    const std::string written = text.Compose();
    const ProfileText again(written);
    Require(again.Compose() == written);
    Require(again.Find(change.section, *change.key) == change.value);
    Require(AllOf(again) == AllOf(text));
    // A section of bytes that are no text is shown by a name that may be another one's.
    if (change.section.Pos(u'\xFFFD') == 0) {
        const std::size_t added = AllOf(again).size() - former.size();
        Require(isNew ? added == 1 || added == 2 : added == 0);
    }
    Require(!text.Apply(change));

    Require(text.Apply({change.section, change.key, std::nullopt}));
    Require(!text.Find(change.section, *change.key));
    text.Apply({change.section, std::nullopt, std::nullopt});
    const ProfileText rest(text.Compose());
    Require(AllOf(rest) == AllOf(text));
    rest.ForEachEntry(change.section, [](std::u16string_view, std::u16string_view) { Require(false); });
    return 0;
}
