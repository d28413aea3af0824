// SPDX-License-Identifier: MIT
#pragma once

/// Marks what the shared library exports; everything else in it stays hidden.
#define TRS8_BTL_API __attribute__((visibility("default")))
