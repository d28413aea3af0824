// SPDX-License-Identifier: MIT
#pragma once

// File operations as a whole: names, single files, folders, trees of files, searches, installed programs.

#include "environment/files/BTL_SYS_CopyPath.h"
#include "environment/files/BTL_SYS_FileNames.h"
#include "environment/files/BTL_SYS_Files.h"
#include "environment/files/BTL_SYS_FindFiles.h"
#include "environment/files/BTL_SYS_Folders.h"
#include "environment/files/BTL_SYS_InstalledPrograms.h"
