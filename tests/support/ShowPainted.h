// SPDX-License-Identifier: MIT
#pragma once

#include "support/RunUntil.h"

#include <utility>

namespace Support
{

/// Shows a form, and waits until it is painted: a screen doesn't paint what it hasn't given a place yet.
/// False if that never comes.
inline bool ShowPainted(Forms::TForm& form)
{
    bool isPainted = false;
    auto former = std::exchange(form.OnPaint, [&isPainted](System::TObject*) { isPainted = true; });
    form.Show();
    form.Invalidate();
    const bool isSeen = RunUntil([&isPainted] { return isPainted; });
    form.OnPaint = std::move(former);
    return isSeen;
}

} // namespace Support
