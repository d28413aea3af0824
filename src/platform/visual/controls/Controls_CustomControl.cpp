// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_CustomControl.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/graphics/Graphics_Canvas.h"

namespace Controls
{

namespace
{

/// Gives a canvas the device, the font and the brush of a control for the length of a paint. The control may
/// be destroyed meanwhile, and its canvas with it.
class CPaintScope
{
public:
    CPaintScope(const TControl& control, Graphics::TCanvas& canvas, Toolkits::PaintDevice& device)
        : mWatch(&control), mCanvas(canvas)
    {
        PrepareFont(control, canvas);
        canvas.getBrush()->setColor(control.getColor());
        canvas.getBrush()->setStyle(Graphics::bsSolid);
        canvas.setHandle(&device);
    }
    CPaintScope(const CPaintScope&) = delete;
    CPaintScope& operator=(const CPaintScope&) = delete;
    ~CPaintScope()
    {
        if (mWatch.IsAlive()) {
            mCanvas.setHandle(nullptr);
        }
    }

    static void PrepareFont(const TControl& control, Graphics::TCanvas& canvas)
    {
        canvas.setFont(const_cast<Graphics::TFont*>(&control.GetShownFont()));
    }

private:
    Classes::TComponentWatch mWatch;
    Graphics::TCanvas& mCanvas;
};

/// Whether what changed is the font, so that the canvas measures in it from now on.
bool IsFontChange(const void* message)
{
    return static_cast<const Messages::TMessage*>(message)->Msg == CM_FONTCHANGED;
}

} // namespace

System::TMetaClass* TGraphicControl::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TGraphicControl>(u"TGraphicControl").Build();
    return record;
}

TGraphicControl::TGraphicControl(Classes::TComponent* owner)
    : TControl(owner), mCanvas(std::make_unique<Graphics::TCanvas>())
{
}

TGraphicControl::~TGraphicControl() = default;

void TGraphicControl::Dispatch(void* record)
{
    auto& message = *static_cast<Messages::TMessage*>(record);
    if (message.Msg == WM_PAINT && message.WParam != 0) {
        const CPaintScope scope(*this, *mCanvas, *reinterpret_cast<Toolkits::PaintDevice*>(message.WParam));
        Paint();
        return;
    }
    if (IsFontChange(record)) {
        CPaintScope::PrepareFont(*this, *mCanvas);
    }
    TControl::Dispatch(record);
}

System::TMetaClass* TCustomControl::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomControl>(u"TCustomControl").Build();
    return record;
}

TCustomControl::TCustomControl(Classes::TComponent* owner)
    : TWinControl(owner), mCanvas(std::make_unique<Graphics::TCanvas>())
{
}

TCustomControl::~TCustomControl() = default;

void TCustomControl::PaintWindow(Toolkits::PaintDevice& device)
{
    const CPaintScope scope(*this, *mCanvas, device);
    Paint();
}

void TCustomControl::Dispatch(void* record)
{
    if (IsFontChange(record)) {
        CPaintScope::PrepareFont(*this, *mCanvas);
    }
    TWinControl::Dispatch(record);
}

} // namespace Controls
