// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Exceptions.h"

namespace Classes
{

EStreamError::~EStreamError() = default;
EFileStreamError::~EFileStreamError() = default;
EFCreateError::~EFCreateError() = default;
EFOpenError::~EFOpenError() = default;
EFilerError::~EFilerError() = default;
EReadError::~EReadError() = default;
EWriteError::~EWriteError() = default;
EParserError::EParserError(const System::UnicodeString& reason, int line, int column)
    : Exception(u"Line " + System::UnicodeString(line) + u", column " + System::UnicodeString(column) +
                u", " + reason),
      mReason(reason),
      mLine(line),
      mColumn(column)
{
}

EParserError::~EParserError() = default;
EInvalidImage::~EInvalidImage() = default;
EClassNotFound::~EClassNotFound() = default;
EResNotFound::~EResNotFound() = default;
EListError::~EListError() = default;
EStringListError::~EStringListError() = default;
EComponentError::~EComponentError() = default;
EInvalidOperation::~EInvalidOperation() = default;
EThread::~EThread() = default;

} // namespace Classes
