// SPDX-License-Identifier: MIT
#include "Witness.h"

namespace
{

const Lifetime::CWitness global("add-in");

} // namespace
