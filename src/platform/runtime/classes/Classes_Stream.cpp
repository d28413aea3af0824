// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Stream.h"

#include "platform/base/internal/System_Memory.h"
#include "platform/host/Host_Module.h"
#include "platform/runtime/classes/internal/Classes_Position.h"
#include "platform/runtime/classes/internal/Classes_StreamWindow.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <typeinfo>

namespace Classes
{

using System::Byte;
using System::GClassBuilder;
using System::Int64;
using System::TMetaClass;
using System::UnicodeString;

namespace
{

std::string_view AsChars(std::span<const Byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

constexpr const System::WideChar* NoStreamMemory = u"Out of memory while expanding memory stream";

/// More than any machine gives one program; such a size is a damaged one.
constexpr Int64 MaxMemory = Int64{1} << 39;

/// Runs what may use up the memory by needing `size` bytes.
template <class Grow>
void WithStreamMemory(Int64 size, Grow grow)
{
    if (size > MaxMemory) {
        throw Sysutils::EOutOfMemory(NoStreamMemory);
    }
    System::WithMemory(NoStreamMemory, grow);
}

/// How much is copied at a time.
constexpr Int64 ChunkSize = 0x10000;

/// For a source whose size tells nothing: that of a pipe, or of a file that the host makes up while it is
/// read.
Int64 CopyToEnd(TStream& source, TStream& target)
{
    std::vector<char> chunk(ChunkSize);
    Int64 count = 0;
    while (const Int64 size = std::max(source.Read(chunk.data(), ChunkSize), Int64{0})) {
        if (count == 0) {
            CStreamWindow::CheckHasEnd(source);
        }
        target.WriteBuffer(chunk.data(), size);
        count += size;
    }
    return count;
}

} // namespace

// TStream

TMetaClass* TStream::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TStream>(u"TStream").Build();
    return record;
}

TStream::~TStream() = default;

Int64 TStream::getPosition() const
{
    // A seek by nothing changes nothing.
    return const_cast<TStream*>(this)->Seek(0, soCurrent);
}

Int64 TStream::getSize() const
{
    auto* stream = const_cast<TStream*>(this);
    const Int64 position = stream->Seek(0, soCurrent);
    const Int64 size = stream->Seek(0, soEnd);
    stream->Seek(position, soBeginning);
    return size;
}

void TStream::setSize(Int64) {}

std::string_view TStream::Window()
{
    return {};
}

bool TStream::ShowsEnd() const noexcept
{
    return false;
}

bool TStream::IsEndless() const noexcept
{
    return false;
}

void TStream::PassWindow(Int64 count)
{
    Seek(count, soCurrent);
}

void TStream::RaiseWriteError() const
{
    throw EWriteError(u"Stream write error");
}

void TStream::ReadBuffer(void* buffer, Int64 count)
{
    auto* out = static_cast<char*>(buffer);
    // A pipe gives what it has, and more later.
    while (count > 0) {
        const Int64 done = Read(out, count);
        if (done <= 0) {
            throw EReadError(u"Stream read error");
        }
        out += done;
        count -= done;
    }
}

void TStream::WriteBuffer(const void* buffer, Int64 count)
{
    const auto* in = static_cast<const char*>(buffer);
    while (count > 0) {
        const Int64 done = Write(in, count);
        if (done <= 0) {
            RaiseWriteError();
        }
        in += done;
        count -= done;
    }
}

Int64 TStream::CopyFrom(TStream* source, Int64 count)
{
    if (source == nullptr) {
        throw EReadError(u"Stream read error");
    }
    if (count <= 0 && ToldPosition(*source)) {
        source->setPosition(0);
        count = source->getSize();
    }
    if (count <= 0) {
        return CopyToEnd(*source, *this);
    }
    std::vector<char> chunk(static_cast<std::size_t>(std::min(count, ChunkSize)));
    for (Int64 left = count; left > 0;) {
        const Int64 size = std::min(left, ChunkSize);
        source->ReadBuffer(chunk.data(), size);
        WriteBuffer(chunk.data(), size);
        left -= size;
    }
    return count;
}

// TCustomMemoryStream

TMetaClass* TCustomMemoryStream::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TCustomMemoryStream>(u"TCustomMemoryStream").Build();
    return record;
}

TCustomMemoryStream::~TCustomMemoryStream() = default;

Int64 TCustomMemoryStream::Read(void* buffer, Int64 count)
{
    const std::string_view bytes = AsView();
    const Int64 left = static_cast<Int64>(bytes.size()) - mPosition;
    count = std::min(count, left);
    if (buffer == nullptr || count <= 0) {
        return 0;
    }
    std::memcpy(buffer, bytes.data() + mPosition, static_cast<std::size_t>(count));
    mPosition += count;
    return count;
}

Int64 TCustomMemoryStream::Seek(Int64 offset, TSeekOrigin origin)
{
    const Int64 base = origin == soBeginning ? 0 : origin == soCurrent ? mPosition : getSize();
    mPosition = std::max(AddClamped(base, offset), Int64{0});
    return mPosition;
}

