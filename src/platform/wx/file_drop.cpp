#include "platform/wx/file_drop.h"

#include "platform/paths.h"
#include "platform/wx/wx_text.h"

#include <wx/app.h>
#include <wx/dataobj.h>
#include <wx/dnd.h>
#include <wx/stc/stc.h>

#include <utility>

namespace tamarind::platform {
namespace {

class FileDrop : public wxFileDropTarget {
public:
    explicit FileDrop(TakeDropped take) : take_(std::move(take)) {}
    bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& names) override {
        std::vector<std::string> paths;
        for (const wxString& name : names)
            paths.push_back(FromNative(FromWx(name)));
        // After the drop has ended, so that whoever dropped them does not wait for what opening asks.
        if (!paths.empty()) wxTheApp->CallAfter([take = take_, paths] { take(paths); });
        return !paths.empty();
    }

private:
    TakeDropped take_;
};

/// Files or text, whichever comes.
class TextOrFileDrop : public wxDropTarget {
public:
    TextOrFileDrop(wxStyledTextCtrl& view, TakeDropped take) : view_(view), files_(std::move(take)) {
        auto* const both = new wxDataObjectComposite;
        both->Add(names_ = new wxFileDataObject, true);
        both->Add(text_ = new wxTextDataObject);
        SetDataObject(both);
    }
    wxDragResult OnEnter(wxCoord x, wxCoord y, wxDragResult result) override { return view_.DoDragOver(x, y, result); }
    wxDragResult OnDragOver(wxCoord x, wxCoord y, wxDragResult result) override {
        return view_.DoDragOver(x, y, result);
    }
    void OnLeave() override { view_.DoDragLeave(); }
    wxDragResult OnData(wxCoord x, wxCoord y, wxDragResult result) override {
        if (!GetData()) return wxDragNone;
        const auto* const both = static_cast<const wxDataObjectComposite*>(GetDataObject());
        if (both->GetReceivedFormat().GetType() == wxDF_FILENAME) {
            view_.DoDragLeave();
            return files_.OnDropFiles(x, y, names_->GetFilenames()) ? wxDragCopy : wxDragNone;
        }
        return view_.DoDropText(x, y, text_->GetText()) ? result : wxDragNone;
    }

private:
    wxStyledTextCtrl& view_;
    FileDrop files_;
    wxFileDataObject* names_ = nullptr;
    wxTextDataObject* text_ = nullptr;
};

} // namespace

void AcceptFiles(wxWindow& window, TakeDropped take) { window.SetDropTarget(new FileDrop(std::move(take))); }

void AcceptFiles(wxStyledTextCtrl& view, TakeDropped take) {
    view.SetDropTarget(new TextOrFileDrop(view, std::move(take)));
}

} // namespace tamarind::platform
