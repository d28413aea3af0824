// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_IniImp.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_Strings.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace Support
{

/// A store with the least that one needs, which notes the calls that begin and end its work.
class MapStore : public BTL::AIniImp
{
public:
    using Text = System::UnicodeString;

    MapStore() = default;
    MapStore(const Text& file, System::Int64 userId) : AIniImp(file, userId) {}

    void Load() override
    {
        calls += "load ";
        if (failsToLoad) {
            throw Sysutils::Exception(u"no");
        }
    }
    void LoadAnsi() override { calls += "ansi "; }
    void Save() override { calls += "save "; }
    void Flush() override { calls += "flush "; }
    void Begin() override { calls += "begin "; }
    void End() override { calls += "end "; }
    void OnError() override { calls += "error "; }
    bool FileReadOnly() override { return isReadOnly; }

    void ReadSections(Classes::TStrings* sections) override
    {
        sections->Clear();
        for (const auto& [name, entries] : mSections) {
            sections->Add(name);
        }
    }
    void ReadKeys(const Text& section, Classes::TStrings* keys) override
    {
        keys->Clear();
        for (const auto& [key, value] : EntriesOf(section)) {
            keys->Add(key);
        }
    }
    void EraseSection(const Text& section) override
    {
        std::erase_if(mSections, [&](const auto& one) { return one.first == section; });
    }
    void DeleteKey(const Text& key) override
    {
        for (auto& [name, entries] : mSections) {
            if (name == getSection()) {
                std::erase_if(entries, [&](const auto& entry) { return entry.first == key; });
            }
        }
    }
    Text ReadString(const Text& key, const Text& defaultValue) override
    {
        const Entries entries = EntriesOf(getSection());
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [&](const auto& entry) { return entry.first == key; });
        return found == entries.end() ? defaultValue : found->second;
    }
    void WriteString(const Text& key, const Text& value) override
    {
        const auto named = [this](const auto& one) { return one.first == getSection(); };
        auto section = std::find_if(mSections.begin(), mSections.end(), named);
        if (section == mSections.end()) {
            section = mSections.insert(section, {getSection(), {}});
        }
        auto& entries = section->second;
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [&](const auto& entry) { return entry.first == key; });
        if (found != entries.end()) {
            found->second = value;
        } else {
            entries.emplace_back(key, value);
        }
    }

    std::string calls;
    bool failsToLoad = false;
    bool isReadOnly = false;

private:
    using Entries = std::vector<std::pair<Text, Text>>;

    Entries EntriesOf(const Text& section) const
    {
        const auto found = std::find_if(mSections.begin(), mSections.end(),
                                        [&](const auto& one) { return one.first == section; });
        return found == mSections.end() ? Entries() : found->second;
    }

    std::vector<std::pair<Text, Entries>> mSections;
};

} // namespace Support
