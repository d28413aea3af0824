// SPDX-License-Identifier: MIT
#include "environment/files/internal/BTL_SYS_PathText.h"

#include "platform/runtime/sysutils/internal/Sysutils_FileParts.h"

#include <algorithm>

namespace BTL::Detail
{

std::size_t RootLength(std::u16string_view path)
{
    const std::size_t volume = Sysutils::Detail::VolumeLength(path);
    return std::min(path.find_first_not_of(u"\\/", volume), path.size());
}

bool IsRoot(const System::UnicodeString& path)
{
    return !path.IsEmpty() && RootLength(path.AsView()) == path.AsView().size();
}

} // namespace BTL::Detail
