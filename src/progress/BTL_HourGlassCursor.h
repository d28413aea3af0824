// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/visual/graphics/Controls_Cursor.h"

#include <cstdint>

namespace BTL
{

/// A scope in which the screen shows another mouse cursor, and the former one at its end.
///
///     {
///         const BTL::CHourGlassCursor busy(true);
///         Load();
///     }
///
/// It does so in the main thread, unless it is switched off or the screen shows that cursor already. So of
/// nested scopes the outermost one puts the cursor back.
class TRS8_BTL_API AHourGlassCursor
{
public:
    /// Shows the cursor if `enable`.
    AHourGlassCursor(Controls::TCursor cursor, bool enable);
    AHourGlassCursor(const AHourGlassCursor&) = delete;
    AHourGlassCursor& operator=(const AHourGlassCursor&) = delete;
    ~AHourGlassCursor();

    /// No scope that begins from here on acts, until `Enable` was called as often. What shows by itself how
    /// far it is calls this.
    static void Disable();
    /// Takes back one `Disable`; nothing happens if there was none.
    static void Enable();

private:
    static std::int32_t smDisabled;

    bool mIsActive = false;
    Controls::TCursor mOldCursor = Controls::crDefault;
};

/// The hourglass for a scope.
class CHourGlassCursor : public AHourGlassCursor
{
public:
    /// Does nothing unless `enable`.
    explicit CHourGlassCursor(bool enable) : AHourGlassCursor(Controls::crHourGlass, enable) {}
};

/// The arrow with an hourglass for a scope: the program starts.
class CHourGlassCursorAppStart : public AHourGlassCursor
{
public:
    /// Does nothing unless `enable`.
    explicit CHourGlassCursorAppStart(bool enable) : AHourGlassCursor(Controls::crAppStart, enable) {}
};

/// The hourglass for a scope: a database works.
class CHourGlassCursorSQLWait : public AHourGlassCursor
{
public:
    /// Does nothing unless `enable`.
    explicit CHourGlassCursorSQLWait(bool enable) : AHourGlassCursor(Controls::crHourGlass, enable) {}
};

} // namespace BTL
