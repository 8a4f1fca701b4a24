#include "authoring/entities.h"

#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

TEST(LoneAmpersand, BeginsNoEntity) {
    for (const char* const text : {"&", "a & b", "&amp; & b", "&nbsp;", "&#;", "&#x;", "&#12", "&#1a;", "&ampersand"})
        EXPECT_TRUE(authoring::HasLoneAmpersand(text)) << text;
    for (const char* const text : {"", "a", "&amp;", "&lt;&gt;&apos;&quot;", "&#38;", "&#x26;"})
        EXPECT_FALSE(authoring::HasLoneAmpersand(text)) << text;
}

} // namespace
} // namespace tamarind::tests
