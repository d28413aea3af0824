// SPDX-License-Identifier: MIT
#pragma once

#include "streams/BTL_STRM_InStream.h"
#include "streams/BTL_STRM_OutStream.h"

namespace BTL
{

/// Streams that live as long as a list holds them, each with one reference per place. To be used as
/// `CInStreams` and `COutStreams`.
template <class Stream>
class GStreamList : private UTL::GSimpleVector<Stream*>
{
    using Base = UTL::GSimpleVector<Stream*>;

public:
    using Base::begin;
    using Base::empty;
    using Base::end;
    using Base::size;

    GStreamList() = default;
    GStreamList(const GStreamList& other) : Base(other)
    {
        for (Stream* const stream : other) {
            AddReference(stream);
        }
    }
    GStreamList& operator=(const GStreamList& other)
    {
        GStreamList copy(other);
        std::swap(static_cast<Base&>(*this), static_cast<Base&>(copy));
        return *this;
    }
    ~GStreamList() { Clear(); }

    Stream* operator[](unsigned index) const { return Base::operator[](index); }

    /// The stream must have been made with `new`. Null takes a place too.
    void Add(Stream* stream)
    {
        Base::push_back(stream);
        AddReference(stream);
    }
    /// Adds a stream object on `stream`, which stays the caller's.
    void Add(Classes::TStream* stream, EStreamSync sync) { Add(new Stream(stream, sync)); }

    /// Releases the streams.
    void Clear()
    {
        for (Stream* const stream : *this) {
            if (stream != nullptr) {
                stream->Release();
            }
        }
        Base::resize(0);
    }

private:
    static void AddReference(Stream* stream)
    {
        if (stream != nullptr) {
            stream->AddRef();
        }
    }
};

/// Lists of text streams for reading and for writing.
using CInStreams = GStreamList<CInStream>;
using COutStreams = GStreamList<COutStream>;

} // namespace BTL
