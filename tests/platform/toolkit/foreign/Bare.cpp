// SPDX-License-Identifier: MIT

// A library that knows nothing of this one.
