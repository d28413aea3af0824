// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_Writer.h"

#include "platform/runtime/filer/internal/Classes_FormInput.h"
#include "platform/runtime/filer/internal/Classes_FormNames.h"
#include "platform/runtime/filer/internal/Classes_FormSink.h"
#include "platform/runtime/filer/internal/Classes_Loading.h"
#include "platform/runtime/filer/internal/Classes_ScopedValue.h"
#include "platform/runtime/filer/internal/Classes_WriterState.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <utility>

namespace Classes
{

using System::Int64;
using System::TMetaClass;
using System::UnicodeString;

namespace
{

TStream& NeedStream(TStream* stream)
{
    if (stream == nullptr) {
        throw EStreamError(u"There is no stream to write components to");
    }
    return *stream;
}

/// `csWriting` for a scope.
class CWriting
{
public:
    explicit CWriting(TComponent& component) : mComponent(component)
    {
        CLoading::SetState(mComponent, csWriting, true);
    }
    CWriting(const CWriting&) = delete;
    CWriting& operator=(const CWriting&) = delete;
    ~CWriting() { CLoading::SetState(mComponent, csWriting, false); }

private:
    TComponent& mComponent;
};

} // namespace

TMetaClass* TWriter::ClassRecord()
{
    static TMetaClass* const record = System::GClassBuilder<TWriter>(u"TWriter").Build();
    return record;
}

TWriter::TWriter(TStream* stream, int bufSize)
    : mState(System::MakeOwner<CState>(NeedStream(stream), bufSize))
{
}

TWriter::~TWriter()
{
    try {
        mState->Flush();
    } catch (const std::exception&) {
        // Who wants to know calls `FlushBuffer`.
    }
}

void TWriter::FlushBuffer()
{
    mState->Flush();
}

Int64 TWriter::getPosition() const
{
    return mState->flushed + static_cast<Int64>(mState->out.Size());
}

// Components

void TWriter::WriteDescendent(TComponent* root, TComponent* ancestor)
{
    if (root == nullptr) {
        throw EWriteError(u"There is no component to write");
    }
    CState& state = *mState;
    const std::size_t start = state.out.Size();
    setRoot(root);
    const GScopedValue inForm(state.isInForm, true);
    const GScopedValue outerAncestor(mAncestor, static_cast<TPersistent*>(ancestor));
    const GScopedValue rootAncestor(mRootAncestor, ancestor);
    const GScopedValue ancestors(state.ancestors, CAncestors());
    try {
        state.out.Put(Form::Signature);
        state.isInherited = ancestor != nullptr;
        const CWriting writing(*root);
        root->WriteState(*this);
    } catch (...) {
        state.out.Cut(start);
        throw;
    }
    state.Flush();
}

void TWriter::WriteComponent(TComponent* component)
{
    if (component == nullptr) {
        return;
    }
    CState& state = *mState;
    TComponent* ancestor = state.ancestors.Find(*component);
    const bool isInherited = ancestor != nullptr;
    const std::optional<Int64> place = state.ancestors.NextPlace(ancestor);
    TComponent* rootAncestor = mRootAncestor;
    if (OnFindAncestor) {
        OnFindAncestor(this, component, component->getName(), ancestor, rootAncestor);
    }
    const GScopedValue scopedAncestor(mAncestor, static_cast<TPersistent*>(ancestor));
    const GScopedValue scopedRoot(mRootAncestor, rootAncestor);
    state.isInherited = isInherited;
    state.childPos = place;
    const CWriting writing(*component);
    component->WriteState(*this);
}

void TWriter::WriteData(TComponent* instance)
{
    if (instance == nullptr) {
        return;
    }
    CState& state = *mState;
    const CLevel level(state);
    const std::size_t start = state.out.Size();
    const bool isInherited = std::exchange(state.isInherited, false);
    const bool isMoved = state.childPos.has_value();
    WriteHead(*instance, isInherited);
    const std::size_t content = state.out.Size();
    const GScopedValue prefix(state.prefix, std::string());
    WriteProperties(instance);
    WriteListEnd();
    WriteChildren(*instance);
    WriteListEnd();
    const bool isEmpty = state.out.Size() == content + 2;
    if (isEmpty && isInherited && !isMoved && instance != mRoot) {
        state.out.Cut(start);
    }
}

void TWriter::WriteHead(TComponent& instance, bool isInherited)
{
    const std::string className = System::ToUtf8(instance.ClassName());
    const std::string name = System::ToUtf8(instance.getName());
    if (!Form::IsIdentifier(className) || className.size() > Form::MaxClassName ||
        name.size() > Form::MaxName) {
        throw EWriteError(u"A form can't have the component " + instance.getName() + u" of the class " +
                          instance.ClassName());
    }
    Form::TObjectHead head;
    head.isInherited = isInherited;
    head.isInline = !isInherited && instance.getComponentState().Contains(csInline) && &instance != mRoot;
    head.childPos = std::exchange(mState->childPos, std::nullopt);
    head.className = className;
    head.name = name;
    mState->out.PutHead(head);
}

void TWriter::WriteChildren(TComponent& instance)
{
    if (mIgnoreChildren) {
        return;
    }
    auto* const ancestor = dynamic_cast<TComponent*>(mAncestor);
    const bool isInline = instance.getComponentState().Contains(csInline);
    const GScopedValue lookupRoot(mLookupRoot, isInline ? &instance : mLookupRoot);
    const GScopedValue rootAncestor(mRootAncestor, isInline ? ancestor : mRootAncestor);
    const GScopedValue ancestors(mState->ancestors, CAncestors());
    if (ancestor != nullptr) {
        CAncestors& list = mState->ancestors;
        ancestor->GetChildren([&list](TComponent* child) { list.Add(*child); }, mRootAncestor);
    }
    instance.GetChildren([this](TComponent* child) { WriteComponent(child); }, mLookupRoot);
}

UnicodeString TWriter::ReferenceTo(TComponent& component, TComponent* lookupRoot, TComponent* root) const
{
    if (&component == lookupRoot) {
        return u"Owner";
    }
    UnicodeString path;
    for (const TComponent* at = &component; at != nullptr; at = at->getOwner()) {
        if (at == lookupRoot || (at == root && lookupRoot->FindComponent(path) == nullptr)) {
            break;
        }
        // What has no name can't be told.
        if (at->getName().IsEmpty()) {
            return {};
        }
        path = path.IsEmpty() ? at->getName() : at->getName() + u"." + path;
        if (at == root) {
            break;
        }
    }
    return path;
}

// What classes define

void TWriter::DefineProperty(const UnicodeString& name, const TReaderProc&, const TWriterProc& write,
                             bool hasData)
{
    if (!hasData || !write) {
        return;
    }
    const std::size_t start = mState->out.Size();
    WritePropName(name);
    const std::size_t value = mState->out.Size();
    const GScopedValue prefix(mState->prefix, std::string());
    write(*this);
    if (mState->out.Size() == value) {
        mState->out.Cut(start);
    }
}

void TWriter::DefineBinaryProperty(const UnicodeString& name, const TStreamProc&, const TStreamProc& write,
                                   bool hasData)
{
    if (!hasData || !write) {
        return;
    }
    TMemoryStream stream;
    write(&stream);
    WritePropName(name);
    mState->out.PutBytes(stream.AsView());
}

} // namespace Classes
