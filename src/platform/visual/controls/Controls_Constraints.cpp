// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_Constraints.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/controls/Controls_Control.h"

#include <algorithm>

namespace Controls
{

System::TMetaClass* TSizeConstraints::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TSizeConstraints>(u"TSizeConstraints")
            .Property(u"MaxHeight", &TSizeConstraints::getMaxHeight, &TSizeConstraints::setMaxHeight,
                      {.defaultValue = 0})
            .Property(u"MaxWidth", &TSizeConstraints::getMaxWidth, &TSizeConstraints::setMaxWidth,
                      {.defaultValue = 0})
            .Property(u"MinHeight", &TSizeConstraints::getMinHeight, &TSizeConstraints::setMinHeight,
                      {.defaultValue = 0})
            .Property(u"MinWidth", &TSizeConstraints::getMinWidth, &TSizeConstraints::setMinWidth,
                      {.defaultValue = 0})
            .Build();
    return record;
}

TSizeConstraints::~TSizeConstraints() = default;

void TSizeConstraints::Assign(Classes::TPersistent* source)
{
    auto* const other = dynamic_cast<TSizeConstraints*>(source);
    if (other == nullptr) {
        return TPersistent::Assign(source);
    }
    mMinWidth = other->mMinWidth;
    mMinHeight = other->mMinHeight;
    mMaxWidth = other->mMaxWidth;
    mMaxHeight = other->mMaxHeight;
    Apply();
}

void TSizeConstraints::Change(int& limit, int value)
{
    limit = std::max(value, 0);
    Apply();
}

void TSizeConstraints::Apply()
{
    if (mControl != nullptr) {
        mControl->setBoundsRect(mControl->getBoundsRect());
    }
}

} // namespace Controls
