// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_ReaderState.h"

#include "platform/runtime/filer/internal/Classes_FormNames.h"
#include "platform/runtime/filer/internal/Classes_FormSink.h"

namespace Classes
{

using System::Int64;
using System::UnicodeString;

TReader::CState::CSession::CSession(CState& state) : mState(state)
{
    if (state.session == nullptr) {
        mLoading = std::make_unique<CLoading>();
        mOwn = std::make_unique<TSession>();
        state.session = mOwn.get();
        state.path = {};
        state.located = {};
    }
}

TReader::CState::CSession::~CSession()
{
    if (mOwn != nullptr) {
        mState.session = nullptr;
        mState.component = nullptr;
        mState.references.clear();
    }
}

TReader::CState::CDepth::CDepth(CState& state) : mState(state)
{
    if (state.depth >= Form::MaxDepth) {
        Form::CInput::Fail(u"The form is nested deeper than " + UnicodeString(Form::MaxDepth) + u" levels");
    }
    ++state.depth;
}

TReader::CState::CPathScope::CPathScope(CState& state, std::string_view className, std::string_view name)
    : mState(state), mProperty(state.path.getProperty())
{
    mState.path.Enter(className, name);
    mState.path.setProperty({});
}

TReader::CState::CPathScope::~CPathScope()
{
    mState.path.Leave();
    mState.path.setProperty(mProperty);
}

TReader::CState::CReading::CReading(CState& state, TComponent& component)
    : mState(state), mComponent(component)
{
    CLoading::SetState(component, csReading, true);
}

TReader::CState::CReading::~CReading()
{
    if (mState.session->alive.Contains(&mComponent)) {
        CLoading::SetState(mComponent, csReading, false);
    }
}

TReader::CState::THead TReader::CState::TakeHead()
{
    THead head;
    head.flags = input.TakePrefix(head.childPos);
    head.className = input.TakeIdentifier();
    const Int64 start = input.Offset();
    head.name = input.TakeShort();
    if (!head.name.empty() && !Form::IsIdentifier(head.name)) {
        input.GoTo(start);
        Form::CInput::Fail(u"The name of a " + System::FromUtf8(head.className) + u" is no identifier");
    }
    return head;
}

void TReader::CState::CheckAlive(const TComponent& instance) const
{
    const CLiveComponents& alive = session->alive;
    if (alive.GoneCount() > 0 && !alive.Contains(&instance)) {
        Form::CInput::Fail(u"The component was destroyed while it was read");
    }
}

bool TReader::CState::IsLocated(const std::exception& fault) const
{
    return !located.IsEmpty() && Sysutils::MessageOf(fault) == located;
}

UnicodeString TReader::CState::MessageAt(const std::exception& fault, Int64 offset) const
{
    return u"Error reading " + path.AsText() + u" at byte " + UnicodeString(offset) + u": " +
           Sysutils::MessageOf(fault);
}

void TReader::CState::ThrowLocated(const std::exception& fault, const UnicodeString& message)
{
    located = message;
    if (dynamic_cast<const EClassNotFound*>(&fault) != nullptr) {
        throw EClassNotFound(message);
    }
    if (dynamic_cast<const EComponentError*>(&fault) != nullptr) {
        throw EComponentError(message);
    }
    throw EReadError(message);
}

void TReader::CState::Locate(const std::exception& fault, Int64 offset)
{
    if (IsLocated(fault)) {
        throw;
    }
    ThrowLocated(fault, MessageAt(fault, offset));
}

} // namespace Classes
