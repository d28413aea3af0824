// SPDX-License-Identifier: MIT
#include "platform/toolkit/PaintDevice.h"

namespace Toolkits
{

PaintDevice::~PaintDevice() = default;

} // namespace Toolkits
