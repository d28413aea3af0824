// SPDX-License-Identifier: MIT
#include "platform/toolkit/PaintTypes.h"

namespace Graphics
{

EInvalidGraphic::~EInvalidGraphic() = default;

EInvalidGraphicOperation::~EInvalidGraphicOperation() = default;

} // namespace Graphics
