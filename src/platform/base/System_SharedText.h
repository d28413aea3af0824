// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_HolderCount.h"
#include "platform/base/System_Types.h"

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <string_view>
#include <utility>

namespace System
{

/// Raises `Sysutils::ERangeError`: `index` is not in 1 to `length`.
[[noreturn]] TRS8_BTL_API void ThrowStringRange(int index, int length);
/// Raises `Sysutils::EOutOfMemory`: the text is too long for a string, or the memory is used up.
[[noreturn]] TRS8_BTL_API void ThrowStringMemory();

/// A reference-counted, zero-terminated buffer of characters, one pointer wide; the store of both string
/// widths. The empty text is a null pointer. Copies share the buffer; `Unique` parts from the other owners
/// before a write. The count is atomic, so copies may live in different threads.
template <class Char>
class GSharedText
{
public:
    using View = std::basic_string_view<Char>;

    GSharedText() noexcept = default;
    explicit GSharedText(View text) { Assign(text); }
    GSharedText(const GSharedText& other) noexcept : mText(other.mText) { AddRef(); }
    GSharedText(GSharedText&& other) noexcept : mText(std::exchange(other.mText, nullptr)) {}
    ~GSharedText() { Release(mText); }

    GSharedText& operator=(const GSharedText& other) noexcept
    {
        GSharedText copy(other);
        std::swap(mText, copy.mText);
        return *this;
    }
    GSharedText& operator=(GSharedText&& other) noexcept
    {
        std::swap(mText, other.mText);
        return *this;
    }

    /// A buffer of `length` characters for the caller to fill; only its end is set.
    static GSharedText Uninitialized(std::size_t length)
    {
        GSharedText result;
        if (length != 0) {
            result.mText = Allocate(length, length);
        }
        return result;
    }

    /// Whether there are no characters, and how many there are.
    bool IsEmpty() const noexcept { return mText == nullptr; }
    int Length() const noexcept { return static_cast<int>(Size()); }
    std::size_t Size() const noexcept { return mText == nullptr ? 0 : HeaderOf(mText)->length; }
    /// Never null; valid until the next change of this text.
    const Char* c_str() const noexcept { return mText == nullptr ? &EmptyText : mText; }
    View AsView() const noexcept { return {c_str(), Size()}; }

    /// The characters for writing, null for the empty text; no other owner sees the change.
    Char* Unique()
    {
        if (mText != nullptr && !HeaderOf(mText)->holders.IsOne()) {
            GSharedText copy(AsView());
            std::swap(mText, copy.mText);
        }
        return mText;
    }

    /// Takes `text` in place of the former one, of which it may be a piece.
    void Assign(View text)
    {
        GSharedText fresh = Uninitialized(text.size());
        Traits::copy(fresh.mText, text.data(), text.size());
        std::swap(mText, fresh.mText);
    }

    /// Appends in amortised constant time per character; `text` may be a piece of this text itself.
    void Append(View text)
    {
        if (text.empty()) {
            return;
        }
        const auto oldLength = Size();
        if (OwnsRoomFor(oldLength + text.size())) {
            Traits::copy(mText + oldLength, text.data(), text.size());
            SetLengthField(oldLength + text.size());
            return;
        }
        const std::size_t length = oldLength + text.size();
        GSharedText grown;
        grown.mText = Allocate(length, length < oldLength * 2 ? oldLength * 2 : length);
        Traits::copy(grown.mText, c_str(), oldLength);
        Traits::copy(grown.mText + oldLength, text.data(), text.size());
        std::swap(mText, grown.mText);
    }

    void Append(Char character)
    {
        const auto length = Size();
        if (!OwnsRoomFor(length + 1)) {
            Append(View(&character, 1));
            return;
        }
        mText[length] = character;
        SetLengthField(length + 1);
    }

    /// Cuts to `length`, or lengthens with zero characters.
    void Resize(std::size_t length)
    {
        const auto oldLength = Size();
        if (length == oldLength) {
            return;
        }
        if (length == 0) {
            Release(std::exchange(mText, nullptr));
            return;
        }
        if (!OwnsRoomFor(length)) {
            GSharedText fresh = Uninitialized(length);
            const View kept = AsView().substr(0, length);
            Traits::copy(fresh.mText, kept.data(), kept.size());
            std::swap(mText, fresh.mText);
        } else {
            SetLengthField(length);
        }
        if (length > oldLength) {
            Traits::assign(mText + oldLength, length - oldLength, Char());
        }
    }

