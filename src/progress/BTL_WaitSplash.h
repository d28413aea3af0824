// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/base/System_String.h"
#include "platform/visual/graphics/Controls_Cursor.h"
#include "progress/BTL_WaitForDataSplashDLG.h"

#include <concepts>

namespace Classes
{
class TComponentLink;
} // namespace Classes

namespace BTL
{

/// A scope in which a small form tells the user to wait. There is one at most: within the scope of another
/// one, as long as that shows the form, a scope does nothing.
///
///     {
///         const BTL::CWaitSplash splash(true, isSlow);            // "data are read"
///         Load();
///     }
///
/// Of the main thread.
class TRS8_BTL_API CWaitSplash
{
public:
    /// Tells that data are read, or written; does nothing unless `show`.
    template <std::same_as<bool> Bool>
    CWaitSplash(Bool isForReading, bool show)
        : CWaitSplash(show ? TWaitForDataSplashDLG::TextFor(isForReading) : System::UnicodeString(), show)
    {
    }
    /// Tells a text of its own; does nothing unless `show`.
    CWaitSplash(const System::UnicodeString& text, bool show);
    CWaitSplash(const CWaitSplash&) = delete;
    CWaitSplash& operator=(const CWaitSplash&) = delete;
    ~CWaitSplash();

    /// The form that is shown; null if there is none.
    [[nodiscard]] static TWaitForDataSplashDLG* GetSplash() noexcept { return smSplash; }

private:
    void Remove();

    static TWaitForDataSplashDLG* smSplash;

    /// The form of this scope; null if it made none.
    System::GOwner<Classes::TComponentLink> mForm;
};

/// Tells for a scope that data are read.
class CWaitForDataSplash : public CWaitSplash
{
public:
    /// Does nothing unless `show`.
    explicit CWaitForDataSplash(bool show) : CWaitSplash(true, show) {}
};

/// As `CWaitForDataSplash`, and the screen shows the hourglass for the scope.
class TRS8_BTL_API CWaitForDataSplashEx : public CWaitForDataSplash
{
public:
    /// Does nothing unless `show`.
    explicit CWaitForDataSplashEx(bool show);
    ~CWaitForDataSplashEx();

private:
    Controls::TCursor mOldCursor = Controls::crNone;
};

} // namespace BTL
