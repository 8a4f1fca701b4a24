#pragma once

#include "document/clsNode.h"

#include <wx/treectrl.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tamarind::editors {

/// The tree view: a row an element, its name as text. A row's children are added when it is first expanded, the many
/// children of one row in slices between other events, so that a document of any size shows at once.
class TreeRows : public wxTreeCtrl {
public:
    struct Handlers {
        std::function<void(document::NodeKey)> clicked;
        std::function<bool(const std::string&)> labelEdited; ///< false refuses the new name
        std::function<void()> deleteKey;
        std::function<void()> popUp;
    };

    TreeRows(wxWindow* parent, Handlers handlers);
    ~TreeRows() override;

    /// The keys go to the tree.
    void TakeFocus();

    void ShowDocument(const document::Document& document);
    void Clear();
    void AddNode(const document::clsNode& node);
    /// Before the node is taken out of its parent.
    void RemoveNode(const document::clsNode& node);
    void EditNode(const document::clsNode& node);
    void ShowName(const document::clsNode& node);

    /// Selects a row and brings it into view; the handlers are not told.
    void Select(const document::clsNode& node);
    /// Shows rows in bold, also those that are made later, and expands what is above them as far as that takes no time.
    void Mark(const std::vector<const document::clsNode*>& nodes);
    void Unmark();

    /// Expands every row, in slices between other events.
    void ExpandEverything();
    /// Leaves the top row and its children.
    void CollapseEverything();
    /// Whether a row's name is being edited.
    [[nodiscard]] bool IsEditing() const { return isEditing_; }

    /// The row of a node, with all rows above it made on demand; not OK when there is none.
    [[nodiscard]] wxTreeItemId RowOf(const document::clsNode& node);

private:
    struct Filling {
        wxTreeItemId row;
        std::size_t nextChild;
    };

    void OnSelected(wxTreeEvent& event);
    void OnExpanding(wxTreeEvent& event);
    void OnBeginLabelEdit(wxTreeEvent& event);
    void OnLeftDown(wxMouseEvent& event);
    void OnEndLabelEdit(wxTreeEvent& event);
    void OnKey(wxTreeEvent& event);
    void OnItemMenu(wxTreeEvent& event);
    void OnRightUp(wxMouseEvent& event);
    void OnIdle(wxIdleEvent& event);

    wxTreeItemId Append(const wxTreeItemId& parent, const document::clsNode& node);
    wxTreeItemId Insert(const wxTreeItemId& parent, const document::clsNode& node, std::size_t index);
    void Prepare(const wxTreeItemId& row, const document::clsNode& node);
    /// The row that was made for a node; not OK when there is none yet.
    [[nodiscard]] wxTreeItemId MadeRow(const document::clsNode& node) const;
    [[nodiscard]] bool IsFilled(const wxTreeItemId& row);
    void ExpandSlice();
    /// Adds the rows before `end` (from 0) that are not there yet.
    void Fill(Filling& filling, std::size_t end);
    /// Adds as many rows as nobody feels.
    void FillSlice(Filling& filling);
    void StartFilling(const wxTreeItemId& row);
    [[nodiscard]] bool HasRowsBelow(const wxTreeItemId& row) const;
    [[nodiscard]] Filling* FillingOf(const wxTreeItemId& row);
    void FillUpTo(const wxTreeItemId& row, const document::clsNode& child);
    [[nodiscard]] const document::clsNode* NodeOf(const wxTreeItemId& row) const;

    void Click(const wxTreeItemId& row);

    Handlers handlers_;
    wxTreeItemId clicked_;               ///< the row that the handlers know of
    std::deque<Filling> filling_;        ///< rows whose children are not all there yet
    std::deque<wxTreeItemId> expanding_; ///< rows that are to be expanded with all below them
    std::unordered_map<const document::clsNode*, wxTreeItemId> rows_;
    std::unordered_set<const document::clsNode*> marked_;
    bool isChanging_ = false;     ///< the program itself changes rows: selection events do not count
    bool isEditing_ = false;      ///< a row's name
    bool isNameAccepted_ = false; ///< the name of the last edit that ended
};

} // namespace tamarind::editors
