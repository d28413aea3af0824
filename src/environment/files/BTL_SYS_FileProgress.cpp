// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_FileProgress.h"

#include "progress/model/BTL_ProgressInfo.h"

namespace BTL
{

FMakeProgressOf MakeProgressOf = nullptr;

CFileProgress::CFileProgress(TProgressDLG* dialog)
    : mOwned(dialog != nullptr && MakeProgressOf != nullptr ? MakeProgressOf(dialog) : nullptr),
      mProgress(mOwned)
{
}

CFileProgress::~CFileProgress()
{
    delete mOwned;
}

void CFileProgress::ShowFolder(const System::UnicodeString& folder) const
{
    if (mProgress != nullptr) {
        mProgress->setText2(folder);
    }
}

void CFileProgress::Step() const
{
    if (mProgress != nullptr) {
        mProgress->IncPosition();
    }
}

} // namespace BTL
