// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Forms_Frame.h"

#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/forms/internal/Forms_Orphans.h"

namespace Forms
{

using System::GClassBuilder;
using System::TMetaClass;

TMetaClass* TCustomFrame::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TCustomFrame>(u"TCustomFrame").Build();
    return record;
}

TCustomFrame::TCustomFrame(Classes::TComponent* owner) : TCustomControl(owner)
{
    setControlStyle({Controls::csAcceptsControls, Controls::csCaptureMouse, Controls::csClickEvents,
                     Controls::csDoubleClicks, Controls::csSetCaption});
    SetBounds(0, 0, 320, 240);
}

TCustomFrame::~TCustomFrame() = default;

void TCustomFrame::GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root)
{
    TCustomControl::GetChildren(proc, root);
    if (root == this) {
        ForEachOrphan(*this, proc);
    }
}

TMetaClass* TFrame::ClassRecord()
{
    static TMetaClass* const record =
        Controls::PublishFocus(Controls::PublishControl(GClassBuilder<TFrame>(u"TFrame")), false).Build();
    return record;
}

TFrame::~TFrame() = default;

} // namespace Forms
