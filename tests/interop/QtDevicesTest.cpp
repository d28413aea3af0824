// SPDX-License-Identifier: MIT
#include "interop/QtDevices.h"

#include "platform/host/Host_Path.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QProcess>

#include <limits>
#include <memory>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace
{

using Classes::soBeginning;
using Classes::soCurrent;
using Classes::soEnd;
using Interop::CDeviceStream;
using Interop::CStreamDevice;

System::UnicodeString FromPath(const QString& path)
{
    return Sysutils::FromHostPath(path.toStdString());
}

TEST(QtDevicesTest, AStreamGoesByThePositionOfTheDevice)
{
    const Support::TempFolder folder;
    auto file = std::make_unique<QFile>(QString::fromStdString((folder.Path() / "data").string()));
    ASSERT_TRUE(file->open(QIODevice::ReadWrite));
    QFile& device = *file;
    CDeviceStream stream(std::move(file));
    stream.WriteBuffer("abcdef", 6);
    EXPECT_EQ(stream.getSize(), 6);
    EXPECT_EQ(stream.Seek(-2, soEnd), 4);
    EXPECT_EQ(device.pos(), 4);
    char bytes[8] = {};
    EXPECT_EQ(stream.Read(bytes, 8), 2);
    EXPECT_EQ(std::string(bytes), "ef");
    EXPECT_EQ(stream.Seek(-7, soCurrent), -1);
    EXPECT_EQ(stream.Seek(std::numeric_limits<System::Int64>::max(), soCurrent), -1);
    EXPECT_EQ(stream.getPosition(), 6);
    stream.setSize(3);
    EXPECT_EQ(device.size(), 3);
    EXPECT_EQ(stream.getPosition(), 3);
    EXPECT_THROW(stream.ReadBuffer(bytes, 1), Classes::EReadError);
}

TEST(QtDevicesTest, AStreamTellsTheFaultOfItsDevice)
{
    const Support::TempFolder folder;
    const QString path = QString::fromStdString((folder.Path() / "data").string());
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    CDeviceStream stream(file);
    EXPECT_EQ(stream.Write("a", 1), 0);
    EXPECT_THROW(stream.WriteBuffer("a", 1), Classes::EWriteError);
    EXPECT_THROW(stream.setSize(5), Classes::EStreamError);
}

TEST(QtDevicesTest, AStreamOnADeviceThatCantDoIt)
{
    QBuffer buffer;
    buffer.setData("abc");
    CDeviceStream stream(buffer);
    char byte = 0;
    EXPECT_EQ(stream.Read(&byte, 1), 0);
    EXPECT_EQ(stream.Write("a", 1), 0);
    EXPECT_EQ(stream.Seek(1, soBeginning), -1);
    EXPECT_THROW(stream.setSize(1), Classes::EStreamError);
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    EXPECT_THROW(stream.setSize(1), Classes::EStreamError);
    EXPECT_EQ(buffer.data(), QByteArray("abc"));
    EXPECT_EQ(stream.Read(&byte, 0), 0);
    EXPECT_EQ(stream.Read(&byte, -1), 0);
    buffer.close();
    ASSERT_TRUE(buffer.open(QIODevice::ReadWrite));
    stream.setPosition(3);
    stream.setSize(1);
    EXPECT_EQ(buffer.data(), QByteArray("a"));
    EXPECT_EQ(stream.getPosition(), 1);
}

TEST(QtDevicesTest, PlacesBeyondFourGigabytes)
{
    constexpr System::Int64 far = 5'000'000'000;
    const Support::TempFolder folder;
    const QString path = QString::fromStdString((folder.Path() / "data").string());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    {
        CDeviceStream stream(file);
        stream.setSize(far);
        EXPECT_EQ(stream.getSize(), far);
        stream.WriteBuffer("end", 3);
        EXPECT_EQ(stream.getPosition(), far + 3);
    }
    file.close();
    CStreamDevice device(std::make_unique<Classes::TFileStream>(FromPath(path), Classes::fmOpenRead),
                         QIODevice::ReadOnly);
    EXPECT_EQ(device.size(), far + 3);
    EXPECT_TRUE(device.seek(far));
    EXPECT_EQ(device.bytesAvailable(), 3);
    EXPECT_EQ(device.readAll(), QByteArray("end"));
    EXPECT_EQ(device.pos(), far + 3);
}

TEST(QtDevicesTest, AStreamOnASequentialDeviceWaitsForWhatComes)
{
    QProcess process;
    process.start(QStringLiteral("sh"),
                  {QStringLiteral("-c"), QStringLiteral("printf abc; sleep 0.2; printf de")});
    ASSERT_TRUE(process.waitForStarted());
    CDeviceStream stream(process);
    EXPECT_EQ(stream.getPosition(), -1);
    EXPECT_EQ(stream.getSize(), -1);
    char bytes[8] = {};
    EXPECT_EQ(stream.Read(bytes, 4), 4);
    EXPECT_EQ(stream.Read(bytes + 4, 4), 1);
    EXPECT_EQ(std::string(bytes), "abcde");
    process.waitForFinished();
}

TEST(QtDevicesTest, ADeviceGoesByThePositionOfTheStream)
{
    Classes::TMemoryStream memory;
    memory.WriteBuffer("abcdef", 6);
    memory.setPosition(2);
    CStreamDevice device(memory);
    EXPECT_FALSE(device.isSequential());
    EXPECT_EQ(device.pos(), 2);
    EXPECT_EQ(device.size(), 6);
    EXPECT_EQ(device.read(2), QByteArray("cd"));
    EXPECT_EQ(memory.getPosition(), 4);
    EXPECT_EQ(device.peek(1), QByteArray("e"));
    EXPECT_TRUE(device.seek(1));
    EXPECT_EQ(device.write("X"), 1);
    EXPECT_EQ(memory.AsView(), "aXcdef");
    EXPECT_EQ(device.readAll(), QByteArray("cdef"));
    EXPECT_TRUE(device.atEnd());
}

TEST(QtDevicesTest, QtWritesAndReadsAPictureOnAStream)
{
    Classes::TMemoryStream memory;
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    {
        CStreamDevice device(memory, QIODevice::WriteOnly);
        ASSERT_TRUE(image.save(&device, "PNG"));
    }
    memory.setPosition(0);
    CStreamDevice device(memory, QIODevice::ReadOnly);
    QImage read;
    ASSERT_TRUE(read.load(&device, "PNG"));
    EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), image);
}

