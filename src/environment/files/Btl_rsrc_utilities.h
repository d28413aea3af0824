// SPDX-License-Identifier: MIT
#pragma once

// The version data of files as a whole: of one, of all in a folder.

#include "environment/BTL_RSRC_VersionInfo.h"
#include "environment/files/BTL_RSRC_FileDescriptions.h"
