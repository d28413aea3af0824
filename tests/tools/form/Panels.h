// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"

/// A component that is made from a form.
class TPanel : public Classes::TComponent
{
    TRS8_BTL_CLASS(TPanel, Classes::TComponent)

public:
    explicit TPanel(Classes::TComponent* owner = nullptr) : TComponent(owner) {}

    System::UnicodeString Caption;
};

/// The caption of the form of a class that lies in a static library, of which the program knows this function
/// alone.
System::UnicodeString CaptionInLibrary();
