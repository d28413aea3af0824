// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/Classes_Exceptions.h"
#include "platform/runtime/Classes_Persistent.h"
#include "platform/runtime/Classes_Stream.h"
#include "platform/runtime/Classes_Strings.h"
#include "platform/runtime/Classes_Update.h"
