#pragma once

#include "convert/texture_picture.h"

#include <string>

namespace tamarind::convert {

/// The picture as the bytes of a PNG file with alpha. Throws DeviceIoError when it is empty or there is no
/// memory for them.
[[nodiscard]] std::string EncodePng(const Picture& picture);

} // namespace tamarind::convert
