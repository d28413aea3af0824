// SPDX-License-Identifier: MIT
#include "properties/resources/Paso_creader.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_ClassRegister.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "properties/classes/BTL_Classes.h"
#include "properties/resources/Pasu_classtable.h"

#include <optional>

namespace PASO
{

using Classes::TComponent;
using Classes::TReader;
using System::TMetaClass;
using System::TMethod;
using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoClass{"PASO_CReader", 1};
constexpr int BufferSize = 4096;

struct TEvents
{
    CReader::TCreateEvent createComponent;
    CReader::TAfterReadEvent afterRead;
};

/// Made when the first is set, and never destroyed: a global object may read a form at its end.
constinit TEvents* Events = nullptr;

TEvents& NeedEvents()
{
    if (Events == nullptr) {
        Events = new TEvents;
    }
    return *Events;
}

/// Hears of the end of what is read.
class CRootWatch
{
public:
    /// `root` may be null, and come later.
    explicit CRootWatch(TComponent* root) { Watch(root); }

    /// Raises if the root has gone; `root` is the one that there is now.
    void CheckAlive(TComponent* root)
    {
        if (!mWatch) {
            return Watch(root);
        }
        if (!mWatch->IsAlive()) {
            throw Classes::EReadError(u"The component was destroyed while its form was read");
        }
    }

private:
    void Watch(TComponent* root)
    {
        if (root != nullptr) {
            mWatch.emplace(root);
        }
    }

    std::optional<Classes::TComponentWatch> mWatch;
};

} // namespace

CReader::CReader(TMetaClass* componentClass) : mComponentClass(componentClass)
{
    if (componentClass != nullptr) {
        mCreateByDesigner = componentClass->FindMethod(u"CreateComponentByDesigner");
        // Raises for one of other arguments, which couldn't be called.
        static_cast<void>(TCreateEvent(TMethod::Of(mCreateByDesigner, nullptr)));
    }
}

CReader::~CReader()
{
    Close();
}

void CReader::Init()
{
    mStream = std::make_unique<Classes::TResourceStream>(mComponentClass);
    mReader = std::make_unique<TReader>(mStream.get(), BufferSize);
    mReader->setRootClass(mComponentClass);
    mReader->OnCreateComponent = {this, &CReader::CreateComponent};
    mReader->OnFindComponentClass = {this, &CReader::FindComponentClass};
    mReader->OnFindMethod = {this, &CReader::FindMethod};
    mReader->OnError = {this, &CReader::TellError};
}

/// The reader gives back to the stream what it didn't use, so it goes first.
void CReader::Close() noexcept
{
    mReader.reset();
    mStream.reset();
}

TComponent* CReader::ReadComponentRes(TComponent* root)
{
    Close();
    mRoot = root;
    CRootWatch watch(root);
    try {
        Init();
        mRoot = mReader->ReadRootComponent(root);
    } catch (const std::exception& fault) {
        bool isHandled = false;
        Error(mReader.get(), Sysutils::MessageOf(fault), isHandled);
        if (!isHandled) {
            throw;
        }
    }
    watch.CheckAlive(mRoot);
    if (Events != nullptr && Events->afterRead) {
        Events->afterRead(mRoot);
        watch.CheckAlive(mRoot);
    }
    return mRoot;
}

void CReader::CreateComponent(TReader* reader, TMetaClass* type, TComponent*& component)
{
    if (mCreateByDesigner != nullptr) {
        // The root of one who gave none is that which the reader made.
        TComponent* const root = mRoot != nullptr ? mRoot : reader->getRoot();
        TCreateEvent(TMethod::Of(mCreateByDesigner, root))(reader, type, component);
    }
    if (component == nullptr && Events != nullptr && Events->createComponent) {
        Events->createComponent(reader, type, component);
    }
}

void CReader::FindComponentClass(TReader*, const UnicodeString& name, TMetaClass*& type)
{
    const auto [known, isNew] = mClasses.try_emplace(name, nullptr);
    if (isNew) {
        known->second = Pasu_classtable::GetFieldClass(mComponentClass, name);
    }
    type = known->second;
    if (type == nullptr) {
        type = BTL::GetComponentClass(name);
    }
    if (type == nullptr) {
        type = Classes::GetClass(name);
    }
}

void CReader::FindMethod(TReader*, const UnicodeString& name, System::TMethodAddress& address, bool& error)
{
    if (mComponentClass == nullptr) {
        return UTL::THROW_XAssert(NoClass);
    }
    address = mComponentClass->FindMethod(name);
    error = address == nullptr;
}

void CReader::Error(TReader*, const UnicodeString&, bool&) {}

void CReader::SetCreateComponentEvent(const TCreateEvent& event)
{
    NeedEvents().createComponent = event;
}

void CReader::SetAfterReadEvent(const TAfterReadEvent& event)
{
    NeedEvents().afterRead = event;
}

void CReader::ClearEvents()
{
    NeedEvents() = {};
}

} // namespace PASO
