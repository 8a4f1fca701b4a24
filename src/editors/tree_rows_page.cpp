#include "editors/tree_rows_page.h"

#include "platform/wx/wx_text.h"

#include <wx/app.h>
#include <wx/stopwatch.h>
#include <wx/wupdlock.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace tamarind::editors {

using document::clsNode;
using platform::ToWx;

namespace {

constexpr long kSliceMilliseconds = 20;
constexpr long kMarkMilliseconds = 100;
/// Rows between two looks at the clock.
constexpr std::size_t kRowsPerLook = 256;
/// The control measures new rows only afterwards, which takes far longer than adding them.
constexpr std::size_t kRowsPerSlice = 2048;

/// Takes its row out of the table when the control deletes it.
class RowData : public wxTreeItemData {
public:
    using Rows = std::unordered_map<const clsNode*, wxTreeItemId>;
    RowData(const clsNode& node, Rows& rows) : node_(node), rows_(rows) {}
    ~RowData() override { rows_.erase(&node_); }
    RowData(const RowData&) = delete;
    RowData& operator=(const RowData&) = delete;
    [[nodiscard]] const clsNode& Node() const { return node_; }

private:
    const clsNode& node_;
    Rows& rows_;
};

std::size_t IndexInParent(const clsNode& node) {
    const auto& siblings = node.ParentNode->ChildNodes;
    return static_cast<std::size_t>(std::find(siblings.begin(), siblings.end(), &node) - siblings.begin());
}

/// Sets a flag for the length of a scope.
class Guard {
public:
    explicit Guard(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~Guard() { flag_ = before_; }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

private:
    bool& flag_;
    bool before_;
};

} // namespace

TreeRows::TreeRows(wxWindow* parent, Handlers handlers)
    : wxTreeCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxTR_DEFAULT_STYLE | wxTR_EDIT_LABELS | wxTR_SINGLE | wxTR_LINES_AT_ROOT | wxBORDER_NONE),
      handlers_(std::move(handlers)) {
    SetName("trevwContents");
    Bind(wxEVT_TREE_SEL_CHANGED, &TreeRows::OnSelected, this);
    Bind(wxEVT_TREE_ITEM_EXPANDING, &TreeRows::OnExpanding, this);
    Bind(wxEVT_TREE_BEGIN_LABEL_EDIT, &TreeRows::OnBeginLabelEdit, this);
    Bind(wxEVT_LEFT_DOWN, &TreeRows::OnLeftDown, this);
    Bind(wxEVT_TREE_END_LABEL_EDIT, [this](wxTreeEvent& event) { OnEndLabelEdit(event); });
    Bind(wxEVT_TREE_KEY_DOWN, &TreeRows::OnKey, this);
    Bind(wxEVT_TREE_ITEM_MENU, &TreeRows::OnItemMenu, this);
    Bind(wxEVT_RIGHT_UP, &TreeRows::OnRightUp, this);
    Bind(wxEVT_IDLE, &TreeRows::OnIdle, this);
}

TreeRows::~TreeRows() { Clear(); }

void TreeRows::ShowDocument(const document::Document& document) {
    Clear();
    if (document.IsEmpty()) return;
    const wxTreeItemId root = Append(wxTreeItemId(), document.Top());
    Expand(root);
    ScrollTo(root);
}

void TreeRows::Clear() {
    const Guard guard(isChanging_);
    filling_.clear();
    expanding_.clear();
    marked_.clear();
    rows_.clear();
    clicked_.Unset();
    DeleteAllItems();
}

void TreeRows::AddNode(const clsNode& node) {
    const Guard guard(isChanging_);
    if (node.ParentNode->ParentNode == nullptr) {
        Append(wxTreeItemId(), node);
        return;
    }
    const wxTreeItemId parent = RowOf(*node.ParentNode);
    const std::size_t index = IndexInParent(node);
    Filling* const filling = FillingOf(parent);
    if (ItemHasChildren(parent) && !HasRowsBelow(parent)) {
        // Never expanded: expanding adds the new child with the others.
        Expand(parent);
        FillUpTo(parent, node);
    } else if (filling != nullptr && index >= filling->nextChild) {
        FillUpTo(parent, node);
    } else {
        if (filling != nullptr) ++filling->nextChild;
        Insert(parent, node, index);
        SetItemHasChildren(parent);
        Expand(parent);
    }
}

void TreeRows::RemoveNode(const clsNode& node) {
    const Guard guard(isChanging_);
    const wxTreeItemId row = RowOf(node);
    if (!row.IsOk()) return;
    const wxTreeItemId parent = GetItemParent(row);
    expanding_.clear();
    // The row's own and its descendants' pending children go with it.
    std::erase_if(filling_, [&](const Filling& filling) {
        wxTreeItemId above = filling.row;
        while (above.IsOk() && above != row)
            above = GetItemParent(above);
        return above.IsOk();
    });
    if (Filling* const filling = FillingOf(parent)) --filling->nextChild;
    clicked_.Unset();
    Unselect();
    Delete(row);
    Unselect();
    SetItemHasChildren(parent, node.ParentNode->ChildNodes.Count() > 1);
}

