// SPDX-License-Identifier: MIT
#pragma once

// Addresses as a whole: pages for the browser, mails for the mail program.

#include "environment/BTL_SYS_Mail.h"
#include "os/Win_sys_utilitiesw.h"
