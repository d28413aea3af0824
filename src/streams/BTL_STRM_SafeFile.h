// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Stream.h"

#include <memory>

namespace BTL
{

/// Makes a file that is whole or isn't there: the old content stays until the new one is complete and on the
/// disk, whatever happens meanwhile. Readers that have the old one open keep it. The file behind a symbolic
/// link is the one that is replaced; its owner, access list and permissions stay.
///
///     CSafeFile file(u"state.txt");
///     CTextWriter out(file.getStream());
///     out.WriteLine(u"new");
///     out.Close();
///     file.Commit();                       // without it all stays as it was
///
/// A file of another user can be replaced by root alone, since the new one would belong to who writes it. Who
/// may write such a file by its permissions, as a member of its group say, changes it in place, by a stream
/// of its own: a file in place can be half written, so that this class never does it.
///
/// The new content grows under the name with ".new1", or another free number, behind it. A crash may leave
/// that.
class TRS8_BTL_API CSafeFile
{
public:
    /// `Classes::EFCreateError` for a folder, a device, a pipe, a read-only file or one whose owner can't be
    /// kept, which the message tells, and if the host refuses the new file. What is no plain file is written
    /// by a stream of its own.
    explicit CSafeFile(const System::UnicodeString& path);
    CSafeFile(const CSafeFile&) = delete;
    CSafeFile& operator=(const CSafeFile&) = delete;
    /// Without `Commit`, the new content is thrown away.
    ~CSafeFile();

    /// To write to, up to `Commit`; lives as long as this object.
    Classes::TStream* getStream() const noexcept { return mStream.get(); }
    /// Brings what was written to the disk and puts it in the place of the file. `Classes::EWriteError`, with
    /// the path and the reason, if that can't be done; the file is as before then, or the new one, if only
    /// its folder can't be brought to the disk. Once done it stays so.
    void Commit();

private:
    System::UnicodeString mTarget;
    /// Empty once nothing is left to be thrown away.
    System::UnicodeString mWritten;
    std::unique_ptr<Classes::TFileStream> mStream;
};

} // namespace BTL
