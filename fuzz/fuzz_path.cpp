// SPDX-License-Identifier: MIT
#include "platform/base/Sysutils_Exception.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_Shell.h"
#include "platform/runtime/sysutils/Ioutils.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "support/Fuzz.h"

#include <cstdint>
#include <string>
#include <string_view>

using Fuzz::Require;
using System::UnicodeString;

namespace
{

/// Host paths are any bytes but the zero; all of them come back, but for double slashes at the begin.
void RoundTrip(std::string_view bytes)
{
    while (bytes.starts_with("//")) {
        bytes.remove_prefix(1);
    }
    if (bytes.empty() || bytes.find('\0') != std::string_view::npos) {
        return;
    }
    const UnicodeString text = Sysutils::FromHostPath(bytes);
    Require(Sysutils::HostPath(text) == bytes);
    const std::string_view name = bytes.substr(bytes.rfind('/') + 1);
    Require(Sysutils::HostPath(u"\\" + Sysutils::ExtractFileName(text)).substr(1) == name);
}

void TakeApart(const UnicodeString& path)
{
    const UnicodeString folder = Sysutils::ExtractFilePath(path);
    Require(folder + Sysutils::ExtractFileName(path) == path);
    Require(folder.AsView().starts_with(Sysutils::ExtractFileDir(path).AsView()));
    Require(path.AsView().starts_with(Sysutils::ExtractFileDrive(path).AsView()));
    Require(Sysutils::ChangeFileExt(path, Sysutils::ExtractFileExt(path)) == path);
    const std::string host = Sysutils::HostPath(path);
    Require(host.find('\0') == std::string::npos);

    const UnicodeString full = Sysutils::ExpandFileName(path);
    Require(Sysutils::ExpandFileName(full) == full);
    Require(Sysutils::FileNameFits(path, path.IsEmpty() ? UnicodeString(u"*") : path));
    Require(Host::SplitArguments(path).size() <= path.AsView().size());
}

void Combine(const UnicodeString& first, const UnicodeString& second)
{
    const bool isCombined = Fuzz::Try<Sysutils::EArgumentException>([&] {
        const UnicodeString combined = Ioutils::TPath::Combine(first, second);
        Require(combined.AsView().ends_with(second.AsView()));
        Ioutils::TPath::GetPathRoot(combined);
        Ioutils::TPath::ChangeExtension(first, second);
        Ioutils::TPath::GetFileNameWithoutExtension(combined);
    });
    Require(isCombined || first.Pos(u'\0') + second.Pos(u'\0') > 0);
    const UnicodeString relative = Sysutils::ExtractRelativePath(first, second);
    Require(relative.AsView().ends_with(Sysutils::ExtractFileName(second).AsView()));
    const bool isMask = second.AsView().find_first_of(u"*?") != std::u16string_view::npos;
    Require(isMask || Sysutils::FileNameFits(first, second) == (first == second));
    Require(Sysutils::FileNameFits(first + second, first + u"*"));
}

} // namespace

/// Takes the bytes as a path of the host, and as 16-bit units as a path of the library, whole and in halves.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = Fuzz::Bytes(data, size);
    const UnicodeString wide = Fuzz::WideText(bytes);
    RoundTrip(bytes);
    TakeApart(wide);
    TakeApart(System::FromUtf8(bytes));
    const int half = wide.Length() / 2;
    Combine(wide.SubString(1, half), wide.SubString(half + 1));
    return 0;
}
