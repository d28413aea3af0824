// SPDX-License-Identifier: MIT
#include "platform/host/Host_Error.h"

#include "platform/base/System_String.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <optional>

#include <string.h> // NOLINT(modernize-deprecated-headers): <cstring> needn't have what is the host's alone

namespace
{

thread_local unsigned long lastError = ERROR_SUCCESS;

struct ErrorPair
{
    int hostError;
    unsigned long code;
};

// The first line with an `errno` decides its code, the first with a code the text of the code.
constexpr ErrorPair ErrorPairs[] = {
    {0, ERROR_SUCCESS},
    {ENOSYS, ERROR_INVALID_FUNCTION},
    {ENOTTY, ERROR_INVALID_FUNCTION},
    {ENOENT, ERROR_FILE_NOT_FOUND},
    {ENOENT, ERROR_PATH_NOT_FOUND},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
    {EACCES, ERROR_ACCESS_DENIED},
    {EPERM, ERROR_ACCESS_DENIED},
    {EISDIR, ERROR_ACCESS_DENIED},
    {EBADF, ERROR_INVALID_HANDLE},
    {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {ENOMEM, ERROR_OUTOFMEMORY},
    {ENOEXEC, ERROR_BAD_FORMAT},
    {EILSEQ, ERROR_INVALID_DATA},
    {ENODEV, ERROR_INVALID_DRIVE},
    {ENODEV, ERROR_DEVICE_REMOVED},
    {ENXIO, ERROR_FILE_NOT_FOUND},
    {EXDEV, ERROR_NOT_SAME_DEVICE},
    {EROFS, ERROR_WRITE_PROTECT},
    {EAGAIN, ERROR_NOT_READY},
    {EIO, ERROR_GEN_FAILURE},
    {ETXTBSY, ERROR_SHARING_VIOLATION},
    {EOPNOTSUPP, ERROR_NOT_SUPPORTED},
    {EEXIST, ERROR_ALREADY_EXISTS},
    {EEXIST, ERROR_FILE_EXISTS},
    {EINVAL, ERROR_INVALID_PARAMETER},
    {EFAULT, ERROR_INVALID_PARAMETER},
    {EPIPE, ERROR_BROKEN_PIPE},
    {ENOSPC, ERROR_DISK_FULL},
    {EDQUOT, ERROR_DISK_FULL},
    {ENOTEMPTY, ERROR_DIR_NOT_EMPTY},
    {EBUSY, ERROR_BUSY},
    {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
    {EFBIG, ERROR_FILE_TOO_LARGE},
    {ENOTDIR, ERROR_DIRECTORY},
    {EOVERFLOW, ERROR_ARITHMETIC_OVERFLOW},
    {ECANCELED, ERROR_OPERATION_ABORTED},
    {EINPROGRESS, ERROR_IO_PENDING},
    {EDEADLK, ERROR_POSSIBLE_DEADLOCK},
    {ENOLCK, ERROR_NO_SYSTEM_RESOURCES},
    {ETIMEDOUT, ERROR_TIMEOUT},
    {ELOOP, ERROR_CANT_RESOLVE_FILENAME},
};

struct OwnText
{
    unsigned long code;
    const char16_t* text;
};

// Codes that no `errno` stands for, or whose `errno` tells of something else.
constexpr OwnText OwnTexts[] = {
    {ERROR_NO_MORE_FILES, u"No more files"},
    {ERROR_SHARING_VIOLATION, u"The file is open elsewhere and not shared"},
    {ERROR_LOCK_VIOLATION, u"A part of the file is locked"},
    {ERROR_HANDLE_EOF, u"End of file reached"},
    {ERROR_CALL_NOT_IMPLEMENTED, u"Function not implemented"},
    {ERROR_INSUFFICIENT_BUFFER, u"The buffer is too small"},
    {ERROR_INVALID_NAME, u"Invalid file name"},
    {ERROR_MOD_NOT_FOUND, u"Module not found"},
    {ERROR_PROC_NOT_FOUND, u"Function not found in the module"},
    {ERROR_NEGATIVE_SEEK, u"Position before the begin of the file"},
    {ERROR_ENVVAR_NOT_FOUND, u"Variable not found in the environment"},
    {ERROR_MORE_DATA, u"More data is available"},
    {WAIT_TIMEOUT, u"The wait timed out"},
    {ERROR_NO_MORE_ITEMS, u"No more items"},
    {ERROR_NOT_OWNER, u"Not owned by the caller"},
    {ERROR_PARTIAL_COPY, u"Only a part of the memory was copied"},
    {ERROR_MR_MID_NOT_FOUND, u"No text for this error code"},
    {ERROR_INVALID_ADDRESS, u"Nothing begins at this address"},
    {ERROR_MAPPED_ALIGNMENT, u"The offset of a view must be a multiple of 65536"},
    {ERROR_IO_INCOMPLETE, u"The operation isn't complete"},
    {ERROR_NOT_FOUND, u"Element not found"},
    {ERROR_CANCELLED, u"Cancelled by the user"},
    {ERROR_UNKNOWN_REVISION, u"Unknown revision of a security descriptor"},
    {ERROR_PRIVILEGE_NOT_HELD, u"A required privilege is missing"},
    {ERROR_INVALID_WINDOW_HANDLE, u"There is no such window"},
    {ERROR_TIMEOUT, u"The operation timed out"},
};

std::optional<int> ErrnoFromError(unsigned long code)
{
    if ((code & Host::HostErrorMark) != 0) {
        const unsigned long hostError = code & ~Host::HostErrorMark;
        return hostError != 0 && hostError < 4096 ? std::optional<int>(static_cast<int>(hostError))
                                                  : std::nullopt;
    }
    const auto* found = std::ranges::find(ErrorPairs, code, &ErrorPair::code);
    return found == std::end(ErrorPairs) ? std::nullopt : std::optional<int>(found->hostError);
}

System::UnicodeString ErrorText(unsigned long code)
{
    const auto* own = std::ranges::find(OwnTexts, code, &OwnText::code);
    if (own != std::end(OwnTexts)) {
        return own->text;
    }
    const std::optional<int> hostError = ErrnoFromError(code);
    if (!hostError) {
        return {};
    }
    char buffer[256];
    return System::FromUtf8(strerror_r(*hostError, buffer, sizeof buffer));
}

} // namespace

unsigned long GetLastError()
{
    return lastError;
}

void SetLastError(unsigned long code)
{
    lastError = code;
}

unsigned long FormatMessageW(unsigned long flags, const void* /*source*/, unsigned long messageId,
                             unsigned long /*languageId*/, System::WideChar* buffer, unsigned long size,
                             void* /*arguments*/)
{
    if ((flags & FORMAT_MESSAGE_FROM_SYSTEM) == 0 || buffer == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const System::UnicodeString text = ErrorText(messageId);
    if (text.IsEmpty()) {
        SetLastError(ERROR_MR_MID_NOT_FOUND);
        return 0;
    }
    const auto length = static_cast<unsigned long>(text.Length());
    if (length >= size) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::copy_n(text.c_str(), length + 1, buffer);
    return length;
}

namespace Host
{

unsigned long ErrorFromErrno(int hostError)
{
    const auto* found = std::ranges::find(ErrorPairs, hostError, &ErrorPair::hostError);
    return found == std::end(ErrorPairs) ? HostErrorMark | static_cast<unsigned long>(hostError)
                                         : found->code;
}

bool Fail(unsigned long code)
{
    SetLastError(code);
    return false;
}

bool FailErrno()
{
    return Fail(ErrorFromErrno(errno));
}

} // namespace Host
