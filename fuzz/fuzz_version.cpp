// SPDX-License-Identifier: MIT
#include "platform/host/Host_Path.h"
#include "platform/host/version/Host_FileVersion.h"
#include "support/Fuzz.h"

#include <vector>

#include <sys/mman.h>
#include <unistd.h>

namespace
{

/// The version data of what stands in the descriptor; what is found lies in the block.
void ReadVersion(int file, const std::string& path)
{
    const auto name = Sysutils::FromHostPath("/proc/self/fd/" + std::to_string(file));
    const unsigned long size = GetFileVersionInfoSizeW(name.c_str(), nullptr);
    if (size == 0) {
        return;
    }
    std::vector<std::uint32_t> block((size + 3) / 4);
    Fuzz::Require(!GetFileVersionInfoW(name.c_str(), 0, size - 1, block.data()));
    Fuzz::Require(GetFileVersionInfoW(name.c_str(), 0, size, block.data()));
    for (const std::string& asked : {path, std::string("VarFileInfo\\Translation"),
                                     std::string("StringFileInfo\\000004E4\\FileVersion")}) {
        const void* value = nullptr;
        unsigned length = 0;
        if (VerQueryValueA(block.data(), asked.c_str(), &value, &length)) {
            const auto* const begin = reinterpret_cast<const char*>(block.data());
            const auto* const text = static_cast<const char*>(value);
            Fuzz::Require(text >= begin && text + length <= begin + size);
        }
    }
}

} // namespace

/// Takes the first line as the path of a value, and the rest as a program file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzz::Input input(data, size);
    const std::string path(input.TakeLine());
    const std::string_view bytes = input.getText();
    const int file = memfd_create("version", MFD_CLOEXEC);
    Fuzz::Require(file >= 0 && write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
    ReadVersion(file, path);
    close(file);
    return 0;
}
