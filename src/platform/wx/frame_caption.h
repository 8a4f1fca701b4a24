#pragma once

#include <string>

class wxStaticBox;

namespace tamarind::platform {

/// A frame's caption; a warning is bold and red.
void ShowFrameCaption(wxStaticBox& frame, const std::string& caption, bool isWarning);

} // namespace tamarind::platform
