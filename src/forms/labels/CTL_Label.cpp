// SPDX-License-Identifier: MIT
#include "forms/labels/CTL_Label.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"

System::TMetaClass* TCTL_Label::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCTL_Label>(u"TCTL_Label")
            .Property(u"TextHasAttributes", &TCTL_Label::getTextHasAttributes,
                      &TCTL_Label::setTextHasAttributes, {.defaultValue = 0})
            .Build();
    return record;
}

TCTL_Label::~TCTL_Label() = default;

void TCTL_Label::Paint()
{
    if (!mExtension.Paint()) {
        TLabel::Paint();
    }
}
