// What modules that were built elsewhere rely on: the order of operations and of fields.
#include "config/session/none_config.h"
#include "config/session/protocol_table.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

namespace ostrand {
namespace {

/// A pointer to a virtual operation holds its place in the table of functions, in bytes and plus one.
template <class Operation>
size_t SlotOf(Operation operation)
{
    uintptr_t words[2];
    static_assert(sizeof operation == sizeof words);
    std::memcpy(words, &operation, sizeof words);
    return (words[0] - 1) / sizeof(void*);
}

TEST(ModuleContract, OperationsOfConnectConfigHaveTheirPlaces)
{
    using C = ConnectConfig;
    const struct {
        size_t number;
        size_t slot;
    } kOperations[] = {
        {13, SlotOf(&C::IsDirty)},
        {14, SlotOf(&C::ReadValue)},
        {16, SlotOf(&C::Clone)},
        {17, SlotOf(&C::LeaveProtocol)},
        {18, SlotOf(&C::EnterProtocol)},
        {21, SlotOf(&C::IsConnectable)},
        {22, SlotOf(&C::GetHostName)},
        {26, SlotOf(&C::GetFirewall)},
        {27, SlotOf(&C::GetFirewallName)},
        {28, SlotOf(&C::SupportsNoOp)},
        {29, SlotOf(&C::GetParentWindow)},
        {31, SlotOf(&C::Reserved31)},
        {40, SlotOf(&C::GetTransferStatusText)},
        {48, SlotOf(&C::Reserved48)},
    };
    // The destructor takes two places, so those behind it are one higher.
    for (const auto& operation : kOperations)
        EXPECT_EQ(operation.slot, operation.number + 1);
}

TEST(ModuleContract, FieldsOfARowHaveTheirOrder)
{
    using Row = ConnectProtocolTableElement;
    const size_t offsets[] = {
        offsetof(Row, name),
        offsetof(Row, productId),
        offsetof(Row, modulePath),
        offsetof(Row, moduleHandle),
        offsetof(Row, loadProtocol),
        offsetof(Row, unloadProtocol),
        offsetof(Row, reserved1),
        offsetof(Row, createConfig),
        offsetof(Row, reserved2),
        offsetof(Row, logonPanelFactory),
        offsetof(Row, pagesFactory),
        offsetof(Row, addGlobalPages),
        offsetof(Row, hook1),
        offsetof(Row, hook6) - 40,
        offsetof(Row, moduleWords) - 48,
    };
    for (size_t i = 0; i < 13; ++i)
        EXPECT_EQ(offsets[i], i * sizeof(void*)) << i;
    EXPECT_EQ(offsets[13], offsets[12]);
    EXPECT_EQ(offsets[14], offsets[12]);
    EXPECT_EQ(sizeof(Row), 21 * sizeof(void*));
}

TEST(ModuleContract, NoneHasNothingToTell)
{
    NoneConfig none;
    none.defaultMark = 1;
    none.moduleMark = 5;
    const auto copy = VUnknownPointer<ConnectConfig>::Adopt(none.Clone(nullptr));
    EXPECT_EQ(copy->defaultMark, 1);
    EXPECT_EQ(copy->moduleMark, 5);
    EXPECT_EQ(copy->GetMember(0), nullptr);
    VUnicodeStringI text;
    copy->GetFirewallName(&text);
    EXPECT_EQ(text, u"None");
    EXPECT_EQ(VUnknownPointer<FirewallConfig>::Adopt(copy->GetFirewall())->GetName(), u"None");
    EXPECT_EQ(copy->IsConnectable(nullptr), 0);
    EXPECT_EQ(copy->Reserved31(), -1);
    EXPECT_FALSE(copy->SupportsNoOp());
}

} // namespace
} // namespace ostrand
