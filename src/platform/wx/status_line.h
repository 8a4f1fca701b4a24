#pragma once

#include <string>

namespace tamarind::platform {

/// A window that shows, in one line, what its commands tell in plain words.
class StatusLine {
public:
    virtual ~StatusLine() = default;
    virtual void ShowStatus(const std::string& text) = 0;
};

} // namespace tamarind::platform