    /// Takes `count` characters away in front. A text that is held alone moves nothing: its header goes up to
    /// what is left, in time that doesn't depend on how much that is.
    void CutFront(std::size_t count)
    {
        const auto length = Size();
        if (count == 0) {
            return;
        }
        if (count >= length) {
            Release(std::exchange(mText, nullptr));
            return;
        }
        THeader* const header = HeaderOf(mText);
        if (!header->holders.IsOne()) {
            Assign(AsView().substr(count));
            return;
        }
        char* const block = BlockOf(header);
        const auto capacity = header->capacity - static_cast<unsigned>(count);
        mText += count;
        THeader* const moved = HeaderOf(mText);
        const auto front = static_cast<unsigned>(reinterpret_cast<char*>(moved) - block);
        new (moved) THeader{THolderCount(1), static_cast<unsigned>(length - count), capacity, front};
    }

    /// Makes room for `capacity` characters in all, so that appends up to there move nothing.
    void Reserve(std::size_t capacity)
    {
        if (IsEmpty() || OwnsRoomFor(capacity)) {
            return;
        }
        const View old = AsView();
        GSharedText grown;
        grown.mText = Allocate(old.size(), capacity < old.size() ? old.size() : capacity);
        Traits::copy(grown.mText, old.data(), old.size());
        std::swap(mText, grown.mText);
    }

    /// Gives back room that isn't used, of a buffer that this text alone holds.
    void Trim() noexcept
    {
        if (mText == nullptr || !OwnsRoomFor(Size()) || HeaderOf(mText)->front != 0) {
            return;
        }
        const std::size_t length = Size();
        void* const block = std::realloc(HeaderOf(mText), HeaderSize + (length + 1) * sizeof(Char));
        if (block != nullptr) {
            mText = reinterpret_cast<Char*>(static_cast<char*>(block) + HeaderSize);
            HeaderOf(mText)->capacity = static_cast<unsigned>(length);
        }
    }

private:
    using Traits = std::char_traits<Char>;

    struct THeader
    {
        THolderCount holders;
        // Up to `MaxLength`. Without a sign, so that the compiler knows them to be no huge sizes.
        unsigned length;
        unsigned capacity;
        /// How many bytes of the block lie in front of the header, since characters were taken away there.
        unsigned front;
    };

    static constexpr Char EmptyText = Char();
    static constexpr std::size_t HeaderSize = (sizeof(THeader) + alignof(std::max_align_t) - 1) /
                                              alignof(std::max_align_t) * alignof(std::max_align_t);
    static constexpr std::size_t MaxLength = static_cast<std::size_t>(INT_MAX) - 1;

    static THeader* HeaderOf(Char* text) noexcept
    {
        // Characters that were taken away in front may leave the text at any of its own places.
        char* const bytes = reinterpret_cast<char*>(text);
        return reinterpret_cast<THeader*>(bytes - reinterpret_cast<std::uintptr_t>(bytes) % alignof(THeader) -
                                          HeaderSize);
    }

    static char* BlockOf(THeader* header) noexcept { return reinterpret_cast<char*>(header) - header->front; }

    static Char* Allocate(std::size_t length, std::size_t capacity)
    {
        if (length > MaxLength) {
            ThrowStringMemory();
        }
        capacity = capacity < MaxLength ? capacity : MaxLength;
        void* block = std::malloc(HeaderSize + (capacity + 1) * sizeof(Char));
        if (block == nullptr) {
            ThrowStringMemory();
        }
        new (block)
            THeader{THolderCount(1), static_cast<unsigned>(length), static_cast<unsigned>(capacity), 0};
        Char* text = reinterpret_cast<Char*>(static_cast<char*>(block) + HeaderSize);
        text[length] = Char();
        return text;
    }

    void AddRef() const noexcept
    {
        if (mText != nullptr) {
            HeaderOf(mText)->holders.Increment();
        }
    }

    static void Release(Char* text) noexcept
    {
        if (text == nullptr) {
            return;
        }
        THeader* header = HeaderOf(text);
        if (header->holders.Decrement()) {
            std::free(BlockOf(header));
        }
    }

    bool OwnsRoomFor(std::size_t length) const noexcept
    {
        return mText != nullptr && length <= HeaderOf(mText)->capacity && HeaderOf(mText)->holders.IsOne();
    }

    void SetLengthField(std::size_t length) noexcept
    {
        HeaderOf(mText)->length = static_cast<unsigned>(length);
        mText[length] = Char();
    }

    Char* mText = nullptr;
};

} // namespace System
