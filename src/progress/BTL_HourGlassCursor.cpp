// SPDX-License-Identifier: MIT
#include "progress/BTL_HourGlassCursor.h"

#include "platform/visual/Forms.h"
#include "progress/BTL_THRD_ActionThread.h"

namespace BTL
{

constinit std::int32_t AHourGlassCursor::smDisabled = 0;

AHourGlassCursor::AHourGlassCursor(Controls::TCursor cursor, bool enable)
{
    // The rest may change while another thread looks at it.
    if (!enable || !IsTheCurrentThreadTheMainThread()) {
        return;
    }
    if (smDisabled <= 0 && Forms::Screen != nullptr && Forms::Screen->getCursor() != cursor) {
        mOldCursor = Forms::Screen->getCursor();
        mIsActive = true;
        Forms::Screen->setCursor(cursor);
    }
}

AHourGlassCursor::~AHourGlassCursor()
{
    if (mIsActive && Forms::Screen != nullptr) {
        Forms::Screen->setCursor(mOldCursor);
    }
}

void AHourGlassCursor::Disable()
{
    ++smDisabled;
}

void AHourGlassCursor::Enable()
{
    if (smDisabled > 0) {
        --smDisabled;
    }
}

} // namespace BTL
