// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/internal/Classes_FormInput.h"
#include "platform/runtime/filer/internal/Classes_FormPath.h"
#include "platform/runtime/filer/internal/Classes_Loading.h"
#include "platform/runtime/filer/internal/Classes_Reference.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace Classes
{

/// Where a reader is.
class TReader::CState
{
public:
    /// What is known of the components of one call from outside.
    struct TSession
    {
        /// Those whose end the reader must hear of, and those among them that it made.
        CLiveComponents alive;
        CLiveComponents created;
    };

    /// The call from outside, for a scope; one within another has the outer one's session.
    class CSession
    {
    public:
        explicit CSession(CState& state);
        CSession(const CSession&) = delete;
        CSession& operator=(const CSession&) = delete;
        ~CSession();

        bool IsOwn() const noexcept { return mOwn != nullptr; }
        /// Calls `Loaded`, unless an outer reader will.
        void FinishLoading() { mLoading->Finish(); }
        /// Gives what `read` gives. If it raises, what the reader made up to then is destroyed.
        template <class Read>
        TComponent* Run(Read read)
        {
            try {
                return read();
            } catch (...) {
                mState.session->created.Destroy();
                throw;
            }
        }

    private:
        CState& mState;
        std::unique_ptr<CLoading> mLoading;
        std::unique_ptr<TSession> mOwn;
    };

    /// One level further in, for a scope. `EReadError` beyond the deepest.
    class CDepth
    {
    public:
        explicit CDepth(CState& state);
        CDepth(const CDepth&) = delete;
        CDepth& operator=(const CDepth&) = delete;
        ~CDepth() { --mState.depth; }

    private:
        CState& mState;
    };

    /// A component as a part of the path, for a scope.
    class CPathScope
    {
    public:
        CPathScope(CState& state, std::string_view className, std::string_view name);
        CPathScope(const CPathScope&) = delete;
        CPathScope& operator=(const CPathScope&) = delete;
        ~CPathScope();

    private:
        CState& mState;
        std::string mProperty;
    };

    /// `csReading` for a scope.
    class CReading
    {
    public:
        CReading(CState& state, TComponent& component);
        CReading(const CReading&) = delete;
        CReading& operator=(const CReading&) = delete;
        ~CReading();

    private:
        CState& mState;
        TComponent& mComponent;
    };

    /// What stands in front of a component's properties.
    struct THead
    {
        TFilerFlags flags;
        System::Int64 childPos = 0;
        std::string className;
        std::string name;
    };

    CState(TStream& stream, std::size_t blockSize) : input(stream, blockSize) {}

    THead TakeHead();
    /// Raises if the component was destroyed while it is read.
    void CheckAlive(const TComponent& component) const;

    /// Whether the fault, which is being handled, has its place in its message already.
    bool IsLocated(const std::exception& fault) const;
    System::UnicodeString MessageAt(const std::exception& fault, System::Int64 offset) const;
    /// Raises an exception of the kind of `fault` with this message.
    [[noreturn]] void ThrowLocated(const std::exception& fault, const System::UnicodeString& message);
    /// Raises the fault that is being handled, with its place.
    [[noreturn]] void Locate(const std::exception& fault, System::Int64 offset);

    Form::CInput input;
    Form::CFormPath path;
    int depth = 0;
    TSession* session = nullptr;
    /// The component whose properties are read, and the way from there to the object that has them.
    TComponent* component = nullptr;
    std::vector<TPartStep> steps;
    std::vector<TReference> references;
    std::unordered_map<System::UnicodeString, System::TMetaClass*> classes;
    System::UnicodeString located;
};

} // namespace Classes
