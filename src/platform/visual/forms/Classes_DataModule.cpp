// SPDX-License-Identifier: MIT
#include "platform/visual/forms/Classes_DataModule.h"

#include "platform/host/Host_CurrentThread.h"
#include "platform/runtime/classes/Classes_Synchronize.h"
#include "platform/runtime/filer/Classes_Filer.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/forms/Forms_Screen.h"
#include "platform/visual/forms/internal/Forms_Orphans.h"

#include <utility>

namespace Classes
{

using System::TMetaClass;
using Types::TPoint;

TMetaClass* TDataModule::ClassRecord()
{
    static TMetaClass* const record = System::GClassBuilder<TDataModule>(u"TDataModule")
                                          .Property(u"OnCreate", &TDataModule::OnCreate)
                                          .Property(u"OnDestroy", &TDataModule::OnDestroy)
                                          .Build();
    return record;
}

TDataModule::TDataModule(TComponent* owner)
    : TComponent(owner), mIsOnScreen(GetCurrentThreadId() == System::MainThreadID)
{
    if (mIsOnScreen) {
        Forms::Screen->AddDataModule(this);
    }
}

TDataModule::~TDataModule()
{
    Destroying();
    if (mIsWhole) {
        DoDestroy(); // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall): the event is all that is meant
    }
    if (mIsOnScreen) {
        Forms::Screen->RemoveDataModule(this);
    }
    DestroyComponents();
}

void TDataModule::AfterConstruction()
{
    if (!std::exchange(mIsWhole, true)) {
        DoCreate();
    }
}

void TDataModule::DoCreate()
{
    if (OnCreate) {
        OnCreate(this);
    }
}

void TDataModule::DoDestroy()
{
    if (!OnDestroy) {
        return;
    }
    // A destructor can't let it pass.
    try {
        OnDestroy(this);
    } catch (...) {
        Forms::Application->HandleException(this);
    }
}

void TDataModule::GetChildren(const TGetChildProc& proc, TComponent* root)
{
    TComponent::GetChildren(proc, root);
    if (root == this) {
        Forms::ForEachOrphan(*this, proc);
    }
}

void TDataModule::DefineProperties(TFiler& filer)
{
    TComponent::DefineProperties(filer);
    const auto* const ancestor = dynamic_cast<const TDataModule*>(filer.getAncestor());
    const TPoint knownOffset = ancestor == nullptr ? TPoint() : ancestor->mDesignOffset;
    const TPoint knownSize = ancestor == nullptr ? TPoint() : ancestor->mDesignSize;
    const auto define = [&filer](const char16_t* name, int& value, int known) {
        filer.DefineProperty(
            name, [&value](TReader& reader) { value = static_cast<int>(reader.ReadInteger()); },
            [&value](TWriter& writer) { writer.WriteInteger(value); }, value != known);
    };
    define(u"Height", mDesignSize.Y, knownSize.Y);
    define(u"HorizontalOffset", mDesignOffset.X, knownOffset.X);
    define(u"VerticalOffset", mDesignOffset.Y, knownOffset.Y);
    define(u"Width", mDesignSize.X, knownSize.X);
}

} // namespace Classes
