// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/Forms.h"

namespace Gauges
{

/// The base of forms in two modules.
class TRS8_BTL_API TGaugeForm : public Forms::TForm
{
    TRS8_BTL_CLASS(TGaugeForm, Forms::TForm)

public:
    explicit TGaugeForm(Classes::TComponent* owner = nullptr) : TForm(owner) {}
    ~TGaugeForm() override;
};

} // namespace Gauges
