// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_ASRT_FaultPlace.h"
#include "platform/base/Sysutils_Exception.h"

namespace UTL
{

// `what` is wide here and hides that of `std::exception` on purpose.
#if defined(__clang__) || __GNUC__ >= 13
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
#endif

/// An internal fault: a state that a correct program never reaches.
///
///     constexpr UTL::CFaultPlace NoChannel{"Channels.cpp", 12};   // stays as it is when the code moves
///     if (channel < 0) {
///         UTL::THROW_XAssert(NoChannel, "channel >= 0");
///         return;                                                 // where the user let it pass
///     }
class TRS8_BTL_API XAssert : public Sysutils::Exception
{
public:
    /// `expression` tells what failed and is often empty, `file` is a source name without folder. A null
    /// pointer counts as empty.
    XAssert(const char* expression, const char* file, int line);
    XAssert(const System::WideChar* expression, const char* file, int line);
    ~XAssert() override;

    /// Sets the wide `what` apart from that of `std::exception`. Nobody writes it.
    enum class EWide
    {
        Text
    };

    /// The text for the user, the same as the message; `what()` of the base classes gives it in UTF-8.
    virtual const System::WideChar* what(EWide = EWide::Text) const;

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

#if defined(__clang__) || __GNUC__ >= 13
#pragma GCC diagnostic pop
#endif

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
