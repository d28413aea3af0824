// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"
#include "platform/runtime/filer/Classes_FormResource.h"

namespace Classes
{

/// A sheet for components that can't be seen, as data sets and their sources, which several forms share. It
/// is designed as a form is.
///
///     TStoreModule::TStoreModule(Classes::TComponent* owner) : TDataModule(owner)
///     {
///         ReadDesign();                                           // what StoreModule.form says
///     }
///     Forms::Application->CreateForm(storeModule);                // TStoreModule* storeModule
class TRS8_BTL_API TDataModule : public TComponent
{
    TRS8_BTL_CLASS(TDataModule, TComponent)

public:
    explicit TDataModule(TComponent* owner = nullptr);
    ~TDataModule() override;

    /// To be called when the module has been made completely, as `TApplication::CreateForm` does; only the
    /// first call counts. Calls `OnCreate`.
    void AfterConstruction();

    /// Where the sheet lies for those who design it, and how large it is; 0 at first.
    Types::TPoint getDesignOffset() const noexcept { return mDesignOffset; }
    void setDesignOffset(Types::TPoint offset) noexcept { mDesignOffset = offset; }
    Types::TPoint getDesignSize() const noexcept { return mDesignSize; }
    void setDesignSize(Types::TPoint size) noexcept { mDesignSize = size; }

    TNotifyEvent OnCreate;
    /// An exception of its handler is shown, and the module goes all the same.
    TNotifyEvent OnDestroy;

protected:
    /// To be called last in the constructor of each class that has a `NAME.form`: makes what stands there.
    /// False without one. Raises as `TReader::ReadRootComponent`.
    bool ReadDesign() { return ReadOwnDesign(*this); }

    /// Called when the module is whole, and at its end; each calls its event.
    virtual void DoCreate();
    virtual void DoDestroy();
    void GetChildren(const TGetChildProc& proc, TComponent* root) override;
    /// Keeps the sheet's place and size as `HorizontalOffset`, `VerticalOffset`, `Width` and `Height`.
    void DefineProperties(TFiler& filer) override;

private:
    Types::TPoint mDesignOffset;
    Types::TPoint mDesignSize;
    bool mIsWhole = false;
    bool mIsOnScreen;
};

} // namespace Classes
