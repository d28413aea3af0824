// SPDX-License-Identifier: MIT
#include "progress/model/BTL_ProgressInfo.h"

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/sysutils/System_Printf.h"
#include "platform/visual/forms/Forms_Application.h"
#include "progress/model/internal/BTL_ProgressSteps.h"

#include <utility>

namespace BTL
{

using System::Int64;
using System::UnicodeString;

AProgressInfo* AProgressInfo::InvisibleProgressInfo = nullptr;

constinit FVisibleProgressInfo GetVisibleProgressInfo = []() -> AProgressInfo* { return nullptr; };

AProgressInfo::~AProgressInfo() = default;

Int64 AProgressInfo::getMax() const
{
    return 0;
}

void AProgressInfo::setMax(Int64 /*max*/) {}

Int64 AProgressInfo::getPosition() const
{
    return 0;
}

void AProgressInfo::setPosition(Int64 /*position*/) {}

UnicodeString AProgressInfo::getCaption() const
{
    return {};
}

void AProgressInfo::setCaption(UnicodeString /*caption*/) {}

UnicodeString AProgressInfo::getText1() const
{
    return {};
}

void AProgressInfo::setText1(UnicodeString /*text*/) {}

UnicodeString AProgressInfo::getText2() const
{
    return {};
}

void AProgressInfo::setText2(UnicodeString /*text*/) {}

UnicodeString AProgressInfo::getTextLines() const
{
    return {};
}

void AProgressInfo::setTextLines(UnicodeString /*lines*/) {}

UnicodeString AProgressInfo::getMessage() const
{
    return {};
}

void AProgressInfo::setMessage(UnicodeString /*message*/) {}

bool AProgressInfo::getUserCancel() const
{
    return false;
}

void AProgressInfo::Prepare(Int64 max, bool /*throwOnCancel*/, bool /*showCancel*/,
                            const UnicodeString& caption, const UnicodeString& text1,
                            const UnicodeString& text2, const UnicodeString& lines, int /*width*/)
{
    setMax(max);
    setPosition(0);
    setCaption(caption);
    setText1(text1);
    setText2(text2);
    setTextLines(lines);
    setMessage(UnicodeString());
}

void AProgressInfo::Prepare(Int64 max, bool throwOnCancel, bool showCancel, const UnicodeString& caption,
                            const UnicodeString& text1, const UnicodeString& text2, Classes::TStrings* lines,
                            int width)
{
    Prepare(max, throwOnCancel, showCancel, caption, text1, text2,
            lines == nullptr ? UnicodeString() : lines->getText(), width);
}

void AProgressInfo::Start(Int64 max)
{
    setPosition(0);
    if (max != 0) {
        setMax(max);
    }
}

void AProgressInfo::Stop() {}

void AProgressInfo::IncPosition()
{
    setPosition(AddSteps(getPosition(), 1));
}

void AProgressInfo::SetProgressEndPosition()
{
    setPosition(getMax());
}

AProgressInfo* AProgressInfo::Get(bool visible)
{
    return visible ? GetVisibleProgressInfo() : InvisibleProgressInfo;
}

void AProgressInfo::SetInvisibleProgressInfo(AProgressInfo* info)
{
    InvisibleProgressInfo = info;
}

UnicodeString AProgressInfo::getText(int index) const
{
    switch (index) {
    case 1:
        return getText1();
    case 2:
        return getText2();
    default:
        return {};
    }
}

void AProgressInfo::setText(int index, UnicodeString text)
{
    switch (index) {
    case 1:
        setText1(std::move(text));
        break;
    case 2:
        setText2(std::move(text));
        break;
    default:
        break;
    }
}

void AProgressInfo::SetText_V(int index, const System::WideChar* format, System::TVarArgs arguments)
{
    setText(index, System::Printf(format, arguments));
}

void AProgressInfo::SetText_V(int index, const char* format, System::TVarArgs arguments)
{
    setText(index, System::PrintfA(format, arguments));
}

CProgressInfoStarter::CProgressInfoStarter(AProgressInfo* info, Int64 max) : mInfo(info)
{
    if (mInfo == nullptr) {
        return;
    }
    try {
        mInfo->Start(max);
    } catch (...) {
        // It may be seen already, and nobody calls the destructor of what wasn't made.
        Stop();
        throw;
    }
}

CProgressInfoStarter::~CProgressInfoStarter()
{
    Stop();
}

void CProgressInfoStarter::Stop()
{
    if (mInfo != nullptr) {
        Forms::Application->RunHandled([this] { mInfo->Stop(); });
    }
}

} // namespace BTL
