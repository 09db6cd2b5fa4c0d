// The printer's serial line as a part of the global record.
#include "tests/config/global_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::ElementsAre;

TEST(SerialDevice, StandsInItsRecordsKeyUnderAPrefix)
{
    GlobalStore store({{u"Printer DSR Flow", 7u}, {u"Printer CTS Flow", 0u}, {u"Baud Rate", 300u}});
    const ConfigPointer config = Read(store.Key());
    VSerialDeviceConfig& serial = config->printerSerial;
    EXPECT_EQ(serial.dtrFlowControl, 2);
    EXPECT_EQ(serial.rtsFlowControl, 1);
    EXPECT_EQ(serial.baudRate, 38400) << "the name without the prefix is another value's";
    EXPECT_EQ(serial.FindMember(u"printer port"), &serial.port);
    EXPECT_EQ(serial.FindMember(u"Printer "), nullptr);

    config->Save(store.Key(), false);
    store.TakeWrites();
    serial.baudRate = 9600;
    EXPECT_TRUE(config->IsModified());
    config->Save(store.Key(), false);
    EXPECT_THAT(store.TakeWrites(), ElementsAre(u"Printer Baud Rate"));

    GlobalStore administrator({{u"Printer CTS Flow", 1u}, {u"Printer Port", VUnicodeString(u"LPT1")}});
    config->Merge(administrator.Key());
    EXPECT_TRUE(serial.ctsFlow);
    EXPECT_EQ(serial.rtsFlowControl, 1) << "a merge changes only what it finds";
    EXPECT_EQ(serial.port, u"LPT1");
    EXPECT_FALSE(serial.IsModified());
}

TEST(SerialDevice, TakesOtherNames)
{
    GlobalStore store({{u"Line A Parity", 2u}, {u"Device", VUnicodeString(u"/dev/ttyS0")}});
    VSerialDeviceConfig serial(store.Key(), u"Line A ", u"Device");
    EXPECT_EQ(serial.parity, 2);
    EXPECT_EQ(serial.port, u"/dev/ttyS0");
    EXPECT_EQ(serial.dataBits.name, u"Line A Data Bits");
}

} // namespace
} // namespace ostrand::test
