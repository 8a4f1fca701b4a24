#include "system/program.h"

#include <exception>
#include <iostream>

int wmain(int count, wchar_t** values) {
    try {
        return tamarind::samples::RunProgram({values + 1, values + count});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