TEST(QtDevicesTest, ADeviceOnAPipeIsSequential)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "one\ntwo", 7), 7);
    close(ends[1]);
    {
        CStreamDevice device(std::make_unique<Classes::THandleStream>(ends[0]), QIODevice::ReadOnly);
        EXPECT_TRUE(device.isSequential());
        EXPECT_FALSE(device.seek(1));
        EXPECT_FALSE(device.atEnd());
        EXPECT_EQ(device.readLine(), QByteArray("one\n"));
        EXPECT_EQ(device.readAll(), QByteArray("two"));
        EXPECT_TRUE(device.atEnd());
    }
    close(ends[0]);
}

TEST(QtDevicesTest, WhatWasLookedAtIsNotYetTheEnd)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "ab", 2), 2);
    close(ends[1]);
    {
        CStreamDevice device(std::make_unique<Classes::THandleStream>(ends[0]), QIODevice::ReadOnly);
        EXPECT_EQ(device.peek(10), QByteArray("ab"));
        EXPECT_FALSE(device.atEnd());
        EXPECT_EQ(device.read(10), QByteArray("ab"));
        EXPECT_EQ(device.read(10), QByteArray());
        EXPECT_TRUE(device.atEnd());
    }
    close(ends[0]);
}

TEST(QtDevicesTest, ADeviceIsOpenedAsQtsOwnAre)
{
    Classes::TMemoryStream memory;
    memory.WriteBuffer("one\ntwo", 7);
    memory.setPosition(0);
    CStreamDevice device(memory, QIODevice::ReadWrite | QIODevice::Append);
    EXPECT_EQ(device.pos(), 7);
    ASSERT_TRUE(device.seek(0));
    EXPECT_EQ(device.readLine(), QByteArray("one\n"));
    EXPECT_EQ(device.write("!"), 1);
    EXPECT_EQ(memory.AsView(), "one\ntwo!");
    EXPECT_EQ(device.pos(), 8);
    EXPECT_FALSE(device.open(QIODevice::ReadOnly));

    device.close();
    EXPECT_FALSE(device.seek(0));
    memory.setPosition(4);
    ASSERT_TRUE(device.open(QIODevice::ReadOnly));
    EXPECT_EQ(device.readAll(), QByteArray("two!"));
    EXPECT_EQ(device.write("x"), -1);

    device.close();
    ASSERT_TRUE(device.open(QIODevice::WriteOnly | QIODevice::Truncate));
    EXPECT_EQ(device.size(), 0);
    EXPECT_EQ(device.read(1), QByteArray());
    EXPECT_EQ(device.write("new"), 3);
    EXPECT_EQ(memory.AsView(), "new");
}

/// A stream on a disk that fails.
class CFailingStream final : public Classes::TStream
{
public:
    bool isGone = false;

    System::Int64 Read(void*, System::Int64) override { throw Classes::EReadError(u"no disk"); }
    System::Int64 Write(const void*, System::Int64) override { throw Classes::EWriteError(u"full"); }
    System::Int64 Seek(System::Int64, Classes::TSeekOrigin) override
    {
        Check();
        return 0;
    }
    System::Int64 getSize() const override
    {
        Check();
        return 100;
    }

private:
    void Check() const
    {
        if (isGone) {
            throw Classes::EStreamError(u"gone");
        }
    }
};

TEST(QtDevicesTest, ADeviceTellsWhatTheStreamRaises)
{
    CFailingStream failing;
    CStreamDevice device(failing);
    char byte = 0;
    EXPECT_EQ(device.read(&byte, 1), -1);
    EXPECT_EQ(device.errorString(), QStringLiteral("no disk"));
    EXPECT_EQ(device.write("a"), -1);
    EXPECT_EQ(device.errorString(), QStringLiteral("full"));
    EXPECT_FALSE(device.seek(50));
    EXPECT_FALSE(device.seek(-1));
    EXPECT_EQ(device.pos(), 0);
    EXPECT_EQ(device.size(), 100);

    failing.isGone = true;
    EXPECT_EQ(device.size(), 0);
    EXPECT_EQ(device.errorString(), QStringLiteral("gone"));
    EXPECT_TRUE(device.atEnd());
    EXPECT_FALSE(CStreamDevice(failing).isOpen());
}

} // namespace
