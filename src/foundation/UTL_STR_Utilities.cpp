// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Utilities.h"

#include "platform/base/System_String.h"
#include "platform/base/internal/System_Memory.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace UTL
{

namespace
{

using System::WideChar;

template <class Char>
Char* NewDuplicate(const Char* text, unsigned minimum)
{
    const std::basic_string_view<Char> view = System::Detail::SafeView(text);
    const std::size_t size = std::max(view.size() + 1, static_cast<std::size_t>(minimum));
    auto* const result =
        System::WithMemory(u"There is no memory for a copy of a text.", [&] { return new Char[size](); });
    std::copy(view.begin(), view.end(), result);
    return result;
}

} // namespace

char* strnewdup(const char* text, unsigned minimum)
{
    return NewDuplicate(text, minimum);
}

WideChar* strnewdup(const WideChar* text, unsigned minimum)
{
    return NewDuplicate(text, minimum);
}

bool FileExists(const System::UnicodeString& file)
{
    return Sysutils::FileExists(file);
}

} // namespace UTL
