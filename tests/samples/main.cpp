#include <gtest/gtest.h>

int main(int count, char** values) {
    testing::InitGoogleTest(&count, values);
    return RUN_ALL_TESTS();
}
