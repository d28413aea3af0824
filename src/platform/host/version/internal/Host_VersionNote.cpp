// SPDX-License-Identifier: MIT
#include "platform/host/version/internal/Host_VersionNote.h"

#include "platform/host/Host_BufferedFiles.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/internal/Host_PathCall.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>

#include <fcntl.h>
#include <gelf.h>
#include <sys/stat.h>

namespace Host
{

namespace
{

using std::string_view_literals::operator""sv;

constexpr std::string_view Owner = "TRS8_BTL\0"sv;
constexpr GElf_Word VersionType = 1;

/// A file may claim any size for its sections, as often as it likes.
constexpr std::size_t MostNotes = std::size_t{1} << 20;

using OpenElf = std::unique_ptr<Elf, decltype(&elf_end)>;

/// Whether the header itself tells how many sections there are. Where it leaves that to the first section,
/// libelf would make room for any number that stands there.
bool HasPlainCount(int file)
{
    std::array<char, sizeof(Elf64_Ehdr)> head{};
    const ssize_t length = Uninterrupted([&] { return pread(file, head.data(), head.size(), 0); });
    const std::size_t place =
        head[EI_CLASS] == ELFCLASS64 ? offsetof(Elf64_Ehdr, e_shnum) : offsetof(Elf32_Ehdr, e_shnum);
    return length > static_cast<ssize_t>(place) && (head[place] != 0 || head[place + 1] != 0);
}

std::optional<std::string> FindNote(Elf_Data& notes)
{
    const std::string_view bytes(static_cast<const char*>(notes.d_buf), notes.d_size);
    GElf_Nhdr head;
    std::size_t name = 0;
    std::size_t description = 0;
    for (std::size_t place = 0; (place = gelf_getnote(&notes, place, &head, &name, &description)) > 0;) {
        if (head.n_type == VersionType && bytes.substr(name, head.n_namesz) == Owner) {
            return std::string(bytes.substr(description, head.n_descsz));
        }
    }
    return std::nullopt;
}

std::optional<std::string> FindNote(Elf* elf)
{
    std::size_t left = MostNotes;
    for (Elf_Scn* section = nullptr; (section = elf_nextscn(elf, section)) != nullptr;) {
        GElf_Shdr head;
        if (gelf_getshdr(section, &head) == nullptr || head.sh_type != SHT_NOTE || head.sh_size > left) {
            continue;
        }
        left -= head.sh_size;
        Elf_Data* const notes = elf_getdata(section, nullptr);
        if (notes == nullptr || notes->d_buf == nullptr) {
            continue;
        }
        if (auto found = FindNote(*notes)) {
            return found;
        }
    }
    Fail(ERROR_NOT_FOUND);
    return std::nullopt;
}

} // namespace

std::optional<std::string> ReadVersionNote(const System::UnicodeString& file)
{
    const std::string path = Sysutils::HostPath(file);
    FlushBuffersOf(path.c_str());
    // A pipe would wait for its writer.
    const Descriptor opened(
        Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); }));
    if (!opened.IsOpen()) {
        FailPath(path);
        return std::nullopt;
    }
    struct stat status;
    if (fstat(opened.Get(), &status) != 0 || !S_ISREG(status.st_mode) || !HasPlainCount(opened.Get())) {
        Fail(ERROR_BAD_FORMAT);
        return std::nullopt;
    }
    elf_version(EV_CURRENT);
    // By reads: a file that somebody cuts meanwhile would take the program down through a mapping.
    const OpenElf elf(elf_begin(opened.Get(), ELF_C_READ, nullptr), &elf_end);
    if (!elf || elf_kind(elf.get()) != ELF_K_ELF) {
        Fail(ERROR_BAD_FORMAT);
        return std::nullopt;
    }
    return FindNote(elf.get());
}

} // namespace Host
