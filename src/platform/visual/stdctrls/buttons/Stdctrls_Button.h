// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/stdctrls/buttons/Stdctrls_ButtonControl.h"

namespace Stdctrls
{

/// Base of buttons: pressed also by Enter while one of them has the focus or it is the default one, and by
/// Escape if it is the cancel button.
///
///     auto* const ok = new Stdctrls::TButton(form);
///     ok->setParent(form);
///     ok->setCaption(u"&Ok");
///     ok->setDefault(true);
///     ok->setModalResult(mrOk);                                   // a click ends the modal form
class TRS8_BTL_API TCustomButton : public TButtonControl
{
    TRS8_BTL_CLASS(TCustomButton, TButtonControl)

public:
    explicit TCustomButton(Classes::TComponent* owner = nullptr);
    ~TCustomButton() override;

    /// Gives the form the modal result, then calls `OnClick`.
    void Click() override;
    void Dispatch(void* message) override;

    /// Whether Enter presses it while no other button has the focus; off at first.
    bool getDefault() const noexcept { return mDefault; }
    void setDefault(bool isDefault);
    /// Whether Escape presses it; off at first.
    bool getCancel() const noexcept { return mCancel; }
    void setCancel(bool isCancel) noexcept { mCancel = isCancel; }
    /// What a click ends a modal form with; 0, which doesn't end it, at first.
    int getModalResult() const noexcept { return mModalResult; }
    void setModalResult(int result) noexcept { mModalResult = result; }
    /// Whether Enter presses it just now.
    bool getActive() const;

protected:
    void PressMark() override { Click(); }
    void CreateParams(Controls::TCreateParams& params) override;
    void TellWindow(Toolkits::Window& window) override;
    void Paint() override;

private:
    bool PressedBy(const Messages::TMessage& message) const;
    void ShowActive();

    int mModalResult = 0;
    bool mDefault = false;
    bool mCancel = false;
};

/// A button with a caption.
class TRS8_BTL_API TButton : public TCustomButton
{
    TRS8_BTL_CLASS(TButton, TCustomButton)

public:
    explicit TButton(Classes::TComponent* owner = nullptr) : TCustomButton(owner) {}
    ~TButton() override;
};

/// What all buttons publish beyond `PublishControl` and `PublishFocus`.
template <class T>
System::GClassBuilder<T> PublishButton(System::GClassBuilder<T> builder)
{
    builder.Property(u"Cancel", &T::getCancel, &T::setCancel, {.defaultValue = 0})
        .Property(u"Caption", &T::getCaption, &T::setCaption)
        .Property(u"Default", &T::getDefault, &T::setDefault, {.defaultValue = 0})
        .Property(u"ModalResult", &T::getModalResult, &T::setModalResult, {.defaultValue = 0})
        .Property(u"WordWrap", &T::getWordWrap, &T::setWordWrap, {.defaultValue = 0});
    return builder;
}

} // namespace Stdctrls
