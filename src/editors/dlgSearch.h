#pragma once

#include "editors/text_search.h"

#include <wx/dialog.h>

class wxCheckBox;
class wxStaticText;
class wxTextCtrl;

namespace tamarind::editors {

class XmlText;

/// Searches and replaces in the text page. It stays open beside the text.
class dlgSearch : public wxDialog {
public:
    /// `searched` is what was searched for last; it is kept up to date.
    dlgSearch(wxWindow& page, XmlText& text, TextRequest& searched);

    /// The top box gets the keyboard, all of it selected.
    void TakeFocus();

private:
    void MakeControls();
    void BindEvents();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    /// What the boxes say now.
    [[nodiscard]] TextRequest Request() const;
    void Tell(const std::string& text);

    XmlText& text_;
    TextRequest& searched_;
    bool hasMatch_ = false; ///< the last search found one, and nothing was replaced since
    wxTextCtrl* text2_ = nullptr;
    wxTextCtrl* text3_ = nullptr;
    wxCheckBox* check1_ = nullptr;
    wxStaticText* told_ = nullptr;
};

} // namespace tamarind::editors
