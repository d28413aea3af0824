// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"

#include <new>
#include <stdexcept>

namespace System
{

/// Gives what `grow` gives, which makes a container of the standard library larger. Where the memory isn't
/// there, or no container is that large, `Sysutils::EOutOfMemory` with `message` takes the place of the
/// standard library's exceptions. For sizes that come from outside.
template <class Grow>
decltype(auto) WithMemory(const WideChar* message, Grow&& grow)
{
    try {
        return grow();
    } catch (const std::bad_alloc&) {
        throw Sysutils::EOutOfMemory(UnicodeString(message));
    } catch (const std::length_error&) {
        throw Sysutils::EOutOfMemory(UnicodeString(message));
    }
}

} // namespace System
