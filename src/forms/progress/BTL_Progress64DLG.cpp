// SPDX-License-Identifier: MIT
#include "forms/progress/BTL_Progress64DLG.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/stdctrls/panels/Comctrls_ProgressBar.h"

#include <algorithm>
#include <limits>

using System::Int64;

namespace
{

constexpr Int64 MaxOfBar = std::numeric_limits<int>::max();

/// `value` times 1000 divided by `divisor`, where the product might not fit.
constexpr Int64 Thousandfold(Int64 value, Int64 divisor)
{
    return value / divisor * 1000 + value % divisor * 1000 / divisor;
}

} // namespace

System::TMetaClass* TProgress64DLG::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TProgress64DLG>(u"TProgress64DLG").Build();
    return record;
}

TProgress64DLG::TProgress64DLG(Classes::TComponent* owner) : TProgressForm(owner)
{
    ReadDesign();
}

TProgress64DLG::~TProgress64DLG() = default;

void TProgress64DLG::setMax(Int64 max)
{
    mMax = max;
    const bool fits = max <= MaxOfBar;
    mScaleDivisor = fits ? 0 : Thousandfold(max, MaxOfBar);
    fProgressBar->setMax(static_cast<int>(fits ? std::max<Int64>(max, 0) : MaxOfBar));
}

void TProgress64DLG::SetProgressBarPosition(Int64 position)
{
    const Int64 onBar = mScaleDivisor == 0 ? position : Thousandfold(position, mScaleDivisor);
    fProgressBar->setPosition(static_cast<int>(std::clamp<Int64>(onBar, 0, MaxOfBar)));
}
