// SPDX-License-Identifier: MIT
#pragma once

// Data sets and their fields, without controls.
//
//     #include <TRS8_BTL/platform/visual/Db.h>
//
//     Db::TSqliteDatabase database;
//     database.setFileName(path);
//     Db::TSqliteDataSet samples;
//     samples.setDatabase(&database);
//     samples.setTableName(u"samples");
//     samples.Open();

#include "platform/visual/data/sets/Db_DataSource.h"    // IWYU pragma: export
#include "platform/visual/data/sets/Db_FieldTypes.h"    // IWYU pragma: export
#include "platform/visual/data/sets/Db_MemoryDataSet.h" // IWYU pragma: export
#include "platform/visual/data/sets/Db_SqliteDataSet.h" // IWYU pragma: export
