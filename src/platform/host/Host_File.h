// SPDX-License-Identifier: MIT
#pragma once

// All about files at once:
// - `Host_OpenFile.h`: opening, reading and writing,
// - `Host_FileInfo.h`: attributes, size and times,
// - `Host_FileMove.h`: moves, copies, deletions,
// - `Host_Folder.h`: folders, the current one, the space of the disk,
// - `Host_UserFiles.h`: the home folder and temporary files,
// - `Host_Path.h`: how the paths of the library and of the host stand for each other.

#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_FileMove.h"
#include "platform/host/Host_Folder.h"
#include "platform/host/Host_OpenFile.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_UserFiles.h"
