// SPDX-License-Identifier: MIT
#include "platform/host/registry/internal/Host_RegistryText.h"
#include "support/Fuzz.h"

using Fuzz::Require;
using Host::RegistryText;

/// Takes the bytes as a file: what is read comes back as it was written. Then as a name, a path and a value.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = Fuzz::Bytes(data, size);
    RegistryText read = RegistryText::Parse(bytes);
    Require(RegistryText::Parse(read.Write()) == read);

    const System::UnicodeString text = Fuzz::WideText(bytes);
    const System::UnicodeString path = Host::RegistryPath(text);
    Require(Host::RegistryPath(path) == path);
    read = {};
    read.Set(path, text, text);
    read.Set(path, text + u'x', std::string(bytes));
    const RegistryText again = RegistryText::Parse(read.Write());
    const auto* const value = again.Find(path, text);
    Require(value != nullptr && std::get<System::UnicodeString>(*value) == text);
    const auto* const raw = again.Find(path, text + u'x');
    Require(raw != nullptr && std::get<std::string>(*raw) == bytes);
    return 0;
}
