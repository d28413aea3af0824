// SPDX-License-Identifier: MIT
#pragma once

namespace System::Detail
{

// NOLINTNEXTLINE(modernize-use-using): the mark that spares the pedantic warning needs a declaration.
__extension__ typedef __int128 Int128;

} // namespace System::Detail
