// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_GSimpleVector.hpp"
#include "foundation/vectors/UTL_SV_GSimpleVectorClass.h"
