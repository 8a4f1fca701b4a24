#include "faults/fault_count.h"

#include <gtest/gtest.h>

#include <iostream>

int main(int count, char** values) {
    testing::InitGoogleTest(&count, values);
    const int result = RUN_ALL_TESTS();
    std::cout << "fault points tried: " << tamarind::tests::FaultCount() << '\n';
    return result;
}
