// SPDX-License-Identifier: MIT
#pragma once

#include "interop/QtValues.h"

#include "platform/runtime/classes/Classes_Stream.h"

#include <QBuffer>
#include <QFileDevice>
#include <QIODevice>

#include <exception>
#include <memory>
#include <utility>

namespace Interop
{

/// A stream of the library on an open device of Qt's. It goes by the position of the device. A device that is
/// sequential, as a socket or a process, has no position and no size, which shows as -1; reading waits there
/// for what is to come, up to the end.
///
///     QFile file("data.bin");
///     file.open(QIODevice::ReadOnly);
///     Interop::CDeviceStream stream(file);
///     BTL::CTextReader reader(&stream);
class CDeviceStream : public Classes::TStream
{
public:
    /// The device stays the caller's and outlives the stream.
    explicit CDeviceStream(QIODevice& device) : mDevice(&device) {}
    /// Takes the device, which isn't null.
    explicit CDeviceStream(std::unique_ptr<QIODevice> device)
        : mOwned(std::move(device)), mDevice(mOwned.get())
    {
    }

    QIODevice& getDevice() const noexcept { return *mDevice; }

    System::Int64 Read(void* buffer, System::Int64 count) override
    {
        System::Int64 done = 0;
        while (done < count) {
            const qint64 read = mDevice->read(static_cast<char*>(buffer) + done, count - done);
            if (read > 0) {
                done += read;
            } else if (read < 0 || !mDevice->isSequential() || !mDevice->waitForReadyRead(-1)) {
                break;
            }
        }
        return done;
    }

    System::Int64 Write(const void* buffer, System::Int64 count) override
    {
        System::Int64 done = 0;
        while (done < count) {
            const qint64 written = mDevice->write(static_cast<const char*>(buffer) + done, count - done);
            if (written <= 0) {
                break;
            }
            done += written;
        }
        return done;
    }

    /// -1, and the device stays where it is, for a place that it can't go to.
    System::Int64 Seek(System::Int64 offset, Classes::TSeekOrigin origin) override
    {
        if (mDevice->isSequential()) {
            return -1;
        }
        const qint64 from = origin == Classes::soBeginning ? 0
                            : origin == Classes::soCurrent ? mDevice->pos()
                                                           : mDevice->size();
        qint64 target = 0;
        const bool isFar = __builtin_add_overflow(from, qint64{offset}, &target);
        if (!isFar && target == mDevice->pos() && mDevice->isOpen()) {
            // Whoever only asks where it is leaves the device what it has read ahead.
            return target;
        }
        return !isFar && target >= 0 && mDevice->seek(target) ? target : -1;
    }

    System::Int64 getSize() const override { return mDevice->isSequential() ? -1 : mDevice->size(); }

    /// Files and buffers can be resized, if they are open for writing; otherwise `Classes::EStreamError`.
    /// Nothing happens on any other device.
    void setSize(System::Int64 size) override
    {
        size = std::max(size, System::Int64{0});
        if (auto* const file = qobject_cast<QFileDevice*>(mDevice)) {
            if (!file->resize(size)) {
                throw Classes::EStreamError(FromQString(file->errorString()));
            }
            file->seek(size);
        } else if (auto* const buffer = qobject_cast<QBuffer*>(mDevice)) {
            if (!buffer->isWritable()) {
                throw Classes::EStreamError(u"The buffer is not open for writing");
            }
            buffer->buffer().resize(size);
            buffer->seek(std::min<qint64>(buffer->pos(), size));
        }
    }

private:
    /// Tells the reason of the device.
    [[noreturn]] void RaiseWriteError() const override
    {
        throw Classes::EWriteError(FromQString(mDevice->errorString()));
    }

    std::unique_ptr<QIODevice> mOwned;
    QIODevice* mDevice;
};

/// A device of Qt's on a stream of the library, open and without a buffer of its own, so that both are at one
/// place while nobody else moves the stream. On a stream that can't seek it is sequential. What the stream
/// raises is told by `errorString`, and the operation fails.
///
///     Classes::TMemoryStream memory;
///     Interop::CStreamDevice device(memory);
///     image.save(&device, "PNG");
class CStreamDevice : public QIODevice
{
public:
    /// The stream stays the caller's and outlives the device.
    explicit CStreamDevice(Classes::TStream& stream, OpenMode mode = ReadWrite) : mStream(&stream)
    {
        CStreamDevice::open(mode);
    }
    /// Takes the stream, which isn't null.
    explicit CStreamDevice(std::unique_ptr<Classes::TStream> stream, OpenMode mode = ReadWrite)
        : mOwned(std::move(stream)), mStream(mOwned.get())
    {
        CStreamDevice::open(mode);
    }

    Classes::TStream& getStream() const noexcept { return *mStream; }

    /// Where the stream is; at its end for `Append`, which also has each write there, and with nothing in it
    /// for `Truncate`. To be called for a device that was closed; any other is open already. False, and not
    /// open, if the stream refuses that.
    bool open(OpenMode mode) override
    {
        System::Int64 place = 0;
        const auto begin = [&] {
            if (mode.testFlag(Truncate)) {
                mStream->setSize(0);
            }
            place = mode.testFlag(Append) ? mStream->Seek(0, Classes::soEnd) : mStream->getPosition();
            return qint64{0};
        };
        if (isOpen() || Try(begin) < 0) {
            return false;
        }
        mIsSequential = place < 0;
        mIsAtEnd = false;
        return QIODevice::open(mode | Unbuffered) && (mIsSequential || QIODevice::seek(place));
    }
    bool isSequential() const override { return mIsSequential; }
    /// 0 for a stream that can't tell it.
    qint64 size() const override
    {
        return mIsSequential ? QIODevice::size()
                             : std::max<qint64>(Try([&] { return mStream->getSize(); }), 0);
    }
    /// False, with the device where it was, for a place that the stream can't go to.
    bool seek(qint64 place) override
    {
        return !mIsSequential && isOpen() && place >= 0 &&
               Try([&] { return mStream->Seek(place, Classes::soBeginning); }) == place &&
               QIODevice::seek(place);
    }
    /// Of a sequential stream nobody knows before it is read.
    bool atEnd() const override { return (mIsAtEnd || !mIsSequential) && QIODevice::atEnd(); }

protected:
    qint64 readData(char* data, qint64 count) override
    {
        const qint64 done = Try([&] { return mStream->Read(data, count); });
        mIsAtEnd = count > 0 ? done <= 0 : mIsAtEnd;
        return mIsAtEnd && mIsSequential ? -1 : done;
    }
    qint64 writeData(const char* data, qint64 count) override
    {
        return Try([&] {
            if (openMode().testFlag(Append) && !mIsSequential) {
                QIODevice::seek(mStream->Seek(0, Classes::soEnd));
            }
            mStream->WriteBuffer(data, count);
            return count;
        });
    }

private:
    /// No exception goes through Qt.
    template <class Action>
    qint64 Try(Action action) const
    {
        // A fault belongs to what the device tells, also where it is only asked for something.
        auto* const self = const_cast<CStreamDevice*>(this);
        try {
            return action();
        } catch (const std::exception& fault) {
            self->setErrorString(ToQString(Sysutils::MessageOf(fault)));
        } catch (...) {
            self->setErrorString(QStringLiteral("An exception of an unknown kind"));
        }
        return -1;
    }

    std::unique_ptr<Classes::TStream> mOwned;
    Classes::TStream* mStream;
    bool mIsSequential = false;
    bool mIsAtEnd = false;
};

} // namespace Interop
