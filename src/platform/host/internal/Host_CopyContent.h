// SPDX-License-Identifier: MIT
#pragma once

struct stat;

namespace Host
{

/// Fills the empty open file `target` with the content of the plain file `source`, up to the size that it has
/// in `status`; so a source that grows all the time has an end, and one that was cut since gives less. One
/// without a size, as the kernel's own files are, is read to its end. Holes stay holes. The host copies by
/// itself where it can, so that nothing comes to this process or, on some file systems, is copied at all.
/// `false` with the last error set on a failure. The caller holds the signals of writing off
/// (`WriteSignals`).
[[nodiscard]] bool CopyContent(int source, const struct stat& status, int target);

} // namespace Host