/// A class derived elsewhere may read in another way.
bool TCustomMemoryStream::ShowsEnd() const noexcept
{
    const std::type_info& type = typeid(*this);
    return type == typeid(TMemoryStream) || type == typeid(TStringStream) || type == typeid(TBytesStream) ||
           type == typeid(TResourceStream);
}

std::string_view TCustomMemoryStream::Window()
{
    if (!ShowsEnd()) {
        return {};
    }
    const std::string_view bytes = AsView();
    return bytes.substr(std::min(static_cast<std::size_t>(mPosition), bytes.size()));
}

void TCustomMemoryStream::SaveToStream(TStream* stream) const
{
    if (stream == nullptr) {
        throw EWriteError(u"Stream write error");
    }
    const std::string_view bytes = AsView();
    stream->WriteBuffer(bytes.data(), static_cast<Int64>(bytes.size()));
}

void TCustomMemoryStream::SaveToFile(const UnicodeString& path) const
{
    TFileStream stream(path, fmCreate);
    SaveToStream(&stream);
    stream.Close();
}

// TMemoryStream

TMetaClass* TMemoryStream::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TMemoryStream>(u"TMemoryStream").Build();
    return record;
}

TMemoryStream::~TMemoryStream() = default;

Int64 TMemoryStream::Write(const void* buffer, Int64 count)
{
    if (buffer == nullptr || count <= 0) {
        return 0;
    }
    const auto* in = static_cast<const char*>(buffer);
    const std::less<> before;
    if (!before(in, mBytes.data()) && before(in, mBytes.data() + mBytes.size())) {
        // Its own bytes would move away while they are copied.
        const std::vector<char> copy(in, in + std::min<Int64>(count, mBytes.data() + mBytes.size() - in));
        return Write(copy.data(), static_cast<Int64>(copy.size()));
    }
    const Int64 end = AddClamped(mPosition, count);
    // A derived class may tell another size.
    const auto size = static_cast<Int64>(mBytes.size());
    WithStreamMemory(end, [&] {
        if (mPosition == size) {
            // The usual way, without filling first what is written over at once.
            mBytes.insert(mBytes.end(), in, in + count);
            return;
        }
        if (end > size) {
            mBytes.resize(static_cast<std::size_t>(end));
        }
        std::memcpy(mBytes.data() + mPosition, in, static_cast<std::size_t>(count));
    });
    mPosition = end;
    return count;
}

void TMemoryStream::setSize(Int64 size)
{
    WithStreamMemory(size, [&] { mBytes.resize(static_cast<std::size_t>(std::max(size, Int64{0}))); });
    mPosition = std::min(mPosition, getSize());
}

void TMemoryStream::setCapacity(Int64 capacity)
{
    if (capacity > getSize()) {
        WithStreamMemory(capacity, [&] { mBytes.reserve(static_cast<std::size_t>(capacity)); });
    }
}

void TMemoryStream::Clear()
{
    mBytes = {};
    mPosition = 0;
}

void TMemoryStream::LoadFromStream(TStream* stream)
{
    if (stream == nullptr) {
        throw EReadError(u"Stream read error");
    }
    if (stream == this) {
        mPosition = 0;
        return;
    }
    Int64 count = 0;
    if (ToldPosition(*stream)) {
        stream->setPosition(0);
        count = std::max(stream->getSize(), Int64{0});
    }
    setSize(count);
    mPosition = 0;
    if (count > 0) {
        // A derived class may have another idea of its size.
        stream->ReadBuffer(mBytes.data(), std::min(count, static_cast<Int64>(mBytes.size())));
    } else {
        CopyToEnd(*stream, *this);
        mPosition = 0;
    }
}

void TMemoryStream::LoadFromFile(const UnicodeString& path)
{
    TFileStream stream(path, fmOpenRead | fmShareDenyWrite);
    LoadFromStream(&stream);
}

// TBytesStream

TMetaClass* TBytesStream::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TBytesStream>(u"TBytesStream").Build();
    return record;
}

TBytesStream::TBytesStream(std::span<const Byte> bytes) : TMemoryStream(AsChars(bytes)) {}

TBytesStream::~TBytesStream() = default;

std::vector<Byte> TBytesStream::getBytes() const
{
    const std::string_view bytes = AsView();
    return {bytes.begin(), bytes.end()};
}

// TStringStream

TMetaClass* TStringStream::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TStringStream>(u"TStringStream").Build();
    return record;
}

TStringStream::TStringStream() : mEncoding(Sysutils::TEncoding::getDefault()) {}

TStringStream::TStringStream(const System::AnsiString& text)
    : TBytesStream(text.AsView()), mEncoding(Sysutils::TEncoding::getDefault())
{
}

TStringStream::TStringStream(const System::UTF8String& text)
    : TBytesStream(text.AsView()), mEncoding(Sysutils::TEncoding::getUTF8())
{
}