void TreeRows::EditNode(const clsNode& node) {
    const wxTreeItemId row = RowOf(node);
    if (!row.IsOk()) return;
    EnsureVisible(row);
    TakeFocus();
    SelectItem(row);
    EditLabel(row);
}

void TreeRows::ShowName(const clsNode& node) {
    const wxTreeItemId row = MadeRow(node);
    if (row.IsOk()) SetItemText(row, ToWx(node.NodeName));
}

wxTreeItemId TreeRows::MadeRow(const clsNode& node) const {
    const auto found = rows_.find(&node);
    return found == rows_.end() ? wxTreeItemId() : found->second;
}

wxTreeItemId TreeRows::RowOf(const clsNode& node) {
    std::vector<const clsNode*> missing;
    const clsNode* step = &node;
    for (; step->ParentNode != nullptr && !MadeRow(*step).IsOk(); step = step->ParentNode)
        missing.push_back(step);
    wxTreeItemId row = MadeRow(*step);
    for (auto below = missing.rbegin(); row.IsOk() && below != missing.rend(); ++below) {
        FillUpTo(row, **below);
        row = MadeRow(**below);
    }
    return row;
}

wxTreeItemId TreeRows::Append(const wxTreeItemId& parent, const clsNode& node) {
    const wxString name = ToWx(node.NodeName);
    auto* const data = new RowData(node, rows_);
    const wxTreeItemId row = parent.IsOk() ? AppendItem(parent, name, -1, -1, data) : AddRoot(name, -1, -1, data);
    Prepare(row, node);
    return row;
}

wxTreeItemId TreeRows::Insert(const wxTreeItemId& parent, const clsNode& node, std::size_t index) {
    const wxTreeItemId row = InsertItem(parent, index, ToWx(node.NodeName), -1, -1, new RowData(node, rows_));
    Prepare(row, node);
    return row;
}

void TreeRows::Prepare(const wxTreeItemId& row, const clsNode& node) {
    rows_[&node] = row;
    if (node.ChildNodes.Count() > 0) SetItemHasChildren(row);
    if (!marked_.empty() && marked_.contains(&node)) SetItemBold(row);
}

void TreeRows::StartFilling(const wxTreeItemId& row) {
    if (FillingOf(row) == nullptr && !HasRowsBelow(row)) filling_.push_back({row, 0});
}

bool TreeRows::HasRowsBelow(const wxTreeItemId& row) const {
    wxTreeItemIdValue cookie = nullptr;
    return GetFirstChild(row, cookie).IsOk();
}

TreeRows::Filling* TreeRows::FillingOf(const wxTreeItemId& row) {
    const auto found = std::find_if(filling_.begin(), filling_.end(), [&](const Filling& f) { return f.row == row; });
    return found == filling_.end() ? nullptr : &*found;
}

void TreeRows::Fill(Filling& filling, std::size_t end) {
    const auto& children = NodeOf(filling.row)->ChildNodes;
    for (end = std::min(end, children.Count()); filling.nextChild < end; ++filling.nextChild) {
        Append(filling.row, **(children.begin() + filling.nextChild));
    }
}

void TreeRows::FillSlice(Filling& filling) {
    const wxWindowUpdateLocker locker(this);
    const wxStopWatch watch;
    const std::size_t end = std::min(NodeOf(filling.row)->ChildNodes.Count(), filling.nextChild + kRowsPerSlice);
    while (filling.nextChild < end && watch.Time() < kSliceMilliseconds) {
        Fill(filling, filling.nextChild + kRowsPerLook);
    }
}

void TreeRows::FillUpTo(const wxTreeItemId& row, const clsNode& child) {
    StartFilling(row);
    if (Filling* const filling = FillingOf(row)) Fill(*filling, IndexInParent(child) + 1);
}

void TreeRows::Select(const clsNode& node) {
    const Guard guard(isChanging_);
    const wxTreeItemId row = RowOf(node);
    if (!row.IsOk()) return;
    EnsureVisible(row);
    SelectItem(row);
    clicked_ = row;
}

void TreeRows::Mark(const std::vector<const clsNode*>& nodes) {
    const Guard guard(isChanging_);
    const wxWindowUpdateLocker locker(this);
    const wxStopWatch watch;
    for (const clsNode* const node : nodes) {
        marked_.insert(node);
        const bool mayExpand = watch.Time() < kMarkMilliseconds && node->ParentNode->ParentNode != nullptr;
        const wxTreeItemId row = mayExpand ? RowOf(*node) : MadeRow(*node);
        if (!row.IsOk()) continue;
        SetItemBold(row);
        for (wxTreeItemId above = GetItemParent(row); mayExpand && above.IsOk() && !IsExpanded(above);
             above = GetItemParent(above)) {
            Expand(above);
        }
    }
}

void TreeRows::Unmark() {
    const wxWindowUpdateLocker locker(this);
    for (const clsNode* const node : marked_) {
        const wxTreeItemId row = MadeRow(*node);
        if (row.IsOk()) SetItemBold(row, false);
    }
    marked_.clear();
}

