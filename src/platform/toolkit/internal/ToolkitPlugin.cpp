// SPDX-License-Identifier: MIT
#include "platform/toolkit/internal/ToolkitPlugin.h"

#include "platform/Version.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include <dlfcn.h>

namespace Toolkits
{

namespace
{

/// The library's own folder.
std::filesystem::path LibraryFolder()
{
    Dl_info info = {};
    if (dladdr(reinterpret_cast<void*>(&LoadToolkit), &info) == 0 || info.dli_fname == nullptr) {
        return {};
    }
    std::error_code failure;
    const std::filesystem::path file = std::filesystem::canonical(info.dli_fname, failure);
    return failure ? std::filesystem::path() : file.parent_path();
}

/// The name is a part of a file's, so it can lead to no other folder.
bool IsPlainName(std::string_view name)
{
    return std::ranges::all_of(name, [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); });
}

/// Each minor version has a folder of its own, so that several can be installed.
std::string VersionFolder()
{
    const std::string version = System::LibraryVersion();
    return "TRS8_BTL-" + version.substr(0, version.rfind('.'));
}

/// What the plug-in exports; null, and `reason` tells why, if there is none that fits.
const TToolkitPlugin* FindPlugin(std::string_view name, std::string& reason)
{
    if (!IsPlainName(name)) {
        reason = "that is no name of one";
        return nullptr;
    }
    const std::filesystem::path folder = LibraryFolder();
    const std::string file = "libTRS8_BTL_" + std::string(name) + ".so";
    std::error_code failure;
    std::filesystem::path place = folder / VersionFolder() / file;
    if (!std::filesystem::exists(place, failure)) {
        place = folder / file;
    }
    if (folder.empty() || !std::filesystem::exists(place, failure)) {
        reason = "there is no plug-in " + file;
        return nullptr;
    }
    void* const library = dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (library == nullptr) {
        reason = dlerror();
        return nullptr;
    }
    const auto* const plugin = static_cast<const TToolkitPlugin*>(dlsym(library, "trs8_btl_toolkit"));
    if (plugin == nullptr) {
        reason = place.string() + " is no plug-in of this library";
        return nullptr;
    }
    if (std::string_view(plugin->version) != System::LibraryVersion()) {
        reason = place.string() + " belongs to version " + plugin->version;
        return nullptr;
    }
    return plugin;
}

} // namespace

std::unique_ptr<Toolkit> LoadToolkit(std::string_view name, std::string& reason)
{
    const TToolkitPlugin* const plugin = FindPlugin(name, reason);
    return std::unique_ptr<Toolkit>(plugin == nullptr ? nullptr : plugin->make());
}

std::unique_ptr<PictureCodecs> LoadCodecs(std::string_view name, std::string& reason)
{
    const TToolkitPlugin* const plugin = FindPlugin(name, reason);
    return std::unique_ptr<PictureCodecs>(plugin == nullptr ? nullptr : plugin->makeCodecs());
}

} // namespace Toolkits
