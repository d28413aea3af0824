// SPDX-License-Identifier: MIT
#pragma once

// Mails as a whole: the call, its codes and its records.

#include "environment/BTL_SYS_Mail.h"
#include "platform/host/Mapi.h"
