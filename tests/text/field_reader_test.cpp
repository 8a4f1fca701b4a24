#include "text/field_reader.h"

#include "text/runtime_error.h"

#include <gtest/gtest.h>

namespace tamarind::text {
namespace {

TEST(FieldReader, TakesFieldsUpToCommasAndLineBreaks) {
    FieldReader fields(" 3 ,\"a, b\"\r\n-5\n");
    EXPECT_EQ(fields.Next(), "3");
    EXPECT_EQ(fields.Next(), "a, b");
    EXPECT_EQ(fields.Next(), "-5");
    EXPECT_THROW(fields.Next(), RuntimeError);
}

TEST(FieldReader, KeepsLineBreaksAndBlanksInsideQuotes) {
    FieldReader fields("\" one\r\ntwo \"\r\n7\r\n");
    EXPECT_EQ(fields.Next(), " one\r\ntwo ");
    EXPECT_EQ(fields.Next(), "7");
}

TEST(FieldReader, KnowsTheLineOfAField) {
    FieldReader fields("1\r\n\"two\r\nlines\"\r\n4\r\n");
    EXPECT_EQ(fields.Next(), "1");
    EXPECT_EQ(fields.Line(), 1U);
    EXPECT_EQ(fields.Next(), "two\r\nlines");
    EXPECT_EQ(fields.Line(), 2U);
    EXPECT_EQ(fields.Next(), "4");
    EXPECT_EQ(fields.Line(), 4U);
}

TEST(FieldFile, IsWindows1252WhereTheTextFits) {
    EXPECT_EQ(FieldFileBytes("\xC3\xA9"), "\xE9");
    EXPECT_EQ(FieldFileText("\xE9"), "\xC3\xA9");
}

TEST(FieldFile, IsUtf8WithAMarkWhereItDoesNotFit) {
    EXPECT_EQ(FieldFileBytes("\xD0\x96"), "\xEF\xBB\xBF\xD0\x96");
    EXPECT_EQ(FieldFileText("\xEF\xBB\xBF\xD0\x96"), "\xD0\x96");
}

} // namespace
} // namespace tamarind::text
