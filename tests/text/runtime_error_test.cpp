#include "text/runtime_error.h"

#include <gtest/gtest.h>

#include <map>

namespace tamarind::text {
namespace {

TEST(RuntimeError, HasTheFixedDescriptionOfItsNumber) {
    const std::map<int, std::string> descriptions = {
        {5, "Invalid procedure call or argument"},
        {6, "Overflow"},
        {9, "Subscript out of range"},
        {13, "Type mismatch"},
        {53, "File not found"},
        {57, "Device I/O error"},
        {58, "File already exists"},
        {61, "Disk full"},
        {62, "Input past end of file"},
        {70, "Permission denied"},
        {75, "Path/File access error"},
        {76, "Path not found"},
        {457, "This key is already associated with an element of this collection"},
        {1001, "Unsupported value type"},
    };
    for (const auto& [number, description] : descriptions) {
        const RuntimeError error(static_cast<ErrorNumber>(number), "a file");
        EXPECT_EQ(error.Number(), number);
        EXPECT_EQ(error.Description(), description);
        EXPECT_EQ(std::string(error.what()), description);
        EXPECT_EQ(error.Details(), "a file");
    }
}

TEST(RuntimeError, HasAGeneralDescriptionForAnyOtherNumber) {
    EXPECT_EQ(Description(static_cast<ErrorNumber>(4000)), "Application-defined or object-defined error");
}

TEST(RuntimeError, TakesFurtherSentencesIntoItsDetails) {
    const RuntimeError error(ErrorNumber::DiskFull);
    EXPECT_EQ(error.With("One.").Details(), "One.");
    EXPECT_EQ(error.With("One.").With("Two.").Details(), "One.\r\nTwo.");
    EXPECT_EQ(error.With("One.").Number(), 61);
}

} // namespace
} // namespace tamarind::text
