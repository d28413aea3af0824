// SPDX-License-Identifier: MIT
#pragma once

#include <cstring>
#include <string>
#include <string_view>

#include <elf.h>

namespace Support
{

/// The bytes of a program file with one note: a header, the note, and two sections, of which the second one
/// is the note's. Damage is done by writing to `header`, `note` and `section` first.
struct ProgramImage
{
    explicit ProgramImage(std::string_view texts) : description(texts)
    {
        std::memcpy(header.e_ident, ELFMAG, SELFMAG);
        header.e_ident[EI_CLASS] = ELFCLASS64;
        header.e_ident[EI_DATA] = ELFDATA2LSB;
        header.e_ident[EI_VERSION] = EV_CURRENT;
        header.e_type = ET_DYN;
        header.e_version = EV_CURRENT;
        header.e_ehsize = sizeof header;
        header.e_shentsize = sizeof section;
        header.e_shnum = 2;
        section.sh_type = SHT_NOTE;
        section.sh_offset = sizeof header;
        section.sh_addralign = 4;
        note.n_namesz = sizeof name - 3;
        note.n_descsz = static_cast<Elf64_Word>(texts.size());
        note.n_type = 1;
        description.resize((texts.size() + 3) / 4 * 4);
        section.sh_size = sizeof note + sizeof name + description.size();
        header.e_shoff = (sizeof header + section.sh_size + 7) / 8 * 8;
    }

    std::string getBytes() const
    {
        const Elf64_Shdr none{};
        std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
        bytes.append(reinterpret_cast<const char*>(&note), sizeof note);
        bytes.append(name, sizeof name).append(description);
        bytes.resize((bytes.size() + 7) / 8 * 8);
        bytes.append(reinterpret_cast<const char*>(&none), sizeof none);
        return bytes.append(reinterpret_cast<const char*>(&section), sizeof section);
    }

    Elf64_Ehdr header{};
    Elf64_Nhdr note{};
    char name[12] = "TRS8_BTL";
    std::string description;
    Elf64_Shdr section{};
};

} // namespace Support
