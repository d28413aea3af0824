// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_Reader.h"

#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/classes/internal/Classes_NeedStream.h"
#include "platform/runtime/filer/Classes_Fixups.h"
#include "platform/runtime/filer/internal/Classes_FormNames.h"
#include "platform/runtime/filer/internal/Classes_ReaderState.h"
#include "platform/runtime/filer/internal/Classes_ScopedValue.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <utility>

namespace Classes
{

using System::Int64;
using System::TMetaClass;
using System::UnicodeString;

namespace
{

std::size_t BlockSize(int bufSize)
{
    return bufSize < 1 ? std::size_t{1} : static_cast<std::size_t>(bufSize);
}

/// The name that no other form, nor any other component of its owner, has: `name`, or that with a number
/// behind.
UnicodeString UniqueName(const TComponent& root, const UnicodeString& name)
{
    const auto isOther = [&root](const TComponent* found) { return found != nullptr && found != &root; };
    const TComponent* const owner = root.getOwner();
    const auto isTaken = [&](const UnicodeString& candidate) {
        return isOther(FindGlobalComponent(candidate)) ||
               (owner != nullptr && isOther(owner->FindComponent(candidate)));
    };
    UnicodeString result = name;
    for (int i = 1; !result.IsEmpty() && isTaken(result); ++i) {
        result = name + u"_" + UnicodeString(i);
    }
    return result;
}

} // namespace

TMetaClass* TReader::ClassRecord()
{
    static TMetaClass* const record = System::GClassBuilder<TReader>(u"TReader").Build();
    return record;
}

TReader::TReader(TStream* stream, int bufSize)
    : mState(System::MakeOwner<CState>(NeedStream(stream), BlockSize(bufSize)))
{
}

TReader::~TReader()
{
    try {
        mState->input.GiveBack();
    } catch (const std::exception&) {
        // Nobody reads on from a stream that can't be moved.
    }
}

void TReader::FlushBuffer()
{
    mState->input.GiveBack();
}

Int64 TReader::getPosition() const
{
    return mState->input.Offset();
}

// Faults

void TReader::PassOver(const std::exception& fault, Int64 offset)
{
    if (mState->IsLocated(fault)) {
        throw;
    }
    const UnicodeString message = mState->MessageAt(fault, offset);
    bool handled = false;
    if (OnError) {
        OnError(this, message, handled);
    }
    if (!handled) {
        mState->ThrowLocated(fault, message);
    }
}

// Components

TComponent* TReader::ReadRootComponent(TComponent* root)
{
    CState& state = *mState;
    CState::CSession session(state);
    return session.Run([&] {
        const CState::CDepth depth(state);
        const Int64 start = state.input.Offset();
        TComponent* result = nullptr;
        try {
            if (state.input.Take(Form::Signature.size()) != Form::Signature) {
                state.input.GoTo(start);
                Form::CInput::Fail(u"The form doesn't begin with TPF0");
            }
            const CState::THead head = state.TakeHead();
            state.path.Enter(head.className, head.name);
            result = FindRootInstance(root, System::FromUtf8(head.className), System::FromUtf8(head.name));
            setRoot(result);
            ReadRootState(*result);
        } catch (const Sysutils::EAbort&) {
            throw;
        } catch (const std::exception& fault) {
            state.Locate(fault, state.input.Offset());
        }
        session.FinishLoading();
        GlobalFixupReferences();
        return result;
    });
}

TComponent* TReader::FindRootInstance(TComponent* root, const UnicodeString& className,
                                      const UnicodeString& name)
{
    CState::TSession& session = *mState->session;
    if (root != nullptr) {
        session.alive.Add(*root);
        CLoading::Add(*root);
        if (!root->getComponentState().Contains(csDesigning)) {
            SetComponentName(*root, UniqueName(*root, name));
        }
        return root;
    }
    TMetaClass* const type = FindComponentClass(className);
    TComponent* const made = type->Create(mOwner);
    if (made == nullptr) {
        Form::CInput::Fail(u"A " + className + u" can't be made");
    }
    session.created.Add(*made);
    session.alive.Add(*made);
    CLoading::Add(*made);
    SetComponentName(*made, UniqueName(*made, name));
    return made;
}

void TReader::ReadRootState(TComponent& root)
{
    const GScopedValue owner(mOwner, &root);
    const GScopedValue parent(mParent, &root);
    mState->component = &root;
    root.ReadState(*this);
    FixupReferences();
}

TComponent* TReader::ReadComponent(TComponent* component)
{
    CState::CSession session(*mState);
    if (!session.IsOwn()) {
        return ReadInstance(component);
    }
    if (mRoot != nullptr) {
        mState->session->alive.Add(*mRoot);
    }
    return session.Run([&] {
        TComponent* const instance = ReadInstance(component);
        FixupReferences();
        session.FinishLoading();
        return instance;
    });
}

TComponent* TReader::ReadInstance(TComponent* component)
{
    CState& state = *mState;
    const CState::CDepth depth(state);
    const Int64 start = state.input.Offset();
    const CState::THead head = state.TakeHead();
    const CState::CPathScope path(state, head.className, head.name);
    TComponent* instance = nullptr;
    try {
        instance = NeedInstance(component, head.flags, System::FromUtf8(head.className),
                                System::FromUtf8(head.name));
    } catch (const Sysutils::EAbort&) {
        throw;
    } catch (const std::exception& fault) {
        PassOver(fault, start);
        SkipComponentBody();
        return nullptr;
    }
    try {
        ReadBody(*instance, head.flags);
        if (head.flags.Contains(ffChildPos) && mParent != nullptr) {
            mParent->SetChildOrder(instance, static_cast<int>(head.childPos));
        }
    } catch (const Sysutils::EAbort&) {
        throw;
    } catch (const std::exception& fault) {
        state.Locate(fault, state.input.Offset());
    }
    return instance;
}

TComponent* TReader::NeedInstance(TComponent* component, const TFilerFlags& flags,
                                  const UnicodeString& className, const UnicodeString& name)
{
    if (component == nullptr) {
        component =
            flags.Contains(ffInherited) ? NeedInherited(className, name) : CreateComponent(className, name);
    } else {
        SetComponentName(*component, name);
    }
    if (flags.Contains(ffInline)) {
        component->SetInline(true);
    }
    mState->session->alive.Add(*component);
    CLoading::Add(*component);
    return component;
}

TComponent* TReader::NeedInherited(const UnicodeString& className, const UnicodeString& name)
{
    TComponent* const owner = mOwner != nullptr ? mOwner : mLookupRoot;
    TComponent* component = owner == nullptr ? nullptr : owner->FindComponent(name);
    if (component == nullptr && OnAncestorNotFound) {
        OnAncestorNotFound(this, name, LookUpClass(className), component);
    }
    if (component == nullptr) {
        Form::CInput::Fail(u"The inherited component isn't there");
    }
    return component;
}

TComponent* TReader::CreateComponent(const UnicodeString& className, const UnicodeString& name)
{
    CState::TSession& session = *mState->session;
    TMetaClass* const type = FindComponentClass(className);
    TComponent* made = nullptr;
    if (OnCreateComponent) {
        const std::size_t goneCount = session.alive.GoneCount();
        OnCreateComponent(this, type, made);
        if (session.alive.GoneCount() != goneCount) {
            // It may be the owner, or the parent.
            Form::CInput::Fail(u"A component was destroyed when another one was to be made");
        }
    }
    if (made == nullptr) {
        made = type->Create(mOwner);
    }
    if (made == nullptr) {
        Form::CInput::Fail(u"A " + className + u" can't be made");
    }
    session.created.Add(*made);
    try {
        made->SetLoading(true);
        made->SetParentComponent(mParent);
        SetComponentName(*made, name);
    } catch (...) {
        if (session.created.Contains(made)) {
            delete made;
        }
        throw;
    }
    return made;
}

TMetaClass* TReader::LookUpClass(const UnicodeString& className)
{
    const TMetaClass* type = mRoot == nullptr ? nullptr : mRoot->ClassType();
    for (; type != nullptr; type = type->getParent()) {
        for (const System::TFieldInfo& field : type->Fields()) {
            TMetaClass* const fieldClass = field.FieldClass();
            if (fieldClass->getName().CompareIC(className) == 0) {
                return fieldClass;
            }
        }
    }
    return GetClass(className);
}

TMetaClass* TReader::FindComponentClass(const UnicodeString& className)
{
    const auto [known, isNew] = mState->classes.try_emplace(className, nullptr);
    if (isNew) {
        known->second = LookUpClass(className);
    }
    TMetaClass* type = known->second;
    if (OnFindComponentClass) {
        OnFindComponentClass(this, className, type);
    }
    if (type == nullptr) {
        throw EClassNotFound(u"Class " + className + u" not found");
    }
    if (!type->Inherits(System::ClassOf<TComponent>())) {
        Form::CInput::Fail(u"The class " + className + u" is none of components");
    }
    return type;
}

void TReader::SetComponentName(TComponent& component, UnicodeString name)
{
    if (OnSetName) {
        OnSetName(this, &component, name);
    }
    component.SetName(name);
}

void TReader::ReadBody(TComponent& component, const TFilerFlags& flags)
{
    CState& state = *mState;
    const bool isInline = component.getComponentState().Contains(csInline);
    const GScopedValue lookupRoot(mLookupRoot, isInline ? &component : mLookupRoot);
    const GScopedValue reading(state.component, &component);
    const GScopedValue steps(state.steps, std::vector<TPartStep>());
    const bool isInherited = flags.Contains(ffInherited);
    if (isInherited) {
        component.Updating();
    }
    try {
        component.ReadState(*this);
    } catch (...) {
        if (isInherited && state.session->alive.Contains(&component)) {
            EndUpdate(component);
        }
        throw;
    }
    state.CheckAlive(component);
    if (isInherited) {
        component.Updated();
    }
}

void TReader::EndUpdate(TComponent& component) noexcept
{
    try {
        component.Updated();
    } catch (...) {
        // The exception on its way tells what happened first.
    }
}

void TReader::ReadData(TComponent* instance)
{
    if (instance == nullptr) {
        return;
    }
    const CState::CSession session(*mState);
    mState->session->alive.Add(*instance);
    ReadProperties(*instance);
    ReadChildren(*instance);
}

void TReader::ReadProperties(TComponent& instance)
{
    const CState::CReading reading(*mState, instance);
    while (!EndOfList()) {
        ReadProperty(&instance);
        mState->CheckAlive(instance);
    }
    ReadListEnd();
}

void TReader::ReadChildren(TComponent& instance)
{
    TComponent* const childOwner = instance.GetChildOwner();
    const GScopedValue parent(mParent, instance.GetChildParent());
    const GScopedValue owner(mOwner, childOwner != nullptr ? childOwner : mLookupRoot);
    while (!EndOfList()) {
        ReadComponent(nullptr);
        mState->CheckAlive(instance);
    }
    ReadListEnd();
}

void TReader::SkipComponentBody()
{
    const CState::CDepth depth(*mState);
    while (!EndOfList()) {
        mState->input.TakePath();
        SkipValue();
    }
    ReadListEnd();
    while (!EndOfList()) {
        mState->TakeHead();
        SkipComponentBody();
    }
    ReadListEnd();
}

// References

void TReader::FixupReferences()
{
    CState& state = *mState;
    const CLiveComponents& alive = state.session->alive;
    for (std::size_t i = 0; i < state.references.size(); ++i) {
        TReference reference = std::move(state.references[i]);
        if (!alive.Contains(reference.component) || !alive.Contains(reference.lookupRoot)) {
            continue;
        }
        if (OnReferenceName) {
            OnReferenceName(this, reference.name);
        }
        TComponent* const target = FindLocalTarget(reference);
        if (target == nullptr) {
            KeepReference(std::move(reference));
            continue;
        }
        try {
            SetReference(reference, target);
        } catch (const Sysutils::EAbort&) {
            throw;
        } catch (const std::exception& fault) {
            const UnicodeString message =
                u"Error reading " + reference.place + u": " + Sysutils::MessageOf(fault);
            bool handled = false;
            if (OnError) {
                OnError(this, message, handled);
            }
            if (!handled) {
                state.ThrowLocated(fault, message);
            }
        }
    }
    state.references.clear();
}

// What classes define

void TReader::DefineProperty(const UnicodeString& name, const TReaderProc& read, const TWriterProc&, bool)
{
    if (!read || mPropName.IsEmpty() || mPropName.CompareIC(name) != 0) {
        return;
    }
    // What it reads may come to properties of its own.
    mPropName = {};
    read(*this);
    mPropName = {};
}

void TReader::DefineBinaryProperty(const UnicodeString& name, const TStreamProc& read, const TStreamProc&,
                                   bool)
{
    if (!read || mPropName.IsEmpty() || mPropName.CompareIC(name) != 0) {
        return;
    }
    mPropName = {};
    const TValueType type = ReadValue();
    if (type != vaBinary) {
        mState->input.FailType(type);
    }
    const std::string_view bytes = mState->input.Take(mState->input.TakeCount());
    TMemoryStream stream;
    stream.WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
    stream.setPosition(0);
    read(&stream);
}

} // namespace Classes
