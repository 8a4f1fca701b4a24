#pragma once

#include <functional>
#include <string>
#include <vector>

class wxStyledTextCtrl;
class wxWindow;

namespace tamarind::platform {

/// Takes the paths, as programs write them, of files that were dropped on a window.
using TakeDropped = std::function<void(const std::vector<std::string>& paths)>;

/// Files can be dropped on the window from now on.
void AcceptFiles(wxWindow& window, TakeDropped take);
/// The same for a text view, which goes on taking text that is dropped on it.
void AcceptFiles(wxStyledTextCtrl& view, TakeDropped take);

} // namespace tamarind::platform
