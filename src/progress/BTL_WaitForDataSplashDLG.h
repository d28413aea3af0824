// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/forms/Forms_Form.h"

#include <concepts>

namespace Stdctrls
{
class TLabel;
} // namespace Stdctrls

/// A small form without a frame, with one line of text, that is in the middle of the screen while the user
/// has to wait. While it is shown no new hourglass cursor acts. Mostly `BTL::CWaitSplash` makes it.
class TRS8_BTL_API TWaitForDataSplashDLG : public Forms::TForm
{
    TRS8_BTL_CLASS(TWaitForDataSplashDLG, Forms::TForm)

public:
    /// Says that data are read.
    explicit TWaitForDataSplashDLG(Classes::TComponent* owner = nullptr);
    /// Says that data are read, or written.
    template <std::same_as<bool> Bool>
    TWaitForDataSplashDLG(Classes::TComponent* owner, Bool isForReading)
        : TWaitForDataSplashDLG(owner, TextFor(isForReading))
    {
    }
    TWaitForDataSplashDLG(Classes::TComponent* owner, const System::UnicodeString& text);
    ~TWaitForDataSplashDLG() override;

    /// What is told where data are read, or written, in the user's language.
    [[nodiscard]] static System::UnicodeString TextFor(bool isForReading);

    /// Published handlers of the design: the cursors are switched off, and on again.
    void FormShow(System::TObject* sender);
    void FormHide(System::TObject* sender);

    /// The text.
    Stdctrls::TLabel* fLabel = nullptr;
};

/// For a program's own form of this class; null at first.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
TRS8_BTL_API extern TWaitForDataSplashDLG* _WaitForDataSplashDLG;
