#include "platform/registry.h"

#include "platform/expect_error.h"

#include <gtest/gtest.h>
#include <string_view>

namespace tamarind::platform {
namespace {

using tests::ErrorOf;

/// ASCII text as little-endian UTF-16.
std::vector<std::uint8_t> Wide(std::string_view text) {
    std::vector<std::uint8_t> bytes;
    for (const char c : text) {
        bytes.push_back(static_cast<std::uint8_t>(c));
        bytes.push_back(0);
    }
    return bytes;
}

RegistryValue Text(std::string_view text) { return std::string(text); }

class OneValue : public Registry {
public:
    std::optional<StoredValue> value;
    std::optional<StoredValue> Read(RootKey, const std::string&, const std::string&) override { return value; }
};

using namespace std::string_view_literals;

TEST(DecodeRegistryValue, DropsTheTerminatingZeroOfAText) {
    EXPECT_EQ(DecodeRegistryValue({RegistryType::Text, Wide("c:\\game\0"sv)}), Text("c:\\game"));
    EXPECT_EQ(DecodeRegistryValue({RegistryType::ExpandableText, Wide("%a%\0"sv)}), Text("%a%"));
}

TEST(DecodeRegistryValue, KeepsATextThatHasNoTerminatingZero) {
    EXPECT_EQ(DecodeRegistryValue({RegistryType::Text, Wide("game")}), Text("game"));
}

TEST(DecodeRegistryValue, ReadsAnEmptyText) {
    EXPECT_EQ(DecodeRegistryValue({RegistryType::Text, {}}), Text(""));
    EXPECT_EQ(DecodeRegistryValue({RegistryType::Text, Wide("\0"sv)}), Text(""));
    EXPECT_EQ(DecodeRegistryValue({RegistryType::MultipleText, Wide("\0"sv)}), Text(""));
}

TEST(DecodeRegistryValue, ReadsTextBeyondTheCodePage) {
    EXPECT_EQ(DecodeRegistryValue({RegistryType::Text, {0xE9, 0x00, 0x71, 0x67, 0x00, 0x00}}), Text("é東"));
}

TEST(DecodeRegistryValue, KeepsTheInnerZerosOfAMultipleText) {
    EXPECT_EQ(DecodeRegistryValue({RegistryType::MultipleText, Wide("one\0two\0\0"sv)}), Text("one\0two"sv));
}

TEST(DecodeRegistryValue, GivesTheBytesOfABinaryValue) {
    const std::vector<std::uint8_t> bytes = {0, 255, 7};
    EXPECT_EQ(DecodeRegistryValue({RegistryType::Binary, bytes}), RegistryValue(bytes));
}

TEST(DecodeRegistryValue, ReadsASignedNumber) {
    EXPECT_EQ(DecodeRegistryValue({RegistryType::DoubleWord, {0x01, 0x02, 0x00, 0x00}}),
              RegistryValue(std::int32_t{513}));
    EXPECT_EQ(DecodeRegistryValue({RegistryType::DoubleWord, {0xFE, 0xFF, 0xFF, 0xFF}}),
              RegistryValue(std::int32_t{-2}));
}

TEST(DecodeRegistryValue, RefusesAnyOtherType) {
    for (const std::uint32_t type : {0U, 5U, 6U, 8U, 11U}) {
        const auto error = ErrorOf([&] { return DecodeRegistryValue({static_cast<RegistryType>(type), {0, 0}}); });
        ASSERT_TRUE(error) << type;
        EXPECT_EQ(error->Number(), 1001);
        EXPECT_EQ(error->Description(), "Unsupported value type");
    }
}

TEST(GetRegistryValue, IsTheDefaultWhenTheValueCannotBeRead) {
    OneValue registry;
    EXPECT_EQ(GetRegistryValue(registry, RootKey::LocalMachine, "k", "", Text("d")), Text("d"));
    EXPECT_EQ(GetRegistryValue(registry, RootKey::LocalMachine, "k", ""), RegistryValue());
}

TEST(GetRegistryValue, IsTheStoredValueWhenThereIsOne) {
    OneValue registry;
    registry.value = StoredValue{RegistryType::Text, Wide("x\0"sv)};
    EXPECT_EQ(GetRegistryValue(registry, RootKey::LocalMachine, "k", "", Text("d")), Text("x"));
}

} // namespace
} // namespace tamarind::platform