TStringStream::TStringStream(const UnicodeString& text, Sysutils::TEncoding* encoding, bool ownsEncoding)
    : TBytesStream(
          (encoding == nullptr ? *Sysutils::TEncoding::getDefault() : *encoding).GetBytes(text).AsView()),
      mEncoding(encoding == nullptr ? Sysutils::TEncoding::getDefault() : encoding),
      mOwnsEncoding(ownsEncoding && !Sysutils::TEncoding::IsStandardEncoding(mEncoding))
{
}

TStringStream::~TStringStream()
{
    if (mOwnsEncoding) {
        delete mEncoding;
    }
}

UnicodeString TStringStream::getDataString() const
{
    return mEncoding->GetString(AsView());
}

UnicodeString TStringStream::ReadString(Int64 count)
{
    const std::string_view bytes = AsView();
    const auto size = static_cast<Int64>(bytes.size());
    const Int64 position = std::min(mPosition, size);
    count = std::clamp(count, Int64{0}, size - position);
    mPosition = position + count;
    return mEncoding->GetString(
        bytes.substr(static_cast<std::size_t>(position), static_cast<std::size_t>(count)));
}

void TStringStream::WriteString(const UnicodeString& text)
{
    const System::RawByteString bytes = mEncoding->GetBytes(text);
    WriteBuffer(bytes.data(), bytes.Length());
}

// Resources

namespace
{

using ResourceKey = std::pair<UnicodeString, UnicodeString>;

struct TResource
{
    std::string_view bytes;
    const void* module;
};

struct TResourceRegister
{
    std::mutex mutex;
    /// Those of one name by their modules, in the order in which they came.
    std::map<ResourceKey, std::vector<TResource>> resources;
};

/// Made at its first use: modules register while they start, in any order.
TResourceRegister& Resources()
{
    static auto* const instance = new TResourceRegister;
    return *instance;
}

ResourceKey KeyOf(const UnicodeString& name, const UnicodeString& type)
{
    return {type.UpperCase(), name.UpperCase()};
}

/// The resource of that module, or else the last one; nothing if there is none.
std::optional<std::string_view> FindResource(const ResourceKey& key, const void* module)
{
    const std::scoped_lock lock(Resources().mutex);
    const auto found = Resources().resources.find(key);
    if (found == Resources().resources.end()) {
        return {};
    }
    const std::vector<TResource>& ofName = found->second;
    const auto own = std::ranges::find(ofName, module, &TResource::module);
    return own != ofName.end() ? own->bytes : ofName.back().bytes;
}

std::optional<std::string_view> FindFormResource(const TMetaClass* type)
{
    if (type == nullptr) {
        return {};
    }
    if (!type->FormResource().empty()) {
        return AsChars(type->FormResource());
    }
    return FindResource(KeyOf(type->getName(), ResourceRawData), Host::ModuleOf(type->ModuleAddress()));
}

[[noreturn]] void FailNoResource(const UnicodeString& name)
{
    throw EResNotFound(u"Resource " + name + u" not found");
}

} // namespace

void RegisterResource(const UnicodeString& name, std::span<const Byte> bytes, const UnicodeString& type)
{
    const TResource resource{AsChars(bytes), Host::ModuleOf(bytes.data())};
    const std::scoped_lock lock(Resources().mutex);
    std::vector<TResource>& ofName = Resources().resources[KeyOf(name, type)];
    std::erase_if(ofName, [&](const TResource& known) { return known.module == resource.module; });
    ofName.push_back(resource);
}

void UnregisterResource(const UnicodeString& name, std::span<const Byte> bytes, const UnicodeString& type)
{
    const std::scoped_lock lock(Resources().mutex);
    const auto found = Resources().resources.find(KeyOf(name, type));
    if (found == Resources().resources.end()) {
        return;
    }
    const auto isIt = [&](const TResource& known) { return known.bytes.data() == AsChars(bytes).data(); };
    std::erase_if(found->second, isIt);
    if (found->second.empty()) {
        Resources().resources.erase(found);
    }
}

bool ResourceExists(const UnicodeString& name, const UnicodeString& type)
{
    return FindResource(KeyOf(name, type), nullptr).has_value();
}

bool FormResourceExists(const TMetaClass* type)
{
    return FindFormResource(type).has_value();
}

TMetaClass* TResourceStream::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TResourceStream>(u"TResourceStream").Build();
    return record;
}

TResourceStream::TResourceStream(const UnicodeString& name, const UnicodeString& type)
{
    const std::optional<std::string_view> bytes = FindResource(KeyOf(name, type), nullptr);
    if (!bytes) {
        FailNoResource(name);
    }
    mBytes = *bytes;
}

TResourceStream::TResourceStream(const TMetaClass* type)
{
    const std::optional<std::string_view> bytes = FindFormResource(type);
    if (!bytes) {
        FailNoResource(type == nullptr ? UnicodeString() : type->getName());
    }
    mBytes = *bytes;
}

TResourceStream::~TResourceStream() = default;

Int64 TResourceStream::Write(const void*, Int64)
{
    throw EStreamError(u"Can't write to a read-only resource stream");
}

} // namespace Classes
