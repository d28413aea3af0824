// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_ASRT_FaultPlace.h"
#include "platform/base/Sysutils_Exception.h"

namespace UTL
{

/// An internal fault: a state that a correct program never reaches.
class TRS8_BTL_API XAssert : public Sysutils::Exception
{
public:
    /// `expression` tells what failed and is often empty, `file` is a source name without folder. A null
    /// pointer counts as empty.
    XAssert(const char* expression, const char* file, int line);
    XAssert(const System::WideChar* expression, const char* file, int line);
    ~XAssert() override;

    /// The text for the user, the same as the message.
    virtual const System::WideChar* what() const;

    const System::UnicodeString& getExpression() const noexcept { return mExpression; }
    const System::AnsiString& getFile() const noexcept { return mFile; }
    int getLine() const noexcept { return mLine; }

    /// Builds the text of a fault. The result stays valid until the thread's next call of the same overload.
    static const System::WideChar* Msg(const char* expression, const char* file, int line);
    /// What the 8-bit code page lacks is lost from `expression`.
    static const System::WideChar* Msg(const System::WideChar* expression, const char* file, int line);

private:
    System::UnicodeString mExpression;
    System::AnsiString mFile;
    int mLine;
};

/// Shows an internal fault and asks whether to raise it: throws `XAssert` on Yes, returns on any other
/// answer. The caller then goes on as if its check had passed, so it must not touch what it doesn't own.
TRS8_BTL_API void THROW_XAssert(const char* expression, const char* file, int line);
TRS8_BTL_API void THROW_XAssert(const System::WideChar* expression, const char* file, int line);
TRS8_BTL_API void THROW_XAssert(const CFaultPlace& place, const char* expression = "");

/// Shows an internal fault and returns.
TRS8_BTL_API void Warn(const char* expression, const char* file, int line);
TRS8_BTL_API void Warn(const System::WideChar* expression, const char* file, int line);
TRS8_BTL_API void Warn(const CFaultPlace& place, const char* expression = "");

} // namespace UTL
