// SPDX-License-Identifier: MIT
#include "platform/host/Host_Module.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

namespace
{

System::UnicodeString ModulePath(const void* module)
{
    if (module == nullptr) {
        return Host::ProgramPath();
    }
    Dl_info info;
    if (dladdr(module, &info) == 0 || info.dli_fname == nullptr) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return {};
    }
    const std::unique_ptr<char, decltype(&std::free)> full(realpath(info.dli_fname, nullptr), &std::free);
    // The program itself is known by the name it was called with, which may not be a path.
    return full ? Sysutils::FromHostPath(full.get()) : Host::ProgramPath();
}

} // namespace

unsigned long GetCurrentProcessId()
{
    return static_cast<unsigned long>(getpid());
}

unsigned long GetModuleFileNameW(HINSTANCE module, System::WideChar* buffer, unsigned long size)
{
    if (buffer == nullptr || size == 0) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    const System::UnicodeString path = ModulePath(module);
    const auto length = static_cast<unsigned long>(path.Length());
    const unsigned long count = std::min(length, size - 1);
    std::copy_n(path.c_str(), count, buffer);
    buffer[count] = 0;
    if (count < length) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return size;
    }
    return length;
}

namespace Host
{

const void* ModuleOf(const void* address) noexcept
{
    // Programs ask for each of their forms as they start; by `dladdr`, which looks for a symbol too, that was
    // a fifth of the start.
    dl_find_object found;
    return _dl_find_object(const_cast<void*>(address), &found) == 0 ? found.dlfo_map_start : nullptr;
}

void KeepModule(const void* address) noexcept
{
    Dl_info info;
    link_map* map = nullptr;
    if (address == nullptr || dladdr1(address, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP) == 0 ||
        map == nullptr || map->l_name == nullptr || map->l_name[0] == '\0') {
        return;
    }
    // The loader's own name for it finds it, even where its file has gone meanwhile. The handle isn't needed:
    // the mark stays.
    if (void* const module = dlopen(map->l_name, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE); module != nullptr) {
        dlclose(module);
    }
}

System::UnicodeString ProgramPath()
{
    std::string path(256, '\0');
    for (;;) {
        const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
        if (length < 0) {
            FailErrno();
            return {};
        }
        if (static_cast<std::size_t>(length) < path.size()) {
            path.resize(static_cast<std::size_t>(length));
            break;
        }
        path.resize(path.size() * 2);
    }
    // The host marks a program whose file was replaced while it runs.
    constexpr std::string_view Deleted = " (deleted)";
    if (path.ends_with(Deleted) && access(path.c_str(), F_OK) != 0) {
        path.resize(path.size() - Deleted.size());
    }
    return Sysutils::FromHostPath(path);
}

} // namespace Host
