// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/filer/Classes_Reader.h"

#include <memory>
#include <unordered_map>

namespace Classes
{
class TResourceStream;
} // namespace Classes

namespace PASO
{

/// Reads the form resource of one class into a component, for the life of one read. The component needn't be
/// of the class: its published properties, methods and the classes of its fields are those of the class that
/// is read. So an event that names a method of it holds that method, which does nothing where the component
/// was made of a parent of the class.
///
///     PASO::CReader reader(System::ClassOf<TMainForm>());         // the resource TMainForm
///     reader.ReadComponentRes(form);
///
/// A component in the resource is made by the published method `CreateComponentByDesigner` of the class, if
/// there is one; by the event for that, if the method left it null; by the reader, if both did. A method of a
/// class that the root wasn't made of doesn't run; to be called all the same it is published as a function
/// that takes the root first, `void (Forms::TForm*, TReader*, TMetaClass*, TComponent*&)`.
class TRS8_BTL_API CReader
{
public:
    /// May make a component, with the reader's owner.
    using TCreateEvent = Classes::TCreateComponentEvent;
    /// Hears of the root when a level of its class has been read.
    using TAfterReadEvent = Classes::TNotifyEvent;

    /// `Sysutils::EInvalidCast` if the class publishes a `CreateComponentByDesigner` of other arguments.
    explicit CReader(System::TMetaClass* componentClass);
    CReader(const CReader&) = delete;
    CReader& operator=(const CReader&) = delete;
    virtual ~CReader();

    /// Reads into `root` and gives it; for null it makes one, as `TReader::ReadRootComponent` does.
    /// `Classes::EResNotFound` if the class has no resource, `Classes::EReadError` if an event destroyed the
    /// root, else it raises what `ReadRootComponent` does.
    Classes::TComponent* ReadComponentRes(Classes::TComponent* root);

    // The events of all readers, empty at first. There is no lock: they belong to the main thread.

    static void SetCreateComponentEvent(const TCreateEvent& event);
    static void SetAfterReadEvent(const TAfterReadEvent& event);
    /// Empties both.
    static void ClearEvents();

protected:
    /// Told of what went wrong, with a property or a component while `reader` reads, and with all of it in
    /// the end. By itself it does nothing; `handled`, which is false, says whether it may be passed over.
    /// `reader` is null where there is no resource to read.
    virtual void Error(Classes::TReader* reader, const System::UnicodeString& message, bool& handled);

private:
    void Init();
    void Close() noexcept;
    void CreateComponent(Classes::TReader* reader, System::TMetaClass* type, Classes::TComponent*& component);
    void FindComponentClass(Classes::TReader* reader, const System::UnicodeString& name,
                            System::TMetaClass*& type);
    void FindMethod(Classes::TReader* reader, const System::UnicodeString& name,
                    System::TMethodAddress& address, bool& error);
    void TellError(Classes::TReader* reader, const System::UnicodeString& message, bool& handled)
    {
        Error(reader, message, handled);
    }

    System::TMetaClass* mComponentClass;
    System::TMethodAddress mCreateByDesigner;
    std::unique_ptr<Classes::TResourceStream> mStream;
    std::unique_ptr<Classes::TReader> mReader;
    Classes::TComponent* mRoot = nullptr;
    std::unordered_map<System::UnicodeString, System::TMetaClass*> mClasses;
};

} // namespace PASO