void TreeRows::ExpandEverything() {
    expanding_.clear();
    if (GetRootItem().IsOk()) expanding_.push_back(GetRootItem());
    wxWakeUpIdle();
}

void TreeRows::CollapseEverything() {
    const Guard guard(isChanging_);
    expanding_.clear();
    const wxTreeItemId top = GetRootItem();
    if (!top.IsOk()) return;
    CollapseAllChildren(top);
    Expand(top);
    EnsureVisible(top);
    if (!GetSelection().IsOk()) return;
    // A row that is out of sight now would be changed unseen.
    SelectItem(top);
    Click(top);
}

bool TreeRows::IsFilled(const wxTreeItemId& row) {
    const Filling* const filling = FillingOf(row);
    return filling == nullptr || filling->nextChild >= NodeOf(row)->ChildNodes.Count();
}

void TreeRows::ExpandSlice() {
    const wxWindowUpdateLocker locker(this);
    const wxStopWatch watch;
    while (!expanding_.empty() && watch.Time() < kSliceMilliseconds) {
        const wxTreeItemId row = expanding_.front();
        if (!IsExpanded(row)) Expand(row);
        if (!IsFilled(row)) return; // first its own children
        expanding_.pop_front();
        wxTreeItemIdValue cookie = nullptr;
        for (wxTreeItemId child = GetFirstChild(row, cookie); child.IsOk(); child = GetNextChild(row, cookie)) {
            if (ItemHasChildren(child)) expanding_.push_back(child);
        }
    }
}

const clsNode* TreeRows::NodeOf(const wxTreeItemId& row) const {
    const auto* const data = static_cast<const RowData*>(GetItemData(row));
    return data == nullptr ? nullptr : &data->Node();
}

void TreeRows::OnSelected(wxTreeEvent& event) {
    const wxTreeItemId row = event.GetItem();
    if (!isChanging_ && row.IsOk()) Click(row);
}

void TreeRows::Click(const wxTreeItemId& row) {
    clicked_ = row;
    handlers_.clicked(NodeOf(row)->Key);
}

// Getting the focus amid the selection of another row would leave the control with two selected ones.
void TreeRows::TakeFocus() {
    const Guard guard(isChanging_);
    SetFocus();
}

// The control selects the first row by itself when it gets the focus, and says nothing: a click on a row that is
// selected already, or editing its name, must reach the handlers all the same.
void TreeRows::OnLeftDown(wxMouseEvent& event) {
    TakeFocus();
    int flags = 0;
    const wxTreeItemId row = HitTest(event.GetPosition(), flags);
    if (row.IsOk() && (flags & wxTREE_HITTEST_ONITEM) != 0 && row == GetSelection() && row != clicked_) Click(row);
    event.Skip();
}

void TreeRows::OnBeginLabelEdit(wxTreeEvent& event) {
    isEditing_ = true;
    if (event.GetItem() != clicked_) Click(event.GetItem());
}

void TreeRows::OnExpanding(wxTreeEvent& event) {
    const wxTreeItemId row = event.GetItem();
    StartFilling(row);
    if (Filling* const filling = FillingOf(row)) {
        const Guard guard(isChanging_);
        FillSlice(*filling);
    }
}

void TreeRows::OnIdle(wxIdleEvent& event) {
    event.Skip();
    // On Windows the editing of a name would end when the rows are frozen for more of them.
    if (isEditing_ || (filling_.empty() && expanding_.empty())) return;
    const Guard guard(isChanging_);
    if (filling_.empty()) {
        ExpandSlice();
    } else {
        Filling& filling = filling_.front();
        FillSlice(filling);
        if (filling.nextChild >= NodeOf(filling.row)->ChildNodes.Count()) filling_.pop_front();
    }
    if (!filling_.empty() || !expanding_.empty()) event.RequestMore();
}

// Ending an edit takes the focus from its box, which ends it once more: only the first end counts.
void TreeRows::OnEndLabelEdit(wxTreeEvent& event) {
    if (isEditing_) {
        isEditing_ = false;
        isNameAccepted_ = !event.IsEditCancelled() && handlers_.labelEdited(platform::FromWx(event.GetLabel()));
    }
    if (!isNameAccepted_) event.Veto();
}

void TreeRows::OnKey(wxTreeEvent& event) {
    const int key = event.GetKeyCode();
    if (key == WXK_F2 && GetSelection().IsOk()) {
        EditLabel(GetSelection());
    } else if (key == WXK_DELETE) {
        handlers_.deleteKey();
    } else {
        event.Skip();
    }
}

void TreeRows::OnItemMenu(wxTreeEvent& event) {
    TakeFocus();
    if (event.GetItem().IsOk()) SelectItem(event.GetItem());
    handlers_.popUp();
}

void TreeRows::OnRightUp(wxMouseEvent& event) {
    int flags = 0;
    // On a row the event of its own menu comes.
    if (!HitTest(event.GetPosition(), flags).IsOk()) handlers_.popUp();
    event.Skip();
}

} // namespace tamarind::editors
