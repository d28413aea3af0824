// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/InputPlayer.h"

namespace Toolkits
{

/// Plays the user by events of Qt.
class CQtInputPlayer final : public InputPlayer
{
public:
    ~CQtInputPlayer() override;

    void Settle() override;
    void PressKey(Window& window, System::Word key, System::WideChar character,
                  const Classes::TShiftState& shift) override;
    void InsertText(Window& window, const System::UnicodeString& text) override;
    void UseMouse(Window& window, const TMouseInput& mouse) override;
};

} // namespace Toolkits
