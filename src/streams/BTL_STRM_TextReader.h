// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_Stream.h"
#include "streams/BTL_STRM_TextForm.h"

#include <iterator>
#include <memory>
#include <string>

namespace BTL
{

/// Bytes that are no text in the encoding of a `CTextReader` that decodes strictly.
///
///     } catch (const ETextFault& fault) {
///         Warn(fault.getMessage(), fault.getText());   // "Line 2, byte 5: ...", "20 \uFFFDC"
///     }
class TRS8_BTL_API ETextFault : public Sysutils::EConvertError
{
public:
    ETextFault(System::Int64 line, System::Int64 byteInLine, System::Int64 byte,
               const System::UnicodeString& text);
    ~ETextFault() override;

    /// The line with the first such byte, from 1 on.
    System::Int64 getLine() const noexcept { return mLine; }
    /// The place of that byte in its line, from 1 on.
    System::Int64 getByteInLine() const noexcept { return mByteInLine; }
    /// The place of that byte in all that was read, a byte order mark included, from 1 on.
    System::Int64 getByte() const noexcept { return mByte; }
    /// The line without its end, as a lenient reader gives it: mostly U+FFFD stands for what is no text.
    const System::UnicodeString& getText() const noexcept { return mText; }

private:
    System::Int64 mLine;
    System::Int64 mByteInLine;
    System::Int64 mByte;
    System::UnicodeString mText;
};

// Reads a text file, or any stream with text in it, line by line:
//
//     for (const UnicodeString& line : CTextReader(u"measured.txt")) {
//         Use(line);
//     }
//
//     CTextReader in(&socketStream, TEncoding(1252), EDecoding::Strict);
//     UnicodeString line;
//     while (in.ReadLine(line)) { ... }

/// Reads text forwards, from files, pipes and streams of all kinds, in time that is linear whatever the
/// length of a line. The encoding is told by the byte order mark, or is `encoding` without one; the mark is
/// no part of the text. A line ends with LF, CR LF or CR, each line with its own; an end at the end of the
/// text begins no further line. What the stream raises passes through.
class TRS8_BTL_API CTextReader
{
public:
    /// Opens the file, shared with all. `Classes::EFOpenError` if it can't be opened.
    explicit CTextReader(const System::UnicodeString& path,
                         const Sysutils::TEncoding& encoding = Sysutils::TEncoding(System::CP_UTF8),
                         EDecoding decoding = EDecoding::Lenient);
    /// Reads from the position of `stream` on, in blocks: how far it is read at a time isn't told. It must
    /// not be null and must live as long.
    explicit CTextReader(Classes::TStream* stream,
                         const Sysutils::TEncoding& encoding = Sysutils::TEncoding(System::CP_UTF8),
                         EDecoding decoding = EDecoding::Lenient);
    /// As for a stream that lives elsewhere, but owns it.
    explicit CTextReader(std::unique_ptr<Classes::TStream> stream,
                         const Sysutils::TEncoding& encoding = Sysutils::TEncoding(System::CP_UTF8),
                         EDecoding decoding = EDecoding::Lenient);
    CTextReader(const CTextReader&) = delete;
    CTextReader& operator=(const CTextReader&) = delete;
    ~CTextReader();

    /// The next line without its end; false, and an empty text, if there is none. After `ETextFault` the line
    /// counts as read, and reading goes on behind it.
    bool ReadLine(System::UnicodeString& line);
    /// As `ReadLine`, but with the line's end in the text.
    bool ReadLineWithEnd(System::UnicodeString& line);
    /// All that is left, with the line ends that it has. After `ETextFault` reading goes on behind the line.
    System::UnicodeString ReadAll();

    /// The number of the line that was read last, from 1 on; 0 in front of the first. `ReadAll` counts its
    /// lines too.
    System::Int64 getLineNumber() const noexcept { return mLineNumber; }
    /// What ended the line that was read last.
    ELineEnd getLineEnd() const noexcept { return mLineEnd; }
    /// The encoding by the mark, for which the beginning may have to be read, or that given.
    const Sysutils::TEncoding& getEncoding();
    /// Whether the text begins with a byte order mark.
    EByteOrderMark getMark();

    /// Reads on with each step.
    class TRS8_BTL_API CLineIterator
    {
    public:
        /// Lines are read once, so that only one walk is possible.
        using iterator_concept = std::input_iterator_tag;
        using value_type = System::UnicodeString;
        using difference_type = std::ptrdiff_t;

        explicit CLineIterator(CTextReader& reader) : mReader(&reader) { ++*this; }

        /// Valid until the next step.
        const System::UnicodeString& operator*() const noexcept { return mReader->mLine; }
        CLineIterator& operator++();
        void operator++(int) { ++*this; }
        bool operator==(std::default_sentinel_t) const noexcept { return mIsAtEnd; }

    private:
        CTextReader* mReader;
        bool mIsAtEnd = false;
    };

    /// The lines from the next one on, as `ReadLine` gives them.
    CLineIterator begin() { return CLineIterator(*this); }
    static std::default_sentinel_t end() noexcept { return {}; }

private:
    struct TLine;
    enum class EKeepEnd
    {
        No,
        Yes
    };

    void Start();
    bool Fill();
    bool FillBehind(std::size_t& at);
    bool FindLine(TLine& line);
    bool FindEnd(std::size_t& at) const;
    char16_t UnitAt(std::size_t at) const;
    bool Read(System::UnicodeString& line, EKeepEnd keepEnd);

    std::unique_ptr<Classes::TStream> mOwned;
    Classes::TStream* mStream;
    Sysutils::TEncoding mEncoding;
    EDecoding mDecoding;
    EByteOrderMark mMark = EByteOrderMark::Without;
    bool mHasStarted = false;
    /// Of the bytes that line ends are made of.
    std::size_t mUnitSize = 1;

    std::unique_ptr<char[]> mBlock;
    /// What was read of the stream; the text goes on at `mNext`.
    std::string mBytes;
    std::size_t mNext = 0;
    /// How many bytes came before those.
    System::Int64 mPassed = 0;

    System::UnicodeString mLine;
    System::Int64 mLineNumber = 0;
    ELineEnd mLineEnd = ELineEnd::None;
};

} // namespace BTL
