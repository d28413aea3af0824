// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_FileInStream.h"

#include "streams/internal/BTL_STRM_DataFileSource.h"
#include "streams/internal/BTL_STRM_Scan.h"

#include <algorithm>
#include <climits>

namespace BTL
{

using Classes::TFileStream;
using System::Int64;
using System::UnicodeString;

CFileInStream::CFileInStream(const UnicodeString& path) : CFileInStream(path, Classes::fmShareDenyNone) {}

CFileInStream::CFileInStream(const UnicodeString& path, unsigned short mode)
    : CInStream(new TFileStream(path, mode), ssRewind, true),
      mFileStream(static_cast<TFileStream*>(getStream()))
{
}

CFileInStream::CFileInStream(const UnicodeString& path, EFileOpenMode mode, EFileShareMode share)
    : CInStream(path, mode, share), mFileStream(static_cast<TFileStream*>(getStream()))
{
}

CFileInStream::~CFileInStream() = default;

// CFileInStreamEx

template class GDataFile<CFileInStream>;

CFileInStreamEx::CFileInStreamEx(const UnicodeString& path) : GDataFile(path, path) {}

CFileInStreamEx::~CFileInStreamEx() = default;

int CFileInStreamEx::getCurrLine()
{
    const Int64 position = getPosition();
    Classes::TStream* const stream = getStream();
    if (mLineCount.position == 0 || position < mLineCount.position) {
        mLineCount = {0, CountLines(stream, position)};
    } else {
        // Seen from the position, what was read just now is still in memory.
        stream->Seek(mLineCount.position - position, Classes::soCurrent);
        mLineCount.lines += Detail::CountLineFeeds(*stream, position - mLineCount.position);
    }
    mLineCount.position = getPosition();
    return static_cast<int>(std::min(mLineCount.lines, Int64{INT_MAX}));
}

Int64 CFileInStreamEx::getPosition() const
{
    return GetPosition();
}

Int64 CFileInStreamEx::getSize() const
{
    return GetSize(getStream());
}

} // namespace BTL
