// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <cstddef>

class TProgressDLG;

namespace BTL
{

class AProgressInfo;

/// Whom a walk through folders tells of its progress: a progress info, a dialog, or nobody. Made from their
/// pointers, of which null is nobody; they must outlive it. What they raise, as when the user cancels, ends
/// the walk.
///
///     BTL::CopyPathExt(u"\\data\\", u"\\backup\\", BTL::AProgressInfo::Get(false));
///     BTL::CopyPathExt(u"\\data\\", u"\\backup\\", nullptr);
class TRS8_BTL_API CFileProgress
{
public:
    CFileProgress(std::nullptr_t) noexcept {}
    CFileProgress(AProgressInfo* progress) noexcept : mProgress(progress) {}
    CFileProgress(TProgressDLG* dialog);
    CFileProgress(const CFileProgress&) = delete;
    CFileProgress& operator=(const CFileProgress&) = delete;
    ~CFileProgress();

    /// The folder becomes the second text.
    void ShowFolder(const System::UnicodeString& folder) const;
    /// The position goes on by one.
    void Step() const;

private:
    /// What stands for a dialog.
    AProgressInfo* mOwned = nullptr;
    AProgressInfo* mProgress = nullptr;
};

/// Gives a new progress info that hands all on to the dialog; the forms fill it in. As long as it is null
/// there are no dialogs.
using FMakeProgressOf = AProgressInfo* (*)(TProgressDLG* dialog);
TRS8_BTL_API extern FMakeProgressOf MakeProgressOf;

} // namespace BTL
