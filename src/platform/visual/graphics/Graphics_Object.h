// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Persistent.h"
#include "platform/runtime/typinfo/System_Closure.h"

namespace Graphics
{

/// Base of fonts, pens and brushes: a few values that tell when they change.
class TRS8_BTL_API TGraphicsObject : public Classes::TPersistent
{
    TRS8_BTL_CLASS(TGraphicsObject, Classes::TPersistent)

public:
    TGraphicsObject() = default;
    ~TGraphicsObject() override;

    const Classes::TNotifyEvent& getOnChange() const noexcept { return mOnChange; }
    /// Called after each change. It isn't copied by `Assign`.
    void setOnChange(const Classes::TNotifyEvent& event) { mOnChange = event; }

protected:
    /// Calls the event.
    virtual void Changed();

private:
    Classes::TNotifyEvent mOnChange;
};

} // namespace Graphics
