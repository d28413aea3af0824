// SPDX-License-Identifier: MIT
#include "interop/QtDevices.h"

#include "platform/runtime/classes/Classes_Exceptions.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>

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

/// A stream on a disk that fails.
class CFailingStream final : public Classes::TStream
{
public:
    System::Int64 Read(void*, System::Int64) override { throw Classes::EReadError(u"no disk"); }
    System::Int64 Write(const void*, System::Int64) override { throw Classes::EWriteError(u"full"); }
    System::Int64 Seek(System::Int64, Classes::TSeekOrigin) override { return 0; }
    System::Int64 getSize() const override { return 100; }
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
}

} // namespace
