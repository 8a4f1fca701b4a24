#pragma once

#include <wx/filedlg.h>

namespace tamarind::tests {

/// Chooses a path in a file dialog that is about to be shown. Returns what a dialog hook returns for it.
int ChooseInFileBox(wxFileDialog& box, const wxString& path);

/// What the simulator of keys calls the key with a menu on it.
extern const int kMenuKey;

} // namespace tamarind::tests
