#pragma once

namespace tamarind::platform {

/// Settings of the window system that hold for the whole program; before the first window is made.
void SetUpToolkit();

} // namespace tamarind::platform
